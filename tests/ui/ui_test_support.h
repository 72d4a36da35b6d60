#pragma once

#include "ui/command_table.h"
#include "ui/tournament_area.h"

#include <QCoreApplication>
#include <QEvent>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QWidget>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace qv::test {

// Lets the main loop run its deferred actions and deletions until the condition holds (or plainly gives up
// after enough rounds, and the test's own assertion then fails).
template <class Condition> bool run_main_loop_until(Condition done)
{
    for (int round = 0; round < 500 && !done(); ++round) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return done();
}

// The lines of a menu as the user reads them; "-" a separator.
inline QStringList menu_lines(const QMenu* menu)
{
    QStringList lines;
    for (const auto* action : menu->actions())
        lines << (action->isSeparator() ? QStringLiteral("-") : plain_caption(action->text()));
    return lines;
}

inline QMenu* menu_of(const QMainWindow& window, const QString& title)
{
    for (auto* action : window.menuBar()->actions())
        if (plain_caption(action->text()) == title)
            return action->menu();
    return nullptr;
}

// A menu's line by its caption as the user reads it, or null where the menu does not show it.
inline QAction* line_of(const QMainWindow& window, const QString& menu, const QString& caption)
{
    const auto* found = menu_of(window, menu);
    if (!found)
        return nullptr;
    for (auto* action : found->actions())
        if (plain_caption(action->text()) == caption)
            return action;
    return nullptr;
}

// The lines of a list, top to bottom.
inline QStringList lines_of(const QListWidget* list)
{
    QStringList lines;
    for (int row = 0; row < list->count(); ++row)
        lines << list->item(row)->text();
    return lines;
}

// The line with this text becomes the current one and joins the selection, as a click with Ctrl would.
inline void select_line(QListWidget* list, const QString& text)
{
    const auto found = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << text.toStdString();
    list->setCurrentItem(found.front(), QItemSelectionModel::Select);
}

inline std::string bytes_of(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return { std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>() };
}

// The window of this kind opened last over the parent.
template <class Window> Window* last_opened(const QWidget& parent)
{
    const auto windows = parent.findChildren<Window*>();
    return windows.isEmpty() ? nullptr : windows.back();
}

// A click on a line of one of the tournament area's lists of operations.
inline void click_operation(TournamentArea& area, OperationList which, const QString& caption)
{
    auto* list = area.operations(which);
    const auto found = list->findItems(caption, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << caption.toStdString();
    emit list->itemClicked(found.front());
}

} // namespace qv::test
