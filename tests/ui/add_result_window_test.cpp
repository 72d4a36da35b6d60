#include "core/session.h"
#include "results_fixture.h"
#include "scheduling/add_result.h"
#include "scheduling/board_moves.h"
#include "scheduling/schedule_board.h"
#include "support/drawn_tournament.h"
#include "support/saved_draws.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/add_result_window.h"
#include "ui/board_list_view.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/main_window.h"
#include "ui/schedule_board.h"
#include "ui/score_windows.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qv {
namespace {

using test::press_enter;
using test::type;
using AddResultWindowTest = test::ResultsBoardFixture;

TEST_F(AddResultWindowTest, EveryResultOfADrawOfSixteenByMatchNumber)
{
    auto* results = open_from_tournament_area();
    ASSERT_NE(results, nullptr);
    EXPECT_TRUE(results->isVisible());
    EXPECT_EQ(results->windowTitle(), QStringLiteral("add result"));

    // Nothing loaded yet: the box is empty, and a save has no match.
    press_enter(results->number());
    EXPECT_EQ(talk.last_message(), "enter match id");
    results->button(QStringLiteral("save"))->click();
    EXPECT_EQ(talk.last_message(), "no match loaded");
    talk.clear();

    const auto sids = sids_in_match_order();
    ASSERT_EQ(sids.size(), 15u);
    for (auto sid : sids) {
        type(results->number(), QString::number(sid));
        press_enter(results->number());
        ASSERT_TRUE(results->loaded()) << sid;
        ASSERT_TRUE(results->top()->isEnabled());
        results->top()->click();
        if (sid == sids.front()) {
            // A reserved character typed in a knock-out's score stops the save with its message.
            type(results->score(), QStringLiteral("6-3 \u00BF6-4"));
            results->button(QStringLiteral("save"))->click();
            EXPECT_EQ(talk.messages(), std::vector<std::string> { "short score cannot contain the character \u00BF" });
            EXPECT_EQ(window.session().tournament().scalar_text("select mwttt from schedule where sid=?", sid), "");
            talk.clear();
        }
        type(results->score(), QStringLiteral("6-3 6-4"));
        results->button(QStringLiteral("save"))->click();
        // "beep confirm": the number is selected for the next one to be typed over it.
        EXPECT_EQ(results->number()->selectedText(), QString::number(sid));
    }
    EXPECT_EQ(talk.messages(), std::vector<std::string> {});
    EXPECT_EQ(talk.said.size(), 15u);

    auto& db = window.session().tournament();
    EXPECT_EQ(db.scalar_text("select mtttt from schedule where eid=1 and rname='winner'"), "player 1");
    EXPECT_EQ(db.scalar_integer("select count(*) from schedule where eid=1 and match_state='3'"), 15);

    // The board shows the court dead.
    EXPECT_EQ(area().day_list()->item(0)->text(), QStringLiteral("mon02mar26 \u00BF"));
    const auto courts = test::lines_of(area().court_list());
    EXPECT_TRUE(courts.contains(QStringLiteral("court 1 \u00BF"))) << courts.join(QLatin1Char('|')).toStdString();
    const auto* court = area().view(BoardListId::court);
    ASSERT_EQ(court->count(), 15);
    for (int row = 0; row < court->count(); ++row)
        EXPECT_TRUE(court->item(row)->text().contains(QLatin1Char('*')));

    // The first match is shown but locked now.
    type(results->number(), QString::number(sids.front()));
    press_enter(results->number());
    EXPECT_FALSE(results->top()->isEnabled());
    EXPECT_TRUE(results->score()->isReadOnly());
    EXPECT_EQ(results->note()->text(), QStringLiteral("following round played, cannot change winner"));
    EXPECT_EQ(
        results->following_note()->text(), QStringLiteral("following round match id =") + QString::number(sids[8]));
    results->button(QStringLiteral("following round match id"))->click();
    EXPECT_EQ(results->loaded()->sid, sids[8]);

    // The champion stands in the draw.
    results->button(QStringLiteral("show in draw"))->click();
    auto* draw = window.draw_area();
    ASSERT_EQ(window.current_page(), draw);
    ASSERT_TRUE(draw->open_draw().draw.on_screen);
    EXPECT_EQ(draw->open_draw().slot(5, 1).ttt, "player 1");
    EXPECT_EQ(draw->open_draw().slot(4, 1).score.matchscore, "6-3 6-4");
    EXPECT_NE(draw->view()->slot_item(5, 1), nullptr);
    window.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/addresult_champion.png"));
}

TEST_F(AddResultWindowTest, TheBoardOpensTheWindowOnItsMatchAndCloseConfirmCloses)
{
    window.session().toolbar_click(Area::schedule);
    area().button(QStringLiteral("add result"))->click();
    EXPECT_EQ(talk.last_message(), "select match");
    const auto sids = sids_in_match_order();
    auto& court = area().board().list(BoardListId::court);
    court.select_only(*court.find(sids[2]));
    area().set_active_list(BoardListId::court);
    area().button(QStringLiteral("add result"))->click();
    auto* results = test::last_opened<AddResultWindow>(window);
    ASSERT_NE(results, nullptr);
    ASSERT_TRUE(results->loaded());
    EXPECT_EQ(results->loaded()->sid, sids[2]);
    EXPECT_TRUE(results->details()->toPlainText().startsWith(QStringLiteral("day=mon02mar26\nevent id=1")));

    results->onsave()->setCurrentIndex(results->onsave()->findText(QStringLiteral("close confirm")));
    emit results->onsave()->activated(results->onsave()->currentIndex());
    EXPECT_EQ(window.session().settings().integer("addres.onsave"), static_cast<int>(OnSave::close_confirm));
    results->bottom()->click();
    results->bottom()->click(); // a second click takes the mark off
    EXPECT_EQ(results->winner(), ResultWinner::none);
    results->bottom()->click();
    EXPECT_TRUE(results->bottom()->text().endsWith(QStringLiteral(" *")));
    results->button(QStringLiteral("save"))->click();
    EXPECT_TRUE(test::run_main_loop_until([&] { return test::last_opened<AddResultWindow>(window) == nullptr; }));
    EXPECT_EQ(window.session().tournament().scalar_text("select mwttt from schedule where sid=?", sids[2]), "player 6");
    const auto line = court.line(*court.find(sids[2])).text;
    EXPECT_NE(line.find("player 6*"), std::string::npos) << line;
}

TEST_F(AddResultWindowTest, ShowInScheduleFindsTheMatchAndMayCloseTheWindow)
{
    auto* results = open_from_tournament_area();
    ASSERT_NE(results, nullptr);
    results->button(QStringLiteral("show in schedule"))->click();
    EXPECT_EQ(talk.last_message(), "no match loaded");
    const auto sid = sids_in_match_order()[4];
    ASSERT_TRUE(results->loadsid(sid));
    results->button(QStringLiteral("show in schedule"))->click();
    EXPECT_EQ(window.current_page(), &area());
    auto& court = area().board().list(BoardListId::court);
    ASSERT_TRUE(court.find(sid));
    EXPECT_TRUE(court.line(*court.find(sid)).selected);
    EXPECT_TRUE(results->isVisible());

    results->close_on_jump()->setChecked(true);
    EXPECT_EQ(window.session().settings().integer("addres.close_on_sid_sis"), 1);
    results->button(QStringLiteral("show in draw"))->click();
    EXPECT_EQ(window.current_page(), window.draw_area());
    EXPECT_TRUE(test::run_main_loop_until([&] { return test::last_opened<AddResultWindow>(window) == nullptr; }));
}

TEST_F(AddResultWindowTest, RoundRobinPointsByScoringMode)
{
    auto& session = window.session();
    test::save_rr_draw(session, 2, "group a", 3, 1, 0);
    test::save_rr_draw(session, 3, "group b", 3, 2, 0);
    auto& db = session.tournament();
    const auto first_of
        = [&db](int eid) { return db.scalar_integer("select sid from schedule where eid=? order by \"match\"", eid); };
    auto* results = open_from_tournament_area();
    ASSERT_NE(results, nullptr);

    // Mode 1: points are typed, the score follows them and cannot be typed.
    ASSERT_TRUE(results->loadsid(first_of(2)));
    EXPECT_FALSE(results->points1()->isHidden());
    EXPECT_TRUE(results->score()->isReadOnly());
    type(results->points1(), QStringLiteral("2a.5"));
    EXPECT_EQ(results->points1()->text(), QStringLiteral("2.5"));
    type(results->points2(), QStringLiteral("1"));
    EXPECT_EQ(results->score()->text(), QStringLiteral("2.5/1"));
    results->top()->click();
    results->button(QStringLiteral("save"))->click();
    const auto sid = first_of(2);
    EXPECT_EQ(db.scalar_text("select matchscore || ',' || points1 || ',' || ipoints2 from schedule where sid=?", sid),
        "2.5/1,2.5,1");
    EXPECT_EQ(db.scalar_text("select mwttt from schedule where sid=?", sid),
        db.scalar_text("select mtttt from schedule where sid=?", sid));

    // Mode 2: a win is a point, following the mark.
    ASSERT_TRUE(results->loadsid(first_of(3)));
    EXPECT_TRUE(results->points1()->isReadOnly());
    EXPECT_FALSE(results->score()->isReadOnly());
    results->bottom()->click();
    EXPECT_EQ(results->points1()->text() + results->points2()->text(), QStringLiteral("01"));
    results->bottom()->click();
    EXPECT_EQ(results->points1()->text() + results->points2()->text(), QStringLiteral("00"));
}

TEST_F(AddResultWindowTest, TheDrawsLongScoreAndTheBoardsMatchNote)
{
    window.session().toolbar_click(Area::draw);
    auto* draw = window.draw_area();
    ASSERT_TRUE(draw->choose_event(1));
    ASSERT_TRUE(draw->open_draw().draw.on_screen);
    const auto sid = draw->open_draw().slot(1, 1).sid;

    // A score typed in the box keeps all but the reserved characters.
    draw->set_score(2, 1, QStringLiteral("6-3\u00BF 6-4~"));
    EXPECT_EQ(draw->open_draw().slot(2, 1).score.matchscore, "6-3 6-4");

    draw->long_score(2, 1);
    auto* longscore = test::last_opened<LongScoreWindow>(window);
    ASSERT_NE(longscore, nullptr);
    EXPECT_EQ(longscore->score()->text(), QStringLiteral("6-3 6-4"));
    longscore->longscore()->setText(QStringLiteral("6-3 (4) 6-4~"));
    longscore->button(QStringLiteral("save"))->click();
    EXPECT_EQ(talk.last_message(), "long score cannot contain the character ~");
    longscore->button(QStringLiteral("clear longscore"))->click();
    EXPECT_EQ(longscore->longscore()->text(), QString());
    longscore->longscore()->setText(QStringLiteral("6-3 (4) 7-6"));
    longscore->button(QStringLiteral("save"))->click();
    EXPECT_TRUE(test::run_main_loop_until([&] { return test::last_opened<LongScoreWindow>(window) == nullptr; }));
    EXPECT_EQ(draw->open_draw().slot(2, 1).score.matchlongscore, "6-3 (4) 7-6");
    EXPECT_EQ(window.session().tournament().scalar_text("select imatchlongscore from schedule where sid=?", sid),
        "6-3 (4) 7-6");

    // The board's match note on the same match.
    window.session().toolbar_click(Area::schedule);
    auto& court = area().board().list(BoardListId::court);
    court.select_only(*court.find(sid));
    area().set_active_list(BoardListId::court);
    area().button(QStringLiteral("match note"))->click();
    auto* notes = test::last_opened<MatchNoteWindow>(window);
    ASSERT_NE(notes, nullptr);
    EXPECT_EQ(notes->windowTitle(), QStringLiteral("match note"));
    ASSERT_NE(notes->note(1), nullptr);
    EXPECT_EQ(notes->note(2), nullptr);
    notes->note(1)->setText(QStringLiteral(" needs a physio "));
    notes->general()->setText(QStringLiteral("tv"));
    notes->button(QStringLiteral("save"))->click();
    EXPECT_EQ(window.session().tournament().scalar_text("select p1_matchnote from schedule where sid=?", sid),
        "needs a physio");
    EXPECT_EQ(window.session().tournament().scalar_text("select mg_matchnote from schedule where sid=?", sid), "tv");

    // The windows over a match go when the file closes.
    auto* results = open_from_tournament_area();
    ASSERT_NE(results, nullptr);
    area().clear();
    EXPECT_TRUE(test::run_main_loop_until([&] { return test::last_opened<AddResultWindow>(window) == nullptr; }));
}

} // namespace
} // namespace qv
