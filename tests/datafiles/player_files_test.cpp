#include "core/codepage.h"
#include "core/session.h"
#include "datafiles/player_files.h"
#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>

namespace qv {
namespace {

namespace fs = std::filesystem;

fs::path expected(const std::string& name)
{
    return fs::path(QV_TEST_DATA_DIR) / "expected" / "datafiles" / name;
}

// A qv1 line of a player with every field filled; one field replaced where a case says so.
std::string qv1(std::map<int, std::string> changed = {})
{
    std::vector<std::string> f { "ann", "lee", "ann@club.org", "1990-01-02", "1 high st", "auckland", "akl", "1010",
        "NZL", "09 123", "021 456", "female", "5.5", "12", "city club", "1" };
    for (const auto& [field, text] : changed)
        f[static_cast<std::size_t>(field - 1)] = text;
    std::string line;
    for (const auto& each : f)
        line += each + "^";
    return line;
}

class PlayerFilesTest : public test::TournamentFixture
{
protected:
    std::tm now {};

    void SetUp() override
    {
        TournamentFixture::SetUp();
        now.tm_year = 127;
        now.tm_mon = 5;
        now.tm_mday = 14;
        now.tm_hour = 10;
    }
    fs::path file_of(const std::string& name, const std::vector<std::string>& lines)
    {
        const auto file = dir.path() / name;
        std::ofstream out(file, std::ios::binary);
        for (const auto& line : lines)
            out << to_cp1252(line) << "\r\n";
        return file;
    }
};

// Each rule of a qv1 line, in the order the fields are checked: the first fault names its field.
TEST(Qv1Line, EachFieldsRuleAndMessage)
{
    struct Case
    {
        std::map<int, std::string> changed;
        int field;
        const char* description;
    };
    const Case cases[] = {
        { { { 1, "" } }, 1, "first name/teamname required" },
        { { { 1, std::string(51, 'a') } }, 1, "first name length must be <= 50 characters" },
        { { { 1, "an'n" } }, 1, "illegal character ' at position 3" },
        { { { 1, "Wildcard" } }, 1, " first name cannot contain word 'wildcard'" },
        { { { 1, "qualifier 2" } }, 1, " first name cannot contain word 'qualifier'" },
        { { { 1, "bye" } }, 1, " first name cannot equal 'bye'" },
        { { { 3, std::string(201, 'e') } }, 3, "email length must be <= 200 characters" },
        { { { 5, std::string(101, 'a') } }, 5, "address length must be <= 100 characters" },
        { { { 9, "NZLA" } }, 9, "country code length must be <= 3 characters" },
        { { { 9, "N-Z" } }, 9, "from code can be alphanumeric only" },
        { { { 11, std::string(51, '1') } }, 11, "mobile/cell length must be <= 50 characters" },
        { { { 12, "f" } }, 12, "sex must be either male or female" },
        { { { 16, "2" } }, 16, "player/team indicator must be eitehr 1 or 0" },
        // The second name and the club wait for the player-or-team field.
        { { { 2, "" }, { 12, "x" } }, 12, "sex must be either male or female" },
        { { { 2, "" } }, 2, "second name required" },
        { { { 2, "bye" } }, 2, "second name cannot equal 'bye'" },
        { { { 15, std::string(51, 'c') }, { 16, "x" } }, 16, "player/team indicator must be eitehr 1 or 0" },
        { { { 15, std::string(51, 'c') } }, 15, "club length must be <= 50 characters" },
        // A team: the second name does not count, the team's name has its own limit.
        { { { 1, "the long team name here" }, { 2, "" }, { 16, "0" } }, 1, "teamname length must be <= 18 characters" },
    };
    for (const auto& c : cases) {
        const auto checked = process_qv1_line(qv1(c.changed));
        ASSERT_FALSE(checked.record) << c.description;
        EXPECT_EQ(checked.fault.field, c.field) << c.description;
        EXPECT_EQ(checked.fault.description, c.description);
    }
    const auto team = process_qv1_line(qv1({ { 1, "the aces" }, { 2, "ignored 'quote" }, { 16, "0" } }));
    ASSERT_TRUE(team.record);
    EXPECT_EQ(team.record->kind, PlayerKind::team);
    EXPECT_EQ(team.record->team_name, "the aces");
}

TEST(Qv2Line, FromCodeIsExactlyThreeLetters)
{
    EXPECT_TRUE(process_qv2_line("ann^lee^female^NZL^1^").record);
    EXPECT_EQ(process_qv2_line("ann^lee^female^NZ^1^").fault.description, "country code must be3 characters in length");
    EXPECT_EQ(process_qv2_line("ann^lee^female^N Z^1^").fault.description, "from code can be alphanumeric only");
    EXPECT_EQ(process_qv2_line("ann^^female^NZL^1^").fault.field, 2);
    EXPECT_TRUE(process_qv2_line("the aces^^male^AUS^0^").record);
}

TEST_F(PlayerFilesTest, ImportAddsGoodLinesAndWritesTheRestToTheFeedbackFile)
{
    db().run("insert into folders (fid, nm) values (4, 'juniors')");
    const auto file = file_of("players.qv1",
        { qv1({ { 1, "\xc3\xa9mile" }, { 2, "zola" }, { 12, "male" } }), qv1({ { 12, "F" } }), "",
            qv1({ { 1, "the aces" }, { 2, "" }, { 16, "0" } }), "ann^lee^", qv1({ { 9, "N-Z" } }),
            qv1({ { 1, "\xc3\x89MILE" }, { 2, "ZOLA" }, { 12, "male" } }) });
    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(import_players(session, file, PlayerFormat::qv1, 4, now), 2);

    // The third good line is the same person as the first good one, whatever the case.
    EXPECT_EQ(db().scalar_text("select group_concat(player, '|') from (select player from players order by pid)"),
        "\xc3\x89mile Zola|The aces");
    EXPECT_EQ(db().scalar_text("select fname || '/' || sname || '/' || pval || '/' || fid || '/' || timestamp "
                               "from players where player = 'The aces'"),
        "The aces//0/4/14-Jun-2027 10:00:00");
    EXPECT_EQ(talk.said.at(0).text, "2 records imported,4 errors,view the errors?");
    EXPECT_EQ(talk.said.at(0).title, "import errors");
    EXPECT_EQ(talk.said.at(1).kind, "text");
    const auto feedback = test::read_bytes(dir.path() / "working" / "feedback.txt");
    EXPECT_EQ(feedback,
        test::read_bytes(expected("qv1_import_feedback.txt"))
            .replace(feedback.find("file: ") + 6, 0, to_cp1252(file.string())));
}

TEST_F(PlayerFilesTest, ASecondImportAddsNothingAndEveryLineIsAlreadyInTheRegister)
{
    const auto file = file_of("players.qv2", { "ann^lee^female^NZL^1^", "the aces^^male^AUS^0^" });
    EXPECT_EQ(import_players(session, file, PlayerFormat::qv2, 0, now), 2);
    EXPECT_EQ(talk.last_message(), "2 records imported");
    talk.answers.push_back(Answer::No);
    EXPECT_EQ(import_players(session, file, PlayerFormat::qv2, 0, now), 0);
    EXPECT_EQ(talk.said.back().text, "no records imported,2 errors detected,all lines,view the errors?");
    EXPECT_EQ(db().row_count("players"), 2);
    const auto feedback = from_cp1252(test::read_bytes(dir.path() / "working" / "feedback.txt"));
    EXPECT_NE(feedback.find("\r\nAnn Lee already in db\r\nThe aces already in db\r\n"), std::string::npos);

    EXPECT_EQ(import_players(session, file_of("empty.qv2", {}), PlayerFormat::qv2, 0, now), 0);
    EXPECT_EQ(talk.last_message(), "no records to import?");
    EXPECT_EQ(import_players(session, dir.path() / "gone.qv2", PlayerFormat::qv2, 0, now), 0);
    EXPECT_EQ(talk.last_message(), "cannot read file:" + (dir.path() / "gone.qv2").string());
}

TEST_F(PlayerFilesTest, ExportWritesTheChosenPlayersThatImportReadsBack)
{
    const auto source = file_of("in.qv1",
        { qv1({ { 1, "\xc3\xa9mile" }, { 2, "zola" }, { 12, "male" } }),
            qv1({ { 1, "the aces" }, { 2, "" }, { 16, "0" }, { 9, "" } }) });
    ASSERT_EQ(import_players(session, source, PlayerFormat::qv1, 0, now), 2);

    EXPECT_FALSE(export_players(session, {}, PlayerFormat::qv1));
    EXPECT_EQ(talk.last_message(), "select at least 1 player");
    const auto qv1_file = dir.path() / "out.qv1";
    const auto qv2_file = dir.path() / "out.qv2";
    talk.files.push_back({ qv1_file });
    talk.files.push_back({ qv2_file });
    ASSERT_TRUE(export_players(session, { 2, 1 }, PlayerFormat::qv1));
    EXPECT_EQ(talk.said.back().text, qv1_file.string() + " file exported");
    ASSERT_TRUE(export_players(session, { 1 }, PlayerFormat::qv2));
    EXPECT_EQ(test::read_bytes(qv1_file), test::read_bytes(expected("players.qv1")));
    EXPECT_EQ(test::read_bytes(qv2_file), "\xc9mile^Zola^male^NZL^1^\r\n");

    // Into a new register the export comes back as it went.
    db().run("delete from players");
    EXPECT_EQ(import_players(session, qv1_file, PlayerFormat::qv1, 0, now), 2);
    EXPECT_EQ(db().scalar_text("select group_concat(player, '|') from (select player from players order by pid)"),
        "The aces|\xc3\x89mile Zola");
}

TEST_F(PlayerFilesTest, TextExportsListThePlayersWhoHaveTheValue)
{
    db().run(R"(insert into players (pid, player, email, rating, ranking, availabilityrestrictions) values
        (1, 'Bo Tan', 'bo@x.org', '', '3', 'after 5pm'), (2, 'Al Vo', 'al@x.org', '6', '', ''), (3, 'Cy Ng', '', '',
        '', ''))");
    EXPECT_EQ(player_text_lines(session, PlayerText::email),
        (std::vector<std::string> { "Al Vo^al@x.org", "Bo Tan^bo@x.org" }));
    EXPECT_EQ(
        player_text_lines(session, PlayerText::emails_only), (std::vector<std::string> { "al@x.org", "bo@x.org" }));
    EXPECT_EQ(
        player_text_lines(session, PlayerText::rating_ranking), (std::vector<std::string> { "Al Vo^6^", "Bo Tan^^3" }));
    EXPECT_EQ(player_text_lines(session, PlayerText::availability), (std::vector<std::string> { "Bo Tan^after 5pm" }));
    EXPECT_TRUE(player_text_lines(session, PlayerText::message).empty());
}

} // namespace
} // namespace qv
