#include "scheduling/board_fixture.h"
#include "scheduling/time_conflicts.h"

namespace qv::test {
namespace {

class TimeConflictsTest : public BoardFixture
{
protected:
    std::vector<std::int64_t> sids;

    void SetUp() override
    {
        BoardFixture::SetUp();
        for (auto q = db->query("select sid from schedule where rname <> 'winner' order by sid"); q.step();)
            sids.push_back(q.integer(0));
        ASSERT_GE(sids.size(), 8u);
        db->run("update schedule set p1='', p2='', p3='', p4='', mwtag=''");
    }
    // A live match of the first day at a court and a time, with its players.
    void put(std::size_t i, std::int64_t cid, int minutes, std::string p1, std::string p2, std::string p3 = {})
    {
        const auto time = std::to_string(minutes / 60) + ":" + std::to_string(minutes % 60);
        db->run(R"(update schedule set scheduledate=?, cid=?, matchtime=?, matchtime_int=?, match_state='2', p1=?,
            p2=?, p3=?, mwtag='' where sid=?)",
            day1, cid, time, minutes, p1, p2, p3, sids[i]);
    }
    std::string sid_text(std::size_t i) { return std::to_string(sids[i]); }
    // The rows of a result table: "key:cnt:sids".
    std::vector<std::string> rows(TcKind kind)
    {
        std::vector<std::string> out;
        const std::string sql = kind == TcKind::match
            ? "select pn, cnt, sids, tm from calc_time_conflicts_matches order by pn"
            : "select cid, cnt, sids, tm from calc_time_conflicts_courts order by cid";
        for (auto q = db->query(sql); q.step();)
            out.push_back(q.text(0) + ":" + q.text(1) + ":" + q.text(2) + ":" + q.text(3));
        return out;
    }
    void compute(int avg = 60) { BF_time_conflict_sdate1(*db, day1, avg); }
};

TEST_F(TimeConflictsTest, OverlapIsStrictlyCloserThanTheAverage)
{
    struct Case
    {
        int t1, t2, avg;
        bool expected;
    };
    const Case cases[] = { { 600, 659, 60, true }, { 600, 660, 60, false }, { 660, 600, 60, false },
        { 600, 600, 1, true }, { -1, -1, 60, false }, { -1, 30, 60, false }, { 30, -1, 60, false } };
    for (const auto& c : cases)
        EXPECT_EQ(overlap(c.t1, c.t2, c.avg), c.expected) << c.t1 << " " << c.t2;
}

TEST_F(TimeConflictsTest, APlayerWithinTheAverageIsInConflictAndOneMinuteMoreIsNot)
{
    put(0, 1, 600, "ann lee", "bob ray");
    put(1, 2, 659, "cy doe", "ann lee");
    compute();
    EXPECT_EQ(
        rows(TcKind::match), (std::vector<std::string> { "ann lee:2:" + sid_text(0) + "." + sid_text(1) + ":60" }));
    EXPECT_TRUE(rows(TcKind::court).empty());

    kill_all_tcs(*db);
    put(1, 2, 660, "cy doe", "ann lee");
    compute();
    EXPECT_TRUE(rows(TcKind::match).empty());
}

TEST_F(TimeConflictsTest, SamePlayerOrCourtAtOneTimeGivesOneRowOfTwo)
{
    put(0, 1, 600, "ann lee", "bob ray");
    put(1, 2, 600, "cy doe", "dan fox", "ann lee"); // p3 of a doubles match is the same person by text
    put(2, 3, 600, "eve gil", "fay hu");
    put(3, 3, 600, "gus ivy", "hal jo");
    compute();
    EXPECT_EQ(
        rows(TcKind::match), (std::vector<std::string> { "ann lee:2:" + sid_text(0) + "." + sid_text(1) + ":60" }));
    EXPECT_EQ(rows(TcKind::court), (std::vector<std::string> { "3:2:" + sid_text(2) + "." + sid_text(3) + ":60" }));
}

TEST_F(TimeConflictsTest, DecidedAndOffCourtMatchesTakeNoPartButFirstAvailableDoes)
{
    put(0, 1, 600, "ann lee", "bob ray");
    put(1, 2, 600, "ann lee", "cy doe");
    db->run("update schedule set mwtag=mttag||'x' where sid=?", sids[1]); // decided: its time still counts
    put(2, -4, 600, "ann lee", "dan fox"); // day clipboard
    put(3, -2, 600, "ann lee", "eve gil"); // clipboard
    put(4, 0, 600, "ann lee", "fay hu"); // unscheduled
    compute();
    EXPECT_TRUE(rows(TcKind::match).empty());

    put(5, -1, 630, "ann lee", "gus ivy"); // first available
    put(6, -1, 640, "hal jo", "ivo ka");
    compute();
    EXPECT_EQ(
        rows(TcKind::match), (std::vector<std::string> { "ann lee:2:" + sid_text(0) + "." + sid_text(5) + ":60" }));
    EXPECT_EQ(rows(TcKind::court), (std::vector<std::string> { "-1:2:" + sid_text(5) + "." + sid_text(6) + ":60" }));
}

TEST_F(TimeConflictsTest, ADayWithoutTimesGivesNothingAndARowGrowsThroughLaterPairs)
{
    compute();
    EXPECT_TRUE(rows(TcKind::match).empty());
    EXPECT_TRUE(rows(TcKind::court).empty());

    put(0, 1, 600, "ann lee", "bob ray");
    put(1, 2, 630, "ann lee", "cy doe");
    put(2, 3, 660, "ann lee", "dan fox");
    compute();
    EXPECT_EQ(rows(TcKind::match),
        (std::vector<std::string> { "ann lee:3:" + sid_text(0) + "." + sid_text(1) + "." + sid_text(2) + ":60" }));
}

TEST_F(TimeConflictsTest, ComputingIsRefusedInOrderAndAsksFirst)
{
    put(0, 1, 600, "ann lee", "bob ray");
    put(1, 2, 600, "ann lee", "cy doe");
    const std::vector<std::string> day { std::string(day1) + " ?" };
    struct Case
    {
        std::vector<std::string> days;
        const char* minutes;
        const char* message;
    };
    const Case cases[] = { { {}, "60", "select day(s)" }, { day, " ", "value required" },
        { day, "6x", "invalid character for integer" }, { day, "0", "zero invalid in this context" },
        { day, "1441", "max 1440,24 hours" } };
    for (const auto& c : cases) {
        talk.clear();
        EXPECT_FALSE(compute_time_conflicts(session, c.days, c.minutes));
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message });
    }
    talk.answers.push_back(Answer::Cancel);
    EXPECT_FALSE(compute_time_conflicts(session, day, "45"));
    EXPECT_EQ(session.settings().integer("schedule.avgmatchtime"), 45);
    EXPECT_TRUE(rows(TcKind::match).empty());

    db->run("update schedule set mtttt='' where sid=?", sids[1]);
    talk.answers.push_back(Answer::Yes);
    EXPECT_TRUE(compute_time_conflicts(session, day, "45"));
    EXPECT_EQ(talk.last_message(), "done");
    EXPECT_EQ(rows(TcKind::match).size(), 1u);
    EXPECT_EQ(load_ctc_mtc_days(*db, TcKind::match).at(0).text, std::string(day1) + "(2)");
    const auto list = load_time_conflicts(*db, day1, TcKind::match);
    EXPECT_EQ(list.heading, std::string("match time conflicts,") + day1);
    ASSERT_EQ(list.lines.size(), 2u);
    EXPECT_EQ(list.lines[1].sid, sids[1]);
    const auto fields = line_fields(list.lines[1].text);
    EXPECT_EQ(fields[0], day1);
    EXPECT_EQ(fields[1], "2");
    EXPECT_EQ(fields[3], "45");
    EXPECT_EQ(fields[4], "empty");

    EXPECT_EQ(days_basic_tcs(*db).size(), 1u);
    kill_all_tcs_for_sdate(*db, day1);
    EXPECT_TRUE(load_ctc_mtc_days(*db, TcKind::match).empty());
}

} // namespace
} // namespace qv::test
