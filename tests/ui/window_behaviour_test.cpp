// Every small window as a desktop user meets it: Tab in reading order, opened over the main window, closed by Esc;
// Enter does the main action of the windows that add or edit.
#include "core/session.h"
#include "entries/filters.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/add_result_window.h"
#include "ui/add_to_event_window.h"
#include "ui/autoschedule_window.h"
#include "ui/clear_data_dialog.h"
#include "ui/control_panel.h"
#include "ui/drawconfig_window.h"
#include "ui/events_filter_window.h"
#include "ui/events_windows.h"
#include "ui/exports_window.h"
#include "ui/folders_windows.h"
#include "ui/links_window.h"
#include "ui/load_draw_gif_window.h"
#include "ui/main_window.h"
#include "ui/notepad2.h"
#include "ui/peek_browse_window.h"
#include "ui/players_filter_window.h"
#include "ui/players_import_export_window.h"
#include "ui/players_windows.h"
#include "ui/print_setup_window.h"
#include "ui/qt_user_talk.h"
#include "ui/qv4_multiple_window.h"
#include "ui/qv4_single_window.h"
#include "ui/schedule_board.h"
#include "ui/score_windows.h"
#include "ui/seeding_patterns_window.h"
#include "ui/toolbar_windows.h"
#include "ui/tournament_config_window.h"
#include "ui/window_behaviour.h"
#include "ui_test_support.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace qv {
namespace {

// The widgets Tab stops at, in the order it reaches them from the one that has the cursor when the window opens.
QList<QWidget*> tab_chain(QWidget* window)
{
    QList<QWidget*> chain;
    for (QWidget* w = window->nextInFocusChain(); w && w != window; w = w->nextInFocusChain())
        if (w->window() == window && w->isVisible() && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus)
            && !w->focusProxy())
            chain << w;
    auto* first = window->focusWidget();
    while (first && first->focusProxy())
        first = first->focusProxy();
    if (const auto at = chain.indexOf(first); at > 0)
        chain = chain.mid(at) + chain.mid(0, at);
    return chain;
}

// Over the main window's centre, as far as the screen lets it be.
QPoint expected_place(const QWidget* opened, const QWidget* main)
{
    const QRect screen = main->screen()->availableGeometry();
    const QPoint centred = main->geometry().center() - opened->rect().center();
    return { std::clamp(centred.x(), screen.left(), std::max(screen.left(), screen.right() - opened->width())),
        std::clamp(centred.y(), screen.top(), std::max(screen.top(), screen.bottom() - opened->height())) };
}

QString name_of(const QWidget* w)
{
    const auto text = w->property("text").toString();
    return QString::fromLatin1(w->metaObject()->className()) + " '" + (text.isEmpty() ? w->objectName() : text) + "'";
}

int overlap(int a_from, int a_length, int b_from, int b_length)
{
    return std::min(a_from + a_length, b_from + b_length) - std::max(a_from, b_from);
}

// The first widget Tab reaches later that stands wholly above an earlier one in the same column, or wholly to
// its left in the same row; empty when the chain reads in order.
std::string first_fault(const QList<QWidget*>& chain, QWidget* window)
{
    std::vector<QRect> at;
    for (auto* w : chain)
        at.emplace_back(w->mapTo(window, QPoint(0, 0)), w->size());
    for (qsizetype i = 0; i < chain.size(); ++i)
        for (qsizetype j = i + 1; j < chain.size(); ++j) {
            const QRect& a = at[std::size_t(i)];
            const QRect& b = at[std::size_t(j)];
            const bool same_column = overlap(a.x(), a.width(), b.x(), b.width()) > 4;
            const bool same_row = overlap(a.y(), a.height(), b.y(), b.height()) > 4;
            if ((same_column && b.y() + b.height() <= a.y()) || (same_row && b.x() + b.width() <= a.x()))
                return (name_of(chain[j]) + " comes after " + name_of(chain[i])).toStdString();
        }
    return {};
}

// Tab goes round: it follows the eye when the round, begun at the right widget, reads in order. The cursor starts
// where the work starts, never on a button of a window that has boxes or lists.
std::string reading_order_fault(QWidget* window)
{
    const auto chain = tab_chain(window);
    const bool only_buttons
        = std::all_of(chain.begin(), chain.end(), [](QWidget* w) { return qobject_cast<QPushButton*>(w); });
    if (!chain.isEmpty() && qobject_cast<QPushButton*>(chain.front()) && !only_buttons)
        return "the cursor starts on " + name_of(chain.front()).toStdString();
    for (qsizetype start = 0; start < chain.size(); ++start)
        if (first_fault(chain.mid(start) + chain.mid(0, start), window).empty())
            return {};
    return first_fault(chain, window);
}

void press(QWidget* target, int key)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &up);
}

class WindowBehaviourTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.setGeometry(20, 20, 780, 560);
        window.show();
        session().boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session().has_tournament());
        auto& db = session().tournament();
        db.run("insert into players (pid, player, fname, sname, sex) values (1, 'Al West', 'Al', 'West', 'male')");
        db.run(R"(insert into events (eid, eventname, sex, singdobs, pte, drawtype, fee)
            values (1, 'mens singles', 'male', 'singles', 'p', 'ko', '5'))");
        talk.clear();
    }

    Session& session() { return window.session(); }
    Database& db() { return session().tournament(); }
};

// Opened as the menus open it: over the main window.
QWidget* shown(QWidget* window)
{
    show_over_parent(window);
    return window;
}

struct OpenedWindow
{
    const char* name;
    std::function<QWidget*(MainWindow&)> open;
};

TEST_F(WindowBehaviourTest, EverySmallWindowTabsInReadingOrderOpensOverTheMainWindowAndClosesOnEscape)
{
    const auto text_file = dir.path() / "list.txt";
    std::ofstream(text_file) << "one\r\ntwo\r\n";
    const OpenedWindow windows[] = {
        { "add new player", [](MainWindow& w) { return open_add_player(w.session(), &w); } },
        { "players", [](MainWindow& w) { return open_players(w.session(), &w); } },
        { "players delete", [](MainWindow& w) { return open_players_delete(w.session(), &w); } },
        { "players import/export", [](MainWindow& w) { return open_players_import_export(w.session(), &w); } },
        { "imports/exports", [](MainWindow& w) { return shown(new ExportsWindow(w.session(), &w)); } },
        { "player details", [](MainWindow& w) { return open_player_details_by_name(w.session(), "al west", &w); } },
        { "add new event", [](MainWindow& w) { return open_add_event(w.session(), &w); } },
        { "events", [](MainWindow& w) { return open_admin_events(w.session(), &w); } },
        { "manage events", [](MainWindow& w) { return open_events_manage(w.session(), &w); } },
        { "add new folder", [](MainWindow& w) { return new AddFolderWindow(w.session(), {}, &w); } },
        { "folders", [](MainWindow& w) { return new FoldersWindow(w.session(), &w); } },
        { "assign folders", [](MainWindow& w) { return new FoldersAssignWindow(w.session(), &w); } },
        { "seeding patterns", [](MainWindow& w) { return open_seeding_patterns(w.session(), &w); } },
        { "new seeding pattern", [](MainWindow& w) { return new NewSeedingPatternWindow(w.session(), &w); } },
        { "draw config", [](MainWindow& w) { return open_drawconfig(w.session(), 1, {}, &w); } },
        { "add to event", [](MainWindow& w) { return open_add_to_event(w.session(), &w); } },
        { "players filter",
            [](MainWindow& w) {
                return new PlayersFilterWindow(
                    w.session(), std::string(filter_keys::players_delete), PlayersFilterKind::with_sources, {}, &w);
            } },
        { "events filter",
            [](MainWindow& w) {
                return new EventsFilterWindow(w.session(), std::string(filter_keys::admin_events_manage), {}, &w);
            } },
        { "clear data", [](MainWindow& w) { return new ClearDataDialog(w.session(), &w); } },
        { "control panel", [](MainWindow& w) { return w.open_control_panel(); } },
        { "links", [](MainWindow& w) { return w.open_links(); } },
        { "text viewer",
            [&text_file](MainWindow& w) {
                QtUserTalk(&w, nullptr).show_text(text_file, "list");
                return test::last_opened<Notepad2>(w);
            } },
        { "tools", [](MainWindow& w) { return w.open_tools(); } },
        { "tournament configuration",
            [](MainWindow& w) { return shown(new TournamentConfigWindow(w.session(), &w)); } },
        { "print configuration", [](MainWindow& w) { return shown(new PrintSetupWindow(w.session(), &w)); } },
        { "load draw gif", [](MainWindow& w) { return shown(new LoadDrawGifWindow(w.session(), &w)); } },
        { "one result (qv4) file", [](MainWindow& w) { return shown(new Qv4SingleWindow(w.session(), &w)); } },
        { "multiple results (qv4) files", [](MainWindow& w) { return shown(new Qv4MultipleWindow(w.session(), &w)); } },
        { "add result",
            [](MainWindow& w) { return open_addresult(w.session(), *w.findChild<ScheduleBoardArea*>(), &w); } },
        { "long score",
            [](MainWindow& w) {
                return open_addlongscore(
                    w.session(), QStringLiteral("al"), QStringLiteral("bo"), QStringLiteral("6-3"), QString(), {}, &w);
            } },
        { "peek entries", [](MainWindow& w) { return open_peek_browse(w.session(), EntriesTarget::peek, &w); } },
        { "browse entries", [](MainWindow& w) { return open_peek_browse(w.session(), EntriesTarget::browse, &w); } },
        { "auto-schedule matches",
            [](MainWindow& w) {
                auto* form = new AutoscheduleWindow(w.session(), w.findChild<ScheduleBoardArea*>()->board(), {}, &w);
                form->setAttribute(Qt::WA_DeleteOnClose);
                show_over_parent(form);
                return form;
            } },
    };
    for (const auto& each : windows) {
        SCOPED_TRACE(each.name);
        QPointer<QWidget> opened = each.open(window);
        ASSERT_FALSE(opened.isNull());
        opened->show();
        QApplication::processEvents();
        EXPECT_EQ(reading_order_fault(opened), "");
        EXPECT_LE((opened->pos() - expected_place(opened, &window)).manhattanLength(), 4)
            << "opened at " << opened->x() << "," << opened->y() << " size " << opened->width() << "x"
            << opened->height();

        press(opened->focusWidget() ? opened->focusWidget() : opened.data(), Qt::Key_Escape);
        test::run_main_loop_until([&opened] { return opened.isNull() || opened->isHidden(); });
        EXPECT_TRUE(opened.isNull() || opened->isHidden());
        delete opened.data();
    }
}

TEST_F(WindowBehaviourTest, EnterDoesTheMainActionOfTheWindowsThatAddOrEditAndNeverClears)
{
    auto phone_of = [this] { return db().scalar_text("select phone from players where pid = 1"); };
    struct EnterCase
    {
        const char* name;
        // Types into the window and gives the box Enter is pressed in.
        std::function<QWidget*(MainWindow&)> type;
        std::function<bool()> done;
        std::vector<std::string> said = {};
    };
    const EnterCase cases[] = {
        { "add new player",
            [](MainWindow& w) {
                auto* add = open_add_player(w.session(), &w);
                add->fields()->fname()->setText("Bea");
                add->fields()->sname()->setText("Cole");
                return add->fields()->sname();
            },
            [this] { return db().row_count("players") == 2; } },
        { "players, one shown: save",
            [](MainWindow& w) {
                auto* players = open_players(w.session(), &w);
                players->list()->setCurrentRow(0);
                auto* phone = qobject_cast<QLineEdit*>(players->fields()->box("phone"));
                phone->setText("555 0101");
                return phone;
            },
            [&phone_of] { return phone_of() == "555 0101"; } },
        { "players, none shown: add new",
            [](MainWindow& w) {
                auto* players = open_players(w.session(), &w);
                players->fields()->fname()->setText("Cy");
                players->fields()->sname()->setText("Dunn");
                return players->fields()->sname();
            },
            [this] { return db().scalar_integer("select count(*) from players where player = 'Cy Dunn'") == 1; } },
        { "players, the search box: search only",
            [](MainWindow& w) {
                auto* players = open_players(w.session(), &w);
                players->list()->setCurrentRow(0);
                qobject_cast<QLineEdit*>(players->fields()->box("phone"))->setText("typed, not saved");
                players->search_box()->setText("zed");
                return players->search_box();
            },
            [&phone_of] { return phone_of() == "555 0101"; }, { "player not found" } },
        { "player details",
            [](MainWindow& w) {
                auto* details = open_player_details_by_pid(w.session(), 1, &w);
                auto* phone = qobject_cast<QLineEdit*>(details->fields()->box("phone"));
                phone->setText("555 0202");
                return phone;
            },
            [&phone_of] { return phone_of() == "555 0202"; } },
        { "add new event",
            [](MainWindow& w) {
                auto* add = open_add_event(w.session(), &w);
                add->fields()->name()->setText("open doubles");
                add->fields()->singdobs()->setCurrentText("doubles");
                return add->fields()->name();
            },
            [this] { return db().row_count("events") == 2; } },
        { "events",
            [](MainWindow& w) {
                auto* events = open_admin_events(w.session(), &w);
                events->events()->setCurrentRow(0);
                events->fields()->fee()->setText("7");
                return events->fields()->fee();
            },
            [this] { return db().scalar_text("select fee from events where eid = 1") == "7"; } },
        { "add new folder",
            [](MainWindow& w) {
                auto* add = new AddFolderWindow(w.session(), {}, &w);
                add->show();
                add->name()->setText("juniors");
                return add->name();
            },
            [this] { return db().row_count("folders") == 1; } },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        QWidget* box = c.type(window);
        QPointer<QWidget> opened = box->window();
        press(box, Qt::Key_Return);
        EXPECT_TRUE(c.done());
        EXPECT_EQ(talk.messages(), c.said);
        talk.clear();
        delete opened.data();
    }
}

TEST_F(WindowBehaviourTest, AddNewEventShowsItsLongestNameWhole)
{
    auto* add = open_add_event(session(), &window);
    const QString longest = QStringLiteral("mens singles under 18 championship draw a (rr grp)");
    ASSERT_EQ(longest.size(), 50);
    add->fields()->name()->setText(longest);
    QApplication::processEvents();
    auto* name = add->fields()->name();
    EXPECT_GE(name->width(), name->fontMetrics().horizontalAdvance(longest) + 8);
    EXPECT_EQ(add->focusWidget(), name) << "the cursor starts in the name";
    EXPECT_TRUE(add->save_button()->isDefault());
    EXPECT_FALSE(add->clear_button()->isDefault());
    EXPECT_TRUE(add->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/addnew_event.png")));
    delete add;
}

} // namespace
} // namespace qv
