#include "core/session.h"
#include "documents/makedrawpic_new.h"
#include "documents/picture_file.h"
#include "documents/picture_render.h"
#include "support/saved_draws.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/load_draw_gif_window.h"
#include "ui/main_window.h"
#include "ui/print_setup_window.h"
#include "ui/prints_area.h"
#include "ui_test_support.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;
using test::line_of;

QStringList lines_of(const QListWidget* list)
{
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts << list->item(row)->text();
    return texts;
}

void click_line(QListWidget* list, const QString& text)
{
    const auto found = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << text.toStdString();
    emit list->itemClicked(found.front());
}

void screenshot(QWidget* widget, const char* name)
{
    widget->grab().save(QString::fromLatin1(QV_SCREENSHOT_DIR) + QStringLiteral("/") + QString::fromLatin1(name));
}

class PrintsWindowsTest : public ::testing::Test
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
        auto& session = window.session();
        session.settings().set_tournament_cache(session.tournament(), "itname", "city open championships");
        test::save_ko_draw(session, 1, "boys 16", 16, 14, 2);
        test::save_rr_draw(session, 2, "group a", 5, 2, 6);
        test::save_ko_draw(session, 3, "open 128", 128, 128, 1);
        talk.clear();
    }

    PrintsArea* prints_area()
    {
        window.session().toolbar_click(Area::prints);
        return qobject_cast<PrintsArea*>(window.current_page());
    }
};

TEST_F(PrintsWindowsTest, PrintsAreaListsTheDrawsAndSavesImages)
{
    auto* area = prints_area();
    ASSERT_NE(area, nullptr);
    area->load_draws();
    EXPECT_EQ(lines_of(area->draw_list()), (QStringList { "(1)boys 16", "(2)group a", "(3)open 128" }));
    screenshot(&window, "prints_area.png");

    // Nothing selected: the refusal, and nothing else asked.
    click_line(area->action_list(), QStringLiteral("save images"));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "select at least 1 draw" });

    area->findChild<QPushButton*>(QStringLiteral("select all"))->click();
    EXPECT_EQ(area->draw_list()->selectedItems().size(), 3);
    area->tick("split128")->setChecked(true);
    EXPECT_EQ(window.session().settings().integer("psd.check1"), 1);
    const auto folder = dir.path() / "images";
    fs::create_directories(folder);
    talk.clear();
    talk.files.push_back({ folder });
    click_line(area->action_list(), QStringLiteral("save images"));
    EXPECT_EQ(talk.last_message(), "draw images available in " + folder.string());
    for (const char* name : { "draw_boys16.gif", "draw_groupa.gif", "draw_open1281.gif", "draw_open1282.gif" })
        EXPECT_TRUE(fs::exists(folder / name)) << name;

    area->findChild<QPushButton*>(QStringLiteral("unselect all"))->click();
    area->draw_list()->item(0)->setSelected(true);
    area->copies()->setText(QStringLiteral("x"));
    talk.clear();
    area->findChild<QPushButton*>(QStringLiteral("print"))->click();
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "enter number of copies to print" });
    area->copies()->setText(QStringLiteral("1"));
    talk.pdf_printers.push_back(dir.path() / "boys16.pdf");
    EXPECT_TRUE(area->print());
    EXPECT_GT(fs::file_size(dir.path() / "boys16.pdf"), 1000u);
}

TEST_F(PrintsWindowsTest, PrintConfigurationWindow)
{
    auto* entry = line_of(window, "options", "print config");
    ASSERT_NE(entry, nullptr);
    entry->trigger();
    auto* setup = window.findChild<PrintSetupWindow*>();
    ASSERT_NE(setup, nullptr);
    EXPECT_EQ(setup->windowTitle(), "print configuration");

    setup->choose_kind(QStringLiteral("ko16"));
    EXPECT_EQ(lines_of(setup->config_list()),
        (QStringList { "landscape  system ko16 landscape", "portrait  system ko16 portrait  (default)" }));
    setup->config_list()->setCurrentRow(1);
    EXPECT_EQ(setup->note()->text(), "system config, cannot edit");
    EXPECT_FALSE(setup->button("save")->isEnabled());
    EXPECT_EQ(setup->field("width%")->text(), "90");

    // A picture to place: the draw of 16 as it would be saved.
    PictureOptions options;
    setup->set_picture(scrape(makepic1(window.session(), DrawStore::tournament, 1, options).at(0).layout));
    setup->button("right")->click();
    EXPECT_EQ(setup->field("left%")->text(), "10");
    setup->findChild<QCheckBox*>()->setChecked(true);
    setup->button("width-")->click();
    EXPECT_EQ(setup->field("width%")->text(), "89");
    screenshot(setup, "print_setup.png");

    setup->field("name")->setText(QString());
    talk.clear();
    setup->save_as();
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "custom configuration requires a name" });

    setup->field("name")->setText(QStringLiteral("club board"));
    setup->field("top%")->setText(QStringLiteral("8"));
    setup->apply_fields();
    talk.clear();
    setup->save_as();
    EXPECT_TRUE(talk.messages().empty());
    EXPECT_EQ(setup->config_list()->count(), 3);
    EXPECT_EQ(setup->config_list()->currentItem()->text(), "portrait  club board");
    EXPECT_TRUE(setup->button("save")->isEnabled());
    setup->set_as_default();
    EXPECT_EQ(setup->config_list()->currentItem()->text(), "portrait  club board  (default)");
    setup->remove();
    EXPECT_EQ(lines_of(setup->config_list()),
        (QStringList { "landscape  system ko16 landscape", "portrait  system ko16 portrait  (default)" }));

    talk.pdf_printers.push_back(dir.path() / "setup.pdf");
    setup->print();
    EXPECT_TRUE(fs::exists(dir.path() / "setup.pdf"));
    setup->clear_pic();
    talk.clear();
    setup->print();
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "no image to print" });
    EXPECT_EQ(setup->field("height%")->text(), "0");
    setup->close();
}

TEST_F(PrintsWindowsTest, LoadDrawGifPrintsByTheNamedKind)
{
    PictureOptions options;
    const auto saved = save_draw_pictures(makepic1(window.session(), DrawStore::tournament, 2, options), dir.path());
    ASSERT_TRUE(saved.ok());
    auto* entry = line_of(window, "tools", "load draw gif");
    ASSERT_NE(entry, nullptr);
    entry->trigger();
    auto* viewer = window.findChild<LoadDrawGifWindow*>();
    ASSERT_NE(viewer, nullptr);

    talk.files.push_back({ dir.path() / "gone.gif" });
    viewer->open_gif_draw();
    EXPECT_EQ(talk.last_message(), "file not found: " + (dir.path() / "gone.gif").string());
    talk.files.push_back({ saved.files.front() });
    viewer->open_gif_draw();
    EXPECT_EQ(viewer->picture().width(), 640);
    screenshot(viewer, "load_draw_gif.png");

    talk.clear();
    viewer->print();
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "must specify drawtype/size" });
    viewer->kind_list()->setCurrentText(QStringLiteral("rr5"));
    talk.pdf_printers.push_back(dir.path() / "gif.pdf");
    viewer->print();
    EXPECT_TRUE(fs::exists(dir.path() / "gif.pdf"));
    viewer->close();
}

} // namespace
} // namespace qv
