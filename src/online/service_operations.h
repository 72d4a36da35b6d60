#pragma once

#include "online/service_client.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

// One call per operation of the online service. A call that answers with data gives it for a good reply and
// nothing after the user was told why not; a call without data answers true for a good reply.

// Online events and entries.
bool getrawevents(ServiceClient& client, const std::filesystem::path& file);
bool getrawdata(ServiceClient& client, const std::filesystem::path& file);
std::optional<std::string> getstateentrieswithdrawals(ServiceClient& client);
// word: "openentries", "closeentries", "openwithdrawals", "closewithdrawals", "openentries_withdrawals",
// "closeentries_withdrawals".
bool set_state(ServiceClient& client, std::string_view word);
bool clear_players_entries(ServiceClient& client);
bool clear_events(ServiceClient& client);
bool uploadevents_append_execute_text(
    ServiceClient& client, std::string_view text, const std::function<void(int cnt)>& before_batch = {});
std::optional<std::string> uploadevents_parse_execute_text(ServiceClient& client);
std::optional<std::string> withdraw_vb(
    ServiceClient& client, std::int64_t pid, std::string_view pfname, std::string_view psname, std::string_view email);

// FTP publishing.
std::optional<std::string> getftpstrings(ServiceClient& client);
// Tells the service of an FTP host that did not answer; the reply is neither judged nor shown.
void vb_ftp_error(ServiceClient& client, std::string_view ftpserver, std::string_view ftpusername, int timeout);

// The tournament's details, texts and limits.
bool update_tournament(
    ServiceClient& client, std::string_view tournament, std::string_view dates, std::string_view currencycode);
// field: the column's name; the text goes in batches.
bool update_text_field(ServiceClient& client, std::string_view field, std::string_view text);
std::optional<std::string> get_maxevents_config(ServiceClient& client);
struct MaxEventLimits
{
    std::string maxevents, scnti, dcnti, xcnti, xdcnti;
};
bool setmaxevents(ServiceClient& client, const MaxEventLimits& limits);
std::optional<std::string> ccto_dosend_get(ServiceClient& client);
bool ccto_dosend_update(ServiceClient& client, std::string_view ccto, std::string_view dosend);

// The account.
std::optional<std::string> vb_account_data_control_panel(ServiceClient& client);
bool update_account_email(ServiceClient& client, std::string_view accountemail);
bool changepassword(ServiceClient& client, std::string_view newpwd);
// Not judged: the reply freed of line ends; nothing after "an error occurred" when sending failed.
std::optional<std::string> getipaddress_private(ServiceClient& client);
// feedback_type: "feedback", "feature_request" or "bug".
bool user_feedback(ServiceClient& client, std::string_view feedback_type, std::string_view feedback_text);

// The public pages, shown by the system's browser: players, entries, enter1_enterpage, withdraw1_login_page,
// links, get_tdetails, get_entryinstructions, get_paymentinstructions, get_messagetoplayers, get_conditions.
std::string public_page_url(ServiceClient& client, std::string_view page);
// One event's entries; from the list of online events the address also carries os and app_id.
std::string event_entries_url(ServiceClient& client, std::int64_t eid, bool with_os_app_id);

// Hands a URL to the system's browser; nothing is read back.
using OpenUrl = std::function<void(const std::string& url)>;
void open_in_browser(Session& session, const std::string& url, const OpenUrl& open);

} // namespace qv
