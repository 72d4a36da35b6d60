#pragma once

#include "documents/document_lines.h"

#include <cstdint>

namespace qv {

// standings_rr: the players of a round robin by the points of its matches, most first, each "name(points)".
Document standings_rr(const DocumentContext& context, std::int64_t eid);

// Points as the standings write them: whole numbers without a decimal point, else as few decimals as needed.
std::string points_text(double points);

} // namespace qv
