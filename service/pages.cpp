// The public pages of an account's tournament, as plain HTML: the director's texts, the players, the
// entries, and the forms by which players enter and withdraw (entry_forms.cpp).
#include "html.h"
#include "protocol.h"

#include <array>

namespace qv::service {

namespace {

Reply text_page(Context& c, std::string_view column, std::string_view title)
{
    const std::string sql = "select " + std::string(column) + " from tournaments where custid=?";
    return html_page(c, title, unescape_text(c.store.db().scalar_text(sql, c.custid)));
}

Reply get_tdetails(Context& c)
{
    return text_page(c, "tdetails", "tournament details");
}
Reply get_entryinstructions(Context& c)
{
    return text_page(c, "entryinstructions", "entry instructions");
}
Reply get_paymentinstructions(Context& c)
{
    return text_page(c, "paymentinstructions", "payment instructions");
}
Reply get_messagetoplayers(Context& c)
{
    return text_page(c, "messagetoplayers", "message to players");
}
Reply get_conditions(Context& c)
{
    return text_page(c, "conditions", "conditions of entry");
}

std::string player_name(const Statement& row)
{
    return html_escape(row.text("fname") + " " + row.text("sname"));
}

Reply players(Context& c)
{
    std::string body;
    auto row = c.store.db().query("select * from players where custid=? order by sname, fname", c.custid);
    int count = 0;
    while (row.step()) {
        body += player_name(row);
        if (!row.text("club").empty())
            body += " (" + html_escape(row.text("club")) + ")";
        body += "<br>\r\n";
        ++count;
    }
    body += "<br>\r\nplayers: " + std::to_string(count) + "<br>";
    return html_page(c, "players", body);
}

// One event's entrants, a doubles entry with its partner or "partner required".
std::string event_entrants(Context& c, std::int64_t eid, bool doubles)
{
    std::string body;
    auto row = c.store.db().query("select p.fname, p.sname, e.partnerfname, e.partnersname from entries e join "
                                  "players p on p.custid=e.custid and p.pid=e.pid where e.custid=? and e.eid=? "
                                  "order by p.sname, p.fname",
        c.custid, eid);
    while (row.step()) {
        body += player_name(row);
        if (doubles) {
            const std::string partner = row.text("partnerfname") + " " + row.text("partnersname");
            body += " / " + (partner == " " ? std::string("partner required") : html_escape(partner));
        }
        body += "<br>\r\n";
    }
    return body.empty() ? std::string("no entries<br>\r\n") : body;
}

Reply entries(Context& c)
{
    std::string body;
    auto row = c.store.db().query("select * from events where custid=? order by eid", c.custid);
    while (row.step()) {
        body += "<p><b><a href=\"" + page_link(c, "get_event_entries", "&event=" + row.text("eid")) + "\">"
            + html_escape(row.text("eventname")) + "</a></b><br>\r\n"
            + event_entrants(c, row.integer("eid"), row.text("singdobs") == "doubles") + "</p>\r\n";
    }
    return html_page(c, "entries", body.empty() ? "no events" : body);
}

Reply get_event_entries(Context& c)
{
    const auto event = c.key("event");
    if (!event)
        return missing_key("event");
    if (!is_whole_number(*event))
        return html_page(c, "event entries", "no such event");
    auto row = c.store.db().query(
        "select * from events where custid=? and eid=?", c.custid, static_cast<std::int64_t>(std::stol(*event)));
    if (!row.step())
        return html_page(c, "event entries", "no such event");
    return html_page(c, "entries for " + row.text("eventname"),
        event_entrants(c, row.integer("eid"), row.text("singdobs") == "doubles"));
}

Reply links(Context& c)
{
    static constexpr std::array<std::array<std::string_view, 2>, 9> pages { {
        { "tournament details", "get_tdetails" },
        { "entry instructions", "get_entryinstructions" },
        { "payment instructions", "get_paymentinstructions" },
        { "message to players", "get_messagetoplayers" },
        { "conditions of entry", "get_conditions" },
        { "enter", "enter1_enterpage" },
        { "withdraw", "withdraw1_login_page" },
        { "entries", "entries" },
        { "players", "players" },
    } };
    std::string body;
    for (const auto& page : pages)
        body += "<a href=\"" + page_link(c, page[1]) + "\">" + std::string(page[0]) + "</a><br>\r\n";
    return html_page(c, "links", body);
}

} // namespace

std::vector<Operation> page_operations()
{
    auto operations = std::vector<Operation> {
        { "get_tdetails", Access::open, get_tdetails },
        { "get_entryinstructions", Access::open, get_entryinstructions },
        { "get_paymentinstructions", Access::open, get_paymentinstructions },
        { "get_messagetoplayers", Access::open, get_messagetoplayers },
        { "get_conditions", Access::open, get_conditions },
        { "players", Access::open, players },
        { "entries", Access::open, entries },
        { "get_event_entries", Access::open, get_event_entries },
        { "links", Access::open, links },
    };
    for (const auto& operation : entry_form_operations())
        operations.push_back(operation);
    return operations;
}

} // namespace qv::service
