#pragma once

#include <arpa/inet.h>
#include <atomic>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace qv::test {

// Some other web server on a loopback port: it answers every request with the same bytes and closes.
class PlainHttpServer
{
public:
    explicit PlainHttpServer(std::string response)
        : m_response(std::move(response))
    {
        m_fd = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        ::bind(m_fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
        ::listen(m_fd, 8);
        ::getsockname(m_fd, reinterpret_cast<sockaddr*>(&address), &length);
        m_port = ntohs(address.sin_port);
        m_thread = std::thread([this] { serve(); });
    }
    ~PlainHttpServer()
    {
        m_stop = true;
        ::shutdown(m_fd, SHUT_RDWR);
        ::close(m_fd);
        m_thread.join();
    }

    // A page that is not the service's.
    static std::string html_page()
    {
        const std::string body = "<html><body>It works!</body></html>";
        return "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: " + std::to_string(body.size())
            + "\r\nConnection: close\r\n\r\n" + body;
    }
    // The service's greeting, then the connection drops long before the promised length.
    static std::string broken_off()
    {
        return "HTTP/1.1 200 OK\r\nContent-Length: 5000\r\nConnection: close\r\n\r\n73215qpx48102^no_error^part";
    }

    int port() const { return m_port; }
    std::string server() const { return "http://127.0.0.1:" + std::to_string(m_port) + "/qv"; }

private:
    void serve()
    {
        while (!m_stop) {
            const int client = ::accept(m_fd, nullptr, nullptr);
            if (client < 0)
                return;
            char buffer[4096];
            std::string request;
            while (request.find("\r\n\r\n") == std::string::npos) {
                const auto n = ::recv(client, buffer, sizeof buffer, 0);
                if (n <= 0)
                    break;
                request.append(buffer, static_cast<std::size_t>(n));
            }
            ::send(client, m_response.data(), m_response.size(), MSG_NOSIGNAL);
            ::close(client);
        }
    }

    std::string m_response;
    int m_fd = -1;
    int m_port = 0;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

} // namespace qv::test
