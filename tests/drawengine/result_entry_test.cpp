#include "drawengine/result_entry.h"
#include "drawengine/rr_fixture.h"

namespace qv::test {
namespace {

class RrResultTest : public RrFixture
{
};

TEST_F(RrResultTest, ARoundRobinResultKeepsItsPointsAndGoesNowhere)
{
    saved_draw(1, lettered(3));
    const auto sid = rr.match(1).sid;
    const auto loaded = loadsid(session, sid);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->details.at(3), "drawtype=rr (rr-allocate points,scores locked) number=match 1/3");
    EXPECT_EQ(loaded->following_sid, 0);
    EXPECT_FALSE(loaded->locked);

    MatchResult result;
    result.sid = sid;
    result.winner = ResultWinner::bottom;
    result.points1 = "3";
    result.points2 = "1";
    rr_result_mode(1, result);
    const auto written = write_result(session, result);
    EXPECT_EQ(written, std::vector<std::int64_t> { sid });
    auto row = db->query("select matchscore, imatchscore, points1, ipoints2, mwttt, imwtag, mbttt, mbtag, match_state, "
                         "changed from schedule where sid=?",
        sid);
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.text(0), "3/1");
    EXPECT_EQ(row.text(1), "3/1");
    EXPECT_EQ(row.text(2), "3");
    EXPECT_EQ(row.text(3), "1");
    EXPECT_EQ(row.text(4), row.text(6));
    EXPECT_EQ(row.text(5), row.text(7));
    EXPECT_EQ(row.text(8), "3");
    EXPECT_EQ(row.integer(9), 0);
    EXPECT_EQ(loadsid(session, sid)->winner, ResultWinner::bottom);
}

TEST(ResultEntryText, DayTimeAndSides)
{
    EXPECT_EQ(format_day_time("", ""), "day/time=unscheduled");
    EXPECT_EQ(format_day_time("mon02mar26", "09:00"), "day/time=mon02mar26/09:00");
    EXPECT_EQ(format_day_time("mon02mar26", ""), "day=mon02mar26");
    EXPECT_EQ(result_side_text("bob", "2", "ENG"), "bob (2) (ENG)");
    EXPECT_EQ(result_side_text("bob", "0", ""), "bob");
    EXPECT_EQ(get_pts_str(2), " (rr-a win is a point,scores open)");
    EXPECT_EQ(get_pts_str(0), "");
}

} // namespace
} // namespace qv::test
