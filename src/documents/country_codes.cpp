#include "documents/country_codes.h"

#include "core/database.h"
#include "core/utf8.h"

namespace qv {

Document make_country_codes(const DocumentContext& context, Database& init_db)
{
    Document document;
    begin_document(document, context, "country codes");
    document.add("");
    for (auto row = init_db.query("select code, country from ccodes order by code"); row.step();)
        document.add(lcase(row.text(0) + "=" + row.text(1)));
    end_document(document, context);
    return document;
}

} // namespace qv
