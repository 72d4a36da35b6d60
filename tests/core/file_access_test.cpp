#include "core/file_lock.h"
#include "support/session_fixture.h"
#include "support/unprivileged.h"

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

class FileAccessTest : public test::SessionFixture
{
protected:
    // What an ordinary user's session says when it opens the file.
    std::string open_as_user(const fs::path& file)
    {
        return test::as_unprivileged_user(dir.path(), [&] {
            session.boot_start_app(file.string());
            return session.has_tournament() ? std::string("opened") : talk.last_message();
        });
    }
};

TEST_F(FileAccessTest, ReadOnlyFileAndFolderHaveTheirOwnWords)
{
    const auto file = dir.new_tournament("read only.qvd");
    const auto folder = dir.path() / "locked folder";
    fs::create_directories(folder);
    const auto in_folder = folder / "t.qvd";
    fs::copy_file(file, in_folder);
    ::chmod(file.c_str(), 0444);
    ::chmod(folder.c_str(), 0555);

    EXPECT_EQ(open_as_user(file), "tournament file is read only:" + file.string());
    EXPECT_EQ(open_as_user(in_folder), "the folder of the tournament file is read only:" + in_folder.string());
    ::chmod(folder.c_str(), 0755);
    EXPECT_EQ(open_as_user(in_folder), "opened");
}

TEST_F(FileAccessTest, AFileAnotherProgramIsWritingIsInUse)
{
    const auto file = dir.new_tournament();
    Database other(file);
    other.exec_script("begin immediate");
    session.boot_start_app(file.string());
    EXPECT_FALSE(session.has_tournament());
    EXPECT_EQ(talk.last_message(), "tournament file is in use by another program:" + file.string());
    other.exec_script("rollback");
}

TEST_F(FileAccessTest, ASecondQuorvelinIsRefusedUntilTheFirstCloses)
{
    const auto file = dir.new_tournament();
    session.boot_start_app(file.string());
    ASSERT_TRUE(session.has_tournament());

    // Another copy of the program, from another application directory.
    test::TempAppDir other_dir;
    test::ScriptedTalk other_talk;
    test::FakeHost other_host;
    Session other(other_dir.path(), other_talk, other_host);
    other.boot_start_app(file.string());
    EXPECT_FALSE(other.has_tournament()) << "the lock moved to the compacted file with it";
    EXPECT_EQ(other_talk.last_message(), "tournament file is open in another quorvelin:" + file.string());

    // Nor may the second copy write a new or saved file over it.
    other_talk.files.push_back({ file });
    other.menu_new();
    EXPECT_EQ(other_talk.last_message(), "tournament file is open in another quorvelin:" + file.string());
    EXPECT_TRUE(session.tournament().has_table("players"));

    ASSERT_TRUE(session.close_current_db());
    other.opendb(file.string());
    EXPECT_TRUE(other.has_tournament());
    session.opendb(file.string());
    EXPECT_FALSE(session.has_tournament());
}

TEST_F(FileAccessTest, AKilledHolderLeavesNoLockBehind)
{
    const auto file = dir.new_tournament();
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        FileLock lock;
        const char answer = lock.acquire(file) == FileLock::Result::locked ? 'y' : 'n';
        [[maybe_unused]] auto n = ::write(ready[1], &answer, 1);
        ::pause();
        ::_exit(0);
    }
    char answer = 0;
    ASSERT_EQ(::read(ready[0], &answer, 1), 1);
    ASSERT_EQ(answer, 'y');
    FileLock mine;
    EXPECT_EQ(mine.acquire(file), FileLock::Result::held_elsewhere);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(mine.acquire(file), FileLock::Result::locked);
}

} // namespace
} // namespace qv
