#pragma once

#include "scheduling/days_courts.h"

#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// setdatescourts_new: the days of the tournament and the courts of each day, edited in working copies until "save".
class SetDatesCourtsWindow : public QDialog
{
    Q_OBJECT

public:
    // on_saved: the caller learns the new dates text (the tournament details show it).
    SetDatesCourtsWindow(Session& session, std::function<void(const std::string&)> on_saved, QWidget* parent = nullptr);

    DaysCourtsEditor& editor() { return m_editor; }
    QListWidget* days() const { return m_days; }
    QListWidget* courts() const { return m_courts; }
    QLineEdit* number() const { return m_number; }
    QLabel* days_count() const { return m_days_count; }
    QPushButton* button(const QString& caption) const;
    // The four choosers of a date: 0 century (shared), then year, month, day of the start (1) or the end (2).
    QComboBox* year(int which) const { return which == 1 ? m_start_year : m_end_year; }
    QComboBox* month(int which) const { return which == 1 ? m_start_month : m_end_month; }
    QComboBox* day(int which) const { return which == 1 ? m_start_day : m_end_day; }
    QComboBox* century() const { return m_century; }

public slots:
    void set_days();
    bool generate();
    void delete_court();
    void delete_from_all_days();
    void delete_days();
    void save();

private:
    void loaddays();
    void load_courts();
    void switch_ctls();
    void refill_days(QComboBox* month, QComboBox* day);
    void set_choosers(int which, const std::string& sdate);
    ChosenDate chosen(int which) const;
    std::string current_day() const;
    std::vector<std::string> selected_days() const;
    std::optional<std::int64_t> selected_cid() const;

    Session& m_session;
    DaysCourtsEditor m_editor;
    std::function<void(const std::string&)> m_on_saved;
    std::vector<CourtEntry> m_court_entries;

    QComboBox* m_century;
    QComboBox* m_start_year;
    QComboBox* m_start_month;
    QComboBox* m_start_day;
    QComboBox* m_end_year;
    QComboBox* m_end_month;
    QComboBox* m_end_day;
    QListWidget* m_days;
    QLabel* m_days_count;
    QListWidget* m_courts;
    QLineEdit* m_number;
};

// Opens the window, or brings the open one to the front: two windows would share one working copy.
SetDatesCourtsWindow* open_setdatescourts(
    Session& session, QWidget* parent, std::function<void(const std::string&)> on_saved = {});
// The file is closing: an open window goes without saving.
void close_setdatescourts();

} // namespace qv
