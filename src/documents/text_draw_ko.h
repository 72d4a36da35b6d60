#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;

// What a text draw shows beyond the matches.
enum class NextRoundPointers { off, on };
enum class TextDrawCountries { off, on };

// A side of a text draw: its seed in brackets, then the name; with countries each person's code in brackets
// behind the person, in a pair on each side of the "/".
std::string text_draw_side(
    std::string_view seeding, std::string_view name, std::string_view country, TextDrawCountries countries);

// The match number of the next match of a slot "l.p" (the sum of drawsize/2, drawsize/4 .. over the rounds
// before level l, plus the match of p within its level); 0 for an address that is no slot.
int next_match_number(int drawsize, std::string_view mw_ptr);

// The lines of a knock-out draw as text, one line a match: the title, an empty line, then each round after an
// empty line. The winner row stays out.
std::vector<std::string> text_draw_ko_lines(Database& tournament, int drawsize, std::int64_t eid,
    std::string_view title, NextRoundPointers pointers, TextDrawCountries countries);

// text_draw_ko: those lines written to the file. False when it cannot be written.
bool text_draw_ko(const std::filesystem::path& file, Database& tournament, int drawsize, std::int64_t eid,
    std::string_view title, NextRoundPointers pointers, TextDrawCountries countries);

} // namespace qv
