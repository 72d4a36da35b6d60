#include "http_server.h"

#include "core/codepage.h"

#include <httplib.h>

namespace qv::service {

HttpServer::HttpServer(Service& service, const std::filesystem::path& log_file)
    : m_service(service)
    , m_server(std::make_unique<httplib::Server>())
{
    // Small replies go out at once rather than waiting for the client's acknowledgement.
    m_server->set_tcp_nodelay(true);
    if (!log_file.empty())
        m_log.open(log_file, std::ios::app | std::ios::binary);
    m_server->Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
        if (request.path != end_point) {
            response.status = 404;
            response.set_content("not found", "text/plain");
            return;
        }
        std::string logged;
        const Reply reply = m_service.handle(request.target, request.remote_addr, &logged);
        log(logged);
        response.status = reply.status;
        response.set_content(to_cp1252(reply.body), reply.content_type.c_str());
    });
}

HttpServer::~HttpServer() = default;

int HttpServer::bind(int port)
{
    if (port == 0)
        return m_server->bind_to_any_port("127.0.0.1");
    return m_server->bind_to_port("127.0.0.1", port) ? port : -1;
}

bool HttpServer::run()
{
    return m_server->listen_after_bind();
}

bool HttpServer::is_running() const
{
    return m_server->is_running();
}

void HttpServer::stop()
{
    m_server->stop();
}

void HttpServer::log(const std::string& line)
{
    if (!m_log.is_open())
        return;
    std::string flat = line;
    for (char& c : flat)
        if (c == '\r' || c == '\n')
            c = ' ';
    const std::lock_guard lock(m_log_mutex);
    m_log << flat << '\n';
    m_log.flush();
}

} // namespace qv::service
