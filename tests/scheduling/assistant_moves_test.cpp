#include "scheduling/assistant_lines.h"
#include "scheduling/assistant_moves.h"
#include "scheduling/board_fixture.h"

namespace qv::test {
namespace {

class AssistantMovesTest : public BoardFixture
{
protected:
    std::vector<std::int64_t> sids;
    BoardList list;

    void SetUp() override
    {
        BoardFixture::SetUp();
        sids = first_round(1);
        place({ sids[0], sids[1] }, day1, 2);
        AvailabilityLookup availability(*db);
        for (auto sid : sids) {
            MatchRow row;
            ASSERT_TRUE(read_match_row(*db, sid, row));
            list.append({ sid, assistant_line_text(row, availability) });
        }
        talk.clear();
    }
    void pick(std::initializer_list<int> rows)
    {
        for (int row = 0; row < list.size(); ++row)
            list.set_selected(row, false);
        for (int row : rows)
            list.set_selected(row, true);
    }
    std::string place_of(std::int64_t sid)
    {
        return column(sid, "scheduledate") + "/" + std::to_string(number(sid, "cid")) + "/"
            + std::to_string(number(sid, "matchnumber_live"));
    }
};

TEST_F(AssistantMovesTest, MovesSkipMatchesAlreadyThereAndRenumberBothDays)
{
    pick({ 1, 2 });
    const auto before = number(sids[1], "matchnumber");
    EXPECT_TRUE(WEB_move_from_list4_to_SPECIAL(*board, list, day1, 2));
    EXPECT_EQ(number(sids[1], "matchnumber"), before); // already there: left alone
    EXPECT_EQ(place_of(sids[2]), std::string(day1) + "/2/3");

    pick({ 0 });
    EXPECT_TRUE(WEB_move_from_list4_to_SPECIAL(*board, list, day2, 5));
    EXPECT_EQ(place_of(sids[0]), std::string(day2) + "/5/1");
    EXPECT_EQ(place_of(sids[1]), std::string(day1) + "/2/1"); // the day it left is numbered again
    EXPECT_EQ(line_fields(list.line(0).text)[0], day2);
    EXPECT_EQ(list.size(), 4);
}

TEST_F(AssistantMovesTest, OffTheDaysTheTimesGo)
{
    db->run("update schedule set nbat='nb ', matchtime='10:00', matchtime_int=600 where sid=?", sids[0]);
    pick({ 0 });
    EXPECT_TRUE(WEB_move_list4_to_cb_SPECIAL(*board, list));
    EXPECT_EQ(place_of(sids[0]), "/-2/0");
    EXPECT_EQ(column(sids[0], "matchtime") + std::to_string(number(sids[0], "matchtime_int")), "-1");
    EXPECT_GT(number(sids[0], "matchnumber"), 0);
    EXPECT_FALSE(WEB_move_list4_to_cb_SPECIAL(*board, list)); // already on the clipboard

    pick({ 0, 1 });
    EXPECT_TRUE(WEB_move_list4_to_list1_SPECIAL(*board, list));
    EXPECT_EQ(place_of(sids[0]), "/0/0");
    EXPECT_EQ(place_of(sids[1]), "/0/0");
    EXPECT_EQ(number(sids[1], "matchnumber"), 0);
}

TEST_F(AssistantMovesTest, RefusalsChangeNothing)
{
    pick({});
    EXPECT_FALSE(WEB_move_from_list4_to_SPECIAL(*board, list, day2, 1));
    EXPECT_FALSE(WEB_move_list4_to_list1_SPECIAL(*board, list));
    EXPECT_FALSE(assistant_mark_live_unf(*board, list));
    EXPECT_FALSE(assistant_set_time(*board, list, { "nb ", "10", "00" }));
    pick({ 0 });
    EXPECT_FALSE(WEB_move_from_list4_to_SPECIAL(*board, list, "", 1));
    EXPECT_FALSE(WEB_move_from_list4_to_SPECIAL(*board, list, day2, std::nullopt));
    EXPECT_FALSE(assistant_set_time(*board, list, { "nb ", "10", "" }));
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> { "select match", "select match", "select match", "select match", "select day",
            "select court", "enter minute" }));
    EXPECT_EQ(place_of(sids[0]), std::string(day1) + "/2/1");
}

TEST_F(AssistantMovesTest, MarksAndTimesShowInTheLines)
{
    pick({ 0, 2 });
    EXPECT_TRUE(assistant_mark_live_unf(*board, list));
    EXPECT_EQ(column(sids[0], "match_state"), "2.1");
    EXPECT_NE(list.line(0).text.find('^'), std::string::npos);
    EXPECT_TRUE(assistant_mark_unf_live(*board, list));
    EXPECT_EQ(column(sids[2], "match_state"), "2");

    EXPECT_TRUE(assistant_set_time(*board, list, { "at ", "14", "30" }));
    EXPECT_EQ(number(sids[2], "matchtime_int"), 870);
    EXPECT_EQ(line_fields(list.line(0).text)[7], "at 14:30");
    EXPECT_TRUE(assistant_set_time(*board, list, {}));
    EXPECT_EQ(number(sids[0], "matchtime_int"), -1);
}

} // namespace
} // namespace qv::test
