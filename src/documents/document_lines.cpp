#include "documents/document_lines.h"

#include "core/time_rules.h"

namespace qv {

std::vector<std::string> Document::texts() const
{
    std::vector<std::string> texts;
    texts.reserve(lines.size());
    for (const auto& line : lines)
        texts.push_back(line.text);
    return texts;
}

void begin_document(Document& document, const DocumentContext& context, std::string title)
{
    document.add(context.tournament_name);
    document.add(std::move(title));
}

void end_document(Document& document, const DocumentContext& context)
{
    document.add("");
    document.add("created @ " + date_time_short_year(context.created));
}

} // namespace qv
