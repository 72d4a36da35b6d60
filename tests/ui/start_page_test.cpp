// The main window before a tournament is open and after one is closed: the start page and the title.
#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/main_window.h"
#include "ui/start_page.h"
#include "ui_test_support.h"

#include <QCommandLinkButton>
#include <QLabel>
#include <QToolButton>

#include <filesystem>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

class StartPageTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    fs::path file = dir.new_tournament();
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.resize(1000, 650);
        window.show();
        // A fresh installation: no file was opened last.
        window.session().boot_start_app("");
        ASSERT_FALSE(window.session().has_tournament());
    }

    Session& session() { return window.session(); }
    StartPage& start() { return *window.start_page(); }
    QStringList recent() const
    {
        QStringList shown;
        for (auto* button : window.start_page()->recent_buttons())
            shown << button->text() + " | " + button->description();
        return shown;
    }
    // Opening runs as a restart, from the main loop.
    bool opened()
    {
        return test::run_main_loop_until([this] { return session().has_tournament(); });
    }
    bool no_area_button_enabled() const
    {
        for (Area area : toolbar_order)
            if (window.area_button(area)->isEnabled())
                return false;
        return true;
    }
};

TEST_F(StartPageTest, WithNoTournamentTheStartPageOffersNewOpenAndTheFilesOpenedLast)
{
    EXPECT_EQ(window.windowTitle(), "quorvelin");
    EXPECT_EQ(window.current_page(), window.start_page());
    EXPECT_EQ(start().new_button()->text(), "new tournament");
    EXPECT_EQ(start().open_button()->text(), "open tournament");
    EXPECT_FALSE(start().no_recent_label()->isHidden());
    EXPECT_TRUE(recent().isEmpty());
    EXPECT_TRUE(no_area_button_enabled()) << "the areas need a tournament, and look it";

    talk.files.push_back({ file });
    start().open_button()->click();
    ASSERT_TRUE(opened());
    EXPECT_EQ(window.windowTitle(), "quorvelin - t.qvd");
    EXPECT_EQ(window.current_page(), window.area_page(Area::draw));
    EXPECT_TRUE(window.area_button(Area::mainform)->isEnabled());

    // Closed: the title and the page follow, and the file heads the list.
    session().menu_close();
    EXPECT_FALSE(session().has_tournament());
    EXPECT_EQ(window.windowTitle(), "quorvelin");
    EXPECT_EQ(window.current_page(), window.start_page());
    EXPECT_TRUE(no_area_button_enabled());
    EXPECT_EQ(recent(), QStringList { "t.qvd | " + QString::fromStdString(file.string()) });
    EXPECT_TRUE(start().no_recent_label()->isHidden());
    EXPECT_TRUE(window.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/start_page.png")));

    // A new tournament goes to the top; the list opens a file in one click.
    const auto second = dir.path() / "club.qvd";
    talk.files.push_back({ second });
    start().new_button()->click();
    ASSERT_TRUE(opened());
    EXPECT_EQ(window.windowTitle(), "quorvelin - club.qvd");
    session().menu_close();
    ASSERT_EQ(recent().size(), 2);
    EXPECT_TRUE(recent()[0].startsWith("club.qvd | "));
    start().recent_buttons()[1]->click();
    ASSERT_TRUE(opened());
    EXPECT_EQ(session().current_file_path(), file.string());

    // A file of the list that has gone says so, and the start page stays.
    session().menu_close();
    fs::remove(second);
    talk.clear();
    start().recent_buttons()[1]->click();
    test::run_main_loop_until([this] { return !talk.messages().empty(); });
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "file not found:" + second.string() });
    EXPECT_EQ(window.current_page(), window.start_page());
    EXPECT_EQ(window.windowTitle(), "quorvelin");
}

} // namespace
} // namespace qv
