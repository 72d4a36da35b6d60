#pragma once

#include <QKeySequence>
#include <QString>

#include <functional>
#include <vector>

class QMenu;
class QMenuBar;

namespace qv {

// One line of a menu or of a toolbar window, in the order the lines stand. A line whose window has not come yet
// has no action and is not shown; giving it its action is all it takes to show it.
struct Command
{
    // "&" marks the mnemonic letter. Empty: a separator.
    QString caption;
    std::function<void()> action;
    // Greyed while no tournament is open.
    bool needs_tournament = false;
    QKeySequence shortcut = {};
};

using CommandTable = std::vector<Command>;

// The lines that are shown: those with an action, and the separators between two groups of them.
CommandTable standing_commands(const CommandTable& table);

// A menu of the standing lines, or none when no line stands. Lines that need a tournament are greyed while
// tournament_open() is false.
QMenu* add_command_menu(
    QMenuBar* bar, const QString& title, const CommandTable& table, std::function<bool()> tournament_open);

// A caption as the user reads it, without its mnemonic mark.
QString plain_caption(QString caption);

} // namespace qv
