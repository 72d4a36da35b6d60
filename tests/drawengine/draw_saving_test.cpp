#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

std::tm fixed_time()
{
    std::tm when {};
    when.tm_year = 2026 - 1900;
    when.tm_mon = 10;
    when.tm_mday = 23;
    when.tm_wday = 1;
    when.tm_hour = 9;
    when.tm_min = 5;
    when.tm_sec = 7;
    return when;
}

class DrawSavingTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;
    OpenDraw open;
    DrawSaveHooks hooks;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        set("draw.isaveasugo", "0");
        set("draw.iautosavechanges", "0");
        db->run(
            "insert into events (eid, eventname, sex, singdobs, drawtype) values (1, 'open', 'male', 'singles', 'ko')");
        db->run("insert into evententries (ent_idx, eid, player) values (1, 1, 'p1'), (2, 1, 'p2')");
        hooks.now = fixed_time;
        talk.clear();
    }

    void set(const std::string& key, const std::string& value) { session.settings().apply_disk_var(key, value); }

    // A new draw of four, the slots carrying seed, country, ar and sex so that every column has something.
    void place_and_save()
    {
        open.draw = DrawState {};
        load_event_state(*db, 1, open.draw);
        open.build_tree(4);
        const char* names[] = { "p1", "p2/q2", "p3", "bye" };
        for (int i = 1; i <= 4; ++i) {
            auto& slot = open.slot(1, i);
            slot.ttt = names[i - 1];
            slot.frn = slot.ttt + "f";
            slot.tag = slot.ttt + "t";
            slot.seed = i == 1 ? "1" : "";
            slot.country = i == 1 ? "NZL" : "";
            slot.ar = i == 2 ? ".." : "";
            slot.sex = "m";
        }
        open.draw.on_screen = true;
        open.draw.new_draw = true;
        save_draw(session, open, hooks);
    }

    std::string row(const std::string& mt, const std::string& columns)
    {
        return db->scalar_text("select " + columns + " from schedule where eid = 1 and mt = ?", mt);
    }
    std::int64_t changed_rows() { return db->scalar_integer("select count(*) from schedule where changed = 1"); }
    void left(int level, int position) { master_click(session, open, level, position, left_button); }
    void right(int level, int position) { master_click(session, open, level, position, right_button); }
};

TEST_F(DrawSavingTest, ANewDrawIsWrittenToLiveAndShadowColumnsAndMarked)
{
    EXPECT_EQ(draw_timestamp(fixed_time()), "Monday, November 23, 2026 09:05:07");
    place_and_save();
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = 1"), 4);
    EXPECT_EQ(row("1.1", "mtttt||'|'||mtfrn||'|'||mttag||'|'||mtseeding||'|'||mt_country||'|'||mtsex||'|'||p1"),
        "p1|p1f|p1t|1|NZL|m|p1");
    EXPECT_EQ(row("1.1", "mbttt||'|'||mbar||'|'||p3||'|'||p4||'|'||ip3||'|'||ip4"), "p2/q2|..|p2|q2|p2|q2");
    EXPECT_EQ(row("1.3", "match_state"), "0");
    EXPECT_EQ(row("1.1", "match_state"), "2");
    for (const auto* column : { "mtttt", "mtfrn", "mttag", "mbttt", "mbfrn", "mbtag", "mtseeding", "mt_country", "mtar",
             "mbar", "mtsex", "mbsex", "p1", "p2", "p3", "p4" })
        EXPECT_EQ(
            db->scalar_integer(std::string("select count(*) from schedule where ") + column + " <> i" + column), 0)
            << column;
    EXPECT_EQ(changed_rows(), 0);
    EXPECT_EQ(db->scalar_text("select drawdone||'|'||drawsize||'|'||drawtype||'|'||timestamp_text from events"),
        "1|4|ko|Monday, November 23, 2026 09:05:07");
    EXPECT_EQ(db->scalar_integer("select drawdone from evententries where ent_idx = 2"), 1);
    EXPECT_EQ(host.count("refresh " + std::to_string(int(Lists::events))), 1);
    EXPECT_FALSE(open.draw.new_draw);
    EXPECT_FALSE(check_for_changes(open));
    EXPECT_EQ(open.slot(1, 2).ttt, "p2/q2");
    EXPECT_EQ(open.slot(1, 2).sid, db->scalar_integer("select sid from schedule where mt = '1.1'"));

    // Nothing waits: a second save changes nothing.
    db->run("update events set timestamp_text = 'kept'");
    save_draw(session, open, hooks);
    EXPECT_EQ(db->scalar_text("select timestamp_text from events"), "kept");
}

TEST_F(DrawSavingTest, AClickGoesToTheShadowUntilSaved)
{
    place_and_save();
    left(1, 2);
    EXPECT_EQ(row("1.1", "mwttt||'|'||imwttt||'|'||changed"), "|p2/q2|1");
    EXPECT_EQ(row("2.1", "mtttt||'|'||imtttt||'|'||imtfrn||'|'||imtar||'|'||ip1||'|'||ip2||'|'||changed"),
        "|p2/q2|p2/q2f|..|p2|q2|1");
    EXPECT_EQ(row("1.1", "match_state"), "2");
    EXPECT_TRUE(check_for_changes(open));
    EXPECT_TRUE(open.draw.changes_waiting);

    // A row the user did not touch is not copied over.
    db->run("update schedule set mtfrn = 'by hand' where mt = '1.3'");
    save_draw(session, open, hooks);
    EXPECT_EQ(row("1.3", "mtfrn"), "by hand");
    EXPECT_EQ(row("1.1", "mwttt||'|'||changed||'|'||match_state"), "p2/q2|0|3");
    EXPECT_EQ(row("2.1", "mtttt||'|'||mtar||'|'||p1||'|'||p2"), "p2/q2|..|p2|q2");
    EXPECT_FALSE(check_for_changes(open));
    EXPECT_EQ(db->scalar_text("select timestamp_text from events"), "Monday, November 23, 2026 09:05:07");
    EXPECT_EQ(open.slot(2, 1).ttt, "p2/q2");
}

TEST_F(DrawSavingTest, TakingBackByHandClearsChanged)
{
    place_and_save();
    left(1, 1);
    ASSERT_EQ(changed_rows(), 2);
    right(2, 1);
    EXPECT_EQ(changed_rows(), 0);
    EXPECT_FALSE(check_for_changes(open));
    EXPECT_EQ(row("2.1", "imtttt||'|'||ip1"), "|");
}

TEST_F(DrawSavingTest, RollbackReturnsToTheLastSave)
{
    place_and_save();
    left(1, 1);
    left(1, 3);
    save_draw(session, open, hooks);
    left(1, 2); // another winner for the first match
    left(2, 2);
    ASSERT_EQ(open.slot(3, 1).ttt, "p3");
    ASSERT_EQ(changed_rows(), 3);

    BF_rollback_draw(session, open, hooks);
    EXPECT_EQ(changed_rows(), 0);
    EXPECT_EQ(open.slot(2, 1).ttt, "p1");
    EXPECT_EQ(open.slot(2, 1).country, "NZL");
    EXPECT_TRUE(open.is_empty(3, 1));
    EXPECT_EQ(row("2.1", "imtttt||'|'||imwttt"), "p1|");
    EXPECT_FALSE(check_for_changes(open));

    // A draw never saved has nothing to go back to and stays as it is.
    open.draw.new_draw = true;
    open.slot(3, 1).ttt = open.slot(3, 1).frn = "p1";
    BF_rollback_draw(session, open, hooks);
    EXPECT_EQ(open.slot(3, 1).ttt, "p1");
}

TEST_F(DrawSavingTest, SaveAsYouGoWritesBothColumnsAndRefusesRollback)
{
    place_and_save();
    set("draw.isaveasugo", "1");
    left(1, 1);
    EXPECT_EQ(row("2.1", "mtttt||'|'||imtttt||'|'||mt_country||'|'||imt_country||'|'||changed"), "p1|p1|NZL|NZL|0");
    EXPECT_EQ(row("1.1", "match_state"), "3");
    EXPECT_EQ(changed_rows(), 0);
    EXPECT_FALSE(check_for_changes(open));

    BF_rollback_draw(session, open, hooks);
    EXPECT_EQ(
        talk.last_message(), "Cannot roll back as you are in 'save as u go mode', all changes are therefore immediate");
    EXPECT_EQ(open.slot(2, 1).ttt, "p1");

    right(2, 1);
    EXPECT_EQ(row("1.1", "mwttt||'|'||match_state"), "|2");
}

TEST_F(DrawSavingTest, TheTwoSaveSettingsAreLockedWhileADrawIsLoaded)
{
    open.draw.on_screen = true;
    EXPECT_TRUE(draw_save_settings_locked(open));
    EXPECT_FALSE(set_draw_save_setting(session, open, "draw.isaveasugo", true));
    EXPECT_EQ(talk.last_message(), "cannot alter this setting while draw is loaded");
    EXPECT_EQ(session.settings().integer("draw.isaveasugo"), 0);

    open.draw.on_screen = false;
    EXPECT_TRUE(set_draw_save_setting(session, open, "draw.iautosavechanges", true));
    EXPECT_EQ(session.settings().integer("draw.iautosavechanges"), 1);
    EXPECT_EQ(session.settings().get_disk_var("draw.iautosavechanges"), "1");
    EXPECT_FALSE(set_draw_save_setting(session, open, "draw.ihilightscorebox", true));
}

TEST_F(DrawSavingTest, LeavingAnswersEachReason)
{
    struct Case
    {
        LeaveReason reason;
        Answer answer;
        bool leaves;
        bool saved;
    };
    const std::vector<Case> cases = {
        { LeaveReason::switchingdraws, Answer::Yes, true, true },
        { LeaveReason::closingdraws, Answer::Yes, true, true },
        { LeaveReason::switchingforms, Answer::Yes, true, true },
        { LeaveReason::switchingdraws, Answer::No, true, false },
        { LeaveReason::closingdraws, Answer::No, true, false },
        { LeaveReason::switchingforms, Answer::No, true, false },
        { LeaveReason::switchingdraws, Answer::Cancel, false, false },
        { LeaveReason::closingdraws, Answer::Cancel, false, false },
        { LeaveReason::switchingforms, Answer::Cancel, false, false },
    };
    place_and_save();
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(int(c.reason)) + "/" + std::to_string(int(c.answer)));
        BF_load_draw(session, open, 1, hooks);
        if (open.is_empty(2, 1))
            left(1, 1);
        else
            right(2, 1);
        const auto shadow = row("1.1", "imwttt");
        ASSERT_TRUE(check_for_changes(open));
        talk.clear();
        talk.answers = { c.answer };
        EXPECT_EQ(leave_draw(session, open, c.reason, hooks), c.leaves);
        ASSERT_EQ(talk.said.size(), 1u);
        EXPECT_EQ(talk.said[0].text, "save changes?");
        EXPECT_EQ(talk.said[0].title, "Confirm");
        EXPECT_EQ(row("1.1", "mwttt") == shadow, c.saved);
        EXPECT_EQ(row("1.1", "imwttt"), shadow);
        EXPECT_EQ(changed_rows() == 0, c.saved);
        EXPECT_EQ(open.slot(2, 1).ttt, shadow);
        // The answer No leaves the changes where the next opening finds them.
        OpenDraw again;
        BF_load_draw(session, again, 1, hooks);
        EXPECT_EQ(again.slot(2, 1).ttt, shadow);
        EXPECT_EQ(check_for_changes(again), !c.saved);
        if (!c.saved) {
            save_draw(session, open, hooks);
            ASSERT_EQ(changed_rows(), 0);
        }
    }
}

TEST_F(DrawSavingTest, LeavingWithoutAQuestion)
{
    place_and_save();
    EXPECT_TRUE(leave_draw(session, open, LeaveReason::switchingdraws, hooks)); // nothing waits
    left(1, 1);
    set("draw.isaveasugo", "1");
    EXPECT_TRUE(leave_draw(session, open, LeaveReason::closingdraws, hooks));
    set("draw.isaveasugo", "0");
    set("draw.iautosavechanges", "1");
    EXPECT_TRUE(leave_draw(session, open, LeaveReason::closingdraws, hooks));
    EXPECT_EQ(changed_rows(), 0);
    EXPECT_EQ(row("1.1", "mwttt"), "p1");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(DrawSavingTest, ANewDrawCountsAsChanged)
{
    for (const bool autosave : { false, true }) {
        SCOPED_TRACE(autosave);
        db->run("delete from schedule");
        set("draw.iautosavechanges", autosave ? "1" : "0");
        open.draw = DrawState {};
        load_event_state(*db, 1, open.draw);
        open.build_tree(2);
        open.slot(1, 1).ttt = open.slot(1, 1).frn = open.slot(1, 1).tag = "p1";
        open.draw.on_screen = open.draw.new_draw = true;
        talk.clear();
        talk.answers = { Answer::No };
        EXPECT_TRUE(leave_draw(session, open, LeaveReason::switchingdraws, hooks));
        EXPECT_EQ(talk.said.size(), autosave ? 0u : 1u);
        EXPECT_EQ(db->scalar_integer("select count(*) from schedule"), autosave ? 2 : 0);
        EXPECT_EQ(open.draw.new_draw, !autosave);
    }
}

TEST_F(DrawSavingTest, ASlotWriteNestsInACallersTransaction)
{
    place_and_save();
    {
        Transaction outer(*db);
        left(1, 1);
        EXPECT_EQ(row("2.1", "imtttt"), "p1");
    }
    EXPECT_EQ(row("2.1", "imtttt"), "");
}

TEST_F(DrawSavingTest, AForceDrawFixesItsPlayersOnceItHasRows)
{
    std::vector<std::int64_t> seen;
    hooks.force_draw_fix_players = [&](OpenDraw& d) { seen.push_back(d.slot(1, 1).sid); };
    open.draw = DrawState {};
    load_event_state(*db, 1, open.draw);
    open.build_tree(2);
    open.slot(1, 1).ttt = open.slot(1, 1).frn = open.slot(1, 1).tag = "p1";
    open.draw.on_screen = open.draw.new_draw = open.draw.force_draw = true;
    save_draw(session, open, hooks);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0], db->scalar_integer("select sid from schedule where mt = '1.1'"));
    EXPECT_FALSE(open.draw.force_draw);
}

TEST_F(DrawSavingTest, LiveCountsTellTheBoardWhichDayAndCourtChanged)
{
    place_and_save();
    db->run("update schedule set scheduledate = '2026-11-23', cid = 2 where mt = '1.1'");
    db->run("update schedule set scheduledate = '2026-11-24', cid = 1 where mt = '2.1'");
    int marks = 0;
    std::vector<DayCourt> renumbered;
    hooks.board.shown = [] { return std::optional<DayCourt>(DayCourt { "2026-11-23", 2 }); };
    hooks.board.mark_for_refresh = [&] { ++marks; };
    hooks.board.renumber = [&](const std::vector<DayCourt>& changed) { renumbered = changed; };

    left(1, 1);
    save_draw(session, open, hooks);
    EXPECT_EQ(marks, 1);
    EXPECT_EQ(renumbered, (std::vector<DayCourt> { { "2026-11-23", 2 } }));
    EXPECT_EQ(row("1.1", "prev_match_state"), "3");

    // A count with nothing new: the board is left alone.
    renumbered.clear();
    EXPECT_TRUE(do_live_match_counts(*db, 1, hooks.board).empty());
    EXPECT_EQ(marks, 1);
    EXPECT_TRUE(renumbered.empty());

    // The match turns live again: its day is reported once more.
    right(2, 1);
    save_draw(session, open, hooks);
    EXPECT_EQ(marks, 2);
    EXPECT_EQ(row("1.1", "prev_match_state"), "2");
}

} // namespace
} // namespace qv
