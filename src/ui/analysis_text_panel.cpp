#include "ui/analysis_text_panel.h"

#include "core/file_save.h"
#include "core/session.h"
#include "documents/printroutines.h"
#include "ui/analysis_lists.h"
#include "ui/qt_text.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>

namespace qv {

AnalysisTextPanel::AnalysisTextPanel(Session& session, std::string file_name, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_file_name(std::move(file_name))
    , m_box(new QPlainTextEdit(this))
{
    m_box->setReadOnly(true);
    m_box->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_actions = new ActionList(
        { { "print(p)", [this] { print_lines(m_session, lines(), "p", m_title); } },
            { "print(l)", [this] { print_lines(m_session, lines(), "l", m_title); } },
            { "save to file", [this] { save_text_file_as(m_session, m_file_name, m_session.dirs().app, lines()); } } },
        this);
    m_actions->setFixedWidth(m_actions->sizeHintForColumn(0) + 2 * m_actions->frameWidth() + 8);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_box, 1);
    layout->addWidget(m_actions, 0, Qt::AlignTop);
}

void AnalysisTextPanel::show_text(const AnalysisText& text)
{
    m_title = text.title;
    QString shown;
    if (!text.title.empty())
        shown = qs(text.title) + QStringLiteral("\n\n");
    for (const auto& line : text.lines)
        shown += qs(line) + QLatin1Char('\n');
    m_box->setPlainText(shown);
}

std::vector<std::string> AnalysisTextPanel::lines() const
{
    std::vector<std::string> lines;
    for (const auto& line : m_box->toPlainText().split(QLatin1Char('\n')))
        lines.push_back(to_std(line));
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

} // namespace qv
