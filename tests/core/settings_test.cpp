#include "core/recent_files.h"
#include "core/settings_keys.h"
#include "support/settings_fixture.h"

#include <set>
#include <string>

namespace qv {
namespace {

class SettingsTest : public test::SettingsFixture
{
protected:
    std::int64_t marked_rows() { return init.scalar_integer("select count(*) from disk_vars where note = '1'"); }
};

TEST_F(SettingsTest, EveryKeyTheProgramKnowsHasExactlyOneRow)
{
    std::set<std::string_view> seen;
    for (const auto& key : boot_setting_keys()) {
        EXPECT_TRUE(seen.insert(key.key).second) << "read twice at boot: " << key.key;
        EXPECT_EQ(init.scalar_integer("select count(*) from disk_vars where nm = ?", key.key), 1) << key.key;
    }
    for (const auto& key : applied_setting_keys())
        EXPECT_EQ(init.scalar_integer("select count(*) from disk_vars where nm = ?", key.variable), 1) << key.variable;
    EXPECT_EQ(applied_setting_keys().size(), boot_setting_keys().size() + 2);
    EXPECT_EQ(boot_setting_keys().front().key, "default_domain");
    EXPECT_EQ(boot_setting_keys().back().key, "addres.onsave");
}

TEST_F(SettingsTest, BootLoadsDefaultsAndMarksEveryRowRead)
{
    settings.load_disk_vars();
    EXPECT_EQ(settings.text("app.generic_court"), "court");
    EXPECT_EQ(settings.text("app.generic_matches"), "matches");
    EXPECT_EQ(settings.integer("open_last_db_on_start"), 1);
    EXPECT_EQ(settings.integer("schedule.avgmatchtime"), 60);
    EXPECT_EQ(settings.text("app.ftp_timeout"), "30");
    EXPECT_EQ(settings.text("evt.checkerror"), "1");
    EXPECT_EQ(settings.text("players_delete_filter"), "1^0^1^1^1^1^1^1^order by player");
    EXPECT_EQ(marked_rows(), static_cast<std::int64_t>(boot_setting_keys().size()));
    EXPECT_EQ(init.scalar_text("select note from disk_vars where nm = 'schedule.cnts'"), "");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SettingsTest, WritesGoToRowAndMemoryAndApplyTouchesMemoryOnly)
{
    settings.load_disk_vars();
    settings.set_disk_var("app.generic_court", "table");
    EXPECT_EQ(row_value("app.generic_court"), "table");
    EXPECT_EQ(settings.text("app.generic_court"), "table");
    EXPECT_EQ(settings.get_disk_var("app.generic_court"), "table");

    settings.apply_disk_var("app.custid", "club7");
    EXPECT_EQ(settings.text("app.custid"), "club7");
    EXPECT_EQ(row_value("app.custid"), "");

    settings.apply_disk_var("no.such.key", "x");
    EXPECT_EQ(settings.text("no.such.key"), "");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SettingsTest, AMissingRowReadsZeroAndRefusesWrites)
{
    const auto before = marked_rows();
    EXPECT_EQ(settings.get_disk_var("no.such.key"), "0");
    EXPECT_EQ(marked_rows(), before);

    // A text setting that has lost its row reads as the text "0".
    init.run("delete from disk_vars where nm = 'app.generic_court'");
    settings.load_disk_vars();
    EXPECT_EQ(settings.text("app.generic_court"), "0");
    EXPECT_TRUE(talk.said.empty());

    const auto rows = init.row_count("disk_vars");
    settings.set_disk_var("no.such.key", "x");
    EXPECT_EQ(talk.last_message(), "cannot find diskvar no.such.key");
    settings.set_disk_var("app.generic_court", "tee");
    EXPECT_EQ(talk.last_message(), "cannot find diskvar app.generic_court");
    EXPECT_EQ(settings.text("app.generic_court"), "0");
    EXPECT_EQ(init.row_count("disk_vars"), rows);
    EXPECT_EQ(talk.messages().size(), 2u);
}

TEST_F(SettingsTest, ByesThruChangesMemoryOnlyAtTheNextBoot)
{
    settings.load_disk_vars();
    ASSERT_EQ(settings.integer("draw.byes_thru_on_do_draw"), 1);

    settings.set_disk_var("draw.byes_thru_on_do_draw", "0");
    EXPECT_EQ(row_value("draw.byes_thru_on_do_draw"), "0");
    EXPECT_EQ(settings.integer("draw.byes_thru_on_do_draw"), 1);

    settings.load_disk_vars();
    EXPECT_EQ(settings.integer("draw.byes_thru_on_do_draw"), 0);

    // Only the key with the trailing blank reaches the variable.
    settings.apply_disk_var("draw.byes_thru_on_do_draw ", "1");
    EXPECT_EQ(settings.integer("draw.byes_thru_on_do_draw"), 1);
}

TEST_F(SettingsTest, SessionOnlyKeysStartEmptyInEveryBoot)
{
    settings.load_disk_vars();
    EXPECT_EQ(settings.text("schedule.filter_bottom"), "");
    EXPECT_EQ(settings.text("schedule.cnts"), "");

    settings.set_disk_var("schedule.filter_bottom", "1^1^0^0");
    settings.set_disk_var("schedule.cnts", "3");
    EXPECT_EQ(settings.text("schedule.filter_bottom"), "1^1^0^0");
    EXPECT_EQ(settings.text("schedule.cnts"), "3");

    settings.load_disk_vars();
    EXPECT_EQ(settings.text("schedule.filter_bottom"), "");
    EXPECT_EQ(settings.text("schedule.cnts"), "");
    EXPECT_EQ(row_value("schedule.filter_bottom"), "1^1^0^0");
}

TEST(SettingIntegerTest, OnlyWhole16BitNumbersConvert)
{
    const struct
    {
        const char* text;
        int expected;
    } cases[] = { { "", 0 }, { "abc", 0 }, { "12abc", 0 }, { " 12 ", 12 }, { "-3", -3 }, { "+7", 7 }, { "1.5", 0 },
        { "32767", 32767 }, { "32768", 0 }, { "-32768", -32768 }, { "99999999999999999999", 0 } };
    for (const auto& c : cases)
        EXPECT_EQ(to_setting_integer(c.text), c.expected) << '"' << c.text << '"';
}

TEST_F(SettingsTest, IntegerSettingWithDamagedTextReadsZero)
{
    settings.load_disk_vars();
    settings.set_disk_var("tc.tcmins", "45");
    EXPECT_EQ(settings.integer("tc.tcmins"), 45);
    EXPECT_EQ(settings.text("tc.tcmins"), "45");
    settings.set_disk_var("tc.tcmins", "abc");
    EXPECT_EQ(settings.integer("tc.tcmins"), 0);
    EXPECT_EQ(settings.text("tc.tcmins"), "0");
    EXPECT_EQ(row_value("tc.tcmins"), "abc");
    EXPECT_EQ(settings.integer("app.ftp_timeout"), 30);
}

TEST_F(SettingsTest, RecentFilesNewestFirstOnceEachAndNoMoreThanKept)
{
    settings.load_disk_vars();
    EXPECT_TRUE(recent_files(settings).empty());
    record_recent_file(settings, "/t/a.qvd");
    record_recent_file(settings, "/t/b.qvd");
    record_recent_file(settings, "/t/sub/../a.qvd");
    EXPECT_EQ(recent_files(settings), (std::vector<std::string> { "/t/a.qvd", "/t/b.qvd" }));
    // Written through: the next boot reads the same list.
    EXPECT_EQ(row_value("app.recent_files"), "/t/a.qvd|/t/b.qvd");

    for (int i = 0; i < 10; ++i)
        record_recent_file(settings, "/t/" + std::to_string(i) + ".qvd");
    const auto files = recent_files(settings);
    ASSERT_EQ(files.size(), recent_files_kept);
    EXPECT_EQ(files.front(), "/t/9.qvd");
    EXPECT_EQ(files.back(), "/t/2.qvd");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SettingsTest, ADamagedRecentFilesListAndAPathWithTheSeparatorAreNoFiles)
{
    settings.load_disk_vars();
    settings.set_disk_var("app.recent_files", "0|relative.qvd||/t/x.qvd|/t/x.qvd");
    EXPECT_EQ(recent_files(settings), std::vector<std::string> { "/t/x.qvd" });
    record_recent_file(settings, "/t/odd|name.qvd");
    EXPECT_EQ(recent_files(settings), std::vector<std::string> { "/t/x.qvd" });
}

class FilterRepairTest : public SettingsTest
{
protected:
    FilterRepairTest()
        : tournament(app.new_tournament())
    {
        tournament.run("insert into events(eid, eventname) values (1, 'mens singles')");
        tournament.run("insert into folders(fid, nm) values (4, 'juniors')");
        settings.load_disk_vars();
    }
    Database tournament;
};

TEST_F(FilterRepairTest, StaleEventAndFolderIdsBecomeZero)
{
    const std::string rest = "^1^1^0^1^1^0^order by sname";
    const struct
    {
        const char* import_export;
        const char* folders_assign;
        const char* remove;
        const char* expected_import_export;
        const char* expected_folders_assign;
        const char* expected_remove;
    } rounds[] = {
        // stale event, stale folder, good event
        { "2^7", "3^9", "2^1", "2^0", "3^0", "2^1" },
        // folder 1 does not exist though event 1 does; good folder; all players keeps any id
        { "3^1", "3^4", "1^7", "3^0", "3^4", "1^7" },
    };
    for (const auto& r : rounds) {
        settings.set_disk_var("players_import_export_filter", r.import_export + rest);
        settings.set_disk_var("players_folders_assign_filter", r.folders_assign + rest);
        settings.set_disk_var("players_delete_filter", r.remove + rest);
        settings.set_disk_var("players_addtoevent_filter", "2^7" + rest);

        repair_stored_filters(settings, tournament);

        EXPECT_EQ(settings.text("players_import_export_filter"), r.expected_import_export + rest);
        EXPECT_EQ(row_value("players_import_export_filter"), r.expected_import_export + rest);
        EXPECT_EQ(settings.text("players_folders_assign_filter"), r.expected_folders_assign + rest);
        EXPECT_EQ(row_value("players_folders_assign_filter"), r.expected_folders_assign + rest);
        EXPECT_EQ(settings.text("players_delete_filter"), r.expected_remove + rest);
        EXPECT_EQ(row_value("players_addtoevent_filter"), "2^7" + rest);
    }
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(FilterRepairTest, TournamentCacheFollowsTheTable)
{
    tournament.run("delete from tournament");
    settings.load_tournament_cache(tournament);
    EXPECT_EQ(settings.itname(), "");
    EXPECT_EQ(settings.itdates(), "");

    tournament.run("insert into tournament(idx, tournament, dates) values (1, 'spring open', 'mon01jan07-wed03jan07')");
    settings.load_tournament_cache(tournament);
    EXPECT_EQ(settings.itname(), "spring open");
    EXPECT_EQ(settings.itdates(), "mon01jan07-wed03jan07");

    settings.set_tournament_cache(tournament, "itname", "autumn open");
    settings.set_tournament_cache(tournament, "itdates", "");
    EXPECT_EQ(settings.itname(), "autumn open");
    EXPECT_EQ(settings.itdates(), "");
    EXPECT_EQ(tournament.scalar_text("select tournament from tournament where idx=1"), "autumn open");
    EXPECT_EQ(tournament.scalar_text("select dates from tournament where idx=1"), "");

    settings.clear_tournament_cache();
    EXPECT_EQ(settings.itname(), "");
}

} // namespace
} // namespace qv
