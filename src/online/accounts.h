#pragma once

#include "online/service_client.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// A row of acct_accountdata: an account with which the program logs in to the online service.
struct AccountRow
{
    std::int64_t idx = 0;
    std::string servlet;
    std::string custid;
    std::string password;
    bool is_default = false;
    std::string ftpurl;
    std::int64_t maxbytes = 0;
    std::string maxentries;
    std::string maxevents;
    std::string numentries;
    std::string signupdate;
    std::string signupemail;
    std::string last_refresh;

    OnlineAccount online() const { return { servlet, custid, password }; }
};

std::vector<AccountRow> load_accounts(Database& init);
std::optional<AccountRow> find_account(Database& init, std::int64_t idx);

// The field of the accounts tab a refusal sends the user back to.
enum class AccountField { server, login, password };

// Adds an account after the checks of its three fields (trimmed), each refusal told to the user.
// The new row's idx, or nothing and the field to return to.
struct AddAccountResult
{
    std::optional<std::int64_t> idx;
    AccountField field = AccountField::server;
};
AddAccountResult controlpanel_addaccount(
    Session& session, std::string_view server, std::string_view login, std::string_view password);

// "toggle default": the default account loses the mark and the settings of the default account are emptied;
// any other becomes the only default and the settings take its values.
void toggle_default(Session& session, std::int64_t idx);
// Empties app.servlet, app.custid, app.password and app.ftp_website_url.
void kill_default_account(Session& session);
// After the question, the account, its online limits and its online events go. The settings stay as they
// are, even for the default account, until the next toggle.
bool delete_account(Session& session, std::int64_t idx);

// The guard of the panel's requests: the typed fields must be the stored ones, and none may be empty.
bool local_havecustidpwd(Session& session, const AccountRow& row, std::string_view server, std::string_view login,
    std::string_view password);

// "refresh account data": the service's record of the account into its row, and "ok".
bool refresh_account_data(Session& session, std::int64_t idx);
// The fields of the reply, each ended by "¿", into the row's columns from ftpurl on; empty fields leave their
// column as it was, and last_refresh takes the present time.
void parse_insert_ret(Database& init, std::int64_t idx, std::string_view data);
// The accounts as the list offers them to "accounts.txt": per account its fields by their labels.
std::vector<std::string> account_lines(const std::vector<AccountRow>& accounts);

// "update server" beside "account email *".
bool update_account_email(Session& session, std::int64_t idx, std::string_view email);
// The stored password is replaced after the service took the new one.
bool change_password(Session& session, std::int64_t idx, std::string_view old_password, std::string_view new_password);
// "get ip address presented to server": the address shown, or "an error occurred".
bool show_ip_address(Session& session, std::int64_t idx);

// The three kinds of feedback, their captions and the prompt each puts in the text box.
struct FeedbackKind
{
    std::string_view caption;
    std::string_view type;
    std::string_view prompt;
};
const std::vector<FeedbackKind>& feedback_kinds();
bool send_feedback(Session& session, std::int64_t idx, std::string_view type, std::string_view text);

// Deletes every character of chars from the text.
std::string remove_chars(std::string_view text, std::string_view chars = "&%#");

// The online state of an account (limits and the states of entries and withdrawals), made on first use.
void ensure_online_tournament_row(Database& init, std::string_view custid);

} // namespace qv
