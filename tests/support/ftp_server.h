#pragma once

#include "support/child_process.h"

#include <filesystem>
#include <memory>
#include <string>
#include <sys/types.h>

namespace qv::test {

// Debian's pyftpdlib serving a temporary root to one user, on a free loopback port, for one test. The
// constructor returns once the server accepts connections; the destructor stops it. Given a PEM file of
// certificate and key, the server takes no login before the session switched to TLS.
class FtpServerProcess
{
public:
    FtpServerProcess(const std::filesystem::path& root, const std::string& user, const std::string& password,
        const std::filesystem::path& tls_pem = {});
    ~FtpServerProcess();
    FtpServerProcess(const FtpServerProcess&) = delete;
    FtpServerProcess& operator=(const FtpServerProcess&) = delete;

    bool running() const { return m_port > 0; }
    int port() const { return m_port; }
    // "127.0.0.1:port", as the online service hands a host out.
    std::string server() const { return "127.0.0.1:" + std::to_string(m_port); }

private:
    std::unique_ptr<ChildProcess> m_child;
    int m_port = -1;
};

} // namespace qv::test
