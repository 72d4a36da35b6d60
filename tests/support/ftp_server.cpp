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
    std::vector<char*> argv;
    for (auto& arg : args)
        argv.push_back(arg.data());
    argv.push_back(nullptr);

    int out[2];
    if (::pipe(out) != 0)
        return;
    m_pid = ::fork();
    if (m_pid == 0) {
        ::dup2(out[1], STDOUT_FILENO);
        ::close(out[0]);
        ::close(out[1]);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    ::close(out[1]);
    if (m_pid > 0)
        m_port = read_port(out[0]);
    ::close(out[0]);
}

FtpServerProcess::~FtpServerProcess()
{
    if (m_pid > 0) {
        ::kill(m_pid, SIGTERM);
        int status = 0;
        ::waitpid(m_pid, &status, 0);
    }
}

} // namespace qv::test
