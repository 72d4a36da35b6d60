#include "datafiles/tods_draws.h"

#include "core/database.h"
#include "core/utf8.h"
#include "datafiles/tods_participants.h"
#include "datafiles/tods_score.h"
#include "datafiles/tods_venue.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <vector>

namespace qv {

namespace {

using Json = nlohmann::ordered_json;

// One match row of the draw as the export reads it.
struct Row
{
    std::int64_t sid = 0;
    int rid = 0;
    int top_line = 0; // the line of mt: a first-round position, or a round robin's player number
    int bottom_line = 0;
    std::string top, bottom, winner; // full names
    std::string top_seed, bottom_seed;
    std::string state, score;
    std::string sdate;
    std::int64_t cid = 0, matchnumber = 0, matchtime_int = -1;
};

int line_of(const std::string& key)
{
    const auto point = key.find('.');
    try {
        return std::stoi(point == std::string::npos ? key : key.substr(point + 1));
    } catch (const std::exception&) {
        return 0;
    }
}

std::vector<Row> rows_of(Database& db, std::int64_t eid)
{
    std::vector<Row> rows;
    for (auto q = db.query(R"(select sid, rid, mt, mb, mtttt, mbttt, mwttt, mtseeding, mbseeding, match_state,
             matchscore, scheduledate, cid, matchnumber, matchtime_int from schedule
             where eid=? and rname<>'winner' order by rid, sid)",
             eid);
         q.step();)
        rows.push_back({ q.integer("sid"), static_cast<int>(q.integer("rid")), line_of(q.text("mt")),
            line_of(q.text("mb")), q.text("mtttt"), q.text("mbttt"), q.text("mwttt"), trim(q.text("mtseeding")),
            trim(q.text("mbseeding")), q.text("match_state"), q.text("matchscore"), q.text("scheduledate"),
            q.integer("cid"), q.integer("matchnumber"), q.integer("matchtime_int") });
    return rows;
}

bool same_name(const std::string& a, const std::string& b)
{
    return !trim(a).empty() && lcase(trim(a)) == lcase(trim(b));
}

bool is_bye(const std::string& name)
{
    return lcase(trim(name)) == "bye";
}

std::string status_of(const Row& row)
{
    if (row.state == "0")
        return "BYE";
    if (row.state == "3")
        return "COMPLETED";
    if (row.state == "2.1")
        return "IN_PROGRESS";
    return "TO_BE_PLAYED";
}

Json score_json(const std::string& text, int winning_side)
{
    const auto score = tods_score(text, winning_side);
    Json sets = Json::array();
    int number = 0;
    for (const auto& set : score.sets) {
        Json one { { "setNumber", ++number }, { "side1Score", set.side1 }, { "side2Score", set.side2 } };
        if (set.tiebreak_loser) {
            const int loser = *set.tiebreak_loser;
            const int winner = std::max(7, loser + 2);
            one["side1TiebreakScore"] = set.side1 > set.side2 ? winner : loser;
            one["side2TiebreakScore"] = set.side1 > set.side2 ? loser : winner;
        }
        if (set.side1 != set.side2)
            one["winningSide"] = set.side1 > set.side2 ? 1 : 2;
        sets.push_back(one);
    }
    return { { "scoreStringSide1", score.side1_text }, { "scoreStringSide2", score.side2_text }, { "sets", sets } };
}

// The draw positions of the sides, in the order the standard reads sides: the lower position is side 1.
// position_of: the draw position of each name; a side not yet known has none.
Json match_json(const Row& row, const std::map<std::string, int>& position_of, const TodsVenue& venue,
    const std::string& match_type)
{
    const auto position = [&](const std::string& name) {
        const auto found = position_of.find(lcase(trim(name)));
        return found == position_of.end() || trim(name).empty() ? 0 : found->second;
    };
    int side1 = position(row.top), side2 = position(row.bottom);
    std::string name1 = row.top, name2 = row.bottom;
    if (side1 && side2 && side2 < side1) {
        std::swap(side1, side2);
        std::swap(name1, name2);
    }
    Json positions = Json::array();
    for (int p : { side1, side2 })
        if (p)
            positions.push_back(p);
    Json match { { "matchUpId", "M-" + std::to_string(row.sid) }, { "matchUpType", match_type },
        { "drawPositions", positions }, { "matchUpStatus", status_of(row) } };
    const int winning_side = same_name(row.winner, name1) ? 1 : same_name(row.winner, name2) ? 2 : 0;
    if (winning_side && row.state != "0")
        match["winningSide"] = winning_side;
    if (!trim(row.score).empty())
        match["score"] = score_json(row.score, winning_side);
    if (auto items = venue.time_items(row.sdate, row.cid, row.matchnumber, row.matchtime_int); !items.empty())
        match["timeItems"] = items;
    return match;
}

Json seed_assignments(const std::map<int, std::string>& seeds)
{
    Json out = Json::array();
    for (const auto& [seed, participant] : seeds)
        out.push_back(
            { { "seedNumber", seed }, { "seedValue", std::to_string(seed) }, { "participantId", participant } });
    return out;
}

int seed_number(const std::string& text)
{
    if (text.empty() || !std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); }))
        return 0;
    return std::stoi(text);
}

// The sides of the first round, or of every round robin match: position, name and seed.
struct Positions
{
    std::map<int, std::string> names;
    std::map<int, std::string> seeds;
    void add(int position, const std::string& name, const std::string& seed)
    {
        if (position <= 0 || names.contains(position))
            return;
        names[position] = name;
        seeds[position] = seed;
    }
};

Json structure_of(TodsDrawContext& context, const Positions& positions, const std::vector<Row>& rows,
    const std::vector<int>& rounds, bool elimination, const std::string& id, const std::string& name,
    const std::string& match_type)
{
    Json assignments = Json::array();
    std::map<int, std::string> seeds;
    std::map<std::string, int> position_of;
    for (const auto& [position, player] : positions.names) {
        Json assignment { { "drawPosition", position } };
        if (is_bye(player)) {
            assignment["bye"] = true;
        } else if (const auto participant = context.participants.id_of(player); !participant.empty()) {
            assignment["participantId"] = participant;
            position_of[lcase(trim(player))] = position;
            if (const int seed = seed_number(positions.seeds.at(position)); seed > 0)
                seeds.emplace(seed, participant);
        } else if (lcase(trim(player)).starts_with("qualifier")) {
            assignment["qualifier"] = true;
        }
        assignments.push_back(assignment);
    }
    Json matches = Json::array();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        auto match = match_json(rows[i], position_of, context.venue, match_type);
        match["roundNumber"] = rounds[i];
        if (elimination)
            match["roundPosition"] = (rows[i].top_line + 1) / 2;
        matches.push_back(match);
    }
    return { { "structureId", id }, { "structureName", name }, { "stage", "MAIN" }, { "stageSequence", 1 },
        { "finishingPosition", elimination ? "ROUND_OUTCOME" : "WIN_RATIO" },
        { "seedAssignments", seed_assignments(seeds) }, { "positionAssignments", assignments },
        { "matchUps", matches } };
}

// A round robin's matches in rounds as the circle method lays them out: with the players counted from 0 and a
// resting place added to an odd group, the last place meets player i in round 2i, any other two in round i + j
// (both modulo the places less one). Each player then plays once a round, whatever order the matches were made in.
std::vector<int> round_robin_rounds(const std::vector<Row>& rows, int players)
{
    const int places = players + players % 2;
    const int rounds = std::max(places - 1, 1);
    std::vector<int> out;
    for (const auto& row : rows) {
        const int i = std::min(row.top_line, row.bottom_line) - 1;
        const int j = std::max(row.top_line, row.bottom_line) - 1;
        const int round = j == places - 1 ? (2 * i) % rounds : (i + j) % rounds;
        out.push_back(round + 1);
    }
    return out;
}

} // namespace

Json tods_draw(TodsDrawContext& context, std::int64_t eid)
{
    auto& db = context.tournament;
    auto event = db.query("select eventname, drawtype, singdobs from events where eid=?", eid);
    if (!event.step())
        return nullptr;
    const auto rows = rows_of(db, eid);
    if (rows.empty())
        return nullptr;
    const bool elimination = lcase(trim(event.text("drawtype"))) != "rr";
    const auto match_type = lcase(trim(event.text("singdobs"))) == "doubles" ? "DOUBLES" : "SINGLES";
    const auto id = std::to_string(eid);
    Positions positions;
    std::vector<int> rounds;
    for (const auto& row : rows) {
        if (!elimination || row.rid == 1) {
            positions.add(row.top_line, row.top, row.top_seed);
            positions.add(row.bottom_line, row.bottom, row.bottom_seed);
        }
        rounds.push_back(row.rid);
    }
    Json draw { { "drawId", "D-" + id }, { "drawName", event.text("eventname") },
        { "drawType", elimination ? "SINGLE_ELIMINATION" : "ROUND_ROBIN" }, { "matchUpType", match_type },
        { "entries", context.entries } };
    if (elimination) {
        draw["structures"]
            = Json::array({ structure_of(context, positions, rows, rounds, true, "S-" + id, "Main", match_type) });
        return draw;
    }
    auto group
        = structure_of(context, positions, rows, round_robin_rounds(rows, static_cast<int>(positions.names.size())),
            false, "S-" + id + "-1", "Group 1", match_type);
    group["structureType"] = "ITEM";
    group["structureOrder"] = 1;
    draw["structures"]
        = Json::array({ { { "structureId", "S-" + id }, { "structureName", "Main" }, { "structureType", "CONTAINER" },
            { "stage", "MAIN" }, { "stageSequence", 1 }, { "finishingPosition", "WIN_RATIO" },
            { "seedAssignments", group["seedAssignments"] }, { "structures", Json::array({ group }) } } });
    return draw;
}

} // namespace qv
