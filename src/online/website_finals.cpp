#include "online/website_finals.h"

#include "core/database.h"
#include "documents/document_lines.h"
#include "documents/match_text.h"
#include "documents/rr_standings.h"

namespace qv {

PageLines finals_summary_container_page()
{
    PageLines page;
    add_head(page, title_line("Finals Summary"), ContentLanguage::no, { R"(<base target="_self">)" });
    page.insert(page.end(),
        { R"(<body bgcolor="#C0C0C0" vlink="#FFFF00">)", R"(<p><font face="Verdana">)",
            R"(<font size="1">Finals Summary<br>)", "<br>",
            R"(<a href="file_finalssummary_ko.htm">Knock Out events</a><br>)",
            R"(<a href="file_finalssummary_rr.htm">Round Robin events</a><br>)", "</font><br>", "</font>", "" });
    add_end(page);
    return page;
}

std::vector<std::string> knock_out_finals_text(
    const DocumentContext& context, const std::vector<DrawnEvent>& events, const WebsiteResultsOptions& options)
{
    const NameOptions names { options.wqs, options.from };
    const ScoreOptions scores { options.short_score, options.long_score };
    Document document;
    begin_document(document, context, "Knock Out events");
    document.add("");
    int count = 0;
    for (const auto& event : events) {
        if (event.drawtype != "ko")
            continue;
        auto row = context.tournament.query(
            "select * from schedule where eid=? and rname='final' and match_state='3' order by \"match\"", event.eid);
        if (!row.step())
            continue;
        const bool top = top_won(row);
        for (auto line : { event.names.name, "champion: " + side_text(row, top ? "mt" : "mb", names),
                 "runner-up: " + side_text(row, top ? "mb" : "mt", names), "score: " + score_text(row, scores),
                 std::string() })
            document.add(std::move(line), row.integer("sid"));
        ++count;
    }
    document.add("(total " + std::to_string(count) + ")");
    end_document(document, context);
    return document.texts();
}

std::vector<NamedPage> finals_summary_pages(
    const DocumentContext& context, const std::vector<DrawnEvent>& events, const WebsiteResultsOptions& options)
{
    // One heading and one "created" line for the page; each standings keeps its title and its lines.
    Document page;
    begin_document(page, context, "Round Robin events");
    auto standings = page.texts();
    for (const auto& event : events)
        if (event.drawtype == "rr") {
            standings.emplace_back();
            const auto texts = standings_rr(context, event.eid).texts();
            standings.insert(standings.end(), texts.begin() + 1, texts.end() - 2);
        }
    Document ending;
    end_document(ending, context);
    for (const auto& line : ending.texts())
        standings.push_back(line);
    return {
        { std::string(finals_summary_file), "Finals Summary", finals_summary_container_page() },
        { "file_finalssummary_ko.htm", "finals summary knock out events",
            wrap_text_page(knock_out_finals_text(context, events, options), "finals summary knock out events") },
        { "file_finalssummary_rr.htm", "finals summary round robin events",
            wrap_text_page(standings, "finals summary round robin events") },
    };
}

} // namespace qv
