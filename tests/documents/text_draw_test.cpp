#include "documents/draw_fixture.h"
#include "documents/text_draw_ko.h"
#include "documents/text_draw_rr.h"
#include "support/file_bytes.h"

namespace qv {
namespace {

using test::read_bytes;

std::filesystem::path expected(const std::string& name)
{
    return std::filesystem::path(QV_TEST_DATA_DIR) / "expected" / "documents" / name;
}

using TextDrawTest = test::DrawFixture;

TEST(NextRoundPointer, MatchNumberOfTheNextMatch)
{
    struct Case
    {
        int drawsize;
        const char* mw_ptr;
        int match;
    };
    const Case cases[] = {
        { 8, "2.1", 5 },
        { 8, "2.2", 5 },
        { 8, "2.3", 6 },
        { 8, "3.2", 7 },
        { 128, "2.64", 96 },
        { 128, "7.1", 127 },
        { 2, "2.1", 2 },
        { 8, "x", 0 },
    };
    for (const auto& c : cases)
        EXPECT_EQ(next_match_number(c.drawsize, c.mw_ptr), c.match) << c.drawsize << " " << c.mw_ptr;
}

TEST(TextDrawSide, SeedsAndCountries)
{
    EXPECT_EQ(text_draw_side("1", "ann lee", "NZL", TextDrawCountries::on), "(1)ann lee(NZL)");
    EXPECT_EQ(text_draw_side("", "ann lee", "NZL", TextDrawCountries::off), "ann lee");
    EXPECT_EQ(text_draw_side("wc", "a b/c d", "NZL/AUS", TextDrawCountries::on), "(wc)a b(NZL)/c d(AUS)");
    EXPECT_EQ(text_draw_side("", "a b/c d", "NZL", TextDrawCountries::on), "a b(NZL)/c d");
    EXPECT_EQ(text_draw_side("", "bye", "", TextDrawCountries::on), "bye");
}

// A draw of 8 with two byes, the first round played: pointers to the next match and countries behind the names.
TEST_F(TextDrawTest, KnockOutGolden)
{
    ko_draw(1, "boys 8", 8, 6, 1);
    // The second match went the other way, without a long score.
    db().run(
        R"(update schedule set mwttt=mbttt, mwfrn=mbfrn, mwtag=mbtag, matchlongscore='' where eid=1 and "match"=2)");
    db().run(R"(update schedule set mbttt='player 4', mbfrn='player 4', mbtag='plr4', mb_country='AUS'
        where eid=1 and "match"=5)");
    const auto file = dir.path() / "ko.txt";
    ASSERT_TRUE(text_draw_ko(file, db(), 8, 1, "boys 8", NextRoundPointers::on, TextDrawCountries::on));
    EXPECT_EQ(read_bytes(file), read_bytes(expected("textdraw_ko8.txt")));

    const auto plain = text_draw_ko_lines(db(), 8, 1, "boys 8", NextRoundPointers::off, TextDrawCountries::off);
    ASSERT_EQ(plain.size(), 12u);
    EXPECT_EQ(plain[3], "1 quaters (1)player 1 def (2)player 2      61 62 63 64~61 (76) 62 63 64    ");
}

TEST_F(TextDrawTest, RoundRobinGolden)
{
    rr_draw(1, "group a", 4, 2, 3);
    const auto file = dir.path() / "rr.txt";
    ASSERT_TRUE(text_draw_rr(file, db(), 1, "group a"));
    EXPECT_EQ(read_bytes(file), read_bytes(expected("textdraw_rr4.txt")));
}

} // namespace
} // namespace qv
