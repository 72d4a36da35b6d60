#pragma once

#include <string>
#include <string_view>

namespace qv {

// Text files, web pages and the online protocol are 8-bit Windows-1252. The five bytes the code page leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the control characters of the same number, as Windows
// does, so every byte survives a round trip. A character with no byte becomes '?'.
std::string to_cp1252(std::string_view utf8);
std::string from_cp1252(std::string_view bytes);

// True when the character has a byte of its own in Windows-1252 (the five undefined bytes count as none).
bool cp1252_has(char32_t c);

} // namespace qv
