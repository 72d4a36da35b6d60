#include "drawengine/rr_scoring.h"
#include "support/scripted_talk.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(RrScoring, ModesNameTheirLinesAndLockTheirBoxes)
{
    struct Mode
    {
        int pts;
        std::string shown;
        bool points_open;
        bool score_open;
    };
    const Mode modes[] = {
        { 1, "drawtype: rr-allocate points,scores locked", true, false },
        { 2, "drawtype: rr-a win is a point,scores open", false, true },
        { 3, "drawtype: rr-allocate points,scores open", true, true },
    };
    for (const auto& m : modes) {
        EXPECT_EQ(RR_set_scoring(m.pts), m.shown);
        EXPECT_EQ(rr_boxes(m.pts).points_open, m.points_open) << m.pts;
        EXPECT_EQ(rr_boxes(m.pts).score_open, m.score_open) << m.pts;
    }
}

TEST(RrScoring, FiltersKeepWhatTheBoxesMayHold)
{
    const std::pair<std::string, std::string> scores[] = {
        { " 6-3\u00BF ", "6-3" },
        { "6~4 7-5", "64 7-5" },
        { "\u00BF~", "" },
        { "6-3 (ret)", "6-3 (ret)" },
    };
    for (const auto& [typed, kept] : scores)
        EXPECT_EQ(filter_text_rr(typed), kept) << typed;

    const std::pair<std::string, std::string> points[] = {
        { "2a.5", "2.5" },
        { "", "0" },
        { "   ", "0" },
        { " 12 ", "12" },
        { "1 0", "10" },
        { "abc", "" },
    };
    for (const auto& [typed, kept] : points)
        EXPECT_EQ(filter_text_rr_points(typed), kept) << typed;
}

RrMatch line()
{
    RrMatch m;
    m.number = 1;
    m.top = 1;
    m.bottom = 2;
    m.top_names = { "Al Adams", "Al Adams", "Al Adams" };
    m.bottom_names = { "Bo Berg", "Bo Berg", "Bo Berg" };
    return m;
}

TEST(RrScoring, ModeOneScoreFollowsThePoints)
{
    auto m = line();
    m.points1 = "3";
    m.points2 = "1";
    m.score = "typed";
    rr_apply_scoring(m, 1);
    EXPECT_EQ(m.score, "3/1");

    m.points1 = "";
    m.points2 = " ";
    rr_apply_scoring(m, 1);
    EXPECT_EQ(m.score, "0/0");
    EXPECT_EQ(m.points1, "");

    // A winner gives no points in this mode.
    m.points1 = m.points2 = "0";
    rr_toggle_winner(m, RrWinner::top);
    rr_apply_scoring(m, 1);
    EXPECT_EQ(m.points1, "0");
}

TEST(RrScoring, ModeTwoWinIsAPoint)
{
    auto m = line();
    m.score = "6-3";
    rr_toggle_winner(m, RrWinner::bottom);
    rr_apply_scoring(m, 2);
    EXPECT_EQ(m.points1, "0");
    EXPECT_EQ(m.points2, "1");
    EXPECT_EQ(m.score, "6-3");

    // Clicking the other side moves the mark.
    rr_toggle_winner(m, RrWinner::top);
    rr_apply_scoring(m, 2);
    EXPECT_EQ(m.winner, RrWinner::top);
    EXPECT_EQ(m.points1, "1");
    EXPECT_EQ(m.points2, "0");

    // Clicking the marked side takes the mark off.
    rr_toggle_winner(m, RrWinner::top);
    rr_apply_scoring(m, 2);
    EXPECT_EQ(m.winner, RrWinner::none);
    EXPECT_EQ(m.points1, "0");
    EXPECT_EQ(m.points2, "0");
}

TEST(RrScoring, ModeThreeKeepsWhatWasTyped)
{
    auto m = line();
    m.points1 = "2.5";
    m.points2 = "7";
    m.score = "21-19";
    rr_toggle_winner(m, RrWinner::top);
    rr_apply_scoring(m, 3);
    EXPECT_EQ(m.points1, "2.5");
    EXPECT_EQ(m.points2, "7");
    EXPECT_EQ(m.score, "21-19");
}

TEST(RrScoring, WinnerCarriesTheStar)
{
    auto m = line();
    EXPECT_EQ(rr_caption(m, RrWinner::top), "Al Adams");
    rr_toggle_winner(m, RrWinner::bottom);
    EXPECT_EQ(rr_caption(m, RrWinner::top), "Al Adams");
    EXPECT_EQ(rr_caption(m, RrWinner::bottom), "Bo Berg*");
    EXPECT_EQ(m.winner_names().ttt, "Bo Berg");
    rr_toggle_winner(m, RrWinner::bottom);
    EXPECT_EQ(rr_caption(m, RrWinner::bottom), "Bo Berg");
    EXPECT_EQ(m.winner_names().ttt, "");
}

TEST(RrScoring, ValidationStopsAtTheFirstBadPoints)
{
    OpenRoundRobin rr;
    rr.matches = { line(), line(), line() };
    rr.matches[0].points1 = "2.5";
    rr.matches[1].points2 = "1.2.3";
    rr.matches[2].points1 = "x";
    test::ScriptedTalk talk;
    EXPECT_FALSE(validate_rr(talk, rr));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "invalid double value, more than one point (.)" });

    rr.matches[1].points2 = "1";
    rr.matches[2].points1 = "";
    talk.clear();
    EXPECT_TRUE(validate_rr(talk, rr));
    EXPECT_TRUE(talk.said.empty());
}

} // namespace
} // namespace qv
