#pragma once

#include "core/database.h"
#include "core/session.h"
#include "support/fake_host.h"
#include "support/gui_app.h"
#include "support/saved_draws.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <string>

namespace qv::test {

// A tournament file, named and dated, to which tests add saved draws (see saved_draws.h).
class DrawFixture : public ::testing::Test
{
protected:
    TempAppDir dir;
    ScriptedTalk talk;
    FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;

    void SetUp() override
    {
        ensure_gui_app();
        session.boot_start_app(dir.new_tournament().string());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().set_tournament_cache(*db, "itname", "city open championships");
        session.settings().set_tournament_cache(*db, "itdates", "12-14 june 2027");
        talk.clear();
    }

    void add_event(std::int64_t eid, const std::string& name, const std::string& drawtype, int pts = 0)
    {
        add_draw_event(*db, eid, name, drawtype, pts);
    }
    void ko_draw(std::int64_t eid, const std::string& name, int drawsize, int entrants, int played = 0)
    {
        save_ko_draw(session, eid, name, drawsize, entrants, played);
    }
    void rr_draw(std::int64_t eid, const std::string& name, int n, int pts, int played)
    {
        save_rr_draw(session, eid, name, n, pts, played);
    }
};

} // namespace qv::test
