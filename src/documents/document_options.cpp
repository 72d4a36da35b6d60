#include "documents/document_options.h"

#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/time_rules.h"
#include "documents/document_lines.h"

#include <algorithm>
#include <array>

namespace qv {

namespace {

bool on(Settings& settings, std::string_view key)
{
    return settings.integer(key) == 1;
}

constexpr std::array<std::string_view, 4> style_captions { "results by event", "results by schedule", "results by day",
    "results by round" };

} // namespace

bool StateFilter::shows(std::string_view match_state) const
{
    if (match_state == "1")
        return empty;
    if (match_state == "2")
        return live;
    if (match_state == "2.1")
        return unfinished;
    if (match_state == "3")
        return dead;
    return false;
}

StateFilter idocs_bottom_filter(Settings& settings)
{
    return { on(settings, "idocs.empty_bottom"), on(settings, "idocs.live_bottom"), on(settings, "idocs.unf_bottom"),
        on(settings, "idocs.dead_bottom") };
}

StateFilter idocs_top_filter(Settings& settings)
{
    // The top ticks have no empty state: a match without both players has no time for a player yet.
    return { false, on(settings, "idocs_live_top"), on(settings, "idocs_unf_top"), on(settings, "idocs_dead_top") };
}

ScheduleOptions idocs_schedule_options(Settings& settings)
{
    return { { on(settings, "idocs.check4"), on(settings, "idocs.check3") },
        { on(settings, "idocs.check2"), on(settings, "idocs.check1") }, idocs_bottom_filter(settings),
        on(settings, "idocs.check14"), true };
}

ResultsOptions idocs_results_options(Settings& settings)
{
    return { { on(settings, "idocs.check12"), on(settings, "idocs.check13") },
        { on(settings, "idocs.check8"), on(settings, "idocs.check9") } };
}

PlayerTimesOptions idocs_player_times_options(Settings& settings)
{
    const int xtime = settings.integer("idocs_xtime");
    return { idocs_top_filter(settings),
        xtime >= 0 && xtime <= 2 ? static_cast<ExplicitTime>(xtime) : ExplicitTime::either,
        on(settings, "idocs.check11") };
}

PlayerListOptions idocs_player_list_options(Settings& settings)
{
    return { on(settings, "idocs.check5"), on(settings, "idocs.check7"), on(settings, "idocs.check15"),
        on(settings, "idocs.check10"), std::clamp(settings.integer("app.admin_lines"), 0, 10) };
}

ResultsStyle results_style_of(std::string_view caption)
{
    for (std::size_t i = 0; i < style_captions.size(); ++i)
        if (style_captions[i] == caption)
            return static_cast<ResultsStyle>(i);
    return ResultsStyle::by_event;
}

std::string results_style_caption(ResultsStyle style)
{
    return std::string(style_captions[static_cast<std::size_t>(style)]);
}

std::string schedule_by_word(ScheduleBy by)
{
    switch (by) {
    case ScheduleBy::time:
        return "by time";
    case ScheduleBy::event:
        return "by event";
    case ScheduleBy::court:
        break;
    }
    return "by court";
}

DocumentContext document_context(Session& session)
{
    const auto words = current_sport_words(session);
    return { session.tournament(), session.settings().itname(), words.court, words.c, words.courts, words.match,
        words.m, words.matches, local_time_now() };
}

} // namespace qv
