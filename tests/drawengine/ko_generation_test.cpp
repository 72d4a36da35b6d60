#include "core/session.h"
#include "core/text_rules.h"
#include "drawengine/ko_generation.h"
#include "drawengine/seeding_patterns.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace qv {
namespace {

struct EntrySpec
{
    std::string player;
    std::string seeding = "0";
    std::string country = {};
    std::string psex = {};
};

std::string player_name(int n)
{
    return "p" + std::to_string(n);
}

class KoGenerationTest : public ::testing::Test
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
        // Thousands of generated draws: the test file does not need to survive a power cut.
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().apply_disk_var("refresh_ac_on_do_draw", "0");
        // The byes-thru variable answers only to its key with the trailing blank.
        session.settings().apply_disk_var("draw.byes_thru_on_do_draw ", "0");
        talk.clear();
    }

    void add_event(std::int64_t eid, int wildcards = 0, int qualifiers = 0, const std::string& drawtype = "ko")
    {
        db->run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, wildcards, qualifiers)
            values (?, ?, 'male', 'singles', ?, ?, ?))",
            eid, "event " + std::to_string(eid), drawtype, wildcards, qualifiers);
    }

    void add_entries(std::int64_t eid, const std::vector<EntrySpec>& entries)
    {
        auto next = db->next_id("evententries", "ent_idx");
        for (const auto& e : entries)
            db->run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, seeding, country, psex)
                values (?, ?, ?, ?, 'x', ?, ?, ?))",
                next++, eid, e.player, e.player, e.seeding, e.country, e.psex);
    }

    // n plain entries p1..pn; the first `seeds` of them seeded 1..seeds.
    std::vector<EntrySpec> numbered(int n, int seeds = 0)
    {
        std::vector<EntrySpec> out;
        for (int k = 1; k <= n; ++k)
            out.push_back({ player_name(k), k <= seeds ? std::to_string(k) : "0" });
        return out;
    }

    OpenDraw draw_for(std::int64_t eid)
    {
        OpenDraw open;
        load_event_state(*db, eid, open.draw);
        return open;
    }

    bool generate(OpenDraw& open, std::uint64_t seed)
    {
        SeededDrawRandom random(seed);
        return KO_do_draw2(session, open, random);
    }

    std::map<int, int> pattern(int drawsize) // seed -> slot
    {
        std::map<int, int> out;
        for (const auto& row : default_seed_positions(session.init_db(), drawsize))
            out[row.seed] = row.pos;
        return out;
    }

    // The rules every placed draw keeps, whatever the random picks were.
    void check_draw(const OpenDraw& open, const std::vector<EntrySpec>& entries, int wildcards, int qualifiers)
    {
        const int count = static_cast<int>(entries.size()) + wildcards + qualifiers;
        const int drawsize = calcdrawsize(count);
        ASSERT_EQ(open.draw.drawsize, drawsize);
        ASSERT_EQ(open.positions(1), drawsize);
        EXPECT_EQ(open.draw.rounds, round_count(drawsize) + 1);
        EXPECT_TRUE(open.draw.on_screen);
        EXPECT_TRUE(open.draw.new_draw);

        std::map<std::string, int> slot_of;
        int byes = 0, wcs = 0, qs = 0;
        for (int s = 1; s <= drawsize; ++s) {
            const auto& slot = open.slot(1, s);
            if (slot.ttt == "bye") {
                ++byes;
                EXPECT_EQ(slot.seed, "");
            } else if (slot.ttt == "wildcard") {
                ++wcs;
                EXPECT_EQ(slot.seed, "wc");
            } else if (slot.ttt == "qualifier") {
                ++qs;
                EXPECT_EQ(slot.seed, "q");
            } else {
                EXPECT_TRUE(slot_of.emplace(slot.ttt, s).second) << slot.ttt << " placed twice";
            }
        }
        EXPECT_EQ(byes, drawsize - count);
        EXPECT_EQ(wcs, wildcards);
        EXPECT_EQ(qs, qualifiers);
        ASSERT_EQ(slot_of.size(), entries.size());

        // Seeds on their pattern slots, marked; everyone else unmarked.
        const auto slots = pattern(drawsize);
        std::vector<int> seeded_slots;
        for (const auto& e : entries) {
            ASSERT_TRUE(slot_of.count(e.player)) << e.player << " missing";
            const int at = slot_of[e.player];
            const int seed = std::stoi(e.seeding);
            if (seed != 0 && slots.count(seed)) {
                EXPECT_EQ(at, slots.at(seed)) << "seed " << seed;
                EXPECT_EQ(open.slot(1, at).seed, e.seeding);
                seeded_slots.push_back(at);
            } else {
                EXPECT_EQ(open.slot(1, at).seed, "");
            }
        }
        // Byes beside the seeds in seed order (entries are listed by ascending seed), as long as they last.
        std::sort(seeded_slots.begin(), seeded_slots.end(),
            [&](int a, int b) { return std::stoi(open.slot(1, a).seed) < std::stoi(open.slot(1, b).seed); });
        for (std::size_t k = 0; k < seeded_slots.size(); ++k) {
            const bool gets_bye = static_cast<int>(k) < drawsize - count;
            EXPECT_EQ(open.slot(1, OpenDraw::partner(seeded_slots[k])).ttt == "bye", gets_bye)
                << "seed in slot " << seeded_slots[k];
        }
        for (int s = 1; s <= drawsize; s += 2)
            EXPECT_FALSE(open.slot(1, s).ttt == "bye" && open.slot(1, s + 1).ttt == "bye") << "pair at " << s;
    }
};

TEST_F(KoGenerationTest, GeneratedDrawsKeepEveryPlacingRule)
{
    struct Config
    {
        int entries, seeds, wildcards, qualifiers;
    };
    const Config configs[] = {
        { 1, 0, 0, 0 },
        { 2, 1, 0, 0 },
        { 3, 2, 0, 0 },
        { 4, 2, 1, 0 },
        { 5, 2, 0, 0 },
        { 6, 4, 1, 1 },
        { 11, 4, 2, 0 },
        { 13, 8, 0, 2 },
        { 20, 8, 3, 2 },
        { 40, 16, 2, 2 },
        { 70, 32, 4, 4 },
        { 128, 32, 0, 0 },
        { 100, 0, 10, 5 },
    };
    std::int64_t eid = 1;
    for (const auto& c : configs) {
        add_event(eid, c.wildcards, c.qualifiers);
        const auto entries = numbered(c.entries, c.seeds);
        add_entries(eid, entries);
        const int runs = c.entries > 60 ? 8 : 40;
        for (int seed = 1; seed <= runs; ++seed) {
            SCOPED_TRACE("entries " + std::to_string(c.entries) + " seed " + std::to_string(seed));
            auto open = draw_for(eid);
            ASSERT_TRUE(generate(open, static_cast<std::uint64_t>(seed)));
            check_draw(open, entries, c.wildcards, c.qualifiers);
            if (HasFatalFailure() || HasNonfatalFailure())
                return;
        }
        ++eid;
    }
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(KoGenerationTest, FiveEntriesTwoSeedsGetTheirByesAndTheThirdByeFallsAnywhereFree)
{
    add_event(1);
    add_entries(1, numbered(5, 2));
    const auto slots = pattern(8);
    std::set<int> third_bye_slots;
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        auto open = draw_for(1);
        ASSERT_TRUE(generate(open, seed));
        EXPECT_EQ(open.slot(1, slots.at(1)).ttt, "p1");
        EXPECT_EQ(open.slot(1, slots.at(2)).ttt, "p2");
        EXPECT_EQ(open.slot(1, OpenDraw::partner(slots.at(1))).ttt, "bye");
        EXPECT_EQ(open.slot(1, OpenDraw::partner(slots.at(2))).ttt, "bye");
        for (int s = 1; s <= 8; ++s)
            if (open.slot(1, s).ttt == "bye" && s != OpenDraw::partner(slots.at(1))
                && s != OpenDraw::partner(slots.at(2)))
                third_bye_slots.insert(s);
    }
    // Pairs 3-4 and 5-6 have one player after the second pass; the bye lands on the free slot of either.
    EXPECT_GT(third_bye_slots.size(), 1u);
    for (int s : third_bye_slots)
        EXPECT_TRUE(s == 4 || s == 6) << s;
}

TEST_F(KoGenerationTest, EightSeedsInEightFillTheirPatternSlots)
{
    add_event(1);
    add_entries(1, numbered(8, 8));
    // The system pattern of 8 places four seeds; seeds 5 to 8 are then ordinary players without a mark.
    auto open = draw_for(1);
    ASSERT_TRUE(generate(open, 3));
    const auto slots = pattern(8);
    ASSERT_EQ(slots.size(), 4u);
    for (const auto& [seed, pos] : slots) {
        EXPECT_EQ(open.slot(1, pos).ttt, player_name(seed));
        EXPECT_EQ(open.slot(1, pos).seed, std::to_string(seed));
    }
    for (int s = 1; s <= 8; ++s)
        EXPECT_NE(open.slot(1, s).ttt, "bye");

    // A default pattern that seeds every slot fills every pair in the first pass.
    auto& init = session.init_db();
    init.run("update seedposmapping_index set \"default\" = 0 where drawsize = 8");
    init.run("insert into seedposmapping_index (idx, nm, drawsize, \"default\") values (99, 'full 8', 8, 1)");
    const int full[] = { 8, 1, 5, 4, 3, 6, 2, 7 }; // slot -> seed
    for (int pos = 1; pos <= 8; ++pos)
        init.run("insert into seedposmapping (idx, nm, pos, seed) values (99, 'full 8', ?, ?)", pos, full[pos - 1]);
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        auto again = draw_for(1);
        ASSERT_TRUE(generate(again, seed));
        for (int pos = 1; pos <= 8; ++pos) {
            EXPECT_EQ(again.slot(1, pos).ttt, player_name(full[pos - 1]));
            EXPECT_EQ(again.slot(1, pos).seed, std::to_string(full[pos - 1]));
        }
    }
}

TEST_F(KoGenerationTest, WildcardsAloneMakeADrawWithoutComplaint)
{
    add_event(1, 3, 0);
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        auto open = draw_for(1);
        ASSERT_TRUE(generate(open, seed));
        ASSERT_EQ(open.draw.drawsize, 4);
        // The second pass gives each pair's top slot a wildcard; the bye and the last one share the bottoms.
        EXPECT_EQ(open.slot(1, 1).ttt, "wildcard");
        EXPECT_EQ(open.slot(1, 3).ttt, "wildcard");
        EXPECT_EQ(open.slot(1, 1).frn, "wildcard");
        EXPECT_EQ(open.slot(1, 1).tag, "wildcard");
        EXPECT_EQ(open.slot(1, 1).seed, "wc");
        EXPECT_NE(open.slot(1, 2).ttt, open.slot(1, 4).ttt);
    }
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(KoGenerationTest, TwoEntriesSeededFiveShareOneSeedSlot)
{
    std::vector<DrawEntry> entries;
    for (int k = 1; k <= 10; ++k)
        entries.push_back({ player_name(k), k == 4 || k == 7 ? "5" : "0" });
    const auto seeds = default_seed_positions(session.init_db(), 16);
    const int slot5 = pattern(16).at(5);
    std::set<std::string> seeded_ones;
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        SeededDrawRandom random(seed);
        const auto stage = KO_place_draw(KO_candidate_names(entries, 0, 0), entries, 16, seeds, random);
        // The one first in shuffled order is the seed; the other is an ordinary player.
        std::vector<std::string> fives;
        for (const auto& c : stage.stage1)
            if (c.seeding == "5")
                fives.push_back(c.player);
        ASSERT_EQ(fives.size(), 2u);
        seeded_ones.insert(fives[0]);
        EXPECT_EQ(stage.stage2[slot5 - 1].player, fives[0]);
        EXPECT_EQ(stage.stage2[slot5 - 1].seed, "5");
        for (const auto& slot : stage.stage2)
            if (slot.player == fives[1]) {
                EXPECT_EQ(slot.seed, "");
            }
    }
    EXPECT_EQ(seeded_ones, (std::set<std::string> { "p4", "p7" }));
}

TEST_F(KoGenerationTest, SeedingTextsThatAreNoSeed)
{
    const std::vector<DrawEntry> entries { { "zero", "0" }, { "blank", "" }, { "odd", "3/4" }, { "one", "1" } };
    SeededDrawRandom random(1);
    const auto stage = KO_place_draw(
        KO_candidate_names(entries, 0, 0), entries, 4, default_seed_positions(session.init_db(), 4), random);
    std::map<std::string, std::string> seeding;
    for (const auto& c : stage.stage1)
        seeding[c.player] = c.seeding;
    EXPECT_EQ(seeding,
        (std::map<std::string, std::string> { { "zero", "" }, { "blank", "" }, { "odd", "3/4" }, { "one", "1" } }));

    add_event(1);
    db->run(R"(insert into evententries (ent_idx, eid, player, seeding) values
        (1, 1, 'zero', 0), (2, 1, 'blank', ''), (3, 1, 'odd', '3/4'), (4, 1, 'one', 1))");
    auto open = draw_for(1);
    ASSERT_TRUE(generate(open, 1));
    for (int s = 1; s <= 4; ++s) {
        const auto& slot = open.slot(1, s);
        EXPECT_EQ(slot.seed, slot.ttt == "one" ? "1" : "") << slot.ttt;
    }
    EXPECT_EQ(open.slot(1, pattern(4).at(1)).ttt, "one");
}

TEST_F(KoGenerationTest, SeedThreeWithoutSeedTwoKeepsItsOwnSlotAndTakesTheSecondBye)
{
    add_event(1);
    auto entries = numbered(5);
    entries[0].seeding = "1";
    entries[1].seeding = "3";
    add_entries(1, entries);
    const auto slots = pattern(8);
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        auto open = draw_for(1);
        ASSERT_TRUE(generate(open, seed));
        EXPECT_EQ(open.slot(1, slots.at(3)).ttt, "p2");
        EXPECT_EQ(open.slot(1, slots.at(3)).seed, "3");
        EXPECT_EQ(open.slot(1, OpenDraw::partner(slots.at(1))).ttt, "bye");
        EXPECT_EQ(open.slot(1, OpenDraw::partner(slots.at(3))).ttt, "bye");
        EXPECT_EQ(open.slot(1, slots.at(2)).seed, "");
    }
}

TEST_F(KoGenerationTest, SizeTwoWithOneEntry)
{
    add_event(1);
    add_entries(1, numbered(1));
    for (std::uint64_t seed = 1; seed <= 5; ++seed) {
        auto open = draw_for(1);
        ASSERT_TRUE(generate(open, seed));
        EXPECT_EQ(open.slot(1, 1).ttt, "p1");
        EXPECT_EQ(open.slot(1, 2).ttt, "bye");
        EXPECT_EQ(open.levels(), 2);
    }
}

TEST_F(KoGenerationTest, NoPlayersAndTooManyPlayersAreToldUnlessAllDrawsRun)
{
    add_event(1);
    add_event(2);
    std::vector<EntrySpec> many;
    for (int k = 1; k <= 129; ++k)
        many.push_back({ player_name(k) });
    add_entries(2, many);
    db->run("insert into evententries (ent_idx, eid, player, reserve) values (500, 1, 'reserve only', 1)");

    for (bool all_draws : { false, true }) {
        talk.clear();
        auto empty = draw_for(1);
        empty.draw.all_draws = all_draws;
        EXPECT_FALSE(generate(empty, 1));
        EXPECT_FALSE(empty.draw.on_screen);
        EXPECT_EQ(empty.levels(), 0);

        auto big = draw_for(2);
        big.draw.all_draws = all_draws;
        EXPECT_FALSE(generate(big, 1));
        EXPECT_FALSE(big.draw.on_screen);
        if (all_draws)
            EXPECT_TRUE(talk.messages().empty());
        else
            EXPECT_EQ(talk.messages(),
                (std::vector<std::string> { "no players", "max 128 players, you have 129,edit in draw config" }));
    }
}

TEST_F(KoGenerationTest, SlotDataCountryAndTheLabelStripQuirk)
{
    add_event(1);
    add_entries(1,
        { { "solo", "0", "fra", "male.female" }, { "duo", "0", "fra/ger", "female" }, { "long", "0", "abcd", "x" },
            { "byeford", "0", "usa", "male" } });
    auto open = draw_for(1);
    ASSERT_TRUE(generate(open, 7));
    std::map<std::string, const Slot*> by_name;
    for (int s = 1; s <= 4; ++s)
        by_name[open.slot(1, s).ttt] = &open.slot(1, s);
    ASSERT_TRUE(by_name.count("solo"));
    EXPECT_EQ(by_name["solo"]->country, "fra");
    EXPECT_EQ(by_name["solo"]->sex, "mf");
    EXPECT_EQ(by_name["duo"]->country, "");
    EXPECT_EQ(by_name["long"]->country, "");
    EXPECT_EQ(by_name["long"]->sex, "");
    // A real player whose name begins "bye" comes out of the draw as a bye: the strip covers the whole table.
    EXPECT_FALSE(by_name.count("byeford"));
    ASSERT_TRUE(by_name.count("bye"));
    EXPECT_EQ(by_name["bye"]->country, "usa");
    for (int s = 1; s <= 4; ++s)
        if (open.slot(1, s).ttt == "solo") {
            EXPECT_EQ(open.data_field(1, s), "^mf");
        }
}

TEST_F(KoGenerationTest, CountriesAndMarksComeFromTheRegisterWhenAsked)
{
    db->run(R"(insert into players (pid, player, country, availabilityrestrictions) values
        (1, 'ann lee', 'aus', 'not mon'), (2, 'bo day', 'nzl', ''), (3, 'cy fox', 'can', ''))");
    add_event(1);
    add_entries(1, { { "ann lee/bo day", "0", "old" }, { "cy fox", "0", "old" }, { "nobody", "0", "old" } });
    pull_ar_countries(*db, 1);
    auto rows = db->query("select player, country, ar from evententries where eid = 1 order by ent_idx");
    std::vector<std::string> got;
    while (rows.step())
        got.push_back(rows.text("player") + "|" + rows.text("country") + "|" + rows.text("ar"));
    EXPECT_EQ(got, (std::vector<std::string> { "ann lee/bo day|aus/nzl|.", "cy fox|can|", "nobody||" }));

    db->run("update evententries set country = 'old' where eid = 1");
    session.settings().apply_disk_var("refresh_ac_on_do_draw", "1");
    auto open = draw_for(1);
    ASSERT_TRUE(generate(open, 2));
    EXPECT_EQ(db->scalar_text("select country from evententries where player = 'cy fox'"), "can");
}

TEST_F(KoGenerationTest, UnseededPlayersLandUniformly)
{
    add_event(1);
    add_entries(1, numbered(8));
    constexpr int runs = 400;
    std::map<int, int> landed;
    for (std::uint64_t seed = 1; seed <= runs; ++seed) {
        auto open = draw_for(1);
        ASSERT_TRUE(generate(open, seed * 7919));
        for (int s = 1; s <= 8; ++s)
            if (open.slot(1, s).ttt == "p1")
                ++landed[s];
    }
    const double expected = runs / 8.0;
    double chi2 = 0;
    for (int s = 1; s <= 8; ++s)
        chi2 += (landed[s] - expected) * (landed[s] - expected) / expected;
    // Seven degrees of freedom: 30 lies far in the tail; a placing that favours a slot goes well past it.
    EXPECT_LT(chi2, 30.0) << "chi-square " << chi2;
}

TEST_F(KoGenerationTest, DeleteAsksAndClearsTheDrawEverywhere)
{
    add_event(1);
    add_entries(1, numbered(3));
    db->run("update events set drawdone = 1, drawsize = 4, timestamp_text = 'then' where eid = 1");
    db->run("update evententries set drawdone = 1 where eid = 1");
    db->run("insert into schedule (sid, eid) values (1, 1), (2, 1), (3, 2)");

    OpenDraw open = draw_for(1);
    open.build_tree(4);
    EXPECT_TRUE(RR_KO_delete_draw(session, open)) << "no draw on show: nothing to ask";
    EXPECT_TRUE(talk.said.empty());

    open.draw.on_screen = true;
    for (auto answer : { Answer::No, Answer::Cancel }) {
        talk.answers.push_back(answer);
        EXPECT_FALSE(RR_KO_delete_draw(session, open));
        EXPECT_EQ(db->row_count("schedule"), 3);
        EXPECT_EQ(open.levels(), 3);
    }
    EXPECT_EQ(
        talk.said.back().text, "This will delete the draw data including any schedule data that may exist,continue?");
    EXPECT_EQ(talk.said.back().title, "Confirm");

    talk.answers.push_back(Answer::Yes);
    host.calls.clear();
    EXPECT_TRUE(RR_KO_delete_draw(session, open));
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = 1"), 0);
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule"), 1);
    EXPECT_EQ(db->scalar_text("select drawdone || drawsize || timestamp_text from events where eid = 1"), "00");
    EXPECT_EQ(db->scalar_integer("select sum(drawdone) from evententries where eid = 1"), 0);
    EXPECT_FALSE(open.draw.on_screen);
    EXPECT_EQ(open.levels(), 0);
    EXPECT_EQ(host.count("refresh " + std::to_string(int(Lists::events))), 1);
    EXPECT_EQ(host.count("refresh " + std::to_string(int(Lists::draw))), 1);
}

TEST_F(KoGenerationTest, DoDrawDeletesFirstAndSendsRoundRobinsToTheirGenerator)
{
    add_event(1);
    add_event(2, 0, 0, "rr");
    add_entries(1, numbered(3));
    SeededDrawRandom random(5);
    int rr_calls = 0, shown = 0, byes_sent = 0;
    DrawHooks hooks;
    hooks.round_robin = [&](OpenDraw&) { ++rr_calls; };
    hooks.show_draw = [&](OpenDraw&) { ++shown; };
    hooks.sendbyesthru = [&](OpenDraw&) { ++byes_sent; };

    auto open = draw_for(1);
    DODRAW(session, open, random, hooks);
    EXPECT_TRUE(open.draw.on_screen);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(byes_sent, 0);

    // A draw on show: the user refuses the delete and nothing is drawn again.
    DODRAW(session, open, random, hooks);
    EXPECT_EQ(shown, 1);
    session.settings().apply_disk_var("draw.byes_thru_on_do_draw ", "1");
    talk.answers.push_back(Answer::Yes);
    DODRAW(session, open, random, hooks);
    EXPECT_EQ(shown, 3) << "the old draw leaves the screen, then the new one shows";
    EXPECT_EQ(byes_sent, 1);

    auto rr = draw_for(2);
    DODRAW(session, rr, random, hooks);
    EXPECT_EQ(rr_calls, 1);
    OpenDraw none;
    DODRAW(session, none, random, hooks);
    EXPECT_EQ(rr_calls, 1);
}

TEST_F(KoGenerationTest, StubLaysDownTheWholeTree)
{
    db->run("insert into schedule (sid, eid) values (41, 9)");
    std::int64_t eid = 1;
    std::int64_t next_sid = 42;
    for (int drawsize : { 2, 4, 8, 16, 32, 64, 128 }) {
        SCOPED_TRACE(drawsize);
        add_event(eid);
        OpenDraw open = draw_for(eid);
        open.build_tree(drawsize);
        add_draw_stub(*db, open);

        const int levels = round_count(drawsize) + 1;
        auto rows = db->query(R"(select * from schedule where eid = ? order by sid)", eid);
        std::map<std::string, int> mtmb_level; // every mt and mb, and the row's level
        std::vector<std::pair<std::string, int>> pointers;
        int n = 0;
        while (rows.step()) {
            ++n;
            EXPECT_EQ(rows.integer("sid"), next_sid + n - 1);
            EXPECT_EQ(rows.integer("match"), n);
            EXPECT_EQ(rows.integer("ds"), drawsize);
            EXPECT_EQ(rows.integer("maxrounds"), levels - 1);
            EXPECT_EQ(rows.text("drawtype"), "ko");
            EXPECT_EQ(rows.text("singdobs"), "singles");
            EXPECT_EQ(rows.text("evtsex"), "male");
            EXPECT_EQ(rows.text("eventname"), "event " + std::to_string(eid));
            EXPECT_EQ(rows.integer("matchtime_int"), -1);
            EXPECT_EQ(rows.text("match_state"), "1");
            for (const char* empty :
                { "mtttt", "mbfrn", "imwtag", "mtseeding", "scheduledate", "nbat", "mg_matchnote" })
                EXPECT_FALSE(rows.is_null(empty)) << empty;
            const int rid = static_cast<int>(rows.integer("rid"));
            const auto mt = OpenDraw::split_mtmb(rows.text("mt"));
            const auto mb = OpenDraw::split_mtmb(rows.text("mb"));
            ASSERT_TRUE(mt && mb);
            EXPECT_EQ(mt->level, rid);
            EXPECT_EQ(mb->position, mt->position + 1);
            EXPECT_EQ(rows.text("rsname"), std::to_string(rid) + "." + std::to_string(levels - 1));
            const int slots = drawsize >> (rid - 1);
            const std::map<int, std::string> names { { 8, "quaters" }, { 4, "semis" }, { 2, "final" },
                { 1, "winner" } };
            EXPECT_EQ(rows.text("rname"), names.count(slots) ? names.at(slots) : "r" + std::to_string(rid));
            mtmb_level[rows.text("mt")] = rid;
            mtmb_level[rows.text("mb")] = rid;
            if (rows.text("rname") != "winner")
                pointers.emplace_back(rows.text("mw_ptr"), rid);
        }
        EXPECT_EQ(n, drawsize);
        EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = ? and rname = 'winner'", eid), 1);
        EXPECT_EQ(
            db->scalar_integer("select \"match\" from schedule where eid = ? and rname = 'winner'", eid), drawsize);
        EXPECT_EQ(db->scalar_text("select mt from schedule where eid = ? and \"match\" = 1", eid), "1.1");
        for (const auto& [ptr, rid] : pointers) {
            ASSERT_TRUE(mtmb_level.count(ptr)) << ptr;
            EXPECT_EQ(mtmb_level[ptr], rid + 1) << ptr;
        }
        EXPECT_EQ(db->scalar_integer("select min_sid from events where eid = ?", eid), next_sid);
        EXPECT_EQ(db->scalar_integer("select max_sid from events where eid = ?", eid), next_sid + drawsize - 1);
        EXPECT_EQ(open.draw.min_sid, next_sid);
        EXPECT_EQ(open.draw.max_sid, next_sid + drawsize);
        // The slots know their rows: the top of match 1, and the winner line.
        EXPECT_EQ(open.slot(1, 2).sid, next_sid);
        EXPECT_EQ(open.slot(levels, 1).sid, next_sid + drawsize - 1);
        next_sid += drawsize;
        ++eid;
    }
}

TEST_F(KoGenerationTest, AllDrawsSkipStarredEventsAndStayQuiet)
{
    add_event(1);
    add_event(2);
    add_event(3);
    add_event(4);
    add_entries(1, numbered(3));
    add_entries(3, numbered(5));
    db->run("update events set drawdone = 1 where eid = 3");
    std::vector<std::string> steps_seen;
    AllDrawsSteps steps;
    steps.close_draw = [&](OpenDraw&) {
        steps_seen.push_back("close");
        return true;
    };
    steps.save_draw_doing_all_draws = [&](OpenDraw& open) {
        EXPECT_TRUE(open.draw.all_draws);
        steps_seen.push_back("save " + std::to_string(open.draw.curr_eid) + (open.draw.on_screen ? " drawn" : ""));
        // What the save does to a drawn event, so that no later delete has to ask.
        open.draw.on_screen = false;
        return true;
    };
    steps.close_draw_special = [&](OpenDraw&) { steps_seen.push_back("special"); };
    steps.save_draw_END_doing_all_draws = [&](OpenDraw&) { steps_seen.push_back("end"); };
    OpenDraw open;
    SeededDrawRandom random(11);
    do_all_draws(session, open, random, {}, steps);
    EXPECT_EQ(steps_seen, (std::vector<std::string> { "close", "save 1 drawn", "save 2", "save 4", "special", "end" }));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "ok" });
    EXPECT_FALSE(open.draw.all_draws);

    steps_seen.clear();
    steps.close_draw = [&](OpenDraw&) { return false; };
    do_all_draws(session, open, random, {}, steps);
    EXPECT_TRUE(steps_seen.empty());
}

TEST_F(KoGenerationTest, AllDrawsGoDownTheListAsItIsShown)
{
    for (std::int64_t eid = 1; eid <= 3; ++eid) {
        add_event(eid);
        add_entries(eid, numbered(3));
    }
    std::vector<std::int64_t> loaded;
    AllDrawsSteps steps;
    // A filter left events 3 and 1, in that order; event 2 is not on show.
    steps.event_lines = [] { return std::vector<ListLine> { { "(3)c", 3 }, { "(1)a", 1 } }; };
    steps.load_draw = [&](OpenDraw& open, std::int64_t eid) {
        loaded.push_back(eid);
        load_event_state(*db, eid, open.draw);
        open.draw.on_screen = false;
    };
    steps.save_draw_doing_all_draws = [&](OpenDraw& open) {
        open.draw.on_screen = false;
        return true;
    };
    OpenDraw open;
    SeededDrawRandom random(5);
    do_all_draws(session, open, random, {}, steps);
    EXPECT_EQ(loaded, (std::vector<std::int64_t> { 3, 1 }));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "ok" });
}

} // namespace
} // namespace qv
