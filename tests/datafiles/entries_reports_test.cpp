#include "core/file_save.h"
#include "core/session.h"
#include "datafiles/entries_reports.h"
#include "support/drawn_tournament.h"
#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

// The drawn tournament with a raw doubles event (a pair and a player waiting for a partner), one result in and
// one match on a court at a time.
class EntriesReportsTest : public test::TournamentFixture
{
protected:
    void SetUp() override
    {
        TournamentFixture::SetUp();
        test::add_drawn_tournament_people(db());
        test::draw_every_event(session);
        db().run("insert into events (eid, eventname, sex, singdobs, pte) values (3, 'open pairs', 'neutral', "
                 "'doubles', 'e')");
        db().run(R"(insert into rawdoublesentries (rdidx, eid, en, player, playerfname, playersname, partnerfname,
            partnersname, partnername) values (1, 3, 'open pairs', 'adam mann', 'adam', 'mann', 'bert', 'mann',
            'bert mann'), (2, 3, 'open pairs', 'carl mann', 'carl', 'mann', 'preq', 'preq', 'preq preq'))");
        db().run(R"(update schedule set mwttt = mtttt, matchscore = '6-1 6-2', match_state = '3', cid = 1,
            scheduledate = 'mon02mar26', nbat = 'nb ', matchtime = '10:00', matchtime_int = 600 where sid = 2)");
    }
};

TEST_F(EntriesReportsTest, EachReportAsItsGoldenFile)
{
    const std::pair<const char*, std::vector<std::string>> reports[] = {
        { "entries_brief.txt", entriesbrief(db()) },
        { "entries_expanded.txt", entriesexpanded(db()) },
        { "formatted_entries_with_resolved_doubles.txt", export_formatted_entries(db(), FormattedDoubles::resolved) },
        { "formatted_entries_with_raw_doubles.txt", export_formatted_entries(db(), FormattedDoubles::raw) },
        { "dump_schedule.txt", export_results_txt_file(db(), "table") },
    };
    for (const auto& [name, lines] : reports) {
        const auto file = dir.path() / name;
        ASSERT_TRUE(write_text_file(file, lines));
        EXPECT_EQ(
            test::read_bytes(file), test::read_bytes(fs::path(QV_TEST_DATA_DIR) / "expected" / "datafiles" / name))
            << name;
    }
}

} // namespace
} // namespace qv
