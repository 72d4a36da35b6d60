#include "core/codepage.h"

#include "core/utf8.h"

#include <array>

namespace qv {

namespace {

// Characters of the bytes 0x80 to 0x9F; the undefined ones keep their own number.
constexpr std::array<char32_t, 32> block_80 { 0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6,
    0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013,
    0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178 };

char to_byte(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (std::size_t i = 0; i < block_80.size(); ++i)
        if (block_80[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

bool cp1252_has(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return true;
    for (char32_t mapped : block_80)
        if (mapped == c && c > 0x9F)
            return true;
    return false;
}

std::string to_cp1252(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    for (char32_t c : decode_utf8(utf8))
        out.push_back(to_byte(c));
    return out;
}

std::string from_cp1252(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 4);
    for (char byte : bytes) {
        auto b = static_cast<unsigned char>(byte);
        append_utf8(out, b >= 0x80 && b <= 0x9F ? block_80[b - 0x80] : char32_t(b));
    }
    return out;
}

} // namespace qv
