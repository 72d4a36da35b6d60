#include "core/codepage.h"
#include "core/session.h"
#include "datafiles/results_file.h"
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

TEST(Qv4Date, TakesDayMonthYearOfTheDayKey)
{
    const std::pair<const char*, const char*> cases[]
        = { { "mon02mar26", "02/mar/26" }, { "", "//" }, { "sat31", "31//" }, { "fri13dec99 extra", "13/dec/99" } };
    for (const auto& [key, date] : cases)
        EXPECT_EQ(qv4_date(key), date) << key;
}

// Two drawn events, a header with a letter outside ASCII, a result and a match on a day.
class ResultsFileTest : public test::TournamentFixture
{
protected:
    void SetUp() override
    {
        TournamentFixture::SetUp();
        test::add_drawn_tournament_people(db());
        test::draw_every_event(session);
        db().run("update events set timestamp_text = '26-03-01 09:00:00'");
        db().run(R"(update tournament set tournament = 'Zürich open', dates = 'mon02mar26 to tue03mar26',
            venue = 'lake club', address = '1 quay', country = 'sui', surface = 'clay' where idx = 1)");
        db().run(R"(update schedule set mwttt = mtttt, mwfrn = mtfrn, mwtag = mttag, matchscore = '6-1 6-2',
            points1 = '2', scheduledate = 'tue03mar26', cid = 1 where sid = 2)");
    }
    fs::path written(const std::string& name)
    {
        const auto file = dir.path() / name;
        EXPECT_TRUE(write_qv4_file(db(), file));
        return file;
    }
    fs::path file_of(const std::string& name, const std::string& bytes)
    {
        const auto file = dir.path() / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    std::int64_t stored(const char* table) { return session.peek_browse_db().row_count(table); }
};

TEST_F(ResultsFileTest, WritesTheGoldenFile)
{
    EXPECT_EQ(test::read_bytes(written("results.qv4")), test::read_bytes(expected("results.qv4")));
}

TEST_F(ResultsFileTest, NoDoneDrawLeavesOutEventsAndNoDatesGiveTheFixedDay)
{
    db().run("update events set drawdone = 0");
    db().run("update tournament set dates = ''");
    const auto lines = test::read_crlf_lines(written("r.qv4"));
    ASSERT_EQ(lines.size(), 1u + static_cast<std::size_t>(db().row_count("schedule")));
    EXPECT_EQ(lines[0], to_cp1252("Zürich open^^lake club^1 quay^sui^clay^tmentendmarker^"));
    EXPECT_NE(lines[1].find("^1/1/1900^&^"), std::string::npos);
    EXPECT_NE(lines[2].find("^03/mar/26^&^"), std::string::npos);
}

TEST_F(ResultsFileTest, WithoutAHeaderRowTheHeaderIsEmpty)
{
    db().run("delete from tournament");
    EXPECT_EQ(test::read_crlf_lines(written("r.qv4"))[0], "^^^^^^tmentendmarker^");
}

// What is read back is what the tournament holds, the second p1 standing in p2.
TEST_F(ResultsFileTest, ReadsBackEveryEventAndMatch)
{
    Qv4Header header;
    ASSERT_TRUE(read_qv4_single(session.peek_browse_db(), written("r.qv4"), "r.qv4", header));
    EXPECT_EQ(header.tournament, "Zürich open");
    EXPECT_EQ(header.surface, "clay");
    const char* columns = R"(sid, eid, "match", rid, rname, rsname, mt, mb, mtttt, mbttt, mtfrn, mttag, mbfrn,
        mbtag, mwtag, matchscore, matchlongscore, points1, points2, mt_country, mb_country, mtseeding, mbseeding,
        mtsex, mbsex, eventname, singdobs, evtsex, drawtype, ds, pts, p1, p3, p4)";
    const auto rows = [&](Database& from, const std::string& table) {
        std::vector<std::string> all;
        for (auto q = from.query(std::string("select ") + columns + " from " + table + " order by sid"); q.step();)
            for (int i = 0; i < q.column_count(); ++i)
                all.push_back(q.text(i));
        return all;
    };
    EXPECT_EQ(rows(session.peek_browse_db(), "qv4_single_schedule"), rows(db(), "schedule"));
    auto& store = session.peek_browse_db();
    EXPECT_EQ(store.scalar_integer("select count(*) from qv4_single_schedule where p2 <> p1"), 0);
    EXPECT_EQ(store.scalar_text("select dts_date from qv4_single_schedule where sid = 2"), "03/mar/26");
    EXPECT_EQ(
        store.scalar_text("select fn || tn || surface from qv4_single_schedule where sid = 1"), "r.qv4Zürich openclay");
    EXPECT_EQ(store.scalar_text("select group_concat(sex || ':' || venue || ':' || fn) from qv4_single_events"),
        "male:lake club:r.qv4,mixed:lake club:r.qv4");
    // A second single read replaces, a multiple read adds.
    ASSERT_TRUE(read_qv4_single(store, written("r.qv4"), "r.qv4", header));
    EXPECT_EQ(stored("qv4_single_events"), 2);
    for (int i = 0; i < 2; ++i)
        ASSERT_TRUE(read_qv4_multiple(store, written("r.qv4"), "r.qv4", header));
    EXPECT_EQ(stored("qv4_multiple_events"), 4);
    EXPECT_EQ(stored("qv4_multiple_schedule"), 2 * db().row_count("schedule"));
}

// Broken files: a file that is not text, or a record that does not fit, leaves the tables as they were.
TEST_F(ResultsFileTest, RefusesBrokenFilesWhole)
{
    Qv4Header header;
    auto& store = session.peek_browse_db();
    ASSERT_TRUE(read_qv4_single(store, written("good.qv4"), "good", header));
    const auto matches = stored("qv4_single_schedule");
    const std::string event = "1^ms^singles^m^ko^8^0^t^¿^\r\n";
    // A match record of the given number of fields, the number fields filled.
    const auto match = [](std::size_t count, const std::string& rname = "r1") {
        std::vector<std::string> f(count);
        for (const std::size_t at : { 0, 1, 2, 3, 29, 30 })
            if (at < count)
                f[at] = "1";
        f[4] = rname;
        std::string line;
        for (const auto& each : f)
            line += each + "^";
        return line + "&^\r\n";
    };
    const auto match36 = match(36);
    struct Case
    {
        const char* name;
        std::string bytes;
        bool read;
        int events;
        int matches;
    };
    const Case cases[] = {
        { "binary", std::string("^^\0\1\2^tmentendmarker^", 22), false, 2, static_cast<int>(matches) },
        { "undefined byte", "^^^^^^tmentendmarker^\xC2\x81^", false, 2, static_cast<int>(matches) },
        { "event of 7 fields", "1^ms^singles^m^ko^8^0^¿^", false, 2, static_cast<int>(matches) },
        { "number field not a number", "x^ms^singles^m^ko^8^0^t^¿^", false, 2, static_cast<int>(matches) },
        { "match of 35 fields", event + match(35), false, 2, static_cast<int>(matches) },
        { "truncated last record", event + match36 + "1^1^1^1^r1^r", true, 1, 1 },
        { "empty file", "", true, 0, 0 },
        { "a megabyte without a mark", std::string(1 << 20, 'a'), true, 0, 0 },
        { "a megabyte in a field", event + match(36, std::string(1 << 20, 'r')), true, 1, 1 },
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(read_qv4_single(store, written("good.qv4"), "good", header));
        EXPECT_EQ(read_qv4_single(store, file_of("bad.qv4", to_cp1252(c.bytes)), "bad", header), c.read) << c.name;
        EXPECT_EQ(stored("qv4_single_events"), c.events) << c.name;
        EXPECT_EQ(stored("qv4_single_schedule"), c.matches) << c.name;
    }
}

} // namespace
} // namespace qv
