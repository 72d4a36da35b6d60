#include "scheduling/assistant_lists.h"

#include "core/database.h"
#include "core/sports_vocabulary.h"
#include "core/utf8.h"
#include "scheduling/assistant_lines.h"
#include "scheduling/board_lines.h"

#include <algorithm>

namespace qv {

namespace {

const char* order_clause(ListOrder order)
{
    switch (order) {
    case ListOrder::event:
        return " order by eid %s,day_idx,cid,\"match\"";
    case ListOrder::day:
        return " order by day_idx %s,cid,eid,\"match\"";
    case ListOrder::court:
        return " order by cid %s,day_idx,eid,\"match\"";
    case ListOrder::mid:
        return " order by sid %s";
    case ListOrder::round:
        return " order by rid %s";
    case ListOrder::p1:
        return " order by mtttt %s";
    case ListOrder::p2:
        return " order by mbttt %s";
    case ListOrder::day_time:
        return " order by day_idx %s,matchtime_int";
    case ListOrder::time:
        return " order by matchtime_int %s";
    }
    return " order by sid %s";
}

// The order clause with its direction after the first key, as the lists always sorted.
std::string ordered(ListOrder order, bool desc)
{
    std::string clause = order_clause(order);
    clause.replace(clause.find("%s"), 2, desc ? "desc" : "asc");
    return clause;
}

std::vector<BoardLine> read_lines(
    Database& tournament, const std::string& sql, const std::string* name, const ListStates& states)
{
    AvailabilityLookup availability(tournament);
    std::vector<BoardLine> lines;
    auto q = tournament.query("select " + MatchRow::columns() + " from schedule where " + sql);
    if (name)
        q.bind_all(*name, *name, *name, *name);
    while (q.step()) {
        const auto row = MatchRow::read(q);
        if (!states.shows(row.match_state))
            continue;
        lines.push_back({ row.sid, assistant_line_text(row, availability), has_seed(row) });
    }
    return lines;
}

} // namespace

const std::vector<std::string>& list_order_names()
{
    static const std::vector<std::string> names { "event", "day", "court", "mid", "round", "p1", "p2", "day,time",
        "time" };
    return names;
}

std::optional<ListOrder> list_order_from_name(const std::string& name)
{
    const auto& names = list_order_names();
    const auto found = std::find(names.begin(), names.end(), trim(name));
    if (found == names.end())
        return std::nullopt;
    return static_cast<ListOrder>(found - names.begin());
}

bool ListStates::shows(const std::string& match_state) const
{
    return (match_state == "1" && empty) || (match_state == "2" && live) || (match_state == "2.1" && unf)
        || (match_state == "3" && dead);
}

void getsql(Database& tournament, const ListFilter& filter)
{
    tournament.run("delete from lists_sids");
    // The optional filters close each statement; their values are bound after the day and court.
    const std::string filters
        = std::string(filter.eid ? " and eid=?" : "") + (filter.drawtype != "all" ? " and drawtype=?" : "");
    auto insert = [&](std::string sql, auto... values) {
        sql += filters;
        auto q = tournament.query(sql);
        int at = 0;
        ((q.bind(++at, values)), ...);
        if (filter.eid)
            q.bind(++at, filter.eid);
        if (filter.drawtype != "all")
            q.bind(++at, filter.drawtype);
        q.step();
    };
    const bool all_days_chosen = filter.day == "all days";
    if (all_days_chosen && !filter.cid)
        insert("insert into lists_sids select sid from schedule where scheduledate <> ''");
    else if (all_days_chosen)
        insert("insert into lists_sids select sid from schedule where cid=?", *filter.cid);
    else if (!filter.cid)
        insert("insert into lists_sids select sid from schedule where scheduledate=?", filter.day);
    else
        insert(
            "insert into lists_sids select sid from schedule where scheduledate=? and cid=?", filter.day, *filter.cid);
    if (filter.noday)
        insert("insert into lists_sids select sid from schedule where scheduledate='' and cid=0");
    if (filter.include_cb)
        insert("insert into lists_sids select sid from schedule where cid=-2");
}

void search_name(Database& tournament, const std::string& name, bool like)
{
    tournament.run("delete from lists_sids");
    const auto wanted = lcase(trim(name));
    if (like)
        tournament.run(R"(insert into lists_sids select sid from schedule where instr(lower(trim(p1)), ?) > 0
            or instr(lower(trim(p2)), ?) > 0 or instr(lower(trim(p3)), ?) > 0 or instr(lower(trim(p4)), ?) > 0)",
            wanted, wanted, wanted, wanted);
    else
        tournament.run(R"(insert into lists_sids select sid from schedule where lower(trim(p1)) = ?
            or lower(trim(p2)) = ? or lower(trim(p3)) = ? or lower(trim(p4)) = ?)",
            wanted, wanted, wanted, wanted);
}

std::vector<BoardLine> load_match_list(Database& tournament, ListOrder order, bool desc, const ListStates& states)
{
    return read_lines(tournament,
        "sid in (select sid from lists_sids) and rname <> 'winner' and match_state <> '0'" + ordered(order, desc),
        nullptr, states);
}

std::vector<BoardLine> load_players_matches(
    Database& tournament, const std::string& name, ListOrder order, bool desc, const ListStates& states)
{
    const auto wanted = lcase(trim(name));
    return read_lines(tournament,
        "(lower(trim(p1)) = ? or lower(trim(p2)) = ? or lower(trim(p3)) = ? or lower(trim(p4)) = ?) and match_state <> "
        "'0'"
            + ordered(order, desc),
        &wanted, states);
}

VisualGrid visual_little_match_boxes(
    Database& tournament, const SportWords& words, const std::string& day, std::int64_t eid, const ListStates& states)
{
    VisualGrid grid;
    for (auto q = tournament.query("select distinct cid from schedule where cid <> 0 order by cid"); q.step();) {
        const auto cid = q.integer(0);
        std::string heading = words.court + " " + std::to_string(cid);
        if (cid == -1)
            heading = "first available";
        else if (cid == -2)
            heading = "clipboard";
        else if (cid == -3)
            heading = "to be confirmed";
        else if (cid == -4)
            heading = "day clipboard";
        grid.columns.push_back({ cid, heading });
    }
    std::string sql
        = "select sid, cid, matchtime_int, match_state from schedule where length(matchtime) > 0 and cid <> 0";
    const bool one_day = day != "all days";
    if (one_day)
        sql += " and scheduledate=?";
    if (eid)
        sql += " and eid=?";
    auto q = tournament.query(sql + " order by matchtime_int, cid, sid");
    int at = 0;
    if (one_day)
        q.bind(++at, day);
    if (eid)
        q.bind(++at, eid);
    bool any_timed = false;
    while (q.step()) {
        any_timed = true;
        const auto state = q.text(3);
        if (!states.shows(state))
            continue;
        if (grid.boxes.size() == visual_box_limit) {
            grid.message = "cannot display >1000 matches";
            break;
        }
        const int minutes = static_cast<int>(q.integer(2));
        grid.first = grid.boxes.empty() ? minutes : std::min(grid.first, minutes);
        grid.last = std::max(grid.last, minutes);
        grid.boxes.push_back({ q.integer(0), q.integer(1), minutes, state });
    }
    if (!any_timed)
        grid.message = "no " + words.matches + " with times,visual display irrelevant";
    return grid;
}

} // namespace qv
