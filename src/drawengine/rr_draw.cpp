#include "drawengine/rr_draw.h"

#include "core/database.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "drawengine/ko_generation.h"

#include <stdexcept>

namespace qv {

void OpenRoundRobin::clear()
{
    players.clear();
    matches.clear();
    standings.clear();
    grid.clear();
}

RrPlayer& OpenRoundRobin::player(int number)
{
    return const_cast<RrPlayer&>(static_cast<const OpenRoundRobin&>(*this).player(number));
}

const RrPlayer& OpenRoundRobin::player(int number) const
{
    if (number < 1 || number > size())
        throw std::out_of_range("no player " + std::to_string(number) + " in the round robin");
    return players[static_cast<std::size_t>(number - 1)];
}

RrMatch& OpenRoundRobin::match(int number)
{
    return const_cast<RrMatch&>(static_cast<const OpenRoundRobin&>(*this).match(number));
}

const RrMatch& OpenRoundRobin::match(int number) const
{
    if (number < 1 || number > static_cast<int>(matches.size()))
        throw std::out_of_range("no match " + std::to_string(number) + " in the round robin");
    return matches[static_cast<std::size_t>(number - 1)];
}

RrCell OpenRoundRobin::cell(int row, int column) const
{
    if (row < 1 || column < 1 || row > static_cast<int>(grid.size()))
        return RrCell::none;
    const auto& line = grid[static_cast<std::size_t>(row - 1)];
    if (column > static_cast<int>(line.size()))
        return RrCell::none;
    return line[static_cast<std::size_t>(column - 1)];
}

int OpenRoundRobin::wins(int number) const
{
    int count = 0;
    for (int column = 1; column <= size(); ++column)
        count += cell(number, column) == RrCell::win;
    return count;
}

int total_matches(int n)
{
    return triangle(n);
}

std::vector<std::pair<int, int>> rr_pairings(int n)
{
    std::vector<std::pair<int, int>> pairs;
    for (int i = 1; i <= n; ++i)
        for (int j = i + 1; j <= n; ++j)
            pairs.emplace_back(i, j);
    return pairs;
}

bool k_isunique_rr(const OpenRoundRobin& rr, std::string_view candidate)
{
    const auto key = form_key(candidate);
    for (const auto& row : rr.players)
        if (form_key(row.frn) == key)
            return false;
    return true;
}

void rr_set(OpenRoundRobin& rr, int number, const NameForms& forms)
{
    for (auto& m : rr.matches) {
        if (m.top == number)
            m.top_names = forms;
        if (m.bottom == number)
            m.bottom_names = forms;
    }
}

void k_fmt_names_current_pre_draw(Database& tournament, std::int64_t eid, OpenRoundRobin& rr)
{
    k_fmt_names(
        tournament, eid, rr.size(), [&](int i) { return rr.player(i).player; },
        [&](int i, const NameForms& forms) {
            auto& row = rr.player(i);
            row.frn = forms.frn;
            row.tag = forms.tag;
            rr_set(rr, i, forms);
        },
        [&](std::string_view candidate) { return k_isunique_rr(rr, candidate); });
}

bool RR_do_draw(Session& session, DrawState& draw, OpenRoundRobin& rr)
{
    auto& db = session.tournament();
    const auto eid = draw.curr_eid;
    rr.clear();
    const auto n = db.scalar_integer("select count(*) from evententries where eid = ? and reserve = 0", eid);
    if (n == 0) {
        if (!draw.all_draws)
            session.talk().message("no players");
        return false;
    }
    // "do all draws" silences only the empty event: a group of the wrong size needs the user's hand.
    if (n < 2 || n > 8) {
        session.talk().message("round robin format is for 2-8 players,edit in draw config");
        return false;
    }

    Transaction transaction(db);
    if (session.settings().integer("refresh_ac_on_do_draw") == 1)
        pull_ar_countries(db, eid);

    // The name order is the order of the numbers: a round robin has no seeding and no chance.
    int number = 0;
    for (auto rows = db.query(
             "select player, country, ar, psex from evententries where eid = ? and reserve = 0 order by player, rowid",
             eid);
         rows.step();) {
        RrPlayer row;
        row.number = ++number;
        row.player = rows.text("player");
        row.country = rows.text("country");
        row.ar = rows.text("ar");
        // Until its forms are made a row shows its full name, so later rows test against full names.
        row.frn = row.tag = row.player;
        row.psex = sex_code(rows.text("psex"));
        rr.players.push_back(std::move(row));
    }

    for (const auto& [top, bottom] : rr_pairings(rr.size())) {
        RrMatch m;
        m.number = static_cast<int>(rr.matches.size()) + 1;
        m.top = top;
        m.bottom = bottom;
        const auto& t = rr.player(top);
        const auto& b = rr.player(bottom);
        m.top_names = { t.player, t.frn, t.tag };
        m.bottom_names = { b.player, b.frn, b.tag };
        m.score = draw.pts == 1 ? "0/0" : "";
        rr.matches.push_back(std::move(m));
    }

    k_fmt_names_current_pre_draw(db, eid, rr);
    transaction.commit();

    draw.drawsize = rr.size();
    draw.rounds = 0;
    draw.on_screen = true;
    draw.new_draw = true;
    return true;
}

void add_draw_stub_RR(Database& tournament, DrawState& draw, OpenRoundRobin& rr)
{
    if (rr.matches.empty())
        return;
    std::int64_t sid = 1;
    if (auto max = tournament.query("select max(sid) as maxsid from schedule"); max.step() && !max.is_null("maxsid"))
        sid = max.integer("maxsid") + 1;
    const auto min_sid = sid;
    const int n = rr.size();
    const int maxrounds = total_matches(n);

    Transaction transaction(tournament);
    auto insert = tournament.query(R"(insert into schedule (eid, drawtype, singdobs, eventname, evtsex, ds, rid,
        "match", maxrounds, rname, rsname, sid, mt, mb, match_state, points1, points2, matchtime_int,
        scheduledate, prev_match_state, p1, p2, p3, p4, ip1, ip2, ip3, ip4, mtttt, mbttt, mwtag, mtfrn,
        imtttt, imbttt, imwtag, imtfrn, matchscore, matchlongscore, nbat, matchtime,
        p1_matchnote, p2_matchnote, p3_matchnote, p4_matchnote, mg_matchnote)
        values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '2', '0', '0', -1,
        '', '', '', '', '', '', '', '', '', '', '', '', '', '',
        '', '', '', '', '', '', '', '',
        '', '', '', '', ''))");
    for (auto& m : rr.matches) {
        const auto of = std::to_string(m.number) + "/" + std::to_string(maxrounds);
        insert.reset();
        insert.bind_all(draw.curr_eid, draw.drawtype, draw.singdobs, draw.eventname, draw.evtsex, n, m.number, m.number,
            maxrounds, "match " + of, of, sid, std::to_string(m.top), std::to_string(m.bottom));
        insert.step();
        m.sid = sid++;
    }
    const auto last_sid = sid - 1;
    tournament.run("update events set min_sid = ?, max_sid = ? where eid = ?", min_sid, last_sid, draw.curr_eid);
    transaction.commit();

    draw.min_sid = min_sid;
    draw.max_sid = last_sid + 1;
}

} // namespace qv
