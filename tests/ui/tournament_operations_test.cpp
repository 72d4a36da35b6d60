#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/main_window.h"
#include "ui/tournament_area.h"
#include "ui/tournament_operations.h"
#include "ui_test_support.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qv {
namespace {

// The windows an operation opened, by object name, among the main window's children.
QWidget* opened(const QWidget& parent, const char* name)
{
    for (auto* widget : parent.findChildren<QWidget*>(QString::fromLatin1(name)))
        if (widget->isWindow() && widget->isVisible())
            return widget;
    return nullptr;
}

class TournamentOperationsTest : public ::testing::Test
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
        auto& db = window.session().tournament();
        db.run(R"(insert into events (eid, eventname, sex, singdobs, pte, drawtype) values
            (1, 'mens singles', 'male', 'singles', 'p', 'ko'), (2, 'womens singles', 'female', 'singles', 'p', 'ko'))");
        db.run(R"(insert into players (pid, player, fname, sname, sex, pval) values
            (1, 'bob jones', 'bob', 'jones', 'male', 1), (2, 'tom brown', 'tom', 'brown', 'male', 1),
            (3, 'ann smith', 'ann', 'smith', 'female', 1))");
        db.run(R"(insert into evententries (ent_idx, eid, en, player, reserve) values
            (1, 1, 'mens singles', 'bob jones', 0), (2, 1, 'mens singles', 'tom brown', 0))");
        area().refresh();
    }

    TournamentArea& area() { return *window.tournament_area(); }
};

TEST_F(TournamentOperationsTest, TheListsOfferTheirWindowsInOrder)
{
    EXPECT_EQ(test::lines_of(area().operations(OperationList::events)),
        QStringList(
            { "show draw", "select draw", "events", "draw config", "manage events", "seeding patterns", "search" }));
    EXPECT_EQ(test::lines_of(area().operations(OperationList::players)),
        QStringList(
            { "players", "   import/export", "   delete", "   folders", "manage folders", "add to event", "search" }));

    // The windows open over the main window.
    test::click_operation(area(), OperationList::players, "add to event");
    EXPECT_NE(opened(window, "addtoevent"), nullptr);
    test::click_operation(area(), OperationList::events, "draw config");
    EXPECT_EQ(talk.messages().back(), "select event");
    area().events()->setCurrentRow(0);
    test::click_operation(area(), OperationList::events, "draw config");
    EXPECT_NE(opened(window, "drawconfig"), nullptr);
}

TEST_F(TournamentOperationsTest, SearchFindsTheNextLineAndWrapsRound)
{
    auto* players = area().players();
    players->setCurrentRow(-1);
    EXPECT_TRUE(search_list(players, "JONES"));
    EXPECT_EQ(players->currentItem()->text(), "bob jones");
    EXPECT_TRUE(search_list(players, "o"));
    EXPECT_EQ(players->currentItem()->text(), "tom brown");
    EXPECT_TRUE(search_list(players, "o"));
    EXPECT_EQ(players->currentItem()->text(), "bob jones");
    EXPECT_FALSE(search_list(players, "zed"));
    EXPECT_EQ(players->currentItem()->text(), "bob jones");
}

TEST_F(TournamentOperationsTest, RemovingSelectedEntriesAsksAndRefreshes)
{
    area().events()->setCurrentRow(0);
    ASSERT_EQ(area().entries()->count(), 2);
    area().entries()->item(0)->setSelected(true);

    talk.answers.push_back(Answer::No);
    EXPECT_EQ(area().remove_selected_entries(), 0);
    EXPECT_EQ(area().entries()->count(), 2);

    talk.answers.push_back(Answer::Yes);
    area().entries()->item(0)->setSelected(true);
    EXPECT_EQ(area().remove_selected_entries(), 1);
    EXPECT_EQ(talk.said.back().text, "This will remove the selected players from this event");
    EXPECT_EQ(area().entries()->count(), 1);
    EXPECT_EQ(window.session().tournament().row_count("evententries"), 1);
}

TEST_F(TournamentOperationsTest, ShowDrawOpensTheSelectedEventInTheDrawArea)
{
    window.session().ishow(Area::mainform);
    area().events()->setCurrentRow(0);
    test::click_operation(area(), OperationList::events, "show draw");
    EXPECT_EQ(window.session().current_area(), Area::draw);
    EXPECT_EQ(window.draw_area()->open_draw().draw.curr_eid, 1);
}

TEST_F(TournamentOperationsTest, ResolveDoublesIsOfferedForADoublesEventOnly)
{
    window.session().tournament().run(R"(insert into events (eid, eventname, sex, singdobs, pte, drawtype) values
        (3, 'mixed doubles', 'mixed', 'doubles', 'p', 'ko'))");
    area().refresh();
    auto* lines = area().operations(OperationList::selected_event);
    const auto resolve_line = lines->findItems(QStringLiteral("resolve doubles"), Qt::MatchExactly).front();
    for (int row = 0; row < area().events()->count(); ++row) {
        area().events()->setCurrentRow(row);
        const bool doubles = area().events()->item(row)->text().contains(QStringLiteral("doubles"));
        EXPECT_EQ(resolve_line->isHidden(), !doubles) << row;
        if (doubles) {
            test::click_operation(area(), OperationList::selected_event, "resolve doubles");
            auto* opened_window = opened(window, "resolve_doubles");
            ASSERT_NE(opened_window, nullptr);
            EXPECT_EQ(opened_window->windowTitle(), QStringLiteral("resolve doubles: mixed doubles"));
            opened_window->close();
        }
    }
}

} // namespace
} // namespace qv
