#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace qv::test {

// A program a test starts with its standard output on a pipe, so that the test can read what it prints when it
// is ready; stopped with SIGTERM and waited for at the end.
class ChildProcess
{
public:
    explicit ChildProcess(std::vector<std::string> args);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool started() const { return m_pid > 0; }
    // The read end of the program's standard output; -1 when it did not start.
    int output() const { return m_output; }
    // The first line the program prints, within ten seconds; empty when it printed none.
    std::string first_line() const;
    // The test has read what it waited for: what the program prints from now on is no longer read.
    void close_output();

private:
    pid_t m_pid = -1;
    int m_output = -1;
};

} // namespace qv::test
