#pragma once

#include "core/links.h"

#include <QWidget>

class QPlainTextEdit;

namespace qv {

// The addresses of the tournament's online pages, name above address, to copy or print.
class LinksWindow : public QWidget
{
    Q_OBJECT

public:
    LinksWindow(const std::vector<Link>& links, QWidget* parent = nullptr);
    QString text() const;

public slots:
    void copy();
    void print();

private:
    QPlainTextEdit* m_text;
};

} // namespace qv
