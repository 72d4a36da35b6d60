#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

// A calendar date as the day choosers give it.
struct ChosenDate
{
    int year = 2000; // four digits: century chooser and year chooser together
    int month = 1; // 1 .. 12
    int day = 1; // 1 .. the month's length
};

// A tournament day in its four written forms, all lower case without commas.
struct DayForms
{
    std::string fmt1; // "ddmmmyy": 01jan07
    std::string fmt2; // "dddddmmmyy": mon01jan07, the day's key (sdate)
    std::string fmt3; // "dddddmmm": mon01jan
    std::string fmt4; // "ddmmm": 01jan
};

// Month words "jan" .. "dec" and their numbers 1 .. 12; 0 and "" outside.
int mmm_to_i(std::string_view mmm);
std::string i_to_mmm(int month);

// The month's length from the choosers' table: February has 28 days in every year, so the 29th cannot be chosen.
int get_days_in_month(int month);
// "01" .. the month's length, for the day chooser.
std::vector<std::string> getdays(int month);

// The century chooser's entries "20" .. "90" and the year chooser's "00" .. "99".
std::vector<std::string> century_choices();
std::vector<std::string> year_choices();

// The forms of a real date; a range crossing 29 February of a leap year passes through it.
DayForms day_forms(const ChosenDate& date);

// The days from start to end, both included, as set days makes them. An end before the start gives none.
std::vector<DayForms> days_between(const ChosenDate& start, const ChosenDate& end);

// A stored key read back into the choosers: characters 4-5 the day, 6-8 the month, 9-10 the two-digit year.
// None when the key is not of that shape.
struct KeyDate
{
    int day = 0;
    int month = 0;
    int year2 = 0; // 0 .. 99
};
std::optional<KeyDate> set_day_month_year(std::string_view sdate);

// "mon01jan07" -> "mon.01.jan.07".
std::string fmt2_dots(std::string_view fmt2);
std::string remove_comma(std::string_view text);
// Splits at the first "^": the part before and the part behind; with no "^" all of it is before.
std::pair<std::string, std::string> parse_str(std::string_view text);

// First day "-" last day of a list of day keys; empty for an empty list.
std::string get_date_end_markers(const std::vector<std::string>& days);

} // namespace qv
