#pragma once

#include "core/database.h"
#include "core/settings.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <string_view>

namespace qv::test {

// The settings of a fresh installation, attached to its init file but not yet loaded.
class SettingsFixture : public ::testing::Test
{
protected:
    SettingsFixture()
        : init(app.init_files() / "init.qvd")
        , settings(talk)
    {
        settings.attach(init);
    }
    ~SettingsFixture() override { settings.detach(); }

    // The stored value of a setting, as the next boot reads it.
    std::string row_value(std::string_view key)
    {
        return init.scalar_text("select value from disk_vars where nm = ?", key);
    }

    TempAppDir app;
    Database init;
    ScriptedTalk talk;
    Settings settings;
};

} // namespace qv::test
