#include "scheduling/assistant_stats.h"

#include "core/database.h"
#include "core/sports_vocabulary.h"
#include "core/utf8.h"

#include <array>
#include <cstdio>
#include <map>

namespace qv {

namespace {

// The counters of a row: four states, then six places.
struct Counts
{
    std::array<std::int64_t, 4> states {}; // empty, live, unf, dead
    std::array<std::int64_t, 6> places {}; // cid0, cid>0, fac, cb, dcb, tbd

    void count(const std::string& state, std::int64_t cid)
    {
        static const std::array<std::string_view, 4> state_values { "1", "2", "2.1", "3" };
        for (std::size_t i = 0; i < state_values.size(); ++i)
            if (state == state_values[i])
                ++states[i];
        if (cid == 0)
            ++places[0];
        else if (cid > 0)
            ++places[1];
        else if (cid == -1)
            ++places[2];
        else if (cid == -2)
            ++places[3];
        else if (cid == -4)
            ++places[4];
        else if (cid == -3)
            ++places[5];
    }
    void add(const Counts& other)
    {
        for (std::size_t i = 0; i < states.size(); ++i)
            states[i] += other.states[i];
        for (std::size_t i = 0; i < places.size(); ++i)
            places[i] += other.places[i];
    }
};

// The matches a statistic counts: no winner rows, no byes, of the day unless all days.
template <class Visit> void each_counted(Database& tournament, const std::string& day, Visit visit)
{
    std::string sql = R"(select s.eid, coalesce(e.eventname, s.eventname), s.cid, s.scheduledate, s.day_idx,
        s.match_state from schedule s left join events e on e.eid = s.eid
        where s.rname <> 'winner' and not (s.mtttt = 'bye' or s.mbttt = 'bye'))";
    const bool one_day = day != all_days;
    if (one_day)
        sql += " and s.scheduledate=?";
    auto q = tournament.query(sql);
    if (one_day)
        q.bind_all(day == no_day ? std::string() : day);
    while (q.step())
        visit(q);
}

void bind_counts(Statement& insert, int from, const Counts& counts)
{
    int at = from;
    for (auto value : counts.states)
        insert.bind(at++, value);
    for (auto value : counts.places)
        insert.bind(at++, value);
}

std::string number_text(double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", value);
    return buffer;
}

// The counters of a read row as text, from column `first` on: four states, total, and the places.
void append_counts(std::string& line, const Statement& row, bool with_pct)
{
    for (const char* column : { "empty", "live", "unf", "dead", "total" })
        line += "\t" + std::to_string(row.integer(column));
    if (with_pct)
        line += "\t" + number_text(row.real("pct_done")) + "\t" + number_text(row.real("pct_remaining"));
    for (const char* column : { "cid0", "cid>0", "fac", "cb", "dcb", "tbd" })
        line += "\t" + std::to_string(row.integer(column));
}

std::string day_title(const std::string& day)
{
    return day == no_day ? "for unscheduled matches" : "for " + day;
}

} // namespace

void stats_by_event(Database& tournament, const std::string& day)
{
    tournament.run("delete from stats_by_event");
    std::map<std::int64_t, std::pair<std::string, Counts>> rows;
    each_counted(tournament, day, [&](const Statement& q) {
        auto& row = rows[q.integer(0)];
        row.first = q.text(1);
        row.second.count(q.text(5), q.integer(2));
    });
    auto insert = tournament.query(R"(insert into stats_by_event (eid, eventname, empty, live, unf, dead, cid0, "cid>0",
        fac, cb, dcb, tbd) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))");
    Counts sums;
    auto write = [&](std::int64_t eid, const std::string& name, const Counts& counts) {
        insert.bind_all(eid, name);
        bind_counts(insert, 3, counts);
        insert.step();
        insert.reset();
    };
    for (const auto& [eid, row] : rows) {
        write(eid, row.first, row.second);
        sums.add(row.second);
    }
    write(0, "tournament", sums);
    tournament.run("update stats_by_event set total=empty + live + unf + dead");
    // A row counted only by its place has no total, and so nothing done or remaining.
    tournament.run(
        R"(update stats_by_event set pct_done = case when total = 0 then 0 else (dead * 1.0 / total) * 100 end,
        pct_remaining = case when total = 0 then 0 else 100 - (dead * 1.0 / total) * 100 end)");
}

void stats_by_cid(Database& tournament, const std::string& day)
{
    tournament.run("delete from stats_by_cid");
    std::map<std::int64_t, Counts> rows;
    each_counted(tournament, day, [&](const Statement& q) { rows[q.integer(2)].count(q.text(5), q.integer(2)); });
    auto insert
        = tournament.query(R"(insert into stats_by_cid (cid, empty, live, unf, dead, cid0, "cid>0", fac, cb, dcb,
        tbd) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))");
    for (const auto& [cid, counts] : rows) {
        insert.bind_all(cid);
        bind_counts(insert, 2, counts);
        insert.step();
        insert.reset();
    }
    tournament.run("update stats_by_cid set total=empty + live + unf + dead");
}

void stats_by_day(Database& tournament, const std::string& day)
{
    tournament.run("delete from stats_by_day");
    std::map<std::pair<std::int64_t, std::string>, Counts> rows;
    each_counted(tournament, day, [&](const Statement& q) {
        rows[{ q.text(3).empty() ? 0 : q.integer(4), q.text(3) }].count(q.text(5), q.integer(2));
    });
    auto insert
        = tournament.query(R"(insert into stats_by_day (idx, sdate, empty, live, unf, dead, cid0, "cid>0", fac, cb,
        dcb, tbd) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))");
    for (const auto& [key, counts] : rows) {
        insert.bind_all(key.first, key.second);
        bind_counts(insert, 3, counts);
        insert.step();
        insert.reset();
    }
    tournament.run("update stats_by_day set total=empty + live + unf + dead");
}

StatsTable show_stats(Database& tournament, const SportWords& words, StatsBy by, const std::string& day)
{
    StatsTable table;
    const std::string counters = "empty\tlive\tunf\tdead\ttotal";
    const std::string places = "cid=0\tcid>0\tfa\tcb\tdcb\ttbc";
    switch (by) {
    case StatsBy::event: {
        stats_by_event(tournament, day);
        table.title = "stats by event " + day_title(day);
        table.header = "eventname\t" + counters + "\tpct_done\tpct_remaining\t" + places;
        // The "tournament" row was written last and stays last.
        for (auto q = tournament.query("select * from stats_by_event order by rowid"); q.step();) {
            std::string line = q.text("eventname");
            append_counts(line, q, true);
            table.lines.push_back(line);
        }
        break;
    }
    case StatsBy::court:
        stats_by_cid(tournament, day);
        table.title = "stats by " + words.court + " " + day_title(day);
        table.header = "cid\t" + counters + "\t" + places;
        for (auto q = tournament.query("select * from stats_by_cid order by cid"); q.step();) {
            std::string line = std::to_string(q.integer("cid"));
            append_counts(line, q, false);
            table.lines.push_back(line);
        }
        break;
    case StatsBy::day:
        stats_by_day(tournament, day);
        table.title = "stats by day " + day_title(day);
        table.header = "day\t" + counters + "\t" + places;
        for (auto q = tournament.query("select * from stats_by_day order by idx, sdate"); q.step();) {
            std::string line = q.text("sdate").empty() ? std::string(no_day) : q.text("sdate");
            append_counts(line, q, false);
            table.lines.push_back(line);
        }
        break;
    }
    return table;
}

std::string stats_key_text(const SportWords& words)
{
    return "all days: all days of the tournament\nno day: unassigned " + words.matches + "\nempty: " + words.matches
        + " without both players\nlive: " + words.matches + " ready to play\nunf: unfinished " + words.matches
        + "\ndead: " + words.matches + " with a result\ntotal: empty + live + unf + dead"
        + "\npct_done: dead as a percentage of total\npct_remaining: 100 - pct_done\ncid=0: unscheduled "
        + words.matches + "\ncid>0: " + words.matches + " on a " + words.court + "\nfa: first available\ncb: clipboard"
        + "\ndcb: day clipboard\ntbc: to be confirmed"
        + "\neventname: name of events, tournament means tournament as a whole";
}

void calc_counts(Database& tournament)
{
    tournament.run("delete from player_match_counts");
    std::map<std::string, std::array<std::int64_t, 3>> counts; // live, unf, dead
    std::vector<std::string> order;
    for (auto q = tournament.query(
             "select p1, p2, p3, p4, match_state from schedule where match_state <> '0' and match_state <> '1'");
         q.step();) {
        const auto state = q.text(4);
        for (int i = 0; i < 4; ++i) {
            const auto name = q.text(i);
            if (trim(name).empty())
                continue;
            auto [found, added] = counts.try_emplace(name);
            if (added)
                order.push_back(name);
            if (state == "2")
                ++found->second[0];
            else if (state == "2.1")
                ++found->second[1];
            else if (state == "3")
                ++found->second[2];
        }
    }
    auto insert
        = tournament.query("insert into player_match_counts (pn, live_cnt, unf_cnt, dead_cnt) values (?, ?, ?, ?)");
    for (const auto& name : order) {
        const auto& c = counts[name];
        insert.bind_all(name, c[0], c[1], c[2]);
        insert.step();
        insert.reset();
    }
    tournament.run("delete from player_match_counts where substr(lower(trim(pn)), 1, 9)='qualifier'");
    tournament.run("delete from player_match_counts where substr(lower(trim(pn)), 1, 8)='wildcard'");
    tournament.run("delete from player_match_counts where lower(trim(pn))='bye'");
}

std::vector<std::string> load_player_list(Database& tournament, const std::string& order_by, bool desc)
{
    // The order column comes from a fixed list; anything else orders by name.
    std::string column = "pn";
    for (const char* allowed : { "live_cnt", "dead_cnt", "unf_cnt" })
        if (trim(order_by) == allowed)
            column = allowed;
    std::vector<std::string> lines;
    for (auto q = tournament.query("select pn, live_cnt, dead_cnt, unf_cnt from player_match_counts order by " + column
             + (desc ? " desc" : " asc"));
         q.step();)
        lines.push_back(q.text(0) + "\t" + q.text(1) + "\t" + q.text(2) + "\t" + q.text(3));
    return lines;
}

} // namespace qv
