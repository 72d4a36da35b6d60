#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv {

// Text inside the program is UTF-8; rules that count or test characters work on code points, so "¿"
// (two bytes) is one character. A byte that is not valid UTF-8 decodes as U+FFFD.
std::u32string decode_utf8(std::string_view text);
std::string encode_utf8(std::u32string_view chars);
std::string encode_utf8(char32_t c);
void append_utf8(std::string& out, char32_t c);

std::size_t char_count(std::string_view text);

// Character-based slices: first is 0-based, counts are in characters and clip at the end of the text.
std::string left_chars(std::string_view text, std::size_t count);
std::string right_chars(std::string_view text, std::size_t count);
std::string mid_chars(std::string_view text, std::size_t first, std::size_t count = std::u32string::npos);

// The name-comparison forms: every letter of Windows-1252 changes case ("Émile" and "éMILE" are one name), as
// the SQL functions lower() and upper() do on this program's connections.
std::string lcase(std::string_view text);
std::string ucase(std::string_view text);

// Case change of one character: the letters of Windows-1252, others as they are.
char32_t lower_cp1252(char32_t c);
char32_t upper_cp1252(char32_t c);

// Removes leading and trailing blanks (the space only, not tabs or line breaks).
std::string trim(std::string_view text);

// The form in which names are compared: lcase(trim(text)).
std::string name_key(std::string_view text);
bool same_name(std::string_view a, std::string_view b);

} // namespace qv
