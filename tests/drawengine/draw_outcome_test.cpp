// Seeded draws of every kind, made, named and saved, must come out row for row as they always have: the rows of
// schedule, the events and entries they mark, and what the user was told.
#include "core/match_record.h"
#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "drawengine/rr_draw.h"
#include "drawengine/rr_saving.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace qv {
namespace {

namespace fs = std::filesystem;

struct Person
{
    std::string fname, sname;
    std::string player() const { return sname.empty() ? fname : fname + " " + sname; }
};

const Person people[] = { { "Maximilian", "Schwarzenbergerin" }, { "Maxine", "Schwarzenbergerin" },
    { "Bartholomew", "Featherstonehaugh" }, { "Bo", "Featherstonehaugh" }, { "Ann", "Lee" }, { "Ed", "Ng" },
    { "Konstantin", "Oyelaran-Adeyemi" }, { "Konrad", "Oyelaran-Adeyemi" }, { "Émile", "Zola-Dupont-Martinez" },
    { "Élodie", "Zola-Dupont-Martinez" }, { "Wilhelmina", "" }, { "Wilhelminaberta", "" },
    { "Gwendolyn-Alexandra", "" }, { "Gwendolyn-Alexandrina", "" }, { "Byeford", "Smith" },
    { "Quincy", "Qualifierson" }, { "Catherine", "Castellanos" }, { "Cat", "Castellanos-Rivera" } };

class DrawOutcomeTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;
    DrawSaveHooks save_hooks;
    DrawHooks hooks;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().apply_disk_var("refresh_ac_on_do_draw", "1");
        session.settings().apply_disk_var("draw.byes_thru_on_do_draw ", "1");
        save_hooks.now = [] {
            std::tm when {};
            when.tm_year = 126;
            when.tm_mon = 10;
            when.tm_mday = 23;
            when.tm_wday = 1;
            when.tm_hour = 11;
            return when;
        };
        hooks.set_scoreboxes = [](OpenDraw& draw, bool highlight) { set_scoreboxes(draw, highlight); };
        hooks.sendbyesthru = [this](OpenDraw& draw) { sendbyesthru(session, draw); };
        fill();
        talk.clear();
    }

    void add_event(std::int64_t eid, const std::string& singdobs, int wildcards, int qualifiers,
        const std::string& drawtype = "ko", int pts = 0)
    {
        db->run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, pts, wildcards, qualifiers)
            values (?, ?, 'male', ?, ?, ?, ?, ?))",
            eid, "event " + std::to_string(eid), singdobs, drawtype, pts, wildcards, qualifiers);
    }

    void add_single(std::int64_t eid, const Person& p, const std::string& seeding, const std::string& psex = "male")
    {
        db->run(R"(insert into evententries (ent_idx, eid, sd, player, playerfname, playersname, seeding, psex)
            values (?, ?, 'singles', ?, ?, ?, ?, ?))",
            db->next_id("evententries", "ent_idx"), eid, p.player(), p.fname, p.sname, seeding, psex);
    }

    void add_pair(std::int64_t eid, const Person& a, const Person& b, const std::string& seeding)
    {
        db->run(R"(insert into evententries (ent_idx, eid, sd, player, playerfname, playersname, p1name, partner,
            partnerfname, partnersname, seeding, psex) values (?, ?, 'doubles', ?, ?, ?, ?, ?, ?, ?, ?, 'male.female'))",
            db->next_id("evententries", "ent_idx"), eid, a.player() + "/" + b.player(), a.fname, a.sname, a.player(),
            b.player(), b.fname, b.sname, seeding);
    }

    void fill()
    {
        const int named = static_cast<int>(std::size(people));
        for (int k = 0; k < named; ++k)
            db->run(R"(insert into players (pid, player, fname, sname, country, availabilityrestrictions)
                values (?, ?, ?, ?, ?, ?))",
                k + 1, people[k].player(), people[k].fname, people[k].sname, k % 3 ? "NED" : "BEL",
                k % 4 ? "" : "not mon");
        // Five with two seeds: three byes.
        add_event(1, "singles", 0, 0);
        for (int k = 0; k < 5; ++k)
            add_single(1, people[k], k < 2 ? std::to_string(k + 1) : "0");
        // Every named person, long names sharing surnames, with wildcards and a qualifier.
        add_event(2, "singles", 2, 1);
        for (int k = 0; k < named; ++k)
            add_single(2, people[k], k < 6 ? std::to_string(6 - k) : "0", k % 2 ? "female" : "male");
        // Pairs with and without surnames.
        add_event(3, "doubles", 0, 2);
        for (int k = 0; k + 1 < named; k += 2)
            add_pair(3, people[k], people[k + 1], k < 4 ? std::to_string(k / 2 + 1) : "0");
        add_pair(3, people[10], people[12], "0");
        add_pair(3, people[11], people[13], "0");
        // Pairs alike enough to use up every candidate and fall back on the counter.
        for (int k = 0; k < 13; ++k)
            add_pair(3, { "A" + std::to_string(k), "Featherstonehaugh" },
                { "B" + std::to_string(k), "Schwarzenbergerin" }, "0");
        for (int k = 0; k < 4; ++k)
            add_pair(3, { "Gwendolyn-Alexandra" + std::to_string(k), "" },
                { "Wilhelminaberta" + std::to_string(k), "" }, "0");
        // A full 128 with generated names, many alike.
        add_event(4, "singles", 0, 0);
        for (int k = 0; k < 128; ++k)
            add_single(4, { "Firstname" + std::to_string(k % 7), "Longsurname-" + std::to_string(k % 19) + "x" },
                k < 16 ? std::to_string(k + 1) : "0");
        // Seeding texts that are no seed, a doubled seed, doubled names and a reserve.
        add_event(5, "singles", 1, 0);
        add_single(5, { "Ann", "Lee" }, "1");
        add_single(5, { "ann", "lee " }, "5");
        add_single(5, { "Zed", "Zulu" }, "5");
        add_single(5, { "Odd", "Seed" }, "3/4");
        add_single(5, { "Blank", "Seed" }, "");
        add_single(5, { "Byeford", "Smith" }, "2");
        db->run(R"(insert into evententries (ent_idx, eid, player, reserve) values (?, 5, 'Reserve Rex', 1))",
            db->next_id("evententries", "ent_idx"));
        // Nobody at all, and wildcards alone.
        add_event(6, "singles", 0, 0);
        add_event(7, "singles", 3, 0);
        // A round robin of long names.
        add_event(8, "singles", 0, 0, "rr", 2);
        for (int k = 0; k < 7; ++k)
            add_single(8, people[k], "0");
    }

    std::string dump() const
    {
        std::ostringstream out;
        auto table = [&](const std::string& title, const std::string& sql) {
            out << "# " << title << "\n";
            for (auto rows = db->query(sql); rows.step();) {
                for (int c = 0; c < rows.column_count(); ++c)
                    out << (c ? "|" : "") << rows.text(c);
                out << "\n";
            }
        };
        table("schedule", "select * from schedule order by sid");
        table("events", "select eid, drawdone, drawsize, min_sid, max_sid, timestamp_text from events order by eid");
        table("evententries", "select ent_idx, player, country, ar, drawdone from evententries order by ent_idx");
        out << "# said\n";
        for (const auto& said : talk.said)
            out << said.kind << "|" << said.text << "|" << said.title << "\n";
        return out.str();
    }

    void draw_and_save(std::int64_t eid, DrawRandom& random)
    {
        OpenDraw open;
        BF_load_draw(session, open, eid, save_hooks);
        talk.answers.push_back(Answer::Yes);
        DODRAW(session, open, random, hooks);
        save_draw(session, open, save_hooks);
    }

    void round_robin(std::int64_t eid)
    {
        DrawState draw;
        OpenRoundRobin rr;
        load_event_state(*db, eid, draw);
        ASSERT_TRUE(RR_do_draw(session, draw, rr));
        add_draw_stub_RR(*db, draw, rr);
        RR_savecontrols(*db, draw, rr);
        recompute_match_states(*db, eid);
    }
};

std::string file_text(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST_F(DrawOutcomeTest, SeededDrawsComeOutRowForRowAsBefore)
{
    SeededDrawRandom random(20261123);
    OpenDraw open;
    AllDrawsSteps steps;
    steps.load_draw = [&](OpenDraw& draw, std::int64_t eid) { BF_load_draw(session, draw, eid, save_hooks); };
    steps.save_draw_doing_all_draws = [&](OpenDraw& draw) {
        save_draw(session, draw, save_hooks, SaveRefresh::doing_all_draws);
        return true;
    };
    do_all_draws(session, open, random, hooks, steps);
    // Each draw again with other picks, over the draws that stand.
    for (std::int64_t eid : { 1, 2, 3, 4, 5, 7, 2 })
        draw_and_save(eid, random);
    round_robin(8);

    const auto actual = dump();
    const auto expected_file = fs::path(QV_TEST_DATA_DIR) / "expected" / "seeded_draws.txt";
    const auto expected = file_text(expected_file);
    if (actual != expected) {
        const auto written = fs::temp_directory_path() / "seeded_draws.actual.txt";
        std::ofstream(written, std::ios::binary) << actual;
        FAIL() << "the draws differ from " << expected_file << "; this run's rows are in " << written;
    }
}

} // namespace
} // namespace qv
