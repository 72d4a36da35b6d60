#include "online/online_events.h"

#include "core/codepage.h"
#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "datafiles/entries_file.h"
#include "datafiles/marked_tokens.h"
#include "online/accounts.h"
#include "online/reply.h"
#include "online/service_operations.h"

namespace qv {

namespace {

std::string custid_of(Session& session)
{
    return trim(session.settings().text("app.custid"));
}

// After an upload or a clear the service has no limits and both windows are closed: so the local record.
void reset_online_tournament(Database& init, std::string_view custid)
{
    ensure_online_tournament_row(init, custid);
    init.run("update acct_online_tournament set maxevents=0, scnti='0', dcnti='0', xcnti='0', xdcnti='0', "
             "entries_withdrawals=? where custid=?",
        "closed^closed", custid);
}

std::string read_entries_withdrawals(Database& init, std::string_view custid)
{
    return init.scalar_text("select entries_withdrawals from acct_online_tournament where custid=?", custid);
}

void store_entries_withdrawals(Session& session, const std::string& value)
{
    auto& init = session.init_db();
    const auto custid = custid_of(session);
    Transaction transaction(init);
    ensure_online_tournament_row(init, custid);
    init.run("update acct_online_tournament set entries_withdrawals=? where custid=?", value, custid);
    transaction.commit();
}

// Sends the events and has the service take them; the service's word about its limit, if it gave one.
std::optional<std::string> uploadevents(Session& session, ServiceClient& client, const std::string& text)
{
    auto& talk = session.talk();
    if (!uploadevents_append_execute_text(
            client, text, [&talk](int cnt) { talk.progress("uploading batch " + std::to_string(cnt)); }))
        return std::nullopt;
    talk.progress("server is processing request...");
    const auto data = uploadevents_parse_execute_text(client);
    talk.progress("");
    if (!data)
        return std::nullopt;
    if (data->empty() || data->find("event limit of") != std::string::npos)
        return *data;
    talk.message(*data);
    return std::nullopt;
}

// A public page needs no password: the account and its server do.
bool has_page_account(Session& session)
{
    if (custid_of(session).empty()) {
        session.talk().message("no default account set,update in control panel");
        return false;
    }
    if (trim(session.settings().text("app.servlet")).empty()) {
        session.talk().message("no server set for current account");
        return false;
    }
    return true;
}

} // namespace

std::string uploadevents_text(Database& tournament, const std::function<void(int count)>& on_event)
{
    std::string text;
    std::string letter;
    int count = 0;
    for (auto e = tournament.query("select * from events order by eid"); e.step();) {
        if (on_event)
            on_event(++count);
        if (const auto known = sex_letter(e.text("sex")))
            letter = *known;
        text += e.text("eid") + "," + e.text("eventname") + "," + letter + "," + e.text("pte") + "," + e.text("fee")
            + "," + lcase(e.text("singdobs")) + "," + "^";
    }
    return text;
}

bool uploadevents_script_new(Session& session)
{
    auto& talk = session.talk();
    if (talk.ask("This will delete ALL online events and their entries.This is irreversible and ALL data will be "
                 "deleted,lost and removed forever. Are you sure you want to do this?",
            "Confirm", Buttons::YesNo)
        != Answer::Yes)
        return false;
    if (session.tournament().scalar_integer("select count(*) from events") == 0) {
        talk.message("no events to upload?");
        return false;
    }
    if (!havecustidpwd(session))
        return false;
    const std::string text = uploadevents_text(
        session.tournament(), [&talk](int n) { talk.progress("preparing event " + std::to_string(n)); });
    ServiceClient client(session, default_account(session));
    session.busy(true);
    const auto told = uploadevents(session, client, text);
    session.busy(false);
    if (!told)
        return false;
    // The new list of online events and the closed states are one change of the local record.
    auto& init = session.init_db();
    Transaction transaction(init);
    refreshevents(session);
    reset_online_tournament(init, custid_of(session));
    transaction.commit();
    if (!told->empty())
        talk.message(*told);
    else
        talk.message("(1) events were uploaded\n(2) max events settings were cleared,reset from tournament "
                     "section\n(3) entries and withdrawals were set to 'CLOSED'");
    return true;
}

bool clear_online_events_script(Session& session)
{
    auto& talk = session.talk();
    if (talk.ask(" This will clear the online events and entries.Are you sure you want to do this ?", "Confirm",
            Buttons::YesNo)
        != Answer::Yes)
        return false;
    if (!havecustidpwd(session))
        return false;
    ServiceClient client(session, default_account(session));
    if (!clear_events(client))
        return false;
    auto& init = session.init_db();
    const auto custid = custid_of(session);
    Transaction transaction(init);
    init.run("delete from acct_onlineevents where custid=?", custid);
    reset_online_tournament(init, custid);
    transaction.commit();
    talk.message("ok");
    return true;
}

bool clear_players_and_entries(Session& session)
{
    auto& talk = session.talk();
    if (talk.ask("This will delete all ONLINE tournament data for the current tournament. This is irreversible and "
                 "ALL data will be lost and removed forever. Are you sure you want to do this ?",
            "Confirm", Buttons::YesNo)
        != Answer::Yes)
        return false;
    if (!havecustidpwd(session))
        return false;
    ServiceClient client(session, default_account(session));
    if (!clear_players_entries(client))
        return false;
    talk.message("ok");
    return true;
}

bool refreshevents(Session& session)
{
    const auto file = session.dirs().working / "raweventdata.txt";
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    if (!havecustidpwd(session))
        return false;
    ServiceClient client(session, default_account(session));
    const bool good = getrawevents(client, file);
    if (good)
        process_event_refresh_file(session.init_db(), custid_of(session), file);
    std::filesystem::remove(file, ignored);
    return good;
}

void process_event_refresh_file(Database& init, std::string_view custid, const std::filesystem::path& file)
{
    const std::string text = from_cp1252(read_file_bytes(file).value_or(""));
    Transaction transaction(init);
    init.run("delete from acct_onlineevents where custid=?", custid);
    std::vector<std::string> record;
    std::string token;
    for (char c : text) {
        if (c == '\r' || c == '\n')
            continue;
        if (c != '^') {
            token += c;
            continue;
        }
        if (token == service_marker || token == "no_error") {
            // the greeting of the reply, not a field
        } else if (!token.empty()) {
            record.push_back(token);
        } else {
            // An empty token ends the record: its id and name.
            if (record.size() >= 2 && whole_number(record[0]))
                init.run("insert into acct_onlineevents (custid, eid, eventname) values (?, ?, ?)", custid,
                    static_cast<std::int64_t>(std::stoll(record[0])), record[1]);
            record.clear();
        }
        token.clear();
    }
    transaction.commit();
}

std::vector<std::pair<std::int64_t, std::string>> online_events(Database& init, std::string_view custid)
{
    std::vector<std::pair<std::int64_t, std::string>> events;
    for (auto row = init.query("select eid, eventname from acct_onlineevents where custid=? order by eid", custid);
         row.step();)
        events.emplace_back(row.integer("eid"), row.text("eventname"));
    return events;
}

const std::vector<StateWord>& state_words()
{
    static const std::vector<StateWord> words {
        { "open entries", "openentries" },
        { "close entries", "closeentries" },
        { "open withdrawals", "openwithdrawals" },
        { "close withdrawals", "closewithdrawals" },
        { "open entries/withdrawals", "openentries_withdrawals" },
        { "close entries/withdrawals", "closeentries_withdrawals" },
    };
    return words;
}

std::string set_state_update(std::string_view entries_withdrawals, std::string_view word)
{
    const auto caret = entries_withdrawals.find('^');
    std::string entries(entries_withdrawals.substr(0, caret));
    std::string withdrawals(
        caret == std::string_view::npos ? std::string_view() : entries_withdrawals.substr(caret + 1));
    const std::string state = word.starts_with("open") ? "open" : "closed";
    const bool both = word.ends_with("entries_withdrawals");
    if (both || word.ends_with("entries"))
        entries = state;
    if (both || word.ends_with("withdrawals"))
        withdrawals = state;
    return entries + "^" + withdrawals;
}

bool set_state(Session& session, std::string_view word)
{
    if (!havecustidpwd(session))
        return false;
    ServiceClient client(session, default_account(session));
    if (!set_state(client, word))
        return false;
    store_entries_withdrawals(
        session, set_state_update(read_entries_withdrawals(session.init_db(), custid_of(session)), word));
    session.talk().message("ok");
    return true;
}

bool refresh_online_entries_wdrawls_state(Session& session)
{
    if (!havecustidpwd(session))
        return false;
    ServiceClient client(session, default_account(session));
    const auto data = getstateentrieswithdrawals(client);
    if (!data)
        return false;
    const auto caret = data->find('^');
    const std::string entries = trim(std::string_view(*data).substr(0, caret));
    const std::string withdrawals
        = caret == std::string::npos ? std::string() : trim(std::string_view(*data).substr(caret + 1));
    store_entries_withdrawals(session, entries + "^" + withdrawals);
    session.talk().message("ok");
    return true;
}

OnlineStateWords online_state_words(Database& init, std::string_view custid)
{
    const std::string value = read_entries_withdrawals(init, custid);
    const auto caret = value.find('^');
    return { ucase(std::string_view(value).substr(0, caret)),
        caret == std::string::npos ? std::string() : ucase(std::string_view(value).substr(caret + 1)) };
}

std::optional<std::string> online_page_url(Session& session, std::string_view page)
{
    if (!has_page_account(session))
        return std::nullopt;
    ServiceClient client(session, default_account(session));
    return public_page_url(client, page);
}

std::optional<std::string> online_event_entries_url(Session& session, std::int64_t eid)
{
    if (!has_page_account(session))
        return std::nullopt;
    ServiceClient client(session, default_account(session));
    return event_entries_url(client, eid, true);
}

std::string set_online_entries_wdrawls_text(const OnlineStateWords& states)
{
    return "entries are " + states.entries + "\nwithdrawals are " + states.withdrawals;
}

} // namespace qv
