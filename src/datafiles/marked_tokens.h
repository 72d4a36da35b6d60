#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// The results and entries files are streams of tokens, each ended by "^"; line ends carry no meaning and are
// dropped, and a token that is one of the format's marks closes the record gathered before it.

// The tokens of a file's bytes (Windows-1252), as UTF-8. Characters after the last "^" end no token and are
// dropped. None when the bytes are not text: a NUL, another control character than tab, CR and LF, or one of
// the bytes Windows-1252 leaves undefined.
std::optional<std::vector<std::string>> marked_tokens(std::string_view bytes);

// The bytes of a file; none when it cannot be read.
std::optional<std::string> read_file_bytes(const std::filesystem::path& file);

// True when the text is a whole number (an optional sign and digits) that fits a 64-bit integer.
bool whole_number(std::string_view text);

} // namespace qv
