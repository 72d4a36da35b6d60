#include "ui/events_windows.h"

#include "core/session.h"
#include "datafiles/event_files.h"
#include "entries/filters.h"
#include "entries/main_lists.h"
#include "ui/events_filter_window.h"
#include "ui/id_lists.h"
#include "ui/list_search.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <string_view>

namespace qv {

namespace {

constexpr std::array<std::string_view, 2> singdobs_words { "singles", "doubles" };
constexpr std::array<std::string_view, 4> sex_words { "male", "female", "mixed", "neutral" };
constexpr std::array<std::string_view, 3> pte_codes { "p", "t", "e" };

template <std::size_t N> QComboBox* word_list(const std::array<std::string_view, N>& words, QWidget* parent)
{
    auto* list = new QComboBox(parent);
    for (const auto word : words)
        list->addItem(qs(word));
    return list;
}

// Shows a stored value; one the list does not hold leaves the list without a choice, so it is not saved as
// another word unseen.
void choose(QComboBox* list, const std::string& word)
{
    list->setCurrentIndex(list->findText(qs(word), Qt::MatchFixedString));
}

// A tick that stands for a setting, written at once when changed.
QCheckBox* setting_box(Session& session, const char* caption, const char* key, QWidget* parent)
{
    auto* box = new QCheckBox(QString::fromLatin1(caption), parent);
    // Set before connecting, so showing the stored tick writes nothing back.
    box->setChecked(session.settings().text(key) == "1");
    QObject::connect(box, &QCheckBox::toggled, box,
        [&session, key](bool on) { session.settings().set_disk_var(key, on ? "1" : "0"); });
    return box;
}

QPushButton* button(const char* caption, QWidget* parent)
{
    return new QPushButton(QString::fromLatin1(caption), parent);
}

// Moves the current line to the next one after it that holds the searched text. The first `skip` lines (the
// "set filter..." line) are not searched.
bool search_list(QListWidget* list, const QString& text, int skip = 0)
{
    const auto row = next_matching_row(list, text, skip);
    if (!row)
        return false;
    list->clearSelection();
    list->setCurrentRow(*row);
    return true;
}

} // namespace

// ---- the fields ----

EventFields::EventFields(QWidget* parent)
    : QWidget(parent)
    , m_name(new QLineEdit(this))
    , m_fee(new QLineEdit(this))
    , m_fee_label(new QLabel(this))
    , m_singdobs(word_list(singdobs_words, this))
    , m_sex(word_list(sex_words, this))
    , m_type(new QComboBox(this))
{
    for (const auto code : pte_codes)
        m_type->addItem(qs(pte_caption(code)));
    // The longest name an event may have shows whole.
    fit_characters(m_name, static_cast<int>(eventname_max_chars));

    auto* layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addRow(QStringLiteral("event name"), m_name);
    layout->addRow(m_fee_label, m_fee);
    layout->addRow(QStringLiteral("singles/doubles"), m_singdobs);
    layout->addRow(QStringLiteral("event sex"), m_sex);
    layout->addRow(QStringLiteral("event type"), m_type);
    connect(m_singdobs, &QComboBox::currentIndexChanged, this, &EventFields::label_fee);
    label_fee();
}

void EventFields::label_fee()
{
    // A doubles fee is paid by each of the pair.
    m_fee_label->setText(m_singdobs->currentText() == QLatin1String("doubles")
            ? QStringLiteral("event fee (per player)")
            : QStringLiteral("event fee"));
}

EventRecord EventFields::record() const
{
    return { to_std(m_name->text()), to_std(m_fee->text()), to_std(m_singdobs->currentText()),
        to_std(m_sex->currentText()), pte_code(to_std(m_type->currentText())) };
}

void EventFields::show_record(const EventRecord& event)
{
    m_name->setText(qs(event.eventname));
    m_fee->setText(qs(event.fee));
    choose(m_singdobs, event.singdobs);
    choose(m_sex, event.sex);
    choose(m_type, pte_caption(event.pte));
}

void EventFields::clear()
{
    m_name->clear();
    m_fee->clear();
    for (auto* list : { m_singdobs, m_sex, m_type })
        list->setCurrentIndex(0);
}

void EventFields::lock_kind(bool locked)
{
    for (auto* list : { m_singdobs, m_sex, m_type })
        list->setEnabled(!locked);
}

void EventFields::point_at(const EventRefusal& refusal)
{
    QLineEdit* box = nullptr;
    switch (refusal.field) {
    case EventField::eventname:
        box = m_name;
        break;
    case EventField::fee:
        box = m_fee;
        break;
    case EventField::singdobs:
        m_singdobs->setFocus();
        return;
    case EventField::sex:
        m_sex->setFocus();
        return;
    case EventField::pte:
        m_type->setFocus();
        return;
    }
    box->setFocus();
    const int position = refusal.refusal.position;
    if (position < 0)
        return;
    const auto text = box->text();
    const int start = utf16_offset(text, position);
    box->setSelection(start, utf16_offset(text, position + 1) - start);
}

// ---- add new event ----

AddEventWindow::AddEventWindow(Session& session, Added on_added, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_on_added(std::move(on_added))
    , m_fields(new EventFields(this))
    , m_save(button("save", this))
    , m_clear(button("clear", this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("addnew_event"));
    setWindowTitle(QStringLiteral("add new event"));
    auto* close_button = button("close", this);
    auto* buttons = new QHBoxLayout;
    for (auto* b : { m_save, m_clear, close_button })
        buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_fields);
    layout->addLayout(buttons);
    set_main_button(this, m_save);
    m_fields->name()->setFocus();
    connect(m_save, &QPushButton::clicked, this, &AddEventWindow::save);
    connect(m_clear, &QPushButton::clicked, m_fields, &EventFields::clear);
    connect(close_button, &QPushButton::clicked, this, &QDialog::close);
}

std::int64_t AddEventWindow::save()
{
    const auto result = add_event(m_session, m_fields->record());
    if (result.refusal)
        m_fields->point_at(*result.refusal);
    if (result.outcome != EventSaved::saved)
        return 0;
    // The next event is often of the same kind: only the name goes.
    m_fields->name()->clear();
    m_fields->name()->setFocus();
    if (m_on_added)
        m_on_added(result.eid);
    return result.eid;
}

// ---- events: one at a time ----

AdminEventsWindow::AdminEventsWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_events(new QListWidget(this))
    , m_fields(new EventFields(this))
    , m_entries_lock(new QLabel(this))
    , m_drawdone_lock(new QLabel(this))
    , m_search_text(new QLineEdit(this))
    , m_save(button("save", this))
    , m_delete(button("delete", this))
    , m_errors(button("errors", this))
    , m_check_on_save(setting_box(session, "check for errors on save", "evt.checkerror", this))
    , m_no_prompt(setting_box(session, "no prompt", "admin_events_delete_no_prompt", this))
    , m_beep_ok(setting_box(session, "beep ok", "events_beep_ok", this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("admin_events"));
    setWindowTitle(QStringLiteral("events"));

    // Room for the longest names beside the fields.
    m_events->setMinimumWidth(220);
    auto* add_button = button("add new", this);
    auto* clear_button = button("clear", this);
    auto* search_button = button("search", this);
    auto* buttons = new QHBoxLayout;
    for (auto* b : { add_button, m_save, clear_button, m_delete, m_errors })
        buttons->addWidget(b);
    auto* search_row = new QHBoxLayout;
    search_row->addWidget(m_search_text);
    search_row->addWidget(search_button);
    auto* ticks = new QHBoxLayout;
    for (auto* box : { m_check_on_save, m_no_prompt, m_beep_ok })
        ticks->addWidget(box);

    auto* right = new QVBoxLayout;
    right->addWidget(m_fields);
    right->addWidget(m_entries_lock);
    right->addWidget(m_drawdone_lock);
    right->addStretch();
    right->addLayout(buttons);
    right->addLayout(ticks);
    auto* layout = new QGridLayout(this);
    layout->addWidget(m_events, 0, 0);
    layout->addLayout(search_row, 1, 0);
    layout->addLayout(right, 0, 1, 2, 1);
    set_main_button(this, m_save);
    run_on_enter(m_search_text, [this] { search(); });
    // The list and its search first, then the fields beside them and what acts on them.
    set_tab_chain({ m_events, m_search_text, search_button, m_fields->name(), m_fields->fee(), m_fields->singdobs(),
        m_fields->sex(), m_fields->type(), add_button, m_save, clear_button, m_delete, m_errors, m_check_on_save,
        m_no_prompt, m_beep_ok });

    connect(m_events, &QListWidget::currentRowChanged, this, &AdminEventsWindow::show_event);
    connect(add_button, &QPushButton::clicked, this, &AdminEventsWindow::add_new);
    connect(m_save, &QPushButton::clicked, this, &AdminEventsWindow::save);
    connect(clear_button, &QPushButton::clicked, this, &AdminEventsWindow::clear);
    connect(search_button, &QPushButton::clicked, this, &AdminEventsWindow::search);
    connect(m_delete, &QPushButton::clicked, this, &AdminEventsWindow::remove);
    connect(m_errors, &QPushButton::clicked, this, &AdminEventsWindow::errors);
    refresh();
}

void AdminEventsWindow::refresh()
{
    const auto keep = m_eid;
    {
        const QSignalBlocker quiet(m_events);
        m_events->clear();
        for (const auto& line : loadevents(m_session.tournament()))
            add_id_line(m_events, line.text, line.id);
        if (keep)
            select_id(m_events, keep);
    }
    show_event();
}

void AdminEventsWindow::show_event()
{
    const auto* item = m_events->currentItem();
    const auto stored = item ? load_event(m_session.tournament(), item->data(Qt::UserRole).toLongLong())
                             : std::optional<StoredEvent> {};
    if (!stored) {
        m_eid = 0;
        m_fields->clear();
        m_fields->lock_kind(false);
        m_entries_lock->clear();
        m_drawdone_lock->clear();
        m_delete->setEnabled(true);
        return;
    }
    m_eid = stored->eid;
    m_fields->show_record(stored->record);
    m_fields->lock_kind(stored->entries);
    m_entries_lock->setText(stored->entries ? qs(entries_lock_label) : QString());
    m_drawdone_lock->setText(stored->drawdone ? qs(drawdone_lock_label) : QString());
    m_delete->setEnabled(!stored->drawdone);
}

AddEventWindow* AdminEventsWindow::add_new()
{
    auto* window = new AddEventWindow(
        m_session, [this](std::int64_t) { refresh(); }, this);
    window->show();
    return window;
}

bool AdminEventsWindow::save()
{
    const auto result = save_event(m_session, m_eid, m_fields->record());
    if (result.refusal)
        m_fields->point_at(*result.refusal);
    if (result.outcome != EventSaved::saved)
        return false;
    // A new name shows in the list.
    refresh();
    return true;
}

void AdminEventsWindow::clear()
{
    m_events->setCurrentRow(-1);
    m_events->clearSelection();
    show_event();
}

bool AdminEventsWindow::search()
{
    return search_list(m_events, m_search_text->text());
}

bool AdminEventsWindow::remove()
{
    if (!m_eid) {
        // The shared refusal of an empty selection.
        oktodelete(m_session, {});
        return false;
    }
    if (!delete_one_event(m_session, m_eid))
        return false;
    m_eid = 0;
    refresh();
    return true;
}

bool AdminEventsWindow::errors()
{
    return check_errors(m_session);
}

// ---- events: the filtered list ----

EventsManageWindow::EventsManageWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_tag(new QLabel(this))
    , m_events(new QListWidget(this))
    , m_search_text(new QLineEdit(this))
    , m_menu(new QMenu(QStringLiteral("events"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("admin_events_manage"));
    setWindowTitle(QStringLiteral("events"));
    m_events->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tag->setWordWrap(true);

    m_menu->addAction(QStringLiteral("delete"), this, &EventsManageWindow::remove);
    m_menu->addAction(QStringLiteral("import events"), this, &EventsManageWindow::import_events);
    m_menu->addAction(QStringLiteral("export events"), this, &EventsManageWindow::export_events);
    m_menu->addAction(QStringLiteral("search"), this, &EventsManageWindow::search);
    auto* bar = new QMenuBar(this);
    bar->addMenu(m_menu);

    auto* search_button = button("search", this);
    auto* search_row = new QHBoxLayout;
    search_row->addWidget(m_search_text);
    search_row->addWidget(search_button);
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(bar);
    layout->addWidget(m_tag);
    layout->addWidget(m_events);
    layout->addLayout(search_row);
    no_main_button(this);
    run_on_enter(m_search_text, [this] { search(); });

    connect(m_events, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        if (m_events->row(item) == 0)
            set_filter();
    });
    connect(search_button, &QPushButton::clicked, this, &EventsManageWindow::search);
    refresh();
}

void EventsManageWindow::refresh()
{
    const auto filter = load_event_filter(m_session.settings(), filter_keys::admin_events_manage);
    m_tag->setText(qs(disp_tag(filter)));
    m_events->clear();
    m_events->addItem(qs(set_filter_line));
    for (const auto& line : filtered_events(m_session.tournament(), filter))
        add_id_line(m_events, line.text, line.id);
}

QDialog* EventsManageWindow::set_filter()
{
    auto* window = new EventsFilterWindow(
        m_session, std::string(filter_keys::admin_events_manage), [this](const EventFilter&) { refresh(); }, this);
    window->show();
    return window;
}

int EventsManageWindow::remove()
{
    const auto deleted = delete_events_with_report(m_session, selected_ids(m_events));
    if (deleted > 0)
        refresh();
    return deleted;
}

int EventsManageWindow::import_events()
{
    const auto imported = import_events_file(m_session);
    if (imported > 0)
        refresh();
    return imported;
}

bool EventsManageWindow::export_events()
{
    return qv::export_events(m_session, selected_ids(m_events));
}

bool EventsManageWindow::search()
{
    return search_list(m_events, m_search_text->text(), 1);
}

// ---- opening ----

AddEventWindow* open_add_event(Session& session, QWidget* parent, AddEventWindow::Added on_added)
{
    if (!session.has_tournament())
        return nullptr;
    auto* window = new AddEventWindow(session, std::move(on_added), parent);
    window->show();
    return window;
}

AdminEventsWindow* open_admin_events(Session& session, QWidget* parent)
{
    if (!session.has_tournament())
        return nullptr;
    auto* window = new AdminEventsWindow(session, parent);
    window->show();
    return window;
}

EventsManageWindow* open_events_manage(Session& session, QWidget* parent)
{
    if (!session.has_tournament())
        return nullptr;
    auto* window = new EventsManageWindow(session, parent);
    window->show();
    return window;
}

} // namespace qv
