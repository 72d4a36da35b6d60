#include "online/website_options.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

// The parts a style turns on, in the order of the index: details draws alias pointer schedules playertimes
// results qv4 enter withdraw entries players message.
std::string parts_of(const WebsiteOptions& o)
{
    const bool on[] = { o.parts.details, o.parts.draws, o.parts.alias, o.draws.next_round_pointer, o.parts.schedules,
        o.parts.player_times, o.parts.results, o.parts.qv4_file, o.parts.enter, o.parts.withdraw, o.parts.entries,
        o.parts.players, o.parts.message };
    std::string text;
    for (bool b : on)
        text += b ? '1' : '0';
    return text;
}

TEST(WebsiteStyles, EachStyleSetsEveryPartAtOnce)
{
    const std::pair<const char*, const char*> cases[] = {
        { "select all", "1111111111111" },
        { "unselect all", "0000000000000" },
        { "enter/withdraw basic", "1000000011111" },
        { "tournament website", "1110111000111" },
        { "accepting other entries", "0110111000000" },
        { "archive", "0110000100000" },
        { "qv4", "1000000100000" },
    };
    ASSERT_EQ(website_styles().size(), std::size(cases));
    for (const auto& [style, expected] : cases) {
        // From the opposite of the style's first part, so that every part is set, not only the ones turned on.
        WebsiteOptions options;
        apply_website_style(options, expected[0] == '1' ? "unselect all" : "select all");
        options.schedules.by_court = true;
        EXPECT_TRUE(apply_website_style(options, style));
        EXPECT_EQ(parts_of(options), expected) << style;
        EXPECT_TRUE(options.schedules.by_court) << "the page options other than the pointer stay";
    }
    WebsiteOptions options;
    EXPECT_FALSE(apply_website_style(options, "all"));
    EXPECT_EQ(parts_of(options), "0000000000000");
}

TEST(WebsiteFileNames, EventsDaysAndTheResultsFile)
{
    EXPECT_EQ(event_file_part("men's open singles"), "mensopensingles");
    EXPECT_EQ(event_file_part("  o'neil ' cup "), "oneilcup");
    EXPECT_EQ(day_file_part("mon02mar26 +?"), "mon02mar26");
    EXPECT_EQ(day_file_part("tue"), "tue");
    EXPECT_TRUE(is_unscheduled_day_line("no day ¿"));
    EXPECT_FALSE(is_unscheduled_day_line("mon02mar26 ¿"));
    EXPECT_EQ(website_qv4_file_name("Spring Open 2026"), "spring_open_2026.qv4");
    EXPECT_EQ(website_qv4_file_name(""), "qv4file.qv4");
}

using WebsitePairTest = test::TournamentFixture;

// A click on a label makes its setting "1" and the other "0"; the pairs are independent of each other.
TEST_F(WebsitePairTest, LabelsMakeThePairExclusive)
{
    auto& settings = session.settings();
    for (auto pair : { WebsitePair::entries, WebsitePair::players, WebsitePair::alias }) {
        const auto keys = website_pair_keys(pair);
        settings.set_disk_var(keys.first, "1");
        settings.set_disk_var(keys.second, "1");
        choose_website_pair(settings, pair, false);
        EXPECT_FALSE(website_setting_on(settings, keys.first)) << keys.first;
        EXPECT_TRUE(website_setting_on(settings, keys.second)) << keys.second;
        choose_website_pair(settings, pair, true);
        EXPECT_TRUE(website_setting_on(settings, keys.first));
        EXPECT_EQ(settings.get_disk_var(keys.second), "0");
    }
    EXPECT_EQ(website_pair_keys(WebsitePair::alias).first, "alias_page");
    EXPECT_EQ(website_pair_keys(WebsitePair::players).second, "players_make");
}

} // namespace
} // namespace qv
