#include "online/website_text_pages.h"

#include "core/database.h"
#include "documents/idocuments.h"

namespace qv {

namespace {

NamedPage wrapped(std::string file, std::string title, const Document& document)
{
    auto page = wrap_text_page(document.texts(), title);
    return { std::move(file), std::move(title), std::move(page) };
}

ScheduleOptions schedule_document_options(const WebsiteScheduleOptions& options)
{
    ScheduleOptions made;
    made.names = { options.wqs, options.from };
    // Only the matches still to finish show on a schedule, so the score shown is an unfinished one.
    made.scores = { options.unfinished_score, false };
    return made;
}

ResultsOptions results_document_options(const WebsiteResultsOptions& options)
{
    return { { options.wqs, options.from }, { options.short_score, options.long_score } };
}

} // namespace

std::vector<NamedPage> alias_pages(const DocumentContext& context, const std::vector<DrawnEvent>& events, bool one_page)
{
    if (one_page)
        return { wrapped("file_alias.htm", "alias", name_map(context, std::nullopt)) };
    std::vector<NamedPage> pages;
    std::vector<WebsiteEvent> listed;
    for (const auto& event : events) {
        pages.push_back(
            wrapped(name_map_file_name(event.names), "name map for " + event.names.name, name_map(context, event.eid)));
        listed.push_back(event.names);
    }
    pages.push_back({ "file_alias.htm", "alias", name_map_container_page(listed) });
    return pages;
}

std::vector<NamedPage> schedule_pages(const DocumentContext& context, const WebsiteScheduleOptions& options)
{
    const auto document_options = schedule_document_options(options);
    const std::tuple<bool, ScheduleBy, char, const char*> ways[] = {
        { options.by_court, ScheduleBy::court, 'c', "court" },
        { options.by_time, ScheduleBy::time, 't', "time" },
        { options.by_event, ScheduleBy::event, 'e', "event" },
    };
    std::vector<NamedPage> pages { { "file_schedules.htm", "schedules", schedules_container_page(options) } };
    for (const auto& day : options.days)
        for (const auto& [on, by, letter, word] : ways)
            if (on)
                pages.push_back(wrapped(schedule_file_name(letter, day), std::string("Schedule by ") + word,
                    FORMAT_schedule_by(context, by, day_file_part(day), document_options)));
    return pages;
}

NamedPage player_times_page(const DocumentContext& context, const WebsitePlayerTimesOptions& options)
{
    VIP_setlivedays_playertimes(context.tournament, options.days);
    PlayerTimesOptions document_options;
    document_options.match_context = options.match_context;
    VIP_compile_player_times_website(context, document_options);
    return wrapped("file_playertimes.htm", "player times", VIP_text_player_times_website(context));
}

std::vector<NamedPage> results_pages(const DocumentContext& context, const WebsiteResultsOptions& options)
{
    const auto document_options = results_document_options(options);
    auto& db = context.tournament;
    std::vector<NamedPage> pages { { "file_results.htm", "results", results_container_page(options) } };
    setlivedays_idocs(db, options.days);
    if (options.by_event)
        pages.push_back(
            wrapped("file_results_by_event.htm", "results by event", VIP_text_results(context, document_options)));
    if (options.by_schedule) {
        pages.push_back({ "file_results_by_schedule.htm", "results by schedule",
            results_by_schedule_container_page(options.days) });
        pages.push_back(wrapped(std::string(results_for_all_days_file), "results by schedule",
            VIP_text_resultsbyschedule(context, document_options)));
        for (const auto& day : options.days) {
            setlivedays_idocs(db, { day });
            // The schedule of results leaves out the matches of no day: their page lists them by event.
            pages.push_back(wrapped(results_for_day_file_name(day), "results by schedule",
                is_unscheduled_day_line(day) ? VIP_text_results(context, document_options)
                                             : VIP_text_resultsbyschedule(context, document_options)));
        }
        setlivedays_idocs(db, options.days);
    }
    if (options.by_day)
        pages.push_back(wrapped("file_results_group_by_day.htm", "results group by day",
            VIP_text_results_groupbyday(context, document_options)));
    if (options.by_round)
        pages.push_back(wrapped(
            "file_results_by_round.htm", "results by round", VIP_text_results_by_round(context, document_options)));
    return pages;
}

} // namespace qv
