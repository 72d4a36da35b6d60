#include "core/validators.h"

#include "core/utf8.h"

namespace qv {

namespace {

bool is_digit(char32_t c)
{
    return c >= U'0' && c <= U'9';
}

// The first character that fails, or -1.
int first_failing(const std::u32string& chars, ValueClass cls)
{
    for (std::size_t i = 0; i < chars.size(); ++i)
        if (!allowed(cls, chars[i]))
            return static_cast<int>(i);
    return -1;
}

int first_non_digit(const std::u32string& chars)
{
    for (std::size_t i = 0; i < chars.size(); ++i)
        if (!is_digit(chars[i]))
            return static_cast<int>(i);
    return -1;
}

enum class DoubleFault { none, lone_point, second_point, bad_character };

struct DoubleScan
{
    DoubleFault fault = DoubleFault::none;
    int position = -1;
};

// Digits and at most one point. The lone "." is tested first because it holds no bad character at all.
DoubleScan scan_unsigned(const std::u32string& chars)
{
    if (chars == U".")
        return { DoubleFault::lone_point, -1 };
    bool point = false;
    for (std::size_t i = 0; i < chars.size(); ++i) {
        if (chars[i] == U'.') {
            if (point)
                return { DoubleFault::second_point, static_cast<int>(i) };
            point = true;
        } else if (!is_digit(chars[i])) {
            return { DoubleFault::bad_character, static_cast<int>(i) };
        }
    }
    return {};
}

} // namespace

Check value_required(std::string_view text)
{
    if (trim(text).empty())
        return Refusal { "value required", -1 };
    return std::nullopt;
}

Check check_class(std::string_view text, ValueClass cls)
{
    int at = first_failing(decode_utf8(text), cls);
    if (at >= 0)
        return Refusal { "illegal character", at };
    return std::nullopt;
}

Check check_integer(std::string_view text)
{
    int at = first_non_digit(decode_utf8(text));
    if (at >= 0)
        return Refusal { "invalid character for integer", at };
    return std::nullopt;
}

Check check_double(std::string_view text)
{
    auto scan = scan_unsigned(decode_utf8(text));
    switch (scan.fault) {
    case DoubleFault::none:
        return std::nullopt;
    case DoubleFault::lone_point:
        return Refusal { "invalid double value", scan.position };
    case DoubleFault::second_point:
        return Refusal { "invalid double value, more than one point (.)", scan.position };
    case DoubleFault::bad_character:
        return Refusal { "invalid character for double", scan.position };
    }
    return std::nullopt;
}

Check check_signed_double(std::string_view text)
{
    // One pass in character order: a repeated sign or point is named as repeated even though the second sign
    // is also out of first place, so that both sign messages can be reached.
    auto chars = decode_utf8(text);
    bool minus = false;
    bool point = false;
    bool digit = false;
    for (std::size_t i = 0; i < chars.size(); ++i) {
        char32_t c = chars[i];
        int at = static_cast<int>(i);
        if (c == U'-') {
            if (minus)
                return Refusal { "invalid double value, more than one -", at };
            if (i > 0)
                return Refusal { "invalid double value,negative sign must be first character", at };
            minus = true;
        } else if (c == U'.') {
            if (point)
                return Refusal { "invalid double value, more than one .", at };
            point = true;
        } else if (is_digit(c)) {
            digit = true;
        } else {
            return Refusal { "invalid character for double", at };
        }
    }
    // ".", "-" and "-." hold no bad character but are no number either.
    if (!chars.empty() && !digit)
        return Refusal { "invalid double value", -1 };
    return std::nullopt;
}

bool report(UserTalk& talk, const Check& check)
{
    if (!check)
        return true;
    talk.message(check->message);
    return false;
}

std::string check_class_text(std::string_view text, ValueClass cls)
{
    auto chars = decode_utf8(text);
    int at = first_failing(chars, cls);
    if (at < 0)
        return "ok";
    return "illegal character " + encode_utf8(chars[at]) + " at position " + std::to_string(at + 1);
}

std::string check_integer_text(std::string_view text)
{
    int at = first_non_digit(decode_utf8(text));
    if (at < 0)
        return "ok";
    return "invalid character for integer at position " + std::to_string(at + 1);
}

std::string check_double_text(std::string_view text)
{
    auto scan = scan_unsigned(decode_utf8(text));
    switch (scan.fault) {
    case DoubleFault::none:
        return "ok";
    case DoubleFault::lone_point:
        return "invalid double/integer value";
    case DoubleFault::second_point:
        return "invalid double/integer value, more than one point (.)";
    case DoubleFault::bad_character:
        return "invalid character for double/integer at position " + std::to_string(scan.position + 1);
    }
    return "ok";
}

} // namespace qv
