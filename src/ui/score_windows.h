#pragma once

#include "drawengine/match_notes.h"

#include <QDialog>

#include <array>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace qv {

class Session;

// addlongscore: the score pair of one match of the draw, opened from its score box (a knock-out's levels 2 on,
// or a round robin's line). "save" hands both texts back to the draw, which saves them its own way.
class LongScoreWindow : public QDialog
{
    Q_OBJECT

public:
    using Save = std::function<void(const QString& score, const QString& longscore)>;
    LongScoreWindow(Session& session, const QString& top, const QString& bottom, const QString& score,
        const QString& longscore, Save on_save, QWidget* parent = nullptr);

    QLineEdit* score() const { return m_score; }
    QLineEdit* longscore() const { return m_longscore; }
    QPushButton* button(const QString& name) const;

public slots:
    bool save();

private:
    Session& m_session;
    Save m_on_save;
    QLineEdit* m_score;
    QLineEdit* m_longscore;
};

// matchnote: a note for each player of the match and one for the match.
class MatchNoteWindow : public QDialog
{
    Q_OBJECT

public:
    MatchNoteWindow(Session& session, MatchNotes notes, QWidget* parent = nullptr);

    // The note box of player 1 .. 4; null where the match has no such player.
    QLineEdit* note(int player) const { return m_notes.at(static_cast<std::size_t>(player - 1)); }
    QLineEdit* general() const { return m_general; }
    QPushButton* button(const QString& caption) const;

public slots:
    void save();
    // "clear all notes": the boxes only; nothing is written before "save".
    void clear_all();

private:
    Session& m_session;
    MatchNotes m_match;
    std::array<QLineEdit*, 4> m_notes {};
    QLineEdit* m_general;
};

// The windows over the window they were opened from, deleted on close. matchnote reads the row first; a sid that
// has gone gives its message and no window.
LongScoreWindow* open_addlongscore(Session& session, const QString& top, const QString& bottom, const QString& score,
    const QString& longscore, LongScoreWindow::Save on_save, QWidget* parent);
MatchNoteWindow* open_matchnote(Session& session, std::int64_t sid, QWidget* parent);

} // namespace qv
