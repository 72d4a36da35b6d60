#include "core/installed_layout.h"
#include "support/file_bytes.h"
#include "support/temp_app_dir.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& text)
{
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

class InstalledLayoutTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    fs::path prefix = dir.path() / "usr";
    fs::path bin = prefix / "bin";
    fs::path home = dir.path() / "home" / "quorvelin";

    void SetUp() override { fs::create_directories(bin); }
    void ship_shared()
    {
        for (const char* name : { "init.qvd", "blank.qvd", "qv4_peek_browse.qvd" })
            write(prefix / "share/quorvelin/init_files" / name, std::string("shipped ") + name);
    }
};

TEST_F(InstalledLayoutTest, SharedInitFilesAreUnderThePrefix)
{
    EXPECT_EQ(shared_init_files("/usr/bin"), fs::path("/usr/share/quorvelin/init_files"));
    EXPECT_EQ(shared_init_files("/opt/q/bin/"), fs::path("/opt/q/share/quorvelin/init_files"));
}

TEST_F(InstalledLayoutTest, AnInstalledProgramWorksInTheUsersDirectorySeededOnce)
{
    ship_shared();
    EXPECT_EQ(choose_installed_application_directory(bin, home), home);
    EXPECT_EQ(test::read_bytes(home / "init_files/init.qvd"), "shipped init.qvd");
    EXPECT_TRUE(fs::exists(home / "init_files/blank.qvd"));
    EXPECT_TRUE(fs::exists(home / "init_files/qv4_peek_browse.qvd"));

    // The user's settings outlive an update of the shipped files.
    write(home / "init_files/init.qvd", "the user's settings");
    write(prefix / "share/quorvelin/init_files/init.qvd", "shipped again");
    EXPECT_EQ(choose_installed_application_directory(bin, home), home);
    EXPECT_EQ(test::read_bytes(home / "init_files/init.qvd"), "the user's settings");
}

TEST_F(InstalledLayoutTest, InitFilesBesideTheProgramKeepTheProgramsDirectory)
{
    ship_shared();
    write(bin / "init_files/init.qvd", "beside");
    EXPECT_EQ(choose_installed_application_directory(bin, home), bin);
    EXPECT_FALSE(fs::exists(home));
}

TEST_F(InstalledLayoutTest, NothingSharedKeepsTheProgramsDirectory)
{
    EXPECT_EQ(choose_installed_application_directory(bin, home), bin);
}

} // namespace
} // namespace qv
