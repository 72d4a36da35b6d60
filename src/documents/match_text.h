#pragma once

#include "documents/document_options.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

class Statement;
struct DocumentContext;

// brackets_k: the countries of a name in brackets behind each person; a pair "a/b" takes the codes "x/y" in
// the same form, each partner his own.
std::string brackets_k(std::string_view name, std::string_view country);

// A side of a match row ("mt" top, "mb" bottom): the name, its country with "from", its seed with "wqs".
std::string side_text(const Statement& row, std::string_view side, const NameOptions& names);

// The score a line carries: short, long, or both joined by "~" when both are chosen and filled.
std::string score_text(const Statement& row, const ScoreOptions& scores);

// facornot: "fa", "tbc", "dcb" or "cb" for a reserved court, else the court word, a blank and the number.
std::string facornot(std::int64_t cid, std::string_view court_word);

// A match's place on its court: matchnumber_live, or "-" and matchnumber while the live number is 0.
std::string position_text(const Statement& row);

// True when the winner is the top side.
bool top_won(const Statement& row);

// The two sides of a match row: " vs " while it is not played; a dead match names the winner, marked "*",
// with " bt " when the top side won and " lost to " when the bottom side won.
std::string players_text(const Statement& row, const NameOptions& names);

} // namespace qv
