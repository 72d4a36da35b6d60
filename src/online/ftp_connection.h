#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// One logged-in connection to an FTP host, kept open between its commands. Paths are relative to the login's
// home directory and the connection never changes directory, so each command stands on its own. When the host
// offers TLS (AUTH TLS) the session is encrypted; otherwise it goes plain.
class FtpConnection
{
public:
    struct Options
    {
        // Seconds a command may wait for the host's answer, and a transfer may stall.
        int response_timeout_seconds = 30;
        // Runs while a transfer goes on, so that windows can repaint.
        std::function<void()> breathe;
        // Certificates to trust instead of the system's, for a host whose certificate a private authority signed.
        std::filesystem::path ca_file;
    };

    // server: "host" or "host:port".
    FtpConnection(std::string_view server, std::string user, std::string password, Options options);
    ~FtpConnection();
    FtpConnection(const FtpConnection&) = delete;
    FtpConnection& operator=(const FtpConnection&) = delete;

    // False when the library could not set up a transfer handle.
    bool opened() const { return m_curl != nullptr; }
    // Connects and logs in, waiting at most the given seconds for the host; true once it accepted the login.
    bool log_in(int connect_seconds);
    // True when the directory can be listed (it exists and the login may enter it).
    bool can_enter(std::string_view dir);
    bool make_directory(std::string_view dir);
    // The names the host lists in the directory, in its order; nothing when the listing failed.
    std::optional<std::vector<std::string>> list_names(std::string_view dir);
    bool delete_file(std::string_view path);
    // Stores the local file under the remote path, in binary, replacing what was there.
    bool put_file(const std::filesystem::path& local, std::string_view remote_path);
    // The library's text for the last failure.
    const std::string& last_error() const { return m_error; }
    // Logs out and closes the connection.
    void close();

private:
    void reset();
    bool perform(const std::string& url);
    std::string url_of(std::string_view path) const;

    void* m_curl = nullptr;
    std::string m_base;
    std::string m_user;
    std::string m_password;
    Options m_options;
    std::string m_error;
};

} // namespace qv
