#include "scheduling/day_keys.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace qv {

namespace {

constexpr std::array<const char*, 12> month_words { "jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep",
    "oct", "nov", "dec" };
// std::chrono::weekday counts from Sunday.
constexpr std::array<const char*, 7> day_words { "sun", "mon", "tue", "wed", "thu", "fri", "sat" };
constexpr std::array<int, 12> month_lengths { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };

std::string two_digits(int value)
{
    char text[8];
    std::snprintf(text, sizeof text, "%02d", value % 100);
    return text;
}

std::chrono::sys_days as_days(const ChosenDate& date)
{
    using namespace std::chrono;
    return sys_days(year_month_day(
        year(date.year), month(static_cast<unsigned>(date.month)), day(static_cast<unsigned>(date.day))));
}

DayForms forms_of(std::chrono::sys_days when)
{
    using namespace std::chrono;
    const year_month_day ymd(when);
    const auto dd = two_digits(static_cast<int>(static_cast<unsigned>(ymd.day())));
    const std::string mmm = month_words[static_cast<unsigned>(ymd.month()) - 1];
    const auto yy = two_digits(static_cast<int>(ymd.year()));
    const std::string ddd = day_words[weekday(when).c_encoding()];
    return { dd + mmm + yy, ddd + dd + mmm + yy, ddd + dd + mmm, dd + mmm };
}

int digits(std::string_view text)
{
    int value = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return text.empty() ? -1 : value;
}

} // namespace

int mmm_to_i(std::string_view mmm)
{
    for (std::size_t i = 0; i < month_words.size(); ++i)
        if (mmm == month_words[i])
            return static_cast<int>(i) + 1;
    return 0;
}

std::string i_to_mmm(int month)
{
    return month >= 1 && month <= 12 ? month_words[static_cast<std::size_t>(month - 1)] : "";
}

int get_days_in_month(int month)
{
    return month >= 1 && month <= 12 ? month_lengths[static_cast<std::size_t>(month - 1)] : 0;
}

std::vector<std::string> getdays(int month)
{
    std::vector<std::string> days;
    for (int day = 1; day <= get_days_in_month(month); ++day)
        days.push_back(two_digits(day));
    return days;
}

std::vector<std::string> century_choices()
{
    std::vector<std::string> choices;
    for (int century = 20; century <= 90; ++century)
        choices.push_back(std::to_string(century));
    return choices;
}

std::vector<std::string> year_choices()
{
    std::vector<std::string> choices;
    for (int year = 0; year <= 99; ++year)
        choices.push_back(two_digits(year));
    return choices;
}

DayForms day_forms(const ChosenDate& date)
{
    return forms_of(as_days(date));
}

std::vector<DayForms> days_between(const ChosenDate& start, const ChosenDate& end)
{
    std::vector<DayForms> days;
    const auto first = as_days(start);
    const auto difference = (as_days(end) - first).count();
    for (long offset = 0; offset <= difference; ++offset)
        days.push_back(forms_of(first + std::chrono::days(offset)));
    return days;
}

std::optional<KeyDate> set_day_month_year(std::string_view sdate)
{
    if (sdate.size() < 10)
        return std::nullopt;
    KeyDate date { digits(sdate.substr(3, 2)), mmm_to_i(sdate.substr(5, 3)), digits(sdate.substr(8, 2)) };
    if (date.day < 1 || date.month == 0 || date.year2 < 0)
        return std::nullopt;
    return date;
}

std::string fmt2_dots(std::string_view fmt2)
{
    auto part = [&](std::size_t first, std::size_t count) {
        return first < fmt2.size() ? std::string(fmt2.substr(first, count)) : std::string();
    };
    return part(0, 3) + "." + part(3, 2) + "." + part(5, 3) + "." + part(8, 2);
}

std::string remove_comma(std::string_view text)
{
    std::string out;
    for (char c : text)
        if (c != ',')
            out += c;
    return out;
}

std::pair<std::string, std::string> parse_str(std::string_view text)
{
    const auto caret = text.find('^');
    if (caret == std::string_view::npos)
        return { std::string(text), {} };
    return { std::string(text.substr(0, caret)), std::string(text.substr(caret + 1)) };
}

std::string get_date_end_markers(const std::vector<std::string>& days)
{
    if (days.empty())
        return {};
    return days.front() + "-" + days.back();
}

} // namespace qv
