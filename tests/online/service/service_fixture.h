#pragma once

#include "core/codepage.h"
#include "http_server.h"
#include "service.h"
#include "store.h"
#include "support/temp_app_dir.h"

#include <curl/curl.h>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace qv::service::test {

// The service in this process: its store in a temporary directory, one account club7 / pw1, and its HTTP
// server on a free loopback port once serve() is called.
class ServiceTest : public ::testing::Test
{
protected:
    qv::test::TempAppDir dir;
    Store store { dir.path() / "service.db" };
    Options options;
    std::unique_ptr<Service> service;
    std::unique_ptr<HttpServer> server;
    std::thread serving;
    int port = -1;

    void SetUp() override
    {
        store.add_account({ "club7", "pw1", 2, 3 });
        service = std::make_unique<Service>(store, options);
    }
    void TearDown() override
    {
        if (server) {
            server->stop();
            serving.join();
        }
    }

    void serve()
    {
        server = std::make_unique<HttpServer>(*service);
        port = server->bind(0);
        ASSERT_GT(port, 0);
        serving = std::thread([this] { server->run(); });
    }

    // The reply to a target, as text.
    std::string ask(const std::string& target) { return service->handle(target, "127.0.0.1").body; }
    std::string ask_account(const std::string& idx, const std::string& keys = "")
    {
        return ask("/qv?idx=" + idx + "&custid=club7&password=pw1" + keys);
    }
};

// A GET over the wire on one handle that keeps its connection; the body in UTF-8, the status beside it.
class WireClient
{
public:
    WireClient()
        : m_curl(curl_easy_init())
    {
        curl_easy_setopt(
            m_curl, CURLOPT_WRITEFUNCTION, +[](char* data, std::size_t size, std::size_t n, void* user) {
                static_cast<std::string*>(user)->append(data, size * n);
                return size * n;
            });
        curl_easy_setopt(m_curl, CURLOPT_WRITEDATA, &m_body);
    }
    ~WireClient() { curl_easy_cleanup(m_curl); }

    std::string get(const std::string& url, long* status = nullptr)
    {
        m_body.clear();
        curl_easy_setopt(m_curl, CURLOPT_URL, url.c_str());
        if (curl_easy_perform(m_curl) != CURLE_OK)
            return "transfer failed";
        if (status)
            curl_easy_getinfo(m_curl, CURLINFO_RESPONSE_CODE, status);
        return from_cp1252(m_body);
    }

private:
    CURL* m_curl;
    std::string m_body;
};

} // namespace qv::service::test
