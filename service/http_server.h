#pragma once

#include "service.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <mutex>
#include <string>

namespace httplib {
class Server;
}

namespace qv::service {

// The service on the wire: HTTP GET on 127.0.0.1 at one end point path; any other path is not found.
// Each request's decoded target is appended to the request log, when there is one.
class HttpServer
{
public:
    static constexpr const char* end_point = "/qv";

    HttpServer(Service& service, const std::filesystem::path& log_file = {});
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    // Binds 127.0.0.1 to the port (0: any free port) and returns the port bound, or -1.
    int bind(int port);
    // Serves until stop(); returns false when serving could not start.
    bool run();
    bool is_running() const;
    void stop();

private:
    void log(const std::string& line);

    Service& m_service;
    std::unique_ptr<httplib::Server> m_server;
    std::ofstream m_log;
    std::mutex m_log_mutex;
};

} // namespace qv::service
