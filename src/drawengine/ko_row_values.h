#pragma once

#include "drawengine/open_draw.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

// The values of one side of a knock-out match row, as the open draw holds them (get_vals).
struct SideVals
{
    std::string frn, ttt, tag;
    std::string wfrn, wttt, wtag; // the winner: the slot the match feeds, empty while that is empty
    std::string score, longscore; // from that slot's score box
    std::string country, seeding, ar, sex;
    std::string pa, pb; // the side's people: a pair split at "/"
};

// A column of schedule with its value.
using Column = std::pair<std::string, std::string>;

// A name's people: a pair split at "/", a single name and an empty second.
std::pair<std::string, std::string> split_people(const std::string& name);

// get_vals: the values of the side whose slot is at (level, position); the winner and the scores come from the
// slot the match feeds.
SideVals get_vals(const OpenDraw& open, int level, int position);

// The columns of one side with their values, in a fixed order: frn, ttt, tag, the winner's three forms, the two
// scores, country, seeding, ar, sex and the two people. Names are made from the prefix "i" or "" and the side
// 't' or 'b'.
std::vector<Column> side_columns(std::string_view prefix, char side, const SideVals& vals);

} // namespace qv
