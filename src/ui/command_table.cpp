#include "ui/command_table.h"

#include <QMenu>
#include <QMenuBar>

namespace qv {

CommandTable standing_commands(const CommandTable& table)
{
    CommandTable shown;
    bool separator_due = false;
    for (const auto& line : table) {
        if (line.caption.isEmpty()) {
            separator_due = !shown.empty();
            continue;
        }
        if (!line.action)
            continue;
        if (separator_due)
            shown.push_back({});
        separator_due = false;
        shown.push_back(line);
    }
    return shown;
}

QMenu* add_command_menu(
    QMenuBar* bar, const QString& title, const CommandTable& table, std::function<bool()> tournament_open)
{
    const auto shown = standing_commands(table);
    if (shown.empty())
        return nullptr;
    auto* menu = bar->addMenu(title);
    std::vector<std::pair<QAction*, bool>> lines;
    for (const auto& line : shown) {
        if (line.caption.isEmpty()) {
            menu->addSeparator();
            continue;
        }
        auto* action = menu->addAction(line.caption);
        action->setShortcut(line.shortcut);
        QObject::connect(action, &QAction::triggered, menu, [run = line.action] { run(); });
        lines.emplace_back(action, line.needs_tournament);
    }
    QObject::connect(menu, &QMenu::aboutToShow, menu, [lines, tournament_open] {
        const bool open = tournament_open();
        for (const auto& [action, needs_tournament] : lines)
            action->setEnabled(open || !needs_tournament);
    });
    return menu;
}

QString plain_caption(QString caption)
{
    // "&&" stands for one "&" shown.
    caption.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    caption.remove(QLatin1Char('&'));
    caption.replace(QStringLiteral("\x01"), QStringLiteral("&"));
    return caption;
}

} // namespace qv
