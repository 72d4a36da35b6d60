// A director's first morning, through the windows only: players and an event typed in, the players entered,
// the draw made from the tournament area, played to a champion and saved.
#include "core/session.h"
#include "drawengine/draw_random.h"
#include "drawengine/ko_progression.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/add_to_event_window.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/events_windows.h"
#include "ui/main_window.h"
#include "ui/players_windows.h"
#include "ui/toolbar_windows.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qv {
namespace {

// A line of the toolbar's "tools" window.
void use_tool(MainWindow& window, const QString& caption)
{
    auto* tools = window.open_tools();
    ASSERT_NE(tools, nullptr);
    auto* button = tools->button(caption);
    ASSERT_NE(button, nullptr) << caption.toStdString();
    button->click();
}

TEST(DirectorWalkthroughTest, FromAnEmptyFileToASavedChampion)
{
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };
    window.resize(1100, 700);
    window.show();
    auto& session = window.session();
    session.boot_start_app(dir.new_tournament().string());
    ASSERT_TRUE(session.has_tournament());
    auto& db = session.tournament();

    // Six players typed one after the other into "add new player".
    use_tool(window, "add new player");
    auto* add_player = test::last_opened<AddPlayerWindow>(window);
    ASSERT_NE(add_player, nullptr);
    const char* names[][2] = { { "ann", "archer" }, { "bob", "baker" }, { "cy", "cole" }, { "di", "dunn" },
        { "ed", "egan" }, { "flo", "ford" } };
    for (const auto& [first, second] : names) {
        add_player->fields()->fname()->setText(first);
        add_player->fields()->sname()->setText(second);
        ASSERT_NE(add_player->save(), 0) << first;
    }
    EXPECT_EQ(window.tournament_area()->players()->count(), 6);

    // One event from "add new event".
    use_tool(window, "add new event");
    auto* add_event = test::last_opened<AddEventWindow>(window);
    ASSERT_NE(add_event, nullptr);
    add_event->fields()->name()->setText("open singles");
    add_event->fields()->sex()->setCurrentText("neutral");
    ASSERT_NE(add_event->save(), 0);
    ASSERT_EQ(window.tournament_area()->events()->count(), 1);

    // Everyone entered through "add to event".
    session.ishow(Area::mainform);
    auto& area = *window.tournament_area();
    test::click_operation(area, OperationList::players, "add to event");
    auto* add_to = test::last_opened<AddToEventWindow>(window);
    ASSERT_NE(add_to, nullptr);
    auto* players = add_to->source(AddToEventWindow::Tab::players).list;
    for (int row = 1; row < players->count(); ++row)
        players->item(row)->setSelected(true);
    auto* targets = add_to->targets().list;
    targets->setCurrentRow(targets->count() - 1);
    talk.answers.push_back(Answer::No);
    add_to->add(AddToEventWindow::Tab::players);
    EXPECT_EQ(db.scalar_integer("select count(*) from evententries"), 6);

    // The draw shown from the tournament area, made, played and saved.
    area.events()->setCurrentRow(0);
    EXPECT_EQ(area.entries()->count(), 6);
    window.draw_area()->set_random(std::make_unique<SeededDrawRandom>(7));
    test::click_operation(area, OperationList::events, "show draw");
    ASSERT_EQ(session.current_area(), Area::draw);
    auto& draw_area = *window.draw_area();
    draw_area.button(QStringLiteral("do draw"))->click();
    auto& draw = draw_area.open_draw();
    ASSERT_EQ(draw.draw.drawsize, 8);
    draw_area.button(QStringLiteral("byes thru"))->click();
    for (int level = 1; level < draw.levels(); ++level)
        for (int top = 1; top < draw.positions(level); top += 2)
            draw_area.click_slot(level, draw.caption(level, top) == "bye" ? top + 1 : top, left_button);
    const auto champion = draw.slot(draw.levels(), 1).ttt;
    ASSERT_FALSE(champion.empty());
    draw_area.button(QStringLiteral("save draw"))->click();

    EXPECT_EQ(db.scalar_text("select mwttt from schedule where rname='final'"), champion);
    EXPECT_EQ(db.scalar_integer("select drawdone from events"), 1);
    EXPECT_EQ(db.scalar_integer("select count(*) from schedule where changed=1"), 0);
    // Back in the tournament area the event carries its draw mark.
    session.ishow(Area::mainform);
    EXPECT_EQ(area.events()->item(0)->text().left(1), "*");
}

} // namespace
} // namespace qv
