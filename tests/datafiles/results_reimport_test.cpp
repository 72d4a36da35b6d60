#include "core/session.h"
#include "datafiles/results_reimport.h"
#include "support/drawn_tournament.h"
#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

fs::path expected(const std::string& name)
{
    return fs::path(QV_TEST_DATA_DIR) / "expected" / "datafiles" / name;
}

TEST(Qv6Fields, EachCheckInItsOrder)
{
    using Validate = std::string (*)(std::string_view);
    struct Case
    {
        Validate check;
        std::string text;
        std::string answer;
    };
    const Case cases[] = {
        { qv6_sid_1_validate, "", "no match id defined" },
        { qv6_sid_1_validate, "12345678901", "match id  > 10 characters" },
        { qv6_sid_1_validate, "12a", "invalid character for integer at position 3" },
        { qv6_sid_1_validate, "1234567890", "ok" },
        { qv6_mtttt_2_validate, "", "p1 name required" },
        { qv6_mtttt_2_validate, std::string(101, 'a'), "p1 name cannot be > 100 characters" },
        { qv6_mtttt_2_validate, "Wildcard 2", "p1 name cannot contain word 'wildcard'" },
        { qv6_mtttt_2_validate, "qualifier", "p1 name cannot contain word 'qualifier'" },
        { qv6_mbttt_3_validate, "BYE", "p2 name cannot equal 'bye'" },
        { qv6_mbttt_3_validate, "byers", "ok" },
        { qv6_wl_4_validate, "", "result flag required" },
        { qv6_wl_4_validate, "3", "invalid result flag, must be 0,1 or 2:3" },
        { qv6_wl_4_validate, "2", "ok" },
        { qv6_score_5_validate, "6-1 6-2 6-3 6-4", "short score cannot be > 14 characters in length" },
        { qv6_score_5_validate, "6-1¿", "short score cannot contain character ¿" },
        { qv6_score_5_validate, "6~1", "short score cannot contain character ~" },
        { qv6_longscore_6_validate, std::string(101, '1'), "long score cannot be > 100 characters in length" },
        { qv6_longscore_6_validate, "~", "long score cannot contain character ~" },
        { qv6_points1_7_validate, "12345678901", "points cannot be > 10 characters in length" },
        { qv6_points2_8_validate, "", "ok" },
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.check(c.text), c.answer) << c.text;
    EXPECT_NE(qv6_mtttt_2_validate("ann'lee"), "ok");
}

// The drawn tournament: first-round matches live, a wildcard in one of them.
class ResultsReimportTest : public test::TournamentFixture
{
protected:
    void SetUp() override
    {
        TournamentFixture::SetUp();
        test::add_drawn_tournament_people(db());
        test::draw_every_event(session);
        db().run("update schedule set mbttt = 'wildcard1' where sid = 3");
        db().run("update schedule set matchscore = '6-4', points1 = '3' where sid = 1");
    }
    fs::path file_of(const std::vector<std::string>& lines)
    {
        const auto file = dir.path() / "in.qv6";
        std::ofstream out(file, std::ios::binary);
        for (const auto& line : lines)
            out << line << "\r\n";
        return file;
    }
    std::vector<std::string> feedback() { return test::read_crlf_lines(dir.path() / "working" / "feedback.txt"); }
    std::string row(std::int64_t sid, const char* columns)
    {
        return db().scalar_text(std::string("select ") + columns + " from schedule where sid = ?", sid);
    }
};

TEST_F(ResultsReimportTest, ExportsLiveMatchesWithoutPlaceHolders)
{
    const auto file = dir.path() / "results template";
    talk.files.push_back({ file });
    ASSERT_TRUE(export_qv6_file(session));
    EXPECT_EQ(test::read_bytes(file), test::read_bytes(expected("results_template.qv6")));
    const auto prompted = qv6_lines(db(), true);
    ASSERT_EQ(prompted.size(), 5u);
    EXPECT_EQ(prompted[0],
        "1,adam mann,hans mann,winner value(0-no winner 1-player1 2-player2),6-4,longscore,3,"
        "points-p2-rr,");
}

TEST_F(ResultsReimportTest, ImportsGoodLinesAndReportsEachBadOne)
{
    talk.answers.push_back(Answer::Yes);
    const auto imported = import_qv6_file(session,
        file_of({ "1,adam mann,hans mann,1,6-1 6-1,,,,", "2,dirk mann,gus mann,2,1-6 1-6,long,,",
            "9,idac duo/jonc duo,idab duo/jonb duo,2,6-0,,,,", "2,dirk mann,gus mann,9,,,,,", "99,a,b,0,,,,,",
            "2,dirk mann,emil mann,1,,,,,", "8,x,y,0,,,,," }));
    EXPECT_EQ(imported, 2);
    EXPECT_EQ(row(1, "mwttt || '|' || matchscore || '|' || points1"), "adam mann|6-1 6-1|0");
    EXPECT_EQ(row(5, "mtttt || '|' || imtttt || '|' || match_state"), "adam mann|adam mann|1");
    EXPECT_EQ(row(9, "mwttt || '|' || imwtag"), "idab duo/jonb duo|" + row(9, "mbtag"));
    EXPECT_EQ(row(11, "mtttt"), "idab duo/jonb duo");
    EXPECT_EQ(feedback(),
        (std::vector<std::string> { "qv6 file import errors", "file: " + (dir.path() / "in.qv6").string(), "", "",
            "line: 2", "expecting 8 commas got 7 commas", "", "line: 4", "error at field: 4",
            "error description: invalid result flag, must be 0,1 or 2:9", "", "line: 5",
            "error description: match id not found:", "", "line: 6",
            "error description: cannot find player emil mann in match=2", "", "line: 7",
            "error description: invalid match id" }));
    EXPECT_EQ(talk.said.back().kind, "text");
    EXPECT_EQ(talk.said.back().title, "import results errors");
}

TEST_F(ResultsReimportTest, ALineForAMatchWhoseFollowingMatchIsPlayedChangesNothing)
{
    ASSERT_EQ(import_qv6_file(session, file_of({ "1,adam mann,hans mann,1,6-0,,,," })), 1);
    db().run("update schedule set mwtag = mttag where sid = 5");
    talk.answers.push_back(Answer::No);
    EXPECT_EQ(import_qv6_file(session, file_of({ "1,adam mann,hans mann,2,0-6,,,," })), 0);
    EXPECT_EQ(feedback().back(),
        "error description: following match for 1  already played, rollback the following match before changing "
        "the result");
    EXPECT_EQ(talk.said.back().text, "no records imported,1 errors detected,all lines,view the errors?");
    EXPECT_EQ(row(1, "mwttt || '|' || matchscore"), "adam mann|6-0");
}

TEST_F(ResultsReimportTest, SinglesNamesRefuseASlashAndEmptyFilesSayNoRecords)
{
    import_qv6_file(session, file_of({ "1,adam/mann,hans mann,1,,,,," }));
    EXPECT_EQ(feedback().back(), "error description: player1 name contains a '/'");
    EXPECT_EQ(row(1, "mwttt"), "");
    import_qv6_file(session, file_of({}));
    EXPECT_EQ(talk.last_message(), "no records to import?");
}

} // namespace
} // namespace qv
