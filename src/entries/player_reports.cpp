#include "entries/player_reports.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/number_text.h"
#include "core/session.h"
#include "core/utf8.h"

#include <set>

namespace qv {

namespace {

std::optional<std::filesystem::path> save(
    Session& session, const std::string& name, const std::vector<std::string>& lines)
{
    const auto file = session.dirs().working / name;
    if (!write_text_file(file, lines)) {
        session.talk().message("cannot write file:" + file.string());
        return std::nullopt;
    }
    on_file_save(session, file);
    return file;
}

// Appends "<id>," to the evt_str of each named person once.
void append_event(Database& db, const std::vector<std::string>& names, const std::string& id)
{
    std::set<std::string> done;
    for (const auto& name : names) {
        const auto key = name_key(name);
        if (key.empty() || !done.insert(key).second)
            continue;
        db.run("update players set evt_str=evt_str || ? where lower(trim(player))=?", id + ",", key);
    }
}

} // namespace

std::optional<std::filesystem::path> report_players_rating_ranking(Session& session)
{
    std::vector<std::string> lines { "players rating,ranking,from," };
    auto rows = session.tournament().query("select * from players order by player, pid");
    while (rows.step()) {
        std::string name = rows.text("player");
        if (!rows.text("sex").empty())
            name += " (" + rows.text("sex") + ")";
        lines.push_back(
            name + " " + rows.text("rating") + "," + rows.text("ranking") + "," + rows.text("country") + ",");
    }
    return save(session, "players_rating_ranking.txt", lines);
}

std::optional<std::filesystem::path> report_players_events(Session& session)
{
    auto& db = session.tournament();
    {
        Transaction transaction(db);
        db.run("update players set evt_str=''");
        auto entries = db.query("select eid, player, p1name, partner from evententries order by eid, ent_idx");
        while (entries.step())
            append_event(db, { entries.text("player"), entries.text("p1name"), entries.text("partner") },
                std::to_string(entries.integer("eid")));
        auto raw = db.query("select eid, player, partnername from rawdoublesentries order by eid, rdidx");
        while (raw.step())
            append_event(db, { raw.text("player"), raw.text("partnername") }, "r" + std::to_string(raw.integer("eid")));
        db.run("update players set evt_str=substr(evt_str, 1, length(evt_str)-1) where length(evt_str) > 0");
        transaction.commit();
    }

    std::vector<std::string> lines { "players ( event ids they are in,r=raw doubles)" };
    auto rows = db.query("select player, evt_str from players order by player, pid");
    while (rows.step()) {
        const auto events = rows.text("evt_str");
        lines.push_back(events.empty() ? rows.text("player") : rows.text("player") + " (" + events + ")");
    }
    lines.emplace_back();
    lines.emplace_back("events");
    auto events = db.query("select eid, eventname from events order by eid");
    while (events.step())
        lines.push_back(std::to_string(events.integer("eid")) + "=" + events.text("eventname"));
    return save(session, "players_events.txt", lines);
}

std::string get_players_text_sql(std::size_t count)
{
    std::string marks;
    for (std::size_t i = 0; i < count; ++i)
        marks += i == 0 ? "?" : ",?";
    return R"(select player, email, password, dob, address, city, state, postcode, country, phone, mobile, sex,
        rating, ranking, results, club, availabilityrestrictions as availability_restrictions,
        "timestamp" as entry_date, tsd as tournament_specfic_data, message, notes, player_bill,
        amount_player_has_paid, amount_player_must_pay, paid_state from players where pid in ()"
        + marks + ") order by player, pid";
}

std::optional<std::filesystem::path> export_players_text(Session& session, const std::vector<std::int64_t>& pids)
{
    if (pids.empty()) {
        session.talk().message("select players to export");
        return std::nullopt;
    }
    auto rows = session.tournament().query(get_players_text_sql(pids.size()));
    for (std::size_t i = 0; i < pids.size(); ++i)
        rows.bind(static_cast<int>(i) + 1, pids[i]);
    std::vector<std::string> lines;
    while (rows.step()) {
        if (!lines.empty())
            lines.emplace_back();
        for (int column = 0; column < rows.column_count(); ++column) {
            const auto name = rows.column_name(column);
            const bool money = name == "player_bill" || name.rfind("amount_", 0) == 0;
            lines.push_back(name + ": " + (money ? number_text(rows.real(name)) : rows.text(column)));
        }
    }
    return save(session, "players_details.txt", lines);
}

} // namespace qv
