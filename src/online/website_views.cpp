#include "online/website_views.h"

#include "core/session.h"
#include "documents/document_lines.h"
#include "documents/document_options.h"
#include "online/website_draw_pages.h"
#include "online/website_text_pages.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

std::optional<fs::path> show_page(Session& session, const NamedPage& page)
{
    const auto file = session.dirs().working / page.file;
    if (!write_page(file, page.lines)) {
        session.talk().message("cannot write file:" + file.string());
        return std::nullopt;
    }
    session.talk().show_text(file, page.title);
    return file;
}

bool refuse_no_day(Session& session, bool none)
{
    if (none)
        session.talk().message("select day ");
    return none;
}

} // namespace

std::optional<fs::path> view_text_draw(
    Session& session, const WebsiteDrawOptions& options, std::optional<std::int64_t> eid)
{
    if (!eid) {
        session.talk().message("select draw");
        return std::nullopt;
    }
    const auto page = text_draw_page(session.tournament(), *eid, options);
    if (!page)
        return std::nullopt;
    return show_page(session, *page);
}

std::optional<fs::path> view_schedule(
    Session& session, const WebsiteScheduleOptions& options, char way, std::optional<std::string> day)
{
    if (refuse_no_day(session, !day))
        return std::nullopt;
    auto one_day = options;
    one_day.days = { *day };
    one_day.by_court = way == 'c';
    one_day.by_time = way == 't';
    one_day.by_event = way == 'e';
    // The first page is the container; the day's page follows it.
    return show_page(session, schedule_pages(document_context(session), one_day).at(1));
}

std::optional<fs::path> view_player_times(Session& session, const WebsitePlayerTimesOptions& options)
{
    if (refuse_no_day(session, options.days.empty()))
        return std::nullopt;
    return show_page(session, player_times_page(document_context(session), options));
}

std::optional<fs::path> view_results(Session& session, const WebsiteResultsOptions& options, std::string_view style)
{
    if (refuse_no_day(session, options.days.empty()))
        return std::nullopt;
    auto one_style = options;
    one_style.by_event = style == "by event";
    one_style.by_schedule = style == "by schedule";
    one_style.by_day = style == "by day";
    one_style.by_round = style == "by round";
    const auto pages = results_pages(document_context(session), one_style);
    // After the container: the style's page, or for by schedule its own container and then all the days.
    return show_page(session, pages.at(one_style.by_schedule ? 2 : 1));
}

} // namespace qv
