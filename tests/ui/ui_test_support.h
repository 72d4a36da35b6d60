#pragma once

#include "ui/tournament_area.h"

#include <QCoreApplication>
#include <QEvent>
#include <QListWidget>
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
