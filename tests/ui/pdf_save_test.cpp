#include "core/session.h"
#include "core/settings.h"
#include "support/saved_draws.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/main_window.h"
#include "ui/pdf_printer.h"
#include "ui/prints_area.h"
#include "ui/schedule_board.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinter>
#include <QPushButton>

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <regex>

namespace qv {
namespace {

namespace fs = std::filesystem;

std::string run(const std::string& command)
{
    std::string out;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        std::array<char, 512> buffer {};
        while (std::fgets(buffer.data(), buffer.size(), pipe))
            out += buffer.data();
        ::pclose(pipe);
    }
    return out;
}

// What pdfinfo tells of a PDF: its page count and each page's size in points.
struct PdfInfo
{
    int pages = 0;
    std::vector<std::pair<double, double>> sizes;
    std::string title;
};

PdfInfo pdfinfo(const fs::path& file)
{
    PdfInfo info;
    const auto text = run("pdfinfo -f 1 -l 999 '" + file.string() + "' 2>&1");
    std::smatch found;
    if (std::regex_search(text, found, std::regex(R"(Pages:\s+(\d+))")))
        info.pages = std::stoi(found[1]);
    if (std::regex_search(text, found, std::regex(R"(Title:\s+(.*))")))
        info.title = found[1];
    static const std::regex size(R"(Page\s+\d+ size:\s+([0-9.]+) x ([0-9.]+) pts)");
    for (auto it = std::sregex_iterator(text.begin(), text.end(), size); it != std::sregex_iterator(); ++it)
        info.sizes.emplace_back(std::stod((*it)[1]), std::stod((*it)[2]));
    return info;
}

// The page size a PDF printer writes by default, in points, portrait.
std::pair<double, double> default_page()
{
    QPrinter printer(QPrinter::HighResolution);
    const auto size = printer.pageLayout().pageSize().size(QPageSize::Point);
    return { size.width(), size.height() };
}

// The first page as a picture for the record.
void render_first_page(const fs::path& pdf, const std::string& name)
{
    const auto out = fs::path(QV_SCREENSHOT_DIR) / name;
    run("pdftoppm -png -r 50 -f 1 -l 1 -singlefile '" + pdf.string() + "' '" + out.string() + "'");
}

class PdfSaveTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.resize(1100, 700);
        window.show();
        window.session().boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(window.session().has_tournament());
        window.session().tournament().exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        test::save_ko_draw(window.session(), 1, "boys 32", 32, 30, 2);
        test::save_rr_draw(window.session(), 2, "group a", 5, 2, 6);
        window.session().settings().apply_disk_var("on_file_save", "3");
        talk.clear();
    }

    PrintsArea* prints_area()
    {
        window.session().toolbar_click(Area::prints);
        auto* area = qobject_cast<PrintsArea*>(window.current_page());
        area->load_draws();
        return area;
    }
};

TEST_F(PdfSaveTest, ThePrintsAreaPutsEveryChosenDrawInOnePdf)
{
    auto* area = prints_area();
    auto* button = area->findChild<QPushButton*>(QStringLiteral("save_pdf"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), QStringLiteral("save as PDF"));
    button->click();
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "select at least 1 draw" });

    // One draw: its page by the default configuration of a 32 draw (portrait), named after the event.
    area->draw_list()->item(0)->setSelected(true);
    area->copies()->setText(QStringLiteral("3")); // copies are for paper: a PDF holds each page once
    const auto one = dir.path() / "boys32.pdf";
    talk.clear();
    talk.files.push_back({ one });
    button->click();
    EXPECT_EQ(talk.said.front().text, "draw_boys32.pdf");
    EXPECT_EQ(talk.last_message(), one.string());
    const auto info = pdfinfo(one);
    EXPECT_EQ(info.pages, 1);
    ASSERT_EQ(info.sizes.size(), 1u);
    EXPECT_NEAR(info.sizes[0].first, default_page().first, 1);
    EXPECT_NEAR(info.sizes[0].second, default_page().second, 1);
    EXPECT_EQ(info.title, "Print draws");
    render_first_page(one, "pdf_draw32");

    // Both draws: one page each, in the list's order.
    area->draw_list()->item(1)->setSelected(true);
    const auto both = dir.path() / "both.pdf";
    talk.clear();
    talk.files.push_back({ both });
    button->click();
    EXPECT_EQ(talk.said.front().text, "draws.pdf");
    EXPECT_EQ(pdfinfo(both).pages, 2);

    // Cancelled: nothing written.
    talk.clear();
    button->click();
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(PdfSaveTest, TheDrawAreaSavesTheOpenDraw)
{
    auto* area = window.draw_area();
    auto* button = area->button(QStringLiteral("save as PDF"));
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_EQ(talk.last_message(), "select event");

    ASSERT_TRUE(area->choose_event(2));
    const auto file = dir.path() / "group.pdf";
    talk.files.push_back({ file });
    button->click();
    const auto info = pdfinfo(file);
    EXPECT_EQ(info.pages, 1);
    ASSERT_EQ(info.sizes.size(), 1u);
    EXPECT_LT(info.sizes[0].first, info.sizes[0].second); // rr5 prints portrait by default
}

TEST_F(PdfSaveTest, LinesOfADocumentGoOverPagesInTheirOrientation)
{
    auto& session = window.session();
    std::vector<std::string> lines;
    for (int i = 1; i <= 150; ++i)
        lines.push_back("line " + std::to_string(i) + "\tcentre court\t10:30");
    struct Case
    {
        const char* orientation;
        bool landscape;
    };
    for (const auto& c : { Case { "p", false }, Case { "l", true } }) {
        const auto file = dir.path() / (std::string("lines_") + c.orientation + ".pdf");
        talk.files.push_back({ file });
        ASSERT_TRUE(save_lines_as_pdf(session, lines, c.orientation, "order of play", "order_of_play.pdf"));
        const auto info = pdfinfo(file);
        EXPECT_GT(info.pages, c.landscape ? 3 : 2) << c.orientation;
        ASSERT_FALSE(info.sizes.empty());
        for (const auto& [width, height] : info.sizes)
            EXPECT_EQ(width > height, c.landscape) << c.orientation;
    }
    render_first_page(dir.path() / "lines_p.pdf", "pdf_lines");
    // Tabs jump to their stops on the page, the text behind them kept.
    const auto text = run("pdftotext -layout -l 1 '" + (dir.path() / "lines_p.pdf").string() + "' -");
    EXPECT_TRUE(std::regex_search(text, std::regex(R"(line 1 +centre court +10:30)"))) << text.substr(0, 300);

    // A folder that is not there: the file cannot be written.
    const auto nowhere = dir.path() / "gone" / "x.pdf";
    talk.files.push_back({ nowhere });
    EXPECT_FALSE(save_lines_as_pdf(session, lines, "p", "order of play", "order_of_play.pdf"));
    EXPECT_EQ(talk.last_message(), "cannot write file:" + nowhere.string());
}

TEST_F(PdfSaveTest, TheBoardsListChooserSavesAListAsPdf)
{
    auto& board = *static_cast<ScheduleBoardArea*>(window.area_page(Area::schedule));
    board.init();
    auto* chooser = board.panel(BoardListId::unscheduled).chooser;
    ASSERT_GE(chooser->findText(QStringLiteral("save as PDF(l)")), 0);
    const auto file = dir.path() / "unscheduled.pdf";
    talk.clear();
    talk.files.push_back({ file });
    emit chooser->activated(chooser->findText(QStringLiteral("save as PDF(l)")));
    EXPECT_EQ(talk.said.front().text, "unscheduled.pdf");
    const auto info = pdfinfo(file);
    EXPECT_GE(info.pages, 1);
    ASSERT_FALSE(info.sizes.empty());
    EXPECT_GT(info.sizes[0].first, info.sizes[0].second);
    EXPECT_EQ(info.title, "unscheduled");
}

} // namespace
} // namespace qv
