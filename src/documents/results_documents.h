#pragma once

#include "documents/document_lines.h"
#include "documents/document_options.h"

#include <string_view>

namespace qv {

class Statement;

// The results of the dead matches of the days in livedays (all days when it is empty), the winner first:
// VIP_text_results by event, VIP_text_results_by_round by round and event, VIP_text_results_groupbyday by day.
Document VIP_text_results(const DocumentContext& context, const ResultsOptions& options);
Document VIP_text_results_by_round(const DocumentContext& context, const ResultsOptions& options);
Document VIP_text_results_groupbyday(const DocumentContext& context, const ResultsOptions& options);

// get_line_results: a dead match as the schedule says it, " bt " or " lost to " and the winner marked "*", then
// nine blanks, the score, the round and the event.
std::string get_line_results(const Statement& row, const ResultsOptions& options);

// VIP_text_resultsbyschedule: for each day of livedays that has dead matches, its results court by court.
Document VIP_text_resultsbyschedule(const DocumentContext& context, const ResultsOptions& options);

// The style chosen on the results page.
Document results_document(const DocumentContext& context, ResultsStyle style, const ResultsOptions& options);

// VIP_players_results: the dead matches of one player, singles and doubles headed apart, from his side.
Document VIP_players_results(const DocumentContext& context, std::string_view player, const ResultsOptions& options);

} // namespace qv
