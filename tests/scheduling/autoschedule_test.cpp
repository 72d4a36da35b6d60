#include "scheduling/autoschedule.h"
#include "scheduling/board_fixture.h"

namespace qv::test {
namespace {

class AutoscheduleTest : public BoardFixture
{
protected:
    std::vector<std::int64_t> placed;

    void SetUp() override
    {
        BoardFixture::SetUp();
        placed = first_round(1);
        place(placed, day1, 1);
        show(day1, 1);
        talk.clear();
    }
    AutoscheduleRequest request(std::string nbat, std::string hour, std::string minute, std::string minutes)
    {
        return { { std::move(nbat), std::move(hour), std::move(minute) }, 1, 24, 3, std::move(minutes) };
    }
    std::vector<std::string> times()
    {
        std::vector<std::string> out;
        for (auto sid : placed)
            out.push_back(
                column(sid, "nbat") + column(sid, "matchtime") + "/" + std::to_string(number(sid, "matchtime_int")));
        return out;
    }
};

TEST_F(AutoscheduleTest, SelectedLinesTakeConsecutiveTimesUpToTheCeiling)
{
    top_wins(placed[3]); // a finished match is timed like any other
    select(BoardListId::court, { placed[0], placed[1], placed[3] });
    ASSERT_TRUE(autoschedule_allowed(*board));
    EXPECT_EQ(autoschedule_confirm(*board, request("nb ", "23", "30", "45")), AutoscheduleOutcome::done);
    EXPECT_EQ(times(), (std::vector<std::string> { "nb 23:30/1410", "nb 24:00/1440", "/-1", "nb 24:00/1440" }));
    // Nothing moved: the court's order stands.
    EXPECT_EQ(sids_of(BoardListId::court), placed);
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(AutoscheduleTest, OneMatchTakesTheStartTimeAndTheLimitIsADay)
{
    select(BoardListId::court, { placed[2] });
    EXPECT_EQ(autoschedule_confirm(*board, request("at ", "09", "15", "1440")), AutoscheduleOutcome::done);
    EXPECT_EQ(times()[2], "at 09:15/555");
    select(BoardListId::court, { placed[0], placed[1] });
    EXPECT_EQ(autoschedule_confirm(*board, request("at ", "00", "00", "1440")), AutoscheduleOutcome::done);
    EXPECT_EQ(times()[1], "at 24:00/1440");
}

TEST_F(AutoscheduleTest, RefusalsInTheirOrderWriteNothing)
{
    struct Case
    {
        AutoscheduleRequest request;
        const char* message;
        AutoscheduleOutcome outcome;
    };
    const Case cases[] = {
        { request("", "", "", ""), "enter nb/at", AutoscheduleOutcome::refused },
        { request("nb ", "", "", ""), "enter hour", AutoscheduleOutcome::refused },
        { request("nb ", "10", "", ""), "enter minute", AutoscheduleOutcome::refused },
        { request("nb ", "10", "00", " "), "value required", AutoscheduleOutcome::refused_minutes },
        { request("nb ", "10", "00", "4a"), "invalid character for integer", AutoscheduleOutcome::refused_minutes },
        { request("nb ", "10", "00", "0"), "zero invalid in this context", AutoscheduleOutcome::refused_minutes },
        { request("nb ", "10", "00", "1441"), "Max 1440,24 hours", AutoscheduleOutcome::refused_minutes },
        { request("nb ", "10", "00", "99999999999999"), "Max 1440,24 hours", AutoscheduleOutcome::refused_minutes },
    };
    select(BoardListId::court, { placed[0] });
    const auto stored = session.settings().integer("dl.minsadd");
    for (const auto& c : cases) {
        talk.clear();
        EXPECT_EQ(autoschedule_confirm(*board, c.request), c.outcome) << c.message;
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message });
    }
    EXPECT_EQ(times()[0], "/-1");
    EXPECT_EQ(session.settings().integer("dl.minsadd"), stored);

    select(BoardListId::court, {});
    EXPECT_FALSE(autoschedule_allowed(*board));
    EXPECT_EQ(talk.last_message(), "select match");
}

TEST_F(AutoscheduleTest, TheChoicesAreStoredAndAHeldListIsPatched)
{
    board->set_hold(BoardListId::court, true);
    board->draw_link().sid_range = [this] { return std::optional<SidRange>(SidRange { placed[1], placed[1] }); };
    select(BoardListId::court, { placed[1] });
    EXPECT_EQ(autoschedule_confirm(*board, request("at ", "10", "45", "30")), AutoscheduleOutcome::done);
    EXPECT_EQ(session.settings().integer("dl.nbat"), 1);
    EXPECT_EQ(session.settings().integer("dl.hrs"), 24);
    EXPECT_EQ(session.settings().integer("dl.mins"), 3);
    EXPECT_EQ(session.settings().integer("dl.minsadd"), 30);
    const auto& court = board->list(BoardListId::court);
    EXPECT_NE(court.line(1).text.find("at 10:45"), std::string::npos) << court.line(1).text;
    EXPECT_TRUE(court.line(1).selected);
    EXPECT_TRUE(board->draw_view_stale());
}

} // namespace
} // namespace qv::test
