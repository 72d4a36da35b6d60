#include "documents/draw_fixture.h"
#include "documents/gif_file.h"
#include "documents/ko_picture.h"
#include "documents/makedrawpic_new.h"
#include "documents/picture_render.h"

#include <filesystem>

namespace qv {
namespace {

using test::DrawFixture;

class KoPictureTest : public DrawFixture
{
protected:
    PictureOptions options;

    void SetUp() override
    {
        DrawFixture::SetUp();
        options.site_line = "quorvelin https://quorvelin.example/";
    }

    std::vector<DrawPicture> pictures(std::int64_t eid)
    {
        return makepic1(session, DrawStore::tournament, eid, options);
    }
};

// The canvas of each draw size, in pixels of a 96-dpi picture: 2, 16 and 128 whole, and the two halves of 128.
TEST_F(KoPictureTest, PictureSizesInPixels)
{
    struct Case
    {
        int drawsize;
        bool split;
        std::vector<std::pair<int, int>> sizes;
        std::vector<std::string> files;
    };
    const Case cases[] = {
        { 2, false, { { 414, 150 } }, { "draw_ko2.gif" } },
        { 16, false, { { 614, 355 } }, { "draw_ko16.gif" } },
        { 128, false, { { 914, 2371 } }, { "draw_ko128.gif" } },
        { 128, true, { { 934, 1266 }, { 934, 1266 } }, { "draw_ko1281.gif", "draw_ko1282.gif" } },
    };
    int eid = 0;
    for (const auto& c : cases) {
        ko_draw(++eid, "ko" + std::to_string(c.drawsize), c.drawsize, c.drawsize);
        options.split128 = c.split;
        const auto made = pictures(eid);
        ASSERT_EQ(made.size(), c.sizes.size()) << c.drawsize;
        for (std::size_t i = 0; i < made.size(); ++i) {
            const QImage image = scrape(made[i].layout);
            EXPECT_EQ(std::make_pair(image.width(), image.height()), c.sizes[i]) << c.drawsize << " " << i;
            EXPECT_EQ(made[i].file_name, c.files[i]);
        }
    }
}

// A whole draw's canvas is the size the installation's pic_sizes table gives for it.
TEST_F(KoPictureTest, CanvasMatchesPicSizes)
{
    DrawData empty;
    for (int drawsize : { 4, 8, 16, 32, 64, 128 }) {
        const auto layout = ko_picture(empty, drawsize, options);
        auto row = session.init_db().query("select * from pic_sizes where ds=?", drawsize);
        ASSERT_TRUE(row.step());
        EXPECT_EQ(layout.width, row.integer("width")) << drawsize;
        EXPECT_EQ(layout.height, row.integer("height")) << drawsize;
        EXPECT_EQ(layout.pixel_width(), row.integer("width_px")) << drawsize;
        EXPECT_EQ(layout.pixel_height(), row.integer("height_px")) << drawsize;
    }
}

TEST_F(KoPictureTest, SixteenDrawCellsStandWhereTheLayoutPutsThem)
{
    ko_draw(1, "boys 16", 16, 14, 2);
    const auto made = pictures(1);
    ASSERT_EQ(made.size(), 1u);
    const auto& layout = made[0].layout;

    EXPECT_EQ(text(layout, "display_tname", 0), "city open championships");
    EXPECT_EQ(text(layout, "display_event_name", 0), "boys 16");
    EXPECT_EQ(text(layout, "tnamedates", 0), "12-14 june 2027");
    EXPECT_EQ(text(layout, "timestamp", 0), "Monday, June 14, 2027 10:00:00");

    // Row 1 starts 20 twips above the foot of the head row.
    const auto* first = layout.find("round1", 1);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(std::vector<int>({ first->left, first->top, first->width, first->height }),
        std::vector<int>({ 75 + 945, 630 + 195 - 20, 2000, 270 }));
    EXPECT_EQ(layout.find("round1", 16)->top, 805 + 15 * 270);

    struct Expected
    {
        const char* name;
        int index;
        const char* text;
    };
    const Expected texts[] = {
        { "rownum", 1, "1" },
        { "infobit", 1, "NZL" },
        { "infobit2", 1, "(1)" },
        { "round1", 1, "player 1" },
        { "infobit", 2, "AUS" },
        { "infobit2", 2, "(2)" },
        { "infobit2", 3, "" },
        { "round1", 16, "bye" },
        { "round2", 1, "plr1" },
        { "round2sco", 1, "61 62 63 64" },
        { "round2", 7, "plr13" },
        { "round2", 8, "bye" },
        { "round3", 1, "plr1" },
        { "round3", 4, "plr13" },
        { "round4", 1, "" },
        { "header", 1, "round 1" },
        { "header", 2, "quaters" },
        { "header", 3, "semis" },
        { "header", 4, "final" },
        { "header", 5, "winner" },
    };
    for (const auto& e : texts)
        EXPECT_EQ(text(layout, e.name, e.index), e.text) << e.name << e.index;

    // The bracket of level 3 spans eight rows; its names stand a quarter and three quarters down it.
    const auto* box = layout.find("xround3", 1);
    EXPECT_EQ(std::vector<int>({ box->left, box->top, box->width, box->height }),
        std::vector<int>({ 75 + 945 + 2000 + 1500, 805, 1500, 8 * 270 }));
    EXPECT_EQ(layout.find("round3", 1)->top, 805 + 2 * 270 - 250);
    EXPECT_EQ(layout.find("round3sco", 2)->top, 805 + 6 * 270);
    EXPECT_EQ(layout.family("patch").size(), 8u);
    EXPECT_EQ(layout.find("patch", 1)->top, 805 + 270 - 20);
}

TEST_F(KoPictureTest, ChampionAndTheFinalsLine)
{
    ko_draw(1, "final four", 4, 4, 2);
    const auto layout = pictures(1).at(0).layout;
    EXPECT_EQ(text(layout, "round3", 1), "player 1");
    const auto* score = layout.find("round3sco", 1);
    EXPECT_EQ(score->text, "plr1 def plr3\n61 62 63 64");
    const auto* name = layout.find("round3", 1);
    EXPECT_EQ(score->top, name->bottom() + 250);
    EXPECT_EQ(score->height, 600);
}

// The halves of a split draw of 128: the second numbers its rows from 65 and shows the lower half's slots.
TEST_F(KoPictureTest, SplitHalvesOfA128)
{
    ko_draw(1, "big draw", 128, 128, 6);
    options.split128 = true;
    const auto made = pictures(1);
    ASSERT_EQ(made.size(), 2u);
    const auto& top = made[0].layout;
    const auto& lower = made[1].layout;
    EXPECT_EQ(made[0].print_size, -64);
    EXPECT_EQ(made[1].print_size, -64);
    EXPECT_EQ(text(top, "rownum", 1), "1");
    EXPECT_EQ(text(top, "rownum", 64), "64");
    EXPECT_EQ(text(lower, "rownum", 1), "65");
    EXPECT_EQ(text(lower, "rownum", 64), "128");
    EXPECT_EQ(text(top, "round1", 1), "player 1");
    EXPECT_EQ(text(lower, "round1", 1), "player 65");
    EXPECT_EQ(text(lower, "round2", 1), "plr65");
    // Each half shows its own finalist; the lower half's is the final's bottom slot.
    EXPECT_EQ(text(top, "round7", 1), "plr1");
    EXPECT_EQ(text(lower, "round7", 1), "plr65");
    EXPECT_EQ(top.family("rownum").size(), 64u);
    EXPECT_EQ(top.family("header").size(), 8u);
}

TEST_F(KoPictureTest, CountryColumnOffMovesEverythingLeft)
{
    ko_draw(1, "boys 16", 16, 16);
    const auto with = pictures(1).at(0).layout;
    options.country = false;
    const auto without = pictures(1).at(0).layout;
    EXPECT_EQ(without.width, with.width - 315);
    EXPECT_FALSE(without.find("infobit", 1)->visible);
    for (const auto* name : { "infobit2", "round1", "header", "xround2", "round2", "patch" })
        EXPECT_EQ(without.find(name, 1)->left, with.find(name, 1)->left - 315) << name;
    EXPECT_EQ(without.find("rownum", 1)->left, with.find("rownum", 1)->left);
    EXPECT_EQ(without.find("display_tname", 0)->width, with.find("display_tname", 0)->width - 315);
}

TEST_F(KoPictureTest, EventLabelsOverrideTheHeaders)
{
    ko_draw(1, "boys 16", 16, 16);
    db().run(R"(insert into rounds (eid, rid, pos, rname, caption) values (1, 1, 0, 'round1', 'first'),
        (1, 3, 0, 'semi_', 'halbfinale'), (1, 4, 0, 'final/winner', 'finale/sieger'))");
    const auto layout = pictures(1).at(0).layout;
    EXPECT_EQ(text(layout, "header", 1), "first");
    EXPECT_EQ(text(layout, "header", 2), "quaters");
    EXPECT_EQ(text(layout, "header", 3), "halbfinale");
    EXPECT_EQ(text(layout, "header", 4), "finale");
    EXPECT_EQ(text(layout, "header", 5), "sieger");
}

TEST_F(KoPictureTest, TimesShowWhereAndWhenAMatchIsToBePlayed)
{
    ko_draw(1, "boys 16", 16, 16);
    db().run(R"(update schedule set scheduledate='sat12jun27', nbat='nb ', matchtime='10:30', cid=3, matchnumber=2
        where eid=1 and "match"=1)");
    db().run(R"(update schedule set cid=-1 where eid=1 and "match"=2)");
    options.times = true;
    const auto layout = pictures(1).at(0).layout;
    EXPECT_EQ(text(layout, "round2sco", 1), "sat12jun27 nb 10:30 c3/m2");
    EXPECT_EQ(text(layout, "round2sco", 2), "- ? fa");
    EXPECT_EQ(text(layout, "round2sco", 3), "");
    options.times = false;
    EXPECT_EQ(text(pictures(1).at(0).layout, "round2sco", 1), "");
}

TEST(PictureFileName, NoBlanksNorApostrophes)
{
    EXPECT_EQ(draw_picture_file_name("men's open singles"), "draw_mensopensingles.gif");
    EXPECT_EQ(draw_picture_file_name("o'neil cup", "2"), "draw_oneilcup2.gif");
}

// What giflib decodes is the picture that was drawn, pixel for pixel, and the file is readable by others.
TEST_F(KoPictureTest, SavedGifDecodesToThePicture)
{
    ko_draw(1, "men's open", 32, 30, 1);
    const auto made = pictures(1);
    const auto saved = save_draw_pictures(made, dir.path());
    ASSERT_TRUE(saved.ok());
    ASSERT_EQ(saved.files.size(), 1u);
    EXPECT_EQ(saved.files[0].filename(), "draw_mensopen.gif");
    const auto decoded = read_gif(saved.files[0]);
    ASSERT_TRUE(decoded);
    const QImage drawn = scrape(made[0].layout);
    EXPECT_EQ(decoded->size(), drawn.size());
    EXPECT_EQ(*decoded, drawn.convertToFormat(QImage::Format_RGB32));
    const auto perms = std::filesystem::status(saved.files[0]).permissions();
    EXPECT_NE(perms & std::filesystem::perms::others_read, std::filesystem::perms::none);
}

TEST_F(KoPictureTest, OtherFormatsByTheExtension)
{
    ko_draw(1, "boys 8", 8, 8);
    const QImage image = scrape(pictures(1).at(0).layout);
    for (const char* name : { "d.png", "d.jpg", "d.bmp", "d.JPEG" }) {
        const auto file = dir.path() / name;
        EXPECT_EQ(PictureBoxToFile(image, file), PictureStatus::ok) << name;
        EXPECT_EQ(QImage(QString::fromStdString(file.string())).size(), image.size()) << name;
    }
    EXPECT_EQ(PictureBoxToFile(image, dir.path() / "d.tif"), PictureStatus::unknown_image_format);
    EXPECT_FALSE(std::filesystem::exists(dir.path() / "d.tif"));
    EXPECT_EQ(PictureBoxToFile(image, dir.path() / "no" / "d.gif"), PictureStatus::file_not_found);
    EXPECT_EQ(GdiErrorString(PictureStatus::unknown_image_format), "Unknown Image Format");
    EXPECT_EQ(GdiErrorString(21), "Unknown GDI+ Error");
}

TEST(GifFile, BrokenBytesAreNoPicture)
{
    test::ensure_gui_app();
    EXPECT_FALSE(decode_gif({}));
    EXPECT_FALSE(decode_gif({ 'G', 'I', 'F', '8', '9', 'a', 10, 0 }));
    QImage colours(300, 2, QImage::Format_RGB32);
    for (int x = 0; x < 300; ++x)
        for (int y = 0; y < 2; ++y)
            colours.setPixel(x, y, qRgb(x % 256, (x * 7) % 256, y * 100));
    auto bytes = encode_gif(colours);
    ASSERT_FALSE(bytes.empty());
    const auto decoded = decode_gif(bytes);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->size(), colours.size());
    bytes.resize(bytes.size() / 2);
    EXPECT_FALSE(decode_gif(bytes));
}

} // namespace
} // namespace qv
