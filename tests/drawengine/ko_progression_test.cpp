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

class KoProgressionTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;
    OpenDraw open;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().apply_disk_var("draw.isaveasugo", "0");
        session.settings().apply_disk_var("refresh_ac_on_do_draw", "0");
        session.settings().apply_disk_var("draw.byes_thru_on_do_draw ", "0");
        db->run(
            "insert into events (eid, eventname, sex, singdobs, drawtype) values (1, 'open', 'male', 'singles', 'ko')");
        talk.clear();
    }

    // A new, unsaved draw whose first round holds the names as they are in all three forms.
    void place(const std::vector<std::string>& names)
    {
        open.draw = DrawState {};
        load_event_state(*db, 1, open.draw);
        open.build_tree(static_cast<int>(names.size()));
        for (int i = 1; i <= static_cast<int>(names.size()); ++i) {
            auto& slot = open.slot(1, i);
            slot.ttt = slot.frn = slot.tag = names[static_cast<std::size_t>(i - 1)];
        }
        open.draw.on_screen = true;
        open.draw.new_draw = true;
    }

    ClickResult left(int level, int position) { return master_click(session, open, level, position, left_button); }
    ClickResult right(int level, int position) { return master_click(session, open, level, position, right_button); }
    std::string at(int level, int position) const { return open.slot(level, position).ttt; }
};

TEST_F(KoProgressionTest, FirstRoundRefusalsComeInTheirOrderAndChangeNothing)
{
    struct Case
    {
        std::vector<std::string> names;
        std::string expected; // empty: nothing said
    };
    const std::vector<Case> cases = {
        { { "bye", "p2" }, "cannot send bye to next round" },
        { { " Bye ", "wildcard" }, "cannot send bye to next round" },
        { { "Wildcard", "p2" }, "cannot send wildcard to next round" },
        { { "qualifier", "wildcard" }, "cannot send qualifier to next round" },
        { { "p1", "wildcard" }, "player must have opponent" },
        { { "p1", "Qualifier" }, "player must have opponent" },
        // The opponent test comes before the empty test: an empty slot facing a wildcard is still told.
        { { "", "wildcard" }, "player must have opponent" },
        { { "", "p2" }, "" },
        { { "p1", "" }, "no opponent" },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.names[0] + " v " + c.names[1]);
        place({ c.names[0], c.names[1], "p3", "p4" });
        talk.clear();
        const auto result = left(1, 1);
        EXPECT_EQ(result.outcome, c.expected.empty() ? ClickOutcome::nothing : ClickOutcome::refused);
        EXPECT_EQ(talk.last_message(), c.expected);
        EXPECT_TRUE(open.is_empty(2, 1));
    }
}

TEST_F(KoProgressionTest, APlayerFacingAByePassesAndTheNameFormsTravel)
{
    place({ "bye", "x", "p3", "p4" });
    auto& player = open.slot(1, 2);
    player.ttt = "Alexander Longname";
    player.frn = "A.Longname";
    player.tag = "ALongname";
    player.seed = "1";
    player.country = "NZL";
    player.ar = ".";
    player.sex = "m";
    open.slot(2, 1).score.matchscore = "kept";

    const auto result = left(1, 2);
    ASSERT_EQ(result.outcome, ClickOutcome::sent_on);
    EXPECT_EQ(result.changed, (std::vector<SlotAddress> { { 2, 1 } }));
    const auto& next = open.slot(2, 1);
    EXPECT_EQ(next.ttt, "Alexander Longname");
    EXPECT_EQ(open.caption(2, 1), "ALongname");
    EXPECT_EQ(open.second_form(2, 1), "A.Longname");
    EXPECT_EQ(open.data_field(2, 1), "NZL^1^.^m^");
    EXPECT_EQ(next.score.matchscore, "kept");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(KoProgressionTest, ALaterRoundCannotBeOverwrittenOnceTheRoundAfterIsPlayed)
{
    place({ "p1", "p2", "p3", "p4", "p5", "p6", "p7", "p8" });
    left(1, 1);
    left(1, 3);
    left(2, 1);
    ASSERT_EQ(at(3, 1), "p1");

    EXPECT_EQ(left(1, 2).outcome, ClickOutcome::refused);
    EXPECT_EQ(talk.last_message(), "next round already played,roll back first");
    EXPECT_EQ(at(2, 1), "p1");

    // Taking back follows the tree from the front: the semi first, then the quarter.
    EXPECT_EQ(right(2, 1).outcome, ClickOutcome::refused);
    EXPECT_EQ(talk.last_message(), "clear result first");
    EXPECT_EQ(right(3, 1).outcome, ClickOutcome::taken_back);
    EXPECT_TRUE(open.is_empty(3, 1));
    EXPECT_EQ(left(1, 2).outcome, ClickOutcome::sent_on);
    EXPECT_EQ(at(2, 1), "p2");
}

TEST_F(KoProgressionTest, ASemiWinnerChangesWhileTheFinalIsUndecided)
{
    place({ "p1", "p2", "p3", "p4", "p5", "p6", "p7", "p8" });
    for (int s = 1; s <= 8; s += 2)
        left(1, s);
    left(2, 1);
    left(2, 3);
    ASSERT_EQ(at(3, 1), "p1");
    ASSERT_EQ(at(3, 2), "p5");

    EXPECT_EQ(left(2, 2).outcome, ClickOutcome::sent_on);
    EXPECT_EQ(at(3, 1), "p3");

    left(3, 2);
    EXPECT_EQ(at(4, 1), "p5");
    // The champion is decided: the semis are closed, but the final's winner can still be taken back.
    EXPECT_EQ(left(2, 1).outcome, ClickOutcome::refused);
    EXPECT_EQ(right(4, 1).outcome, ClickOutcome::taken_back);
    EXPECT_EQ(left(2, 1).outcome, ClickOutcome::sent_on);
}

TEST_F(KoProgressionTest, ClicksThatDoNothing)
{
    place({ "p1", "p2" });
    EXPECT_EQ(left(1, 2).outcome, ClickOutcome::sent_on);
    EXPECT_EQ(at(2, 1), "p2");
    // The winner line of a draw of 2: no further level, no message.
    EXPECT_EQ(left(2, 1).outcome, ClickOutcome::nothing);
    EXPECT_EQ(left(1, 1).outcome, ClickOutcome::sent_on);
    EXPECT_EQ(at(2, 1), "p1");

    EXPECT_EQ(right(1, 1).outcome, ClickOutcome::first_round_menu);
    EXPECT_EQ(right(2, 1).outcome, ClickOutcome::taken_back);
    EXPECT_EQ(right(2, 1).outcome, ClickOutcome::nothing);

    open.draw.list1_showing = true;
    EXPECT_EQ(left(1, 1).outcome, ClickOutcome::nothing);
    EXPECT_TRUE(open.is_empty(2, 1));
    EXPECT_EQ(master_click(session, open, 7, 1, left_button).outcome, ClickOutcome::nothing);
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(KoProgressionTest, ByesThruSendsOnlyNamedPlayersAndRepeatsItself)
{
    place({ "p1", "bye", "bye", "bye", "wildcard", "bye", "bye", "p8" });
    EXPECT_EQ(KO_getbyecount(open), 5);
    const auto first = sendbyesthru(session, open);
    EXPECT_EQ(first, (std::vector<SlotAddress> { { 2, 1 }, { 2, 4 } }));
    EXPECT_EQ(at(2, 1), "p1");
    EXPECT_TRUE(open.is_empty(2, 2));
    EXPECT_TRUE(open.is_empty(2, 3));
    EXPECT_EQ(at(2, 4), "p8");
    EXPECT_FALSE(open.draw.batch);
    EXPECT_TRUE(talk.said.empty());

    EXPECT_EQ(sendbyesthru(session, open), first);
    EXPECT_EQ(at(2, 1), "p1");
    EXPECT_EQ(at(2, 4), "p8");

    EXPECT_EQ(left(1, 6).outcome, ClickOutcome::refused);
    EXPECT_EQ(talk.last_message(), "cannot send bye to next round");
}

TEST_F(KoProgressionTest, ByesThruGoesOnWhereTheRoundAfterIsFilled)
{
    place({ "p1", "bye", "p3", "p4" });
    left(1, 1);
    left(1, 3);
    left(2, 1);
    ASSERT_EQ(at(3, 1), "p1");
    left(1, 2); // refused: the bye
    EXPECT_EQ(sendbyesthru(session, open).size(), 1u);
    EXPECT_EQ(at(2, 1), "p1");

    open.draw.drawtype = "rr";
    EXPECT_TRUE(sendbyesthru(session, open).empty());
}

TEST_F(KoProgressionTest, ScoreBoxesAreColouredFromRoundTwoOn)
{
    place({ "p1", "p2", "p3", "p4" });
    set_scoreboxes(open, true);
    EXPECT_FALSE(open.slot(1, 1).score.highlighted);
    EXPECT_TRUE(open.slot(2, 2).score.highlighted);
    EXPECT_TRUE(open.slot(3, 1).score.highlighted);
    set_scoreboxes(open, false);
    EXPECT_FALSE(open.slot(3, 1).score.highlighted);

    ScoreBox box;
    box.tag = "61 62?10:30";
    EXPECT_EQ(settsdisplay(box).score, "61 62");
    EXPECT_EQ(settsdisplay(box).time, "10:30");
}

// A generated draw of 11 saved, byes sent, and every top player clicked through to the champion.
TEST_F(KoProgressionTest, WinnersClickedThroughToTheChampionOfAGeneratedDraw)
{
    auto next = db->next_id("evententries", "ent_idx");
    for (int k = 1; k <= 11; ++k)
        db->run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, seeding)
            values (?, 1, ?, ?, 'x', ?))",
            next++, "player " + std::to_string(k), "player " + std::to_string(k), k <= 4 ? std::to_string(k) : "0");
    load_event_state(*db, 1, open.draw);
    SeededDrawRandom random(20261123);
    ASSERT_TRUE(KO_do_draw2(session, open, random));
    ASSERT_EQ(open.draw.drawsize, 16);
    save_draw(session, open);
    ASSERT_FALSE(open.draw.new_draw);

    EXPECT_EQ(KO_getbyecount(open), 5);
    EXPECT_EQ(sendbyesthru(session, open).size(), 5u);
    for (int level = 1; level < open.draw.rounds; ++level)
        for (int s = 1; s <= open.positions(level); s += 2) {
            if (!open.is_empty(level + 1, OpenDraw::next_position(s)))
                continue;
            ASSERT_EQ(left(level, s).outcome, ClickOutcome::sent_on) << level << "." << s;
        }
    EXPECT_TRUE(talk.messages().empty());
    const auto champion = at(open.draw.rounds, 1);
    ASSERT_FALSE(champion.empty());
    EXPECT_TRUE(check_for_changes(open));

    save_draw(session, open);
    EXPECT_EQ(db->scalar_text("select mtttt from schedule where eid = 1 and rname = 'winner'"), champion);
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = 1 and changed <> 0"), 0);
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = 1 and mtttt <> imtttt"), 0);
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = 1 and match_state = '0'"), 5);
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = 1 and match_state = '3'"), 10);
    // Each real match's winner stands in the row its mw_ptr names.
    EXPECT_EQ(db->scalar_integer(R"(select count(*) from schedule s where eid = 1 and rname <> 'winner' and
        not exists (select 1 from schedule n where n.eid = 1 and
        ((n.mt = s.mw_ptr and n.mtttt = s.mwttt) or (n.mb = s.mw_ptr and n.mbttt = s.mwttt))))"),
        0);
}

TEST_F(KoProgressionTest, AScoreBoxBelongsToTheMatchOneLevelDown)
{
    place({ "p1", "p2", "p3", "p4" });
    save_draw(session, open);
    open.slot(2, 2).score.matchlongscore = "64 (75) 63";
    const auto request = add_ls(open, 2, 2);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->match.match, 2);
    EXPECT_EQ(request->match.sid, db->scalar_integer("select sid from schedule where mt = '1.3'"));
    EXPECT_EQ(request->matchlongscore, "64 (75) 63");
    EXPECT_EQ(request->top, "p3");
    EXPECT_EQ(request->bottom, "p4");
    EXPECT_EQ(get_ctr_match(open, 3, 1)->match, 3);
    EXPECT_FALSE(get_ctr_match(open, 1, 1));
    EXPECT_FALSE(get_ctr_match(open, 2, 3));
}

TEST_F(KoProgressionTest, ProgressDrawLetsTheTopPlayersWinARound)
{
    place({ "p1", "p2", "p3", "p4" });
    save_draw(session, open);
    progressdraw(session, 1, 1);
    EXPECT_EQ(db->scalar_text("select mwttt from schedule where eid = 1 and mt = '1.3'"), "p3");
    EXPECT_EQ(db->scalar_text("select matchlongscore from schedule where eid = 1 and mt = '1.1'"), "61 (76) 62 63 64");
    EXPECT_EQ(db->scalar_text("select mbttt || '|' || imbttt || '|' || match_state from schedule where mt = '2.1'"),
        "p3|p3|2");
    progressdraw(session, 1, 2);
    EXPECT_EQ(db->scalar_text("select mtttt from schedule where rname = 'winner'"), "p1");
    EXPECT_EQ(db->scalar_text("select matchscore from schedule where mt = '2.1'"), "61 62 63 64");
}

} // namespace
} // namespace qv
