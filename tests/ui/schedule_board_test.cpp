#include "core/session.h"
#include "scheduling/schedule_board.h"
#include "support/drawn_tournament.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/board_list_view.h"
#include "ui/court_windows.h"
#include "ui/main_window.h"
#include "ui/schedule_board.h"
#include "ui/setdatescourts_window.h"
#include "ui/time_choosers.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace qv {
namespace {

QStringList lines_of(const QListWidget* list)
{
    QStringList lines;
    for (int row = 0; row < list->count(); ++row)
        lines << list->item(row)->text();
    return lines;
}

class ScheduleBoardWindowTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.resize(1280, 860);
        window.show();
        window.session().boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(window.session().has_tournament());
        auto& db = window.session().tournament();
        db.exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        window.session().settings().apply_disk_var("draw.byes_thru_on_do_draw ", "0");
        test::add_drawn_tournament_people(db);
        test::draw_every_event(window.session());
        area().init();
        talk.clear();
    }

    ScheduleBoardArea& area() { return *static_cast<ScheduleBoardArea*>(window.area_page(Area::schedule)); }
    ScheduleBoard& board() { return area().board(); }
    BoardListView* view(BoardListId which) { return area().view(which); }
    void click(const QString& caption)
    {
        auto* button = area().button(caption);
        ASSERT_NE(button, nullptr) << caption.toStdString();
        ASSERT_TRUE(button->isEnabled()) << caption.toStdString();
        button->click();
    }
    void select_rows(BoardListId which, std::initializer_list<int> rows)
    {
        view(which)->clearSelection();
        for (int row : rows)
            view(which)->item(row)->setSelected(true);
    }
    // The days and courts through the tournament area's operation, as a director sets them up.
    void set_up_days()
    {
        auto* ops = window.tournament_area()->operations(OperationList::tournament);
        const auto found = ops->findItems(QStringLiteral("set dates/courts"), Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        // It stands before "clear data", as the tournament's list has it.
        EXPECT_EQ(ops->item(ops->row(found.front()) + 1)->text(), QStringLiteral("clear data"));
        emit ops->itemClicked(found.front());
        SetDatesCourtsWindow* dates = nullptr;
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* each = qobject_cast<SetDatesCourtsWindow*>(widget); each && each->isVisible())
                dates = each;
        ASSERT_NE(dates, nullptr);
        dates->century()->setCurrentText(QStringLiteral("20"));
        for (int which : { 1, 2 }) {
            dates->year(which)->setCurrentText(QStringLiteral("26"));
            dates->month(which)->setCurrentText(QStringLiteral("mar"));
        }
        dates->day(1)->setCurrentText(QStringLiteral("02"));
        dates->day(2)->setCurrentText(QStringLiteral("04"));
        dates->button(QStringLiteral("set days"))->click();
        ASSERT_EQ(dates->days()->count(), 3);
        EXPECT_EQ(dates->days_count()->text(), QStringLiteral("3"));
        dates->days()->selectAll();
        dates->number()->setText(QStringLiteral("6"));
        dates->button(QStringLiteral("generate"))->click();
        ASSERT_EQ(dates->courts()->count(), 9);
        dates->button(QStringLiteral("save"))->click();
        dates->close();
    }
};

TEST_F(ScheduleBoardWindowTest, ADirectorPlacesTimesAndFreesMatches)
{
    set_up_days();
    EXPECT_EQ(window.session().settings().itdates(), "mon02mar26-wed04mar26");
    window.session().toolbar_click(Area::schedule);
    ASSERT_EQ(window.current_page(), &area());
    EXPECT_EQ(lines_of(area().day_list()), QStringList({ "mon02mar26", "tue03mar26", "wed04mar26" }));
    EXPECT_EQ(area().days_label()->text(), QStringLiteral("(days 3)"));
    EXPECT_EQ(view(BoardListId::unscheduled)->count(), 10);
    EXPECT_EQ(view(BoardListId::unscheduled)->header()->text().toStdString(), std::string(upper_list_header));

    // Day one, court one: the court is shown as soon as it is chosen.
    area().day_list()->setCurrentRow(0);
    ASSERT_EQ(area().court_list()->count(), 9);
    EXPECT_EQ(area().courts_label()->text(), QStringLiteral("(courts 6)"));
    area().court_list()->setCurrentRow(3);
    EXPECT_EQ(board().shown(), (DayCourt { "mon02mar26", 1 }));
    EXPECT_EQ(view(BoardListId::court)->header()->text().toStdString(), std::string(court_list_header));

    // Two matches down from the unscheduled list.
    select_rows(BoardListId::unscheduled, { 0, 1 });
    click(QStringLiteral("down"));
    EXPECT_EQ(view(BoardListId::court)->count(), 2);
    EXPECT_EQ(view(BoardListId::unscheduled)->count(), 8);

    // One through the clipboard.
    select_rows(BoardListId::unscheduled, { 5 });
    click(QStringLiteral("upper copy to clipboard"));
    area().upper_tabs()->setCurrentIndex(1);
    EXPECT_TRUE(board().clipboard_shown());
    ASSERT_EQ(view(BoardListId::clipboard)->count(), 1);
    const auto from_clipboard = view(BoardListId::clipboard)->item(0)->data(Qt::UserRole).toLongLong();
    select_rows(BoardListId::clipboard, { 0 });
    click(QStringLiteral("down"));
    ASSERT_EQ(view(BoardListId::court)->count(), 3);
    EXPECT_EQ(view(BoardListId::court)->item(2)->data(Qt::UserRole).toLongLong(), from_clipboard);

    // Nudge the last one up.
    view(BoardListId::court)->setCurrentRow(2);
    click(QStringLiteral("up 1"));
    EXPECT_EQ(view(BoardListId::court)->item(1)->data(Qt::UserRole).toLongLong(), from_clipboard);
    EXPECT_TRUE(area().status_line()->text().startsWith(QStringLiteral("match id=")));

    // Times: at 10:00 for the first two.
    select_rows(BoardListId::court, { 0, 1 });
    area().time_choosers()->set_choice({ "at ", "10", "00" });
    click(QStringLiteral("set match time"));
    EXPECT_TRUE(view(BoardListId::court)->item(0)->text().contains(QStringLiteral("\tat 10:00\t")));
    EXPECT_TRUE(view(BoardListId::court)->item(1)->text().contains(QStringLiteral("\tat 10:00\t")));
    EXPECT_FALSE(view(BoardListId::court)->item(2)->text().contains(QStringLiteral("10:00")));
    area().time_choosers()->clear();
    select_rows(BoardListId::court, { 1 });
    click(QStringLiteral("grab match time"));
    EXPECT_EQ(area().time_choosers()->choice().value(), "at 10:00");

    // The restrictions of the people of the chosen match, as the register holds them.
    window.session().tournament().run("update players set availabilityrestrictions='after 5pm'");
    click(QStringLiteral("availability restrictions"));
    EXPECT_EQ(talk.said.back().title, "availability restrictions");
    EXPECT_NE(talk.last_message().find(": after 5pm"), std::string::npos) << talk.last_message();

    // The marks after "match counts" from the toolbar.
    window.match_count_button()->click();
    EXPECT_EQ(area().day_list()->item(0)->text(), QStringLiteral("mon02mar26 ?"));
    EXPECT_EQ(area().court_list()->item(3)->text(), QStringLiteral("court 1 ?"));

    area().key()->show();
    area().upper_tabs()->setCurrentIndex(0);
    const auto shot = area().grab();
    EXPECT_TRUE(shot.save(QStringLiteral(QV_SCREENSHOT_DIR "/schedule_board.png")));

    // "show in schedule" from elsewhere: the board finds the match on its court.
    const auto placed = view(BoardListId::court)->item(0)->data(Qt::UserRole).toLongLong();
    area().day_list()->setCurrentRow(2);
    EXPECT_TRUE(area().show_match(placed));
    EXPECT_EQ(area().day_list()->currentRow(), 0);
    EXPECT_TRUE(view(BoardListId::court)->item(0)->isSelected());
    EXPECT_EQ(area().active_list(), BoardListId::court);

    // Free the court from the menu: no question, the matches are unscheduled again.
    area().menu_action(QStringLiteral("free court"))->trigger();
    EXPECT_EQ(view(BoardListId::court)->count(), 0);
    EXPECT_EQ(view(BoardListId::unscheduled)->count(), 10);
    for (const auto& said : talk.said)
        EXPECT_NE(said.kind, "ask") << said.text;
}

TEST_F(ScheduleBoardWindowTest, RefusalsMenusAndHold)
{
    test::make_tournament_days(window.session(), 2, 3);
    window.session().refresh_lists(Lists::schedule);
    EXPECT_EQ(area().day_list()->count(), 2);

    click(QStringLiteral("down"));
    EXPECT_EQ(talk.last_message(), "select match");
    select_rows(BoardListId::unscheduled, { 0 });
    click(QStringLiteral("down"));
    EXPECT_EQ(talk.last_message(), "select day");

    // The menu's words come from the sports vocabulary.
    QStringList menu;
    for (auto* action : area().menu()->actions())
        menu << action->text();
    EXPECT_EQ(menu,
        QStringList({ "day-court map", "free all days", "free current day", "all unf to cb", "all empty to cb",
            "all live to cb", "all dead to cb", "clear times court", "set dates/courts", "free court", "key" }));
    EXPECT_EQ(area().button(QStringLiteral("move matches to day.court"))->text(),
        QStringLiteral("move matches to day.court"));

    // Hold refresh from its box, stored at once.
    area().panel(BoardListId::unscheduled).hold->setChecked(true);
    EXPECT_TRUE(board().list(BoardListId::unscheduled).on_hold());
    EXPECT_EQ(window.session().settings().text("schedule_hfr_upper"), "1");
    // A state box narrows the list.
    area().panel(BoardListId::unscheduled).ticks[1]->setChecked(false);
    EXPECT_EQ(view(BoardListId::unscheduled)->count(), 4);
    EXPECT_EQ(area().panel(BoardListId::unscheduled).counts->text(),
        QStringLiteral("empty 4  live 6  unf 0  dead 0  total 10"));

    // The event filter.
    ASSERT_EQ(area().event_filter()->count(), 3);
    EXPECT_EQ(area().event_filter()->itemText(2), QStringLiteral("(2) mixed doubles"));
    area().event_filter()->setCurrentIndex(2);
    EXPECT_EQ(view(BoardListId::unscheduled)->count(), 1);

    // The key comes and goes with its menu entry.
    const bool key_shown = window.session().settings().integer("schedule.key") == 1;
    area().menu_action(QStringLiteral("key"))->trigger();
    EXPECT_EQ(window.session().settings().integer("schedule.key") == 1, !key_shown);

    // "print(p)" prints the list as it shows; a cancelled print dialog prints nothing.
    const auto pdf = dir.path() / "unscheduled.pdf";
    talk.pdf_printers.push_back(pdf);
    auto* chooser = area().panel(BoardListId::unscheduled).chooser;
    const auto choose
        = [chooser](const char* entry) { emit chooser->activated(chooser->findText(QString::fromLatin1(entry))); };
    choose("print(p)");
    EXPECT_GT(std::filesystem::file_size(pdf), 0u);
    EXPECT_EQ(chooser->currentIndex(), 0);
    choose("print(l)");
    EXPECT_TRUE(talk.pdf_printers.empty());
}

TEST_F(ScheduleBoardWindowTest, CourtWindowsAndDateChoosers)
{
    test::make_tournament_days(window.session(), 1, 2);
    window.session().refresh_lists(Lists::schedule);
    area().day_list()->setCurrentRow(0);
    area().court_list()->setCurrentRow(4);

    SetCourtStartWindow start(window.session(), "mon02mar26", 2, "nb 09:15", {});
    EXPECT_EQ(start.choosers()->choice().value(), "nb 09:15");
    start.choosers()->set_choice({ "", "11", "" });
    EXPECT_FALSE(start.save());
    EXPECT_EQ(talk.last_message(), "enter minute");
    start.choosers()->set_choice({ "at ", "11", "30" });
    start.scope()->setCurrentIndex(2);
    EXPECT_TRUE(start.save());
    EXPECT_EQ(window.session().tournament().scalar_integer(
                  "select count(*) from scheduledays_courts where starttime='at 11:30'"),
        5);

    SetCourtNameWindow name(window.session(), "mon02mar26", -3, "", {});
    EXPECT_EQ(name.all_days()->text(), QStringLiteral("apply to this court number on all days"));
    name.name()->setText(QStringLiteral("later"));
    name.save();
    EXPECT_EQ(
        window.session().tournament().scalar_text("select courtname from scheduledays_courts where cid=-3"), "later");

    // February offers 28 days; the day chooser follows the month.
    SetDatesCourtsWindow dates(window.session(), {});
    dates.month(1)->setCurrentText(QStringLiteral("jan"));
    dates.day(1)->setCurrentText(QStringLiteral("31"));
    dates.month(1)->setCurrentText(QStringLiteral("feb"));
    EXPECT_EQ(dates.day(1)->count(), 28);
    EXPECT_EQ(dates.day(1)->currentText(), QStringLiteral("28"));
    // Opened on saved days, the choosers show the first and the last.
    EXPECT_EQ(dates.day(2)->currentText(), QStringLiteral("02"));
    dates.days()->setCurrentRow(0);
    dates.show();
    EXPECT_TRUE(dates.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/setdatescourts.png")));
    EXPECT_TRUE(start.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/setcourt_nm_st.png")));
    dates.number()->setText(QStringLiteral("0"));
    dates.days()->selectAll();
    EXPECT_FALSE(dates.generate());
    EXPECT_EQ(talk.last_message(), "zero invalid in this context");
}

} // namespace
} // namespace qv
