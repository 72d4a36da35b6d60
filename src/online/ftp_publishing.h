#pragma once

#include "online/ftp_strings.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class FtpConnection;
class ServiceClient;
class Session;

enum class FilesTab { local, remote };

// What the window shows while a run goes on. Every member may be left empty: the run then goes on unseen.
struct PublishingView
{
    // The address on the window's label, and its replacement.
    std::function<std::string()> shown_address;
    std::function<void(const std::string& address)> show_address;
    std::function<void(FilesTab tab)> show_tab;
    // The remote list as it stands; a deleted file's item is blank.
    std::function<void(const std::vector<std::string>& names)> show_remote_list;
    std::function<void(FilesTab tab, int row)> select;
    // Lets the window repaint and take input while files travel.
    std::function<void()> breathe;
    // Waits between attempts to reach the host; a plain sleep when empty.
    std::function<void(int milliseconds)> pause;
};

// One publishing run of the default account: the connection to its directory on the host, and the remote list.
class FtpPublisher
{
public:
    FtpPublisher(ServiceClient& client, PublishingView view);
    ~FtpPublisher();

    // The remote list starts as the last known one.
    const std::vector<std::string>& remote_list() const { return m_remote; }

    // Connects with the built login, trying once a second for app.ftp_timeout attempts, and enters the
    // directory, made when missing. A host that never answers is reported to the service.
    bool FTP_connect_server(const FtpStrings& strings, const std::string& directory);
    // Lists the directory anew into the remote list and acct_remote_website; an empty directory fails.
    bool FTP_get_filelist();
    // Deletes every file of the remote list, whatever the host answers.
    bool FTP_clear_all_remote_files2();
    // Puts every file of the website directory, apart from names holding "~", in the order of the local list.
    bool FTP_upload_website_dir();
    void FTP_close_handles();

private:
    void status(std::string_view text);
    void show_remote();
    void select(FilesTab tab, int row);
    void pause(int milliseconds);
    void error_out(int error, std::string_view call);

    ServiceClient& m_client;
    Session& m_session;
    PublishingView m_view;
    std::string m_directory;
    std::vector<std::string> m_remote;
    std::unique_ptr<FtpConnection> m_connection;
};

// The three user operations. Each checks the default account first, keeps the busy pointer, learns the
// host for this run from the service, and closes the connection on every path once it was opened.
bool upload_website(Session& session, PublishingView view);
bool clear_remote_files(Session& session, PublishingView view);
bool refresh_remote_files(Session& session, PublishingView view);

// After a clean run: tells of a public address other than the one shown (after the lead text and a line end)
// and puts it on the label, or says "ok".
void report_changed_ftp_url(
    Session& session, const PublishingView& view, std::string_view lead = "uploaded ok , website link was changed to ");

} // namespace qv
