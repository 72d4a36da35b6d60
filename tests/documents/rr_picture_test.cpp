#include "documents/draw_fixture.h"
#include "documents/makedrawpic_new.h"
#include "documents/picture_render.h"

namespace qv {
namespace {

class RrPictureTest : public test::DrawFixture
{
protected:
    PictureOptions options;

    PictureLayout picture(std::int64_t eid)
    {
        auto made = makepic1(session, DrawStore::tournament, eid, options);
        EXPECT_EQ(made.size(), 1u);
        return made.empty() ? PictureLayout {} : made.front().layout;
    }
};

// Five players, "a win is a point"; the top player has won matches 1 to 6: (1,2) (1,3) (1,4) (1,5) (2,3) (2,4).
TEST_F(RrPictureTest, FivePlayerRoundRobin)
{
    rr_draw(1, "group a", 5, 2, 6);
    const auto made = makepic1(session, DrawStore::tournament, 1, options);
    ASSERT_EQ(made.size(), 1u);
    EXPECT_EQ(made[0].file_name, "draw_groupa.gif");
    EXPECT_EQ(made[0].drawtype, "rr");
    EXPECT_EQ(made[0].print_size, 5);
    const auto& layout = made[0].layout;

    const QImage image = scrape(layout);
    EXPECT_EQ(image.width(), 640);
    EXPECT_EQ(image.height(), 410);

    EXPECT_EQ(text(layout, "display_event_name", 0), "group a");
    EXPECT_EQ(text(layout, "scoring_convention", 0), "drawtype: rr-a win is a point,scores open");
    EXPECT_EQ(text(layout, "rr_players", 0), "5 players");

    // The grid: player 1 beat everybody, player 2 lost to 1 and beat 3 and 4.
    const char* row1[] = { "", "w", "w", "w", "w" };
    const char* row2[] = { "l", "", "w", "w", "" };
    for (int j = 1; j <= 5; ++j) {
        EXPECT_EQ(text(layout, "g" + std::to_string(j) + "_wl", 1), row1[j - 1]) << j;
        EXPECT_EQ(text(layout, "g" + std::to_string(j) + "_wl", 2), row2[j - 1]) << j;
    }
    EXPECT_EQ(text(layout, "g1_ttt", 1), "player A");
    EXPECT_EQ(text(layout, "g1_total", 1), "4");
    EXPECT_EQ(text(layout, "g1_total", 2), "2");
    EXPECT_EQ(text(layout, "g1_total", 5), "0");
    EXPECT_TRUE(layout.find("g1_wl", 1)->filled);
    EXPECT_FALSE(layout.find("g2_wl", 1)->filled);

    // The standings by points, equal points in the table's order.
    const char* standings[] = { "player A", "player B", "player C", "player D", "player E" };
    const char* points[] = { "4", "2", "0", "0", "0" };
    for (int k = 1; k <= 5; ++k) {
        EXPECT_EQ(text(layout, "g2_ttt", k), standings[k - 1]) << k;
        EXPECT_EQ(text(layout, "g2_total", k), points[k - 1]) << k;
    }

    // The match list under the grid, the winner marked.
    EXPECT_EQ(layout.family("rr_matchnum").size(), 10u);
    EXPECT_EQ(text(layout, "rr_p1", 1), "player A*");
    EXPECT_EQ(text(layout, "rr_v", 1), " v ");
    EXPECT_EQ(text(layout, "rr_p2", 1), "player B");
    EXPECT_EQ(text(layout, "rr_score", 1), "6-3");
    EXPECT_EQ(text(layout, "rr_points1", 1), "1");
    EXPECT_EQ(text(layout, "rr_p1", 10), "player D");
    EXPECT_EQ(text(layout, "rr_points2", 10), "0");
    const char* heads[] = { "#", "time", "player1", " v ", "player2", "score", "points1", "points2" };
    for (int k = 1; k <= 8; ++k)
        EXPECT_EQ(text(layout, "rr_header", k), heads[k - 1]);
    EXPECT_GT(layout.find("rr_matchnum", 1)->top, layout.find("g1_ttt", 5)->bottom());
    EXPECT_EQ(layout.find("rr_p1", 2)->top - layout.find("rr_p1", 1)->top, 270);
}

TEST_F(RrPictureTest, VoidsStayWhiteWhenNotFilled)
{
    rr_draw(1, "group b", 3, 1, 0);
    options.fill_rr_voids = false;
    const auto layout = picture(1);
    for (const auto* cell : layout.family("g1_wl"))
        EXPECT_FALSE(cell->filled);
    EXPECT_EQ(text(layout, "scoring_convention", 0), "drawtype: rr-allocate points,scores locked");
}

} // namespace
} // namespace qv
