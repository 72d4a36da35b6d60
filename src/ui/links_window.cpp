#include "ui/links_window.h"

#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

LinksWindow::LinksWindow(const std::vector<Link>& links, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_text(new QPlainTextEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("links"));
    setWindowTitle(QStringLiteral("links"));
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    QStringList lines;
    for (const auto& link : links)
        lines << qs(link.name) << qs(link.address) << QString();
    m_text->setPlainText(lines.join(QLatin1Char('\n')));

    auto* copy_button = new QPushButton(QStringLiteral("copy"), this);
    auto* print_button = new QPushButton(QStringLiteral("print"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(copy_button);
    buttons->addWidget(print_button);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addLayout(buttons);
    resize(600, 400);
    close_on_escape(this);

    connect(copy_button, &QPushButton::clicked, this, &LinksWindow::copy);
    connect(print_button, &QPushButton::clicked, this, &LinksWindow::print);
}

QString LinksWindow::text() const
{
    return m_text->toPlainText();
}

void LinksWindow::copy()
{
    QApplication::clipboard()->setText(text());
}

void LinksWindow::print()
{
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        m_text->print(&printer);
}

} // namespace qv
