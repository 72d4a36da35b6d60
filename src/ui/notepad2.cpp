#include "ui/notepad2.h"

#include "core/codepage.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include <fstream>
#include <iterator>

namespace qv {

Notepad2::Notepad2(QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_text(new QPlainTextEdit(this))
    , m_print(new QPushButton(QStringLiteral("print"), this))
    , m_save(new QPushButton(QStringLiteral("save"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("notepad2"));
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont mono(QStringLiteral("Monospace"));
    mono.setStyleHint(QFont::TypeWriter);
    m_text->setFont(mono);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_print);
    buttons->addWidget(m_save);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addLayout(buttons);
    resize(700, 500);
    close_on_escape(this);

    connect(m_print, &QPushButton::clicked, this, &Notepad2::print);
    connect(m_save, &QPushButton::clicked, this, &Notepad2::save);
}

bool Notepad2::load_file(const std::filesystem::path& file)
{
    m_file = file;
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        m_text->clear();
        return false;
    }
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    m_line_end = bytes.find("\r\n") != std::string::npos || bytes.find('\n') == std::string::npos ? "\r\n" : "\n";
    QString text = qs(from_cp1252(bytes));
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    m_text->setPlainText(text);
    if (windowTitle().isEmpty())
        setWindowTitle(qs_path(file.filename()));
    return true;
}

void Notepad2::set_lines(const std::vector<std::string>& lines)
{
    QStringList all;
    for (const auto& line : lines)
        all << qs(line);
    m_text->setPlainText(all.join(QLatin1Char('\n')));
}

QString Notepad2::text() const
{
    return m_text->toPlainText();
}

bool Notepad2::save_to(const std::filesystem::path& file) const
{
    QString body = text();
    body.replace(QStringLiteral("\n"), qs(m_line_end));
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (!out)
        return false;
    out << to_cp1252(to_std(body));
    return static_cast<bool>(out.flush());
}

void Notepad2::print()
{
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        m_text->print(&printer);
}

void Notepad2::save()
{
    const QString suggested = m_file.empty() ? QStringLiteral("text.txt") : qs_path(m_file.filename());
    const QString chosen
        = QFileDialog::getSaveFileName(this, QStringLiteral("save"), suggested, QStringLiteral("txt files (*.txt)"));
    if (chosen.isEmpty())
        return;
    if (!save_to(to_path(chosen)))
        QMessageBox::information(this, QString(), QStringLiteral("cannot write file:") + chosen);
}

} // namespace qv
