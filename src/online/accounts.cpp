#include "online/accounts.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "online/format_bytes.h"
#include "online/service_operations.h"

#include <array>

namespace qv {

namespace {

AccountRow read_row(const Statement& row)
{
    AccountRow account;
    account.idx = row.integer("idx");
    account.servlet = row.text("servlet");
    account.custid = row.text("custid");
    account.password = row.text("password");
    account.is_default = row.text("default") == "default";
    account.ftpurl = row.text("ftpurl");
    account.maxbytes = row.integer("maxbytes");
    account.maxentries = row.text("maxentries");
    account.maxevents = row.text("maxevents");
    account.numentries = row.text("numentries");
    account.signupdate = row.text("signupdate");
    account.signupemail = row.text("signupemail");
    account.last_refresh = row.text("last_refresh");
    return account;
}

// Tells the refusal, if any; true when the value passed.
bool passes(Session& session, const Check& check)
{
    return report(session.talk(), check);
}

void set_default_settings(Session& session, const AccountRow& row)
{
    auto& settings = session.settings();
    settings.set_disk_var("app.servlet", row.servlet);
    settings.set_disk_var("app.custid", row.custid);
    settings.set_disk_var("app.password", row.password);
    settings.set_disk_var("app.ftp_website_url", row.ftpurl);
}

} // namespace

std::vector<AccountRow> load_accounts(Database& init)
{
    std::vector<AccountRow> accounts;
    auto row = init.query("select * from acct_accountdata order by idx");
    while (row.step())
        accounts.push_back(read_row(row));
    return accounts;
}

std::optional<AccountRow> find_account(Database& init, std::int64_t idx)
{
    auto row = init.query("select * from acct_accountdata where idx=?", idx);
    if (!row.step())
        return std::nullopt;
    return read_row(row);
}

AddAccountResult controlpanel_addaccount(
    Session& session, std::string_view server_typed, std::string_view login_typed, std::string_view password_typed)
{
    auto& talk = session.talk();
    const std::string server = trim(server_typed);
    const std::string login = trim(login_typed);
    const std::string password = trim(password_typed);
    const auto refuse = [&talk](std::string_view message, AccountField field) {
        talk.message(message);
        return AddAccountResult { std::nullopt, field };
    };
    if (server.empty())
        return refuse("need server", AccountField::server);
    if (login.empty())
        return refuse("need login", AccountField::login);
    if (login == "default")
        return refuse("cannot have login named 'default'", AccountField::login);
    if (password.empty())
        return refuse("need password", AccountField::password);
    if (check_class(server, ValueClass::servletname))
        return refuse("invalid server url", AccountField::server);
    if (check_class(login, ValueClass::alphanumeric))
        return refuse("invalid login, alphanumeric only\": Exit Sub", AccountField::login);
    if (check_class(password, ValueClass::alphanumeric))
        return refuse("invalid password, alphanumeric only", AccountField::password);

    auto& init = session.init_db();
    if (!init.scalar_text("select custid from acct_accountdata where custid=?", login).empty())
        return refuse("already have a login=" + login, AccountField::login);
    Transaction transaction(init);
    const auto idx = init.next_id("acct_accountdata", "idx");
    init.run("insert into acct_accountdata (idx, servlet, custid, password) values (?, ?, ?, ?)", idx, server, login,
        password);
    ensure_online_tournament_row(init, login);
    transaction.commit();
    return { idx, AccountField::server };
}

void kill_default_account(Session& session)
{
    AccountRow empty;
    set_default_settings(session, empty);
}

void toggle_default(Session& session, std::int64_t idx)
{
    auto& init = session.init_db();
    const auto row = find_account(init, idx);
    if (!row)
        return;
    Transaction transaction(init);
    if (row->is_default) {
        init.run(R"(Update acct_accountdata set "default"='' where idx=?)", idx);
        kill_default_account(session);
    } else {
        init.run(R"(Update acct_accountdata set "default"='')");
        init.run(R"(Update acct_accountdata set "default"='default' where idx=?)", idx);
        set_default_settings(session, *row);
    }
    transaction.commit();
}

bool delete_account(Session& session, std::int64_t idx)
{
    auto& init = session.init_db();
    const auto row = find_account(init, idx);
    if (!row)
        return false;
    if (session.talk().ask("delete account " + row->custid + "?", "Control panel", Buttons::YesNo) != Answer::Yes)
        return false;
    Transaction transaction(init);
    init.run("delete from acct_accountdata where idx=?", idx);
    init.run("delete from acct_online_tournament where custid=?", row->custid);
    init.run("delete from acct_onlineevents where custid=?", row->custid);
    transaction.commit();
    return true;
}

bool local_havecustidpwd(
    Session& session, const AccountRow& row, std::string_view server, std::string_view login, std::string_view password)
{
    auto& talk = session.talk();
    if (trim(server) != row.servlet || trim(login) != row.custid || trim(password) != row.password) {
        talk.message("must first save changes to server/login/password");
        return false;
    }
    if (row.custid.empty()) {
        talk.message("no login set");
        return false;
    }
    if (row.password.empty()) {
        talk.message("no password set");
        return false;
    }
    if (row.servlet.empty()) {
        talk.message("no server set");
        return false;
    }
    return true;
}

void parse_insert_ret(Database& init, std::int64_t idx, std::string_view data)
{
    // The columns of acct_accountdata from the sixth on, in the order of the reply's fields.
    static constexpr std::array<std::string_view, 8> columns { "ftpurl", "maxbytes", "maxentries", "maxevents",
        "numentries", "signupdate", "signupemail", "last_refresh" };
    const std::u32string chars = decode_utf8(data);
    std::size_t field = 0;
    std::u32string value;
    for (char32_t c : chars) {
        if (c != U'\u00bf') {
            value += c;
            continue;
        }
        if (field < columns.size() && !value.empty())
            init.run("update acct_accountdata set " + std::string(columns[field]) + "=? where idx=?",
                encode_utf8(value), idx);
        ++field;
        value.clear();
    }
    init.run("update acct_accountdata set last_refresh=? where idx=?", date_time_long(local_time_now()), idx);
}

bool refresh_account_data(Session& session, std::int64_t idx)
{
    auto& init = session.init_db();
    const auto row = find_account(init, idx);
    if (!row)
        return false;
    ServiceClient client(session, row->online());
    const auto data = vb_account_data_control_panel(client);
    if (!data)
        return false;
    Transaction transaction(init);
    parse_insert_ret(init, idx, *data);
    transaction.commit();
    session.talk().message("ok");
    return true;
}

std::vector<std::string> account_lines(const std::vector<AccountRow>& accounts)
{
    std::vector<std::string> lines;
    for (const auto& a : accounts) {
        lines.push_back("account name: " + a.custid);
        lines.push_back("website address: " + a.ftpurl);
        lines.push_back(
            "max website storage: " + format_bytes(static_cast<std::uint64_t>(std::max<std::int64_t>(a.maxbytes, 0))));
        lines.push_back("max entries allowed: " + a.maxentries);
        lines.push_back("maximum number events that can be uploaded: " + a.maxevents);
        lines.push_back("number of player entries online at last refresh: " + a.numentries);
        lines.push_back("signup date: " + a.signupdate);
        lines.push_back("last refresh: " + a.last_refresh);
        lines.push_back("send confirmation emails to: " + a.signupemail);
        lines.push_back("");
    }
    return lines;
}

bool update_account_email(Session& session, std::int64_t idx, std::string_view email)
{
    auto& init = session.init_db();
    const auto row = find_account(init, idx);
    if (!row || !passes(session, check_class(email, ValueClass::systemdisallow)))
        return false;
    ServiceClient client(session, row->online());
    if (!update_account_email(client, email))
        return false;
    init.run("Update acct_accountdata set signupemail = ? where idx=?", email, idx);
    session.talk().message("ok");
    return true;
}

bool change_password(Session& session, std::int64_t idx, std::string_view old_password, std::string_view new_password)
{
    auto& talk = session.talk();
    auto& init = session.init_db();
    const auto row = find_account(init, idx);
    if (!row)
        return false;
    if (old_password.empty()) {
        talk.message("Enter old password");
        return false;
    }
    if (new_password.empty()) {
        talk.message("Enter new password");
        return false;
    }
    if (old_password != row->password) {
        talk.message("old password is incorrect");
        return false;
    }
    if (!passes(session, check_class(new_password, ValueClass::systemdisallow)))
        return false;
    if (check_class(new_password, ValueClass::alphanumeric)) {
        talk.message("invalid password, alphanumeric only");
        return false;
    }
    ServiceClient client(session, row->online());
    if (!changepassword(client, new_password))
        return false;
    Transaction transaction(init);
    init.run("Update acct_accountdata set password = ? where idx=?", new_password, idx);
    if (row->is_default)
        session.settings().set_disk_var("app.password", new_password);
    transaction.commit();
    talk.message("ok");
    return true;
}

bool show_ip_address(Session& session, std::int64_t idx)
{
    const auto row = find_account(session.init_db(), idx);
    if (!row)
        return false;
    ServiceClient client(session, row->online());
    const auto address = getipaddress_private(client);
    if (!address)
        return false;
    if (address->empty()) {
        session.talk().message("an error occurred");
        return false;
    }
    session.talk().message(*address);
    return true;
}

const std::vector<FeedbackKind>& feedback_kinds()
{
    static const std::vector<FeedbackKind> kinds {
        { "feedback", "feedback", "Your experience with quorvelin." },
        { "request a feature", "feature_request", "Request a feature you would like to see in the next release." },
        { "report a bug", "bug",
            "IF you find any bugs,\nreport them with clear steps on how to reproduce the problem.\nEither with the "
            "quorvelin application or with the online system" },
    };
    return kinds;
}

bool send_feedback(Session& session, std::int64_t idx, std::string_view type, std::string_view text)
{
    auto& talk = session.talk();
    const auto row = find_account(session.init_db(), idx);
    if (!row)
        return false;
    if (trim(text).empty()) {
        talk.message("no text?");
        return false;
    }
    if (char_count(text) > 1000) {
        talk.message("max 1000 characters");
        return false;
    }
    ServiceClient client(session, row->online());
    if (!user_feedback(client, type, remove_chars(text, "&%#'")))
        return false;
    talk.message("ok");
    return true;
}

std::string remove_chars(std::string_view text, std::string_view chars)
{
    std::string out;
    for (char c : text)
        if (chars.find(c) == std::string_view::npos)
            out += c;
    return out;
}

void ensure_online_tournament_row(Database& init, std::string_view custid)
{
    if (init.scalar_integer("select count(*) from acct_online_tournament where custid=?", custid) == 0)
        init.run(
            "insert into acct_online_tournament (custid, entries_withdrawals) values (?, 'closed^closed')", custid);
}

} // namespace qv
