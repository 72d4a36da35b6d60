#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Settings;

// The pages of the website and their links: the ticks of the website tab.
struct WebsiteParts
{
    bool details = false;
    bool draws = false;
    bool alias = false;
    bool schedules = false;
    bool player_times = false;
    bool results = false;
    bool qv4_file = false;
    bool enter = false;
    bool withdraw = false;
    bool entries = false;
    bool players = false;
    bool message = false;
};

// The draws tab.
struct WebsiteDrawOptions
{
    bool from = false; // the country beside each name
    bool times = false; // day, time and court of a match not yet played
    bool text_draws = false;
    bool next_round_pointer = false;
    std::vector<std::int64_t> eids; // the events chosen, in list order
};

// The schedules tab.
struct WebsiteScheduleOptions
{
    bool from = false;
    bool wqs = false;
    bool by_event = false;
    bool by_time = false;
    bool by_court = false;
    bool unfinished_score = false;
    std::vector<std::string> days; // the lines of the day list as selected
};

// The player times tab.
struct WebsitePlayerTimesOptions
{
    bool match_context = false;
    std::vector<std::string> days;
};

// The results tab.
struct WebsiteResultsOptions
{
    bool long_score = false;
    bool short_score = false;
    bool wqs = false;
    bool from = false;
    bool by_event = false;
    bool by_schedule = false;
    bool by_day = false;
    bool by_round = false;
    std::vector<std::string> days;
};

// Everything a run of make_website is asked for, as the window holds it.
struct WebsiteOptions
{
    WebsiteParts parts;
    WebsiteDrawOptions draws;
    WebsiteScheduleOptions schedules;
    WebsitePlayerTimesOptions player_times;
    WebsiteResultsOptions results;
};

// The styles list, in list order: "select all", "unselect all", "enter/withdraw basic", "tournament website",
// "accepting other entries", "archive", "qv4".
const std::vector<std::string_view>& website_styles();
// Sets the parts and the next round pointer as the style says; false for a name that is no style.
bool apply_website_style(WebsiteOptions& options, std::string_view style);

// The two-way choices, each a pair of settings toggled by its two labels.
enum class WebsitePair { entries, players, alias };
struct PairKeys
{
    std::string_view first; // "online" / "page"
    std::string_view second; // "make" / "pages"
};
PairKeys website_pair_keys(WebsitePair pair);
// A click on a label: its setting becomes "1" and the other of the pair "0".
void choose_website_pair(Settings& settings, WebsitePair pair, bool first);
// The setting named is "1".
bool website_setting_on(Settings& settings, std::string_view key);

// An event's part of a file name: the name without blanks and "'".
std::string event_file_part(std::string_view eventname);
// A day's part of a file name: the first ten characters of its line in a day list.
std::string day_file_part(std::string_view day_line);
// The line of a day list that stands for the matches with no day: "no day" and its marks.
bool is_unscheduled_day_line(std::string_view day_line);

// The results file's name in the website directory: the tournament's name through the file name filter, or
// "qv4file" when nothing is left, and ".qv4".
std::string website_qv4_file_name(std::string_view tournament);

} // namespace qv
