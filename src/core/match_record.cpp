#include "core/match_record.h"

#include "core/text_rules.h"

#include <string_view>

namespace qv {

void recompute_match_states(Database& tournament, std::int64_t eid)
{
    // The eid terms of the first and last statements bind only to their last "or" term, so rows of other events
    // with an empty or bye top are touched too. Those rows hold that state anyway; the statements stay as
    // they have always run.
    tournament.run("update schedule set match_state='1' where mtttt='' or mbttt='' And eid = ?", eid);
    tournament.run(
        "update schedule set match_state='2' where mtttt<>'' and mbttt<>''  and eid = ? and match_state <>'2.1'", eid);
    tournament.run("update schedule set match_state='3' where mtttt<>'' and mbttt<>''  and mwttt <>'' and eid =?", eid);
    tournament.run("update schedule set match_state='0' where mtttt ='bye' or mbttt = 'bye'  and eid = ?", eid);
}

void recompute_all_match_states(Database& tournament)
{
    tournament.run("update schedule set match_state='1' where mtttt='' or mbttt=''");
    tournament.run("update schedule set match_state='2' where mtttt<>'' and mbttt<>''  and match_state <>'2.1'");
    tournament.run("update schedule set match_state='3' where mtttt<>'' and mbttt<>''  and mwttt <>''");
    tournament.run("update schedule set match_state='0' where mtttt ='bye' or mbttt = 'bye' ");
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
    case -3:
        return "tbc";
    case -4:
        return "dcb";
    default:
        return std::to_string(cid);
    }
}

} // namespace qv
