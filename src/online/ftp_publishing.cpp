#include "online/ftp_publishing.h"

#include "core/session.h"
#include "core/utf8.h"
#include "online/format_bytes.h"
#include "online/ftp_connection.h"
#include "online/ftp_credentials.h"
#include "online/ftp_files.h"
#include "online/remote_website.h"
#include "online/service_operations.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <functional>
#include <thread>

namespace qv {

namespace {

// How long one attempt may wait for the host to answer and accept the login.
constexpr int attempt_seconds = 5;
// The transfer library's number for a handle it could not set up (CURLE_FAILED_INIT).
constexpr int library_init_failed = 2;

// The remote list is sorted as the listing's sorted list box sorts: case-blind.
void sort_case_blind(std::vector<std::string>& names)
{
    const auto lowered = [](std::string text) {
        std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
        return text;
    };
    std::stable_sort(names.begin(), names.end(),
        [&](const std::string& a, const std::string& b) { return lowered(a) < lowered(b); });
}

class BusyPointer
{
public:
    explicit BusyPointer(Session& session)
        : m_session(session)
    {
        m_session.busy(true);
    }
    ~BusyPointer() { m_session.busy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Session& m_session;
};

} // namespace

FtpPublisher::FtpPublisher(ServiceClient& client, PublishingView view)
    : m_client(client)
    , m_session(client.session())
    , m_view(std::move(view))
    , m_directory(client.requester().custid)
    , m_remote(load_remote_website(m_session.init_db(), m_directory))
{
}

FtpPublisher::~FtpPublisher()
{
    FTP_close_handles();
}

void FtpPublisher::status(std::string_view text)
{
    m_session.talk().progress(text);
}

void FtpPublisher::show_remote()
{
    if (m_view.show_remote_list)
        m_view.show_remote_list(m_remote);
}

void FtpPublisher::select(FilesTab tab, int row)
{
    if (m_view.select)
        m_view.select(tab, row);
}

void FtpPublisher::pause(int milliseconds)
{
    if (m_view.pause)
        m_view.pause(milliseconds);
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

// A failure of the transfer library itself: its number and the call, and the offer to close everything.
void FtpPublisher::error_out(int error, std::string_view call)
{
    const std::string question
        = std::to_string(error) + " Err: " + std::string(call) + "\nClose Connection and Session?";
    if (m_session.talk().ask(question, "", Buttons::YesNo) == Answer::Yes)
        FTP_close_handles();
}

bool FtpPublisher::FTP_connect_server(const FtpStrings& strings, const std::string& directory)
{
    m_directory = directory;
    status("connecting to server..." + strings.server);
    FtpConnection::Options options;
    options.response_timeout_seconds = std::max(1, m_session.settings().integer("app.ftp_timeout"));
    options.breathe = m_view.breathe;
    m_connection = std::make_unique<FtpConnection>(
        strings.server, ftp_user_name(strings.user_part), ftp_password(strings.password_part), options);
    if (!m_connection->opened()) {
        error_out(library_init_failed, "InternetOpen");
        m_connection.reset();
        m_session.talk().message("error connecting to the internet");
        return false;
    }

    const int attempts = m_session.settings().integer("app.ftp_timeout");
    int i = 1;
    for (; i <= attempts; ++i) {
        if (m_connection->log_in(attempt_seconds))
            break;
        status("connecting to server," + std::to_string(i) + " seconds..");
        pause(1000);
    }
    status("");
    if (i > attempts) {
        vb_ftp_error(m_client, strings.server, strings.user_part, i);
        m_session.talk().message("ftp server@ " + strings.server + ",not responding,timed out waiting for response");
        return false;
    }

    if (!m_connection->can_enter(directory)) {
        if (!m_connection->make_directory(directory)) {
            m_session.talk().message("error creating directory," + directory);
            return false;
        }
        if (!m_connection->can_enter(directory)) {
            m_session.talk().message("cannot connect to directory," + directory);
            return false;
        }
    }
    return true;
}

bool FtpPublisher::FTP_get_filelist()
{
    m_remote.clear();
    show_remote();
    auto names = m_connection ? m_connection->list_names(m_directory) : std::nullopt;
    // An empty directory lists nothing at all, which the host's find answers as a failure.
    if (!names || names->empty()) {
        m_session.talk().message("error FTP_get_filelist");
        return false;
    }
    sort_case_blind(*names);
    for (const auto& name : *names)
        if (file_ok(name))
            m_remote.push_back(name);
    save_remote_website(m_session.init_db(), m_directory, m_remote);
    show_remote();
    return true;
}

bool FtpPublisher::FTP_clear_all_remote_files2()
{
    for (std::size_t row = 0; row < m_remote.size(); ++row) {
        select(FilesTab::remote, static_cast<int>(row));
        status("Deleting ..." + m_remote[row]);
        if (m_connection && !m_remote[row].empty())
            m_connection->delete_file(m_directory + "/" + m_remote[row]);
        m_remote[row].clear();
        show_remote();
    }
    return true;
}

bool FtpPublisher::FTP_upload_website_dir()
{
    const auto& website = m_session.dirs().website;
    const auto names = local_file_names(website);
    for (std::size_t row = 0; row < names.size(); ++row) {
        const std::string& name = names[row];
        select(FilesTab::local, static_cast<int>(row));
        if (name.find('~') != std::string::npos) {
            status("rejected..." + name);
            continue;
        }
        status("uploading..." + name);
        if (m_view.breathe)
            m_view.breathe();
        const bool ok = m_connection && m_connection->put_file(website / name, m_directory + "/" + name);
        status("");
        if (!ok) {
            const std::string text = "An error occurred while uploading. try again. " + name;
            status(text);
            m_session.talk().message(text);
            return false;
        }
    }
    return true;
}

void FtpPublisher::FTP_close_handles()
{
    if (m_connection)
        m_connection->close();
    m_connection.reset();
}

void report_changed_ftp_url(Session& session, const PublishingView& view, std::string_view lead)
{
    const std::string shown = view.shown_address ? trim(view.shown_address()) : std::string();
    const std::string& address = session.settings().text("app.ftp_website_url");
    if (shown == address) {
        session.talk().message("ok");
        return;
    }
    session.talk().message(std::string(lead) + "\n" + address);
    if (view.show_address)
        view.show_address(address);
}

bool upload_website(Session& session, PublishingView view)
{
    if (!havecustidpwd(session))
        return false;
    BusyPointer busy(session);
    ServiceClient client(session, default_account(session));
    client.set_busy_pointer(false);
    const auto strings = get_ftp_strings(client);
    if (!strings)
        return false;

    const std::uint64_t size = get_dir_size(session.dirs().website);
    const std::int32_t allocation = verify_valid_long(strings->allocation);
    if (size > static_cast<std::uint64_t>(allocation)) {
        session.talk().message("website size =" + format_bytes(size)
            + ",your allocation =" + format_bytes(static_cast<std::uint64_t>(allocation)) + ",cannot upload");
        return false;
    }

    FtpPublisher publisher(client, view);
    const auto to_tab = [&view](FilesTab tab) {
        if (view.show_tab)
            view.show_tab(tab);
    };
    if (!publisher.FTP_connect_server(*strings, client.requester().custid))
        return false;
    to_tab(FilesTab::remote);
    if (!publisher.FTP_get_filelist() || !publisher.FTP_clear_all_remote_files2())
        return false;
    to_tab(FilesTab::local);
    if (!publisher.FTP_upload_website_dir())
        return false;
    to_tab(FilesTab::remote);
    if (!publisher.FTP_get_filelist())
        return false;
    publisher.FTP_close_handles();
    session.talk().progress("");
    report_changed_ftp_url(session, view);
    return true;
}

namespace {

// "clear remote files" and "refresh remote files": the account, the strings of the service and the connection,
// then the work on the remote list; the handles are closed and the address reported only when the work went well.
bool on_remote_files(
    Session& session, PublishingView view, const std::function<bool(FtpPublisher&, const std::string& custid)>& work)
{
    if (!havecustidpwd(session))
        return false;
    BusyPointer busy(session);
    ServiceClient client(session, default_account(session));
    client.set_busy_pointer(false);
    const auto strings = get_ftp_strings(client);
    if (!strings)
        return false;
    FtpPublisher publisher(client, view);
    const auto custid = client.requester().custid;
    if (!publisher.FTP_connect_server(*strings, custid) || !work(publisher, custid))
        return false;
    publisher.FTP_close_handles();
    session.talk().progress("");
    report_changed_ftp_url(session, view, "website link was changed to ");
    return true;
}

} // namespace

bool clear_remote_files(Session& session, PublishingView view)
{
    std::string account;
    const bool cleared = on_remote_files(session, view, [&account](FtpPublisher& publisher, const std::string& custid) {
        publisher.FTP_clear_all_remote_files2();
        account = custid;
        return true;
    });
    if (cleared)
        delete_remote_website(session.init_db(), account);
    return cleared;
}

bool refresh_remote_files(Session& session, PublishingView view)
{
    return on_remote_files(
        session, view, [](FtpPublisher& publisher, const std::string&) { return publisher.FTP_get_filelist(); });
}

} // namespace qv
