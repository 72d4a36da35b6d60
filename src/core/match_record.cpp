#include "core/match_record.h"

#include "core/text_rules.h"

#include <string_view>

namespace qv {

// The four rules in their order, later rules winning. The eid term of the first and the last rule binds only to
// the last "or" term, so those two also set the state of every row of any event whose top is empty or "bye":
// each runs as two statements, the event's own rows and then that wider set, with the same effect. A statement
// leaves alone the rows that already hold its state; the wider sets are then found through partial indexes,
// so a save does not read or rewrite the rows of every other event.
void recompute_match_states(Database& tournament, std::int64_t eid)
{
    tournament.run(
        "update schedule set match_state='1' where eid = ? and (mtttt='' or mbttt='') and match_state <> '1'", eid);
    tournament.run("update schedule set match_state='1' where mtttt = '' and match_state <> '1'");
    tournament.run("update schedule set match_state='2' where mtttt<>'' and mbttt<>''  and eid = ? and match_state "
                   "<>'2.1' and match_state <> '2'",
        eid);
    tournament.run("update schedule set match_state='3' where mtttt<>'' and mbttt<>''  and mwttt <>'' and eid =? and "
                   "match_state <> '3'",
        eid);
    tournament.run(
        "update schedule set match_state='0' where eid = ? and (mtttt='bye' or mbttt='bye') and match_state <> '0'",
        eid);
    tournament.run("update schedule set match_state='0' where mtttt = 'bye' and match_state <> '0'");
}

void recompute_all_match_states(Database& tournament)
{
    tournament.run("update schedule set match_state='1' where (mtttt='' or mbttt='') and match_state <> '1'");
    tournament.run("update schedule set match_state='2' where mtttt<>'' and mbttt<>''  and match_state <>'2.1' and "
                   "match_state <> '2'");
    tournament.run(
        "update schedule set match_state='3' where mtttt<>'' and mbttt<>''  and mwttt <>'' and match_state <> '3'");
    tournament.run("update schedule set match_state='0' where (mtttt ='bye' or mbttt = 'bye') and match_state <> '0'");
}

namespace {

void add_people(std::vector<std::string>& names, std::string_view side)
{
    while (true) {
        const auto slash = side.find('/');
        const auto name = side.substr(0, slash);
        // An empty slot has nobody in it to list.
        if (name.find_first_not_of(' ') != std::string_view::npos && !is_reserved(name))
            names.emplace_back(name);
        if (slash == std::string_view::npos)
            break;
        side.remove_prefix(slash + 1);
    }
}

} // namespace

std::vector<std::string> match_names(Database& tournament, UserTalk& talk, std::int64_t sid)
{
    auto row = tournament.query("select mtttt, mbttt from schedule where sid = ?", sid);
    if (!row.step()) {
        talk.message(std::to_string(sid) + " not found,stale data");
        return {};
    }
    std::vector<std::string> names;
    add_people(names, row.text("mtttt"));
    add_people(names, row.text("mbttt"));
    return names;
}

std::string cid_paren_word(std::int64_t cid)
{
    if (cid == -1)
        return "(fa)";
    if (cid == -3)
        return "(tbc)";
    return std::to_string(cid);
}

std::string cid_word(std::int64_t cid)
{
    switch (cid) {
    case -1:
        return "fa";
    case -3:
        return "tbc";
    case -2:
        return "cb";
    case -4:
        return "dcb";
    default:
        return std::to_string(cid);
    }
}

std::string court_list_cid_word(std::int64_t cid)
{
    switch (cid) {
    case -1:
        return "fa";
    case -2:
        return "cb";
    case -3:
        return "tbc";
    case -4:
        return "dcb";
    default:
        return std::to_string(cid);
    }
}

} // namespace qv
