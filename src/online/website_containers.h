#pragma once

#include "online/website_html.h"
#include "online/website_options.h"

#include <string>
#include <vector>

namespace qv {

// An event as the pages name it: its name and its file name part.
struct WebsiteEvent
{
    std::string name;
    std::string file_part;
};

// VIP_make_draws_container: the pictures, and with text draws the text pages, one link an event.
PageLines draws_container_page(const std::vector<WebsiteEvent>& events, bool text_draws);

// The schedules container: per selected day a link per way of ordering that is on, court, time, event.
PageLines schedules_container_page(const WebsiteScheduleOptions& options);
// "file_sbc_", "file_sbt_" or "file_sbe_", the day's part and ".htm".
std::string schedule_file_name(char way, std::string_view day_line);

// The results container: a link per results style that is on, then the finals summary.
PageLines results_container_page(const WebsiteResultsOptions& options);

// The results-by-schedule container: all days, then one link per line of the day list.
PageLines results_by_schedule_container_page(const std::vector<std::string>& day_lines);
// The file of one line of the day list: "file_results_for_" the day, or the file of the unscheduled matches.
std::string results_for_day_file_name(std::string_view day_line);
inline constexpr std::string_view results_for_all_days_file = "file_results_for_all days.htm";

// VIP_make_name_map_container: a link per event that gave a name map page.
PageLines name_map_container_page(const std::vector<WebsiteEvent>& events);
std::string name_map_file_name(const WebsiteEvent& event);

// The page about the results file, the home page's address in its first point.
PageLines qv4_page(std::string_view qv4_file, std::string_view home_page);

} // namespace qv
