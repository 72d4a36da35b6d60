// The account's own requests: its record for the control panel, e-mail, password, the address it is seen
// from, feedback, and the FTP host it publishes to.
#include "core/time_rules.h"
#include "protocol.h"

namespace qv::service {

namespace {

// The public address of an account's published website.
std::string website_address(const std::optional<FtpConfig>& ftp, std::string_view custid)
{
    return ftp ? ftp->url + std::string(custid) + "/" : std::string();
}

Reply vb_account_data_control_panel(Context& c)
{
    auto row = c.store.db().query("select * from accounts where custid=?", c.custid);
    row.step();
    const auto ftp = c.store.ftp();
    const auto players = c.store.db().scalar_integer("select count(*) from players where custid=?", c.custid);
    // Fields in the order of the client's account columns from ftpurl on, each ended by "¿".
    const std::string fields[]
        = { website_address(ftp, c.custid), std::to_string(ftp ? ftp->allocation : 0), row.text("maxentries"),
              row.text("maxevents"), std::to_string(players), row.text("signupdate"), row.text("email") };
    std::string data;
    for (const auto& field : fields)
        data += field + "\u00bf";
    return good_reply(data);
}

Reply update_account_email(Context& c)
{
    const auto email = c.key("accountemail");
    if (!email)
        return missing_key("accountemail");
    c.store.db().run("update accounts set email=? where custid=?", *email, c.custid);
    return good_reply();
}

Reply changepassword(Context& c)
{
    const auto password = c.key("newpwd");
    if (!password)
        return missing_key("newpwd");
    if (!is_alphanumeric(*password))
        return protocol_reply("invalid password, alphanumeric only");
    c.store.db().run("update accounts set password=? where custid=?", *password, c.custid);
    return good_reply();
}

// Not judged by the client: the bare address, which it shows as it is.
Reply getipaddress_private(Context& c)
{
    return plain_reply(c.remote_addr);
}

Reply user_feedback(Context& c)
{
    const auto type = c.key("feedback_type");
    const auto text = c.key("feedback_text");
    if (!type)
        return missing_key("feedback_type");
    if (!text)
        return missing_key("feedback_text");
    if (*type != "feedback" && *type != "feature_request" && *type != "bug")
        return protocol_reply("unknown feedback type");
    c.store.db().run("insert into feedback (custid, feedback_type, feedback_text, received) values (?, ?, ?, ?)",
        c.custid, *type, *text, date_time_long(local_time_now()));
    return good_reply();
}

// Server, user-name part, password part, address prefix and allocation, each ended by "^". A host on a port
// other than FTP's own carries it as "host:port".
Reply getftpstrings(Context& c)
{
    const auto ftp = c.store.ftp();
    if (!ftp)
        return protocol_reply("no ftp server configured");
    const std::string server = ftp->port.empty() || ftp->port == "21" ? ftp->host : ftp->host + ":" + ftp->port;
    return good_reply(
        server + "^" + ftp->user + "^" + ftp->pass + "^" + ftp->url + "^" + std::to_string(ftp->allocation) + "^");
}

// The client tells of an FTP host that did not answer; the answer is not read.
Reply vb_ftp_error(Context& c)
{
    c.store.db().run(
        "insert into ftp_errors (custid, ftpserver, ftpusername, timeout, received) values (?, ?, ?, ?, ?)", c.custid,
        c.key("ftpserver").value_or(""), c.key("ftpusername").value_or(""), c.key("timeout").value_or(""),
        date_time_long(local_time_now()));
    return good_reply();
}

} // namespace

std::vector<Operation> account_operations()
{
    return {
        { "vb_account_data_control_panel", Access::account, vb_account_data_control_panel },
        { "update_account_email", Access::account, update_account_email },
        { "changepassword", Access::account, changepassword },
        { "getipaddress_private", Access::account, getipaddress_private },
        { "user_feedback", Access::account, user_feedback },
        { "getftpstrings", Access::account, getftpstrings },
        { "vb_ftp_error", Access::account, vb_ftp_error },
    };
}

} // namespace qv::service
