// The tournament's online events, the players' entries and withdrawals, and the two windows (entries and
// withdrawals) the director opens and closes.
#include "core/database.h"
#include "protocol.h"
#include "qv5_text.h"

#include <array>

namespace qv::service {

namespace {

// "eid^eventname^^" per event: an empty token ends each record.
Reply getrawevents(Context& c)
{
    std::string data;
    auto row = c.store.db().query("select eid, eventname from events where custid=? order by eid", c.custid);
    while (row.step())
        data += row.text("eid") + "^" + row.text("eventname") + "^^";
    return good_reply(data);
}

Reply getrawdata(Context& c)
{
    return good_reply(qv5_text(c.store, c.custid));
}

std::string state_word(bool open)
{
    return open ? "open" : "closed";
}

Reply getstateentrieswithdrawals(Context& c)
{
    const auto states = c.store.states(c.custid);
    return good_reply(state_word(states.entries_open) + "^" + state_word(states.withdrawals_open));
}

Reply set_state(Context& c)
{
    struct Word
    {
        std::string_view word;
        const char* sql;
    };
    static constexpr std::array<Word, 6> words { {
        { "openentries", "update tournaments set entries_open=1 where custid=?" },
        { "closeentries", "update tournaments set entries_open=0 where custid=?" },
        { "openwithdrawals", "update tournaments set withdrawals_open=1 where custid=?" },
        { "closewithdrawals", "update tournaments set withdrawals_open=0 where custid=?" },
        { "openentries_withdrawals", "update tournaments set entries_open=1, withdrawals_open=1 where custid=?" },
        { "closeentries_withdrawals", "update tournaments set entries_open=0, withdrawals_open=0 where custid=?" },
    } };
    const auto tp = c.key("tp");
    if (!tp)
        return missing_key("tp");
    for (const auto& word : words) {
        if (word.word == *tp) {
            c.store.db().run(word.sql, c.custid);
            return good_reply();
        }
    }
    return protocol_reply("unknown state word");
}

Reply clear_players_entries(Context& c)
{
    Transaction transaction(c.store.db());
    c.store.db().run("delete from entries where custid=?", c.custid);
    c.store.db().run("delete from players where custid=?", c.custid);
    transaction.commit();
    return good_reply();
}

Reply clear_events(Context& c)
{
    Transaction transaction(c.store.db());
    c.store.db().run("delete from entries where custid=?", c.custid);
    c.store.db().run("delete from events where custid=?", c.custid);
    transaction.commit();
    return good_reply();
}

// Batch 1 starts the events text afresh, each later batch appends; parsing it is a request of its own.
Reply uploadevents_append_execute_text(Context& c)
{
    const auto cnt = c.key("cnt");
    const auto data = c.key("data");
    if (!cnt)
        return missing_key("cnt");
    if (!data)
        return missing_key("data");
    if (!is_whole_number(*cnt) || std::stol(*cnt) < 1)
        return protocol_reply("invalid cnt");
    if (std::stol(*cnt) == 1)
        c.store.db().run("update tournaments set events_text=? where custid=?", *data, c.custid);
    else
        c.store.db().run("update tournaments set events_text=events_text || ? where custid=?", *data, c.custid);
    return good_reply();
}

// The uploaded events replace the old ones and their entries; the limits go back to none and both windows
// close. An account allowed fewer events keeps the first ones and is told so.
Reply uploadevents_parse_execute_text(Context& c)
{
    auto& db = c.store.db();
    const auto events
        = parse_events_text(db.scalar_text("select events_text from tournaments where custid=?", c.custid));
    if (!events)
        return protocol_reply("invalid events text");
    const auto limit = db.scalar_integer("select maxevents from accounts where custid=?", c.custid);
    std::string told;
    std::size_t count = events->size();
    if (limit > 0 && count > static_cast<std::size_t>(limit)) {
        count = static_cast<std::size_t>(limit);
        told = "event limit of " + std::to_string(limit) + " reached, only the first " + std::to_string(limit)
            + " events were uploaded";
    }
    Transaction transaction(db);
    db.run("delete from entries where custid=?", c.custid);
    db.run("delete from events where custid=?", c.custid);
    for (std::size_t i = 0; i < count; ++i) {
        const auto& e = (*events)[i];
        db.run("insert into events (custid, eid, eventname, sex, pte, fee, singdobs) values (?, ?, ?, ?, ?, ?, ?)",
            c.custid, e.eid, e.eventname, e.sex, e.pte, e.fee, e.singdobs);
    }
    db.run("update tournaments set events_text='', maxevents=0, scnti=0, dcnti=0, xcnti=0, xdcnti=0, "
           "entries_open=0, withdrawals_open=0 where custid=?",
        c.custid);
    transaction.commit();
    return good_reply(told);
}

// The director withdraws a player: the player's entries go, and the player with them.
Reply withdraw_vb(Context& c)
{
    const auto pid = c.key("pid");
    if (!pid)
        return missing_key("pid");
    if (!is_whole_number(*pid))
        return protocol_reply("invalid pid");
    auto& db = c.store.db();
    const auto entries = db.scalar_integer(
        "select count(*) from entries where custid=? and pid=?", c.custid, static_cast<std::int64_t>(std::stol(*pid)));
    if (entries == 0)
        return good_reply("entry not found");
    Transaction transaction(db);
    db.run("delete from entries where custid=? and pid=?", c.custid, static_cast<std::int64_t>(std::stol(*pid)));
    db.run("delete from players where custid=? and pid=?", c.custid, static_cast<std::int64_t>(std::stol(*pid)));
    transaction.commit();
    return good_reply("withdrawn");
}

} // namespace

std::vector<Operation> event_operations()
{
    return {
        { "getrawevents", Access::account, getrawevents },
        { "getrawdata", Access::account, getrawdata },
        { "getstateentrieswithdrawals", Access::account, getstateentrieswithdrawals },
        { "set_state", Access::account, set_state },
        { "clear_players_entries", Access::account, clear_players_entries },
        { "clear_events", Access::account, clear_events },
        { "uploadevents_append_execute_text", Access::account, uploadevents_append_execute_text },
        { "uploadevents_parse_execute_text", Access::account, uploadevents_parse_execute_text },
        { "withdraw_vb", Access::account, withdraw_vb },
    };
}

} // namespace qv::service
