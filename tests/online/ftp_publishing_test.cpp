#include "core/database.h"
#include "core/session.h"
#include "ftp_fixture.h"
#include "online/format_bytes.h"
#include "online/ftp_files.h"
#include "online/remote_website.h"
#include "plain_http_server.h"

namespace qv {
namespace {

using test::Tree;

class FtpPublishingTest : public test::FtpFixture
{
protected:
    const Tree site { { "index.htm", "<html>index</html>\r\n" },
        { "draw1.gif", std::string("GIF89a\0\r\n\x1a\xff", 11) }, { "spring.qv4", "results" },
        { "page~1.htm", "backup copy" } };

    std::vector<std::string> rows() { return load_remote_website(session.init_db(), "club7"); }
    Tree site_without_tilde(Tree files)
    {
        std::erase_if(files, [](const auto& file) { return file.first.find('~') != std::string::npos; });
        return files;
    }
};

TEST_F(FtpPublishingTest, UploadReplacesTheListedFilesAndKeepsWhatTheListCannotHold)
{
    test::write_file(remote / "old.htm", "last year's");
    test::write_file(remote / "data.html", "four-letter extension");
    make_site(site);

    ASSERT_TRUE(upload_website(session, view()));

    Tree expected = site_without_tilde(site);
    expected["data.html"] = "four-letter extension";
    EXPECT_EQ(test::tree_of(remote), expected);
    const std::vector<std::string> listed { "draw1.gif", "index.htm", "spring.qv4" };
    EXPECT_EQ(rows(), listed);
    EXPECT_EQ(shown, listed);
    EXPECT_EQ(tabs, (std::vector<std::string> { "remote", "local", "remote" }));
    EXPECT_TRUE(showed("connecting to server..." + ftp->server()));
    EXPECT_TRUE(showed("Deleting ...old.htm"));
    EXPECT_FALSE(showed("Deleting ...data.html"));
    EXPECT_TRUE(showed("rejected...page~1.htm"));
    EXPECT_TRUE(showed("uploading...draw1.gif"));
    EXPECT_EQ(talk.messages(),
        std::vector<std::string> { std::string("uploaded ok , website link was changed to \n") + address });
    EXPECT_EQ(label, address);
    EXPECT_EQ(session.settings().text("app.ftp_website_url"), address);
    EXPECT_EQ(session.init_db().scalar_text("select ftpurl from acct_accountdata where custid='club7'"), address);
    EXPECT_TRUE(std::filesystem::exists(remote / ".ftpquota")) << "the quota file is neither listed nor deleted";
}

TEST_F(FtpPublishingTest, ASecondUploadLeavesOnlyTheNewGeneration)
{
    make_site(site);
    ASSERT_TRUE(upload_website(session, view()));
    const Tree next { { "index.htm", "<html>day two</html>" }, { "style.css", "body {}" } };
    make_site(next);
    talk.clear();

    ASSERT_TRUE(upload_website(session, view()));
    EXPECT_EQ(test::tree_of(remote), next);
    EXPECT_EQ(rows(), (std::vector<std::string> { "index.htm", "style.css" }));
    EXPECT_EQ(talk.last_message(), "ok") << "the address shown did not change";
}

TEST_F(FtpPublishingTest, TheAllocationHoldsASiteOfItsSizeAndRefusesALargerOne)
{
    make_site(site);
    const auto size = get_dir_size(session.dirs().website);
    struct Case
    {
        std::uint64_t allocation;
        bool uploads;
    };
    for (const Case& c : { Case { size - 1, false }, Case { size, true } }) {
        SCOPED_TRACE(c.allocation);
        serve_ftp(ftp->server(), std::to_string(c.allocation));
        talk.clear();
        EXPECT_EQ(upload_website(session, view()), c.uploads);
        EXPECT_EQ(test::tree_of(remote).size(), c.uploads ? 3u : 0u);
        if (!c.uploads) {
            EXPECT_EQ(talk.last_message(),
                "website size =" + format_bytes(size) + ",your allocation =" + format_bytes(c.allocation)
                    + ",cannot upload");
        }
    }
}

// An allocation that is not all digits counts as nothing: any site is then too large, and no host is asked.
TEST_F(FtpPublishingTest, AnAllocationWithANonDigitRefusesAnySite)
{
    make_site(site);
    const auto size = get_dir_size(session.dirs().website);
    for (const std::string& allocation :
        std::vector<std::string> { std::to_string(size * 2) + "a", " " + std::to_string(size * 2), "" }) {
        SCOPED_TRACE(allocation);
        const std::string body
            = "73215qpx48102^no_error^" + ftp->server() + "^u1^p1^http://127.0.0.1:8021/^" + allocation + "^";
        test::PlainHttpServer host("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size())
            + "\r\nConnection: close\r\n\r\n" + body);
        set_default_account(host.server(), "club7", "pw");
        talk.clear();
        EXPECT_FALSE(upload_website(session, view()));
        EXPECT_EQ(talk.messages(),
            std::vector<std::string> {
                "website size =" + format_bytes(size) + ",your allocation =0 Bytes,cannot upload" });
        EXPECT_TRUE(test::tree_of(remote).empty()) << "nothing touched";
        EXPECT_TRUE(tabs.empty());
    }
}

TEST_F(FtpPublishingTest, ANewAccountGetsItsDirectoryButAnEmptyListingStopsTheUpload)
{
    std::filesystem::remove_all(remote);
    make_site(site);
    EXPECT_FALSE(upload_website(session, view()));
    EXPECT_EQ(talk.last_message(), "error FTP_get_filelist");
    ASSERT_TRUE(std::filesystem::is_directory(remote));
    EXPECT_TRUE(std::filesystem::is_empty(remote));
    EXPECT_TRUE(showed("")) << "the status is cleared after connecting";
}

TEST_F(FtpPublishingTest, ARefusedFileStopsTheUploadWithTheFilesBeforeItUp)
{
    std::filesystem::create_directory(remote / "b.htm");
    make_site({ { "a.htm", "a" }, { "b.htm", "b" }, { "c.htm", "c" } });
    EXPECT_FALSE(upload_website(session, view()));
    const std::string text = "An error occurred while uploading. try again. b.htm";
    EXPECT_EQ(talk.last_message(), text);
    EXPECT_EQ(progress_lines().back(), text);
    EXPECT_EQ(test::tree_of(remote), (Tree { { "a.htm", "a" } }));
}

TEST_F(FtpPublishingTest, ClearDeletesTheFilesOfTheLastKnownList)
{
    make_site(site);
    ASSERT_TRUE(upload_website(session, view()));
    test::write_file(remote / "later.htm", "put there by hand, never listed");
    talk.clear();

    ASSERT_TRUE(clear_remote_files(session, view()));
    EXPECT_EQ(test::tree_of(remote), (Tree { { "later.htm", "put there by hand, never listed" } }));
    EXPECT_TRUE(rows().empty());
    EXPECT_EQ(shown, (std::vector<std::string> { "", "", "" }));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "ok" });
}

TEST_F(FtpPublishingTest, RefreshListsTheHostAndRemembersTheList)
{
    for (const char* name : { "x.htm", "Y.GIF", "data.html", "notes" })
        test::write_file(remote / name, name);
    ASSERT_TRUE(refresh_remote_files(session, view()));
    const std::vector<std::string> listed { "x.htm", "Y.GIF" };
    EXPECT_EQ(shown, listed);
    EXPECT_EQ(rows(), listed);
    EXPECT_EQ(talk.messages(), std::vector<std::string> { std::string("website link was changed to \n") + address });
    EXPECT_EQ(label, address);
}

TEST_F(FtpPublishingTest, AHostThatNeverAnswersIsReportedToTheService)
{
    const std::string server = "127.0.0.1:" + std::to_string(test::closed_port());
    serve_ftp(server, "1048576");
    make_site(site);
    std::vector<int> pauses;
    auto v = view();
    v.pause = [&pauses](int ms) { pauses.push_back(ms); };

    EXPECT_FALSE(upload_website(session, v));
    EXPECT_EQ(talk.last_message(), "ftp server@ " + server + ",not responding,timed out waiting for response");
    EXPECT_TRUE(showed("connecting to server,1 seconds.."));
    EXPECT_TRUE(showed("connecting to server,2 seconds.."));
    EXPECT_EQ(pauses, (std::vector<int> { 1000, 1000 }));
    const auto logged = logged_without_sequence();
    EXPECT_NE(logged.find("idx=vb_ftp_error&"), std::string::npos) << logged;
    EXPECT_NE(logged.find("&ftpserver=" + server + "&ftpusername=u1&timeout=3&"), std::string::npos) << logged;
}

TEST_F(FtpPublishingTest, AWrongLoginGetsNoFurtherThanConnecting)
{
    ftp.reset();
    ftp = std::make_unique<test::FtpServerProcess>(root, ftp_user_name("u1"), "another password");
    session.settings().set_disk_var("app.ftp_timeout", "1");
    ASSERT_TRUE(ftp->running());
    serve_ftp(ftp->server(), "1048576");
    make_site(site);
    EXPECT_FALSE(refresh_remote_files(session, view()));
    EXPECT_EQ(talk.last_message(), "ftp server@ " + ftp->server() + ",not responding,timed out waiting for response");
}

TEST_F(FtpPublishingTest, WithoutDefaultAccountNothingIsAsked)
{
    session.settings().set_disk_var("app.custid", "");
    make_site(site);
    for (const auto& operation : { upload_website, clear_remote_files, refresh_remote_files }) {
        talk.clear();
        EXPECT_FALSE(operation(session, view()));
        EXPECT_EQ(talk.messages(), std::vector<std::string> { "no default account set,update in control panel" });
    }
    EXPECT_EQ(service->log_lines().size(), 0u);
}

} // namespace
} // namespace qv
