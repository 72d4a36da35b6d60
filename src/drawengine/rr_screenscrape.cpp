#include "drawengine/rr_screenscrape.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/utf8.h"
#include "drawengine/rr_saving.h"

#include <array>
#include <optional>

namespace qv {

namespace {

// The win columns of rr_screenscrape: one per possible opponent of a group of at most 8.
constexpr std::array<std::string_view, 8> win_columns = { "w1", "w2", "w3", "w4", "w5", "w6", "w7", "w8" };

std::optional<std::string_view> win_column(int opponent)
{
    if (opponent < 1 || opponent > static_cast<int>(win_columns.size()))
        return std::nullopt;
    return win_columns[static_cast<std::size_t>(opponent - 1)];
}

void set_win(Database& db, int player, int opponent, bool won)
{
    const auto column = win_column(opponent);
    if (!column || player < 1)
        return;
    db.run("update rr_screenscrape set " + std::string(*column) + "=? where idx=?", won ? 1 : 0, player);
}

std::string side_name(const RrMatch& m, RrWinner side)
{
    auto name = m.names(side).ttt;
    if (m.winner == side)
        name += "*";
    return name;
}

} // namespace

RrScrapeBlocks rr_screenscrape_blocks(Database& db, const OpenRoundRobin& rr)
{
    const int n = rr.size();
    db.run("delete from rr_screenscrape");
    for (const auto& p : rr.players)
        db.run(
            "insert into rr_screenscrape (idx, frn, tag, ttt) values (?, ?, ?, ?)", p.number, p.frn, p.tag, p.player);
    for (const auto& m : rr.matches) {
        set_win(db, m.top, m.bottom, m.winner == RrWinner::top);
        set_win(db, m.bottom, m.top, m.winner == RrWinner::bottom);
    }
    db.run("update rr_screenscrape set totalwins=w1 + w2 + w3 + w4 + w5 + w6 + w7 + w8");

    RrScrapeBlocks blocks;
    std::string header = "#,name,";
    for (int i = 1; i <= n; ++i)
        header += std::to_string(i) + ",";
    blocks.wins.push_back(header + "total wins");
    for (auto row = db.query("select * from rr_screenscrape order by idx"); row.step();) {
        std::string line = std::to_string(row.integer("idx")) + "," + row.text("ttt") + ",";
        for (int i = 1; i <= n; ++i)
            line += std::to_string(row.integer(*win_column(i))) + ",";
        blocks.wins.push_back(line + std::to_string(row.integer("totalwins")));
    }

    auto add_points = db.query("Update rr_screenscrape set points=points + ? where idx=?");
    for (const auto& m : rr.matches) {
        for (const auto& [points, player] : { std::pair { &m.points1, m.top }, std::pair { &m.points2, m.bottom } }) {
            add_points.reset();
            add_points.bind_all(rr_points_value(*points), player);
            add_points.step();
        }
    }
    blocks.points.push_back("#,name,points");
    int position = 0;
    // rowid: equal points stay in number order.
    for (auto row = db.query("Select * from rr_screenscrape order by points desc, rowid"); row.step();)
        blocks.points.push_back(std::to_string(++position) + "," + row.text("ttt") + ","
            + left_chars(rr_points_text(row.real("points")), 3));

    blocks.matches.push_back("#,p1,p2,score,points1,points2");
    for (const auto& m : rr.matches)
        blocks.matches.push_back(std::to_string(m.number) + "," + side_name(m, RrWinner::top) + ","
            + side_name(m, RrWinner::bottom) + "," + m.score + "," + m.points1 + "," + m.points2);

    blocks.countries.push_back("#,name,country");
    for (const auto& p : rr.players)
        blocks.countries.push_back(std::to_string(p.number) + "," + p.player + "," + p.country);
    return blocks;
}

std::vector<std::string> rr_screenscrape_lines(Database& tournament, const OpenRoundRobin& rr)
{
    const auto blocks = rr_screenscrape_blocks(tournament, rr);
    std::vector<std::string> lines;
    bool first = true;
    for (const auto* block : { &blocks.wins, &blocks.points, &blocks.matches, &blocks.countries }) {
        if (!first)
            lines.insert(lines.end(), { std::string(), std::string() });
        first = false;
        lines.insert(lines.end(), block->begin(), block->end());
    }
    return lines;
}

bool rr_screenscrape(Session& session, const OpenRoundRobin& rr)
{
    return save_text_file_as(
        session, "rr_screenscrape.txt", session.dirs().working, rr_screenscrape_lines(session.tournament(), rr))
        .has_value();
}

} // namespace qv
