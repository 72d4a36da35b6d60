#include "scheduling/time_choice.h"

#include "core/user_talk.h"
#include "core/utf8.h"

#include <algorithm>
#include <cstdio>

namespace qv {

namespace {

std::string two_digits(int value)
{
    char text[8];
    std::snprintf(text, sizeof text, "%02d", value);
    return text;
}

// The entry of a chooser equal to the text, or empty when it offers none.
std::string entry_of(const std::vector<std::string>& choices, const std::string& text)
{
    return std::find(choices.begin(), choices.end(), text) != choices.end() ? text : std::string();
}

} // namespace

std::string TimeChoice::time() const
{
    const auto text = hour + ":" + minute;
    return text == ":" ? std::string() : text;
}

std::string TimeChoice::value() const
{
    if (hour.empty() && minute.empty())
        return {};
    return nbat + time();
}

bool check_time_choice(UserTalk& talk, const TimeChoice& choice)
{
    if (choice.all_empty())
        return true;
    const char* refusal = choice.hour.empty() ? "enter hour"
        : choice.minute.empty()               ? "enter minute"
        : choice.nbat.empty()                 ? "enter nb/at"
                                              : nullptr;
    if (!refusal)
        return true;
    talk.message(refusal);
    return false;
}

const std::vector<std::string>& nbat_choices()
{
    static const std::vector<std::string> choices { "", "nb ", "at " };
    return choices;
}

const std::vector<std::string>& hour_choices()
{
    static const std::vector<std::string> choices = [] {
        std::vector<std::string> hours { "" };
        for (int hour = 0; hour <= 24; ++hour)
            hours.push_back(two_digits(hour));
        return hours;
    }();
    return choices;
}

const std::vector<std::string>& minute_choices()
{
    static const std::vector<std::string> choices = [] {
        std::vector<std::string> minutes { "", "00", "15", "30", "45", "" };
        for (int minute = 0; minute <= 59; ++minute)
            minutes.push_back(two_digits(minute));
        return minutes;
    }();
    return choices;
}

TimeChoice parse_starttime(std::string_view starttime)
{
    TimeChoice choice;
    const auto word = trim(starttime.substr(0, std::min<std::size_t>(3, starttime.size())));
    if (word == "nb" || word == "at")
        choice.nbat = word + " ";
    const auto rest = starttime.size() > 3 ? starttime.substr(3) : std::string_view();
    const auto colon = rest.find(':');
    if (colon != std::string_view::npos) {
        choice.hour = entry_of(hour_choices(), trim(rest.substr(0, colon)));
        choice.minute = entry_of(minute_choices(), trim(rest.substr(colon + 1)));
    }
    return choice;
}

GrabbedTime grab_time(std::string_view nbat, std::string_view matchtime)
{
    auto offered = [](const std::vector<std::string>& choices, std::string text) -> std::optional<std::string> {
        if (std::find(choices.begin(), choices.end(), text) == choices.end())
            return std::nullopt;
        return text;
    };
    GrabbedTime grabbed;
    grabbed.nbat = offered(nbat_choices(), std::string(nbat));
    const auto colon = matchtime.find(':');
    const auto hour = colon == std::string_view::npos ? trim(matchtime) : trim(matchtime.substr(0, colon));
    const auto minute = colon == std::string_view::npos ? std::string() : trim(matchtime.substr(colon + 1));
    grabbed.hour = offered(hour_choices(), hour);
    grabbed.minute = offered(minute_choices(), minute);
    return grabbed;
}

long long minutes_value(std::string_view digits)
{
    if (digits.size() > 9)
        return max_minutes + 1;
    long long value = 0;
    for (char c : digits)
        value = value * 10 + (c - '0');
    return value;
}

} // namespace qv
