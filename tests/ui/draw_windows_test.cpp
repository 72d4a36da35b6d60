#include "core/session.h"
#include "drawengine/ko_progression.h"
#include "entries/filters.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui_test_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>

#include <filesystem>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

void select_lines(QListWidget* list, const QStringList& texts)
{
    list->clearSelection();
    for (const auto& text : texts) {
        const auto found = list->findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        found.front()->setSelected(true);
    }
}

class DrawWindowsTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        db = &session.tournament();
        session.settings().apply_disk_var("refresh_ac_on_do_draw", "0");
        session.settings().apply_disk_var("draw.byes_thru_on_do_draw ", "0");
        session.settings().apply_disk_var("draw.isaveasugo", "0");
        session.settings().apply_disk_var("draw.iautosavechanges", "0");
        talk.clear();
    }

    void add_event(std::int64_t eid, const std::string& name, int entries, int seeds = 0)
    {
        db->run(
            R"(insert into events (eid, eventname, sex, singdobs, drawtype) values (?, ?, 'male', 'singles', 'ko'))",
            eid, name);
        auto next = db->next_id("evententries", "ent_idx");
        for (int k = 1; k <= entries; ++k) {
            const auto sname = "Player" + std::to_string(eid * 100 + k);
            db->run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, seeding, country)
                values (?, ?, ?, 'Al', ?, ?, 'ENG'))",
                next++, eid, "al " + sname, sname, k <= seeds ? k : 0);
        }
    }

    std::int64_t count(const char* sql, std::int64_t eid) { return db->scalar_integer(sql, eid); }
};

TEST_F(DrawWindowsTest, SeedsAreConfiguredMovedAndSaved)
{
    add_event(1, "mens singles", 5);
    DrawConfigWindow window(session, 1);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("draw config: mens singles"));
    EXPECT_FALSE(window.locked_note()->isVisibleTo(&window));
    EXPECT_EQ(window.drawsize_label()->text(), QStringLiteral("8"));

    select_lines(window.list(ConfigList::players), { "al Player103", "al Player101" });
    window.button(QStringLiteral("players_to_seeds"))->click();
    EXPECT_EQ(test::lines_of(window.list(ConfigList::seeds)), QStringList({ "(1)al Player101", "(2)al Player103" }));
    EXPECT_EQ(window.count_label(ConfigList::players)->text(), QStringLiteral("3"));

    select_lines(window.list(ConfigList::seeds), { "(2)al Player103" });
    window.button(QStringLiteral("seed_up"))->click();
    EXPECT_EQ(test::lines_of(window.list(ConfigList::seeds)), QStringList({ "(1)al Player103", "(2)al Player101" }));
    ASSERT_EQ(window.list(ConfigList::seeds)->selectedItems().size(), 1);
    EXPECT_EQ(window.list(ConfigList::seeds)->selectedItems().front()->text(), QStringLiteral("(1)al Player103"));

    select_lines(window.list(ConfigList::players), { "al Player105" });
    window.button(QStringLiteral("players_to_reserves"))->click();
    EXPECT_EQ(test::lines_of(window.list(ConfigList::reserves)), QStringList({ "al Player105" }));

    // The shown size counts the open places at once, and the box takes no more than 128.
    window.box(ConfigBox::wildcards)->setText(QStringLiteral("200"));
    window.button(QStringLiteral("set_wildcards"))->click();
    EXPECT_EQ(talk.last_message(), "max value=128");
    window.box(ConfigBox::wildcards)->setText(QStringLiteral("5"));
    window.button(QStringLiteral("set_wildcards"))->click();
    EXPECT_EQ(window.drawsize_label()->text(), QStringLiteral("16"));
    window.button(QStringLiteral("clr_wildcards"))->click();
    EXPECT_EQ(window.box(ConfigBox::wildcards)->text(), QStringLiteral("0"));
    window.box(ConfigBox::qualifiers)->setText(QStringLiteral("1"));

    int saved = 0;
    QObject::connect(&window, &DrawConfigWindow::saved, [&saved](qint64) { ++saved; });
    window.button(QStringLiteral("save"))->click();
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(db->scalar_integer("select seeding from evententries where player='al Player103'"), 1);
    EXPECT_EQ(db->scalar_integer("select seeding from evententries where player='al Player101'"), 2);
    EXPECT_EQ(db->scalar_integer("select reserve from evententries where player='al Player105'"), 1);
    EXPECT_EQ(count("select qualifiers from events where eid=?", 1), 1);
    EXPECT_EQ(count("select wildcards from events where eid=?", 1), 0);
}

TEST_F(DrawWindowsTest, SelectionsAreAskedForAndRoundRobinSizesAreRefused)
{
    add_event(1, "mens singles", 9);
    DrawConfigWindow window(session, 1);
    window.button(QStringLiteral("players_to_seeds"))->click();
    EXPECT_EQ(talk.last_message(), "select player(s)");
    window.button(QStringLiteral("players_details"))->click();
    EXPECT_EQ(talk.last_message(), "select player");

    QString details;
    QObject::connect(
        &window, &DrawConfigWindow::playerDetailsRequested, [&details](const QString& player) { details = player; });
    window.search_box(ConfigList::players)->setText(QStringLiteral("player104"));
    window.button(QStringLiteral("players_search"))->click();
    window.button(QStringLiteral("players_details"))->click();
    EXPECT_EQ(details, QStringLiteral("al Player104"));

    // The entry goes from the event after the question.
    talk.answers = { Answer::Yes };
    window.button(QStringLiteral("remove_entries"))->click();
    EXPECT_EQ(talk.said.back().text, "This will remove the selected players from this event");
    EXPECT_EQ(window.count_label(ConfigList::players)->text(), QStringLiteral("8"));
    EXPECT_EQ(db->scalar_integer("select count(*) from evententries where player='al Player104'"), 0);

    window.type_line()->setCurrentIndex(2);
    EXPECT_EQ(window.drawsize_label()->text(), QStringLiteral("8"));
    // Eight players and a wildcard: the shown size leaves the wildcard out, the save counts it.
    window.box(ConfigBox::wildcards)->setText(QStringLiteral("1"));
    window.button(QStringLiteral("set_wildcards"))->click();
    EXPECT_EQ(window.drawsize_label()->text(), QStringLiteral("8"));
    EXPECT_FALSE(window.save());
    EXPECT_EQ(talk.last_message(), "round robin for 2-8 players");
    EXPECT_EQ(db->scalar_text("select drawtype from events where eid=1"), "ko");
}

TEST_F(DrawWindowsTest, AnEventWithADrawIsShownButLocked)
{
    add_event(1, "mens singles", 4, 1);
    db->run("update events set drawdone=1 where eid=1");
    DrawConfigWindow window(session, 1);
    EXPECT_TRUE(window.locked_note()->isVisibleTo(&window));
    EXPECT_EQ(window.locked_note()->text(), QStringLiteral("delete draw to edit draw configuration"));
    EXPECT_EQ(test::lines_of(window.list(ConfigList::seeds)), QStringList({ "(1)al Player101" }));
    for (const char* name : { "save", "players_to_seeds", "seed_up", "set_wildcards", "remove_entries" })
        EXPECT_FALSE(window.button(QString::fromLatin1(name))->isEnabled()) << name;
    EXPECT_FALSE(window.type_line()->isEnabled());
    EXPECT_FALSE(window.box(ConfigBox::qualifiers)->isEnabled());
    EXPECT_TRUE(window.button(QStringLiteral("players_search"))->isEnabled());
}

class DrawAreaTest : public DrawWindowsTest
{
protected:
    // A press on the middle of the item's name, as the mouse would make it.
    void click_on(DrawSlotItem* item, Qt::MouseButton button)
    {
        ASSERT_NE(item, nullptr);
        auto* view = area->view();
        view->ensureVisible(item);
        const QPointF at = view->mapFromScene(item->mapToScene(item->name_rect().center()));
        const QPointF global = view->viewport()->mapToGlobal(at);
        QMouseEvent press(QEvent::MouseButtonPress, at, global, button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &press);
        QMouseEvent release(QEvent::MouseButtonRelease, at, global, button, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &release);
    }

    std::unique_ptr<DrawArea> area;

    void SetUp() override
    {
        DrawWindowsTest::SetUp();
        area = std::make_unique<DrawArea>(session);
        area->set_random(std::make_unique<SeededDrawRandom>(7));
        area->resize(1300, 900);
    }

    OpenDraw& draw() { return area->open_draw(); }

    // Clicks the winner of every match, level by level: the top side unless it is a bye.
    void play_to_the_end()
    {
        for (int level = 1; level < draw().levels(); ++level)
            for (int top = 1; top < draw().positions(level); top += 2) {
                const bool top_bye = draw().caption(level, top) == "bye";
                area->click_slot(level, top_bye ? top + 1 : top, left_button);
            }
    }
};

TEST_F(DrawAreaTest, ADrawIsMadePlayedSavedAndRolledBack)
{
    add_event(1, "mens singles", 5, 2);
    add_event(2, "ladies singles", 3);
    area->init();
    EXPECT_EQ(test::lines_of(area->events()), QStringList({ "set filter...", "(1)mens singles", "(2)ladies singles" }));

    // The draw configuration of the chosen event, and its seeds at work in the draw.
    ASSERT_TRUE(area->choose_event(1));
    auto* config = area->open_drawconfig();
    ASSERT_NE(config, nullptr);
    select_lines(config->list(ConfigList::seeds), { "(2)al Player102" });
    config->button(QStringLiteral("seed_up"))->click();
    ASSERT_TRUE(config->save());

    area->button(QStringLiteral("do draw"))->click();
    ASSERT_TRUE(draw().draw.on_screen);
    ASSERT_EQ(draw().draw.drawsize, 8);
    EXPECT_EQ(area->view()->item_count(), 15);
    EXPECT_TRUE(area->save_button_marked());
    EXPECT_EQ(draw().slot(1, 1).ttt, "al Player102"); // seed 1 on the top line
    EXPECT_EQ(slot_line(draw(), 1, 1), "(1) " + draw().caption(1, 1) + " (ENG)");

    // The draw's settings stay as they are while it is loaded.
    area->save_as_u_go_box()->click();
    EXPECT_EQ(talk.last_message(), "cannot alter this setting while draw is loaded");
    EXPECT_FALSE(area->save_as_u_go_box()->isChecked());

    area->button(QStringLiteral("save draw"))->click();
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 1), 8);
    EXPECT_FALSE(area->save_button_marked());
    EXPECT_EQ(area->events()->item(1)->text(), QStringLiteral("*(1)mens singles"));
    EXPECT_FALSE(area->timestamp_label()->text().isEmpty());

    area->button(QStringLiteral("byes thru"))->click();
    play_to_the_end();
    const int top = draw().levels();
    const auto champion = draw().slot(top, 1).ttt;
    ASSERT_FALSE(champion.empty());
    EXPECT_EQ(champion, draw().slot(top - 1, 1).ttt);
    EXPECT_TRUE(area->save_button_marked());
    area->set_score(top, 1, QStringLiteral("64 64"));
    EXPECT_EQ(draw().slot(top, 1).score.matchscore, "64 64");

    area->button(QStringLiteral("save draw"))->click();
    EXPECT_FALSE(area->save_button_marked());
    EXPECT_EQ(db->scalar_text("select mwttt from schedule where eid=1 and rname='final'"), champion);
    EXPECT_EQ(db->scalar_text("select matchscore from schedule where eid=1 and rname='final'"), "64 64");

    // A champion taken back and a score changed, then rolled back to the save.
    area->click_slot(top, 1, right_button);
    EXPECT_TRUE(draw().is_empty(top, 1));
    EXPECT_TRUE(area->save_button_marked());
    area->button(QStringLiteral("rollback to last save"))->click();
    EXPECT_EQ(draw().slot(top, 1).ttt, champion);
    EXPECT_FALSE(area->save_button_marked());
    EXPECT_EQ(count("select count(*) from schedule where eid=? and changed=1", 1), 0);
}

TEST_F(DrawAreaTest, DoDrawKeepsTheDrawOnShowWhileItAsksAndOnlyYesReplacesIt)
{
    add_event(1, "mens singles", 4);
    area->init();
    EXPECT_EQ(area->current_page(), area->hint());
    EXPECT_EQ(area->hint()->text().toStdString(), draw_area_hint(false));
    ASSERT_TRUE(area->choose_event(1));
    EXPECT_EQ(area->current_page(), area->hint());
    EXPECT_NE(area->hint()->text().indexOf("\"do draw\""), -1) << "a drawless event says how its draw is made";

    area->do_draw();
    area->save_draw();
    ASSERT_EQ(area->current_page(), area->view());
    const auto first_round = [this] {
        std::vector<std::string> names;
        for (int p = 1; p <= 4; ++p)
            names.push_back(draw().slot(1, p).ttt);
        return names;
    };
    const auto drawn = first_round();
    int items_while_asking = -1;
    QWidget* page_while_asking = nullptr;
    talk.while_asking = [&] {
        items_while_asking = area->view()->item_count();
        page_while_asking = area->current_page();
    };
    for (Answer answer : { Answer::No, Answer::Cancel, Answer::Yes }) {
        SCOPED_TRACE(int(answer));
        items_while_asking = -1;
        talk.answers = { answer };
        area->button(QStringLiteral("do draw"))->click();
        EXPECT_EQ(talk.said.back().text,
            "This will delete the draw data including any schedule data that may exist,continue?");
        EXPECT_EQ(items_while_asking, 7);
        EXPECT_EQ(page_while_asking, area->view());
        EXPECT_EQ(area->view()->item_count(), 7);
        EXPECT_EQ(count("select count(*) from schedule where eid=?", 1), answer == Answer::Yes ? 0 : 4);
        if (answer != Answer::Yes) {
            EXPECT_EQ(first_round(), drawn);
        }
    }
    EXPECT_TRUE(draw().draw.new_draw) << "Yes: a new draw, not yet saved";
}

TEST_F(DrawAreaTest, LeavingADrawWithChangesAsksFirst)
{
    add_event(1, "mens singles", 4);
    add_event(2, "ladies singles", 3);
    area->init();
    ASSERT_TRUE(area->choose_event(1));
    area->do_draw();
    ASSERT_TRUE(draw().draw.new_draw);

    talk.answers = { Answer::Cancel };
    EXPECT_FALSE(area->choose_event(2));
    EXPECT_EQ(talk.said.back().text, "save changes?");
    EXPECT_EQ(draw().draw.curr_eid, 1);
    EXPECT_EQ(area->events()->currentItem()->text(), QStringLiteral("(1)mens singles"));

    talk.answers = { Answer::Yes };
    EXPECT_TRUE(area->choose_event(2));
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 1), 4);
    EXPECT_EQ(draw().draw.curr_eid, 2);
    EXPECT_FALSE(draw().draw.on_screen);
    EXPECT_EQ(area->view()->item_count(), 0);

    // Back to the saved draw: it is read from schedule; then it is deleted after the question.
    EXPECT_TRUE(area->choose_event(1));
    EXPECT_TRUE(draw().draw.on_screen);
    EXPECT_EQ(area->view()->item_count(), 7);
    talk.answers = { Answer::Yes };
    area->button(QStringLiteral("delete draw"))->click();
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 1), 0);
    EXPECT_EQ(area->view()->item_count(), 0);
    EXPECT_EQ(area->events()->item(1)->text(), QStringLiteral("(1)mens singles"));
}

TEST_F(DrawAreaTest, DoAllDrawsDrawsAndSavesEveryEventWithoutADraw)
{
    add_event(1, "mens singles", 4);
    add_event(2, "ladies singles", 6);
    add_event(3, "empty", 0);
    area->init();
    area->button(QStringLiteral("do all draws"))->click();
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 1), 4);
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 2), 8);
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 3), 0);
    EXPECT_EQ(
        test::lines_of(area->events()).mid(1), QStringList({ "*(1)mens singles", "*(2)ladies singles", "(3)empty" }));
}

TEST_F(DrawAreaTest, DoAllDrawsLeavesEventsTheFilterHides)
{
    add_event(1, "mens singles", 4);
    add_event(2, "mens doubles", 4);
    db->run("update events set singdobs='doubles' where eid=2");
    store_event_filter(session.settings(), filter_keys::draw_events, { "singles", "*", "*", "*", "*", "event number" });
    area->init();
    ASSERT_EQ(test::lines_of(area->events()).mid(1), QStringList({ "(1)mens singles" }));
    area->button(QStringLiteral("do all draws"))->click();
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 1), 4);
    EXPECT_EQ(count("select count(*) from schedule where eid=?", 2), 0);
}

TEST_F(DrawAreaTest, DoDrawNeedsTheEventsLineSelected)
{
    add_event(1, "mens singles", 4);
    area->init();
    ASSERT_TRUE(area->choose_event(1));
    area->events()->clearSelection();
    area->do_draw();
    EXPECT_FALSE(draw().draw.on_screen);
    area->events()->setCurrentRow(1);
    area->do_draw();
    EXPECT_TRUE(draw().draw.on_screen);
}

TEST_F(DrawAreaTest, AHundredAndTwentyEightDrawFitsItsScene)
{
    add_event(1, "big singles", 100, 32);
    area->init();
    ASSERT_TRUE(area->choose_event(1));
    area->do_draw();
    ASSERT_EQ(draw().draw.drawsize, 128);
    EXPECT_EQ(area->view()->item_count(), 255);
    const QRectF scene = area->view()->scene()->sceneRect();
    for (int level = 1; level <= draw().levels(); ++level)
        for (int p = 1; p <= draw().positions(level); ++p) {
            auto* item = area->view()->slot_item(level, p);
            EXPECT_TRUE(scene.contains(item->mapRectToScene(item->boundingRect())));
        }
}

TEST_F(DrawAreaTest, AThirtyTwoDrawIsShownOneItemPerSlot)
{
    add_event(1, "open singles", 27, 8);
    area->init();
    area->show();
    ASSERT_TRUE(area->choose_event(1));
    area->do_draw();
    area->byes_thru();
    ASSERT_EQ(draw().draw.drawsize, 32);
    EXPECT_EQ(area->view()->item_count(), 63);

    // Each line below the one before it, and each later line between its two feeders.
    for (int p = 2; p <= 32; ++p)
        EXPECT_GT(
            area->view()->slot_item(1, p)->y(), area->view()->slot_item(1, p - 1)->y() + DrawSlotItem::name_height - 1);
    for (int level = 2; level <= draw().levels(); ++level)
        for (int p = 1; p <= draw().positions(level); ++p) {
            const auto y = area->view()->slot_item(level, p)->y();
            EXPECT_GT(y, area->view()->slot_item(level - 1, 2 * p - 1)->y());
            EXPECT_LT(y, area->view()->slot_item(level - 1, 2 * p)->y());
        }
    // A slot facing a bye went on, and its item shows the name.
    int sent = 0;
    for (int p = 1; p <= 16; ++p)
        sent += !draw().is_empty(2, p);
    EXPECT_EQ(sent, 5);

    // A click on a score box opens the editor over it; its text goes to the box.
    area->view()->edit_score(2, 1);
    ASSERT_TRUE(area->view()->score_editor()->isVisible());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(area->view()->score_editor(), &escape);
    EXPECT_FALSE(area->view()->score_editor()->isVisible());
    EXPECT_TRUE(draw().slot(2, 1).score.matchscore.empty());
    area->view()->edit_score(2, 1);
    area->view()->score_editor()->setText(QStringLiteral("62 61"));
    emit area->view()->score_editor()->editingFinished();
    EXPECT_FALSE(area->view()->score_editor()->isVisible());
    EXPECT_EQ(draw().slot(2, 1).score.matchscore, "62 61");

    // A real click on a first-round name, through the view, sends the player on.
    const int free_pair = [this] {
        for (int p = 1; p <= 31; p += 2)
            if (draw().is_empty(2, (p + 1) / 2))
                return p;
        return 0;
    }();
    ASSERT_GT(free_pair, 0);
    click_on(area->view()->slot_item(1, free_pair + 1), Qt::LeftButton);
    EXPECT_EQ(draw().slot(2, (free_pair + 1) / 2).ttt, draw().slot(1, free_pair + 1).ttt);
    click_on(area->view()->slot_item(2, (free_pair + 1) / 2), Qt::RightButton);
    EXPECT_TRUE(draw().is_empty(2, (free_pair + 1) / 2));

    fs::create_directories(QV_SCREENSHOT_DIR);
    const auto file = fs::path(QV_SCREENSHOT_DIR) / "draw32.png";
    const QImage shot = area->grab().toImage();
    ASSERT_TRUE(shot.save(QString::fromStdString(file.string())));
    EXPECT_TRUE(fs::exists(file));
    EXPECT_GE(shot.width(), 1300);
}

} // namespace
} // namespace qv
