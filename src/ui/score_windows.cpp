#include "ui/score_windows.h"

#include "core/session.h"
#include "drawengine/result_entry.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

QPushButton* add_button(QHBoxLayout* row, QWidget* parent, const QString& caption, const QString& name)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    row->addWidget(button);
    return button;
}

QPushButton* find_button(const QWidget* window, const QString& name)
{
    for (auto* each : window->findChildren<QPushButton*>())
        if (each->objectName() == name)
            return each;
    return nullptr;
}

} // namespace

LongScoreWindow::LongScoreWindow(Session& session, const QString& top, const QString& bottom, const QString& score,
    const QString& longscore, Save on_save, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_on_save(std::move(on_save))
    , m_score(new QLineEdit(score, this))
    , m_longscore(new QLineEdit(longscore, this))
{
    setObjectName(QStringLiteral("addlongscore"));
    setWindowTitle(QStringLiteral("long score"));
    m_score->setObjectName(QStringLiteral("score"));
    m_longscore->setObjectName(QStringLiteral("longscore"));
    fit_characters(m_score, 14);
    fit_characters(m_longscore, 40);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(top + QStringLiteral("  vs  ") + bottom, this), 0, 0, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("short score"), this), 1, 0);
    grid->addWidget(m_score, 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("long score"), this), 2, 0);
    grid->addWidget(m_longscore, 2, 1);
    auto* clear_score = new QPushButton(QStringLiteral("clear"), this);
    clear_score->setObjectName(QStringLiteral("clear score"));
    auto* clear_long = new QPushButton(QStringLiteral("clear"), this);
    clear_long->setObjectName(QStringLiteral("clear longscore"));
    grid->addWidget(clear_score, 1, 2);
    grid->addWidget(clear_long, 2, 2);

    auto* buttons = new QHBoxLayout;
    auto* save_button = add_button(buttons, this, QStringLiteral("save"), QStringLiteral("save"));
    auto* close = add_button(buttons, this, QStringLiteral("close"), QStringLiteral("close"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);

    set_main_button(this, save_button);
    set_tab_chain({ m_score, clear_score, m_longscore, clear_long, save_button, close });
    connect(save_button, &QPushButton::clicked, this, &LongScoreWindow::save);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(clear_score, &QPushButton::clicked, m_score, &QLineEdit::clear);
    connect(clear_long, &QPushButton::clicked, m_longscore, &QLineEdit::clear);
}

QPushButton* LongScoreWindow::button(const QString& name) const
{
    return find_button(this, name);
}

bool LongScoreWindow::save()
{
    MatchResult texts;
    texts.matchscore = to_std(m_score->text());
    texts.matchlongscore = to_std(m_longscore->text());
    if (!check_result_texts(m_session.talk(), "ko", texts))
        return false;
    if (m_on_save)
        m_on_save(m_score->text(), m_longscore->text());
    accept();
    return true;
}

MatchNoteWindow::MatchNoteWindow(Session& session, MatchNotes notes, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_match(std::move(notes))
    , m_general(new QLineEdit(qs(m_match.general), this))
{
    setObjectName(QStringLiteral("matchnote"));
    setWindowTitle(qs(session.settings().text("app.generic_match") + " note"));
    auto* grid = new QGridLayout;
    std::vector<QWidget*> chain;
    int row = 0;
    for (std::size_t k = 0; k < m_match.players.size(); ++k) {
        if (m_match.players[k].empty())
            continue;
        auto* box = new QLineEdit(qs(m_match.notes[k]), this);
        box->setObjectName(QStringLiteral("note%1").arg(k + 1));
        fit_characters(box, 40);
        grid->addWidget(new QLabel(qs(m_match.players[k]), this), row, 0);
        grid->addWidget(box, row++, 1);
        m_notes[k] = box;
        chain.push_back(box);
    }
    m_general->setObjectName(QStringLiteral("general"));
    fit_characters(m_general, 40);
    grid->addWidget(new QLabel(QStringLiteral("general"), this), row, 0);
    grid->addWidget(m_general, row, 1);
    chain.push_back(m_general);

    auto* buttons = new QHBoxLayout;
    auto* save_button = add_button(buttons, this, QStringLiteral("save"), QStringLiteral("save"));
    auto* clear = add_button(buttons, this, QStringLiteral("clear all notes"), QStringLiteral("clear all notes"));
    auto* close = add_button(buttons, this, QStringLiteral("close"), QStringLiteral("close"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);

    set_main_button(this, save_button);
    chain.insert(chain.end(), { save_button, clear, close });
    set_tab_chain(chain);
    connect(save_button, &QPushButton::clicked, this, &MatchNoteWindow::save);
    connect(clear, &QPushButton::clicked, this, &MatchNoteWindow::clear_all);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

QPushButton* MatchNoteWindow::button(const QString& caption) const
{
    return find_button(this, caption);
}

void MatchNoteWindow::save()
{
    for (std::size_t k = 0; k < m_notes.size(); ++k)
        if (m_notes[k])
            m_match.notes[k] = to_std(m_notes[k]->text());
    m_match.general = to_std(m_general->text());
    save_match_notes(m_session, m_match);
    accept();
}

void MatchNoteWindow::clear_all()
{
    for (auto* box : m_notes)
        if (box)
            box->clear();
    m_general->clear();
}

LongScoreWindow* open_addlongscore(Session& session, const QString& top, const QString& bottom, const QString& score,
    const QString& longscore, LongScoreWindow::Save on_save, QWidget* parent)
{
    auto* window = new LongScoreWindow(session, top, bottom, score, longscore, std::move(on_save), parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    show_over_parent(window);
    return window;
}

MatchNoteWindow* open_matchnote(Session& session, std::int64_t sid, QWidget* parent)
{
    auto notes = read_match_notes(session, sid);
    if (!notes)
        return nullptr;
    auto* window = new MatchNoteWindow(session, std::move(*notes), parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    show_over_parent(window);
    return window;
}

} // namespace qv
