#include "core/database.h"
#include "core/session.h"
#include "online/ftp_files.h"
#include "online/ftp_strings.h"
#include "online/qv4_archive.h"
#include "online_fixture.h"
#include "support/file_bytes.h"

#include <fstream>

namespace qv {
namespace {

TEST(FtpStrings, TheReplyIsReadFieldByField)
{
    struct Case
    {
        const char* data;
        FtpStrings expected;
    };
    const Case cases[] = {
        { "h:2121^u1^p1^http://w/^1048576^", { "h:2121", "u1", "p1", "http://w/", "1048576" } },
        { " h ^ u1\r\n^\np1 ^ http://w/ ^5^extra^more", { "h", "u1", "p1", " http://w/ ", "5" } },
        { "h^u^p", { "h", "u", "p", "", "" } },
        { "^^^^^", { "", "", "", "", "" } },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.data);
        const auto parsed = parse_ftp_strings(c.data);
        EXPECT_EQ(parsed.server, c.expected.server);
        EXPECT_EQ(parsed.user_part, c.expected.user_part);
        EXPECT_EQ(parsed.password_part, c.expected.password_part);
        EXPECT_EQ(parsed.address_prefix, c.expected.address_prefix);
        EXPECT_EQ(parsed.allocation, c.expected.allocation);
    }
}

TEST(FtpStrings, AnAllocationThatIsNotAllDigitsCountsAsNothing)
{
    const std::pair<const char*, std::int32_t> cases[] = { { "1048576", 1048576 }, { "0", 0 }, { "", 0 }, { "12a", 0 },
        { "-5", 0 }, { " 5", 0 }, { "1.5", 0 }, { "2147483647", 2147483647 }, { "2147483648", 0 } };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(verify_valid_long(text), value) << text;
}

TEST(FtpFiles, OnlyPlainNamesWithAShortExtensionCount)
{
    const std::pair<const char*, bool> cases[] = { { "index.htm", true }, { "A.GIF", true }, { " draw.js ", true },
        { "x.qv4", true }, { "a.b.c", true }, { "data.html", false }, { ".ftpquota", false }, { ".FTPQUOTA", false },
        { ".", false }, { "..", false }, { "notes", false }, { ".htm", false }, { "name.", false } };
    for (const auto& [name, ok] : cases)
        EXPECT_EQ(file_ok(name), ok) << name;
}

TEST(FtpFiles, TheLocalListIsSortedCaseBlindAndItsSizeSummed)
{
    const auto dir = std::filesystem::temp_directory_path() / ("qv_ftp_files_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir / "sub");
    for (const auto& [name, size] : { std::pair { "b.htm", 3 }, { "A.gif", 1024 }, { "c.css", 0 } })
        std::ofstream(dir / name) << std::string(static_cast<std::size_t>(size), 'x');
    EXPECT_EQ(local_file_names(dir), (std::vector<std::string> { "A.gif", "b.htm", "c.css" }));
    EXPECT_EQ(get_dir_size(dir), 1027u);
    std::filesystem::remove_all(dir);
}

class FtpStringsServiceTest : public test::OnlineTest
{
};

TEST_F(FtpStringsServiceTest, AReplyWithoutLoginPartGivesNothingSilently)
{
    start_service({ "--ftp", "127.0.0.1:2121::p1:http://127.0.0.1:8021/:5" });
    use_service_account();
    session.settings().set_disk_var("app.ftp_website_url", "kept");
    auto c = client();
    talk.clear();
    EXPECT_FALSE(get_ftp_strings(c));
    EXPECT_TRUE(talk.messages().empty());
    EXPECT_EQ(session.settings().text("app.ftp_website_url"), "kept");
}

TEST_F(FtpStringsServiceTest, AServiceWithoutHostSaysWhy)
{
    start_service();
    use_service_account();
    auto c = client();
    talk.clear();
    EXPECT_FALSE(get_ftp_strings(c));
    EXPECT_EQ(talk.messages().size(), 1u);
}

class Qv4ArchiveTest : public test::TournamentFixture
{
protected:
    void put(const std::filesystem::path& file, const std::string& bytes)
    {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
    }
};

TEST_F(Qv4ArchiveTest, TheSitesResultsFileGoesIntoTheArchiveAfterAskingToReplace)
{
    const auto& dirs = session.dirs();
    put(dirs.website / "index.htm", "page");
    EXPECT_FALSE(copy_qv4_to_archive(session));
    EXPECT_EQ(talk.last_message(), "no qv4 file");

    put(dirs.website / "spring.qv4", "new results");
    ASSERT_TRUE(copy_qv4_to_archive(session));
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(test::read_bytes(dirs.qv4_file_archive / "spring.qv4"), "new results");

    struct Case
    {
        Answer answer;
        bool copies;
    };
    for (const Case& c : { Case { Answer::No, false }, Case { Answer::Cancel, false }, Case { Answer::Yes, true } }) {
        put(dirs.qv4_file_archive / "spring.qv4", "old results");
        talk.clear();
        talk.answers = { c.answer };
        EXPECT_EQ(copy_qv4_to_archive(session), c.copies);
        ASSERT_EQ(talk.said.front().kind, "ask");
        EXPECT_EQ(
            talk.said.front().text, "spring.qv4 already exists in the qv4 file archive, do you want to overwrite ?");
        EXPECT_EQ(talk.said.front().title, "Confirm");
        EXPECT_EQ(test::read_bytes(dirs.qv4_file_archive / "spring.qv4"), c.copies ? "new results" : "old results");
    }
}

} // namespace
} // namespace qv
