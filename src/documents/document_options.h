#pragma once

#include <string>
#include <string_view>

namespace qv {

class Session;
class Settings;
struct DocumentContext;

// Which match states a document shows: "1" empty, "2" live, "2.1" unfinished, "3" dead. Byes never show.
struct StateFilter
{
    bool empty = false;
    bool live = true;
    bool unfinished = true;
    bool dead = false;
    bool shows(std::string_view match_state) const;
};

// How a name is shown: "wqs" its seeding in brackets behind it, "from" its country in brackets behind it.
struct NameOptions
{
    bool wqs = false;
    bool from = false;
};

// Which scores a line carries; both, when both are filled, are joined by "~".
struct ScoreOptions
{
    bool short_score = true;
    bool long_score = false;
};

enum class ScheduleBy { court, time, event };

struct ScheduleOptions
{
    NameOptions names;
    ScoreOptions scores;
    StateFilter states;
    bool match_id = false; // "[mid=" sid "] " in front of each line
    // The state mark in front of each line: "-" live, "^" unfinished. The documents window marks its schedules;
    // the website's schedule pages stay unmarked.
    bool state_marks = false;
};

enum class ResultsStyle { by_event, by_schedule, by_day, by_round };

struct ResultsOptions
{
    NameOptions names;
    ScoreOptions scores;
};

// idocs_xtime: which matches the player times take by their explicit time (nbat).
enum class ExplicitTime { explicit_time = 0, no_explicit_time = 1, either = 2 };

struct PlayerTimesOptions
{
    StateFilter states;
    ExplicitTime xtime = ExplicitTime::either;
    bool match_context = false; // "include " match word " context"
};

struct PlayerListOptions
{
    bool ranking = false;
    bool rating = false;
    bool from = false;
    // "admin": room to write by hand, app.admin_lines empty lines under each player.
    bool admin = false;
    int admin_lines = 0;
};

// The documents window's options as its ticks keep them in the idocs settings.
StateFilter idocs_bottom_filter(Settings& settings);
StateFilter idocs_top_filter(Settings& settings);
ScheduleOptions idocs_schedule_options(Settings& settings);
ResultsOptions idocs_results_options(Settings& settings);
PlayerTimesOptions idocs_player_times_options(Settings& settings);
PlayerListOptions idocs_player_list_options(Settings& settings);

// The results styles by their captions, as idocs_results_style keeps them; an unknown text is "results by event".
ResultsStyle results_style_of(std::string_view caption);
std::string results_style_caption(ResultsStyle style);
std::string schedule_by_word(ScheduleBy by); // "by court", "by time", "by event"

// The context of the open tournament, with the present moment.
DocumentContext document_context(Session& session);

} // namespace qv
