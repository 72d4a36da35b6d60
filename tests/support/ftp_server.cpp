#include "support/ftp_server.h"

#include <csignal>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace qv::test {

namespace {

// The script prints "listening on PORT" once it listens; nothing within ten seconds counts as a failure.
int read_port(int fd)
{
    std::string line;
    char c = 0;
    pollfd watch { fd, POLLIN, 0 };
    while (line.find('\n') == std::string::npos) {
        if (::poll(&watch, 1, 10000) <= 0 || ::read(fd, &c, 1) != 1)
            return -1;
        line += c;
    }
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
        m_port = read_port(m_child->output());
    m_child->close_output();
}

FtpServerProcess::~FtpServerProcess() = default;

} // namespace qv::test
