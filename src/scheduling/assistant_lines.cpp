#include "scheduling/assistant_lines.h"

#include <vector>

namespace qv {

namespace {

constexpr std::size_t day_field = 0;
constexpr std::size_t cid_field = 1;
constexpr std::size_t time_field_index = 7;
constexpr std::size_t field_count = 11;

} // namespace

std::string assistant_line_text(const MatchRow& row, const AvailabilityLookup& availability)
{
    auto upper = line_fields(upper_line_text(row, availability));
    upper.resize(7);
    return join_fields({ row.scheduledate, std::to_string(row.cid), std::to_string(row.sid), upper[0], upper[1],
        upper[2], upper[3], time_field(row.nbat, row.matchtime), upper[4], upper[5], upper[6] });
}

std::string quick_fix_assistant_list4_list3(
    std::string_view line, std::string_view day, std::int64_t cid, std::string_view nbat, std::string_view matchtime)
{
    auto fields = line_fields(line);
    if (fields.size() < field_count)
        fields.resize(field_count);
    fields[day_field] = std::string(day);
    fields[cid_field] = std::to_string(cid);
    fields[time_field_index] = time_field(nbat, matchtime);
    return join_fields(fields);
}

} // namespace qv
