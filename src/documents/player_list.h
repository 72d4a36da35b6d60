#pragma once

#include "documents/document_lines.h"
#include "documents/document_options.h"

namespace qv {

// VIP_text_rating_ranking: every player by name with sex and, in brackets, the chosen fields of rating, ranking
// and country; the brackets stay out when none of them has a value.
Document VIP_text_rating_ranking(const DocumentContext& context, const PlayerListOptions& options);

} // namespace qv
