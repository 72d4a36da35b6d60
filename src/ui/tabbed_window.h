#pragma once

#include <QHBoxLayout>
#include <QKeySequence>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

// A window of tabs: the tabs above, a "close" button below at the right; Esc closes it too.
inline void lay_out_tabbed_window(QWidget* window, QTabWidget* tabs)
{
    auto* close_button = new QPushButton(QStringLiteral("close"), window);
    QObject::connect(close_button, &QPushButton::clicked, window, &QWidget::close);
    QObject::connect(
        new QShortcut(QKeySequence(Qt::Key_Escape), window), &QShortcut::activated, window, &QWidget::close);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(close_button);
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(tabs);
    layout->addLayout(bottom);
}

} // namespace qv
