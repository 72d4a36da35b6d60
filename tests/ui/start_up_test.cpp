// The start of the program: with no argument it boots as always; a tournament file named on the command line is
// then opened as "open" opens a chosen file.
#include "core/database.h"
#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/main_window.h"
#include "ui/start_up.h"

#include <QCoreApplication>

#include <filesystem>
#include <gtest/gtest.h>
#include <optional>

namespace qv {
namespace {

namespace fs = std::filesystem;

struct Case
{
    const char* name;
    bool open_last_on_start;
    std::optional<std::string> argument; // a file under the application directory
    std::optional<std::string> opened;
};

void set_disk_var(const fs::path& init_db, const std::string& key, const std::string& value)
{
    Database init(init_db);
    init.run("update disk_vars set value=? where nm=?", value, key);
}

TEST(StartUp, AFileNamedAtTheStartIsOpenedAsChosenAfterTheUsualBoot)
{
    const std::vector<Case> cases {
        { "no argument", false, std::nullopt, std::nullopt },
        { "no argument, the last file", true, std::nullopt, "last.qvd" },
        { "a named file", false, "cups/spring.qvd", "cups/spring.qvd" },
        { "a named file over the last one", true, "cups/spring.qvd", "cups/spring.qvd" },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        test::TempAppDir dir;
        test::ScriptedTalk talk;
        const auto last = dir.new_tournament("last.qvd");
        fs::create_directories(dir.path() / "cups");
        fs::copy_file(dir.new_tournament("spare.qvd"), dir.path() / "cups" / "spring.qvd");
        set_disk_var(dir.init_files() / "init.qvd", "open_last_db_on_start", c.open_last_on_start ? "1" : "0");
        set_disk_var(dir.init_files() / "init.qvd", "app.last_db_opened", last.string());
        set_disk_var(dir.init_files() / "init.qvd", "app.last_dir_opened", dir.path().string());

        MainWindow window(dir.path(), &talk);
        const QString argument = c.argument ? QString::fromStdString((dir.path() / *c.argument).string()) : QString();
        auto* start_up = new StartUp(window, argument);
        bool finished = false;
        QObject::connect(start_up, &StartUp::finished, [&finished] { finished = true; });
        start_up->start();
        // The boot, then the restart on the named file, each from the main loop.
        for (int round = 0; round < 20; ++round)
            QCoreApplication::processEvents();

        ASSERT_TRUE(finished);
        EXPECT_FALSE(window.process_ended());
        auto& session = window.session();
        EXPECT_EQ(session.has_tournament() ? std::optional(session.current_file_path()) : std::nullopt,
            c.opened ? std::optional((dir.path() / *c.opened).string()) : std::nullopt);
        const auto remembered_dir = c.argument ? (dir.path() / "cups").string() : dir.path().string();
        EXPECT_EQ(session.settings().text("app.last_dir_opened"), remembered_dir);
        EXPECT_TRUE(talk.messages().empty()) << talk.last_message();
    }
}

} // namespace
} // namespace qv
