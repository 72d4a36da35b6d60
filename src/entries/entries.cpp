#include "entries/entries.h"

#include "core/database.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"

#include <string>

namespace qv {

namespace {

struct Entry
{
    std::int64_t id = 0;
    std::string player;
    // The two people of a team; empty for one person.
    std::vector<std::string> people;
    bool reserve = false;
};

std::vector<Entry> selected_entries(Database& db, std::int64_t eid, const std::vector<std::int64_t>& ids)
{
    std::vector<Entry> entries;
    auto row = db.query("select player, p1name, partner, sd, reserve from evententries where ent_idx=? and eid=?");
    for (const auto id : ids) {
        row.bind_all(id, eid);
        if (row.step()) {
            Entry entry { id, row.text("player"), {}, row.integer("reserve") != 0 };
            const auto p1name = row.text("p1name");
            const auto partner = row.text("partner");
            if (!trim(p1name).empty() || !trim(partner).empty()) {
                entry.people = { p1name, partner };
            } else if (name_key(row.text("sd")) == "doubles" && entry.player.find('/') != std::string::npos) {
                // A team from a loaded file may carry only the joined name.
                const auto [first, second] = split_pair(entry.player);
                entry.people = { first, second };
            }
            entries.push_back(std::move(entry));
        }
        row.reset();
    }
    return entries;
}

int remove_raw_rows(Session& session, std::int64_t eid, const std::vector<std::int64_t>& ids)
{
    auto& db = session.tournament();
    if (session.talk().ask("This will delete these entries from the data base.", "confirm", Buttons::YesNo)
        != Answer::Yes)
        return 0;
    int removed = 0;
    {
        Transaction transaction(db);
        for (const auto id : ids)
            removed += db.run("delete from rawdoublesentries where rdidx=? and eid=?", id, eid);
        transaction.commit();
    }
    session.talk().message(removed > 0 ? std::to_string(removed) + " entries deleted" : "no entries deleted");
    return removed;
}

int remove_event_entries(Session& session, std::int64_t eid, bool drawdone, const std::vector<std::int64_t>& ids)
{
    auto& db = session.tournament();
    const auto entries = selected_entries(db, eid, ids);
    for (const auto& entry : entries) {
        if (drawdone && !entry.reserve) {
            session.talk().message(
                "cannot remove " + entry.player + ",draw is done and player is in the draw (non-reserve)");
            return 0;
        }
    }
    if (session.talk().ask("This will remove the selected players from this event", "Confirm", Buttons::YesNo)
        != Answer::Yes)
        return 0;
    int removed = 0;
    Transaction transaction(db);
    for (const auto& entry : entries) {
        removed += db.run("delete from evententries where ent_idx=? and eid=?", entry.id, eid);
        // As restoring a team does: its people become free in every raw row of the event.
        for (const auto& person : entry.people) {
            const auto key = name_key(person);
            if (key.empty())
                continue;
            db.run("update rawdoublesentries set p1='free' where lower(trim(player))=? and eid=?", key, eid);
            db.run("update rawdoublesentries set p2='free' where lower(trim(partnername))=? and eid=?", key, eid);
        }
    }
    transaction.commit();
    return removed;
}

} // namespace

int remove_entries(Session& session, std::int64_t eid, EntryList which, const std::vector<std::int64_t>& ids)
{
    if (ids.empty()) {
        session.talk().message(which == EntryList::raw_doubles ? "select teams to delete" : "select player(s)");
        return 0;
    }
    auto& db = session.tournament();
    if (db.scalar_integer("select count(*) from events where eid=?", eid) == 0) {
        session.talk().message(std::to_string(eid) + " not found,stale data");
        return 0;
    }
    const bool drawdone = db.scalar_integer("select drawdone from events where eid=?", eid) != 0;
    const int removed = which == EntryList::raw_doubles ? remove_raw_rows(session, eid, ids)
                                                        : remove_event_entries(session, eid, drawdone, ids);
    if (removed > 0)
        session.refresh_lists(Lists::entries);
    return removed;
}

} // namespace qv
