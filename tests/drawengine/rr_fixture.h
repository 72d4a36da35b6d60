#pragma once

#include "core/session.h"
#include "drawengine/ko_generation.h"
#include "drawengine/rr_draw.h"
#include "drawengine/rr_saving.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qv::test {

struct RrEntry
{
    std::string fname;
    std::string sname;
    bool reserve = false;
    std::string country = {};
    std::string psex = "male";
    std::string player() const { return sname.empty() ? fname : fname + " " + sname; }
};

// A tournament file with one round-robin event, eid 1, and the draw area's state for it.
class RrFixture : public ::testing::Test
{
protected:
    TempAppDir dir;
    ScriptedTalk talk;
    FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;
    DrawState draw;
    OpenRoundRobin rr;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().apply_disk_var("refresh_ac_on_do_draw", "0");
        session.settings().apply_disk_var("draw.isaveasugo", "0");
        talk.clear();
    }

    void add_event(int pts, const std::vector<RrEntry>& entries)
    {
        db->run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, pts)
            values (1, 'group a', 'male', 'singles', 'rr', ?))",
            pts);
        auto next = db->next_id("evententries", "ent_idx");
        for (const auto& e : entries)
            db->run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, reserve, country, psex)
                values (?, 1, ?, ?, ?, ?, ?, ?))",
                next++, e.player(), e.fname, e.sname, e.reserve, e.country, e.psex);
        load_event_state(*db, 1, draw);
    }

    // n players "Player A" .. in name order.
    static std::vector<RrEntry> lettered(int n)
    {
        std::vector<RrEntry> out;
        for (int k = 0; k < n; ++k)
            out.push_back({ "Player", std::string(1, static_cast<char>('A' + k)) });
        return out;
    }

    // Draw made and written the way a first save writes it.
    void saved_draw(int pts, const std::vector<RrEntry>& entries)
    {
        add_event(pts, entries);
        ASSERT_TRUE(RR_do_draw(session, draw, rr));
        add_draw_stub_RR(*db, draw, rr);
        RR_savecontrols(*db, draw, rr);
        draw.new_draw = false;
        RR_loadroundsdata(*db, draw, rr);
    }

    std::string cell(const std::string& column, int match)
    {
        return db->scalar_text("select " + column + R"( from schedule where eid = 1 and "match" = ?)", match);
    }
};

} // namespace qv::test
