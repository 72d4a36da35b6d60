#pragma once

#include "online/ftp_credentials.h"
#include "online/ftp_publishing.h"
#include "online_fixture.h"
#include "support/file_bytes.h"
#include "support/ftp_server.h"

#include <fstream>
#include <map>

namespace qv::test {

// Files of a directory by name and content.
using Tree = std::map<std::string, std::string>;

inline Tree tree_of(const std::filesystem::path& dir, bool with_dot_files = false)
{
    Tree tree;
    for (const auto& entry : std::filesystem::directory_iterator(dir)) {
        const auto name = entry.path().filename().string();
        if (entry.is_regular_file() && (with_dot_files || name.front() != '.'))
            tree[name] = read_bytes(entry.path());
    }
    return tree;
}

inline void write_file(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

// The default account club7 of the local online service, whose getftpstrings hands out a pyftpdlib server on
// loopback. The account's directory already holds the host's quota file, as a host with quotas keeps it.
class FtpFixture : public OnlineTest
{
protected:
    std::filesystem::path root = dir.path() / "ftp_root";
    std::filesystem::path remote = root / "club7";
    std::unique_ptr<FtpServerProcess> ftp;
    std::string label;
    std::vector<std::string> shown;
    std::vector<std::string> tabs;

    static constexpr const char* address = "http://127.0.0.1:8021/club7/";

    void SetUp() override
    {
        OnlineTest::SetUp();
        std::filesystem::create_directories(remote);
        write_file(remote / ".ftpquota", "0 0");
        ftp = std::make_unique<FtpServerProcess>(root, ftp_user_name("u1"), ftp_password("p1"));
        ASSERT_TRUE(ftp->running());
        serve_ftp(ftp->server(), "1048576");
        session.settings().set_disk_var("app.ftp_timeout", "2");
        session.init_db().run(
            R"(insert into acct_accountdata (idx, servlet, custid, password, "default") values (1, ?, ?, ?, 'default'))",
            service->server(), ServiceProcess::custid, ServiceProcess::password);
        talk.clear();
    }

    // The service restarted to hand out this host and allocation.
    void serve_ftp(const std::string& server, const std::string& allocation)
    {
        service.reset();
        start_service({ "--ftp", server + ":u1:p1:http://127.0.0.1:8021/:" + allocation });
        use_service_account();
    }

    PublishingView view()
    {
        PublishingView v;
        v.shown_address = [this] { return label; };
        v.show_address = [this](const std::string& text) { label = text; };
        v.show_tab = [this](FilesTab tab) { tabs.push_back(tab == FilesTab::local ? "local" : "remote"); };
        v.show_remote_list = [this](const std::vector<std::string>& names) { shown = names; };
        v.pause = [](int) {};
        return v;
    }

    // A new generation of the website.
    void make_site(const Tree& files)
    {
        const auto& website = session.dirs().website;
        std::filesystem::remove_all(website);
        std::filesystem::create_directories(website);
        for (const auto& [name, bytes] : files)
            write_file(website / name, bytes);
    }

    std::vector<std::string> progress_lines() const
    {
        std::vector<std::string> lines;
        for (const auto& said : talk.said)
            if (said.kind == "progress")
                lines.push_back(said.text);
        return lines;
    }
    bool showed(const std::string& line) const
    {
        const auto lines = progress_lines();
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }
};

} // namespace qv::test
