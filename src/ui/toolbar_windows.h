#pragma once

#include "ui/command_table.h"

#include <QDialog>

class QPushButton;

namespace qv {

// The small window of the toolbar buttons "tools" and "feederapps": a button per standing line of its table. A
// choice closes it and opens the chosen window.
class ToolbarWindow : public QDialog
{
    Q_OBJECT

public:
    ToolbarWindow(const QString& title, const CommandTable& table, bool tournament_open, QWidget* parent = nullptr);

    QList<QPushButton*> buttons() const;
    QPushButton* button(const QString& caption) const;
};

} // namespace qv
