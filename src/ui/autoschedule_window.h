#pragma once

#include <QDialog>

#include <functional>

class QLineEdit;
class QPushButton;

namespace qv {

class ScheduleBoard;
class Session;
class TimeChoosers;

// autoschedule_frm, "auto-schedule matches": the start of the first selected match of the court list and the
// minutes allowed per match.
class AutoscheduleWindow : public QDialog
{
    Q_OBJECT

public:
    AutoscheduleWindow(
        Session& session, ScheduleBoard& board, std::function<void()> on_done, QWidget* parent = nullptr);

    TimeChoosers* choosers() const { return m_choosers; }
    QLineEdit* minutes() const { return m_minutes; }
    QPushButton* button(const QString& caption) const;

public slots:
    bool confirm();

private:
    Session& m_session;
    ScheduleBoard& m_board;
    std::function<void()> m_on_done;
    TimeChoosers* m_choosers;
    QLineEdit* m_minutes;
};

} // namespace qv
