#pragma once

#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/main_window.h"

#include <gtest/gtest.h>

namespace qv::test {

// The main window shown on a new, empty tournament, with a scripted user who has heard nothing yet.
class WindowFixture : public ::testing::Test
{
protected:
    TempAppDir dir;
    ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.show();
        session().boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session().has_tournament());
        talk.clear();
    }
    Session& session() { return window.session(); }
};

} // namespace qv::test
