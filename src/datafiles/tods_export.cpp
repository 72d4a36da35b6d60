#include "datafiles/tods_export.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/utf8.h"
#include "datafiles/tods_draws.h"
#include "datafiles/tods_participants.h"
#include "datafiles/tods_venue.h"

#include <fstream>

namespace qv {

namespace {

using Json = nlohmann::ordered_json;

std::string event_type(const std::string& singdobs)
{
    return lcase(trim(singdobs)) == "doubles" ? "DOUBLES" : "SINGLES";
}

std::string gender_of(const std::string& sex)
{
    const auto word = lcase(trim(sex));
    if (word == "male")
        return "MALE";
    if (word == "female")
        return "FEMALE";
    if (word == "mixed")
        return "MIXED";
    return "ANY";
}

Json entries_of(Database& db, TodsParticipants& participants, std::int64_t eid)
{
    Json entries = Json::array();
    int position = 0;
    for (auto q = db.query("select player, reserve from evententries where eid=? order by ent_idx", eid); q.step();) {
        const auto participant = participants.id_of(q.text("player"));
        if (participant.empty())
            continue;
        entries.push_back({ { "participantId", participant },
            { "entryStatus", q.integer("reserve") != 0 ? "ALTERNATE" : "DIRECT_ACCEPTANCE" }, { "entryStage", "MAIN" },
            { "entryPosition", ++position } });
    }
    return entries;
}

Json events_of(Database& db, TodsParticipants& participants, const TodsVenue& venue)
{
    Json events = Json::array();
    for (auto q = db.query("select eid, eventname, singdobs, sex, drawdone from events order by eid"); q.step();) {
        const auto eid = q.integer("eid");
        Json event { { "eventId", "E-" + std::to_string(eid) }, { "eventName", q.text("eventname") },
            { "eventType", event_type(q.text("singdobs")) }, { "gender", gender_of(q.text("sex")) },
            { "entries", entries_of(db, participants, eid) }, { "drawDefinitions", Json::array() } };
        if (q.integer("drawdone") != 0) {
            TodsDrawContext context { db, participants, venue, event["entries"] };
            if (auto draw = tods_draw(context, eid); !draw.is_null())
                event["drawDefinitions"].push_back(draw);
        }
        events.push_back(event);
    }
    return events;
}

} // namespace

std::string tods_json(Database& tournament, const std::string& tournament_id, const std::string& court_word)
{
    auto details = tournament.query("select tournament, venue from tournament order by idx");
    const bool has_details = details.step();
    const auto name = has_details ? trim(details.text("tournament")) : std::string();
    const auto venue_name = has_details ? trim(details.text("venue")) : std::string();

    TodsParticipants participants;
    participants.load(tournament);
    TodsVenue venue;
    venue.load(tournament, venue_name.empty() ? name : venue_name, court_word);

    Json root { { "tournamentId", tournament_id }, { "tournamentName", name } };
    if (!venue.start_date().empty()) {
        root["startDate"] = venue.start_date();
        root["endDate"] = venue.end_date();
    }
    // The events are read first: a name met only in a draw adds its participant there.
    auto events = events_of(tournament, participants, venue);
    root["participants"] = participants.all();
    root["events"] = events;
    root["venues"] = Json::array();
    if (auto one = venue.venue(); !one.is_null())
        root["venues"].push_back(one);
    return root.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

std::optional<std::filesystem::path> export_tods(Session& session)
{
    const std::filesystem::path tournament_file = session.current_file_path();
    const auto stem = tournament_file.stem().string();
    const auto file = session.talk().choose_file({ FileDialogKind::SaveAs, "save as..", stem + "_tods.json", "json.",
        session.settings().text("app.last_dir_opened") });
    if (!file)
        return std::nullopt;
    const auto text = tods_json(session.tournament(), stem, current_sport_words(session).court);
    std::ofstream out(*file, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    if (!out) {
        session.talk().message("cannot write file:" + file->string());
        return std::nullopt;
    }
    on_file_save(session, *file);
    return file;
}

} // namespace qv
