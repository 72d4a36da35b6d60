#pragma once

#include <QDialog>

#include <cstdint>
#include <functional>
#include <string>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace qv {

class Session;
class TimeChoosers;

// setcourt_nm_st: the start time of a court of a day, opened from the board with the court's present start time.
class SetCourtStartWindow : public QDialog
{
    Q_OBJECT

public:
    SetCourtStartWindow(Session& session, std::string sdate, std::int64_t cid, const std::string& starttime,
        std::function<void()> on_saved, QWidget* parent = nullptr);

    TimeChoosers* choosers() const { return m_choosers; }
    QComboBox* scope() const { return m_scope; }

public slots:
    // "ok": the time to the rows of the scope; false when refused.
    bool save();

private:
    Session& m_session;
    std::string m_sdate;
    std::int64_t m_cid;
    std::function<void()> m_on_saved;
    TimeChoosers* m_choosers;
    QComboBox* m_scope;
};

// set_court_name: the name of a court of a day, or of that court number on every day.
class SetCourtNameWindow : public QDialog
{
    Q_OBJECT

public:
    SetCourtNameWindow(Session& session, std::string sdate, std::int64_t cid, const std::string& courtname,
        std::function<void()> on_saved, QWidget* parent = nullptr);

    QLineEdit* name() const { return m_name; }
    QCheckBox* all_days() const { return m_all_days; }

public slots:
    void save();

private:
    Session& m_session;
    std::string m_sdate;
    std::int64_t m_cid;
    std::function<void()> m_on_saved;
    QLineEdit* m_name;
    QCheckBox* m_all_days;
};

} // namespace qv
