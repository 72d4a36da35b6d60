#include "core/time_rules.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace qv {

namespace {

// Leading digits after blanks and an optional sign, 0 when there are none: the reading of a number
// typed into a time.
long long leading_number(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ')
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
        negative = text[i] == '-';
        ++i;
    }
    long long value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && value < 100000000; ++i)
        value = value * 10 + (text[i] - '0');
    return negative ? -value : value;
}

struct HoursMinutes
{
    long long hours = 0;
    long long minutes = 0;
};

HoursMinutes split_time(std::string_view hhmm)
{
    auto colon = hhmm.find(':');
    if (colon == std::string_view::npos)
        return { leading_number(hhmm), 0 };
    return { leading_number(hhmm.substr(0, colon)), leading_number(hhmm.substr(colon + 1)) };
}

// Ties go to the even neighbour whatever the floating-point environment says.
long long round_half_even(double value)
{
    double lower = std::floor(value);
    double diff = value - lower;
    if (diff > 0.5 || (diff == 0.5 && std::fmod(lower, 2.0) != 0.0))
        lower += 1.0;
    return static_cast<long long>(lower);
}

std::string two_digits(std::string text)
{
    return text.size() == 1 ? "0" + text : text;
}

std::string pad2(int value)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%02d", value);
    return buffer;
}

constexpr std::array<const char*, 12> month_names { "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep",
    "Oct", "Nov", "Dec" };

std::string month_name(const std::tm& when)
{
    return month_names[static_cast<std::size_t>(when.tm_mon % 12)];
}

std::string day_month_year(const std::tm& when)
{
    return pad2(when.tm_mday) + "-" + month_name(when) + "-" + std::to_string(when.tm_year + 1900);
}

std::string hh_mm_ss(const std::tm& when)
{
    return pad2(when.tm_hour) + ":" + pad2(when.tm_min) + ":" + pad2(when.tm_sec);
}

std::string knockout_row(int round, int rounds)
{
    int drawsize = 1 << rounds;
    int players = 1 << (rounds - round + 1);
    std::string row
        = "r" + std::to_string(round) + ",round of " + std::to_string(players) + ",ds=" + std::to_string(drawsize);
    if (round == rounds)
        row += ",final";
    else if (round == rounds - 1)
        row += ",semis";
    else if (round == rounds - 2)
        row += ",quaters";
    return row;
}

} // namespace

int time_to_minutes(std::string_view hhmm)
{
    if (hhmm.find_first_not_of(' ') == std::string_view::npos)
        return -1;
    auto time = split_time(hhmm);
    return static_cast<int>(time.hours * 60 + time.minutes);
}

std::string add_minutes(std::string_view hhmm, int n)
{
    auto time = split_time(hhmm);
    long long seconds = time.hours * 3600 + time.minutes * 60 + static_cast<long long>(n) * 60;
    double hours = static_cast<double>(seconds) / 60.0 / 60.0;
    if (hours > 24.0)
        return "24:00";
    // The decimal hours go through text with 15 significant digits, and the minutes come back from the
    // fraction of that text, so 10:20 is 10.3333333333333 and .3333333333333 * 60 rounds to 20.
    // to_chars ignores the locale, which the GUI library sets from the environment.
    char buffer[64];
    auto written = std::to_chars(buffer, buffer + sizeof buffer, hours, std::chars_format::general, 15);
    std::string text(buffer, written.ptr);
    auto point = text.find('.');
    if (point == std::string::npos)
        return two_digits(text) + ":00";
    std::string fraction_text = "0" + text.substr(point);
    double fraction = 0.0;
    std::from_chars(fraction_text.data(), fraction_text.data() + fraction_text.size(), fraction);
    std::string minutes = std::to_string(round_half_even(fraction * 60.0));
    return two_digits(text.substr(0, point)) + ":" + two_digits(minutes);
}

std::string round_description(std::string_view rsname, std::string_view generic_match_word)
{
    auto slash = rsname.find('/');
    if (slash != std::string_view::npos)
        return "(rr," + std::string(generic_match_word) + " " + std::string(rsname.substr(0, slash)) + " of "
            + std::string(rsname.substr(slash + 1)) + "),";
    for (int rounds = 1; rounds <= 7; ++rounds)
        for (int round = 1; round <= rounds; ++round)
            if (rsname == std::to_string(round) + "." + std::to_string(rounds))
                return "(" + knockout_row(round, rounds) + "),";
    return "(),";
}

std::string round_word(std::string_view rname)
{
    if (rname == "winner")
        return "winner";
    if (rname == "final" || rname == "semis" || rname == "quaters")
        return "in " + std::string(rname);
    if (!rname.empty() && rname.front() == 'r')
        rname.remove_prefix(1);
    return "in round" + std::string(rname);
}

std::tm local_time_now()
{
    std::time_t now = std::time(nullptr);
    std::tm when {};
    localtime_r(&now, &when);
    return when;
}

std::string StampCounter::stamp_now()
{
    return stamp_at(local_time_now());
}

std::string StampCounter::stamp_at(const std::tm& when)
{
    ++m_count;
    return pad2(when.tm_mday) + pad2(when.tm_mon + 1) + std::to_string(when.tm_year + 1900) + pad2(when.tm_hour)
        + pad2(when.tm_min) + pad2(when.tm_sec) + std::to_string(m_count);
}

std::string date_time_long(const std::tm& when)
{
    return day_month_year(when) + " " + hh_mm_ss(when);
}

std::string date_time_ampm(const std::tm& when)
{
    int hour = when.tm_hour % 12;
    if (hour == 0)
        hour = 12;
    return day_month_year(when) + " " + pad2(hour) + ":" + pad2(when.tm_min) + (when.tm_hour < 12 ? " AM" : " PM");
}

std::string date_time_minutes(const std::tm& when)
{
    return day_month_year(when) + " " + pad2(when.tm_hour) + ":" + pad2(when.tm_min);
}

std::string date_time_short_year(const std::tm& when)
{
    return pad2(when.tm_mday) + "-" + month_name(when) + "-" + pad2((when.tm_year + 1900) % 100) + " " + hh_mm_ss(when);
}

std::string export_stamp(const std::tm& when)
{
    return pad2((when.tm_year + 1900) % 100) + "-" + pad2(when.tm_mon + 1) + "-" + pad2(when.tm_mday) + " "
        + hh_mm_ss(when);
}

} // namespace qv
