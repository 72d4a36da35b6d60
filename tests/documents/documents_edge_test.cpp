#include "documents/document_save.h"
#include "documents/documents_tournament.h"
#include "documents/live_days.h"
#include "documents/match_text.h"
#include "documents/player_times.h"
#include "documents/results_documents.h"
#include "documents/working_schedule.h"
#include "support/file_bytes.h"

#include <algorithm>
#include <map>

namespace qv {
namespace {

using DocumentsEdges = test::DocumentsTournament;

int count_with(const Document& document, const std::string& text)
{
    return static_cast<int>(std::count_if(document.lines.begin(), document.lines.end(),
        [&](const DocumentLine& line) { return line.text.find(text) != std::string::npos; }));
}

// The lines of the document that begin with the text.
std::vector<DocumentLine> starting(const Document& document, const std::string& text)
{
    std::vector<DocumentLine> found;
    for (const auto& line : document.lines)
        if (line.text.starts_with(text))
            found.push_back(line);
    return found;
}

TEST(DocumentOptions, StateFilterShowsOnlyTheTickedStatesAndNeverByes)
{
    const StateFilter defaults;
    EXPECT_FALSE(defaults.shows("1"));
    EXPECT_TRUE(defaults.shows("2"));
    EXPECT_TRUE(defaults.shows("2.1"));
    EXPECT_FALSE(defaults.shows("3"));
    EXPECT_FALSE(StateFilter({ true, true, true, true }).shows("0"));
    EXPECT_EQ(results_style_of("results by round"), ResultsStyle::by_round);
    EXPECT_EQ(results_style_of("anything"), ResultsStyle::by_event);
}

TEST(MatchText, CountriesOfPairsAndReservedCourts)
{
    EXPECT_EQ(brackets_k("a b/c d", "NZL/AUS"), "a b(NZL)/c d(AUS)");
    EXPECT_EQ(brackets_k("a b", ""), "a b");
    EXPECT_EQ(facornot(-1, "table"), "fa");
    EXPECT_EQ(facornot(-3, "table"), "tbc");
    EXPECT_EQ(facornot(4, "table"), "table 4");
}

// A day with no match in the filter: the title lines, an empty total and the closing line, in every style.
TEST_F(DocumentsEdges, ADayWithNothingInTheFilterGivesTheTitleAndATotalOfNothing)
{
    ScheduleOptions none;
    none.states = { false, false, false, false };
    const auto by_court = FORMAT_schedule_by(context(), ScheduleBy::court, day1, none).texts();
    EXPECT_EQ(by_court,
        (std::vector<std::string> { "harbour open", "schedule (by court) for mon02mar26", "",
            "(total 0 match,total courts 0)", "", "created @ 14-Jun-27 18:30:05" }));
    EXPECT_EQ(FORMAT_schedule_by(context(), ScheduleBy::time, "wed04mar26", {}).texts().at(3), "(total 0 match)");
}

TEST_F(DocumentsEdges, AWalkoverWithoutScoreKeepsItsLine)
{
    VIP_setlivedays(db(), {});
    const auto results = VIP_text_results(context(), { { false, false }, { true, true } });
    const auto walkover = starting(results, "hal hart def gus grey");
    ASSERT_EQ(walkover.size(), 1u);
    EXPECT_EQ(walkover[0].text, "hal hart def gus grey          r1");
    EXPECT_EQ(walkover[0].sid, db().scalar_integer(R"(select sid from schedule where eid=1 and "match"=4)"));
}

TEST_F(DocumentsEdges, FirstAvailableIsFaUnderByCourtAndBracketedInThePlayerTimes)
{
    ScheduleOptions options;
    EXPECT_EQ(count_with(FORMAT_schedule_by(context(), ScheduleBy::court, day1, options), "court=fa"), 1);
    VIP_setlivedays_playertimes(db(), { day1 });
    VIP_compile_player_times_idocs(context(), {});
    EXPECT_EQ(db().scalar_text("select location from player_times_idocs where player='bea best'"), "m1c(fa)");
}

// Who gets rows: each match of a player, each partner of a pair, nobody for a qualifier, a bye or a wildcard,
// and a match the time filter drops gives none.
TEST_F(DocumentsEdges, PlayerTimesRowsByPersonAndMatch)
{
    VIP_setlivedays_playertimes(db(), { day1, day2 });
    VIP_compile_player_times_idocs(context(), { { false, true, true, true }, ExplicitTime::either, false });
    struct Case
    {
        const char* player;
        std::int64_t rows;
    };
    const Case cases[] = {
        { "eli east", 2 }, // matches 3 and 10 on day 1
        { "mia mills", 1 }, // a pair: a row under each partner
        { "nat noble", 1 },
        { "qualifier 3", 0 },
        { "jon judd", 1 },
        { "leo lamb", 1 }, // the empty match of day 2 shows under no filter here
        { "otto orr", 1 },
    };
    for (const auto& c : cases)
        EXPECT_EQ(db().scalar_integer("select count(*) from player_times_idocs where player=?", c.player), c.rows)
            << c.player;
    VIP_compile_player_times_idocs(context(), { { false, true, true, true }, ExplicitTime::no_explicit_time, false });
    EXPECT_EQ(db().scalar_integer("select count(*) from player_times_idocs where location like 'at %' or location "
                                  "like 'nb %'"),
        0);
    EXPECT_EQ(db().scalar_integer("select count(*) from player_times_idocs"), 6); // fa and tbc: 2 + 4 people
}

// The player search reads no days: the live and unfinished matches of the person wherever they are placed, but
// not those waiting unplaced or on the clipboard; the website's table is filled alike.
TEST_F(DocumentsEdges, PlayerSearchAndTheWebsitesPlayerTimes)
{
    const auto jon = player_search_times(context(), "Jon Judd");
    ASSERT_EQ(jon.lines.size(), 7u);
    EXPECT_EQ(jon.lines[4].text, "Jon Judd mens singles at 10:00 r1 tue03mar26");
    EXPECT_EQ(player_search_times(context(), "adam ash").lines.size(), 6u); // his matches are played
    VIP_setlivedays_playertimes(db(), { day1 });
    VIP_compile_player_times_website(context(), {});
    EXPECT_EQ(db().row_count("player_times_idocs"), 0);
    EXPECT_EQ(db().row_count("player_times_website"), 4); // eli east, hal hart; ann ames, bea best first available
    EXPECT_EQ(VIP_text_player_times_website(context()).lines.size(), 16u); // 4 rows of 4 players in 9 lines more
}

TEST_F(DocumentsEdges, TheEmptyStateIsHiddenByDefault)
{
    const auto by_time
        = FORMAT_schedule_by(context(), ScheduleBy::time, day2, idocs_schedule_options(session.settings()));
    EXPECT_EQ(count_with(by_time, "time 13:00"), 0); // match 11 waits for its top player
    ScheduleOptions with_empty;
    with_empty.states.empty = true;
    EXPECT_EQ(count_with(FORMAT_schedule_by(context(), ScheduleBy::time, day2, with_empty), "vs leo lamb"), 1);
}

TEST_F(DocumentsEdges, ClipboardsNeverShowAndLinesCarryTheirMatch)
{
    ScheduleOptions all;
    all.states = { true, true, true, true };
    const auto by_court = FORMAT_schedule_by(context(), ScheduleBy::court, day1, all);
    EXPECT_EQ(count_with(by_court, "match 5/10"), 0); // on the day clipboard
    for (const auto& line : starting(by_court, "(")) {
        const bool match_line = !line.text.starts_with("(total");
        EXPECT_EQ(line.sid != 0, match_line) << line.text;
    }
    EXPECT_EQ(starting(by_court, "court=").front().sid, 0);
}

// The documents window marks a live line "-" and an unfinished one "^"; a line read again after a result is
// marked the same way. The website's schedule (marks off) keeps the bare line.
TEST_F(DocumentsEdges, ScheduleLinesCarryTheirStateMark)
{
    ScheduleOptions marked = idocs_schedule_options(session.settings());
    marked.states = { true, true, true, true };
    ASSERT_TRUE(marked.state_marks);
    ScheduleOptions bare = marked;
    bare.state_marks = false;
    std::map<std::string, int> seen;
    for (const auto* day : { day1, day2 }) {
        const auto with_marks = FORMAT_schedule_by(context(), ScheduleBy::time, day, marked);
        const auto without = FORMAT_schedule_by(context(), ScheduleBy::time, day, bare);
        ASSERT_EQ(with_marks.lines.size(), without.lines.size());
        for (std::size_t i = 0; i < with_marks.lines.size(); ++i) {
            const auto& line = with_marks.lines[i];
            if (line.sid == 0) {
                EXPECT_EQ(line.text, without.lines[i].text);
                continue;
            }
            const auto state = db().scalar_text("select match_state from schedule where sid=?", line.sid);
            const std::string mark = state == "2" ? "-" : state == "2.1" ? "^" : "";
            ++seen[state];
            EXPECT_EQ(line.text, mark + without.lines[i].text) << state;
            EXPECT_EQ(idocs_working_schedule_update_line(context(), ScheduleBy::time, marked, line.sid), line.text);
        }
    }
    for (const auto* state : { "1", "2", "2.1", "3" })
        EXPECT_GT(seen[state], 0) << state;
}

TEST_F(DocumentsEdges, LiveDaysTakeNoDayAsTheMatchesWithoutADay)
{
    setlivedays_idocs(db(), { "no day ¿", std::string(day2) + " ?^¿" });
    EXPECT_EQ(live_days(db()), (std::vector<std::string> { "unscheduled", day2 }));
    EXPECT_EQ(live_days_line(db()), "days:unscheduled,tue03mar26");
    const auto results = days_results(db());
    EXPECT_EQ(results.front().substr(0, 6), "no day");
    EXPECT_EQ(days_working_schedule(db()).size(), 2u);
}

TEST_F(DocumentsEdges, SavingWritesWindows1252WithCrLfAndTheHeading)
{
    Document document;
    document.add("rené");
    document.add("ßeta", 4);
    const auto file = dir.path() / "out.txt";
    ASSERT_TRUE(save_current_page(session, DocumentPage::results, document, file, "heading"));
    EXPECT_EQ(test::read_bytes(file),
        "heading\r\nren\xe9\r\n\xdf"
        "eta\r\n");
    EXPECT_EQ(db().scalar_integer("select count(*) from text_box_file_text where id='savecurrentpage.Text6'"), 3);
    talk.files.push_back({ dir.path() / "chosen.txt" });
    ASSERT_TRUE(save_document_as(session, DocumentPage::player_times, document));
    EXPECT_EQ(talk.said.front().text, "playertimes.txt");
    EXPECT_EQ(test::read_bytes(dir.path() / "chosen.txt"),
        "ren\xe9\r\n\xdf"
        "eta\r\n");
}

// All pages at once: each page's lines under its own "saveallpages." id, the file page after page; saving again
// replaces what a page held rather than adding to it.
TEST_F(DocumentsEdges, SavingAllPagesKeepsEachPageUnderItsOwnId)
{
    Document schedule;
    schedule.add("court=1");
    Document players;
    players.add("ann ames f");
    players.add("bea best f");
    const std::vector<PageDocument> pages { { DocumentPage::schedule, schedule }, { DocumentPage::players, players } };
    talk.files.push_back({ dir.path() / "all.txt" });
    talk.files.push_back({ dir.path() / "again.txt" });
    ASSERT_TRUE(save_all_pages_as(session, pages));
    ASSERT_TRUE(save_all_pages_as(session, pages));
    EXPECT_EQ(talk.said.front().text, "allpages.txt");
    for (const auto* name : { "all.txt", "again.txt" })
        EXPECT_EQ(test::read_bytes(dir.path() / name), "court=1\r\n\r\nann ames f\r\nbea best f\r\n") << name;
    const std::pair<const char*, int> stored[] { { "saveallpages.Text1", 1 }, { "saveallpages.Text9", 2 },
        { "savecurrentpage.Text1", 0 } };
    for (const auto& [id, lines] : stored)
        EXPECT_EQ(db().scalar_integer("select count(*) from text_box_file_text where id=?", id), lines) << id;
}

} // namespace
} // namespace qv
