#include "core/database.h"
#include "core/recent_files.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

class RecentFilesTest : public ::testing::Test
{
protected:
    RecentFilesTest()
        : init(app.init_files() / "init.qvd")
        , settings(talk)
    {
        settings.attach(init);
        settings.load_disk_vars();
    }
    ~RecentFilesTest() override { settings.detach(); }

    test::TempAppDir app;
    Database init;
    test::ScriptedTalk talk;
    Settings settings;
};

TEST_F(RecentFilesTest, NewestFirstOnceEachAndNoMoreThanKept)
{
    EXPECT_TRUE(recent_files(settings).empty());
    record_recent_file(settings, "/t/a.qvd");
    record_recent_file(settings, "/t/b.qvd");
    record_recent_file(settings, "/t/sub/../a.qvd");
    EXPECT_EQ(recent_files(settings), (std::vector<std::string> { "/t/a.qvd", "/t/b.qvd" }));
    // Written through: the next boot reads the same list.
    EXPECT_EQ(init.scalar_text("select value from disk_vars where nm = 'app.recent_files'"), "/t/a.qvd|/t/b.qvd");

    for (int i = 0; i < 10; ++i)
        record_recent_file(settings, "/t/" + std::to_string(i) + ".qvd");
    const auto files = recent_files(settings);
    ASSERT_EQ(files.size(), recent_files_kept);
    EXPECT_EQ(files.front(), "/t/9.qvd");
    EXPECT_EQ(files.back(), "/t/2.qvd");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(RecentFilesTest, ADamagedListAndAPathWithTheSeparatorAreNoFiles)
{
    settings.set_disk_var("app.recent_files", "0|relative.qvd||/t/x.qvd|/t/x.qvd");
    EXPECT_EQ(recent_files(settings), std::vector<std::string> { "/t/x.qvd" });
    record_recent_file(settings, "/t/odd|name.qvd");
    EXPECT_EQ(recent_files(settings), std::vector<std::string> { "/t/x.qvd" });
}

} // namespace
} // namespace qv
