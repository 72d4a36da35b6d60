#pragma once

#include "online/request_url.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

class Session;

// The account a request is sent for: the default account of the settings, or one row of the accounts.
struct OnlineAccount
{
    std::string server;
    std::string custid;
    std::string password;
};

// The check every request of the default account makes first: custid, password and server, trimmed, in that
// order; at the first empty one the user is told and the answer is false.
bool havecustidpwd(Session& session);

// The default account as the settings hold it (app.servlet, app.custid, app.password).
OnlineAccount default_account(Session& session);

// Sends requests of the online service for one account and judges the replies. Every message goes
// through the session's user-talk; a failed request changes nothing on this side.
class ServiceClient
{
public:
    ServiceClient(Session& session, OnlineAccount account);

    Session& session() { return m_session; }
    const Requester& requester() const { return m_requester; }
    // The website window keeps the arrow pointer while it sends; the other windows show the busy one.
    void set_busy_pointer(bool on) { m_busy_pointer = on; }

    // The URL of an operation, with a new sequence.
    std::string url(std::string_view idx, KeyOrder order, const UrlKeys& keys = {});

    // A reply into memory, the running total shown on the progress label. False only on a failure here.
    bool call_url_get_small_ret(const std::string& url, std::string& reply);
    // A reply appended to a file, for replies that may be long; a partial file is deleted on failure.
    bool call_url_get_ret(const std::string& url, const std::filesystem::path& file);
    // A reply into memory with nothing shown.
    std::string call_url_get_small_ret_silent(const std::string& url);

    // Judges a reply: true when it is bad, after the user was told why. A good reply is replaced by its data.
    bool bad_return(std::string& reply);

    // Sends and judges: the data of a good reply, or nothing after the user was told ("an error occurred" for
    // a failure here, else the judgement's message).
    std::optional<std::string> request(const std::string& url);
    // The same for a reply saved to a file, judged by its head; any old copy of the file goes first. On a good
    // reply the file holds the whole reply; otherwise it is gone.
    bool request_file(const std::string& url, const std::filesystem::path& file);
    // A text of any length in batches of 1500 characters: fixed_part (which ends in "&" and carries one
    // sequence for all the batches), "cnt=" and the batch number, "&data=" and the slice. The first bad reply
    // stops the rest; the batches before it stay at the service. An empty text sends nothing and is done.
    bool send_batches(
        const std::string& fixed_part, std::string_view text, const std::function<void(int cnt)>& before_batch = {});

    static constexpr std::size_t batch_size = 1500;

private:
    int timeout_seconds() const;
    void busy(bool on);

    Session& m_session;
    OnlineAccount m_account;
    Requester m_requester;
    bool m_busy_pointer = true;
};

} // namespace qv
