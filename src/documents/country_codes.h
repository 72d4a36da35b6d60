#pragma once

#include "documents/document_lines.h"

namespace qv {

// make_country_codes: the country codes of the reference database, "code=country" in lower case, by code.
Document make_country_codes(const DocumentContext& context, Database& init_db);

} // namespace qv
