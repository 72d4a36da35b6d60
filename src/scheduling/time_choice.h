#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class UserTalk;

// The three time choosers of the board and of a court's start time: nb/at, hour and minute. An empty entry
// means "not chosen".
struct TimeChoice
{
    std::string nbat; // "", "nb " or "at "
    std::string hour; // "" or "00" .. "24"
    std::string minute; // "" or "00" .. "59"

    bool all_empty() const { return nbat.empty() && hour.empty() && minute.empty(); }
    // Hour and minute joined by ":"; a bare ":" is the empty text.
    std::string time() const;
    // nb/at word and time: "nb 09:00"; the empty text when hour and minute are both empty.
    std::string value() const;
};

// Some choosers empty and others not: "enter hour", then "enter minute", then "enter nb/at". All three empty
// passes (it clears). False when refused; the refusal has been said.
bool check_time_choice(UserTalk& talk, const TimeChoice& choice);

// The entries the choosers offer: nb/at "", "nb ", "at "; hour "", "00" .. "24"; minute "", "00", "15", "30",
// "45", "", "00" .. "59".
const std::vector<std::string>& nbat_choices();
const std::vector<std::string>& hour_choices();
const std::vector<std::string>& minute_choices();

// The most minutes a box of minutes may hold: a day.
inline constexpr int max_minutes = 1440;
// The whole minutes of a box that passed the integer check; a text too long to hold is above the limit anyway.
long long minutes_value(std::string_view digits);

// A stored start time read back: the first three characters trimmed give "nb", "at" or nothing, the rest split
// at ":" gives hour and minute. The nb/at word comes back with its blank, as the chooser offers it.
TimeChoice parse_starttime(std::string_view starttime);

// A match's nb/at and time ("hh:mm") for the choosers: each part the entry equal to it, none where the chooser
// offers no such entry (that chooser is left alone).
struct GrabbedTime
{
    std::optional<std::string> nbat, hour, minute;
};
GrabbedTime grab_time(std::string_view nbat, std::string_view matchtime);

} // namespace qv
