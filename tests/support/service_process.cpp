#include "support/service_process.h"

#include "core/codepage.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstdio>
#include <curl/curl.h>
#include <fstream>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace qv::test {

namespace {

// The service prints "listening on http://127.0.0.1:PORT/qv" once it listens.
int read_port(const std::string& line)
{
    const auto colon = line.rfind(':');
    const auto slash = line.find("/qv");
    if (colon == std::string::npos || slash == std::string::npos || slash < colon)
        return -1;
    return std::stoi(line.substr(colon + 1, slash - colon - 1));
}

} // namespace

ServiceProcess::ServiceProcess(const std::filesystem::path& dir, const std::vector<std::string>& extra_args)
    : m_log(dir / "service.log")
{
    std::vector<std::string> args { QV_SERVICE_EXE, "--port", "0", "--data", (dir / "service.db").string(), "--log",
        m_log.string(), "--add-account", std::string(custid) + ":" + password };
    args.insert(args.end(), extra_args.begin(), extra_args.end());
    m_child = std::make_unique<ChildProcess>(std::move(args));
    if (m_child->started())
        m_port = read_port(m_child->first_line());
    m_child->close_output();
}

ServiceProcess::~ServiceProcess() = default;

std::string ServiceProcess::server() const
{
    return "http://127.0.0.1:" + std::to_string(m_port) + "/qv";
}

std::vector<std::string> ServiceProcess::log_lines() const
{
    std::vector<std::string> lines;
    std::ifstream in(m_log);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::string ServiceProcess::last_logged() const
{
    const auto lines = log_lines();
    return lines.empty() ? std::string() : lines.back();
}

int closed_port()
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
    ::close(fd);
    return ntohs(address.sin_port);
}

std::string fetch(const std::string& url)
{
    std::string body;
    CURL* curl = curl_easy_init();
    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
    curl_easy_setopt(
        curl, CURLOPT_WRITEFUNCTION, +[](char* data, std::size_t size, std::size_t n, void* user) {
            static_cast<std::string*>(user)->append(data, size * n);
            return size * n;
        });
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &body);
    curl_easy_perform(curl);
    curl_easy_cleanup(curl);
    return from_cp1252(body);
}

} // namespace qv::test
