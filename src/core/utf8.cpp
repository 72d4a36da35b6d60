#include "core/utf8.h"

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

std::string lcase(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return out;
}

std::string ucase(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return out;
}

char32_t lower_latin1(char32_t c)
{
    if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return c + 0x20;
    return c;
}

char32_t upper_latin1(char32_t c)
{
    if ((c >= U'a' && c <= U'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7))
        return c - 0x20;
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
