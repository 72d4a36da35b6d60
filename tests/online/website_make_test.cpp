#include "core/file_save.h"
#include "online/website_fixture.h"
#include "online/website_links.h"
#include "online/website_views.h"
#include "support/file_bytes.h"

#include <algorithm>
#include <cstdlib>

namespace qv {
namespace {

namespace fs = std::filesystem;
using test::read_bytes;
using test::read_crlf_lines;

fs::path expected_dir()
{
    return fs::path(QV_TEST_DATA_DIR) / "expected" / "website";
}

class WebsiteMakeTest : public test::WebsiteFixture
{
protected:
    bool make(const WebsiteOptions& options) { return make_website(session, options, fixed_run()); }
    std::vector<std::string> index_lines(const char* name = "index.htm") { return read_crlf_lines(site() / name); }
};

// The whole site of the fixed tournament, byte for byte; the pictures are checked as GIF files only, their
// pixels are the pictures' own tests' concern. QV_GOLDEN_OUT names a folder to receive the files made, for
// renewing the golden files after a deliberate change.
TEST_F(WebsiteMakeTest, EveryPageMatchesItsGoldenFile)
{
    ASSERT_TRUE(make(everything()));
    EXPECT_EQ(talk.last_message(), "ok");
    std::vector<std::string> golden;
    for (const auto& file : fs::directory_iterator(expected_dir()))
        if (file.path().filename() != "README.md")
            golden.push_back(file.path().filename().string());
    std::sort(golden.begin(), golden.end());
    std::vector<std::string> made;
    for (const auto& name : site_files()) {
        if (const char* out = std::getenv("QV_GOLDEN_OUT"))
            fs::copy_file(site() / name, fs::path(out) / name, fs::copy_options::overwrite_existing);
        if (fs::path(name).extension() == ".gif") {
            EXPECT_EQ(read_bytes(site() / name).substr(0, 4), "GIF8") << name;
            continue;
        }
        made.push_back(name);
        EXPECT_EQ(read_bytes(site() / name), read_bytes(expected_dir() / name)) << name;
    }
    EXPECT_EQ(made, golden);
}

// Which files a combination of options yields, the rest of the options as in everything().
TEST_F(WebsiteMakeTest, FilesFollowTheOptions)
{
    struct Case
    {
        const char* what;
        void (*change)(WebsiteOptions&);
        std::vector<std::string> present;
        std::vector<std::string> absent;
    };
    const Case cases[] = {
        { "message off: the plain index only", [](WebsiteOptions& o) { o.parts.message = false; }, { "index.htm" },
            { "leftindex.htm", "topindex.htm" } },
        { "message on: the frames", [](WebsiteOptions&) {}, { "index.htm", "leftindex.htm", "topindex.htm" }, {} },
        { "qv4 style", [](WebsiteOptions& o) { apply_website_style(o, "qv4"); },
            { "index.htm", "file_qv4.htm", "harbour_open.qv4", "file_tdetails.txt" },
            { "file_draws.htm", "entries.htm", "players.htm", "leftindex.htm" } },
        { "no text draws", [](WebsiteOptions& o) { o.draws.text_draws = false; },
            { "file_draws.htm", "draw_mensopensingles.gif", "draw_mixeddoubles.gif", "draw_womensroundrobin.gif" },
            { "textdraw_mensopensingles.htm", "textdraw_mixeddoubles.htm" } },
        { "one draw chosen", [](WebsiteOptions& o) { o.draws.eids = { 3 }; },
            { "draw_mixeddoubles.gif", "textdraw_mixeddoubles.htm", "file_alias_mixeddoubles.htm" },
            { "draw_mensopensingles.gif", "textdraw_mensopensingles.htm", "file_alias_mensopensingles.htm" } },
        { "schedules by court only", [](WebsiteOptions& o) { o.schedules.by_time = o.schedules.by_event = false; },
            { "file_schedules.htm", "file_sbc_mon02mar26.htm", "file_sbc_tue03mar26.htm" },
            { "file_sbt_mon02mar26.htm", "file_sbe_tue03mar26.htm" } },
        { "results by day and round", [](WebsiteOptions& o) { o.results.by_event = o.results.by_schedule = false; },
            { "file_results.htm", "file_results_group_by_day.htm", "file_results_by_round.htm",
                "file_finalssummary.htm", "file_finalssummary_ko.htm", "file_finalssummary_rr.htm" },
            { "file_results_by_event.htm", "file_results_by_schedule.htm", "file_results_for_all days.htm" } },
        { "no player times", [](WebsiteOptions& o) { o.parts.player_times = false; }, {}, { "file_playertimes.htm" } },
        { "unselect all", [](WebsiteOptions& o) { apply_website_style(o, "unselect all"); }, { "index.htm" },
            { "file_draws.htm", "file_qv4.htm", "harbour_open.qv4", "file_tdetails.txt", "entries.htm", "players.htm",
                "file_finalssummary.htm", "file_finalssummary_ko.htm" } },
    };
    for (const auto& c : cases) {
        auto options = everything();
        c.change(options);
        ASSERT_TRUE(make(options)) << c.what;
        for (const auto& name : c.present)
            EXPECT_TRUE(has(name)) << c.what << ": " << name;
        for (const auto& name : c.absent)
            EXPECT_FALSE(has(name)) << c.what << ": " << name;
    }
    // A file left by an earlier run is gone: each run empties the directory first.
    fs::create_directories(site() / "keep");
    write_text_file(site() / "old.htm", { "old" });
    ASSERT_TRUE(make(everything()));
    EXPECT_FALSE(has("old.htm"));
    EXPECT_TRUE(fs::is_directory(site() / "keep"));
}

// The settings pairs decide between a made page and the online page; with neither on there is no link.
TEST_F(WebsiteMakeTest, EntriesAndPlayersMadeOrLinkedOnline)
{
    auto& settings = session.settings();
    struct Case
    {
        const char* online;
        const char* make;
        const char* link; // the entries line of the index, or empty for none
        bool page;
    };
    const Case cases[] = {
        { "1", "0", R"(<a href="http://127.0.0.1:8780/qv?idx=entries&custid=club7"  target="_self" >entries</a><br>)",
            false },
        { "0", "1", R"(<a href="entries.htm" target="_self">entries</a><br>)", true },
        { "0", "0", "", false },
    };
    auto options = everything();
    options.parts.message = false;
    for (const auto& c : cases) {
        settings.set_disk_var("entries_online", c.online);
        settings.set_disk_var("entries_make", c.make);
        settings.set_disk_var("players_online", c.online);
        settings.set_disk_var("players_make", c.make);
        ASSERT_TRUE(make(options));
        const auto lines = index_lines();
        const auto entries_lines = std::count_if(
            lines.begin(), lines.end(), [](const std::string& l) { return l.find(">entries</a>") != l.npos; });
        EXPECT_EQ(entries_lines, *c.link ? 1 : 0) << c.online << c.make;
        if (*c.link) {
            EXPECT_NE(std::find(lines.begin(), lines.end(), c.link), lines.end()) << c.link;
        }
        EXPECT_EQ(has("entries.htm"), c.page);
        EXPECT_EQ(has("players.htm"), c.page);
    }
}

// The alias pair: one name map of all events, or a page per chosen event and a container listing them.
TEST_F(WebsiteMakeTest, NameMapOnOnePageOrOnePagePerEvent)
{
    auto options = everything();
    options.draws.eids = { 1, 3 };
    choose_website_pair(session.settings(), WebsitePair::alias, true);
    ASSERT_TRUE(make(options));
    EXPECT_TRUE(has("file_alias.htm"));
    EXPECT_FALSE(has("file_alias_mensopensingles.htm"));
    const auto one = test::read_cp1252(site() / "file_alias.htm");
    EXPECT_NE(one.find("womens round robin"), std::string::npos) << "all events, chosen or not";

    choose_website_pair(session.settings(), WebsitePair::alias, false);
    ASSERT_TRUE(make(options));
    EXPECT_TRUE(has("file_alias_mensopensingles.htm"));
    EXPECT_TRUE(has("file_alias_mixeddoubles.htm"));
    EXPECT_FALSE(has("file_alias_womensroundrobin.htm"));
    const auto lines = read_crlf_lines(site() / "file_alias.htm");
    EXPECT_NE(
        std::find(lines.begin(), lines.end(), R"(<a href="file_alias_mensopensingles.htm">men's open singles</a><br>)"),
        lines.end());
}

// With the "qv4" style the index holds two links, the details and the results file, and the tournament's name.
TEST_F(WebsiteMakeTest, Qv4StyleIndexHoldsTwoLinks)
{
    WebsiteOptions options;
    apply_website_style(options, "qv4");
    ASSERT_TRUE(make(options));
    std::vector<std::string> anchors;
    for (const auto& line : index_lines())
        if (line.starts_with("<a href="))
            anchors.push_back(line);
    const std::vector<std::string> expected {
        R"(<a href="http://127.0.0.1:8780/qv?idx=get_tdetails&custid=club7"  target="_self" >details</a><br>)",
        R"(<a href="file_qv4.htm" target="_self">qv4 file</a><br>)",
    };
    EXPECT_EQ(anchors, expected);
    const auto lines = index_lines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Harbour Open"), lines.end());
    // The plain index as a whole: the heading and its second paragraph in place of the frame's empty line.
    EXPECT_EQ(read_bytes(site() / "index.htm"),
        read_bytes(fs::path(QV_TEST_DATA_DIR) / "expected" / "website_plain" / "index.htm"));
}

// Every href and src of every page points at a file of the site or at a public page of the service; the one
// other address is the product's home page on the page about the results file.
TEST_F(WebsiteMakeTest, EveryLinkPointsAtAFileOrTheService)
{
    for (bool message : { true, false }) {
        auto options = everything();
        options.parts.message = message;
        ASSERT_TRUE(make(options));
        const auto links = test::links_of_site(site());
        EXPECT_GT(links.size(), 20u);
        const std::string service = std::string(test::website_server) + "?idx=";
        for (const auto& link : links) {
            if (link.address.starts_with(service)) {
                EXPECT_NE(link.address.find("&custid=club7"), std::string::npos) << link.page << " " << link.address;
                continue;
            }
            if (link.page == "file_qv4.htm" && link.address == "https://quorvelin.example/")
                continue;
            EXPECT_TRUE(has(link.address)) << link.page << " links " << link.address;
        }
    }
}

TEST_F(WebsiteMakeTest, ViewLocalWebsiteNeedsAnIndex)
{
    EXPECT_FALSE(local_website_index(session));
    EXPECT_EQ(talk.last_message(), "no index file found");
    ASSERT_TRUE(make(everything()));
    EXPECT_EQ(local_website_index(session), site() / "index.htm");
}

// A website directory that cannot be emptied stops the run before any page is written.
TEST_F(WebsiteMakeTest, UnwritableDirectoryStopsTheRun)
{
    fs::remove_all(site());
    write_text_file(site(), { "a file where the directory should be" });
    EXPECT_FALSE(make(everything()));
    EXPECT_TRUE(talk.last_message().starts_with("cannot write file:")) << talk.last_message();
    fs::remove(site());
}

// A view button shows the page its tab would make for the day or style chosen, as the site has it.
TEST_F(WebsiteMakeTest, ViewsShowThePagesOfTheSite)
{
    const auto options = everything();
    ASSERT_TRUE(make(options));
    const auto day = options.schedules.days.front();
    struct Case
    {
        std::optional<fs::path> shown;
        const char* page;
        const char* title;
    };
    const Case cases[] = {
        { view_schedule(session, options.schedules, 't', day), "file_sbt_mon02mar26.htm", "Schedule by time" },
        { view_player_times(session, options.player_times), "file_playertimes.htm", "player times" },
        { view_results(session, options.results, "by round"), "file_results_by_round.htm", "results by round" },
        { view_results(session, options.results, "by schedule"), "file_results_for_all days.htm",
            "results by schedule" },
        { view_text_draw(session, options.draws, 1), "textdraw_mensopensingles.htm", "men's open singles" },
    };
    std::size_t shown = 0;
    for (const auto& c : cases) {
        ASSERT_TRUE(c.shown) << c.page;
        // The view is written at this moment, the site at the fixed one: only "created @" may differ.
        auto view = read_crlf_lines(*c.shown);
        auto page = read_crlf_lines(site() / c.page);
        std::erase_if(view, [](const std::string& l) { return l.starts_with("created @"); });
        std::erase_if(page, [](const std::string& l) { return l.starts_with("created @"); });
        EXPECT_EQ(view, page) << c.page;
        while (shown < talk.said.size() && talk.said[shown].kind != "text")
            ++shown;
        ASSERT_LT(shown, talk.said.size());
        EXPECT_EQ(talk.said[shown++].title, c.title);
    }
    talk.clear();
    EXPECT_FALSE(view_schedule(session, options.schedules, 'c', std::nullopt));
    EXPECT_FALSE(view_text_draw(session, options.draws, std::nullopt));
    EXPECT_EQ(talk.messages(), (std::vector<std::string> { "select day ", "select draw" }));
}

} // namespace
} // namespace qv
