#include "entries/main_lists.h"

#include "core/database.h"
#include "core/session.h"
#include "core/text_rules.h"
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

bool remove_entry(Session& session, EntryList which, std::int64_t id)
{
    auto& db = session.tournament();
    auto& talk = session.talk();
    const auto stale = [&talk, id] {
        talk.message(std::to_string(id) + " not found,stale data");
        return false;
    };

    if (which == EntryList::raw_doubles) {
        if (db.scalar_integer("select count(*) from rawdoublesentries where rdidx=?", id) == 0)
            return stale();
        const auto eid = db.scalar_integer("select eid from rawdoublesentries where rdidx=?", id);
        if (talk.ask("This will delete these entries from the data base.", "confirm", Buttons::YesNo) != Answer::Yes)
            return false;
        db.run("delete from rawdoublesentries where rdidx=? and eid=?", id, eid);
        session.refresh_lists(Lists::entries);
        return true;
    }

    std::int64_t eid = 0;
    std::string player, p1name, partner;
    bool in_draw = false;
    {
        auto row = db.query(R"(select e.eid, e.player, e.p1name, e.partner, e.reserve, v.drawdone
            from evententries e left join events v on v.eid=e.eid where e.ent_idx=?)",
            id);
        if (!row.step())
            return stale();
        eid = row.integer("eid");
        player = row.text("player");
        p1name = row.text("p1name");
        partner = row.text("partner");
        in_draw = row.integer("drawdone") != 0 && row.integer("reserve") == 0;
    }
    if (in_draw) {
        talk.message("cannot remove " + player + ",drawdone, delete draw first");
        return false;
    }
    if (talk.ask("This will remove the selected players from this event", "Confirm", Buttons::YesNo) != Answer::Yes)
        return false;

    // The names of a team: the stored halves, or the split name of an older row that lacks them.
    std::vector<std::string> people;
    if (!trim(p1name).empty() || !trim(partner).empty()) {
        people = { p1name, partner };
    } else if (player.find('/') != std::string::npos) {
        const auto [first, second] = split_pair(player);
        people = { first, second };
    }
    {
        Transaction transaction(db);
        db.run("delete from evententries where ent_idx=? and eid=?", id, eid);
        for (const auto& person : people) {
            const auto key = name_key(person);
            if (key.empty())
                continue;
            db.run("update rawdoublesentries set p1='free' where lower(trim(player))=? and eid=? and p1='taken'", key,
                eid);
            db.run("update rawdoublesentries set p2='free' where lower(trim(partnername))=? and eid=? and p2='taken'",
                key, eid);
        }
        transaction.commit();
    }
    session.refresh_lists(Lists::entries);
    return true;
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
