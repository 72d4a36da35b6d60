#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <fstream>
#include <random>

namespace qv {
namespace {

namespace fs = std::filesystem;

using test::read_bytes;

void run_sql(const fs::path& file, const char* sql)
{
    Database(file).exec_script(sql);
}

void overwrite_page(const fs::path& file, int page)
{
    std::mt19937 random(7);
    std::string garbage(4096, '\0');
    for (auto& c : garbage)
        c = static_cast<char>(random());
    std::fstream out(file, std::ios::in | std::ios::out | std::ios::binary);
    out.seekp(std::streamoff(page - 1) * 4096);
    out.write(garbage.data(), static_cast<std::streamsize>(garbage.size()));
}

// A fixture the test makes itself, and the message that refuses it (the path follows the colon).
struct Broken
{
    const char* name;
    std::function<void(const fs::path&)> damage;
    std::string message;
};

const std::vector<Broken>& broken_files()
{
    static const std::vector<Broken> cases {
        { "missing column", [](const fs::path& f) { run_sql(f, "alter table tournament drop column dates"); },
            "not a tournament file,table tournament has no column dates:" },
        { "missing table", [](const fs::path& f) { run_sql(f, "drop table rounds"); },
            "not a tournament file,no table rounds:" },
        { "missing scratch column", [](const fs::path& f) { run_sql(f, "alter table draw_stage2 drop column psex"); },
            "not a tournament file,table draw_stage2 has no column psex:" },
        { "page of garbage", [](const fs::path& f) { overwrite_page(f, 10); },
            "tournament file is damaged,some of its pages cannot be read:" },
        { "schema page of garbage", [](const fs::path& f) { overwrite_page(f, 5); },
            "tournament file is damaged,some of its pages cannot be read:" },
        { "truncated", [](const fs::path& f) { fs::resize_file(f, fs::file_size(f) / 2); },
            "tournament file is damaged,some of its pages cannot be read:" },
        { "text", [](const fs::path& f) { std::ofstream(f, std::ios::trunc) << "not a database at all"; },
            "not a tournament file:" },
        { "empty", [](const fs::path& f) { std::ofstream(f, std::ios::trunc); },
            "not a tournament file,no table tournament:" },
    };
    return cases;
}

using DamagedFileTest = test::SessionFixture;

TEST_F(DamagedFileTest, RefusedWithWhatIsWrongAndLeftByteForByte)
{
    session.boot_start_app("");
    const auto last = session.settings().get_disk_var("app.last_db_opened");
    for (const auto& broken : broken_files()) {
        SCOPED_TRACE(broken.name);
        const auto file = dir.new_tournament(std::string(broken.name) + ".qvd");
        broken.damage(file);
        const auto before = read_bytes(file);
        talk.clear();

        session.opendb(file.string());

        EXPECT_FALSE(session.has_tournament());
        EXPECT_EQ(talk.messages(), std::vector<std::string> { broken.message + file.string() });
        EXPECT_EQ(read_bytes(file), before);
        EXPECT_EQ(session.settings().get_disk_var("app.last_db_opened"), last) << "never the last file";
        EXPECT_EQ(host.count("load_all_forms"), 0);
    }
    // A refused file leaves the way open to a good one.
    const auto good = dir.new_tournament("good.qvd");
    session.opendb(good.string());
    EXPECT_EQ(session.current_file_path(), good.string());
}

TEST_F(DamagedFileTest, ALastFileDamagedSinceSaysSoAndStartsWithNoFile)
{
    for (const auto& broken : broken_files()) {
        SCOPED_TRACE(broken.name);
        const auto file = dir.new_tournament("last.qvd");
        session.boot_start_app(file.string());
        session.settings().set_disk_var("open_last_db_on_start", "1");
        ASSERT_TRUE(session.close_current_db());
        broken.damage(file);
        talk.clear();

        session.boot_start_app("");

        EXPECT_TRUE(session.booted());
        EXPECT_FALSE(session.has_tournament());
        EXPECT_FALSE(host.ended);
        EXPECT_EQ(talk.messages(), std::vector<std::string> { broken.message + file.string() });
    }
}

} // namespace
} // namespace qv
