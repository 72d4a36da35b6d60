#pragma once

#include "drawengine/name_forms.h"
#include "drawengine/open_draw.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

class Database;
class Session;

// Which player of a match line carries the winner mark.
enum class RrWinner { none = 0, top = 1, bottom = 2 };

// One row of the player table. The number is the place in the group and the key of the match lines.
struct RrPlayer
{
    int number = 0;
    std::string player; // full name (ttt)
    std::string country;
    std::string ar;
    std::string frn; // the table's name column; the uniqueness test of the forms looks only here
    std::string psex; // short sex code
    std::string tag; // not shown in the table, but carried onto the match lines
};

// One match line: player `top` against player `bottom`, with the forms each side shows.
struct RrMatch
{
    int number = 0; // rid and match of the row, 1 .. total_matches(n)
    int top = 0;
    int bottom = 0;
    NameForms top_names;
    NameForms bottom_names;
    std::string points1 = "0";
    std::string points2 = "0";
    std::string score; // matchscore
    std::string longscore; // matchlongscore
    RrWinner winner = RrWinner::none;
    std::int64_t sid = 0; // 0 while the draw is new

    const NameForms& names(RrWinner side) const { return side == RrWinner::bottom ? bottom_names : top_names; }
    // The winner's forms, or empty forms when nobody is marked.
    NameForms winner_names() const { return winner == RrWinner::none ? NameForms {} : names(winner); }
};

// A line of the standings: the table's name and its points, highest first.
struct RrStanding
{
    int number = 0; // the player's number, 0 if the name matched no player
    std::string nm;
    double points = 0;
};

enum class RrCell { none, win, loss };

// The round robin held in memory while the draw area shows it: the player table, the match list and, once
// computed, the standings and the grid of wins.
class OpenRoundRobin
{
public:
    std::vector<RrPlayer> players; // number i at index i-1
    std::vector<RrMatch> matches; // match k at index k-1
    std::vector<RrStanding> standings;
    std::vector<std::vector<RrCell>> grid; // grid[a-1][b-1]: how player a fared against player b

    int size() const { return static_cast<int>(players.size()); }
    bool empty() const { return players.empty(); }
    void clear();

    // 1-based; std::out_of_range outside the draw.
    RrPlayer& player(int number);
    const RrPlayer& player(int number) const;
    RrMatch& match(int number);
    const RrMatch& match(int number) const;

    RrCell cell(int row, int column) const;
    int wins(int number) const;
};

// 1 + 2 + ... + (n-1).
int total_matches(int n);

// The pairs in match order: (1,2), (1,3) .. (1,n), (2,3) .. (n-1,n).
std::vector<std::pair<int, int>> rr_pairings(int n);

// No row of the player table has the candidate as its frn (trimmed, lower case).
bool k_isunique_rr(const OpenRoundRobin& rr, std::string_view candidate);

// Puts a player's forms on every match line where the player stands.
void rr_set(OpenRoundRobin& rr, int number, const NameForms& forms);

// k_fmt_names_current_pre_draw("rr"): the forms of every row of the player table, in number order.
void k_fmt_names_current_pre_draw(Database& tournament, std::int64_t eid, OpenRoundRobin& rr);

// "do draw" of a round robin: the non-reserve entries in name order make the player table and the match list.
// Nothing is written to schedule. False, with the model left empty, for "no players" or a group outside 2..8.
bool RR_do_draw(Session& session, DrawState& draw, OpenRoundRobin& rr);

// One schedule row per match of the open round robin, from max(sid)+1 on. The match lines learn their sids and
// events and the state record their sid range.
void add_draw_stub_RR(Database& tournament, DrawState& draw, OpenRoundRobin& rr);

} // namespace qv
