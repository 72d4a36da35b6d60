#pragma once

#include "drawengine/result_entry.h"

#include <QDialog>

#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace qv {

class ScheduleBoardArea;
class Session;

// addresult: one match by its number, who plays whom, the winner and the scores or a round robin's points.
// Every save goes through BF_add_result of the board.
class AddResultWindow : public QDialog
{
    Q_OBJECT

public:
    AddResultWindow(Session& session, ScheduleBoardArea& board, QWidget* parent = nullptr);

    QLineEdit* number() const { return m_number; }
    QPlainTextEdit* details() const { return m_details; }
    QPushButton* top() const { return m_top; }
    QPushButton* bottom() const { return m_bottom; }
    QLineEdit* score() const { return m_score; }
    QLineEdit* longscore() const { return m_longscore; }
    QLineEdit* points1() const { return m_points1; }
    QLineEdit* points2() const { return m_points2; }
    QLabel* note() const { return m_note; }
    QLabel* following_note() const { return m_following; }
    QComboBox* onsave() const { return m_onsave; }
    QCheckBox* hold_refresh() const { return m_hold; }
    QCheckBox* close_on_jump() const { return m_close_on_jump; }
    QPushButton* button(const QString& caption) const;
    const std::optional<LoadedMatch>& loaded() const { return m_loaded; }
    ResultWinner winner() const { return m_winner; }

public slots:
    // "load": the number in the box.
    bool load();
    // loadsid: the board and the other windows open the window on a match.
    bool loadsid(qint64 sid);
    bool save();
    void show_in_draw();
    void show_in_schedule();
    void following_round();
    // A click on a side: marks it as winner, or takes its mark off.
    void mark(ResultWinner side);

private:
    void clear_match();
    void configure_controls();
    void set_check_options();
    void show_winner();
    void filter_score(QLineEdit* box);
    void filter_points(QLineEdit* box);
    std::string id_term() const;
    // Jumping away closes the window when addres.close_on_sid_sis is on.
    void after_jump();

    Session& m_session;
    ScheduleBoardArea& m_board;
    std::optional<LoadedMatch> m_loaded;
    ResultWinner m_winner = ResultWinner::none;
    bool m_filtering = false;

    QLineEdit* m_number;
    QPlainTextEdit* m_details;
    QPushButton* m_top;
    QPushButton* m_bottom;
    QLabel* m_score_label;
    QLineEdit* m_score;
    QLabel* m_longscore_label;
    QLineEdit* m_longscore;
    QWidget* m_points_row;
    QLineEdit* m_points1;
    QLineEdit* m_points2;
    QLabel* m_note;
    QLabel* m_following;
    QComboBox* m_onsave;
    QCheckBox* m_hold;
    QCheckBox* m_close_on_jump;
};

// The one result window of the main window, brought to the front; with a sid it loads that match.
AddResultWindow* open_addresult(Session& session, ScheduleBoardArea& board, QWidget* parent, qint64 sid = 0);

} // namespace qv
