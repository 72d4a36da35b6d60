#include "online/website_index.h"

namespace qv {

namespace {

// A link of the index: to a page of the service or to a file of the site.
struct IndexLink
{
    std::string_view text;
    std::string address;
    bool online = false;
};

std::vector<IndexLink> index_links(const WebsiteParts& parts, const IndexFacts& facts)
{
    std::vector<IndexLink> links;
    auto online = [&](bool on, std::string_view text, std::string_view idx) {
        if (on)
            links.push_back({ text, public_page_address(facts, idx), true });
    };
    auto local = [&](bool on, std::string_view text, std::string_view file) {
        if (on)
            links.push_back({ text, std::string(file), false });
    };
    online(parts.details, "details", "get_tdetails");
    local(parts.draws, "draws", "file_draws.htm");
    local(parts.alias, "alias", "file_alias.htm");
    local(parts.schedules, "schedules", "file_schedules.htm");
    local(parts.player_times, "player times", "file_playertimes.htm");
    local(parts.results, "results", "file_results.htm");
    local(parts.qv4_file, "qv4 file", "file_qv4.htm");
    online(parts.enter, "enter", "enter1_enterpage");
    online(parts.withdraw, "withdraw", "withdraw1_login_page");
    // Either pair setting may be on, never both: the labels keep them exclusive.
    online(parts.entries && facts.entries_online, "entries", "entries");
    local(parts.entries && !facts.entries_online && facts.entries_make, "entries", "entries.htm");
    online(parts.players && facts.players_online, "players", "players");
    local(parts.players && !facts.players_online && facts.players_make, "players", "players.htm");
    online(parts.message, "message", "get_messagetoplayers");
    return links;
}

std::string in_quotes(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

} // namespace

std::string public_page_address(const IndexFacts& facts, std::string_view idx)
{
    return facts.server + "?idx=" + std::string(idx) + "&custid=" + facts.custid;
}

PageLines index_left_page(const WebsiteParts& parts, const IndexFacts& facts, IndexKind kind)
{
    const bool left = kind == IndexKind::left_frame;
    const std::string online_target = left ? "_top" : "_self";
    const std::string local_target = left ? "main" : "_self";
    PageLines page;
    add_head(page, title_line("leftindex"), ContentLanguage::no, { "<base target=" + in_quotes(local_target) + ">" });
    add_container_body(page, BodyGap::without);
    // The heading: nothing in the frame, the tournament and a paragraph of its own in the plain index.
    if (left) {
        page.emplace_back();
    } else {
        page.push_back(facts.tournament);
        page.emplace_back(R"(<p><font face="Verdana">)");
    }
    for (const auto& link : index_links(parts, facts)) {
        // The template of an online link has a second blank before target and one before ">".
        if (link.online)
            page.push_back("<a href=" + in_quotes(link.address) + "  target=" + in_quotes(online_target) + " >"
                + std::string(link.text) + "</a><br>");
        else
            page.push_back("<a href=" + in_quotes(link.address) + " target=" + in_quotes(local_target) + ">"
                + std::string(link.text) + "</a><br>");
    }
    page.insert(page.end(), { "</font>", "" });
    add_end(page);
    return page;
}

PageLines framed_index_page(const IndexFacts& facts)
{
    PageLines page { "<html>", "", "<head>", R"(<meta name="GENERATOR" content="Microsoft FrontPage 4.0">)",
        R"(<meta name="ProgId" content="FrontPage.Editor.Document">)", title_line("Index"), "</head>", "" };
    const auto message
        = facts.server + "?idx=get_messagetoplayers&sequence=" + facts.sequence + "&custid=" + facts.custid;
    page.insert(page.end(),
        { R"(<frameset rows="64,*">)",
            R"(  <frame name="banner" scrolling="no" noresize target="contents" src="topindex.htm">)",
            R"(  <frameset cols="150,*">)", R"(    <frame name="contents" target="main" src="leftindex.htm">)",
            "    <frame name=\"main\" src=" + in_quotes(message) + ">", "  </frameset>", "  <noframes>", "  <body>", "",
            "  <p>This page uses frames, but your browser doesn't support them.</p>", "", "  </body>", "  </noframes>",
            "</frameset>", "", "</html>" });
    return page;
}

PageLines index_top_page(const IndexFacts& facts)
{
    PageLines page;
    add_head(page, title_line(facts.tournament), ContentLanguage::no, { R"(<base target="contents">)" });
    page.insert(page.end(),
        { "<body>", "", R"(<p><font face="Verdana" size="2">)" + facts.tournament + "&nbsp;<br>",
            facts.dates + "</font></p>", "" });
    add_end(page);
    return page;
}

} // namespace qv
