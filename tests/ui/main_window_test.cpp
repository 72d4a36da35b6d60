#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/clear_data_dialog.h"
#include "ui/colors.h"
#include "ui/command_table.h"
#include "ui/control_panel.h"
#include "ui/events_windows.h"
#include "ui/main_window.h"
#include "ui/toolbar_windows.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QToolButton>

#include <filesystem>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;
using test::line_of;
using test::menu_lines;
using test::menu_of;

class MainWindowTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    fs::path file = dir.new_tournament();
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.resize(1100, 700);
        window.show();
        window.session().boot_start_app(file.string());
        ASSERT_TRUE(window.session().has_tournament());
    }

    Session& session() { return window.session(); }
    TournamentArea& area() { return *window.tournament_area(); }
    QColor setting_color(const char* key) { return color_from_setting(session().settings().text(key)); }

    // A restart runs from the main loop, after the operation that asked for it has returned.
    void finish_restart()
    {
        int loads = 0;
        auto counter = QObject::connect(&window, &MainWindow::formsLoaded, [&loads] { ++loads; });
        EXPECT_TRUE(test::run_main_loop_until([&loads] { return loads > 0; }));
        QObject::disconnect(counter);
        EXPECT_TRUE(session().has_tournament());
    }

    void add_entries()
    {
        auto& db = session().tournament();
        db.run("insert into events (eid, eventname, drawdone) values (1, 'mens singles', 1), (2, 'mixed doubles', 0)");
        db.run("insert into players (pid, player, fname) values (1, 'bob jones', 'bob'), (2, 'ann smith', 'ann')");
        db.run(R"(insert into evententries (ent_idx, eid, en, player, reserve) values
            (1, 1, 'mens singles', 'ann smith', 0), (2, 1, 'mens singles', 'bob jones', 1))");
        db.run(R"(insert into rawdoublesentries (rdidx, eid, en, player, partnername) values
            (1, 2, 'mixed doubles', 'ann smith', 'preq preq'))");
    }
};

TEST_F(MainWindowTest, BootShowsToolbarDrawAreaAndTitle)
{
    QStringList captions;
    for (Area a : toolbar_order)
        captions << window.area_button(a)->text();
    EXPECT_EQ(captions,
        QStringList({ "tournament", "schedule", "assistant", "draws", "documents", "online", "prints", "payments" }));
    EXPECT_EQ(window.match_count_button()->text(), "mc");
    EXPECT_EQ(window.match_count_button()->toolTip(), "match counts");
    EXPECT_EQ(window.windowTitle(), "quorvelin - t.qvd");

    EXPECT_EQ(session().current_area(), Area::draw);
    EXPECT_EQ(window.current_page(), window.area_page(Area::draw));
    for (Area a : marker_order)
        EXPECT_EQ(window.marker_color(a), a == Area::draw ? setting_color("current_marker_color") : regular_grey())
            << area_name(a);
}

TEST_F(MainWindowTest, ToolbarSwitchesAreasAndPaintsMarkers)
{
    ASSERT_EQ(session().settings().integer("app.usefootprint"), 1);
    window.area_button(Area::mainform)->click();
    EXPECT_EQ(session().current_area(), Area::mainform);
    EXPECT_EQ(window.current_page(), window.area_page(Area::mainform));
    EXPECT_EQ(window.marker_color(Area::mainform), setting_color("current_marker_color"));
    EXPECT_EQ(window.marker_color(Area::draw), setting_color("footprint_color"));
    EXPECT_NE(setting_color("current_marker_color"), setting_color("footprint_color"));
    EXPECT_EQ(window.marker_color(Area::schedule), regular_grey());

    session().settings().set_disk_var("app.usefootprint", "0");
    window.area_button(Area::schedule)->click();
    EXPECT_EQ(window.current_page(), window.area_page(Area::schedule));
    EXPECT_EQ(window.marker_color(Area::schedule), setting_color("current_marker_color"));
    EXPECT_EQ(window.marker_color(Area::mainform), regular_grey()) << "no footprint when switched off";
    EXPECT_EQ(window.marker_color(Area::draw), regular_grey());
}

TEST_F(MainWindowTest, RefreshShowsEventsEntriesPlayersAndCounts)
{
    window.area_button(Area::mainform)->click();
    add_entries();
    EXPECT_EQ(area().events()->count(), 0) << "lists show what they last read until refreshed";
    area().refresh_button()->click();

    EXPECT_EQ(test::lines_of(area().events()), QStringList({ "*(1)mens singles", "(2)mixed doubles" }));
    EXPECT_EQ(test::lines_of(area().players()), QStringList({ "ann smith", "bob jones" }));
    EXPECT_EQ(area().event_count(), "2");
    EXPECT_EQ(area().entry_count(), "3");

    test::select_line(area().events(), "*(1)mens singles");
    EXPECT_EQ(test::lines_of(area().entries()), QStringList({ "ann smith" }));
    area().entry_button(EntryList::reserve)->click();
    EXPECT_EQ(test::lines_of(area().entries()), QStringList({ "bob jones" }));
    test::select_line(area().events(), "(2)mixed doubles");
    area().entry_button(EntryList::raw_doubles)->click();
    EXPECT_EQ(test::lines_of(area().entries()), QStringList({ "ann smith/(partner required)" }));

    test::select_line(area().players(), "ann smith");
    EXPECT_EQ(test::lines_of(area().player_events_list()), QStringList({ "mens singles", "raw: mixed doubles" }));
    EXPECT_EQ(area().player_event_count(), "2");

    const fs::path shots(QV_SCREENSHOT_DIR);
    fs::create_directories(shots);
    EXPECT_TRUE(window.grab().save(QString::fromStdString((shots / "mainwindow.png").string())));
}

TEST_F(MainWindowTest, ClearDataRemembersTicksClearsAndRestarts)
{
    add_entries();
    QPointer<ClearDataDialog> dialog = area().open_clear_data();
    ASSERT_TRUE(dialog);
    QStringList captions;
    for (int i = 0; i < 5; ++i) {
        captions << dialog->box(i)->text();
        EXPECT_FALSE(dialog->box(i)->isChecked());
    }
    EXPECT_EQ(captions,
        QStringList({ "delete players and entries", "delete events and entries", "delete entries", "delete days",
            "delete details" }));

    dialog->box(0)->setChecked(true);
    EXPECT_EQ(session().init_db().scalar_text("select value from disk_vars where nm='cdata_1'"), "1");

    auto* button = dialog->findChild<QPushButton*>();
    ASSERT_TRUE(button);
    EXPECT_EQ(button->text(), "clear data");
    button->click(); // answered No: nothing changes, the window stays
    EXPECT_EQ(session().tournament().row_count("players"), 2);
    EXPECT_TRUE(dialog->isVisible());

    talk.answers.push_back(Answer::Yes);
    button->click();
    finish_restart();
    EXPECT_TRUE(dialog.isNull()) << "the window closes itself before the restart";
    EXPECT_EQ(talk.said.back().text, "This will clear data from the current tournament file?");
    EXPECT_EQ(session().current_area(), Area::draw);

    window.area_button(Area::mainform)->click();
    EXPECT_EQ(area().players()->count(), 0);
    EXPECT_EQ(test::lines_of(area().events()), QStringList({ "(1)mens singles", "(2)mixed doubles" }))
        << "events stay, their draws go";
    EXPECT_EQ(area().entry_count(), "0");

    // The tick outlives the window and the restart.
    QPointer<ClearDataDialog> again = area().open_clear_data();
    EXPECT_TRUE(again->box(0)->isChecked());
    EXPECT_FALSE(again->box(1)->isChecked());
    again->close();
}

TEST_F(MainWindowTest, ControlPanelRefusesAndSelectsTheBadCharacterThenRestarts)
{
    QPointer<ControlPanel> panel = window.open_control_panel();
    ASSERT_TRUE(panel);
    EXPECT_EQ(panel->word_box(0)->text(), "court");
    panel->sports()->setCurrentRow(1);
    EXPECT_EQ(panel->word_box(0)->text(), "tee");
    EXPECT_EQ(panel->word_box(2)->text(), "tees");

    panel->word_box(0)->setText("Court");
    panel->save_button()->click();
    EXPECT_EQ(talk.last_message(), "illegal character");
    EXPECT_EQ(panel->word_box(0)->selectionStart(), 0);
    EXPECT_EQ(panel->word_box(0)->selectedText(), "C");
    EXPECT_EQ(session().settings().text("app.generic_court"), "court");

    panel->word_box(0)->setText("tee");
    panel->word_box(4)->setText("x");
    talk.answers.push_back(Answer::Yes);
    panel->save_button()->click();
    finish_restart();
    EXPECT_TRUE(panel.isNull()) << "the panel does not outlive the restart";
    EXPECT_EQ(session().settings().text("app.generic_court"), "tee");
    EXPECT_EQ(window.match_count_button()->text(), "xc");
}

TEST_F(MainWindowTest, ClosingTheWindowEndsTheSession)
{
    window.close();
    EXPECT_TRUE(window.process_ended());
    EXPECT_FALSE(session().has_tournament());
    EXPECT_FALSE(session().booted());
}

TEST_F(MainWindowTest, MenusHoldTheirLinesInOrderWithKeysAndMnemonics)
{
    QStringList titles;
    for (auto* action : window.menuBar()->actions()) {
        titles << plain_caption(action->text());
        EXPECT_TRUE(action->text().contains('&')) << action->text().toStdString();
    }
    EXPECT_EQ(titles, QStringList({ "tournament", "tools", "options", "info" }));
    EXPECT_EQ(menu_lines(menu_of(window, "tournament")),
        QStringList({ "new", "open", "save as...", "close", "-", "load entries (qv5) file", "browse entries (qv5) file",
            "-", "exit" }));
    EXPECT_EQ(menu_lines(menu_of(window, "tools")),
        QStringList({ "load draw gif", "one result (qv4) file", "multiple results (qv4) files" }));
    EXPECT_EQ(menu_lines(menu_of(window, "options")), QStringList({ "print config", "control panel" }));
    EXPECT_EQ(
        menu_lines(menu_of(window, "info")), QStringList({ "help", "signup", "homepage", "developer", "version" }));

    for (const auto* title : window.menuBar()->actions()) {
        QSet<QChar> letters;
        for (const auto* action : title->menu()->actions())
            if (!action->isSeparator()) {
                const auto text = action->text();
                const auto at = text.indexOf('&');
                ASSERT_GE(at, 0) << text.toStdString();
                EXPECT_FALSE(letters.contains(text[at + 1].toLower())) << text.toStdString();
                letters.insert(text[at + 1].toLower());
            }
    }
    EXPECT_EQ(line_of(window, "tournament", "new")->shortcut(), QKeySequence("Ctrl+N"));
    EXPECT_EQ(line_of(window, "tournament", "open")->shortcut(), QKeySequence("Ctrl+O"));
    EXPECT_EQ(line_of(window, "tournament", "exit")->shortcut(), QKeySequence("Ctrl+Q"));
    auto* refresh = window.findChild<QAction*>("refresh");
    ASSERT_NE(refresh, nullptr);
    EXPECT_EQ(refresh->shortcut(), QKeySequence(Qt::Key_F5));

    // Without a tournament the lines that need one are grey.
    emit menu_of(window, "tournament")->aboutToShow();
    EXPECT_TRUE(line_of(window, "tournament", "save as...")->isEnabled());
    line_of(window, "tournament", "close")->trigger();
    emit menu_of(window, "tournament")->aboutToShow();
    EXPECT_FALSE(line_of(window, "tournament", "save as...")->isEnabled());
    EXPECT_TRUE(line_of(window, "tournament", "open")->isEnabled());
}

TEST(CommandTable, ALineShowsOnceItsWindowStandsAndSeparatorsOnlyBetweenGroups)
{
    const auto run = [] {};
    CommandTable table { { "a", run }, {}, { "b", {} }, { "c", {} }, {}, { "d", run }, {}, { "e", {} } };
    auto captions = [](const CommandTable& shown) {
        QStringList out;
        for (const auto& line : shown)
            out << (line.caption.isEmpty() ? QStringLiteral("-") : line.caption);
        return out;
    };
    EXPECT_EQ(captions(standing_commands(table)), QStringList({ "a", "-", "d" }));
    table[3].action = run;
    EXPECT_EQ(captions(standing_commands(table)), QStringList({ "a", "-", "c", "-", "d" }));
    EXPECT_TRUE(standing_commands({ { "x", {} }, {} }).empty());
    EXPECT_EQ(plain_caption("save &as... && more"), "save as... & more");
}

TEST_F(MainWindowTest, ToolbarToolsAndFeederappsOpenTheirSmallWindows)
{
    EXPECT_FALSE(window.tools_button()->isHidden());
    EXPECT_FALSE(window.feederapps_button()->isHidden());
    auto captions = [](const ToolbarWindow* tools) {
        QStringList shown;
        for (auto* button : tools->buttons())
            shown << button->text() + (button->isEnabled() ? "" : " (grey)");
        return shown;
    };

    QPointer<ToolbarWindow> tools = window.open_tools();
    ASSERT_FALSE(tools.isNull());
    EXPECT_EQ(captions(tools), QStringList({ "add new player", "add new event", "add to event", "links" }));
    tools->button("add new event")->click();
    test::run_main_loop_until([&tools] { return tools.isNull(); });
    EXPECT_TRUE(tools.isNull()) << "the choice closes the small window";
    QPointer<AddEventWindow> add = window.findChild<AddEventWindow*>();
    ASSERT_FALSE(add.isNull());
    EXPECT_TRUE(add->isVisible());
    add->close();

    // F5 reads the area on show again.
    session().tournament().run("insert into events (eid, eventname) values (1, 'open singles')");
    window.area_button(Area::mainform)->click();
    window.findChild<QAction*>("refresh")->trigger();
    EXPECT_EQ(area().events()->count(), 1);

    session().menu_close();
    tools = window.open_tools();
    EXPECT_EQ(captions(tools),
        QStringList({ "add new player (grey)", "add new event (grey)", "add to event (grey)", "links" }));
    tools->close();
}

TEST(MainWindowBoot, MissingInitFilesEndWithOneMessage)
{
    test::TempAppDir dir;
    fs::remove_all(dir.init_files());
    test::ScriptedTalk talk;
    MainWindow window(dir.path(), &talk);
    bool signalled = false;
    QObject::connect(&window, &MainWindow::processEnded, [&signalled] { signalled = true; });

    EXPECT_FALSE(window.run_or_end([&window] { window.session().boot_start_app(""); }));
    EXPECT_TRUE(window.process_ended());
    EXPECT_TRUE(signalled);
    ASSERT_EQ(talk.messages().size(), 1u);
    EXPECT_EQ(talk.messages().front().rfind("quorvelin cannot go on:", 0), 0u) << talk.messages().front();
}

} // namespace
} // namespace qv
