#pragma once

#include "scheduling/distribute_load.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

class Session;
class TimeChoosers;

// distributeload, "distribute load across - " and the day: the courts of the day to fill in turn, the start time
// and the minutes per match, or no times at all.
class DistloadWindow : public QDialog
{
    Q_OBJECT

public:
    DistloadWindow(Session& session, ScheduleBoard& board, DistloadCaller caller, const std::string& day,
        std::int64_t idx, BoardList* assistant_list, std::function<void()> on_done, QWidget* parent = nullptr);

    QListWidget* courts() const { return m_courts; }
    TimeChoosers* choosers() const { return m_choosers; }
    QLineEdit* minutes() const { return m_minutes; }
    QCheckBox* ignore_time() const { return m_ignore; }
    QPushButton* button(const QString& caption) const;

public slots:
    bool confirm();

private:
    ScheduleBoard& m_board;
    DistloadCaller m_caller;
    std::string m_day;
    std::int64_t m_idx;
    BoardList* m_assistant_list;
    std::function<void()> m_on_done;
    std::vector<DistloadCourt> m_court_choices;
    QListWidget* m_courts;
    TimeChoosers* m_choosers;
    QLineEdit* m_minutes;
    QCheckBox* m_ignore;
};

} // namespace qv
