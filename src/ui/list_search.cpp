#include "ui/list_search.h"

#include "entries/events.h"
#include "ui/qt_text.h"

#include <QListWidget>

namespace qv {

std::optional<int> next_matching_row(const QListWidget* list, const QString& text, int skip)
{
    std::vector<std::string> lines;
    for (int row = skip; row < list->count(); ++row)
        lines.push_back(to_std(list->item(row)->text()));
    std::optional<std::size_t> after;
    if (list->currentRow() >= skip)
        after = static_cast<std::size_t>(list->currentRow() - skip);
    const auto found = find_line(lines, to_std(text), after);
    if (!found)
        return std::nullopt;
    return static_cast<int>(*found) + skip;
}

} // namespace qv
