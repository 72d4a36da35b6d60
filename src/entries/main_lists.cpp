#include "entries/main_lists.h"

#include "core/database.h"
#include "core/utf8.h"

namespace qv {

namespace {

constexpr const char* partner_required = "preq preq";

std::string event_line(std::int64_t eid, const std::string& name, bool drawdone)
{
    return std::string(drawdone ? "*" : "") + "(" + std::to_string(eid) + ")" + name;
}

} // namespace

std::vector<ListLine> loadevents(Database& db)
{
    std::vector<ListLine> lines;
    auto rows = db.query("select eid, eventname, drawdone from events order by eventname, eid");
    while (rows.step())
        lines.push_back({ event_line(rows.integer("eid"), rows.text("eventname"), rows.integer("drawdone") != 0),
            rows.integer("eid") });
    return lines;
}

std::vector<ListLine> load_event_entries(Database& db, std::int64_t eid, EntryList which)
{
    std::vector<ListLine> lines;
    if (which == EntryList::raw_doubles) {
        auto rows = db.query(
            "select rdidx, player, partnername from rawdoublesentries where eid=? order by player, rdidx", eid);
        while (rows.step()) {
            const auto partner = rows.text("partnername");
            const bool required = name_key(partner) == partner_required;
            lines.push_back(
                { rows.text("player") + "/" + (required ? "(partner required)" : partner), rows.integer("rdidx") });
        }
        return lines;
    }
    const bool reserve = which == EntryList::reserve;
    auto rows = db.query(
        "select ent_idx, player from evententries where eid=? and reserve=? order by player, ent_idx", eid, reserve);
    while (rows.step())
        lines.push_back({ rows.text("player"), rows.integer("ent_idx") });
    return lines;
}

std::vector<ListLine> loadplayers(Database& db)
{
    std::vector<ListLine> lines;
    auto rows = db.query("select pid, player from players order by fname");
    while (rows.step())
        lines.push_back({ rows.text("player"), rows.integer("pid") });
    return lines;
}

std::vector<ListLine> player_events(Database& db, const std::string& player)
{
    std::vector<ListLine> lines;
    const auto key = name_key(player);
    auto entered = db.query(R"(select distinct eid, en from evententries
        where lower(trim(player))=? or lower(trim(p1name))=? or lower(trim(partner))=? order by en)",
        key, key, key);
    while (entered.step())
        lines.push_back({ entered.text("en"), entered.integer("eid") });
    auto raw = db.query(R"(select distinct eid, en from rawdoublesentries
        where lower(trim(player))=? or lower(trim(partnername))=? order by en)",
        key, key);
    while (raw.step())
        lines.push_back({ "raw: " + raw.text("en"), raw.integer("eid") });
    return lines;
}

MainCounts main_counts(Database& db)
{
    return { db.row_count("events"), db.row_count("evententries") + db.row_count("rawdoublesentries") };
}

} // namespace qv
