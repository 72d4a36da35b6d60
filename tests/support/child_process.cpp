#include "support/child_process.h"

#include <csignal>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qv::test {

ChildProcess::ChildProcess(std::vector<std::string> args)
{
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
        m_output = out[0];
    else
        ::close(out[0]);
}

std::string ChildProcess::first_line() const
{
    std::string line;
    char c = 0;
    pollfd watch { m_output, POLLIN, 0 };
    while (line.find('\n') == std::string::npos) {
        if (m_output < 0 || ::poll(&watch, 1, 10000) <= 0 || ::read(m_output, &c, 1) != 1)
            return {};
        line += c;
    }
    return line;
}

void ChildProcess::close_output()
{
    if (m_output >= 0)
        ::close(m_output);
    m_output = -1;
}

ChildProcess::~ChildProcess()
{
    close_output();
    if (m_pid > 0) {
        ::kill(m_pid, SIGTERM);
        int status = 0;
        ::waitpid(m_pid, &status, 0);
    }
}

} // namespace qv::test
