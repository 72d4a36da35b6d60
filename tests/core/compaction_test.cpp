#include "core/compaction.h"
#include "core/database.h"
#include "core/file_lock.h"
#include "support/session_fixture.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

struct stat stat_of(const fs::path& file)
{
    struct stat st
    {
    };
    ::stat(file.c_str(), &st);
    return st;
}

// Rows added and half of them deleted again, so the file has free pages for a compaction to take away.
void fill_with_slack(const fs::path& file)
{
    Database db(file);
    db.run("insert into players (pid, player, fname) values (1, 'ann lee', 'Ann')");
    db.exec_script("insert into alist (nm) select hex(randomblob(400)) from (with recursive n(x) as "
                   "(select 1 union all select x+1 from n where x<1000) select x from n)");
    db.exec_script("delete from alist where rowid > 500");
}

std::int64_t free_pages(const fs::path& file)
{
    return Database(file).scalar_integer("pragma freelist_count");
}

std::vector<std::string> temp_files(const fs::path& dir)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir))
        if (entry.path().string().find(".temp") != std::string::npos)
            names.push_back(entry.path().filename().string());
    return names;
}

TEST(Compaction, AFailureLeavesTheOriginalIntact)
{
    test::TempAppDir dir;
    const auto junk = dir.path() / "junk.qvd";
    std::ofstream(junk) << "junk";
    EXPECT_FALSE(compact_file(junk));
    EXPECT_EQ(fs::file_size(junk), 4u);
    EXPECT_FALSE(compact_file(dir.path() / "missing.qvd"));
    EXPECT_TRUE(temp_files(dir.path()).empty());
}

TEST(Compaction, ALinkStaysALinkAndTheRealFileIsCompacted)
{
    test::TempAppDir dir;
    fs::create_directories(dir.path() / "real");
    const auto real = dir.new_tournament("real/t.qvd");
    const auto link = dir.path() / "link.qvd";
    fs::create_symlink(real, link);
    fill_with_slack(real);
    ASSERT_GT(free_pages(real), 0);

    ASSERT_TRUE(compact_file(link));

    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::read_symlink(link), real);
    EXPECT_EQ(free_pages(real), 0);
    EXPECT_EQ(Database(link).row_count("players"), 1);
    EXPECT_TRUE(temp_files(dir.path()).empty());
    EXPECT_TRUE(temp_files(dir.path() / "real").empty()) << "the temporary file lies beside the real file";
}

using CompactionOfTheSession = test::SessionFixture;

TEST_F(CompactionOfTheSession, ATournamentOpenedThroughALinkKeepsTakingChanges)
{
    const auto real = dir.new_tournament("real.qvd");
    const auto link = dir.path() / "link.qvd";
    fs::create_symlink(real, link);

    session.boot_start_app(link.string());
    session.tournament().run("insert into players (pid, player, fname) values (1, 'ann lee', 'Ann')");
    ASSERT_TRUE(session.close_current_db());
    session.opendb(link.string());
    session.tournament().run("insert into players (pid, player, fname) values (2, 'bo kim', 'Bo')");
    ASSERT_TRUE(session.close_current_db());

    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Database(real).row_count("players"), 2);
}

TEST(Compaction, ModeAndOwnerAreKept)
{
    test::TempAppDir dir;
    const auto file = dir.new_tournament();
    fill_with_slack(file);
    ::chmod(file.c_str(), 0444);
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown(file.c_str(), 65534, 65534), 0);
    }
    const auto before = stat_of(file);

    ASSERT_TRUE(compact_file(file));

    const auto after = stat_of(file);
    EXPECT_NE(after.st_ino, before.st_ino) << "a new file took the old one's place";
    EXPECT_EQ(after.st_mode & 07777, 0444);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(free_pages(file), 0);
}

TEST(Compaction, TheLockMovesToTheNewFile)
{
    test::TempAppDir dir;
    const auto file = dir.new_tournament();
    FileLock lock;
    ASSERT_EQ(lock.acquire(file), FileLock::Result::locked);
    ASSERT_TRUE(compact_file(file, &lock));
    EXPECT_TRUE(lock.holds(file));
    FileLock second;
    EXPECT_EQ(second.acquire(file), FileLock::Result::held_elsewhere);
}

TEST(Compaction, CopyOfAnOpenDatabaseReplacesTheTargetWhole)
{
    test::TempAppDir dir;
    const auto file = dir.new_tournament();
    fill_with_slack(file);
    const auto target = dir.path() / "copy.qvd";
    std::ofstream(target) << "an older file of that name";
    ::chmod(target.c_str(), 0600);
    Database db(file);

    ASSERT_TRUE(write_copy(db, target));

    EXPECT_EQ(Database(target).row_count("players"), 1);
    EXPECT_EQ(stat_of(target).st_mode & 07777, 0600);
    EXPECT_FALSE(write_copy(db, dir.path() / "no such folder" / "copy.qvd"));
    EXPECT_TRUE(temp_files(dir.path()).empty());
}

// Names a killed compaction leaves, and names that only look alike.
TEST_F(CompactionOfTheSession, StaleTemporaryFilesGoAtBootAndOpenOthersStay)
{
    const auto tournaments = dir.path() / "tournaments";
    fs::create_directories(tournaments);
    const auto file = dir.new_tournament("tournaments/t.qvd");
    for (const auto& folder : { dir.init_files(), tournaments }) {
        for (const char* name : { "23112026101500123450.temp", "23112026101500123450.temp-journal", "1234.temp-journal",
                 "notes.temp", "1234.tempo", "1234.qvd" })
            std::ofstream(folder / name) << "x";
    }
    // A compaction still running elsewhere holds its temporary file locked.
    const int running = open_locked(tournaments / "555.temp", O_RDWR | O_CREAT);
    ASSERT_GE(running, 0);

    session.boot_start_app(file.string());
    ASSERT_TRUE(session.has_tournament());

    auto left = temp_files(dir.init_files());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (std::vector<std::string> { "1234.tempo", "notes.temp" }));
    left = temp_files(tournaments);
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (std::vector<std::string> { "1234.tempo", "555.temp", "notes.temp" }));
    ::close(running);
}

} // namespace
} // namespace qv
