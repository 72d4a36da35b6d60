#include "documents/idocuments.h"
#include "online/website_finals.h"
#include "online/website_fixture.h"

#include <algorithm>

namespace qv {
namespace {

class WebsiteFinalsTest : public test::WebsiteFixture
{
protected:
    // The page's text between the document's heading (the tournament, the title) and its "created" lines.
    std::vector<std::string> ko_text(const WebsiteResultsOptions& options = {})
    {
        auto text = knock_out_finals_text(context(), chosen_drawn_events(db(), { 1, 2, 3 }), options);
        EXPECT_GE(text.size(), 4u);
        EXPECT_TRUE(text.back().starts_with("created @ "));
        return { text.begin() + 1, text.end() - 2 };
    }
    DocumentContext context() { return document_context(session); }
    std::string final_side(const char* column)
    {
        return db().scalar_text(std::string("select ") + column + " from schedule where eid=3 and rname='final'");
    }
    void play_doubles_final()
    {
        test::DocumentsTournamentBuilder builder(session);
        builder.result(3, 2, ResultWinner::bottom, "7-5 6-2");
        builder.result(3, 3, ResultWinner::bottom, "3-6 6-4 7-6", "3-6 6-4 7-6(5)");
    }
};

// An event shows once its final is played; the round robin never does; the score follows the options.
TEST_F(WebsiteFinalsTest, KnockOutPageListsPlayedFinalsOnly)
{
    EXPECT_EQ(ko_text(), (std::vector<std::string> { "Knock Out events", "", "(total 0)" }));
    play_doubles_final();
    const auto champion = final_side("mwttt");
    const auto runner_up = champion == final_side("mtttt") ? final_side("mbttt") : final_side("mtttt");
    ASSERT_FALSE(champion.empty());
    struct Case
    {
        bool short_score;
        bool long_score;
        const char* score;
    };
    for (const auto& c : { Case { true, false, "score: 3-6 6-4 7-6" }, Case { false, true, "score: 3-6 6-4 7-6(5)" },
             Case { true, true, "score: 3-6 6-4 7-6~3-6 6-4 7-6(5)" } }) {
        WebsiteResultsOptions options;
        options.short_score = c.short_score;
        options.long_score = c.long_score;
        EXPECT_EQ(ko_text(options),
            (std::vector<std::string> { "Knock Out events", "", "mixed doubles", "champion: " + champion,
                "runner-up: " + runner_up, c.score, "", "(total 1)" }));
    }
}

// The round robin page holds the standings of each chosen round robin and of nothing else.
TEST_F(WebsiteFinalsTest, RoundRobinPageHoldsTheStandings)
{
    const auto pages = finals_summary_pages(context(), chosen_drawn_events(db(), { 1, 2, 3 }), {});
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[0].file, "file_finalssummary.htm");
    const auto& rr = pages[2].lines;
    EXPECT_EQ(pages[2].file, "file_finalssummary_rr.htm");
    auto has = [&rr](const std::string& line) { return std::find(rr.begin(), rr.end(), line) != rr.end(); };
    EXPECT_TRUE(has("standings womens round robin<br>"));
    EXPECT_FALSE(has("standings mixed doubles<br>"));
    const auto only_ko = finals_summary_pages(context(), chosen_drawn_events(db(), { 1, 3 }), {});
    EXPECT_EQ(std::count_if(only_ko[2].lines.begin(), only_ko[2].lines.end(),
                  [](const std::string& line) { return line.starts_with("standings"); }),
        0);
}

} // namespace
} // namespace qv
