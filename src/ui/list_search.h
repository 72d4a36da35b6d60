#pragma once

#include <QString>

#include <optional>

class QListWidget;

namespace qv {

// "search" on a list on screen: the row of the first line after the current one (wrapping round) that holds the
// text, case-blind. The first `skip` lines, such as a "set filter..." line, are never found.
std::optional<int> next_matching_row(const QListWidget* list, const QString& text, int skip = 0);

} // namespace qv
