#include "documents/draw_fixture.h"
#include "documents/gif_file.h"
#include "documents/load_draw_gif.h"
#include "documents/pdf_pages.h"
#include "documents/print_save_draws.h"

#include <fstream>

namespace qv {
namespace {

class PrintSaveDrawsTest : public test::DrawFixture
{
protected:
    std::filesystem::path folder;

    void SetUp() override
    {
        DrawFixture::SetUp();
        folder = dir.path() / "out";
        std::filesystem::create_directories(folder);
        ko_draw(1, "boys 16", 16, 12, 1);
        ko_draw(2, "men's open", 128, 120, 2);
        rr_draw(3, "group a", 4, 2, 3);
        add_event(4, "no draw yet", "ko");
    }

    static std::vector<std::string> names(const std::filesystem::path& in)
    {
        std::vector<std::string> out;
        for (const auto& entry : std::filesystem::directory_iterator(in))
            out.push_back(entry.path().filename().string());
        std::sort(out.begin(), out.end());
        return out;
    }
};

TEST_F(PrintSaveDrawsTest, TheDrawsThatExist)
{
    std::vector<std::string> lines;
    for (const auto& line : events_drawdone_draws(db()))
        lines.push_back(line.text);
    EXPECT_EQ(lines, (std::vector<std::string> { "(1)boys 16", "(2)men's open", "(3)group a" }));
}

TEST_F(PrintSaveDrawsTest, Refusals)
{
    PrintsChoice none;
    EXPECT_FALSE(prints_print(session, none));
    EXPECT_FALSE(prints_save_images(session, none));
    EXPECT_FALSE(prints_save_text(session, none));
    EXPECT_EQ(talk.messages(), std::vector<std::string>(3, "select at least 1 draw"));
    for (const char* copies : { "", "0", "two", "1.5", "100" }) {
        talk.clear();
        PrintsChoice choice;
        choice.eids = { 1 };
        choice.copies = copies;
        EXPECT_FALSE(prints_print(session, choice)) << copies;
        EXPECT_EQ(talk.messages(), std::vector<std::string> { "enter number of copies to print" }) << copies;
    }
    EXPECT_TRUE(names(folder).empty());
}

TEST_F(PrintSaveDrawsTest, SaveImagesSplitsTheDrawOf128)
{
    PrintsChoice choice;
    choice.eids = { 1, 2, 3 };
    choice.split128 = true;
    talk.files.push_back({ folder });
    EXPECT_TRUE(prints_save_images(session, choice));
    EXPECT_EQ(names(folder),
        (std::vector<std::string> {
            "draw_boys16.gif", "draw_groupa.gif", "draw_mensopen1.gif", "draw_mensopen2.gif" }));
    EXPECT_EQ(talk.said.at(0).title, "save images to...");
    EXPECT_EQ(talk.last_message(), "draw images available in " + folder.string());
    const auto half = read_gif(folder / "draw_mensopen2.gif");
    ASSERT_TRUE(half);
    EXPECT_EQ(half->height(), 1266);
}

TEST_F(PrintSaveDrawsTest, SaveImagesIntoAFolderThatWillNotTakeThem)
{
    PrintsChoice choice;
    choice.eids = { 1 };
    talk.files.push_back({ folder / "gone" });
    EXPECT_FALSE(prints_save_images(session, choice));
    ASSERT_EQ(talk.said.back().kind, "message");
    EXPECT_EQ(talk.said.back().text, "File Not Found");
    EXPECT_EQ(talk.said.back().title, "draw_boys16.gif");
}

TEST_F(PrintSaveDrawsTest, SaveTextWritesATextDrawPerEvent)
{
    PrintsChoice choice;
    choice.eids = { 1, 3 };
    talk.files.push_back({ folder });
    EXPECT_TRUE(prints_save_text(session, choice));
    EXPECT_EQ(talk.said.at(0).title, "save text draws to...");
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(names(folder), (std::vector<std::string> { "textdraw_boys16.txt", "textdraw_groupa.txt" }));
    std::ifstream ko(folder / "textdraw_boys16.txt");
    std::string first;
    std::getline(ko, first);
    EXPECT_EQ(first, "boys 16\r");
}

// Every selected draw on its own page, the halves of the 128 on two, each copy again.
TEST_F(PrintSaveDrawsTest, PrintGoesPagePerPicture)
{
    PrintsChoice choice;
    choice.eids = { 1, 2, 3 };
    choice.split128 = true;
    choice.copies = "2";
    const auto file = dir.path() / "draws.pdf";
    talk.pdf_printers.push_back(file);
    EXPECT_TRUE(prints_print(session, choice));
    EXPECT_EQ(test::pdf_pages(file).size(), 8u);
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(PrintSaveDrawsTest, LoadDrawGifRefusals)
{
    EXPECT_FALSE(read_gif_draw(session, folder / "missing.gif"));
    EXPECT_EQ(talk.last_message(), "file not found: " + (folder / "missing.gif").string());
    std::ofstream(folder / "broken.gif") << "GIF89a not really";
    EXPECT_FALSE(read_gif_draw(session, folder / "broken.gif"));
    EXPECT_EQ(talk.last_message(), "cannot read gif file: " + (folder / "broken.gif").string());

    QImage picture(100, 200, QImage::Format_RGB32);
    picture.fill(Qt::white);
    EXPECT_FALSE(print_draw_gif(session, picture, ""));
    EXPECT_EQ(talk.last_message(), "must specify drawtype/size");
    EXPECT_FALSE(print_draw_gif(session, picture, "ko3"));
    EXPECT_EQ(talk.last_message(), "drawtype/size not recognized");

    talk.clear();
    const auto pdf = dir.path() / "gif.pdf";
    talk.pdf_printers.push_back(pdf);
    EXPECT_TRUE(print_draw_gif(session, picture, "rr5"));
    EXPECT_EQ(test::pdf_pages(pdf).size(), 1u);
    EXPECT_TRUE(talk.messages().empty());
}

} // namespace
} // namespace qv
