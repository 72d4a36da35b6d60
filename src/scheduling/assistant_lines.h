#pragma once

#include "scheduling/board_lines.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

// The header of the assistant's match lists.
// clang-format off
inline constexpr std::string_view assistant_list_header = "day                cid     mid        eid     rnd        p1                        vs                 p2                                            time            a           score                           details";
// clang-format on

// A line of an assistant match list: the court line's fields with day, cid and time first:
// day, cid, mid, eid, round, player 1, player 2, time, availability, score, details.
std::string assistant_line_text(const MatchRow& row, const AvailabilityLookup& availability);

// quick_fix_assistant_list4_list3: the day, court and time written into a line after the match moved.
std::string quick_fix_assistant_list4_list3(
    std::string_view line, std::string_view day, std::int64_t cid, std::string_view nbat, std::string_view matchtime);

} // namespace qv
