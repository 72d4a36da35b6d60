#include "core/session.h"
#include "drawengine/open_draw.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/force_draw_window.h"
#include "ui/replacement_windows.h"
#include "ui/resolve_doubles_window.h"
#include "ui_test_support.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qv {
namespace {

// From raw doubles rows to a hand-made draw whose withdrawn team makes way for a reserve, through the windows.
class DoublesForceReplaceTest : public ::testing::Test
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
        db = &session.tournament();
        for (const auto* key : { "draw.isaveasugo", "draw.iautosavechanges", "refresh_ac_on_do_draw",
                 "draw.byes_thru_on_do_draw", "resolve_autocomplete", "force_draw_ignore_seeding" })
            session.settings().apply_disk_var(key, "0");
        db->run("insert into events (eid, eventname, sex, singdobs, pte, drawtype) values (1, 'mixed doubles', "
                "'mixed', 'doubles', 'p', 'ko')");
        // Eight raw rows; "ada a" stands in two of them, so the later one finds her taken.
        auto raw = db->query(R"(insert into rawdoublesentries (rdidx, eid, player, playerfname, playersname, p1sex,
            partnername, partnerfname, partnersname, p2sex, p1, p2) values (?, 1, ?, ?, 'a', 'female', ?, ?, 'b',
            'male', 'free', 'free'))");
        const char* shes[] = { "ada", "bea", "cleo", "dora", "edna", "flo", "gwen", "ada" };
        const char* hes[] = { "al", "ben", "cid", "dov", "ed", "fox", "guy", "hal" };
        for (int k = 0; k < 8; ++k) {
            raw.bind_all(k + 1, std::string(shes[k]) + " a", shes[k], std::string(hes[k]) + " b", hes[k]);
            raw.step();
            raw.reset();
        }
        talk.clear();
    }
};

TEST_F(DoublesForceReplaceTest, RawRowsBecomeAForcedDrawAndAReserveReplacesAWithdrawnTeam)
{
    // Resolve all eight rows at once.
    ResolveDoublesWindow resolve(session, 1);
    EXPECT_EQ(resolve.windowTitle(), QStringLiteral("resolve doubles: mixed doubles"));
    ASSERT_EQ(resolve.left_col()->count(), 8);
    resolve.left_col()->selectAll();
    EXPECT_EQ(resolve.right_col()->selectedItems().size(), 8);
    talk.answers.push_back(Answer::No);
    resolve.run_action(QStringLiteral("resolve"));
    EXPECT_EQ(talk.said.back().text, "7 teams resolved,1 errors,view the errors?");
    EXPECT_EQ(resolve.resolved()->count(), 7);
    for (int row = 0; row < 8; ++row)
        EXPECT_EQ(resolve.left_col()->item(row)->background().color(), QColor(Qt::lightGray)) << row;
    EXPECT_EQ(resolve.right_col()->item(1)->foreground().color(), QColor(Qt::blue));
    EXPECT_EQ(resolve.right_col()->item(1)->background().color(), QColor(Qt::white)); // hal b stays free
    EXPECT_EQ(resolve.totals()->text(), QStringLiteral("7 teams resolved, 8 raw entries, 1 of 16 players free"));
    resolve.show();
    resolve.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/resolve_doubles.png"));
    resolve.run_action(QStringLiteral("toggle"));
    EXPECT_TRUE(resolve.showing_resolved());

    // Lay six teams onto a sixteen and draw it; the seventh becomes a reserve on the save.
    DrawArea area(session);
    area.init();
    ASSERT_TRUE(area.choose_event(1));
    auto* layout = area.open_force_draw_config();
    ASSERT_NE(layout, nullptr);
    layout->choose_size(16);
    ASSERT_EQ(layout->positions()->count(), 16);
    EXPECT_EQ(layout->positions()->item(0)->text(), QStringLiteral("(1)[s1]bye"));
    for (int row : { 0, 3, 4, 7, 8, 11 })
        layout->positions()->item(row)->setSelected(true);
    layout->mirror();
    EXPECT_EQ(layout->players()->count(), 1);
    EXPECT_EQ(layout->positions()->item(0)->text(), QStringLiteral("(1)[s1]ada a/al b"));
    layout->save();
    EXPECT_EQ(talk.last_message(), "ok");
    layout->show();
    layout->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/force_draw_new.png"));
    layout->close();

    area.button(QStringLiteral("force draw"))->click();
    ASSERT_TRUE(area.open_draw().draw.on_screen);
    ASSERT_EQ(area.open_draw().positions(1), 16);
    EXPECT_EQ(area.view()->item_count(), 31);
    area.save_draw();
    EXPECT_EQ(db->scalar_text("select player from evententries where eid=1 and reserve<>0"), "gwen a/guy b");

    // "bea a/ben b" withdraws: the first-round menu brings the reserve in.
    int position = 0;
    for (int p = 1; p <= 16; ++p)
        if (area.open_draw().slot(1, p).ttt == "bea a/ben b")
            position = p;
    ASSERT_GT(position, 0);
    auto* menu = area.first_round_menu(position);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(test::menu_lines(menu),
        QStringList({ "replace", "set as bye", "set as wildcard", "set as qualifier", "overide name", "cancel" }));
    menu->actions().front()->trigger();
    ASSERT_TRUE(test::run_main_loop_until([&] { return area.r1_window() != nullptr; }));
    auto* replacements = qobject_cast<ReplacementsWindow*>(area.r1_window());
    ASSERT_NE(replacements, nullptr);
    EXPECT_EQ(test::lines_of(replacements->reserves()), QStringList({ "gwen a/guy b" }));
    replacements->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/replacements.png"));
    replacements->accept_button()->click();
    EXPECT_EQ(area.open_draw().slot(1, position).ttt, "gwen a/guy b");
    EXPECT_EQ(db->scalar_text("select player from evententries where eid=1 and reserve<>0"), "bea a/ben b");
    const auto column = position % 2 ? "mtttt" : "mbttt";
    EXPECT_EQ(
        db->scalar_integer(std::string("select count(*) from schedule where eid=1 and ") + column + "='gwen a/guy b'"),
        1);
    delete menu;

    // A click on the seed of a first-round line overrides it.
    int seeded = 0;
    for (int p = 1; p <= 16 && !seeded; ++p)
        seeded = area.open_draw().slot(1, p).seed.empty() ? 0 : p;
    ASSERT_GT(seeded, 0);
    area.field_click(seeded, SlotField::seed);
    auto* seeding = qobject_cast<SlotFieldsWindow*>(area.r1_window());
    ASSERT_NE(seeding, nullptr);
    EXPECT_EQ(seeding->objectName(), QStringLiteral("override_seeding"));
    seeding->field(0)->setText(QStringLiteral("9"));
    seeding->accept_button()->click();
    EXPECT_EQ(area.open_draw().slot(1, seeded).seed, "9");
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid=1 and (mtseeding='9' or mbseeding='9')"), 1);
}

TEST_F(DoublesForceReplaceTest, ClicksOnNamesMakeATeamAtOnceUnderAutoComplete)
{
    ResolveDoublesWindow resolve(session, 1);
    resolve.auto_complete()->setChecked(true);
    EXPECT_EQ(session.settings().integer("resolve_autocomplete"), 1);
    resolve.name_clicked(resolve.left_col(), 2); // bea a
    EXPECT_EQ(resolve.label1()->text(), QStringLiteral("bea a"));
    resolve.name_clicked(resolve.left_col(), 2);
    EXPECT_EQ(talk.last_message(), "player already selected");
    resolve.name_clicked(resolve.right_col(), 1); // hal b
    EXPECT_TRUE(resolve.label1()->text().isEmpty());
    EXPECT_EQ(test::lines_of(resolve.resolved()), QStringList({ "bea a/hal b" }));
    EXPECT_EQ(resolve.left_col()->item(2)->background().color(), QColor(Qt::lightGray));
    EXPECT_EQ(resolve.left_col()->item(0)->background().color(), QColor(Qt::white));
}

TEST_F(DoublesForceReplaceTest, TheSpaceBarInsertsTheZKeyRemovesAndANewSizeStartsOver)
{
    db->run(R"(insert into evententries (ent_idx, eid, player, sd) values (1, 1, 'ada a/al b', 'doubles'),
        (2, 1, 'bea a/ben b', 'doubles'))");
    ForceDrawWindow window(session, 1, "mixed doubles");
    EXPECT_EQ(window.windowTitle(), QStringLiteral("force draw config: mixed doubles"));
    window.choose_size(4);
    window.players()->setCurrentRow(1);
    window.positions()->setCurrentRow(2);
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QCoreApplication::sendEvent(window.players(), &space);
    EXPECT_EQ(window.positions()->item(2)->text(), QStringLiteral("(3)[]bea a/ben b"));
    EXPECT_EQ(test::lines_of(window.players()), QStringList({ "ada a/al b" }));
    window.save();
    window.positions()->setCurrentRow(2);
    QKeyEvent z(QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, QStringLiteral("z"));
    QCoreApplication::sendEvent(window.positions(), &z);
    EXPECT_EQ(window.positions()->item(2)->text(), QStringLiteral("(3)[]bye"));
    EXPECT_EQ(window.players()->count(), 2);
    window.choose_size(2);
    EXPECT_EQ(window.positions()->count(), 2);
    EXPECT_EQ(db->scalar_integer("select count(*) from force_draw"), 0);
}

} // namespace
} // namespace qv
