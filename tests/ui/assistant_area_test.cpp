#include "core/session.h"
#include "scheduling/schedule_board.h"
#include "support/drawn_tournament.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/add_result_window.h"
#include "ui/assistant_area.h"
#include "ui/board_list_view.h"
#include "ui/distload_window.h"
#include "ui/main_window.h"
#include "ui/players_windows.h"
#include "ui/schedule_board.h"
#include "ui/time_choosers.h"
#include "ui/visual_grid.h"
#include "ui_test_support.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

constexpr const char* day1 = "mon02mar26";

class AssistantAreaTest : public ::testing::Test
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
        add_round_of_32(db);
        test::make_tournament_days(window.session(), 1, 8);
        board_area().init();
        area().init();
        talk.clear();
    }

    // An event whose first round of 32 live matches waits without a day: sid n is match n, and its players are
    // "pNN top" and "pNN bottom".
    static void add_round_of_32(Database& db)
    {
        db.run(
            "insert into events (eid, eventname, singdobs, drawtype, drawdone) values (3, 'open', 'singles', 'ko', 1)");
        auto add = db.query(R"(insert into schedule (sid, eid, "match", rid, rname, rsname, drawtype, eventname,
            mtttt, mtfrn, mttag, mbttt, mbfrn, mbtag, p1, p2, match_state) values (?, 3, ?, 1, 'r1', '1.6', 'ko',
            'open', ?, ?, ?, ?, ?, ?, ?, ?, '2'))");
        for (int sid = 1; sid <= 32; ++sid) {
            const auto top = "p" + std::to_string(sid) + " top";
            const auto bottom = "p" + std::to_string(sid) + " bottom";
            add.bind_all(sid, sid, top, top, top, bottom, bottom, bottom, top, bottom);
            add.step();
            add.reset();
        }
    }

    AssistantArea& area() { return *static_cast<AssistantArea*>(window.area_page(Area::assistant_new)); }
    ScheduleBoardArea& board_area() { return *static_cast<ScheduleBoardArea*>(window.area_page(Area::schedule)); }
    void click(const QString& caption)
    {
        auto* button = area().button(caption);
        ASSERT_NE(button, nullptr) << caption.toStdString();
        button->click();
    }
    template <class Window> Window* open_window()
    {
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* each = qobject_cast<Window*>(widget); each && each->isVisible())
                return each;
        return nullptr;
    }
};

TEST_F(AssistantAreaTest, ADirectorSpreadsARoundOverEightCourtsAndChecksIt)
{
    auto& db = window.session().tournament();
    area().tabs()->setCurrentIndex(1);
    area().list_event()->setCurrentIndex(area().list_event()->findData(QVariant::fromValue<qint64>(3)));
    area().list_day()->setCurrentText(QString::fromLatin1(day1));
    area().list_noday()->setChecked(true);
    click(QStringLiteral("load"));
    ASSERT_EQ(area().match_list()->count(), 32);

    // Without a selection the assistant refuses; then the whole round goes out.
    click(QStringLiteral("distribute the load"));
    EXPECT_EQ(talk.last_message(), "select matches");
    click(QStringLiteral("select all"));
    click(QStringLiteral("distribute the load"));
    auto* distload = open_window<DistloadWindow>();
    ASSERT_NE(distload, nullptr);
    EXPECT_EQ(distload->windowTitle(), QStringLiteral("distribute load across - mon02mar26"));
    ASSERT_EQ(distload->courts()->count(), 8);
    distload->button(QStringLiteral("all"))->click();
    distload->choosers()->set_choice({ "nb ", "10", "00" });
    distload->minutes()->setText(QStringLiteral("60"));
    distload->ignore_time()->setChecked(false);
    distload->button(QStringLiteral("ok"))->click();
    ASSERT_TRUE(test::run_main_loop_until([&] { return !open_window<DistloadWindow>(); }));

    for (int cid = 1; cid <= 8; ++cid) {
        std::vector<std::string> times;
        for (auto q = db.query(
                 "select matchtime from schedule where cid=? and scheduledate=? order by matchnumber", cid, day1);
             q.step();)
            times.push_back(q.text(0));
        EXPECT_EQ(times, (std::vector<std::string> { "10:00", "11:00", "12:00", "13:00" })) << cid;
    }
    // The lines stay, showing their new place.
    ASSERT_EQ(area().match_list()->count(), 32);
    EXPECT_TRUE(area().match_list()->item(31)->text().startsWith(QString::fromLatin1(day1) + "\t8\t"));

    // One player twice within the average: one conflict of two; each court four times.
    db.run("update schedule set p1='p1 top' where sid=9");
    area().init();
    area().tabs()->setCurrentIndex(3);
    ASSERT_EQ(area().tc_days()->count(), 1);
    area().tc_days()->item(0)->setSelected(true);
    area().tc_minutes()->setText(QStringLiteral("90"));
    talk.answers.push_back(Answer::Yes);
    click(QStringLiteral("compute"));
    EXPECT_EQ(talk.last_message(), "done");
    ASSERT_EQ(area().tc_match_days()->count(), 1);
    EXPECT_EQ(area().tc_match_days()->item(0)->text(), QStringLiteral("mon02mar26(2)"));
    EXPECT_EQ(area().tc_court_days()->item(0)->text(), QStringLiteral("mon02mar26(32)"));
    EXPECT_FALSE(area().tc_match_label()->styleSheet().isEmpty()) << "a list with days draws the eye";
    click(QStringLiteral("match"));
    EXPECT_EQ(area().tc_list()->count(), 2);

    // Statistics: the tournament as a whole, all live on courts.
    area().tabs()->setCurrentIndex(0);
    click(QStringLiteral("event"));
    EXPECT_TRUE(area().stats_text()->toPlainText().contains(QStringLiteral("tournament\t0\t32\t0\t0\t32")));

    area().tabs()->setCurrentIndex(4);
    area().visual_day()->setCurrentText(QString::fromLatin1(day1));
    click(QStringLiteral("show"));
    EXPECT_EQ(area().visual()->grid().boxes.size(), 32u);
    EXPECT_EQ(area().visual()->grid().columns.size(), 8u);
    // One event at a time: only its timed matches get boxes.
    ASSERT_GE(area().visual_event()->count(), 2);
    area().visual_event()->setCurrentIndex(area().visual_event()->count() - 1);
    click(QStringLiteral("show"));
    const auto eid = area().visual_event()->currentData().toLongLong();
    EXPECT_EQ(static_cast<std::int64_t>(area().visual()->grid().boxes.size()),
        window.session().tournament().scalar_integer(
            "select count(*) from schedule where eid=? and matchtime<>'' and cid<>0", eid));
    area().visual_event()->setCurrentIndex(0);
    click(QStringLiteral("show"));
    QCoreApplication::processEvents();
    area().grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/assistant_visual_grid.png"));
}

TEST_F(AssistantAreaTest, TheListsMoveMarkAndTimeTheirMatches)
{
    auto& db = window.session().tournament();
    area().tabs()->setCurrentIndex(1);
    area().list_noday()->setChecked(true);
    // Held, the changes below patch the lines in place and the selection stays.
    area().hold_list()->setChecked(true);
    EXPECT_EQ(window.session().settings().integer("assistant_list4_hfr"), 1);
    click(QStringLiteral("load"));
    ASSERT_EQ(area().match_list()->count(), 32);
    // The players of the current line, and the matches of the one chosen.
    db.run("update schedule set p2='p1 top' where sid=2");
    area().match_list()->setCurrentRow(0);
    ASSERT_EQ(area().other_player()->count(), 2);
    EXPECT_EQ(area().other_player()->currentText(), QStringLiteral("p1 top"));
    EXPECT_EQ(area().other_matches()->count(), 2);
    area().match_list()->clearSelection();
    area().match_list()->item(0)->setSelected(true);
    area().move_day()->setCurrentText(QString::fromLatin1(day1));
    // The reserved places are offered too.
    EXPECT_EQ(area().move_court()->count(), 11);
    EXPECT_GE(area().move_court()->findText(QStringLiteral("court fa")), 0);
    area().move_court()->setCurrentIndex(area().move_court()->findData(QVariant::fromValue<qint64>(3)));
    click(QStringLiteral("move"));
    EXPECT_EQ(db.scalar_integer("select cid from schedule where sid=1"), 3);
    EXPECT_TRUE(area().match_list()->item(0)->text().startsWith(QString::fromLatin1(day1) + "\t3\t"));

    click(QStringLiteral("show in schedule"));
    ASSERT_TRUE(board_area().board().shown());
    EXPECT_EQ(board_area().board().shown()->cid, 3);
    click(QStringLiteral("add result"));
    auto* result = open_window<AddResultWindow>();
    ASSERT_NE(result, nullptr);
    result->close();
    click(QStringLiteral("player details"));
    auto* details = open_window<PlayerDetailsWindow>();
    ASSERT_NE(details, nullptr);
    details->close();
    talk.clear();

    area().times()->set_choice({ "at ", "09", "30" });
    click(QStringLiteral("set match time"));
    EXPECT_EQ(db.scalar_integer("select matchtime_int from schedule where sid=1"), 570);
    click(QStringLiteral("mark live matches unfinished"));
    EXPECT_EQ(db.scalar_text("select match_state from schedule where sid=1"), "2.1");
    click(QStringLiteral("copy to clipboard"));
    EXPECT_EQ(db.scalar_integer("select cid from schedule where sid=1"), -2);
    EXPECT_EQ(db.scalar_integer("select matchtime_int from schedule where sid=1"), -1);
    click(QStringLiteral("move to no day"));
    EXPECT_EQ(db.scalar_integer("select cid from schedule where sid=1"), 0);
    EXPECT_TRUE(talk.said.empty());

    // The list saved where the user says, under its own name.
    const auto saved = dir.path() / "lists.txt";
    talk.files.push_back({ saved });
    auto* outputs = area().match_list()->parentWidget()->findChild<QComboBox*>(QStringLiteral("output"));
    ASSERT_NE(outputs, nullptr);
    emit outputs->activated(3);
    ASSERT_FALSE(talk.said.empty());
    EXPECT_EQ(talk.said.front().text, "matchlists.txt");
    std::ifstream in(saved);
    std::string first;
    std::getline(in, first);
    EXPECT_EQ(first.substr(0, 8), "day     ");

    // Not held, a change reads the list again, and the selection goes with the old lines.
    area().hold_list()->setChecked(false);
    area().match_list()->clearSelection();
    area().match_list()->item(0)->setSelected(true);
    const auto moved = area().match_list()->item(0)->data(Qt::UserRole).toLongLong();
    area().move_court()->setCurrentIndex(area().move_court()->findData(QVariant::fromValue<qint64>(4)));
    click(QStringLiteral("move"));
    EXPECT_EQ(db.scalar_integer("select cid from schedule where sid=?", moved), 4);
    EXPECT_TRUE(area().match_list()->selectedItems().isEmpty()) << "the list was read again";
}

} // namespace
} // namespace qv
