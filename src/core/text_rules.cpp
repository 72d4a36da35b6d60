#include "core/text_rules.h"

#include "core/utf8.h"
#include "core/value_classes.h"

#include <charconv>
#include <cmath>

namespace qv {

namespace {

std::string without(std::string_view text, std::u32string_view drop)
{
    std::string out;
    for (char32_t c : decode_utf8(text))
        if (drop.find(c) == std::u32string_view::npos)
            append_utf8(out, c);
    return out;
}

std::string replace_all(std::string_view text, char from, std::string_view to)
{
    std::string out;
    for (char c : text) {
        if (c == from)
            out += to;
        else
            out.push_back(c);
    }
    return out;
}

// "#0.00": two decimals, halves away from zero.
std::string two_decimals(double value)
{
    // to_chars ignores the locale, which the GUI library sets from the environment.
    char buffer[64];
    auto written
        = std::to_chars(buffer, buffer + sizeof buffer, std::round(value * 100.0) / 100.0, std::chars_format::fixed, 2);
    return std::string(buffer, written.ptr);
}

bool begins(std::string_view text, std::string_view head)
{
    return text.substr(0, head.size()) == head;
}

} // namespace

std::string killquotes(std::string_view text)
{
    return without(text, U"'");
}

bool is_empty(std::optional<std::string_view> value)
{
    return !value || trim(*value).empty();
}

std::string safe_mid(std::string_view text, std::size_t first, std::size_t count)
{
    if (is_empty(text))
        return {};
    return mid_chars(text, first, count);
}

NamePair split_pair(std::string_view name)
{
    auto slash = name.find('/');
    if (slash == std::string_view::npos)
        return {};
    return { trim(name.substr(0, slash)), trim(name.substr(slash + 1)) };
}

std::string bracket(std::string_view text)
{
    if (is_empty(text))
        return {};
    return "(" + std::string(text) + ")";
}

std::string strip_markers(std::string_view text)
{
    return trim(without(text, U"+?¿^\t"));
}

std::string wrap_150(std::string_view text, std::string_view line_break)
{
    std::string out;
    std::size_t since_break = 0;
    for (char32_t c : decode_utf8(text)) {
        append_utf8(out, c);
        if (c == U'\n') {
            since_break = 0;
            continue;
        }
        ++since_break;
        if (c == U' ' && since_break >= 150) {
            out += line_break;
            since_break = 0;
        }
    }
    return out;
}

std::string caret_to_lines(std::string_view text, std::string_view line_break)
{
    return replace_all(text, '^', line_break);
}

std::array<std::string, 3> split_caret(std::string_view text)
{
    std::array<std::string, 3> parts;
    auto first = text.find('^');
    if (first == std::string_view::npos) {
        parts[0] = text;
        return parts;
    }
    parts[0] = text.substr(0, first);
    auto rest = text.substr(first + 1);
    auto second = rest.find('^');
    if (second == std::string_view::npos) {
        parts[1] = rest;
        return parts;
    }
    parts[1] = rest.substr(0, second);
    parts[2] = rest.substr(second + 1);
    return parts;
}

std::string no_blanks_quotes(std::string_view text)
{
    return without(text, U" '");
}

std::string clean_file_name(std::string_view text)
{
    std::string out;
    for (char32_t c : decode_utf8(text)) {
        if (!allowed(ValueClass::vbfilename, c))
            continue;
        append_utf8(out, c == U' ' ? U'_' : c);
    }
    return lcase(out);
}

std::string machine_safe(std::string_view text)
{
    static constexpr std::string_view keep = "abcdefghijklmnopqrstuvwxyz0123456789._";
    std::string out;
    for (char c : lcase(text)) {
        if (out.size() == 100)
            break;
        if (keep.find(c) != std::string_view::npos)
            out.push_back(c);
    }
    return out;
}

std::string short_name(std::size_t n, std::string_view text)
{
    return left_chars(text, n) + "~" + right_chars(text, 4);
}

std::string after_point(std::string_view text)
{
    auto point = text.find('.');
    if (point == std::string_view::npos)
        return {};
    return std::string(text.substr(point + 1));
}

std::string before_backslash(std::string_view path)
{
    auto last = path.find_last_of("\\/");
    if (last == std::string_view::npos)
        return {};
    return std::string(path.substr(0, last));
}

std::string after_backslash(std::string_view path)
{
    auto last = path.find_last_of("\\/");
    if (last == std::string_view::npos)
        return std::string(path);
    return std::string(path.substr(last + 1));
}

std::string format_file_size(std::uint64_t bytes)
{
    constexpr double kb = 1024.0;
    auto size = static_cast<double>(bytes);
    if (bytes < 1024)
        return std::to_string(bytes) + " Bytes";
    if (size < kb * kb)
        return two_decimals(size / kb) + " KB";
    if (size < kb * kb * kb)
        return two_decimals(size / (kb * kb)) + " MB";
    return two_decimals(size / (kb * kb * kb)) + " GB";
}

std::string sex_code(std::string_view text)
{
    if (text == "male.male")
        return "mm";
    if (text == "male.female")
        return "mf";
    if (text == "female.male")
        return "fm";
    if (text == "female.female")
        return "ff";
    if (text == "male")
        return "m";
    if (text == "female")
        return "f";
    return {};
}

int log2_of_draw(int drawsize)
{
    switch (drawsize) {
    case 2:
        return 1;
    case 4:
        return 2;
    case 8:
        return 3;
    case 16:
        return 4;
    case 32:
        return 5;
    case 64:
        return 6;
    case 128:
        return 7;
    default:
        return 0;
    }
}

int round_count(int drawsize)
{
    return log2_of_draw(drawsize);
}

int triangle(int n)
{
    return n > 1 ? n * (n - 1) / 2 : 0;
}

std::string first_cap(std::string_view text)
{
    auto chars = decode_utf8(trim(text));
    for (std::size_t i = 0; i < chars.size(); ++i)
        chars[i] = i == 0 ? upper_cp1252(chars[i]) : lower_cp1252(chars[i]);
    return encode_utf8(chars);
}

int calcdrawsize(int n)
{
    if (n < 1 || n > 256)
        return 0;
    int size = 2;
    while (size < n)
        size *= 2;
    return size;
}

bool is_reserved(std::string_view name)
{
    auto key = name_key(name);
    return begins(key, "qualifier") || begins(key, "wildcard") || begins(key, "bye");
}

bool is_reserved_exact(std::string_view name)
{
    auto trimmed = trim(name);
    return trimmed.empty() || begins(trimmed, "qualifier") || begins(trimmed, "wildcard") || begins(trimmed, "bye");
}

bool is_partner_required_name(std::string_view name)
{
    auto lower = lcase(name);
    return lower == "partner required" || lower == "partnerrequired";
}

std::string strip_first_bracket(std::string_view name)
{
    return trim(name.substr(0, name.find('(')));
}

} // namespace qv
