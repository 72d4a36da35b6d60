#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <fstream>

namespace qv {
namespace {

namespace fs = std::filesystem;

using test::read_bytes;

class FileGoneTest : public test::SessionFixture
{
protected:
    fs::path file = dir.new_tournament();
    fs::path elsewhere = dir.path() / "elsewhere.qvd";

    void SetUp() override
    {
        session.boot_start_app(file.string());
        ASSERT_TRUE(session.has_tournament());
        session.tournament().run("insert into players (pid, player, fname) values (1, 'ann lee', 'Ann')");
    }

    std::string gone_words() const
    {
        return "the tournament file " + file.string()
            + " was moved, renamed, deleted or replaced by another program,changes cannot be saved to it";
    }
};

// The three ways a file goes away under the program.
const std::vector<std::pair<const char*, std::function<void(const fs::path&, const fs::path&)>>> ways {
    { "renamed", [](const fs::path& file, const fs::path& other) { fs::rename(file, other); } },
    { "deleted", [](const fs::path& file, const fs::path&) { fs::remove(file); } },
    { "replaced",
        [](const fs::path& file, const fs::path& other) {
            std::ofstream(other) << "another program's file";
            fs::rename(other, file);
        } },
};

TEST_F(FileGoneTest, FoundAtTheNextOperationToldOnceInPlainWords)
{
    EXPECT_FALSE(session.tell_if_file_gone());
    EXPECT_EQ(session.fault_text("raw"), "raw");
    fs::rename(file, elsewhere);

    talk.answers.push_back(Answer::No);
    EXPECT_TRUE(session.tell_if_file_gone());
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "ask");
    EXPECT_EQ(talk.said[0].text, gone_words() + ",save the tournament as a new file?");
    EXPECT_EQ(talk.said[0].title, "tournament file gone");
    EXPECT_FALSE(session.tell_if_file_gone()) << "told once";

    EXPECT_THROW(session.tournament().run("delete from players"), DbError);
    EXPECT_EQ(session.fault_text("attempt to write a readonly database"),
        gone_words() + ",use save as to keep the tournament");
}

TEST_F(FileGoneTest, SaveAsPutsTheTournamentSomewhereSafeAndGoesOnThere)
{
    const auto safe = dir.path() / "safe.qvd";
    fs::rename(file, elsewhere);
    const auto moved = read_bytes(elsewhere);
    talk.answers.push_back(Answer::Yes);
    talk.files.push_back({ safe });

    EXPECT_TRUE(session.tell_if_file_gone());
    host.run_deferred();

    ASSERT_EQ(session.current_file_path(), safe.string());
    EXPECT_EQ(session.tournament().scalar_text("select player from players"), "ann lee");
    EXPECT_EQ(read_bytes(elsewhere), moved) << "the file that went is left alone";
    session.tournament().run("delete from players");
    session.exit_app();
    EXPECT_TRUE(host.ended);
}

// "save as" from the menu after the file went: the open copy goes to the new file and the work goes on there.
TEST_F(FileGoneTest, MenuSaveAsOfAGoneFileKeepsTheOpenTournament)
{
    const auto safe = dir.path() / "menu.qvd";
    fs::remove(file);
    talk.files.push_back({ safe });
    session.menu_save_as();
    host.run_deferred();
    ASSERT_EQ(session.current_file_path(), safe.string());
    EXPECT_EQ(session.tournament().scalar_text("select player from players"), "ann lee");
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(FileGoneTest, ARestartOffersANewFileFirstAndReopensThat)
{
    const auto safe = dir.path() / "safe.qvd";
    fs::remove(file);
    talk.answers.push_back(Answer::Yes);
    talk.files.push_back({ safe });

    session.boot_restart_from_mainform();
    host.run_deferred();

    EXPECT_EQ(session.current_file_path(), safe.string());
    EXPECT_EQ(session.tournament().row_count("players"), 1);
}

TEST_F(FileGoneTest, CloseAndExitAlwaysSucceed)
{
    for (const auto& [way, make_gone] : ways) {
        SCOPED_TRACE(way);
        if (!session.has_tournament()) {
            file = dir.new_tournament();
            session.opendb(file.string());
            session.tournament().run("insert into players (pid, player, fname) values (1, 'ann lee', 'Ann')");
        }
        fs::remove(elsewhere);
        make_gone(file, elsewhere);
        const auto left = fs::exists(file) ? read_bytes(file) : std::string();
        talk.clear();

        talk.answers.push_back(Answer::Cancel);
        EXPECT_FALSE(session.close_current_db());
        EXPECT_TRUE(session.has_tournament());

        talk.answers.push_back(Answer::No);
        EXPECT_TRUE(session.close_current_db());
        EXPECT_FALSE(session.has_tournament());
        ASSERT_EQ(talk.said.size(), 2u);
        EXPECT_EQ(talk.said[1].text, gone_words() + ",save the tournament as a new file before closing?");
        EXPECT_EQ(fs::exists(file) ? read_bytes(file) : std::string(), left) << "nothing written where it was";
    }

    // Saved back where it was before the exit.
    file = dir.new_tournament();
    session.opendb(file.string());
    session.tournament().run("insert into players (pid, player, fname) values (7, 'bo kim', 'Bo')");
    fs::remove(file);
    talk.answers.push_back(Answer::Yes);
    talk.files.push_back({ file });
    session.exit_app();
    EXPECT_TRUE(host.ended);
    EXPECT_EQ(Database(file).scalar_text("select player from players"), "bo kim");
}

// A draw area that tries to save its draw on the way out, into a file that can no longer take it.
class SavingHost : public test::FakeHost
{
public:
    bool leave_draw() override
    {
        throw DbError("cannot run \"update schedule\": attempt to write a readonly database");
    }
};

TEST(FileGone, ADrawThatCannotBeSavedDoesNotHoldTheCloseUp)
{
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    SavingHost host;
    Session session(dir.path(), talk, host);
    const auto file = dir.new_tournament();
    session.boot_start_app(file.string());
    fs::remove(file);
    talk.answers.push_back(Answer::No);
    EXPECT_TRUE(session.close_current_db());
    EXPECT_FALSE(session.has_tournament());
}

} // namespace
} // namespace qv
