#include "datafiles/entries_reports.h"

#include "core/database.h"
#include "core/utf8.h"

#include <map>

namespace qv {

namespace {

// Who is in what: by player name, the entries in eid order, joined by the separator.
struct PlayerEntries
{
    std::map<std::string, std::string> name_of; // by name key, the name as the register has it
    std::map<std::string, std::vector<std::string>> entries; // by name key
};

void add(PlayerEntries& all, const std::string& name, std::string entry)
{
    const auto key = name_key(name);
    if (key.empty() || key == "preq preq")
        return;
    all.name_of.emplace(key, trim(name));
    all.entries[key].push_back(std::move(entry));
}

// brief: each entry as its event id; otherwise as the event's name with the partner.
PlayerEntries player_entries(Database& db, const std::string& p, bool brief)
{
    PlayerEntries all;
    for (auto e
         = db.query("select eid, en, sd, player, p1name, partner from " + p + "evententries order by eid, ent_idx");
         e.step();) {
        const auto eid = e.text("eid");
        if (e.text("sd") == "singles") {
            add(all, e.text("player"), brief ? eid : e.text("en"));
            continue;
        }
        add(all, e.text("p1name"), brief ? eid : e.text("en") + "(with " + e.text("partner") + ")");
        add(all, e.text("partner"), brief ? eid : e.text("en") + "(with " + e.text("p1name") + ")");
    }
    for (auto r = db.query("select eid, en, player, partnername from " + p + "rawdoublesentries order by eid, rdidx");
         r.step();) {
        const auto eid = r.text("eid");
        add(all, r.text("player"), brief ? "r" + eid : "r:" + r.text("en") + "(with " + r.text("partnername") + ")");
        add(all, r.text("partnername"), brief ? "r" + eid : "r:" + r.text("en") + "(with " + r.text("player") + ")");
    }
    return all;
}

std::vector<std::string> events_table(Database& db, const std::string& p)
{
    std::vector<std::string> lines { "events" };
    for (auto e = db.query("select eid, eventname from " + p + "events order by eid"); e.step();)
        lines.push_back(e.text("eid") + " " + e.text("eventname"));
    lines.emplace_back();
    return lines;
}

std::string joined(const std::vector<std::string>& parts, const std::string& separator)
{
    std::string text;
    for (const auto& part : parts)
        text += (text.empty() ? "" : separator) + part;
    return text;
}

void add_section(std::vector<std::string>& lines, const std::string& title, Database& db, const std::string& sql,
    const std::vector<std::string>& labels, const std::vector<std::string>& columns)
{
    lines.push_back(title);
    lines.push_back(joined(labels, ","));
    for (auto row = db.query(sql); row.step();) {
        std::vector<std::string> values;
        for (const auto& column : columns)
            values.push_back(row.text(column));
        lines.push_back(joined(values, ","));
    }
}

} // namespace

std::vector<std::string> entriesbrief(Database& tournament, const std::string& prefix)
{
    auto lines = events_table(tournament, prefix);
    lines.emplace_back("players ( event ids they are in,r=raw doubles)");
    const auto all = player_entries(tournament, prefix, true);
    for (const auto& [key, entries] : all.entries)
        lines.push_back(all.name_of.at(key) + "(" + joined(entries, ",") + ")");
    return lines;
}

std::vector<std::string> entriesexpanded(Database& tournament, const std::string& prefix)
{
    std::vector<std::string> lines { "players events,r:=raw doubles" };
    const auto all = player_entries(tournament, prefix, false);
    for (const auto& [key, entries] : all.entries) {
        lines.push_back(all.name_of.at(key) + "(");
        for (const auto& entry : entries)
            lines.push_back(entry);
        lines.back() += ")";
    }
    return lines;
}

std::vector<std::string> export_formatted_entries(
    Database& tournament, FormattedDoubles doubles, const std::string& prefix)
{
    std::vector<std::string> lines;
    add_section(lines, "------events--------", tournament, "select * from " + prefix + "events order by eid",
        { "event id", "eventname", "singles/doubles", "event sex", "player/team/either" },
        { "eid", "eventname", "singdobs", "sex", "pte" });
    const std::vector<std::string> labels { "event id", "player first name", "player second name", "partner first name",
        "partner second name" };
    const std::vector<std::string> columns { "eid", "playerfname", "playersname", "partnerfname", "partnersname" };
    add_section(lines, "------event entries--------", tournament,
        "select * from " + prefix + "evententries"
            + (doubles == FormattedDoubles::resolved ? " order by eid, ent_idx"
                                                     : " where sd='singles' order by eid, ent_idx"),
        labels, columns);
    if (doubles == FormattedDoubles::raw)
        add_section(lines, "------raw doubles event entries (preq preq=partner required)--------", tournament,
            "select * from " + prefix + "rawdoublesentries order by eid, rdidx", labels, columns);
    return lines;
}

std::vector<std::string> export_results_txt_file(Database& tournament, const std::string& court_word)
{
    const std::vector<std::string> head { "event id", "eventname", "singles/doubles", "match(wrt draw)",
        "matchnumber(position on day)", "livematchnumber(live match order on day)",
        "matchstate(2=live,2.1=unfinished,3=dead", "match id within system (consecutive)", "round", court_word, "day",
        "time", "player1", "player2", "winner", "score", "longscore", "drawsize", "maxrounds", "roundname (1.7=1 of 7)",
        "p1 country", "p2 country", "p1 seeding", "p2 seeding", "matchtime_int(mins into day 26*60 total,-1 no time)",
        "event sex" };
    std::vector<std::string> lines { joined(head, ",") };
    for (auto m = tournament.query("select * from schedule where match_state='2.1' or match_state='2' or "
                                   "match_state='3' order by eid, \"match\"");
         m.step();) {
        std::vector<std::string> values;
        for (const char* column : { "eid", "eventname", "singdobs", "match", "matchnumber", "matchnumber_live",
                 "match_state", "sid", "rname", "cid", "scheduledate" })
            values.push_back(m.text(column));
        values.push_back(m.text("nbat") + m.text("matchtime"));
        for (const char* column : { "mtttt", "mbttt", "mwttt", "matchscore", "matchlongscore", "ds", "maxrounds",
                 "rsname", "mt_country", "mb_country", "mtseeding", "mbseeding", "matchtime_int", "evtsex" })
            values.push_back(m.text(column));
        lines.push_back(joined(values, ","));
    }
    return lines;
}

} // namespace qv
