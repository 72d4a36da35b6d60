#include "ui/players_windows.h"

#include "core/match_record.h"
#include "core/session.h"
#include "entries/filters.h"
#include "entries/player_reports.h"
#include "ui/id_lists.h"
#include "ui/players_filter_window.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace qv {

namespace {

// The boxes of the tabs after the names: column, caption and whether the text runs over many lines. The register
// takes each text whole: no box cuts what is typed.
struct BoxInfo
{
    const char* column;
    const char* caption;
    bool many_lines;
};

const std::vector<std::pair<const char*, std::vector<BoxInfo>>>& tab_boxes()
{
    static const std::vector<std::pair<const char*, std::vector<BoxInfo>>> tabs {
        { "contact",
            { { "phone", "phone", false }, { "mobile", "cell/mobile", false }, { "email", "email", false },
                { "dob", "dob", false }, { "password", "password", false }, { "address", "address", false },
                { "city", "city", false }, { "state", "state", false }, { "postcode", "postcode/zip", false } } },
        { "tournament",
            { { "country", "from code", false }, { "club", "club", false }, { "ranking", "ranking", false },
                { "rating", "rating", false }, { "availabilityrestrictions", "availability restrictions", true } } },
        { "notes",
            { { "notes", "notes", true }, { "results", "results", true }, { "message", "message", true },
                { "tsd", "tournament specific data", true } } },
    };
    return tabs;
}

// Room for a name of this many characters; a longer one scrolls in its box and is kept whole.
constexpr int name_room = 30;

QString box_text(const QWidget* box)
{
    if (const auto* line = qobject_cast<const QLineEdit*>(box))
        return line->text();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(box))
        return text->toPlainText();
    return {};
}

void set_box_text(QWidget* box, const std::string& value)
{
    if (auto* line = qobject_cast<QLineEdit*>(box))
        line->setText(qs(value));
    else if (auto* text = qobject_cast<QPlainTextEdit*>(box))
        text->setPlainText(qs(value));
}

QLineEdit* name_box(const char* column, QWidget* parent)
{
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::fromLatin1(column));
    fit_characters(box, name_room);
    return box;
}

// The text fields of a record by column, in the order of the tabs.
std::vector<std::pair<const char*, std::string PlayerRecord::*>> record_columns()
{
    return { { "phone", &PlayerRecord::phone }, { "mobile", &PlayerRecord::mobile }, { "email", &PlayerRecord::email },
        { "dob", &PlayerRecord::dob }, { "password", &PlayerRecord::password }, { "address", &PlayerRecord::address },
        { "city", &PlayerRecord::city }, { "state", &PlayerRecord::state }, { "postcode", &PlayerRecord::postcode },
        { "country", &PlayerRecord::country }, { "club", &PlayerRecord::club }, { "ranking", &PlayerRecord::ranking },
        { "rating", &PlayerRecord::rating }, { "availabilityrestrictions", &PlayerRecord::availabilityrestrictions },
        { "notes", &PlayerRecord::notes }, { "results", &PlayerRecord::results }, { "message", &PlayerRecord::message },
        { "tsd", &PlayerRecord::tsd } };
}

QString downloaded_text(bool downloaded)
{
    return downloaded ? QStringLiteral("true") : QStringLiteral("false");
}

// The open windows that list players, so that a change made in one shows in all.
std::vector<QDialog*>& open_lists()
{
    static std::vector<QDialog*> windows;
    return windows;
}

void forget(QDialog* window)
{
    auto& windows = open_lists();
    windows.erase(std::remove(windows.begin(), windows.end(), window), windows.end());
}

QListWidgetItem* item_of(QListWidget* list, std::int64_t id)
{
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->data(Qt::UserRole).toLongLong() == id)
            return list->item(row);
    return nullptr;
}

template <class Window> Window* shown(Window* window)
{
    window->show();
    return window;
}

} // namespace

// ---- the fields ----

PlayerFieldsBox::PlayerFieldsBox(QWidget* parent)
    : QWidget(parent)
    , m_tabs(new QTabWidget(this))
    , m_player(new QRadioButton(QStringLiteral("player"), this))
    , m_team(new QRadioButton(QStringLiteral("team"), this))
    , m_fname(name_box("fname", this))
    , m_sname(name_box("sname", this))
    , m_team_name(name_box("teamname", this))
    , m_sex(new QComboBox(this))
    , m_country(nullptr)
    , m_lock_label(new QLabel(qs(player_locked_text), this))
{
    auto* option = new QButtonGroup(this);
    option->addButton(m_player);
    option->addButton(m_team);
    m_player->setChecked(true);
    auto* options = new QHBoxLayout;
    options->addWidget(m_player);
    options->addWidget(m_team);
    options->addStretch();

    m_sex->setObjectName(QStringLiteral("sex"));
    m_sex->addItems({ QStringLiteral("male"), QStringLiteral("female") });
    m_sex->setCurrentIndex(-1);
    m_lock_label->setVisible(false);

    auto* names = new QWidget(m_tabs);
    auto* names_form = new QFormLayout(names);
    names_form->addRow(QStringLiteral("first name(*)"), m_fname);
    names_form->addRow(QStringLiteral("second name(*)"), m_sname);
    names_form->addRow(QStringLiteral("team name(*)"), m_team_name);
    names_form->addRow(QStringLiteral("sex"), m_sex);
    m_tabs->addTab(names, QStringLiteral("name"));

    for (const auto& [title, boxes] : tab_boxes()) {
        auto* page = new QWidget(m_tabs);
        auto* form = new QFormLayout(page);
        for (const auto& info : boxes) {
            QWidget* box = nullptr;
            if (info.many_lines) {
                auto* text = new QPlainTextEdit(page);
                text->setTabChangesFocus(true);
                box = text;
            } else {
                box = new QLineEdit(page);
            }
            box->setObjectName(QString::fromLatin1(info.column));
            form->addRow(QString::fromLatin1(info.caption), box);
        }
        m_tabs->addTab(page, QString::fromLatin1(title));
    }
    m_country = findChild<QLineEdit*>(QStringLiteral("country"));
    m_country->setPlaceholderText(QStringLiteral("country,club,region,state.."));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(options);
    layout->addWidget(m_lock_label);
    layout->addWidget(m_tabs);

    // The option stands above the tabs, so Tab reaches it first.
    set_tab_chain({ m_player, m_team, m_tabs, m_fname, m_sname, m_team_name, m_sex });
    connect(m_player, &QRadioButton::toggled, this, &PlayerFieldsBox::show_kind);
    show_kind();
}

QWidget* PlayerFieldsBox::box(const QString& column) const
{
    return findChild<QWidget*>(column);
}

PlayerRecord PlayerFieldsBox::record() const
{
    PlayerRecord r;
    r.kind = m_team->isChecked() ? PlayerKind::team : PlayerKind::player;
    if (r.kind == PlayerKind::team) {
        r.team_name = to_std(m_team_name->text());
    } else {
        r.fname = to_std(m_fname->text());
        r.sname = to_std(m_sname->text());
    }
    const auto sex = m_sex->currentText();
    r.sex = to_std(sex.compare(m_loaded_sex, Qt::CaseInsensitive) == 0 ? m_loaded_sex : sex);
    for (const auto& [column, member] : record_columns())
        r.*member = to_std(box_text(box(QString::fromLatin1(column))));
    return r;
}

void PlayerFieldsBox::show_record(const PlayerRecord& record)
{
    (record.kind == PlayerKind::team ? m_team : m_player)->setChecked(true);
    m_fname->setText(qs(record.fname));
    m_sname->setText(qs(record.sname));
    m_team_name->setText(qs(record.team_name));
    // Stored in either case; the list offers the lower-case words.
    m_loaded_sex = qs(record.sex);
    m_sex->setCurrentIndex(m_sex->findText(qs(record.sex), Qt::MatchFixedString));
    for (const auto& [column, member] : record_columns())
        set_box_text(box(QString::fromLatin1(column)), record.*member);
    show_kind();
}

void PlayerFieldsBox::clear()
{
    show_record(PlayerRecord {});
    set_locked(false);
    m_tabs->setCurrentIndex(0);
}

void PlayerFieldsBox::set_locked(bool locked)
{
    m_locked = locked;
    m_lock_label->setVisible(locked);
    show_kind();
}

void PlayerFieldsBox::set_read_only(bool read_only)
{
    m_read_only = read_only;
    for (auto* line : m_tabs->findChildren<QLineEdit*>())
        line->setReadOnly(read_only);
    for (auto* text : m_tabs->findChildren<QPlainTextEdit*>())
        text->setReadOnly(read_only);
    show_kind();
}

void PlayerFieldsBox::show_kind()
{
    const bool fixed = m_locked || m_read_only;
    const bool team = m_team->isChecked();
    m_player->setEnabled(!fixed);
    m_team->setEnabled(!fixed);
    m_sex->setEnabled(!fixed);
    m_fname->setEnabled(!fixed && !team);
    m_sname->setEnabled(!fixed && !team);
    m_team_name->setEnabled(!fixed && team);
}

QWidget* PlayerFieldsBox::box_of(PlayerField field) const
{
    switch (field) {
    case PlayerField::fname:
        return m_fname;
    case PlayerField::sname:
        return m_sname;
    case PlayerField::team_name:
        return m_team_name;
    case PlayerField::from_code:
        return m_country;
    case PlayerField::search:
        break;
    }
    return nullptr;
}

void PlayerFieldsBox::point_at(const PlayerRefusal& refusal)
{
    auto* target = box_of(refusal.field);
    if (!target)
        return;
    for (int page = 0; page < m_tabs->count(); ++page)
        if (m_tabs->widget(page)->isAncestorOf(target))
            m_tabs->setCurrentIndex(page);
    target->setFocus();
    auto* line = qobject_cast<QLineEdit*>(target);
    if (!line || refusal.refusal.position < 0)
        return;
    const auto text = line->text();
    const int start = utf16_offset(text, refusal.refusal.position);
    line->setSelection(start, utf16_offset(text, refusal.refusal.position + 1) - start);
}

QCheckBox* players_beep_box(Session& session, QWidget* parent)
{
    auto* box = new QCheckBox(QStringLiteral("beep ok"), parent);
    // Set before connecting, so showing the stored tick writes nothing back.
    box->setChecked(session.settings().integer("players_beep_ok") == 1);
    QObject::connect(box, &QCheckBox::toggled, box,
        [&session](bool on) { session.settings().set_disk_var("players_beep_ok", on ? "1" : "0"); });
    return box;
}

// ---- add new player ----

AddPlayerWindow::AddPlayerWindow(Session& session, Added on_added, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_on_added(std::move(on_added))
    , m_fields(new PlayerFieldsBox(this))
    , m_save(new QPushButton(QStringLiteral("save"), this))
    , m_clear(new QPushButton(QStringLiteral("clear"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("players_fs_addnew"));
    setWindowTitle(QStringLiteral("add new player"));
    auto* close_button = new QPushButton(QStringLiteral("close"), this);
    auto* print_button = new QPushButton(QStringLiteral("print"), this);
    auto* buttons = new QHBoxLayout;
    for (auto* b : { m_save, m_clear, close_button, print_button })
        buttons->addWidget(b);
    buttons->addWidget(players_beep_box(m_session, this));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_fields);
    layout->addLayout(buttons);

    set_main_button(this, m_save);
    m_fields->fname()->setFocus();
    connect(m_save, &QPushButton::clicked, this, &AddPlayerWindow::save);
    connect(m_clear, &QPushButton::clicked, this, &AddPlayerWindow::clear);
    connect(close_button, &QPushButton::clicked, this, &QDialog::close);
    connect(print_button, &QPushButton::clicked, this, &AddPlayerWindow::print);
}

std::int64_t AddPlayerWindow::save()
{
    const auto saved = add_player(m_session, m_fields->record());
    if (!saved.ok()) {
        m_fields->point_at(*saved.refused);
        return 0;
    }
    m_fields->clear();
    m_fields->fname()->setFocus();
    refresh_players_windows();
    if (m_on_added)
        m_on_added(saved.pid);
    return saved.pid;
}

void AddPlayerWindow::clear()
{
    m_fields->clear();
}

void AddPlayerWindow::print()
{
    const auto r = m_fields->record();
    QStringList lines;
    if (r.kind == PlayerKind::team) {
        lines << QStringLiteral("team name: ") + qs(r.team_name);
    } else {
        lines << QStringLiteral("first name: ") + qs(r.fname) << QStringLiteral("second name: ") + qs(r.sname);
    }
    lines << QStringLiteral("sex: ") + qs(r.sex);
    for (const auto& [title, boxes] : tab_boxes())
        for (const auto& info : boxes)
            lines << QString::fromLatin1(info.caption) + QStringLiteral(": ")
                    + box_text(m_fields->box(QString::fromLatin1(info.column)));
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QTextDocument document;
    document.setPlainText(lines.join(QLatin1Char('\n')));
    document.print(&printer);
}

// ---- players ----

PlayersWindow::PlayersWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_list(new QListWidget(this))
    , m_search(new QLineEdit(this))
    , m_fields(new PlayerFieldsBox(this))
    , m_no_prompt(new QCheckBox(QStringLiteral("no prompt"), this))
    , m_timestamp(new QLabel(this))
    , m_downloaded(new QLabel(this))
    , m_search_button(new QPushButton(QStringLiteral("search"), this))
    , m_add(new QPushButton(QStringLiteral("add new"), this))
    , m_clear(new QPushButton(QStringLiteral("clear"), this))
    , m_save(new QPushButton(QStringLiteral("save"), this))
    , m_delete(new QPushButton(QStringLiteral("delete"), this))
    , m_text(new QPushButton(QStringLiteral("text"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("players_players"));
    setWindowTitle(QStringLiteral("players"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_search->setObjectName(QStringLiteral("search"));

    auto* search_row = new QHBoxLayout;
    search_row->addWidget(m_search);
    search_row->addWidget(m_search_button);
    auto* left = new QVBoxLayout;
    left->addLayout(search_row);
    left->addWidget(m_list);

    auto* stamps = new QFormLayout;
    stamps->addRow(QStringLiteral("timestamp"), m_timestamp);
    stamps->addRow(QStringLiteral("downloaded"), m_downloaded);
    auto* right = new QVBoxLayout;
    right->addWidget(m_fields);
    right->addLayout(stamps);

    auto* rating_button = new QPushButton(QStringLiteral("rating,ranking,from"), this);
    auto* events_button = new QPushButton(QStringLiteral("events"), this);
    auto* buttons = new QHBoxLayout;
    for (auto* b : { m_add, m_clear, m_save, m_delete })
        buttons->addWidget(b);
    auto* beep_box = players_beep_box(m_session, this);
    buttons->addWidget(beep_box);
    buttons->addWidget(m_no_prompt);
    buttons->addStretch();
    for (auto* b : { m_text, rating_button, events_button })
        buttons->addWidget(b);

    auto* layout = new QGridLayout(this);
    layout->addLayout(left, 0, 0);
    layout->addLayout(right, 0, 1);
    layout->addLayout(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(1, 2);
    set_main_button(this, m_save);
    run_on_enter(m_search, [this] { search(); });
    // The search above the list, the list, the fields beside it, then the row of buttons.
    set_tab_chain({ m_search, m_search_button, m_list });
    set_tab_chain({ m_add, m_clear, m_save, m_delete, beep_box, m_no_prompt, m_text, rating_button, events_button });
    m_search->setFocus();

    connect(m_search_button, &QPushButton::clicked, this, &PlayersWindow::search);
    connect(m_add, &QPushButton::clicked, this, &PlayersWindow::add_new);
    connect(m_clear, &QPushButton::clicked, this, &PlayersWindow::clear);
    connect(m_save, &QPushButton::clicked, this, &PlayersWindow::save);
    connect(m_delete, &QPushButton::clicked, this, &PlayersWindow::remove);
    connect(m_text, &QPushButton::clicked, this, &PlayersWindow::export_text);
    connect(rating_button, &QPushButton::clicked, this, &PlayersWindow::report_rating_ranking);
    connect(events_button, &QPushButton::clicked, this, &PlayersWindow::report_events);
    connect(m_list, &QListWidget::currentItemChanged, this, [this] { load_selected(false); });
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] { load_selected(false); });

    open_lists().push_back(this);
    refresh();
}

PlayersWindow::~PlayersWindow()
{
    forget(this);
}

void PlayersWindow::refresh()
{
    {
        QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const auto& line : all_players(m_session.tournament()))
            add_id_line(m_list, line.player, line.pid);
        if (m_pid)
            select_pid(m_pid);
    }
    // Read again: another window may have changed the row shown.
    load_selected(true);
}

void PlayersWindow::select_pid(std::int64_t pid)
{
    if (auto* item = item_of(m_list, pid))
        m_list->setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
    else
        m_list->clearSelection();
}

void PlayersWindow::load_selected(bool again)
{
    const auto pid = current_id(m_list);
    const auto record = pid ? load_player(m_session.tournament(), *pid) : std::nullopt;
    if (!record) {
        // Fields typed for a new player stay; those of a player no longer selected go.
        if (m_pid != 0)
            m_fields->clear();
        m_pid = 0;
        m_timestamp->clear();
        m_downloaded->clear();
        m_save->setEnabled(false);
        m_delete->setEnabled(false);
        // Typed into empty fields, a person is added.
        m_add->setDefault(true);
        return;
    }
    if (record->pid == m_pid && !again)
        return;
    m_pid = record->pid;
    m_fields->show_record(*record);
    const bool locked = is_in_event(m_session.tournament(), record->player);
    m_fields->set_locked(locked);
    m_timestamp->setText(qs(record->timestamp));
    m_downloaded->setText(downloaded_text(record->downloaded));
    m_save->setEnabled(true);
    m_save->setDefault(true);
    m_delete->setEnabled(!locked);
}

bool PlayersWindow::search()
{
    const auto found = search_players(m_session, to_std(m_search->text()));
    if (found.refused) {
        m_search->setFocus();
        const auto text = m_search->text();
        const int at = found.refused->refusal.position;
        if (at >= 0)
            m_search->setSelection(utf16_offset(text, at), utf16_offset(text, at + 1) - utf16_offset(text, at));
        return false;
    }
    if (found.pids.empty())
        return false;
    {
        QSignalBlocker quiet(m_list);
        select_pid(found.pids.front());
        for (const auto pid : found.pids)
            if (auto* item = item_of(m_list, pid))
                item->setSelected(true);
        m_list->scrollToItem(m_list->currentItem());
    }
    load_selected(false);
    return true;
}

bool PlayersWindow::add_new()
{
    const auto saved = add_player(m_session, m_fields->record());
    if (!saved.ok()) {
        m_fields->point_at(*saved.refused);
        return false;
    }
    refresh_players_windows();
    select_pid(saved.pid);
    load_selected(true);
    return true;
}

void PlayersWindow::clear()
{
    m_list->clearSelection();
    m_list->setCurrentRow(-1);
    m_fields->clear();
    m_fields->fname()->setFocus();
}

bool PlayersWindow::save()
{
    if (m_pid == 0)
        return false;
    const auto saved = save_player(m_session, m_pid, m_fields->record(), PlayerForm::edit);
    if (!saved.ok()) {
        m_fields->point_at(*saved.refused);
        return false;
    }
    // Shown again as stored: names first-capped.
    refresh_players_windows();
    select_pid(saved.pid);
    load_selected(true);
    return true;
}

bool PlayersWindow::remove()
{
    if (m_pid == 0)
        return false;
    const int row = m_list->currentRow();
    const auto prompt = m_no_prompt->isChecked() ? PlayerPrompt::none : PlayerPrompt::ask;
    if (!delete_player(m_session, m_pid, prompt))
        return false;
    refresh_players_windows();
    if (m_list->count() > 0)
        m_list->setCurrentItem(m_list->item(std::min(row, m_list->count() - 1)), QItemSelectionModel::ClearAndSelect);
    load_selected(false);
    return true;
}

bool PlayersWindow::export_text()
{
    return export_players_text(m_session, selected_ids(m_list)).has_value();
}

bool PlayersWindow::report_rating_ranking()
{
    return report_players_rating_ranking(m_session).has_value();
}

bool PlayersWindow::report_events()
{
    return report_players_events(m_session).has_value();
}

// ---- player details ----

PlayerDetailsWindow::PlayerDetailsWindow(Session& session, PlayerTable table, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_table(table)
    , m_names(new QListWidget(this))
    , m_fields(new PlayerFieldsBox(this))
    , m_timestamp(new QLabel(this))
    , m_save(new QPushButton(QStringLiteral("save"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("players_fs_small"));
    setWindowTitle(QStringLiteral("player details"));
    m_names->setVisible(false);
    m_names->setMaximumHeight(80);
    m_fields->set_read_only(table == PlayerTable::peek_players);
    m_save->setEnabled(false);
    m_save->setVisible(table == PlayerTable::players);

    auto* close_button = new QPushButton(QStringLiteral("close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new QLabel(QStringLiteral("timestamp"), this));
    buttons->addWidget(m_timestamp);
    buttons->addStretch();
    buttons->addWidget(m_save);
    buttons->addWidget(close_button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_names);
    layout->addWidget(m_fields);
    layout->addLayout(buttons);
    set_main_button(this, m_save);

    connect(m_save, &QPushButton::clicked, this, &PlayerDetailsWindow::save);
    connect(close_button, &QPushButton::clicked, this, &QDialog::close);
    connect(m_names, &QListWidget::currentTextChanged, this, [this](const QString& name) {
        if (!name.isEmpty())
            show_name(to_std(name));
    });
}

bool PlayerDetailsWindow::show_found(const std::optional<PlayerRecord>& record)
{
    if (!record) {
        m_session.talk().message("player not found");
        return false;
    }
    show_record(*record);
    return true;
}

Database& PlayerDetailsWindow::source() const
{
    return m_table == PlayerTable::players ? m_session.tournament() : m_session.peek_browse_db();
}

bool PlayerDetailsWindow::show_name(std::string_view name)
{
    return show_found(load_player_by_name(source(), name, m_table));
}

bool PlayerDetailsWindow::show_pid(std::int64_t pid)
{
    return show_found(load_player(source(), pid, m_table));
}

bool PlayerDetailsWindow::show_match(std::int64_t sid)
{
    const auto people = match_names(m_session.tournament(), m_session.talk(), sid);
    if (people.empty())
        return false;
    QSignalBlocker quiet(m_names);
    m_names->clear();
    for (const auto& name : people)
        m_names->addItem(qs(name));
    m_names->setVisible(true);
    m_names->setCurrentRow(0);
    show_name(people.front());
    return true;
}

void PlayerDetailsWindow::show_record(const PlayerRecord& record)
{
    m_pid = record.pid;
    m_fields->show_record(record);
    if (m_table == PlayerTable::players)
        m_fields->set_locked(is_in_event(m_session.tournament(), record.player));
    m_timestamp->setText(qs(record.timestamp));
    m_save->setEnabled(m_table == PlayerTable::players);
}

bool PlayerDetailsWindow::save()
{
    if (m_table != PlayerTable::players || m_pid == 0)
        return false;
    const auto saved = save_player(m_session, m_pid, m_fields->record(), PlayerForm::edit);
    if (!saved.ok()) {
        m_fields->point_at(*saved.refused);
        return false;
    }
    refresh_players_windows();
    show_pid(saved.pid);
    return true;
}

// ---- players delete ----

PlayersDeleteWindow::PlayersDeleteWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_tag(new QLabel(this))
    , m_list(new QListWidget(this))
    , m_no_prompt(new QCheckBox(QStringLiteral("no prompt"), this))
    , m_delete(new QPushButton(QStringLiteral("delete"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("players_delete"));
    setWindowTitle(QStringLiteral("players delete"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tag->setWordWrap(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_no_prompt);
    buttons->addStretch();
    buttons->addWidget(m_delete);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("wrt filter"), this));
    layout->addWidget(m_tag);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    // Deleting is never a key away.
    no_main_button(this);

    connect(m_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        if (m_list->row(item) == 0)
            set_filter();
    });
    connect(m_delete, &QPushButton::clicked, this, &PlayersDeleteWindow::remove);
    open_lists().push_back(this);
    refresh();
}

PlayersDeleteWindow::~PlayersDeleteWindow()
{
    forget(this);
}

void PlayersDeleteWindow::refresh()
{
    const auto filter = load_player_filter(m_session.settings(), filter_keys::players_delete);
    m_tag->setText(qs(disp_tag(filter)));
    m_list->clear();
    m_list->addItem(qs(set_filter_line));
    for (const auto& p : filtered_players(m_session.tournament(), filter))
        add_id_line(m_list, p.player, p.pid);
}

QDialog* PlayersDeleteWindow::set_filter()
{
    auto* window = new PlayersFilterWindow(
        m_session, std::string(filter_keys::players_delete), PlayersFilterKind::with_sources,
        [this](const PlayerFilter&) { refresh(); }, this);
    window->show();
    return window;
}

int PlayersDeleteWindow::remove()
{
    const auto pids = selected_ids(m_list);
    if (pids.empty())
        return 0;
    const auto prompt = m_no_prompt->isChecked() ? PlayerPrompt::none : PlayerPrompt::ask;
    const int deleted = delete_players(m_session, pids, prompt);
    refresh_players_windows();
    return deleted;
}

// ---- opening ----

AddPlayerWindow* open_add_player(Session& session, QWidget* parent)
{
    return shown(new AddPlayerWindow(session, {}, parent));
}

PlayersWindow* open_players(Session& session, QWidget* parent)
{
    return shown(new PlayersWindow(session, parent));
}

PlayersDeleteWindow* open_players_delete(Session& session, QWidget* parent)
{
    return shown(new PlayersDeleteWindow(session, parent));
}

PlayerDetailsWindow* open_player_details_by_name(
    Session& session, std::string_view name, QWidget* parent, PlayerTable table)
{
    auto* window = new PlayerDetailsWindow(session, table, parent);
    if (!window->show_name(name)) {
        delete window;
        return nullptr;
    }
    return shown(window);
}

PlayerDetailsWindow* open_player_details_by_pid(Session& session, std::int64_t pid, QWidget* parent, PlayerTable table)
{
    auto* window = new PlayerDetailsWindow(session, table, parent);
    if (!window->show_pid(pid)) {
        delete window;
        return nullptr;
    }
    return shown(window);
}

PlayerDetailsWindow* open_player_details_by_match(Session& session, std::int64_t sid, QWidget* parent)
{
    auto* window = new PlayerDetailsWindow(session, PlayerTable::players, parent);
    if (!window->show_match(sid)) {
        delete window;
        return nullptr;
    }
    return shown(window);
}

void refresh_players_windows()
{
    // A copy: a window may close while the others read their lists.
    const auto windows = open_lists();
    for (auto* window : windows) {
        if (auto* players = qobject_cast<PlayersWindow*>(window))
            players->refresh();
        else if (auto* deleting = qobject_cast<PlayersDeleteWindow*>(window))
            deleting->refresh();
    }
}

} // namespace qv
