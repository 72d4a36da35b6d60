#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

// Drops every "'": what reaches SQL as a literal has passed a class that refuses quotes, or this.
std::string killquotes(std::string_view text);

// True for null, empty and all-blank values.
// A database null reaches it as nullopt.
bool is_empty(std::optional<std::string_view> value);

// Characters [first, first + count) with first 0-based; empty when the trimmed text is empty.
std::string safe_mid(std::string_view text, std::size_t first, std::size_t count = std::string::npos);

// "a / b" -> {"a", "b"}: split at the first "/", both sides trimmed; with no "/" both stay empty.
struct NamePair
{
    std::string left;
    std::string right;
};
NamePair split_pair(std::string_view name);

// "(" text ")" when the trimmed text is not empty, else empty.
std::string bracket(std::string_view text);

// Removes the state marks "+", "?", "¿", "^" and the tab, then trims.
std::string strip_markers(std::string_view text);

// Inserts a line break after the first blank at or after the 150th character since the last break.
std::string wrap_150(std::string_view text, std::string_view line_break = "\n");

// Stored lists keep their lines joined by "^".
std::string caret_to_lines(std::string_view text, std::string_view line_break = "\n");

// "a^b^rest" -> {"a", "b", "rest"}; the rest keeps any further "^"; missing parts are empty.
std::array<std::string, 3> split_caret(std::string_view text);

// Removes blanks and "'", for the event part of picture file names.
std::string no_blanks_quotes(std::string_view text);

// Keeps the characters that pass vbfilename, turns blanks to "_" and lower-cases.
std::string clean_file_name(std::string_view text);

// Keeps a-z, 0-9, "." and "_" of the lower-cased text, at most 100 characters.
std::string machine_safe(std::string_view text);

// The first n characters, "~", the last 4 characters.
std::string short_name(std::size_t n, std::string_view text);

// The part behind the first "."; empty when there is none.
std::string after_point(std::string_view text);

// The parts of a path by its last separator; "\" and "/" both count. With no separator the whole text is
// the name and the folder is empty.
std::string before_backslash(std::string_view path);
std::string after_backslash(std::string_view path);

// "512 Bytes", "1.50 KB", "2.00 MB", "1.00 GB".
std::string format_file_size(std::uint64_t bytes);

// "male.female" -> "mf", "female" -> "f"; anything else gives the empty text.
std::string sex_code(std::string_view text);

// 2 -> 1, 4 -> 2 ... 128 -> 7; any other size 0.
int log2_of_draw(int drawsize);
int round_count(int drawsize);

// The number of matches of a round-robin group of n: 1 + 2 + ... + (n-1).
int triangle(int n);

// Trims, then the first letter upper case and all the rest lower case.
std::string first_cap(std::string_view text);

// The next power of two at least n, from 2 to 256; 0 (the empty size) for any n outside 1..256.
int calcdrawsize(int n);

// Names made by draws: trimmed and lower-cased, beginning "qualifier", "wildcard" or "bye".
bool is_reserved(std::string_view name);
// The test of player lists: trimmed but case kept, and the empty name counts as reserved.
bool is_reserved_exact(std::string_view name);
// A typed name may not pose as the stand-in of a missing partner. Lower-cased, not trimmed.
bool is_partner_required_name(std::string_view name);

// Round-robin lists add seed and country in brackets: drops the text from the first "(" on, then trims.
std::string strip_first_bracket(std::string_view name);

} // namespace qv
