#include "online/website_containers.h"

namespace qv {

namespace {

// Links one a line, each followed by "<br>", the last by end instead.
void add_link_lines(PageLines& page, const std::vector<std::string>& anchors, std::string_view end)
{
    for (std::size_t i = 0; i < anchors.size(); ++i)
        page.push_back(anchors[i] + (i + 1 == anchors.size() ? std::string(end) : "<br>"));
    if (anchors.empty())
        page.emplace_back(end);
}

std::vector<std::string> event_anchors(
    const std::vector<WebsiteEvent>& events, std::string_view prefix, std::string_view extension)
{
    std::vector<std::string> anchors;
    for (const auto& event : events)
        anchors.push_back(local_anchor(std::string(prefix) + event.file_part + std::string(extension), event.name));
    return anchors;
}

PageLines container_head(std::string_view title)
{
    PageLines page;
    add_head(page, title_line(title));
    add_container_body(page);
    return page;
}

} // namespace

PageLines draws_container_page(const std::vector<WebsiteEvent>& events, bool text_draws)
{
    auto page = container_head("draws");
    page.insert(page.end(), { R"(<p><font face="Verdana"><font size="1">draws<br>)", "<br>" });
    add_link_lines(page, event_anchors(events, "draw_", ".gif"), "</font></p>");
    if (text_draws) {
        page.insert(page.end(), { "", R"(<p><font face="Verdana"><font size="1">text draws<br>)", "<br>" });
        add_link_lines(page, event_anchors(events, "textdraw_", ".htm"), "</font></p>");
    }
    page.insert(page.end(), { "</p>", "" });
    add_end(page);
    return page;
}

std::string schedule_file_name(char way, std::string_view day_line)
{
    return std::string("file_sb") + way + "_" + day_file_part(day_line) + ".htm";
}

PageLines schedules_container_page(const WebsiteScheduleOptions& options)
{
    auto page = container_head("schedules");
    page.insert(page.end(), { R"(<p><font face="Verdana" size="1">schedules<br>)", "<br>" });
    const std::pair<bool, std::string_view> ways[] = {
        { options.by_court, "court" },
        { options.by_time, "time" },
        { options.by_event, "event" },
    };
    for (std::size_t d = 0; d < options.days.size(); ++d) {
        if (d > 0)
            page.emplace_back("<br>");
        const auto day = day_file_part(options.days[d]);
        for (const auto& [on, way] : ways)
            if (on)
                page.push_back(
                    local_anchor(schedule_file_name(way.front(), day), "schedule_by_" + std::string(way) + "_" + day)
                    + "<br>");
    }
    page.emplace_back("</font></p>");
    add_end(page);
    return page;
}

PageLines results_container_page(const WebsiteResultsOptions& options)
{
    auto page = container_head("results by day");
    page.insert(page.end(), { R"(<p><font face="Verdana" size="1">results by day<br>)", "<br>" });
    const std::pair<bool, std::string_view> styles[] = {
        { options.by_event, "results_by_event" },
        { options.by_schedule, "results_by_schedule" },
        { options.by_day, "results_group_by_day" },
        { options.by_round, "results_by_round" },
    };
    for (const auto& [on, name] : styles)
        if (on)
            page.push_back(local_anchor("file_" + std::string(name) + ".htm", name) + "<br>");
    // The finals summary goes with the results whatever their styles.
    page.push_back(local_anchor("file_finalssummary.htm", "finals_summary") + "<br>");
    page.emplace_back("</font></p>");
    add_end(page);
    return page;
}

std::string results_for_day_file_name(std::string_view day_line)
{
    if (is_unscheduled_day_line(day_line))
        return "file_results_unscheduled_matches.htm";
    return "file_results_for_" + day_file_part(day_line) + ".htm";
}

PageLines results_by_schedule_container_page(const std::vector<std::string>& day_lines)
{
    auto page = container_head("results by schedule");
    page.insert(page.end(),
        { R"(<p><font face="Verdana" size="1">results by schedule<br>)", "<br>",
            local_anchor(results_for_all_days_file, "results_by_schedule_for_all days") + "<br>" });
    for (const auto& line : day_lines) {
        const auto text = is_unscheduled_day_line(line) ? std::string("results_unscheduled_matches")
                                                        : "results_by_schedule_for_" + day_file_part(line);
        page.push_back(local_anchor(results_for_day_file_name(line), text) + "<br>");
    }
    page.emplace_back("</font></p>");
    add_end(page);
    return page;
}

std::string name_map_file_name(const WebsiteEvent& event)
{
    return "file_alias_" + event.file_part + ".htm";
}

PageLines name_map_container_page(const std::vector<WebsiteEvent>& events)
{
    auto page = container_head("alias");
    page.insert(page.end(), { R"(<p><font face="Verdana" size="1">alias<br>)", "<br>" });
    for (const auto& event : events)
        page.push_back(local_anchor(name_map_file_name(event), event.name) + "<br>");
    page.emplace_back("</font></p>");
    add_end(page);
    return page;
}

PageLines qv4_page(std::string_view qv4_file, std::string_view home_page)
{
    PageLines page;
    add_head(page, title_line("qv4 file"));
    page.insert(page.end(),
        { R"(<body link="#000080" vlink="#000080" alink="#000080">)", "",
            R"(<p><font face="Verdana" size="1">qv4 file<br>)", "<br>",
            "1) the qv4 file/archived qv4 files can be read and<br>", "analysed with quorvelin,without an account<br>",
            "ie those features of quorvelin are free,download quorvelin from<br>",
            local_anchor(home_page, home_page) + "<br>", "<br>",
            "2) Some browsers will append a .txt extension to the qv4 file on download<br>",
            "you will have to change the extension of the file to .qv4 to have quorvelin recognize it<br>", "<br>",
            local_anchor(qv4_file, qv4_file) });
    add_end(page);
    return page;
}

} // namespace qv
