#pragma once

#include "documents/document_lines.h"
#include "documents/document_options.h"

#include <optional>
#include <string_view>

namespace qv {

class Statement;

// get_line: one match of the working schedule in the style's fields, with its note last.
std::string get_line(
    const Statement& row, ScheduleBy by, const ScheduleOptions& options, const DocumentContext& context);

// A line of the working schedule as FORMAT_schedule_by writes it: the state mark when chosen, then get_line.
std::string schedule_line(
    const Statement& row, ScheduleBy by, const ScheduleOptions& options, const DocumentContext& context);

// get_court_name_starttime: a court's heading of the schedule by court: the court word, "=", the short form,
// then ",name=" and the court's name and ",start=" and its start time, each when set.
std::string court_heading(Database& tournament, std::string_view sdate, std::int64_t cid, std::string_view court_word);

// idocs_working_schedule_update_line: the line of one match of a schedule shown, read again after a result; none
// when the match has gone.
std::optional<std::string> idocs_working_schedule_update_line(
    const DocumentContext& context, ScheduleBy by, const ScheduleOptions& options, std::int64_t sid);

// FORMAT_schedule_by: the working schedule of one day by court, by time or by event. The clipboards never show;
// the matches the state filter leaves out are counted in no total.
Document FORMAT_schedule_by(
    const DocumentContext& context, ScheduleBy by, std::string_view sdate, const ScheduleOptions& options);

} // namespace qv
