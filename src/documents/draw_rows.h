#pragma once

#include "drawengine/rr_draw.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// Where a draw is read from: the open tournament's schedule, or the results file on view in the analysis
// windows (its single store in the peek-browse database).
enum class DrawStore { tournament, qv4_single };

// One side of a match as the live columns hold it.
struct DrawSide
{
    std::string ttt;
    std::string frn;
    std::string tag;
    std::string country;
    std::string seeding;
};

// A row of the draw's table: a match (or a knock-out draw's winner row).
struct DrawRow
{
    std::int64_t sid = 0;
    int match = 0;
    int rid = 0;
    int ds = 0;
    std::string rname;
    std::string mt;
    std::string mb;
    std::string mw_ptr;
    DrawSide top;
    DrawSide bottom;
    std::string mwttt;
    std::string mwtag;
    std::string matchscore;
    std::string matchlongscore;
    std::string points1;
    std::string points2;
    std::string scheduledate;
    std::string nbat;
    std::string matchtime;
    std::int64_t cid = 0;
    std::int64_t matchnumber = 0;

    // The side the winner column names; nullptr while the match has no winner.
    const DrawSide* winner() const;
    const DrawSide* loser() const;
};

// The event and tournament a draw belongs to.
struct DrawInfo
{
    std::int64_t eid = 0;
    std::string eventname;
    std::string drawtype; // "ko" or "rr"
    int drawsize = 0; // the knock-out size, or the number of players of a round robin
    int pts = 0;
    std::string timestamp_text;
    std::string tname; // tournament name
    std::string tdates; // tournament dates
};

struct DrawData
{
    DrawInfo info;
    std::vector<DrawRow> rows; // in sid order
};

// The rows of the event's draw in the store, in sid order.
std::vector<DrawRow> read_draw_rows(Database& db, DrawStore store, std::int64_t eid);

// The event's draw from the store: nullopt when the event is unknown there or has no rows.
std::optional<DrawData> read_draw(Session& session, DrawStore store, std::int64_t eid);

// The database that holds a store's tables (and the scratch tables its standings are built in).
Database& store_database(Session& session, DrawStore store);

// A round robin as its rows stand: player table, match lines with winner marks and points.
OpenRoundRobin round_robin_from_rows(const std::vector<DrawRow>& rows, int players);

} // namespace qv
