#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_progression.h"
#include "drawengine/replacements.h"
#include "support/drawn_tournament.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

class ReplacementsTest : public ::testing::Test
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
        for (const auto* key : { "draw.isaveasugo", "draw.iautosavechanges", "refresh_ac_on_do_draw" })
            session.settings().apply_disk_var(key, "0");
        test::add_drawn_tournament_people(*db);
        test::draw_every_event(session);
        // Reserves: a singles player, a team of two new people and a team that shares a person with the draw.
        db->run(R"(insert into players (pid, player, fname, sname, sex, pval, country) values
            (90, 'ivan mann', 'ivan', 'mann', 'male', 1, 'NZL'))");
        db->run(R"(insert into evententries (ent_idx, eid, player, reserve, psex, playerfname, playersname, country)
            values (20, 1, 'ivan mann', 1, 'male', 'ivan', 'mann', 'NZL'),
                   (21, 2, 'kim new/lou new', 1, 'female.male', 'kim', 'new', ''),
                   (22, 2, 'idab duo/max new', 1, 'female.male', 'idab', 'duo', ''))");
        talk.clear();
    }

    void load(std::int64_t eid) { BF_load_draw(session, open, eid, hooks); }
    int position_of(const std::string& name) const
    {
        for (int p = 1; p <= open.positions(1); ++p)
            if (open.slot(1, p).ttt == name)
                return p;
        return 0;
    }
    bool reserve(std::int64_t eid, const std::string& name)
    {
        return db->scalar_integer("select reserve from evententries where eid=? and player=?", eid, name) != 0;
    }
    // The saved (live) full name of a first-round slot.
    std::string saved_name(int position)
    {
        const auto column = position % 2 ? "mtttt" : "mbttt";
        return db->scalar_text(
            std::string("select ") + column + " from schedule where eid=? and " + (position % 2 ? "mt" : "mb") + "=?",
            open.draw.curr_eid, "1." + std::to_string(position));
    }
};

TEST_F(ReplacementsTest, MenuLinesFollowWhatTheSlotHolds)
{
    load(1);
    struct Case
    {
        std::string name;
        std::vector<std::string> lines;
    } cases[] = {
        { "adam mann", { "replace", "set as bye", "set as wildcard", "set as qualifier", "overide name", "cancel" } },
        { "wildcard", { "replace", "set as bye", "set as qualifier", "cancel" } },
        { "qualifier", { "replace", "set as bye", "set as wildcard", "cancel" } },
        { "bye", { "replace", "set as wildcard", "set as qualifier", "cancel" } },
    };
    for (const auto& c : cases) {
        open.slot(1, 1).ttt = c.name;
        EXPECT_EQ(r1_rmc(open, 1), c.lines) << c.name;
    }
}

TEST_F(ReplacementsTest, SetAsByeMakesTheLeaverAReserveAndRefusesADoubleBye)
{
    load(1);
    const int p = position_of("bert mann");
    ASSERT_GT(p, 0);
    const auto partner_name = open.slot(1, OpenDraw::partner(p)).ttt;
    ASSERT_TRUE(set_as_bye(session, open, p, "bye", hooks));
    EXPECT_EQ(open.slot(1, p).ttt, "bye");
    EXPECT_EQ(open.slot(1, p).seed, "");
    EXPECT_EQ(saved_name(p), "bye");
    EXPECT_TRUE(reserve(1, "bert mann"));

    EXPECT_FALSE(set_as_bye(session, open, OpenDraw::partner(p), "bye", hooks));
    EXPECT_EQ(talk.last_message(), "cannot introduce a double bye");
    EXPECT_EQ(open.slot(1, OpenDraw::partner(p)).ttt, partner_name);
    EXPECT_EQ(saved_name(OpenDraw::partner(p)), partner_name);

    ASSERT_TRUE(set_as_bye(session, open, p, "wildcard", hooks));
    EXPECT_EQ(open.slot(1, p).seed, "wc");
    EXPECT_EQ(saved_name(p), "wildcard");
    // A wildcard replaced by a reserve: the reserve comes in, and no entry is named after the place holder.
    ASSERT_TRUE(REP_replace_player_or_team1(session, open, "ivan mann", p, hooks));
    EXPECT_EQ(saved_name(p), "ivan mann");
    EXPECT_EQ(open.slot(1, p).seed, "");
    EXPECT_EQ(open.slot(1, p).country, "NZL");
    EXPECT_FALSE(reserve(1, "ivan mann"));
    EXPECT_TRUE(reserve(1, "bert mann"));
}

TEST_F(ReplacementsTest, ReplacingAPlayerSwapsTheReserveAndRefusesOneAlreadyIn)
{
    load(1);
    const int p = position_of("gus mann");
    ASSERT_TRUE(REP_replace_player_or_team1(session, open, "ivan mann", p, hooks));
    EXPECT_EQ(saved_name(p), "ivan mann");
    EXPECT_TRUE(reserve(1, "gus mann"));
    EXPECT_FALSE(reserve(1, "ivan mann"));
    EXPECT_EQ(event_reserves(*db, 1), std::vector<std::string> { "gus mann" });

    const int q = position_of("hans mann");
    EXPECT_FALSE(REP_replace_player_or_team1(session, open, "Ivan Mann ", q, hooks));
    EXPECT_EQ(talk.last_message(), "player already in draw");
    EXPECT_EQ(saved_name(q), "hans mann");
}

TEST_F(ReplacementsTest, ADoublesReserveSharingAPersonIsRefusedWithTheTeam)
{
    load(2);
    const int p = position_of("idaa duo/jona duo");
    ASSERT_GT(p, 0);
    EXPECT_FALSE(REP_replace_player_or_team1(session, open, "idab duo/max new", p, hooks));
    EXPECT_EQ(talk.last_message(), "idab duo already in the draw, team idab duo/jonb duo");
    EXPECT_TRUE(reserve(2, "idab duo/max new"));

    ASSERT_TRUE(REP_replace_player_or_team1(session, open, "kim new/lou new", p, hooks));
    EXPECT_EQ(saved_name(p), "kim new/lou new");
    EXPECT_EQ(open.slot(1, p).sex, "fm");
    EXPECT_TRUE(reserve(2, "idaa duo/jona duo"));
}

TEST_F(ReplacementsTest, ASlotWithAResultTakesNoChangeOfAnyKind)
{
    load(1);
    const int p = position_of("dirk mann");
    ASSERT_EQ(master_click(session, open, 1, p, left_button).outcome, ClickOutcome::sent_on);
    save_draw(session, open, hooks);
    talk.clear();
    const auto before = open.slot(1, p);
    const std::string played = "cannot modify round1 while match played, clear result first";
    EXPECT_FALSE(set_as_bye(session, open, p, "qualifier", hooks));
    EXPECT_FALSE(REP_replace_player_or_team1(session, open, "ivan mann", OpenDraw::partner(p), hooks));
    EXPECT_FALSE(overidenames(session, open, p, "D. Mann", "DM", hooks));
    EXPECT_FALSE(override_seeding(session, open, p, "5", hooks));
    EXPECT_FALSE(overidecountry_singles(session, open, p, "GER", hooks));
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> { played, played, played,
            "cannot overide seeding when player has already played a match",
            "cannot overide country when player has already played a match" }));
    EXPECT_EQ(open.slot(1, p).ttt, before.ttt);
    EXPECT_EQ(open.slot(1, p).frn, before.frn);
    EXPECT_EQ(open.slot(1, p).seed, before.seed);
    EXPECT_TRUE(reserve(1, "ivan mann"));
}

TEST_F(ReplacementsTest, ANewDrawLeftUnsavedTakesNoChange)
{
    load(1);
    open.draw.new_draw = true; // as a draw just made and not yet saved
    const int p = position_of("adam mann");
    talk.answers.push_back(Answer::No);
    EXPECT_FALSE(set_as_bye(session, open, p, "wildcard", hooks));
    ASSERT_FALSE(talk.said.empty());
    EXPECT_EQ(talk.said.back().text, "save changes?");
    EXPECT_EQ(open.slot(1, p).ttt, "adam mann");
    EXPECT_FALSE(reserve(1, "adam mann"));
}

TEST_F(ReplacementsTest, OverridesKeepTheFullNameAndAreSavedAtOnce)
{
    load(1);
    const int p = position_of("emil mann");
    ASSERT_TRUE(overidenames(session, open, p, "E. Mann-Override-Too-Long", "Emil M.", hooks));
    EXPECT_EQ(open.slot(1, p).ttt, "emil mann");
    EXPECT_EQ(open.slot(1, p).frn, "E. Mann-Override-T");
    const auto frn_column = p % 2 ? "mtfrn" : "mbfrn";
    EXPECT_EQ(db->scalar_text(std::string("select ") + frn_column + " from schedule where eid=1 and (mt=? or mb=?)",
                  "1." + std::to_string(p), "1." + std::to_string(p)),
        "E. Mann-Override-T");
    EXPECT_FALSE(overidenames(session, open, p, "E. Mann", "  ", hooks));
    EXPECT_EQ(talk.last_message(), "value required");
    EXPECT_EQ(open.slot(1, p).tag, "Emil M.");
    talk.clear();
    EXPECT_FALSE(overidecountry_singles(session, open, p, "N^Z", hooks));
    EXPECT_EQ(talk.messages().size(), 1u);
    ASSERT_TRUE(override_seeding(session, open, p, "7", hooks));
    ASSERT_TRUE(overidecountry_singles(session, open, p, "GER", hooks));
    BF_load_draw(session, open, 1, hooks);
    EXPECT_EQ(open.slot(1, p).seed, "7");
    EXPECT_EQ(open.slot(1, p).country, "GER");
    EXPECT_EQ(open.slot(1, p).tag, "Emil M.");
}

TEST_F(ReplacementsTest, DoublesCountryTakesOneCodePerPersonButNotForPlaceHolders)
{
    load(2);
    const int p = position_of("idac duo/jonc duo");
    ASSERT_TRUE(overidecountry_doubles(session, open, p, "NZL", "AUS", hooks));
    EXPECT_EQ(open.slot(1, p).country, "NZL/AUS");
    ASSERT_TRUE(set_as_bye(session, open, p, "qualifier", hooks));
    EXPECT_TRUE(reserve(2, "idac duo/jonc duo"));
    for (const auto& [word, refusal] : { std::pair { "qualifier", "cannot overide qualifier (country) in doubles" },
             std::pair { "wildcard", "cannot overide wildcard (country) in doubles" },
             std::pair { "bye", "cannot overide bye (country) in doubles" } }) {
        open.slot(1, p).ttt = word;
        EXPECT_FALSE(overidecountry_doubles(session, open, p, "NZL", "AUS", hooks));
        EXPECT_EQ(talk.last_message(), refusal);
    }
}

} // namespace
} // namespace qv
