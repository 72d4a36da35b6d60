#include "entries/folders.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

using Names = std::vector<std::string>;

class FoldersTest : public test::SessionFixture
{
protected:
    void SetUp() override
    {
        open_new_tournament();
        db().exec_script(
            "insert into players (pid, player, fid) values (1, 'Al West', 0), (2, 'Bea Cole', 0), (3, 'Cy Fox', 0)");
    }

    Names folder_names()
    {
        Names out;
        for (const auto& f : load_folders(db()))
            out.push_back(f.nm);
        return out;
    }
    Names players_in(std::int64_t fid)
    {
        Names out;
        for (const auto& line : folder_players(db(), fid))
            out.push_back(line.text);
        return out;
    }
    std::int64_t fid_of(std::int64_t pid) { return db().scalar_integer("select fid from players where pid=?", pid); }
    int beeps() const
    {
        int n = 0;
        for (const auto& s : talk.said)
            n += s.kind == "beep";
        return n;
    }
};

TEST_F(FoldersTest, AddTakesTheNextIdAndRefusesEmptyBadAndDuplicateNames)
{
    session.settings().set_disk_var("folders_beep_ok", "1");
    EXPECT_EQ(addnew_folder(session, "juniors"), 1);
    EXPECT_EQ(addnew_folder(session, " Seniors "), 2);
    EXPECT_EQ(beeps(), 2);
    EXPECT_EQ(refreshes(Lists::folders), 2);
    talk.clear();

    const struct
    {
        const char* name;
        const char* message;
    } refusals[] = {
        { "  ", "value required" },
        { "kids'", "illegal character" },
        { "JUNIORS", "already have a folder named JUNIORS" },
        { " seniors  ", "already have a folder named seniors" },
    };
    for (const auto& r : refusals) {
        talk.clear();
        EXPECT_FALSE(addnew_folder(session, r.name));
        EXPECT_EQ(talk.messages(), Names { r.message }) << r.name;
        EXPECT_EQ(beeps(), 0);
    }
    EXPECT_EQ(folder_names(), (Names { "juniors", "Seniors" }));

    // Without the tick the add is silent; the id is the maximum plus 1, not the count.
    session.settings().set_disk_var("folders_beep_ok", "0");
    db().run("update folders set fid=7 where fid=2");
    talk.clear();
    EXPECT_EQ(addnew_folder(session, "veterans"), 8);
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(FoldersTest, RenameNeedsAFolderAndAFreeName)
{
    const auto juniors = *addnew_folder(session, "juniors");
    const auto seniors = *addnew_folder(session, "seniors");
    talk.clear();

    const struct
    {
        std::optional<std::int64_t> fid;
        const char* name;
        const char* message;
    } refusals[] = {
        { std::nullopt, "kids", "select folder" },
        { 99, "kids", "select folder" },
        { juniors, "", "value required" },
        { juniors, "ki^ds", "illegal character" },
        { juniors, " Seniors", "already have a folder with the name Seniors" },
    };
    for (const auto& r : refusals) {
        talk.clear();
        EXPECT_FALSE(rename_folder(session, r.fid, r.name));
        EXPECT_EQ(talk.messages(), Names { r.message }) << r.name;
    }
    EXPECT_EQ(folder_names(), (Names { "juniors", "seniors" }));

    // A folder may take its own name in another case.
    EXPECT_TRUE(rename_folder(session, juniors, "Juniors"));
    EXPECT_TRUE(rename_folder(session, seniors, "masters"));
    EXPECT_EQ(folder_names(), (Names { "Juniors", "masters" }));
}

TEST_F(FoldersTest, DeletingFoldersKeepsTheirPlayers)
{
    const auto juniors = *addnew_folder(session, "juniors");
    const auto seniors = *addnew_folder(session, "seniors");
    const auto masters = *addnew_folder(session, "masters");
    ASSERT_TRUE(assign_to_folder(session, juniors, { 1, 2 }));
    ASSERT_TRUE(assign_to_folder(session, masters, { 3 }));
    talk.clear();

    EXPECT_FALSE(delete_folders(session, {}));
    EXPECT_EQ(talk.messages(), Names { "select folder(s) to delete" });
    EXPECT_EQ(folder_names().size(), 3U);

    EXPECT_TRUE(delete_folders(session, { juniors, seniors }));
    EXPECT_EQ(folder_names(), Names { "masters" });
    EXPECT_EQ(db().row_count("players"), 3);
    EXPECT_EQ(players_in(0), (Names { "Al West", "Bea Cole" }));
    EXPECT_EQ(players_in(masters), Names { "Cy Fox" });
}

TEST_F(FoldersTest, AssignMovesSelectedPlayersAndMoveOutClearsTheirFolder)
{
    const auto juniors = *addnew_folder(session, "juniors");
    const auto seniors = *addnew_folder(session, "seniors");
    talk.clear();

    EXPECT_FALSE(assign_to_folder(session, std::nullopt, { 1 }));
    EXPECT_FALSE(assign_to_folder(session, 42, { 1 }));
    EXPECT_FALSE(assign_to_folder(session, juniors, {}));
    EXPECT_FALSE(move_out_of_folder(session, {}));
    EXPECT_EQ(talk.messages(),
        (Names { "select folder", "select folder", "select players to export", "select players to export" }));
    EXPECT_EQ(players_in(0).size(), 3U);

    EXPECT_TRUE(assign_to_folder(session, juniors, { 1, 3 }));
    EXPECT_EQ(players_in(juniors), (Names { "Al West", "Cy Fox" }));
    // A player is in one folder at most: moving in elsewhere moves out of the first.
    EXPECT_TRUE(assign_to_folder(session, seniors, { 3, 2 }));
    EXPECT_EQ(players_in(juniors), Names { "Al West" });
    EXPECT_EQ(players_in(seniors), (Names { "Bea Cole", "Cy Fox" }));

    EXPECT_TRUE(move_out_of_folder(session, { 1, 2 }));
    EXPECT_EQ(fid_of(1), 0);
    EXPECT_EQ(fid_of(2), 0);
    EXPECT_EQ(fid_of(3), seniors);
    EXPECT_EQ(refreshes(Lists::players), 3);
}

} // namespace
} // namespace qv
