#include "ui/toolbar_windows.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

ToolbarWindow::ToolbarWindow(const QString& title, const CommandTable& table, bool tournament_open, QWidget* parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(title);
    setWindowTitle(title);
    // Room for a caption of two dozen characters, so the window does not shrink to its longest line.
    setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    auto* layout = new QVBoxLayout(this);
    for (const auto& line : standing_commands(table)) {
        if (line.caption.isEmpty()) {
            layout->addSpacing(8);
            continue;
        }
        auto* button = new QPushButton(line.caption, this);
        button->setEnabled(tournament_open || !line.needs_tournament);
        layout->addWidget(button);
        // Closed first, so the chosen window comes up alone.
        connect(button, &QPushButton::clicked, this, [this, run = line.action] {
            close();
            run();
        });
    }
}

QList<QPushButton*> ToolbarWindow::buttons() const
{
    return findChildren<QPushButton*>();
}

QPushButton* ToolbarWindow::button(const QString& caption) const
{
    for (auto* each : buttons())
        if (each->text() == caption)
            return each;
    return nullptr;
}

} // namespace qv
