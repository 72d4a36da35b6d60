// The players' side: the enter page and its form, the withdraw page and its form. Entries and withdrawals
// are taken only while the director keeps their window open.
#include "core/time_rules.h"
#include "core/utf8.h"
#include "html.h"
#include "protocol.h"

#include <array>
#include <map>

namespace qv::service {

namespace {

struct Field
{
    std::string_view name;
    std::string_view label;
};

// The player's record as the entries file carries it; sex is chosen from a list.
constexpr std::array<Field, 18> player_fields { {
    { "fname", "first name *" },
    { "sname", "second name *" },
    { "email", "e-mail *" },
    { "password", "password (to withdraw later)" },
    { "dob", "date of birth (yyyy-mm-dd)" },
    { "address1", "address" },
    { "address2", "address (2)" },
    { "city", "city" },
    { "state", "state" },
    { "postcode", "postcode" },
    { "country", "country" },
    { "phone", "phone" },
    { "mobile", "mobile" },
    { "rating", "rating" },
    { "ranking", "ranking" },
    { "club", "club" },
    { "availabilityrestrictions", "availability restrictions" },
    { "message", "message to the director" },
} };

// Characters that would break the entries file's records or the director's own entry rules.
constexpr std::string_view refused_characters = "'\"/\\&#^%*\r\n\t";

std::string input_row(std::string_view label, std::string_view name, std::string_view type = "text")
{
    return "<tr><td>" + std::string(label) + "</td><td><input type=\"" + std::string(type) + "\" name=\""
        + std::string(name) + "\" size=\"40\"></td></tr>\r\n";
}

std::string sex_select(std::string_view name)
{
    return "<select name=\"" + std::string(name)
        + "\"><option value=\"m\">male</option><option value=\"f\">female</option></select>";
}

std::string form_head(Context& c, std::string_view target)
{
    return "<form method=\"get\" action=\"" + c.query.path + "\">\r\n<input type=\"hidden\" name=\"idx\" value=\""
        + std::string(target) + "\">\r\n<input type=\"hidden\" name=\"custid\" value=\"" + html_escape(c.custid)
        + "\">\r\n<table>\r\n";
}

Reply enter1_enterpage(Context& c)
{
    if (!c.store.states(c.custid).entries_open)
        return html_page(c, "enter", "entries are closed");
    std::string body = form_head(c, "enter2_submit");
    for (const auto& field : player_fields)
        body += input_row(field.label, field.name, field.name == "password" ? "password" : "text");
    body
        += "<tr><td>sex</td><td>" + sex_select("sex") + "</td></tr>\r\n</table>\r\n<p><b>events</b></p>\r\n<table>\r\n";
    auto row = c.store.db().query("select * from events where custid=? order by eid", c.custid);
    while (row.step()) {
        const std::string eid = row.text("eid");
        body += "<tr><td><input type=\"checkbox\" name=\"e" + eid + "\" value=\"1\"> "
            + html_escape(row.text("eventname")) + " (" + html_escape(row.text("fee")) + ")</td>";
        if (row.text("singdobs") == "doubles")
            body += "<td>partner: first name <input type=\"text\" name=\"pf" + eid + "\" size=\"15\"> second name "
                + "<input type=\"text\" name=\"ps" + eid + "\" size=\"15\"> " + sex_select("px" + eid)
                + " <label><input type=\"checkbox\" name=\"pr" + eid + "\" value=\"1\"> partner required</label></td>";
        body += "</tr>\r\n";
    }
    body += "</table>\r\n<p><input type=\"submit\" value=\"enter\"></p>\r\n</form>";
    return html_page(c, "enter", body);
}

struct Limits
{
    std::int64_t events = 0, singles = 0, doubles = 0, mixed = 0;
    bool mixed_as_doubles = false;
};

// What the tournament allows one player, 0 meaning no limit; the message names the first limit passed.
std::string check_limits(const Limits& limits, int singles, int doubles, int mixed)
{
    if (limits.mixed_as_doubles) {
        doubles += mixed;
        mixed = 0;
    }
    const auto over = [](std::int64_t limit, int count) { return limit > 0 && count > limit; };
    if (over(limits.events, singles + doubles + mixed))
        return "at most " + std::to_string(limits.events) + " events may be entered";
    if (over(limits.singles, singles))
        return "at most " + std::to_string(limits.singles) + " singles events may be entered";
    if (over(limits.doubles, doubles))
        return "at most " + std::to_string(limits.doubles) + " doubles events may be entered";
    if (over(limits.mixed, mixed))
        return "at most " + std::to_string(limits.mixed) + " mixed events may be entered";
    return {};
}

struct Chosen
{
    std::int64_t eid;
    std::string eventname;
    bool doubles;
    std::string partnerfname, partnersname, p2sex;
    bool partner_required = false;
};

// The entry as typed, or the reason it is refused. Nothing is stored before every check has passed.
std::string enter(Context& c, std::map<std::string, std::string>& player, std::vector<Chosen>& chosen)
{
    auto& db = c.store.db();
    for (const auto& field : player_fields)
        player[std::string(field.name)] = trim(c.key(field.name).value_or(""));
    player["sex"] = c.key("sex").value_or("") == "f" ? "f" : "m";
    if (player["fname"].empty() || player["sname"].empty() || player["email"].empty())
        return "first name, second name and e-mail are required";
    for (const auto& param : c.query.params)
        if (param.value.find_first_of(refused_characters) != std::string::npos)
            return "illegal character in " + html_escape(param.key);

    int singles = 0, doubles = 0, mixed = 0;
    auto events = db.query("select * from events where custid=? order by eid", c.custid);
    while (events.step()) {
        const std::string eid = events.text("eid");
        if (c.key("e" + eid).value_or("") != "1")
            continue;
        const bool is_doubles = events.text("singdobs") == "doubles";
        // A doubles player without a partner yet ticks "partner required": the names then stay empty.
        const bool alone = c.key("pr" + eid).value_or("") == "1";
        const bool partnered = is_doubles && !alone;
        chosen.push_back({ events.integer("eid"), events.text("eventname"), is_doubles,
            partnered ? trim(c.key("pf" + eid).value_or("")) : "",
            partnered ? trim(c.key("ps" + eid).value_or("")) : "",
            partnered ? (c.key("px" + eid).value_or("") == "f" ? "female" : "male") : "", alone });
        if (events.text("sex") == "x")
            ++mixed;
        else
            (is_doubles ? doubles : singles) += 1;
    }
    if (chosen.empty())
        return "choose at least one event";

    auto t = db.query("select * from tournaments where custid=?", c.custid);
    t.step();
    const Limits limits { t.integer("maxevents"), t.integer("scnti"), t.integer("dcnti"), t.integer("xcnti"),
        t.integer("xdcnti") != 0 };
    if (auto refusal = check_limits(limits, singles, doubles, mixed); !refusal.empty())
        return refusal;
    for (const auto& e : chosen)
        if (e.doubles && !e.partner_required && (e.partnerfname.empty() || e.partnersname.empty()))
            return "give the partner's first and second name for " + html_escape(e.eventname)
                + " or tick partner required";
    const auto maxentries = db.scalar_integer("select maxentries from accounts where custid=?", c.custid);
    if (maxentries > 0 && db.scalar_integer("select count(*) from players where custid=?", c.custid) >= maxentries)
        return "the entry limit of this tournament is reached";
    return {};
}

Reply enter2_submit(Context& c)
{
    if (!c.store.states(c.custid).entries_open)
        return html_page(c, "enter", "entries are closed");
    std::map<std::string, std::string> player;
    std::vector<Chosen> chosen;
    if (const auto refusal = enter(c, player, chosen); !refusal.empty())
        return html_page(c, "enter", refusal + "<br><br><a href=\"" + page_link(c, "enter1_enterpage") + "\">back</a>");

    auto& db = c.store.db();
    Transaction transaction(db);
    const auto pid = db.scalar_integer("select coalesce(max(pid),0)+1 from players where custid=?", c.custid);
    db.run("insert into players (custid, pid, timestamp, pval) values (?, ?, ?, '1')", c.custid, pid,
        export_stamp(local_time_now()));
    for (const auto& [column, value] : player) // columns from the fixed list above, values bound
        db.run("update players set " + column + "=? where custid=? and pid=?", value, c.custid, pid);
    std::string body = "entry received for " + html_escape(player["fname"] + " " + player["sname"]) + "<br><br>\r\n";
    for (const auto& e : chosen) {
        db.run("insert into entries (custid, pid, eid, partnerfname, partnersname, p2sex) values (?, ?, ?, ?, ?, ?)",
            c.custid, pid, e.eid, e.partnerfname, e.partnersname, e.p2sex);
        body += html_escape(e.eventname) + "<br>\r\n";
    }
    transaction.commit();
    return html_page(c, "enter", body);
}

Reply withdraw1_login_page(Context& c)
{
    if (!c.store.states(c.custid).withdrawals_open)
        return html_page(c, "withdraw", "withdrawals are closed");
    const std::string body = form_head(c, "withdraw2_submit") + input_row("e-mail", "email")
        + input_row("password", "password", "password")
        + "</table>\r\n<p><input type=\"submit\" value=\"withdraw\"></p>\r\n</form>";
    return html_page(c, "withdraw", body);
}

Reply withdraw2_submit(Context& c)
{
    if (!c.store.states(c.custid).withdrawals_open)
        return html_page(c, "withdraw", "withdrawals are closed");
    const std::string email = trim(c.key("email").value_or(""));
    const std::string password = c.key("password").value_or("");
    auto& db = c.store.db();
    std::vector<std::int64_t> pids;
    auto row = db.query("select pid from players where custid=? and email=? collate nocase and password=? and "
                        "password<>''",
        c.custid, email, password);
    while (row.step())
        pids.push_back(row.integer("pid"));
    if (email.empty() || pids.empty())
        return html_page(c, "withdraw", "no entry found for this e-mail and password");
    Transaction transaction(db);
    for (auto pid : pids) {
        db.run("delete from entries where custid=? and pid=?", c.custid, pid);
        db.run("delete from players where custid=? and pid=?", c.custid, pid);
    }
    transaction.commit();
    return html_page(c, "withdraw", "your entries are withdrawn");
}

} // namespace

std::vector<Operation> entry_form_operations()
{
    return {
        { "enter1_enterpage", Access::open, enter1_enterpage },
        { "enter2_submit", Access::form, enter2_submit },
        { "withdraw1_login_page", Access::open, withdraw1_login_page },
        { "withdraw2_submit", Access::form, withdraw2_submit },
    };
}

} // namespace qv::service
