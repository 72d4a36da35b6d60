#pragma once

#include "core/session.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <string>

namespace qv::test {

// A session in its own application directory, scripted user and screenless main window.
class SessionFixture : public ::testing::Test
{
protected:
    TempAppDir dir;
    ScriptedTalk talk;
    FakeHost host;
    Session session { dir.path(), talk, host };

    // Boots on a new tournament and forgets what the boot said and asked of the window.
    void open_new_tournament()
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        talk.clear();
        host.calls.clear();
    }
    Database& db() { return session.tournament(); }
    int refreshes(Lists which) const { return host.count("refresh " + std::to_string(int(which))); }
};

// A fixture whose every test starts on a new, empty tournament.
class TournamentFixture : public SessionFixture
{
protected:
    void SetUp() override { open_new_tournament(); }
};

} // namespace qv::test
