#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// One set of a score as the Tennis Open Data Standard counts it: games of each side, a tie-break's loser points.
struct TodsSet
{
    int side1 = 0;
    int side2 = 0;
    std::optional<int> tiebreak_loser;
};

// A typed score read for the standard. Scores are written from the winner's side ("64 36 76(5)"); sides 1 and 2
// are the top and the bottom of the match. Sets are read only when every word of the score is a set ("6-4",
// "6/4", "64", each with an optional tie-break in brackets); anything else keeps only its text.
struct TodsScore
{
    std::string side1_text;
    std::string side2_text;
    std::vector<TodsSet> sets;
};

// winning_side: 1 or 2; 0 when no winner is known (then the score is taken as written, from side 1).
TodsScore tods_score(std::string_view score, int winning_side);

} // namespace qv
