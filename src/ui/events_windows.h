#pragma once

#include "entries/events.h"

#include <QDialog>

#include <cstdint>
#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;

namespace qv {

class Session;

// The five boxes both event windows share: name, fee, singles/doubles, sex and event type. The fee's label
// follows the type: "event fee (per player)" for doubles, "event fee" otherwise.
class EventFields : public QWidget
{
    Q_OBJECT

public:
    explicit EventFields(QWidget* parent = nullptr);

    QLineEdit* name() const { return m_name; }
    QLineEdit* fee() const { return m_fee; }
    QLabel* fee_label() const { return m_fee_label; }
    QComboBox* singdobs() const { return m_singdobs; }
    QComboBox* sex() const { return m_sex; }
    QComboBox* type() const { return m_type; }

    EventRecord record() const;
    void show_record(const EventRecord& event);
    // Empty boxes; the lists go back to their first choice.
    void clear();
    // Sex, singles/doubles and type, which entries lock.
    void lock_kind(bool locked);
    // The cursor goes to the refused box, on the offending character where there is one.
    void point_at(const EventRefusal& refusal);

private:
    void label_fee();

    QLineEdit* m_name;
    QLineEdit* m_fee;
    QLabel* m_fee_label;
    QComboBox* m_singdobs;
    QComboBox* m_sex;
    QComboBox* m_type;
};

// "add new event" (`addnew_event`): the five fields, "save", "clear" and "close". The caller hears of each event
// added.
class AddEventWindow : public QDialog
{
    Q_OBJECT

public:
    using Added = std::function<void(std::int64_t eid)>;

    AddEventWindow(Session& session, Added on_added, QWidget* parent = nullptr);

    EventFields* fields() const { return m_fields; }
    QPushButton* save_button() const { return m_save; }
    QPushButton* clear_button() const { return m_clear; }

public slots:
    // The eid added, 0 when refused or stopped by the name check.
    std::int64_t save();

private:
    Session& m_session;
    Added m_on_added;
    EventFields* m_fields;
    QPushButton* m_save;
    QPushButton* m_clear;
};

// "events" (`admin_events`): the list of events and the fields of the chosen one, edited and saved, deleted one
// at a time, and the name check of every event ("errors"). An event with entries keeps its sex, singles/doubles
// and type; an event with a draw cannot be deleted.
class AdminEventsWindow : public QDialog
{
    Q_OBJECT

public:
    AdminEventsWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* events() const { return m_events; }
    EventFields* fields() const { return m_fields; }
    QLabel* entries_lock() const { return m_entries_lock; }
    QLabel* drawdone_lock() const { return m_drawdone_lock; }
    QLineEdit* search_text() const { return m_search_text; }
    QPushButton* save_button() const { return m_save; }
    QPushButton* delete_button() const { return m_delete; }
    QPushButton* errors_button() const { return m_errors; }
    QCheckBox* check_on_save() const { return m_check_on_save; }
    QCheckBox* no_prompt() const { return m_no_prompt; }
    QCheckBox* beep_ok() const { return m_beep_ok; }

    // The event shown, 0 when none is.
    std::int64_t shown_event() const { return m_eid; }

public slots:
    // Reads the list again, keeping the chosen event where it still exists.
    void refresh();
    AddEventWindow* add_new();
    bool save();
    void clear();
    bool search();
    bool remove();
    bool errors();

private:
    void show_event();

    Session& m_session;
    std::int64_t m_eid = 0;
    QListWidget* m_events;
    EventFields* m_fields;
    QLabel* m_entries_lock;
    QLabel* m_drawdone_lock;
    QLineEdit* m_search_text;
    QPushButton* m_save;
    QPushButton* m_delete;
    QPushButton* m_errors;
    QCheckBox* m_check_on_save;
    QCheckBox* m_no_prompt;
    QCheckBox* m_beep_ok;
};

// "events" (`admin_events_manage`): the events of its filter (first line "set filter...") in a multi-select
// list, and the menu "delete" and "search". Deleting reports event by event in feedback.txt.
class EventsManageWindow : public QDialog
{
    Q_OBJECT

public:
    EventsManageWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* events() const { return m_events; }
    QLabel* filter_tag() const { return m_tag; }
    QLineEdit* search_text() const { return m_search_text; }
    // The window's menu, for the file operations to add their lines to.
    QMenu* menu() const { return m_menu; }

public slots:
    void refresh();
    // Opens "events  filter" over this window's filter; storing it reads the list again.
    QDialog* set_filter();
    // Returns the number of events deleted.
    int remove();
    // "import events" asks for a qv3 file; "export events" writes the selected events to one.
    int import_events();
    bool export_events();
    bool search();

private:
    Session& m_session;
    QLabel* m_tag;
    QListWidget* m_events;
    QLineEdit* m_search_text;
    QMenu* m_menu;
};

// Open the windows, shown and deleted on close. Each needs an open tournament: with none they open nothing and
// return nullptr.
AddEventWindow* open_add_event(Session& session, QWidget* parent, AddEventWindow::Added on_added = {});
AdminEventsWindow* open_admin_events(Session& session, QWidget* parent);
EventsManageWindow* open_events_manage(Session& session, QWidget* parent);

} // namespace qv
