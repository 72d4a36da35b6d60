#pragma once

#include "core/session.h"
#include "scheduling/board_moves.h"
#include "scheduling/schedule_board.h"
#include "support/drawn_tournament.h"
#include "support/saved_draws.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/add_result_window.h"
#include "ui/main_window.h"
#include "ui/schedule_board.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <gtest/gtest.h>
#include <vector>

namespace qv::test {

// Keys as the user types them: each character goes through the box's own editing.
inline void type(QLineEdit* box, const QString& text)
{
    box->setFocus();
    box->selectAll();
    for (const auto c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(box, &press);
    }
}
inline void press_enter(QWidget* widget)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
}

// A boys' draw of 16 on day one's first court, every match placed, no result yet.
class ResultsBoardFixture : public ::testing::Test
{
protected:
    TempAppDir dir;
    ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.resize(1280, 860);
        window.show();
        auto& session = window.session();
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        session.tournament().exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        save_ko_draw(session, 1, "boys 16", 16, 16);
        make_tournament_days(session, 1, 2);
        window.load_all_forms();
        auto& board = area().board();
        board.loadschedule();
        board.choose_day("mon02mar26");
        board.choose_court(1);
        board.list(BoardListId::unscheduled).select_all(true);
        ASSERT_TRUE(NET_move_sel_schedule_to_list4(board));
        ASSERT_TRUE(board.loadcourt());
        area().after_result();
        talk.clear();
    }

    ScheduleBoardArea& area() { return *static_cast<ScheduleBoardArea*>(window.area_page(Area::schedule)); }
    std::vector<std::int64_t> sids_in_match_order()
    {
        std::vector<std::int64_t> sids;
        for (auto q = window.session().tournament().query(
                 "select sid from schedule where eid=1 and rname<>'winner' order by \"match\"");
             q.step();)
            sids.push_back(q.integer(0));
        return sids;
    }
    AddResultWindow* open_from_tournament_area()
    {
        click_operation(*window.tournament_area(), OperationList::tournament, QStringLiteral("add results"));
        return last_opened<AddResultWindow>(window);
    }
};

} // namespace qv::test
