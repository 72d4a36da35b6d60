#include "core/utf8.h"

#include <utility>

namespace qv {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool is_continuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

// Plain ASCII text is its own characters: the counting and cutting below need no decoding for it.
bool is_ascii(std::string_view text)
{
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

} // namespace

std::u32string decode_utf8(std::string_view text)
{
    std::u32string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        auto lead = static_cast<unsigned char>(text[i]);
        std::size_t length = 0;
        char32_t c = 0;
        if (lead < 0x80) {
            length = 1;
            c = lead;
        } else if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
            c = lead & 0x1F;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            c = lead & 0x0F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            c = lead & 0x07;
        }
        bool good = length > 0 && i + length <= text.size();
        for (std::size_t k = 1; good && k < length; ++k) {
            auto byte = static_cast<unsigned char>(text[i + k]);
            good = is_continuation(byte);
            c = (c << 6) | (byte & 0x3F);
        }
        // Overlong forms, surrogates and values past U+10FFFF are not characters.
        if (good
            && ((length == 3 && c < 0x800) || (length == 4 && (c < 0x10000 || c > 0x10FFFF))
                || (c >= 0xD800 && c <= 0xDFFF)))
            good = false;
        if (good) {
            out.push_back(c);
            i += length;
        } else {
            out.push_back(replacement);
            ++i;
        }
    }
    return out;
}

void append_utf8(std::string& out, char32_t c)
{
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
        c = replacement;
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (c >> 18)));
        out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

std::string encode_utf8(std::u32string_view chars)
{
    std::string out;
    out.reserve(chars.size());
    for (char32_t c : chars)
        append_utf8(out, c);
    return out;
}

std::string encode_utf8(char32_t c)
{
    std::string out;
    append_utf8(out, c);
    return out;
}

std::size_t char_count(std::string_view text)
{
    if (is_ascii(text))
        return text.size();
    return decode_utf8(text).size();
}

std::string left_chars(std::string_view text, std::size_t count)
{
    return mid_chars(text, 0, count);
}

std::string right_chars(std::string_view text, std::size_t count)
{
    auto chars = decode_utf8(text);
    if (count >= chars.size())
        return encode_utf8(chars);
    return encode_utf8(std::u32string_view(chars).substr(chars.size() - count));
}

std::string mid_chars(std::string_view text, std::size_t first, std::size_t count)
{
    if (is_ascii(text))
        return first >= text.size() ? std::string() : std::string(text.substr(first, count));
    auto chars = decode_utf8(text);
    if (first >= chars.size())
        return {};
    return encode_utf8(std::u32string_view(chars).substr(first, count));
}

namespace {

// The letters of Windows-1252 beyond Latin-1, in pairs of capital and small.
constexpr std::pair<char32_t, char32_t> cp1252_pairs[] = {
    { 0x0160, 0x0161 }, // S with caron
    { 0x0152, 0x0153 }, // OE
    { 0x017D, 0x017E }, // Z with caron
    { 0x0178, 0x00FF }, // Y with diaeresis
};

bool plain_ascii(std::string_view text)
{
    for (char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

template <class Map> std::string map_letters(std::string_view text, Map map, char from, char to)
{
    std::string out(text);
    // Most names are plain ASCII: those change in place without decoding.
    if (plain_ascii(text)) {
        for (char& c : out)
            if (c >= from && c <= to)
                c = static_cast<char>(c ^ 0x20);
        return out;
    }
    auto chars = decode_utf8(text);
    for (auto& c : chars)
        c = map(c);
    return encode_utf8(chars);
}

} // namespace

std::string lcase(std::string_view text)
{
    return map_letters(text, lower_cp1252, 'A', 'Z');
}

std::string ucase(std::string_view text)
{
    return map_letters(text, upper_cp1252, 'a', 'z');
}

char32_t lower_cp1252(char32_t c)
{
    if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return c + 0x20;
    for (auto [capital, small] : cp1252_pairs)
        if (c == capital)
            return small;
    return c;
}

char32_t upper_cp1252(char32_t c)
{
    if ((c >= U'a' && c <= U'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7))
        return c - 0x20;
    for (auto [capital, small] : cp1252_pairs)
        if (c == small)
            return capital;
    return c;
}

std::string trim(std::string_view text)
{
    auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    auto last = text.find_last_not_of(' ');
    return std::string(text.substr(first, last - first + 1));
}

std::string name_key(std::string_view text)
{
    return lcase(trim(text));
}

bool same_name(std::string_view a, std::string_view b)
{
    return name_key(a) == name_key(b);
}

} // namespace qv
