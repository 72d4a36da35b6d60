#include "datafiles/marked_tokens.h"

#include "core/codepage.h"

#include <charconv>
#include <cstdint>
#include <fstream>
#include <iterator>

namespace qv {

namespace {

bool text_byte(unsigned char c)
{
    if (c < 0x20)
        return c == '\t' || c == '\r' || c == '\n';
    return c != 0x7F && c != 0x81 && c != 0x8D && c != 0x8F && c != 0x90 && c != 0x9D;
}

} // namespace

std::optional<std::vector<std::string>> marked_tokens(std::string_view bytes)
{
    std::vector<std::string> tokens;
    std::string token;
    for (const char byte : bytes) {
        const auto c = static_cast<unsigned char>(byte);
        if (!text_byte(c))
            return std::nullopt;
        if (c == '\r' || c == '\n')
            continue;
        if (c == '^') {
            tokens.push_back(from_cp1252(token));
            token.clear();
        } else {
            token += byte;
        }
    }
    return tokens;
}

std::optional<std::string> read_file_bytes(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return std::nullopt;
    return std::string { std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>() };
}

bool whole_number(std::string_view text)
{
    std::int64_t value = 0;
    const auto* end = text.data() + text.size();
    const auto* first = !text.empty() && text.front() == '+' ? text.data() + 1 : text.data();
    const auto [ptr, ec] = std::from_chars(first, end, value);
    return !text.empty() && ec == std::errc() && ptr == end;
}

} // namespace qv
