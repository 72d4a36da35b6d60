#include "online/service_client.h"

#include "core/codepage.h"
#include "core/session.h"
#include "core/utf8.h"
#include "online/http_get.h"
#include "online/reply.h"

#include <fstream>

namespace qv {

bool havecustidpwd(Session& session)
{
    const auto& settings = session.settings();
    if (trim(settings.text("app.custid")).empty()) {
        session.talk().message("no default account set,update in control panel");
        return false;
    }
    if (trim(settings.text("app.password")).empty()) {
        session.talk().message("no password set for current account");
        return false;
    }
    if (trim(settings.text("app.servlet")).empty()) {
        session.talk().message("no server set for current account");
        return false;
    }
    return true;
}

OnlineAccount default_account(Session& session)
{
    const auto& settings = session.settings();
    return { settings.text("app.servlet"), settings.text("app.custid"), settings.text("app.password") };
}

ServiceClient::ServiceClient(Session& session, OnlineAccount account)
    : m_session(session)
    , m_account(std::move(account))
    , m_requester { m_account.server, m_account.custid, m_account.password, session.machine_id(), session.os_details(),
        Session::version }
{
}

std::string ServiceClient::url(std::string_view idx, KeyOrder order, const UrlKeys& keys)
{
    return build_url(m_requester, idx, order, get_sequence(m_session), keys);
}

int ServiceClient::timeout_seconds() const
{
    const int seconds = m_session.settings().integer("app.ftp_timeout");
    return seconds > 0 ? seconds : 30;
}

void ServiceClient::busy(bool on)
{
    if (m_busy_pointer)
        m_session.busy(on);
}

bool ServiceClient::call_url_get_small_ret(const std::string& url, std::string& reply)
{
    busy(true);
    auto& talk = m_session.talk();
    std::string bytes;
    HttpGetOptions options { timeout_seconds(),
        [&talk](std::size_t total) { talk.progress(std::to_string(total) + " bytes downloaded"); } };
    const bool ok = http_get(
        url,
        [&bytes](std::string_view chunk) {
            bytes += chunk;
            return true;
        },
        options);
    talk.progress("");
    reply = from_cp1252(bytes);
    busy(false);
    return ok;
}

bool ServiceClient::call_url_get_ret(const std::string& url, const std::filesystem::path& file)
{
    busy(true);
    auto& talk = m_session.talk();
    bool ok = false;
    {
        std::ofstream out(file, std::ios::binary | std::ios::app);
        HttpGetOptions options { timeout_seconds(),
            [&talk](std::size_t total) { talk.progress(std::to_string(total) + " bytes downloaded"); } };
        ok = out
            && http_get(
                url,
                [&out](std::string_view chunk) {
                    out.write(chunk.data(), static_cast<std::streamsize>(chunk.size()));
                    return static_cast<bool>(out);
                },
                options);
        out.close();
        ok = ok && !out.fail();
    }
    talk.progress("");
    if (!ok) {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
    busy(false);
    return ok;
}

std::string ServiceClient::call_url_get_small_ret_silent(const std::string& url)
{
    std::string bytes;
    http_get(
        url,
        [&bytes](std::string_view chunk) {
            bytes += chunk;
            return true;
        },
        HttpGetOptions { timeout_seconds(), {} });
    return from_cp1252(bytes);
}

bool ServiceClient::bad_return(std::string& reply)
{
    Judgement judgement = judge_reply(reply, m_account.server);
    if (judgement.bad) {
        m_session.talk().message(judgement.message);
        return true;
    }
    reply = std::move(judgement.data);
    return false;
}

std::optional<std::string> ServiceClient::request(const std::string& url)
{
    std::string reply;
    if (!call_url_get_small_ret(url, reply)) {
        m_session.talk().message("an error occurred");
        return std::nullopt;
    }
    if (bad_return(reply))
        return std::nullopt;
    return reply;
}

bool ServiceClient::request_file(const std::string& url, const std::filesystem::path& file)
{
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    if (!call_url_get_ret(url, file)) {
        m_session.talk().message("an error occurred");
        return false;
    }
    std::string head = read_reply_head(file);
    if (bad_return(head)) {
        std::filesystem::remove(file, ignored);
        return false;
    }
    return true;
}

bool ServiceClient::send_batches(
    const std::string& fixed_part, std::string_view text, const std::function<void(int cnt)>& before_batch)
{
    const std::size_t length = char_count(text);
    int cnt = 1;
    for (std::size_t position = 0; position < length; position += batch_size, ++cnt) {
        if (before_batch)
            before_batch(cnt);
        const std::string url
            = fixed_part + "cnt=" + std::to_string(cnt) + "&data=" + mid_chars(text, position, batch_size);
        if (!request(url))
            return false;
    }
    return true;
}

} // namespace qv
