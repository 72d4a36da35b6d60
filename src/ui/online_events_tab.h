#pragma once

#include "online/service_operations.h"
#include "ui/area_page.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace qv {

// The online area's tab of events and entries: the operations on the online service, the online events, the
// states of entries and withdrawals, the tournament's events with the operations that publish them, and the
// archive of entries files.
class OnlineEventsTab : public AreaPage
{
    Q_OBJECT

public:
    OnlineEventsTab(Session& session, QWidget* parent = nullptr);

    void init() override;
    void clear() override;
    void refresh_lists(Lists which) override;

    // The public pages go to the system's browser; tests catch them.
    void set_url_opener(OpenUrl open) { m_open_url = std::move(open); }

    QListWidget* online_operations() const { return m_online_operations; }
    QListWidget* online_events() const { return m_online_events; }
    QListWidget* local_operations() const { return m_local_operations; }
    QListWidget* local_events() const { return m_local_events; }
    QListWidget* qv5_operations() const { return m_qv5_operations; }
    QListWidget* qv5_files() const { return m_qv5_files; }
    QLineEdit* qv5_name() const { return m_qv5_name; }
    QLabel* states_label() const { return m_states; }

public slots:
    void run_online(const QString& caption);
    void run_local(const QString& caption);
    void run_qv5(const QString& caption);
    void load_online_events();
    void load_local_events();
    void load_qv5_files();
    void set_online_labels();

private:
    void open_page(std::string_view page);
    void peek(bool refresh_only);
    std::string chosen_qv5() const;
    void search_qv5();

    Session& m_session;
    OpenUrl m_open_url;
    QListWidget* m_online_operations;
    QListWidget* m_online_events;
    QLabel* m_states;
    QListWidget* m_local_operations;
    QListWidget* m_local_events;
    QListWidget* m_qv5_operations;
    QListWidget* m_qv5_files;
    QLineEdit* m_qv5_name;
};

} // namespace qv
