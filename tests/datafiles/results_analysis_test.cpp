#include "core/session.h"
#include "datafiles/results_analysis.h"
#include "drawengine/ko_progression.h"
#include "support/drawn_tournament.h"
#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

int count_containing(const std::vector<std::string>& lines, const std::string& part)
{
    return static_cast<int>(std::count_if(
        lines.begin(), lines.end(), [&](const auto& line) { return line.find(part) != std::string::npos; }));
}

// The same players over two years: the men's knock-out played to its end, the mixed doubles after one round.
class ResultsAnalysisTest : public test::TournamentFixture
{
protected:
    Database& store() { return session.peek_browse_db(); }

    void SetUp() override
    {
        TournamentFixture::SetUp();
        test::add_drawn_tournament_people(db());
        test::draw_every_event(session);
        for (int rid = 1; rid <= 3; ++rid)
            progressdraw(session, 1, rid);
        progressdraw(session, 2, 1);
        db().run("update schedule set mtsex = case when eid = 1 then 'm' else 'f/m' end, mbsex = case when eid = 1 "
                 "then 'm' else 'f/m' end where rid = 1");
        fs::create_directories(session.dirs().qv4_file_archive);
        for (const char* year : { "2025", "2026" }) {
            db().run("update tournament set tournament = ?, dates = ? where idx = 1", std::string("club open ") + year,
                std::string(year) + " march");
            ASSERT_TRUE(write_qv4_file(db(), dir.path() / (std::string("open") + year + ".qv4")));
        }
        import_qv4_files(session, { dir.path() / "open2025.qv4", dir.path() / "open2026.qv4" });
        talk.clear();
    }
    // The winner of the men's final and the player beaten in the first round by the first winner there.
    std::string champion() { return db().scalar_text("select mtttt from schedule where eid=1 and rname='winner'"); }
    std::string first_round_loser()
    {
        return db().scalar_text("select case when mwtag = mttag then mbttt else mtttt end from schedule where eid=1 "
                                "and rid=1 order by sid");
    }
};

TEST_F(ResultsAnalysisTest, OneFileItsHeaderPlayersAndResults)
{
    const auto opened = open_qv4_single(session, session.dirs().qv4_file_archive / "open2026.qv4");
    ASSERT_TRUE(opened.ok);
    ASSERT_EQ(opened.header.size(), 8u);
    EXPECT_EQ(opened.header.front(), "tournament: club open 2026");
    EXPECT_EQ(opened.header.back(), "tournament contains 1 or more incomplete draws");

    // The file keeps only the first person of a top side (its p2 repeats p1): the two women heading their
    // round-one matches stand once more with the sex of the second person, and their partners not at all.
    EXPECT_EQ(load_players(store(), Qv4Store::single).size(), 16u);
    EXPECT_EQ(load_players(store(), Qv4Store::single, "female").size(), 4u);
    EXPECT_EQ(load_players(store(), Qv4Store::single, "male").size(), 12u);

    const auto won = load_players_results(store(), Qv4Store::single, champion());
    EXPECT_EQ(won.title, "results for " + champion());
    EXPECT_EQ(won.lines.size(), 3u);
    EXPECT_EQ(count_containing(won.lines, " def "), 3);
    const auto lost = load_players_results(store(), Qv4Store::single, first_round_loser());
    ASSERT_EQ(lost.lines.size(), 1u);
    EXPECT_EQ(count_containing(lost.lines, " lost to "), 1);

    // A doubles name is found by either of its people; a match against a bye is never listed.
    const auto team = store().scalar_text("select mbttt from qv4_single_schedule where eid=2 and rid=1 and sid=(select "
                                          "min(sid) from qv4_single_schedule where eid=2)");
    const auto slash = team.find('/');
    ASSERT_NE(slash, std::string::npos);
    EXPECT_EQ(load_players_results(store(), Qv4Store::single, team.substr(0, slash)).lines,
        load_players_results(store(), Qv4Store::single, team.substr(slash + 1)).lines);
    EXPECT_EQ(load_players_results(store(), Qv4Store::single, team.substr(0, slash)).lines.size(), 1u);
    store().run("update qv4_single_schedule set mbttt='bye' where eid=2 and rid=1");
    EXPECT_TRUE(load_players_results(store(), Qv4Store::single, team.substr(0, slash)).lines.empty());

    // One line as the reader sees it, told from the winner's side in the general results.
    store().run(R"(update qv4_single_schedule set mtttt='ann lee', mt_country='NZL', mtseeding='1', mbttt='bo tan',
        mb_country='', mbseeding='', mwtag=mttag, matchscore='6-1 6-2', matchlongscore='61 62' where sid = (select
        min(sid) from qv4_single_schedule where eid = 1))");
    const auto general = results_in_general(store(), 1);
    EXPECT_EQ(general.title, "results for mens singles");
    EXPECT_EQ(general.lines.front(), "s mens singles   quaters   (1)ann lee(NZL) def bo tan   6-1 6-2~61 62");
    // The first match's two names changed above: the others stand as drawn, once each, by name.
    EXPECT_EQ(event_entries(store(), 1).lines,
        (std::vector<std::string> { "adam mann", "ann lee", "bert mann", "bo tan", "carl mann", "dirk mann",
            "emil mann", "finn mann", "gus mann" }));
}

TEST_F(ResultsAnalysisTest, CompileGoesOnPastBadFilesAndAnswersAcrossTournaments)
{
    std::ofstream(session.dirs().qv4_file_archive / "broken.qv4", std::ios::binary) << "^^x^&^";
    EXPECT_EQ(archive_files(session), (std::vector<std::string> { "broken.qv4", "open2025.qv4", "open2026.qv4" }));
    EXPECT_EQ(qv4_compile(session, {}), 0);
    EXPECT_EQ(talk.last_message(), "select qv4 file(s) to compile");

    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(qv4_compile(session, { "open2026.qv4", "gone.qv4", "broken.qv4", "open2025.qv4" }), 2);
    EXPECT_EQ(talk.said.at(talk.said.size() - 2).text, "2 files compiled,2 errors,view the errors?");
    EXPECT_EQ(talk.said.back().title, "qv4 file compile results");
    EXPECT_EQ(test::read_bytes(dir.path() / "working" / "temp.txt"),
        "gone.qv4 not found\r\nfailed to add file\r\nfile:broken.qv4, qv4 file invalid\r\n");
    EXPECT_EQ(load_current_build(store()), (std::vector<std::string> { "open2026.qv4", "open2025.qv4" }));

    // The champion beat the same three men in each year: a block a file.
    const auto won = load_players_results(store(), Qv4Store::multiple, champion());
    EXPECT_EQ(won.lines.size(), 1 + 3 + 1 + 1 + 3u);
    EXPECT_EQ(count_containing(won.lines, ",open2026.qv4"), 1);
    EXPECT_EQ(load_players_opponents(store(), champion()).lines.size(), 3u);

    const auto met = head_to_head(store(), champion(), first_round_loser());
    EXPECT_EQ(count_containing(met.lines, " def "),
        db().scalar_integer(R"(select count(*) from schedule where
        eid=1 and rid=1 and ? in (mtttt, mbttt) and ? in (mtttt, mbttt))",
            champion(), first_round_loser())
            * 2);
    EXPECT_EQ(met.title, "Head to Head results for " + champion() + " vs " + first_round_loser());
    EXPECT_TRUE(head_to_head(store(), "idaa duo", "adam mann").lines.empty());

    const auto all = all_results_lines(store());
    ASSERT_FALSE(all.empty());
    EXPECT_EQ(all.front().substr(0, 48), "drawtype,id,drawsize,roundid,roundname,player1,p");
    EXPECT_EQ(all.size(), 1 + store().row_count("qv4_multiple_schedule"));

    // A compile of nothing that reads: the compiled set is empty and the archive as it was.
    talk.answers.push_back(Answer::No);
    EXPECT_EQ(qv4_compile(session, { "broken.qv4" }), 0);
    EXPECT_EQ(talk.said.back().text, "no files compiled,1 errors detected,all teams,view the errors?");
    EXPECT_EQ(store().row_count("qv4_multiple_schedule"), 0);
    EXPECT_EQ(archive_files(session).size(), 3u);
}

TEST_F(ResultsAnalysisTest, ArchiveImportDetailsDeleteAndClear)
{
    import_qv4_files(session, { dir.path() / "open2025.qv4" });
    EXPECT_EQ(talk.said.back().title, "qv4 file import results");
    EXPECT_EQ(
        test::read_bytes(dir.path() / "working" / "temp.txt"), "file already exists in qv4 archive: open2025.qv4\r\n");

    EXPECT_TRUE(qv4_file_details(session, "open2025.qv4"));
    EXPECT_EQ(talk.said.back().title, "qv4 file");
    EXPECT_FALSE(qv4_file_details(session, "nothing.qv4"));
    EXPECT_EQ(talk.last_message(), "error openfing nothing.qv4");

    EXPECT_FALSE(delete_qv4_files(session, {}));
    EXPECT_EQ(talk.last_message(), "select qv4 file(s) to delete");
    talk.answers.push_back(Answer::Yes);
    EXPECT_TRUE(delete_qv4_files(session, { "open2025.qv4" }));
    EXPECT_EQ(archive_files(session), (std::vector<std::string> { "open2026.qv4" }));

    qv4_compile(session, { "open2026.qv4" });
    clear_all(session);
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(store().row_count("qv4_multiple_schedule") + store().row_count("qv4_multiple_current_build"), 0);
}

} // namespace
} // namespace qv
