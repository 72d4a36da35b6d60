#include "drawengine/rr_saving.h"

#include "core/database.h"
#include "core/match_record.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "drawengine/rr_scoring.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace qv {

namespace {

// The columns that have a shadow twin, in the order the save and the rollback list them.
constexpr std::string_view shadowed_columns[] = { "mtttt", "mtfrn", "mttag", "mbttt", "mbfrn", "mbtag", "mwttt",
    "mwfrn", "mwtag", "p1", "p2", "p3", "p4", "mtseeding", "mbseeding", "mtar", "mbar", "mtsex", "mbsex", "mt_country",
    "mb_country", "matchscore", "matchlongscore", "points1", "points2" };

enum class Direction { shadow_to_live, live_to_shadow };

// One statement for the whole event, limited to the changed rows.
std::string copy_statement(Direction direction)
{
    std::string sql = " Update schedule set ";
    for (auto column : shadowed_columns) {
        const auto live = std::string(column);
        const auto shadow = "i" + live;
        sql += direction == Direction::shadow_to_live ? " " + live + "=" + shadow + ","
                                                      : " " + shadow + "=" + live + ",";
    }
    sql += " changed=0 where eid=? and changed=1";
    return sql;
}

// The people of a side: a pair splits at "/", a single player stands alone.
NamePair side_people(const std::string& name)
{
    if (name.find('/') != std::string::npos)
        return split_pair(name);
    return { name, {} };
}

int number_of(std::string_view text)
{
    int value = 0;
    const auto trimmed = trim(text);
    auto [end, error] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
    if (error != std::errc {} || end != trimmed.data() + trimmed.size())
        return 0;
    return value;
}

RrMatch* find_match(OpenRoundRobin& rr, int match)
{
    if (match < 1 || match > static_cast<int>(rr.matches.size()))
        return nullptr;
    return &rr.match(match);
}

// What every act on a line ends with. A new draw has no rows yet, so only its standings follow the act.
void after_change(Session& session, DrawState& draw, OpenRoundRobin& rr, int match)
{
    if (draw.new_draw)
        rr_refresh_standings(session.tournament(), rr);
    else
        RR_imm_save(session, draw, rr, match);
}

} // namespace

void RR_savecontrols(Database& tournament, const DrawState& draw, OpenRoundRobin& rr)
{
    struct Row
    {
        std::int64_t sid = 0;
        int match = 0;
    };
    std::vector<Row> rows;
    for (auto q
         = tournament.query(R"(select sid, "match" from schedule where eid = ? order by "match")", draw.curr_eid);
         q.step();)
        rows.push_back({ q.integer("sid"), static_cast<int>(q.integer("match")) });

    Transaction transaction(tournament);
    auto update = tournament.query(R"(update schedule set
        mtttt = ?1, imtttt = ?1, mtfrn = ?2, imtfrn = ?2, mttag = ?3, imttag = ?3,
        mbttt = ?4, imbttt = ?4, mbfrn = ?5, imbfrn = ?5, mbtag = ?6, imbtag = ?6,
        mwttt = ?7, imwttt = ?7, mwfrn = ?8, imwfrn = ?8, mwtag = ?9, imwtag = ?9,
        matchscore = ?10, imatchscore = ?10, matchlongscore = ?11, imatchlongscore = ?11,
        mt_country = ?12, imt_country = ?12, mb_country = ?13, imb_country = ?13,
        mtseeding = '', imtseeding = '', mbseeding = '', imbseeding = '',
        mtar = ?14, imtar = ?14, mbar = ?15, imbar = ?15, mtsex = ?16, imtsex = ?16, mbsex = ?17, imbsex = ?17,
        p1 = ?18, ip1 = ?18, p2 = ?19, ip2 = ?19, p3 = ?20, ip3 = ?20, p4 = ?21, ip4 = ?21,
        points1 = ?22, ipoints1 = ?22, points2 = ?23, ipoints2 = ?23, changed = 0
        where eid = ?24 and sid = ?25)");
    for (const auto& row : rows) {
        auto* m = find_match(rr, row.match);
        if (!m)
            continue;
        const auto& top = rr.player(m->top);
        const auto& bottom = rr.player(m->bottom);
        const auto winner = m->winner_names();
        const auto top_people = side_people(m->top_names.ttt);
        const auto bottom_people = side_people(m->bottom_names.ttt);
        update.reset();
        update.bind_all(m->top_names.ttt, m->top_names.frn, m->top_names.tag, m->bottom_names.ttt, m->bottom_names.frn,
            m->bottom_names.tag, winner.ttt, winner.frn, winner.tag, m->score, m->longscore, top.country,
            bottom.country, top.ar, bottom.ar, top.psex, bottom.psex, top_people.left, top_people.right,
            bottom_people.left, bottom_people.right, m->points1, m->points2, draw.curr_eid, row.sid);
        update.step();
        m->sid = row.sid;
    }
    transaction.commit();
}

void RR_copy_over(Database& tournament, std::int64_t eid)
{
    tournament.run(copy_statement(Direction::shadow_to_live), eid);
}

void RR_copy_back(Database& tournament, std::int64_t eid)
{
    tournament.run(copy_statement(Direction::live_to_shadow), eid);
}

bool RR_rollback_draw(Session& session, DrawState& draw, OpenRoundRobin& rr)
{
    if (session.settings().integer("draw.isaveasugo") == 1) {
        session.talk().message(
            "Cannot roll back as you are in 'save as u go mode', all changes are therefore immediate");
        return false;
    }
    if (draw.new_draw || draw.curr_eid == 0)
        return false;
    auto& db = session.tournament();
    RR_copy_back(db, draw.curr_eid);
    draw.changes_waiting = false;
    RR_loadroundsdata(db, draw, rr);
    return true;
}

void RR_set_changed(Database& tournament, std::int64_t eid)
{
    tournament.run(" update schedule set changed=0 where  eid=?", eid);
    tournament.run(" update schedule set changed=1 where ("
                   "(matchscore <> imatchscore) or"
                   "(matchlongscore <>imatchlongscore) or"
                   "(points1 <> ipoints1) or"
                   "(points2 <>ipoints2) or"
                   "(mwttt <>imwttt) or"
                   "(mwfrn <>imwfrn) or "
                   "(mwtag <>imwtag)) and eid=?",
        eid);
}

bool RR_set_changed_recs(Database& tournament, std::int64_t eid)
{
    return tournament.scalar_integer("select count(*) from schedule where changed=1 and eid=?", eid) > 0;
}

bool RR_imm_save(Session& session, DrawState& draw, OpenRoundRobin& rr, int match)
{
    auto& db = session.tournament();
    if (draw.new_draw)
        return true;
    auto* m = find_match(rr, match);
    if (!m)
        return RR_set_changed_recs(db, draw.curr_eid);
    rr_apply_scoring(*m, draw.pts);

    const bool save_as_u_go = session.settings().integer("draw.isaveasugo") == 1;
    const auto winner = m->winner_names();
    Transaction transaction(db);
    db.run(R"(update schedule set imwttt = ?, imwfrn = ?, imwtag = ?, imatchscore = ?, imatchlongscore = ?,
        ipoints1 = ?, ipoints2 = ? where eid = ? and "match" = ?)",
        winner.ttt, winner.frn, winner.tag, m->score, m->longscore, m->points1, m->points2, draw.curr_eid, match);
    if (save_as_u_go)
        db.run(R"(update schedule set mwttt = ?, mwfrn = ?, mwtag = ?, matchscore = ?, matchlongscore = ?,
            points1 = ?, points2 = ? where eid = ? and "match" = ?)",
            winner.ttt, winner.frn, winner.tag, m->score, m->longscore, m->points1, m->points2, draw.curr_eid, match);
    RR_set_changed(db, draw.curr_eid);
    // With no save to follow, the schedule board must see the winner now, as a knock-out result does.
    if (save_as_u_go)
        recompute_match_states(db, draw.curr_eid);
    transaction.commit();

    rr_refresh_standings(db, rr);
    draw.changes_waiting = RR_set_changed_recs(db, draw.curr_eid);
    return draw.changes_waiting;
}

void RR_loadroundsdata(Database& tournament, DrawState& draw, OpenRoundRobin& rr)
{
    rr.clear();
    std::vector<RrMatch> matches;
    std::map<int, RrPlayer> players;
    int n = 0;
    std::int64_t first_sid = 0;
    std::int64_t last_sid = 0;
    auto keep_player = [&](int number, const NameForms& names, std::string country, std::string ar, std::string sex) {
        if (number < 1 || players.count(number))
            return;
        players[number]
            = RrPlayer { number, names.ttt, std::move(country), std::move(ar), names.frn, std::move(sex), names.tag };
    };

    for (auto row = tournament.query(R"(select * from schedule where eid = ?  order by sid)", draw.curr_eid);
         row.step();) {
        if (matches.empty())
            first_sid = row.integer("sid");
        last_sid = row.integer("sid");
        RrMatch m;
        m.number = static_cast<int>(row.integer("match"));
        m.sid = row.integer("sid");
        m.top = number_of(row.text("mt"));
        m.bottom = number_of(row.text("mb"));
        m.top_names = { row.text("imtttt"), row.text("imtfrn"), row.text("imttag") };
        m.bottom_names = { row.text("imbttt"), row.text("imbfrn"), row.text("imbtag") };
        m.points1 = row.text("ipoints1");
        m.points2 = row.text("ipoints2");
        m.score = row.text("imatchscore");
        m.longscore = row.text("imatchlongscore");
        const auto winner = row.text("imwttt");
        if (!trim(winner).empty() && same_name(winner, m.top_names.ttt))
            m.winner = RrWinner::top;
        else if (!trim(winner).empty() && same_name(winner, m.bottom_names.ttt))
            m.winner = RrWinner::bottom;
        keep_player(m.top, m.top_names, row.text("imt_country"), row.text("imtar"), row.text("imtsex"));
        keep_player(m.bottom, m.bottom_names, row.text("imb_country"), row.text("imbar"), row.text("imbsex"));
        n = std::max({ n, static_cast<int>(row.integer("ds")), m.top, m.bottom });
        matches.push_back(std::move(m));
    }
    if (matches.empty()) {
        draw.drawsize = 0;
        return;
    }
    draw.min_sid = first_sid;
    draw.max_sid = last_sid;
    draw.drawsize = n;
    draw.rounds = 0;
    for (int number = 1; number <= n; ++number) {
        auto found = players.find(number);
        rr.players.push_back(found != players.end() ? found->second : RrPlayer { number, {}, {}, {}, {}, {}, {} });
    }
    std::sort(matches.begin(), matches.end(), [](const RrMatch& a, const RrMatch& b) { return a.number < b.number; });
    rr.matches = std::move(matches);
    rr_refresh_standings(tournament, rr);
}

void rr_refresh_standings(Database& tournament, OpenRoundRobin& rr)
{
    const int n = rr.size();
    rr.grid.assign(static_cast<std::size_t>(n), std::vector<RrCell>(static_cast<std::size_t>(n), RrCell::none));
    for (const auto& m : rr.matches) {
        if (m.winner == RrWinner::none || m.top < 1 || m.bottom < 1 || m.top > n || m.bottom > n)
            continue;
        const int winner = m.winner == RrWinner::top ? m.top : m.bottom;
        const int loser = m.winner == RrWinner::top ? m.bottom : m.top;
        rr.grid[static_cast<std::size_t>(winner - 1)][static_cast<std::size_t>(loser - 1)] = RrCell::win;
        rr.grid[static_cast<std::size_t>(loser - 1)][static_cast<std::size_t>(winner - 1)] = RrCell::loss;
    }

    // No transaction of its own: a save may call this while its own is open.
    tournament.run("delete from alist10_rr");
    {
        auto insert = tournament.query("insert into alist10_rr (nm, points) values (?, 0)");
        for (const auto& p : rr.players) {
            insert.reset();
            insert.bind_all(p.frn);
            insert.step();
        }
        auto add = tournament.query("Update alist10_rr set points=points + ? where nm=?");
        for (const auto& m : rr.matches) {
            for (const auto& [points, name] :
                { std::pair { &m.points1, &m.top_names.frn }, std::pair { &m.points2, &m.bottom_names.frn } }) {
                add.reset();
                add.bind_all(rr_points_value(*points), *name);
                add.step();
            }
        }
    }
    rr.standings.clear();
    // rowid keeps equal points in the table's order; nothing else breaks a tie.
    for (auto row = tournament.query("Select nm, points from alist10_rr order by points desc, rowid"); row.step();) {
        RrStanding standing { 0, row.text("nm"), row.real("points") };
        for (const auto& p : rr.players)
            if (same_name(p.frn, standing.nm)) {
                standing.number = p.number;
                break;
            }
        rr.standings.push_back(std::move(standing));
    }
}

std::string rr_points_text(double points)
{
    // Fifteen digits, as a number is shown to the user: sums of typed tenths such as 0.1 + 0.2 show "0.3",
    // not the binary remainder.
    char buffer[32];
    auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, points, std::chars_format::general, 15);
    if (error != std::errc {})
        return "0";
    return std::string(buffer, end);
}

double rr_points_value(std::string_view text)
{
    const auto trimmed = trim(text);
    double value = 0;
    auto [end, error] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
    if (error != std::errc {} || end != trimmed.data() + trimmed.size())
        return 0;
    return value;
}

void rr_click_name(Session& session, DrawState& draw, OpenRoundRobin& rr, int match, RrWinner side)
{
    auto* m = find_match(rr, match);
    if (!m)
        return;
    rr_toggle_winner(*m, side);
    rr_apply_scoring(*m, draw.pts);
    after_change(session, draw, rr, match);
}

bool rr_type_points(
    Session& session, DrawState& draw, OpenRoundRobin& rr, int match, RrWinner side, std::string_view text)
{
    auto* m = find_match(rr, match);
    if (!m || side == RrWinner::none || !rr_boxes(draw.pts).points_open)
        return false;
    (side == RrWinner::top ? m->points1 : m->points2) = filter_text_rr_points(text);
    rr_apply_scoring(*m, draw.pts);
    after_change(session, draw, rr, match);
    return true;
}

bool rr_type_score(Session& session, DrawState& draw, OpenRoundRobin& rr, int match, std::string_view text)
{
    auto* m = find_match(rr, match);
    if (!m || !rr_boxes(draw.pts).score_open)
        return false;
    m->score = filter_text_rr(text);
    rr_apply_scoring(*m, draw.pts);
    after_change(session, draw, rr, match);
    return true;
}

void rr_set_long_score(Session& session, DrawState& draw, OpenRoundRobin& rr, int match, std::string_view score,
    std::string_view longscore)
{
    auto* m = find_match(rr, match);
    if (!m)
        return;
    m->score = filter_text_rr(score);
    m->longscore = std::string(longscore);
    rr_apply_scoring(*m, draw.pts);
    after_change(session, draw, rr, match);
}

} // namespace qv
