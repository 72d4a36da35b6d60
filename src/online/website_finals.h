#pragma once

#include "online/website_draw_pages.h"
#include "online/website_options.h"

#include <vector>

namespace qv {

struct DocumentContext;

inline constexpr std::string_view finals_summary_file = "file_finalssummary.htm";

// VIP_make_finals_summary_container: the two links, knock-out finals and round robin standings.
PageLines finals_summary_container_page();

// The finals of the chosen knock-out events whose final is played: the event, the champion, the runner-up and
// the score, names and score as the results pages write them.
std::vector<std::string> knock_out_finals_text(
    const DocumentContext& context, const std::vector<DrawnEvent>& events, const WebsiteResultsOptions& options);

// The container and its two pages: the knock-out finals, and the standings of each chosen round robin.
std::vector<NamedPage> finals_summary_pages(
    const DocumentContext& context, const std::vector<DrawnEvent>& events, const WebsiteResultsOptions& options);

} // namespace qv
