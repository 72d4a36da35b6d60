#pragma once

#include "ui/qt_text.h"

#include <QListWidget>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

// List lines that carry the id of the row they show.
inline QListWidgetItem* add_id_line(QListWidget* list, const std::string& text, std::int64_t id)
{
    auto* item = new QListWidgetItem(qs(text), list);
    item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(id));
    return item;
}

inline void select_id(QListWidget* list, std::int64_t id)
{
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->data(Qt::UserRole).toLongLong() == id)
            list->setCurrentRow(row);
}

// The id of the current line if it is selected.
inline std::optional<std::int64_t> current_id(const QListWidget* list)
{
    const auto* item = list->currentItem();
    if (!item || !item->isSelected() || !item->data(Qt::UserRole).isValid())
        return std::nullopt;
    return item->data(Qt::UserRole).toLongLong();
}

// The ids of the selected lines, top to bottom; lines without an id (such as "set filter...") are left out.
inline std::vector<std::int64_t> selected_ids(const QListWidget* list)
{
    std::vector<std::int64_t> ids;
    for (int row = 0; row < list->count(); ++row) {
        const auto* item = list->item(row);
        if (item->isSelected() && item->data(Qt::UserRole).isValid())
            ids.push_back(item->data(Qt::UserRole).toLongLong());
    }
    return ids;
}

} // namespace qv
