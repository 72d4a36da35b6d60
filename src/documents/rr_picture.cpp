#include "documents/rr_picture.h"

#include "documents/ko_picture.h"
#include "documents/picture_title.h"
#include "drawengine/rr_saving.h"
#include "drawengine/rr_scoring.h"

#include <algorithm>

namespace qv {

namespace {

using namespace rr_twips;

constexpr int head_font = 7 * twips_per_point;
constexpr int end_gap = 10;

// A cell of one of the tables: framed, and for a head cell filled and bold (rr_set_header_colours).
PictureCell table_cell(std::string name, int index, int left, int top, int width, std::string text, bool head = false)
{
    auto cell = make_cell(std::move(name), index, left, top, width, row);
    cell.text = std::move(text);
    cell.frame = CellFrame::box;
    if (head) {
        cell.filled = true;
        cell.fill = rr_head_fill;
        cell.bold = true;
        cell.font_twips = head_font;
        cell.align = CellAlign::centre;
    }
    return cell;
}

struct Column
{
    const char* head;
    const char* name;
    int width;
};

// The match list's columns in the order of rr_set_header.
constexpr Column match_columns[] = { { "#", "rr_matchnum", number }, { "time", "rr_time", time },
    { "player1", "rr_p1", name }, { " v ", "rr_v", versus }, { "player2", "rr_p2", name },
    { "score", "rr_score", score }, { "points1", "rr_points1", points }, { "points2", "rr_points2", points } };

int match_list_width()
{
    int width = 0;
    for (const auto& column : match_columns)
        width += column.width;
    return width;
}

std::string wl_text(RrCell cell)
{
    return cell == RrCell::win ? "w" : cell == RrCell::loss ? "l" : "";
}

// set_header_g1 and the grid: number, name, a cell per opponent (loadd_wl), total wins.
int grid(PictureLayout& layout, const OpenRoundRobin& rr, int top, const PictureOptions& options)
{
    const int n = rr.size();
    int x = title_twips::left;
    int head = 0;
    layout.add(table_cell("header_g1", ++head, x, top, number, "#", true));
    layout.add(table_cell("header_g1", ++head, x += number, top, name, "name", true));
    x += name;
    for (int j = 1; j <= n; ++j)
        layout.add(table_cell("header_g1", ++head, x + (j - 1) * wl, top, wl, std::to_string(j), true));
    const int total_left = x + n * wl;
    layout.add(table_cell("header_g1", ++head, total_left, top, total, "wins", true));

    for (int i = 1; i <= n; ++i) {
        const int y = top + i * row;
        layout.add(table_cell("g1_number", i, title_twips::left, y, number, std::to_string(i)));
        layout.add(table_cell("g1_ttt", i, title_twips::left + number, y, name, rr.player(i).player));
        for (int j = 1; j <= n; ++j) {
            auto cell = table_cell("g" + std::to_string(j) + "_wl", i, x + (j - 1) * wl, y, wl, wl_text(rr.cell(i, j)));
            cell.align = CellAlign::centre;
            if (cell.text.empty() && options.fill_rr_voids) {
                cell.filled = true;
                cell.fill = rr_head_fill;
            }
            layout.add(std::move(cell));
        }
        auto wins = table_cell("g1_total", i, total_left, y, total, std::to_string(rr.wins(i)));
        wins.align = CellAlign::centre;
        layout.add(std::move(wins));
    }
    return total_left + total;
}

// set_header_standings and the standings, highest points first.
int standings(PictureLayout& layout, const OpenRoundRobin& rr, int left, int top)
{
    layout.add(table_cell("header_standings", 1, left, top, name, "name", true));
    layout.add(table_cell("header_standings", 2, left + name, top, total, "points", true));
    int k = 0;
    for (const auto& standing : rr.standings) {
        const int y = top + (++k) * row;
        const auto& shown = standing.number >= 1 ? rr.player(standing.number).player : standing.nm;
        layout.add(table_cell("g2_ttt", k, left, y, name, shown));
        auto points_cell = table_cell("g2_total", k, left + name, y, total, rr_points_text(standing.points));
        points_cell.align = CellAlign::centre;
        layout.add(std::move(points_cell));
    }
    return left + name + total;
}

std::string side_text(const RrMatch& match, RrWinner side)
{
    return match.names(side).ttt + (match.winner == side ? "*" : "");
}

// rr_set_header and the list of matches; RR_set_time puts each match's time and place in its line.
void match_list(
    PictureLayout& layout, const OpenRoundRobin& rr, const DrawData& draw, int top, const PictureOptions& options)
{
    int x = title_twips::left;
    int head = 0;
    for (const auto& column : match_columns) {
        layout.add(table_cell("rr_header", ++head, x, top, column.width, column.head, true));
        x += column.width;
    }
    for (const auto& match : rr.matches) {
        const DrawRow* source = nullptr;
        for (const auto& r : draw.rows)
            if (r.match == match.number)
                source = &r;
        const std::string texts[] = { std::to_string(match.number),
            options.times && source && !source->winner() ? settsdisplay(*source, options) : std::string(),
            side_text(match, RrWinner::top), " v ", side_text(match, RrWinner::bottom), match.score, match.points1,
            match.points2 };
        const int y = top + match.number * row;
        x = title_twips::left;
        for (std::size_t c = 0; c < std::size(match_columns); ++c) {
            auto cell = table_cell(match_columns[c].name, match.number, x, y, match_columns[c].width, texts[c]);
            if (c == 1)
                cell.font_twips = 6 * twips_per_point;
            layout.add(std::move(cell));
            x += match_columns[c].width;
        }
    }
}

} // namespace

PictureLayout rr_picture(Database& scratch, const DrawData& draw, const PictureOptions& options)
{
    auto rr = round_robin_from_rows(draw.rows, draw.info.drawsize);
    rr_refresh_standings(scratch, rr);
    const int n = rr.size();
    const int m = static_cast<int>(rr.matches.size());

    PictureLayout layout;
    const int grid_width = number + name + n * wl + total;
    const int content_width = std::max(grid_width + gap + name + total, match_list_width());
    set_tn_dts_en(layout, draw.info, content_width);

    int y = title_twips::head_top;
    auto scoring = make_cell("scoring_convention", 0, title_twips::left, y, content_width, line);
    scoring.text = RR_set_scoring(draw.info.pts);
    scoring.font_twips = head_font;
    layout.add(std::move(scoring));
    auto players = make_cell("rr_players", 0, title_twips::left, y + line, content_width, line);
    players.text = std::to_string(n) + " players";
    players.font_twips = head_font;
    layout.add(std::move(players));

    const int grid_top = y + 2 * line + 60;
    const int grid_right = grid(layout, rr, grid_top, options);
    standings(layout, rr, grid_right + gap, grid_top);
    const int list_top = grid_top + (n + 2) * row;
    match_list(layout, rr, draw, list_top, options);

    const int end_top = list_top + (m + 1) * row + end_gap;
    add_site_and_time(layout, "rrtimestamp", draw.info, end_top, content_width, options);
    layout.width = title_twips::left + content_width + 150 + ko_twips::clip;
    layout.height = end_top + ko_twips::head_inner + ko_twips::clip;
    return layout;
}

} // namespace qv
