#pragma once

#include "support/child_process.h"

#include <filesystem>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

namespace qv::test {

// The local online service run as its own process for one test: on a free loopback port, with its data file
// and request log in the given directory, and the account club7 / pw1. Stopped when it goes.
class ServiceProcess
{
public:
    explicit ServiceProcess(const std::filesystem::path& dir, const std::vector<std::string>& extra_args = {});
    ~ServiceProcess();
    ServiceProcess(const ServiceProcess&) = delete;
    ServiceProcess& operator=(const ServiceProcess&) = delete;

    static constexpr const char* custid = "club7";
    static constexpr const char* password = "pw1";

    bool running() const { return m_port > 0; }
    int port() const { return m_port; }
    // The address an account takes as its server.
    std::string server() const;
    // The requests as the service logged them, decoded, one a line.
    std::vector<std::string> log_lines() const;
    std::string last_logged() const;

private:
    std::unique_ptr<ChildProcess> m_child;
    int m_port = -1;
    std::filesystem::path m_log;
};

// A port on 127.0.0.1 that nothing listens on.
int closed_port();

// GET of a URL already fit for the wire; the body as UTF-8, or empty.
std::string fetch(const std::string& url);

} // namespace qv::test
