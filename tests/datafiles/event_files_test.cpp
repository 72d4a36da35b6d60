#include "core/codepage.h"
#include "core/session.h"
#include "datafiles/event_files.h"
#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace qv {
namespace {

namespace fs = std::filesystem;

class EventFilesTest : public test::TournamentFixture
{
protected:
    void SetUp() override
    {
        TournamentFixture::SetUp();
        db().run(R"(insert into events (eid, eventname, singdobs, sex, pte, drawtype) values
            (1, 'mens singles', 'singles', 'male', 'p', 'ko'))");
    }
    fs::path file_of(const std::vector<std::string>& lines)
    {
        const auto file = dir.path() / "events.qv3";
        std::ofstream out(file, std::ios::binary);
        for (const auto& line : lines)
            out << to_cp1252(line) << "\r\n";
        return file;
    }
};

TEST_F(EventFilesTest, EachFieldsRuleThenThePairRules)
{
    const std::pair<const char*, const char*> cases[] = {
        { "^singles^male^p^^", "event name needed" },
        { "Mens Singles^singles^male^p^^", "Mens Singles: already in db" },
        { "a'b^singles^male^p^^", "illegal character ' at position 2" },
        { "girls^^female^p^^", "no value for singles/doubles" },
        { "girls^single^female^p^^", "must be either singles or doubles event" },
        { "girls^singles^^p^^", "no value for sex" },
        { "girls^singles^girls^p^^", "sex must be either male,female,mixed,neutral" },
        { "girls^singles^female^^^", "no value for player type" },
        { "girls^singles^female^x^^", "must be either p-players only,t-teams only,e-either" },
        { "girls^singles^female^p^12345678901^", " fee must be <=10 characters in length" },
        { "girls^singles^female^p^1.2.3^", "invalid double/integer value, more than one point (.)" },
        { "mixed^singles^mixed^p^^", "a mixed event cannot be a singles event" },
        { "pairs^doubles^male^e^^",
            "a doubles event must be players only,teams only but not a mixture of players and teams" },
    };
    for (const auto& [line, description] : cases)
        EXPECT_EQ(process_qv3_line(db(), line).fault.description, description) << line;
    const auto good = process_qv3_line(db(), " Girls 16 ^Singles^Female^P^12.50^");
    ASSERT_TRUE(good.record);
    EXPECT_EQ(good.record->eventname, "Girls 16");
    EXPECT_EQ(good.record->singdobs, "singles");
    EXPECT_EQ(good.record->pte, "p");
}

// Imported events are knock-out whatever the default draw type; a name met twice in the file goes in once.
TEST_F(EventFilesTest, ImportExportAndTheFeedback)
{
    session.settings().set_disk_var("default_draw_type", "2");
    talk.answers.push_back(Answer::No);
    const auto file = file_of({ "girls 16^singles^female^p^12.50^", "boys^singles^male^p^", "mixed^doubles^mixed^p^5^",
        "girls 16^singles^female^p^^" });
    EXPECT_EQ(import_events(session, file), 2);
    EXPECT_EQ(talk.said.at(0).text, "2 records imported,2 errors,view the errors?");
    EXPECT_EQ(talk.said.at(0).title, "import events errors");
    EXPECT_EQ(db().scalar_text("select group_concat(eid || ' ' || eventname || ' ' || drawtype || pts, '|') from "
                               "(select * from events order by eid)"),
        "1 mens singles ko0|2 girls 16 ko0|3 mixed ko0");
    const auto feedback = test::read_cp1252(dir.path() / "working" / "feedback.txt");
    EXPECT_EQ(feedback,
        "qv3 file import errors\r\nfile: " + file.string()
            + "\r\nline: boys^singles^male^p^\r\nexpecting 5 ^, got 4 ^\r\nline: girls 16^singles^female^p^^\r\n"
              "error at field: 1\r\nerror text: girls 16\r\nerror description: girls 16: already in db\r\n");

    EXPECT_FALSE(export_events(session, {}));
    EXPECT_EQ(talk.last_message(), "select at least 1 event to export");
    const auto out = dir.path() / "out.qv3";
    talk.files.push_back({ out });
    ASSERT_TRUE(export_events(session, { 3, 2 }));
    EXPECT_EQ(test::read_bytes(out), "mixed^doubles^mixed^p^5^\r\ngirls 16^singles^female^p^12.50^\r\n");

    db().run("delete from events");
    EXPECT_FALSE(export_events(session, { 1 }));
    EXPECT_EQ(talk.last_message(), "no events to export");
}

} // namespace
} // namespace qv
