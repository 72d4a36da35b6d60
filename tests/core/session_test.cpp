#include "core/instance_lock.h"
#include "support/session_fixture.h"

#include <fstream>

namespace qv {
namespace {

namespace fs = std::filesystem;

class SessionTest : public test::SessionFixture
{
protected:
    static std::int64_t freelist_pages(const fs::path& file)
    {
        Database db(file);
        return db.scalar_integer("pragma freelist_count");
    }
};

TEST_F(SessionTest, BootOpensFileEmptiesScratchAddsStubAndCleansWorking)
{
    const auto file = dir.new_tournament();
    {
        Database db(file);
        db.run("delete from tournament");
        db.run("insert into alist (nm) values ('left over')");
        db.run("insert into draw_stage2 (i, player) values (1, 'x')");
        db.run("insert into folders (fid, nm) values (1, 'kept')");
    }
    fs::create_directories(dir.path() / "working");
    std::ofstream(dir.path() / "working" / "stale.txt") << "old";
    {
        Database init(dir.init_files() / "init.qvd");
        init.run("insert into sort_dir (nm) values ('old')");
    }

    session.boot_start_app(file.string());

    ASSERT_TRUE(session.has_tournament());
    EXPECT_EQ(session.current_file_path(), file.string());
    EXPECT_EQ(session.current_file_name(), "t.qvd");
    EXPECT_EQ(session.tournament().row_count("alist"), 0);
    EXPECT_EQ(session.tournament().row_count("draw_stage2"), 0);
    EXPECT_EQ(session.tournament().row_count("folders"), 1) << "folders are not scratch";
    EXPECT_EQ(session.tournament().scalar_integer("select idx from tournament"), 1);
    EXPECT_EQ(session.init_db().row_count("sort_dir"), 0);
    EXPECT_FALSE(fs::exists(dir.path() / "working" / "stale.txt"));
    for (const char* d : { "working", "website", "qv4_file_archive", "qv5_file_archive" })
        EXPECT_TRUE(fs::is_directory(dir.path() / d)) << d;
    EXPECT_EQ(session.settings().get_disk_var("app.last_db_opened"), file.string());
    EXPECT_EQ(session.current_area(), Area::draw);
    EXPECT_EQ(host.count("load_all_forms"), 1);
    EXPECT_EQ(host.count("refresh_draw"), 1);
    EXPECT_EQ(host.generics_caption, "mc");
    EXPECT_EQ(host.generics_tooltip, "match counts");
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(SessionTest, OpeningTheOpenFileDoesNothing)
{
    const auto file = dir.new_tournament();
    session.boot_start_app(file.string());
    const auto calls = host.calls;
    session.opendb(file.string());
    session.opendb("   ");
    EXPECT_EQ(host.calls, calls);
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SessionTest, LastFileReopensAtBootOrReportsItGone)
{
    const auto file = dir.new_tournament();
    session.boot_start_app(file.string());
    ASSERT_TRUE(session.close_current_db());
    session.settings().set_disk_var("open_last_db_on_start", "1");

    session.boot_start_app("");
    EXPECT_EQ(session.current_file_path(), file.string());

    ASSERT_TRUE(session.close_current_db());
    fs::remove(file);
    talk.clear();
    session.boot_start_app("");
    EXPECT_FALSE(session.has_tournament());
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "file not found:" + file.string() });
}

TEST_F(SessionTest, RestartIsDeferredAndReopensTheSameFile)
{
    const auto file = dir.new_tournament();
    session.boot_start_app(file.string());
    session.tournament().run("insert into alist (nm) values ('scratch')");

    session.boot_restart_from_mainform();
    EXPECT_TRUE(session.has_tournament()) << "nothing happens before the main loop runs the timer";
    EXPECT_EQ(host.deferred.size(), 1u);

    host.run_deferred();
    EXPECT_EQ(session.current_file_path(), file.string());
    EXPECT_EQ(session.tournament().row_count("alist"), 0);
    EXPECT_EQ(host.count("load_all_forms"), 2);
    EXPECT_EQ(host.count("unload_all_forms"), 1);
}

TEST_F(SessionTest, RefusalToLeaveTheDrawStopsCloseOpenAndSwitching)
{
    const auto file = dir.new_tournament();
    session.boot_start_app(file.string());
    host.allow_leave_draw = false;

    EXPECT_FALSE(session.close_current_db());
    session.opendb(dir.new_tournament("other.qvd").string());
    session.ishow(Area::mainform);
    session.exit_app();

    EXPECT_EQ(session.current_file_path(), file.string());
    EXPECT_EQ(session.current_area(), Area::draw);
    EXPECT_EQ(session.switch_word(), "switchingforms");
    EXPECT_FALSE(host.ended);
    EXPECT_TRUE(talk.said.empty()) << "a refusal is silent";
}

TEST_F(SessionTest, SwitchingAreasPaintsMarkersAndFootprint)
{
    session.boot_start_app(dir.new_tournament().string());
    session.settings().set_disk_var("app.usefootprint", "1");
    session.toolbar_click(Area::mainform);
    EXPECT_EQ(session.current_area(), Area::mainform);
    EXPECT_EQ(host.markers[int(Area::mainform)], Marker::icurrent_marker_color);
    EXPECT_EQ(host.markers[int(Area::draw)], Marker::ifootprint_color);
    EXPECT_EQ(host.markers[int(Area::payments)], Marker::regular_grey);

    session.settings().set_disk_var("app.usefootprint", "0");
    session.toolbar_click(Area::schedule);
    EXPECT_EQ(host.markers[int(Area::mainform)], Marker::regular_grey);
    const int refreshes = host.count("refresh_draw");
    session.toolbar_click(Area::draw);
    EXPECT_EQ(host.count("refresh_draw"), refreshes + 1) << "only the draw refreshes on entry";

    ASSERT_TRUE(session.close_current_db());
    const auto shown = host.calls.size();
    session.toolbar_click(Area::mainform);
    EXPECT_EQ(host.calls.size(), shown) << "the toolbar is inert without a file";
}

TEST_F(SessionTest, SaveAsGoesOnInTheCopyAndLeavesTheOldFileCompacted)
{
    const auto file = dir.new_tournament();
    session.boot_start_app(file.string());
    auto& db = session.tournament();
    db.run("insert into players (pid, player, fname) values (1, 'ann lee', 'Ann')");
    db.run("insert into alist (nm) select hex(randomblob(400)) from (select 1 union all select 2) a, "
           "(with recursive n(x) as (select 1 union all select x+1 from n where x<500) select x from n)");
    db.run("delete from alist where rowid % 2 = 0");

    const auto copy = dir.path() / "copy.qvd";
    talk.files.push_back({ copy });
    session.menu_save_as();
    host.run_deferred();

    EXPECT_EQ(session.current_file_path(), copy.string());
    EXPECT_EQ(session.tournament().scalar_text("select player from players"), "ann lee");
    EXPECT_EQ(freelist_pages(file), 0) << "the old file was compacted at close";
    Database old(file);
    EXPECT_EQ(old.row_count("players"), 1);
    EXPECT_EQ(old.row_count("alist"), 0);
}

TEST_F(SessionTest, NewTournamentIsACopyOfTheBlankFile)
{
    const auto made = dir.path() / "made.qvd";
    session.boot_start_app("");
    talk.files.push_back({ made });
    session.menu_new();
    host.run_deferred();
    ASSERT_EQ(session.current_file_path(), made.string());
    EXPECT_EQ(session.tournament().row_count("players"), 0);
    EXPECT_EQ(talk.said.front().title, "new tournament");
    EXPECT_EQ(talk.said.front().text, "mytournament.qvd");
}

TEST_F(SessionTest, ExitCompactsAndCleansWorkingAndEnds)
{
    session.boot_start_app(dir.new_tournament().string());
    std::ofstream(dir.path() / "working" / "feedback.txt") << "x";
    session.exit_app();
    EXPECT_TRUE(host.ended);
    EXPECT_FALSE(session.has_tournament());
    EXPECT_FALSE(fs::exists(dir.path() / "working" / "feedback.txt"));
}

TEST_F(SessionTest, SecondInstanceIsRefused)
{
    InstanceLock other;
    ASSERT_TRUE(other.acquire(dir.path() / "quorvelin.lock"));
    session.boot_start_app("");
    EXPECT_TRUE(host.ended);
    EXPECT_EQ(talk.last_message(), "another instance of this program is running,only 1 instance allowed");
    EXPECT_FALSE(session.booted());
}

TEST_F(SessionTest, FilesThatAreNotTournamentsAreRefusedUntouched)
{
    session.boot_start_app("");
    const auto text = dir.path() / "notes.qvd";
    std::ofstream(text) << "not a database at all";
    const auto other = dir.path() / "other.qvd";
    {
        Database::create_empty(other).run("create table players (pid integer)");
    }
    const auto size = fs::file_size(text);

    session.opendb(text.string());
    session.opendb(other.string());

    EXPECT_FALSE(session.has_tournament());
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> {
            "not a tournament file:" + text.string(), "not a tournament file,no table tournament:" + other.string() }));
    EXPECT_EQ(fs::file_size(text), size);
}

} // namespace
} // namespace qv
