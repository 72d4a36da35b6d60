#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/force_draw.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

class ForceDrawTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;
    ForceDrawLayout layout;
    OpenDraw open;
    DrawSaveHooks hooks;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        for (const auto* key : { "draw.isaveasugo", "draw.iautosavechanges", "refresh_ac_on_do_draw" })
            session.settings().apply_disk_var(key, "0");
        db->run("insert into events (eid, eventname, sex, singdobs, drawtype) values (1, 'open', 'male', 'singles', "
                "'ko')");
        // ent_idx runs against the names, so that the two orders of the players list differ.
        db->run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, country, psex, reserve)
            values (5, 1, 'al bee', 'al', 'bee', 'NZL', 'male', 0), (4, 1, 'cy dee', 'cy', 'dee', 'AUS', 'male', 0),
                   (3, 1, 'ed eff', 'ed', 'eff', '', 'male', 0), (2, 1, 'gil hay', 'gil', 'hay', '', 'male', 0),
                   (1, 1, 'ivo jay', 'ivo', 'jay', '', 'male', 1))");
        hooks.force_draw_fix_players = [this](OpenDraw& d) { force_draw_fix_players(*db, d.draw.curr_eid); };
        talk.clear();
    }

    std::vector<std::string> lines() const
    {
        std::vector<std::string> out;
        for (const auto& slot : layout.positions())
            out.push_back(force_slot_line(slot));
        return out;
    }
    std::vector<std::string> left() const
    {
        std::vector<std::string> out;
        for (const auto& entry : layout.players())
            out.push_back(entry.player);
        return out;
    }
    void open_event()
    {
        open = OpenDraw {};
        BF_load_draw(session, open, 1, hooks);
    }
};

TEST_F(ForceDrawTest, TargetSizeLaysOutTheDefaultSeedsAndDiscardsTheSavedLayout)
{
    layout.set_target_size(session, 1, 8, ForceOrder::by_player);
    EXPECT_EQ(lines(),
        (std::vector<std::string> {
            "(1)[s1]bye", "(2)[]bye", "(3)[]bye", "(4)[s4]bye", "(5)[s3]bye", "(6)[]bye", "(7)[]bye", "(8)[s2]bye" }));
    // Reserves stay off the list; the two orders.
    EXPECT_EQ(left(), (std::vector<std::string> { "al bee", "cy dee", "ed eff", "gil hay" }));
    ASSERT_TRUE(layout.insert(session, 0, 7));
    layout.save(session, 1, false);
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(db->scalar_integer("select count(*) from force_draw where eid=1"), 8);

    layout.load(*db, 1, ForceOrder::by_insertion);
    EXPECT_EQ(lines().back(), "(8)[s2]al bee");
    EXPECT_EQ(left(), (std::vector<std::string> { "gil hay", "ed eff", "cy dee" }));

    layout.set_target_size(session, 1, 4, ForceOrder::by_player);
    EXPECT_EQ(db->scalar_integer("select count(*) from force_draw where eid=1"), 0);
    EXPECT_EQ(lines(), (std::vector<std::string> { "(1)[s1]bye", "(2)[]bye", "(3)[]bye", "(4)[s2]bye" }));
    EXPECT_EQ(left().size(), 4u);
}

TEST_F(ForceDrawTest, InsertRemoveAndMirrorMovePlayersBetweenTheLists)
{
    layout.set_target_size(session, 1, 4, ForceOrder::by_player);
    EXPECT_FALSE(layout.insert(session, std::nullopt, 0));
    EXPECT_FALSE(layout.insert(session, 0, std::nullopt));
    EXPECT_FALSE(layout.remove(session, std::nullopt));
    EXPECT_FALSE(layout.mirror(session, {}));
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> { "select player on left", "select position on right", "select position on right",
            "select position on right" }));

    ASSERT_TRUE(layout.mirror(session, { 3, 1 }));
    EXPECT_EQ(lines(), (std::vector<std::string> { "(1)[s1]bye", "(2)[]cy dee", "(3)[]bye", "(4)[s2]al bee" }));
    // A player put on an occupied slot sends the one there back to the list.
    ASSERT_TRUE(layout.insert(session, 0, 3));
    EXPECT_EQ(lines()[3], "(4)[s2]ed eff");
    EXPECT_EQ(left(), (std::vector<std::string> { "al bee", "gil hay" }));
    ASSERT_TRUE(layout.remove(session, 1));
    EXPECT_EQ(lines()[1], "(2)[]bye");
    EXPECT_EQ(left(), (std::vector<std::string> { "al bee", "cy dee", "gil hay" }));
    // The other order sorts the list again and keeps what was laid out.
    layout.set_order(ForceOrder::by_insertion);
    EXPECT_EQ(left(), (std::vector<std::string> { "gil hay", "cy dee", "al bee" }));
    EXPECT_EQ(lines()[3], "(4)[s2]ed eff");
    ASSERT_TRUE(layout.mirror(session, { 0, 1, 2 }));
    EXPECT_TRUE(left().empty());
    talk.clear();
    EXPECT_FALSE(layout.mirror(session, { 0 }));
    EXPECT_EQ(talk.last_message(), "select players");
}

TEST_F(ForceDrawTest, TheDrawTakesEverySlotAndItsSaveFixesTheReserves)
{
    layout.set_target_size(session, 1, 8, ForceOrder::by_player);
    ASSERT_TRUE(layout.insert(session, 1, 0)); // cy dee on the first seed's slot
    layout.save(session, 1, false);
    open_event();
    ASSERT_TRUE(FORCEDRAW(session, open));
    EXPECT_TRUE(open.draw.force_draw);
    EXPECT_TRUE(open.draw.new_draw);
    ASSERT_EQ(open.positions(1), 8);
    EXPECT_EQ(open.slot(1, 1).ttt, "cy dee");
    EXPECT_EQ(open.slot(1, 1).seed, "1");
    EXPECT_EQ(open.slot(1, 1).country, "AUS");
    EXPECT_EQ(open.slot(1, 1).sex, "m");
    for (int p = 2; p <= 8; ++p)
        EXPECT_EQ(open.slot(1, p).ttt, "bye") << p;

    save_draw(session, open, hooks);
    EXPECT_FALSE(open.draw.force_draw);
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid=1 and rname <> 'winner'"), 7);
    EXPECT_EQ(db->scalar_text("select group_concat(player) from (select player from evententries where eid=1 and "
                              "reserve=0 order by player)"),
        "cy dee");
    EXPECT_EQ(db->scalar_integer("select count(*) from evententries where eid=1 and reserve<>0"), 4);
}

TEST_F(ForceDrawTest, IgnoringSeedingLeavesNoSeedMarks)
{
    layout.set_target_size(session, 1, 4, ForceOrder::by_player);
    ASSERT_TRUE(layout.mirror(session, { 0, 1, 2, 3 }));
    layout.save(session, 1, true);
    EXPECT_EQ(db->scalar_integer("select count(*) from force_draw where eid=1 and seed<>''"), 0);
    open_event();
    ASSERT_TRUE(FORCEDRAW(session, open));
    for (int p = 1; p <= 4; ++p)
        EXPECT_EQ(open.slot(1, p).seed, "") << p;
}

TEST_F(ForceDrawTest, NoLayoutOrAPlayerGoneFromTheEntriesStopsTheDraw)
{
    open_event();
    EXPECT_FALSE(FORCEDRAW(session, open));
    EXPECT_EQ(talk.last_message(), "No force draw configuration defined");

    layout.set_target_size(session, 1, 4, ForceOrder::by_player);
    ASSERT_TRUE(layout.mirror(session, { 0, 3 }));
    layout.save(session, 1, false);
    db->run("delete from evententries where player='al bee'");
    talk.clear();
    EXPECT_FALSE(FORCEDRAW(session, open));
    EXPECT_FALSE(open.draw.on_screen);
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "text");
    EXPECT_EQ(talk.said[0].title, "Force Draw Ambiguity");
    std::ifstream report(talk.said[0].text);
    std::vector<std::string> read;
    for (std::string line; std::getline(report, line);)
        read.push_back(line.substr(0, line.find('\r')));
    ASSERT_EQ(read.size(), 8u);
    EXPECT_EQ(read[0], "force draw errors");
    EXPECT_EQ(read[1].substr(0, 3), "1) ");
    EXPECT_EQ(read[4], "3) Players were removed using the 'draw configuration' tool,'remove' function");
    EXPECT_EQ(read[6], "al bee");
    EXPECT_EQ(read[7], "5)You can reset your force draw configuration using the 'force draw config'. tool");
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid=1"), 0);
}

TEST_F(ForceDrawTest, CountriesComeFromTheRegisterWhenTheDrawRefreshesThem)
{
    db->run("insert into players (pid, player, sex, country, availabilityrestrictions) values (1, 'cy dee', 'male', "
            "'FRA', 'late'), (2, 'al bee', 'male', 'GBR/IRL', '')");
    layout.set_target_size(session, 1, 2, ForceOrder::by_player);
    ASSERT_TRUE(layout.mirror(session, { 0, 1 }));
    layout.save(session, 1, false);
    session.settings().apply_disk_var("refresh_ac_on_do_draw", "1");
    open_event();
    ASSERT_TRUE(FORCEDRAW(session, open));
    EXPECT_EQ(open.slot(1, 1).ttt, "al bee");
    EXPECT_EQ(open.slot(1, 1).country, ""); // too long for the sheet
    EXPECT_EQ(open.slot(1, 2).country, "FRA");
    EXPECT_EQ(open.slot(1, 2).ar, ".");
    EXPECT_EQ(db->scalar_text("select country from force_draw where player='al bee'"), "GBR/IRL");
}

} // namespace
} // namespace qv
