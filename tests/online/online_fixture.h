#pragma once

#include "online/service_client.h"
#include "support/service_process.h"
#include "support/session_fixture.h"

#include <memory>
#include <regex>

namespace qv::test {

// A session with a tournament open and, once started, the local online service beside it.
class OnlineTest : public SessionFixture
{
protected:
    std::unique_ptr<ServiceProcess> service;

    void SetUp() override { session.boot_start_app(dir.new_tournament().string()); }

    void start_service(const std::vector<std::string>& extra_args = {})
    {
        service = std::make_unique<ServiceProcess>(dir.path(), extra_args);
        ASSERT_TRUE(service->running());
    }

    // The default account, as "toggle default" leaves it in the settings.
    void set_default_account(const std::string& server, const std::string& custid, const std::string& password)
    {
        session.settings().set_disk_var("app.servlet", server);
        session.settings().set_disk_var("app.custid", custid);
        session.settings().set_disk_var("app.password", password);
    }
    void use_service_account()
    {
        set_default_account(service->server(), ServiceProcess::custid, ServiceProcess::password);
    }

    ServiceClient client() { return ServiceClient(session, default_account(session)); }

    // A logged request with its sequence written as SEQ, which differs every time.
    std::string logged_without_sequence() const
    {
        return std::regex_replace(service->last_logged(), std::regex("sequence=[0-9]+"), "sequence=SEQ");
    }
};

} // namespace qv::test
