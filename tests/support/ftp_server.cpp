#include "support/ftp_server.h"

#include <vector>

namespace qv::test {

namespace {

// The script prints "listening on PORT" once it listens; nothing within ten seconds counts as a failure.
int read_port(const std::string& line)
{
    const std::string lead = "listening on ";
    if (line.rfind(lead, 0) != 0)
        return -1;
    return std::stoi(line.substr(lead.size()));
}

} // namespace

FtpServerProcess::FtpServerProcess(const std::filesystem::path& root, const std::string& user,
    const std::string& password, const std::filesystem::path& tls_pem)
{
    // The system's interpreter: Debian's python3-pyftpdlib belongs to it, whatever python3 the PATH finds first.
    std::vector<std::string> args { "/usr/bin/python3", QV_FTP_SERVER_SCRIPT, root.string(), user, password };
    if (!tls_pem.empty())
        args.push_back(tls_pem.string());
    m_child = std::make_unique<ChildProcess>(std::move(args));
    if (m_child->started())
        m_port = read_port(m_child->first_line());
    m_child->close_output();
}

FtpServerProcess::~FtpServerProcess() = default;

} // namespace qv::test
