#include "documents/draw_rows.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"

#include <algorithm>
#include <charconv>

namespace qv {

namespace {

// The statements of each store; the table names come from this fixed list only.
struct StoreTables
{
    const char* event;
    const char* rows;
};

StoreTables tables_of(DrawStore store)
{
    if (store == DrawStore::qv4_single)
        return { "select * from qv4_single_events where eid=?",
            "select * from qv4_single_schedule where eid=?  order by sid" };
    return { "select * from events where eid=?", "select * from schedule where eid=?  order by sid" };
}

DrawSide side_of(const Statement& row, const char* prefix)
{
    const std::string p = prefix;
    return { row.text(p + "ttt"), row.text(p + "frn"), row.text(p + "tag"), row.text(p + "_country"),
        row.text(p + "seeding") };
}

int player_number(std::string_view text)
{
    int value = 0;
    const auto trimmed = trim(text);
    auto [end, error] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
    return error == std::errc {} && end == trimmed.data() + trimmed.size() ? value : 0;
}

} // namespace

const DrawSide* DrawRow::winner() const
{
    if (trim(mwttt).empty())
        return nullptr;
    if (same_name(mwttt, top.ttt))
        return &top;
    if (same_name(mwttt, bottom.ttt))
        return &bottom;
    return nullptr;
}

const DrawSide* DrawRow::loser() const
{
    const auto* won = winner();
    if (!won)
        return nullptr;
    return won == &top ? &bottom : &top;
}

std::vector<DrawRow> read_draw_rows(Database& db, DrawStore store, std::int64_t eid)
{
    std::vector<DrawRow> rows;
    for (auto row = db.query(tables_of(store).rows, eid); row.step();) {
        DrawRow r;
        r.sid = row.integer("sid");
        r.match = static_cast<int>(row.integer("match"));
        r.rid = static_cast<int>(row.integer("rid"));
        r.ds = static_cast<int>(row.integer("ds"));
        r.rname = row.text("rname");
        r.mt = row.text("mt");
        r.mb = row.text("mb");
        r.mw_ptr = row.text("mw_ptr");
        r.top = side_of(row, "mt");
        r.bottom = side_of(row, "mb");
        r.mwttt = row.text("mwttt");
        r.mwtag = row.text("mwtag");
        r.matchscore = row.text("matchscore");
        r.matchlongscore = row.text("matchlongscore");
        r.points1 = row.text("points1");
        r.points2 = row.text("points2");
        r.scheduledate = row.text("scheduledate");
        r.nbat = row.text("nbat");
        r.matchtime = row.text("matchtime");
        r.cid = row.integer("cid");
        r.matchnumber = row.integer("matchnumber");
        rows.push_back(std::move(r));
    }
    return rows;
}

Database& store_database(Session& session, DrawStore store)
{
    return store == DrawStore::qv4_single ? session.peek_browse_db() : session.tournament();
}

std::optional<DrawData> read_draw(Session& session, DrawStore store, std::int64_t eid)
{
    auto& db = store_database(session, store);
    const auto tables = tables_of(store);
    DrawData data;
    {
        auto event = db.query(tables.event, eid);
        if (!event.step())
            return std::nullopt;
        data.info.eid = eid;
        data.info.eventname = event.text("eventname");
        data.info.drawtype = lcase(trim(event.text("drawtype")));
        data.info.drawsize = static_cast<int>(event.integer("drawsize"));
        data.info.pts = static_cast<int>(event.integer("pts"));
        data.info.timestamp_text = event.text("timestamp_text");
        if (store == DrawStore::qv4_single) {
            data.info.tname = event.text("tn");
            data.info.tdates = event.text("dts");
        } else {
            data.info.tname = session.settings().itname();
            data.info.tdates = session.settings().itdates();
        }
    }
    data.rows = read_draw_rows(db, store, eid);
    // A round robin's size is its number of players, which the rows carry as ds.
    if (data.info.drawsize <= 0 || data.info.drawtype == "rr")
        for (const auto& row : data.rows)
            data.info.drawsize = std::max(data.info.drawsize, row.ds);
    if (data.rows.empty())
        return std::nullopt;
    return data;
}

OpenRoundRobin round_robin_from_rows(const std::vector<DrawRow>& rows, int players)
{
    OpenRoundRobin rr;
    int n = players;
    for (const auto& row : rows)
        n = std::max({ n, player_number(row.mt), player_number(row.mb) });
    for (int number = 1; number <= n; ++number)
        rr.players.push_back(RrPlayer { number, {}, {}, {}, {}, {}, {} });
    auto keep = [&](int number, const DrawSide& side) {
        auto& p = rr.player(number);
        if (!p.player.empty())
            return;
        p.player = side.ttt;
        p.frn = side.frn;
        p.tag = side.tag;
        p.country = side.country;
    };
    for (const auto& row : rows) {
        RrMatch m;
        m.number = row.match;
        m.sid = row.sid;
        m.top = player_number(row.mt);
        m.bottom = player_number(row.mb);
        m.top_names = { row.top.ttt, row.top.frn, row.top.tag };
        m.bottom_names = { row.bottom.ttt, row.bottom.frn, row.bottom.tag };
        m.points1 = row.points1;
        m.points2 = row.points2;
        m.score = row.matchscore;
        m.longscore = row.matchlongscore;
        const auto* won = row.winner();
        m.winner = !won ? RrWinner::none : won == &row.top ? RrWinner::top : RrWinner::bottom;
        if (m.top >= 1)
            keep(m.top, row.top);
        if (m.bottom >= 1)
            keep(m.bottom, row.bottom);
        rr.matches.push_back(std::move(m));
    }
    std::stable_sort(
        rr.matches.begin(), rr.matches.end(), [](const RrMatch& a, const RrMatch& b) { return a.number < b.number; });
    return rr;
}

} // namespace qv
