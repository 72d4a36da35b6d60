#pragma once

#include "online/tournament_details.h"

#include <QWidget>

#include <array>
#include <map>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QStackedWidget;
class QTabWidget;

namespace qv {

class Session;

// "tournament configuration": the tournament's details, its texts for players, the online limits and the
// recovery e-mails, each saved locally, uploaded to the online service or viewed there.
class TournamentConfigWindow : public QWidget
{
    Q_OBJECT

public:
    TournamentConfigWindow(Session& session, QWidget* parent = nullptr);

    // How a page of the service is shown; the system's browser unless a test says otherwise.
    void set_url_opener(OpenUrl open) { m_open_url = std::move(open); }

    // Runs an action of a list by its caption, as a click on the line does.
    void run_action(QListWidget* list, const QString& caption);

    QTabWidget* tabs() const { return m_tabs; }
    QLineEdit* name_box() const { return m_name; }
    QLineEdit* dates_box() const { return m_dates; }
    QLineEdit* currency_box() const { return m_currency; }
    QListWidget* details_actions() const { return m_details_actions; }
    QListWidget* venue_actions() const { return m_venue_actions; }
    QPlainTextEdit* text_box(TournamentText which, int page = 0) const;
    // "local" or "online": where the text shown last went.
    QLabel* text_state(TournamentText which) const { return m_text_states.at(which); }
    QListWidget* text_actions(TournamentText which) const { return m_text_actions.at(which); }
    QLineEdit* limit_box(int field) const { return m_limits.at(static_cast<std::size_t>(field)); }
    QLineEdit* online_limit_box(int field) const { return m_online_limits.at(static_cast<std::size_t>(field)); }
    QListWidget* limit_actions() const { return m_limit_actions; }
    QListWidget* email_actions() const { return m_email_actions; }

private:
    QWidget* details_page();
    QWidget* text_page(TournamentText which);
    QWidget* limits_page();
    QWidget* emails_page();
    QListWidget* action_list(std::initializer_list<std::pair<const char*, std::function<void()>>> actions);
    void load();

    void text_action(TournamentText which, const QString& caption);
    MaxEventsInput typed_limits() const;
    void show_limits(const MaxEventLimits& limits, std::array<QLineEdit*, 4>& boxes, QCheckBox* mixed);

    Session& m_session;
    OpenUrl m_open_url;
    QTabWidget* m_tabs;
    QLineEdit* m_name;
    QLineEdit* m_dates;
    QLineEdit* m_currency;
    QLineEdit* m_venue;
    QLineEdit* m_address;
    QComboBox* m_country;
    QLineEdit* m_surface;
    QListWidget* m_details_actions = nullptr;
    QListWidget* m_venue_actions = nullptr;
    QStackedWidget* m_detail_pages = nullptr;
    std::map<TournamentText, std::array<QPlainTextEdit*, 2>> m_texts;
    std::map<TournamentText, QLabel*> m_text_states;
    std::map<TournamentText, QListWidget*> m_text_actions;
    std::array<QLineEdit*, 4> m_limits {};
    std::array<QLineEdit*, 4> m_online_limits {};
    QCheckBox* m_mixed_as_doubles = nullptr;
    QCheckBox* m_online_mixed_as_doubles = nullptr;
    QListWidget* m_limit_actions = nullptr;
    QLineEdit* m_ccemails = nullptr;
    QCheckBox* m_dosend = nullptr;
    QListWidget* m_email_actions = nullptr;
    std::map<QListWidget*, std::map<QString, std::function<void()>>> m_actions;
};

} // namespace qv
