#include "documents/draw_fixture.h"
#include "documents/makedrawpic_new.h"
#include "documents/pdf_pages.h"
#include "documents/printroutines.h"

namespace qv {
namespace {

class PrintRoutinesTest : public test::DrawFixture
{
protected:
    std::filesystem::path pdf(const std::string& name)
    {
        const auto file = dir.path() / name;
        talk.pdf_printers.push_back(file);
        return file;
    }

    DrawPicture picture(std::int64_t eid)
    {
        PictureOptions options;
        return makepic1(session, DrawStore::tournament, eid, options).at(0);
    }
};

// A draw of 32 by its default configuration: one page, in the configuration's orientation.
TEST_F(PrintRoutinesTest, ThirtyTwoDrawOnOnePage)
{
    ko_draw(1, "open 32", 32, 29, 3);
    const auto drawn = picture(1);
    const PrintKind kind { drawn.drawtype, drawn.print_size };

    const auto portrait = pdf("ko32_portrait.pdf");
    EXPECT_TRUE(print_with_printer(session, "Print draws",
        [&](PrintJob& job) { EXPECT_TRUE(print_picture_by_config(session, job, printable(drawn.layout), kind, 1)); }));
    auto pages = test::pdf_pages(portrait);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_FALSE(pages[0].landscape());
    std::filesystem::copy_file(portrait, std::filesystem::path(QV_SCREENSHOT_DIR) / "ko32_portrait.pdf",
        std::filesystem::copy_options::overwrite_existing);

    session.init_db().run(R"(update prints set "default"='' where drawsize=32 and drawtype='ko')");
    session.init_db().run(R"(update prints set "default"='default' where name='system ko32 landscape')");
    const auto landscape = pdf("ko32_landscape.pdf");
    EXPECT_TRUE(print_with_printer(session, "Print draws",
        [&](PrintJob& job) { print_picture_by_config(session, job, printable(drawn.layout), kind, 2); }));
    pages = test::pdf_pages(landscape);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_TRUE(pages[0].landscape());
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(PrintRoutinesTest, KindWithoutDefaultPrintsNothingAndSaysNothing)
{
    ko_draw(1, "open 8", 8, 8);
    session.init_db().run(R"(update prints set "default"='' where drawsize=8 and drawtype='ko')");
    const auto file = pdf("none.pdf");
    EXPECT_FALSE(print_with_printer(session, "Print draws", [&](PrintJob& job) {
        EXPECT_FALSE(print_picture_by_config(session, job, printable(picture(1).layout), PrintKind { "ko", 8 }, 1));
    }));
    EXPECT_TRUE(talk.messages().empty());
    EXPECT_FALSE(std::filesystem::exists(file) && std::filesystem::file_size(file) > 0);
}

TEST_F(PrintRoutinesTest, CancelledDialogPrintsNothing)
{
    bool ran = false;
    EXPECT_FALSE(print_with_printer(session, "Print draws", [&](PrintJob&) { ran = true; }));
    EXPECT_FALSE(ran);
    EXPECT_TRUE(talk.messages().empty());
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "printer");
}

TEST_F(PrintRoutinesTest, PrinterThatFailsSaysPrintError)
{
    talk.pdf_printers.push_back(dir.path() / "no such folder" / "x.pdf");
    EXPECT_FALSE(print_lines(session, { "a line" }, "p", "title"));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "print error" });
}

// Text lines run over as many pages as they need, in the orientation asked for.
TEST_F(PrintRoutinesTest, TextLinesInLandscapeAndPortrait)
{
    std::vector<std::string> lines;
    for (int i = 1; i <= 120; ++i)
        lines.push_back("line\t" + std::to_string(i));
    const auto landscape = pdf("lines_l.pdf");
    EXPECT_TRUE(print_lines(session, lines, "l", "schedule"));
    const auto portrait = pdf("lines_p.pdf");
    EXPECT_TRUE(print_lines(session, lines, "p", "schedule"));
    const auto l_pages = test::pdf_pages(landscape);
    const auto p_pages = test::pdf_pages(portrait);
    ASSERT_GE(l_pages.size(), 2u);
    EXPECT_TRUE(l_pages[0].landscape());
    EXPECT_FALSE(p_pages.at(0).landscape());
    EXPECT_LT(p_pages.size(), l_pages.size());
}

} // namespace
} // namespace qv
