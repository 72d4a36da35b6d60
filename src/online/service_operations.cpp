#include "online/service_operations.h"

#include "core/session.h"
#include "online/reply.h"

namespace qv {

namespace {

bool succeeded(const std::optional<std::string>& data)
{
    return data.has_value();
}

} // namespace

bool getrawevents(ServiceClient& client, const std::filesystem::path& file)
{
    return client.request_file(client.url("getrawevents", KeyOrder::order1), file);
}

bool getrawdata(ServiceClient& client, const std::filesystem::path& file)
{
    return client.request_file(client.url("getrawdata", KeyOrder::order1), file);
}

std::optional<std::string> getstateentrieswithdrawals(ServiceClient& client)
{
    return client.request(client.url("getstateentrieswithdrawals", KeyOrder::order1));
}

bool set_state(ServiceClient& client, std::string_view word)
{
    return succeeded(
        client.request(client.url("set_state", KeyOrder::order1, { .after_idx = { { "tp", std::string(word) } } })));
}

bool clear_players_entries(ServiceClient& client)
{
    return succeeded(client.request(client.url("clear_players_entries", KeyOrder::order1)));
}

bool clear_events(ServiceClient& client)
{
    return succeeded(client.request(client.url("clear_events", KeyOrder::order2)));
}

bool uploadevents_append_execute_text(
    ServiceClient& client, std::string_view text, const std::function<void(int cnt)>& before_batch)
{
    return client.send_batches(
        client.url("uploadevents_append_execute_text", KeyOrder::order1) + "&", text, before_batch);
}

std::optional<std::string> uploadevents_parse_execute_text(ServiceClient& client)
{
    return client.request(client.url("uploadevents_parse_execute_text", KeyOrder::order1));
}

std::optional<std::string> withdraw_vb(
    ServiceClient& client, std::int64_t pid, std::string_view pfname, std::string_view psname, std::string_view email)
{
    return client.request(client.url("withdraw_vb", KeyOrder::order2,
        { .before_os = { { "pid", std::to_string(pid) }, { "pfname", std::string(pfname) },
              { "psname", std::string(psname) }, { "email", std::string(email) } } }));
}

std::optional<std::string> getftpstrings(ServiceClient& client)
{
    return client.request(client.url("getftpstrings", KeyOrder::order1));
}

void vb_ftp_error(ServiceClient& client, std::string_view ftpserver, std::string_view ftpusername, int timeout)
{
    client.call_url_get_small_ret_silent(client.url("vb_ftp_error", KeyOrder::order1,
        { .before_os = { { "ftpserver", std::string(ftpserver) }, { "ftpusername", std::string(ftpusername) },
              { "timeout", std::to_string(timeout) } } }));
}

bool update_tournament(
    ServiceClient& client, std::string_view tournament, std::string_view dates, std::string_view currencycode)
{
    return succeeded(client.request(client.url("update_tournament", KeyOrder::order1,
        { .at_end = { { "tournament", std::string(tournament) }, { "dates", std::string(dates) },
              { "currencycode", std::string(currencycode) } } })));
}

bool update_text_field(ServiceClient& client, std::string_view field, std::string_view text)
{
    const std::string fixed
        = client.url("update_text_field", KeyOrder::order1, { .after_idx = { { "field", std::string(field) } } });
    return client.send_batches(fixed + "&", text);
}

std::optional<std::string> get_maxevents_config(ServiceClient& client)
{
    return client.request(client.url("get_maxevents_config", KeyOrder::order2));
}

bool setmaxevents(ServiceClient& client, const MaxEventLimits& limits)
{
    return succeeded(client.request(client.url("setmaxevents", KeyOrder::order1,
        { .before_os = { { "maxevents", limits.maxevents }, { "scnti", limits.scnti }, { "dcnti", limits.dcnti },
              { "xcnti", limits.xcnti }, { "xdcnti", limits.xdcnti } } })));
}

std::optional<std::string> ccto_dosend_get(ServiceClient& client)
{
    return client.request(client.url("ccto_dosend_get", KeyOrder::order2));
}

bool ccto_dosend_update(ServiceClient& client, std::string_view ccto, std::string_view dosend)
{
    return succeeded(client.request(client.url("ccto_dosend_update", KeyOrder::order2,
        { .before_os = { { "ccto", std::string(ccto) }, { "dosend", std::string(dosend) } } })));
}

std::optional<std::string> vb_account_data_control_panel(ServiceClient& client)
{
    return client.request(client.url("vb_account_data_control_panel", KeyOrder::order1));
}

bool update_account_email(ServiceClient& client, std::string_view accountemail)
{
    // The protocol glues app_id to its value with no "=" in this one request.
    return succeeded(client.request(client.url("update_account_email", KeyOrder::order1,
        { .before_os = { { "accountemail", std::string(accountemail) } }, .app_id_glued = true })));
}

bool changepassword(ServiceClient& client, std::string_view newpwd)
{
    return succeeded(client.request(
        client.url("changepassword", KeyOrder::order1, { .before_os = { { "newpwd", std::string(newpwd) } } })));
}

std::optional<std::string> getipaddress_private(ServiceClient& client)
{
    std::string reply;
    if (!client.call_url_get_small_ret(client.url("getipaddress_private", KeyOrder::order1), reply)) {
        client.session().talk().message("an error occurred");
        return std::nullopt;
    }
    return strip_crlf(reply);
}

bool user_feedback(ServiceClient& client, std::string_view feedback_type, std::string_view feedback_text)
{
    return succeeded(client.request(client.url("user_feedback", KeyOrder::order1,
        { .after_idx
            = { { "feedback_type", std::string(feedback_type) }, { "feedback_text", std::string(feedback_text) } } })));
}

std::string public_page_url(ServiceClient& client, std::string_view page)
{
    return client.url(page, KeyOrder::public_page);
}

std::string event_entries_url(ServiceClient& client, std::int64_t eid, bool with_os_app_id)
{
    UrlKeys keys { .at_end = { { "event", std::to_string(eid) } } };
    if (with_os_app_id) {
        keys.at_end.push_back({ "os", client.requester().os });
        keys.at_end.push_back({ "app_id", client.requester().app_id });
    }
    return client.url("get_event_entries", KeyOrder::public_page, keys);
}

void open_in_browser(Session& session, const std::string& url, const OpenUrl& open)
{
    session.busy(true);
    if (open)
        open(url);
    session.busy(false);
}

} // namespace qv
