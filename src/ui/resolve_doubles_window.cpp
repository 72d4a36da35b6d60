#include "ui/resolve_doubles_window.h"

#include "core/database.h"
#include "core/session.h"
#include "core/validators.h"
#include "entries/entries.h"
#include "ui/list_search.h"
#include "ui/players_windows.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace qv {

namespace {

const QColor taken_back(Qt::lightGray);
const QColor free_back(Qt::white);
const QColor male_text(Qt::blue);
const QColor female_text(Qt::red);

// A person the register does not know is coloured by the sex the entry gave, black when it gave none.
QColor text_colour(const std::string& sex)
{
    if (sex == "male")
        return male_text;
    if (sex == "female")
        return female_text;
    return QColor(Qt::black);
}

void add_person(QListWidget* column, const RawPerson& person)
{
    auto* item = new QListWidgetItem(qs(map_preq(person.name)), column);
    item->setBackground(person.taken() ? taken_back : free_back);
    item->setForeground(text_colour(person.sex));
}

QLabel* team_label(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(160);
    return label;
}

// "search": the name to find, checked as names are.
class ResolveSearchWindow : public QDialog
{
public:
    ResolveSearchWindow(Session& session, ResolveDoublesWindow& target)
        : QDialog(&target)
        , m_box(new QLineEdit(this))
    {
        setAttribute(Qt::WA_DeleteOnClose);
        setObjectName(QStringLiteral("resolve_doubles_search"));
        setWindowTitle(QStringLiteral("search"));
        auto* find = new QPushButton(QStringLiteral("search"), this);
        auto* close_button = new QPushButton(QStringLiteral("close"), this);
        close_button->setAutoDefault(false);
        auto* layout = new QHBoxLayout(this);
        layout->addWidget(m_box);
        layout->addWidget(find);
        layout->addWidget(close_button);
        fit_characters(m_box, 24);
        set_main_button(this, find);
        connect(close_button, &QPushButton::clicked, this, &QWidget::close);
        connect(find, &QPushButton::clicked, this, [this, &session, &target] {
            const auto text = to_std(m_box->text().trimmed());
            if (!report(session.talk(), value_required(text))
                || !report(session.talk(), check_class(text, ValueClass::systemdisallow)))
                return;
            if (!target.search_for(qs(text)))
                session.talk().message("not found");
        });
    }

private:
    QLineEdit* m_box;
};

} // namespace

ResolveDoublesWindow::ResolveDoublesWindow(Session& session, std::int64_t eid, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_eid(eid)
    , m_left(new QListWidget(this))
    , m_right(new QListWidget(this))
    , m_resolved(new QListWidget(this))
    , m_actions(new QListWidget(this))
    , m_pages(new QStackedWidget(this))
    , m_resolved_box(new QGroupBox(this))
    , m_label1(team_label(this))
    , m_label2(team_label(this))
    , m_totals(new QLabel(this))
    , m_auto(new QCheckBox(QStringLiteral("auto complete"), this))
    , m_key(new QGroupBox(QStringLiteral("key"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("resolve_doubles"));
    setWindowTitle(QStringLiteral("resolve doubles: ")
        + qs(session.tournament().scalar_text("select eventname from events where eid=?", eid)));
    m_left->setObjectName(QStringLiteral("left_col"));
    m_right->setObjectName(QStringLiteral("right_col"));
    m_resolved->setObjectName(QStringLiteral("resolved"));
    for (auto* list : { m_left, m_right, m_resolved })
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // One scroll for both columns: the left follows the right's bar.
    m_left->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(
        m_right->verticalScrollBar(), &QScrollBar::valueChanged, m_left->verticalScrollBar(), &QScrollBar::setValue);
    connect(
        m_left->verticalScrollBar(), &QScrollBar::valueChanged, m_right->verticalScrollBar(), &QScrollBar::setValue);
    m_auto->setChecked(session.settings().integer("resolve_autocomplete") == 1);
    for (const char* action : { "resolve", "remove", "clr", "scrape text", "search", "restore", "toggle", "pd", "key" })
        m_actions->addItem(QString::fromLatin1(action));
    m_actions->setObjectName(QStringLiteral("actions"));
    m_actions->setMaximumWidth(120);

    auto* raw_page = new QGroupBox(QStringLiteral("original raw entries"), this);
    auto* columns = new QGridLayout(raw_page);
    columns->addWidget(new QLabel(QStringLiteral("player 1"), this), 0, 0);
    columns->addWidget(new QLabel(QStringLiteral("player 2"), this), 0, 1);
    columns->addWidget(m_left, 1, 0);
    columns->addWidget(m_right, 1, 1);
    auto* resolved_layout = new QVBoxLayout(m_resolved_box);
    resolved_layout->addWidget(m_resolved);
    m_pages->addWidget(raw_page);
    m_pages->addWidget(m_resolved_box);

    auto* key_layout = new QVBoxLayout(m_key);
    for (const char* line : { "backcolor=grey=player taken", "backcolor=white=player free",
             "textcolor=blue=male player", "textcolor=red=female player" })
        key_layout->addWidget(new QLabel(QString::fromLatin1(line), this));

    auto* labels = new QHBoxLayout;
    labels->addWidget(m_label1);
    labels->addWidget(new QLabel(QStringLiteral("/"), this));
    labels->addWidget(m_label2);
    labels->addWidget(m_auto);
    labels->addStretch();
    auto* side = new QVBoxLayout;
    side->addWidget(m_actions, 1);
    side->addWidget(m_key);
    auto* close_button = new QPushButton(QStringLiteral("close"), this);
    close_button->setAutoDefault(false);
    side->addWidget(close_button);
    auto* main = new QVBoxLayout;
    main->addLayout(labels);
    main->addWidget(m_pages, 1);
    main->addWidget(m_totals);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(main, 1);
    layout->addLayout(side);
    resize(700, 520);
    no_main_button(this);

    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
    connect(m_actions, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { run_action(item->text()); });
    connect(m_auto, &QCheckBox::toggled, this,
        [this](bool on) { m_session.settings().set_disk_var("resolve_autocomplete", on ? "1" : "0"); });
    for (auto* column : { m_left, m_right }) {
        connect(column, &QListWidget::itemClicked, this, [this, column](QListWidgetItem* item) {
            if (QApplication::keyboardModifiers() == Qt::NoModifier)
                name_clicked(column, column->row(item));
        });
    }
    connect(m_left, &QListWidget::itemSelectionChanged, this, [this] { mirror_selection(m_left, m_right); });
    connect(m_right, &QListWidget::itemSelectionChanged, this, [this] { mirror_selection(m_right, m_left); });
    set_upper_lower();
}

bool ResolveDoublesWindow::showing_resolved() const
{
    return m_pages->currentWidget() == m_resolved_box;
}

void ResolveDoublesWindow::set_upper_lower()
{
    auto& db = m_session.tournament();
    m_rows = load_raw_rows(db, m_eid);
    const auto teams = load_resolved_teams(db, m_eid);
    const int top = m_right->verticalScrollBar()->value();
    m_mirroring = true;
    m_left->clear();
    m_right->clear();
    for (const auto& row : m_rows) {
        add_person(m_left, row.first);
        add_person(m_right, row.second);
    }
    m_mirroring = false;
    m_right->verticalScrollBar()->setValue(top);
    m_resolved->clear();
    for (const auto& team : teams)
        m_resolved->addItem(qs(team.player + (team.reserve ? " (reserve)" : "")));
    const bool drawdone = db.scalar_integer("select drawdone from events where eid=?", m_eid) != 0;
    m_resolved_box->setTitle(
        drawdone ? QStringLiteral("resolved teams") : QStringLiteral("resolved and restorable teams"));
    m_totals->setText(qs(resolve_totals(m_rows, teams)));
    show_labels();
}

void ResolveDoublesWindow::show_labels()
{
    m_label1->setText(m_labels.first() ? qs(m_labels.first()->name) : QString());
    m_label2->setText(m_labels.second() ? qs(m_labels.second()->name) : QString());
}

void ResolveDoublesWindow::mirror_selection(QListWidget* from, QListWidget* to)
{
    if (m_mirroring)
        return;
    m_mirroring = true;
    for (int row = 0; row < from->count() && row < to->count(); ++row)
        to->item(row)->setSelected(from->item(row)->isSelected());
    m_mirroring = false;
}

void ResolveDoublesWindow::name_clicked(QListWidget* column, int row)
{
    if (row < 0 || row >= static_cast<int>(m_rows.size()))
        return;
    const auto& raw = m_rows[static_cast<std::size_t>(row)];
    m_labels.set_label(m_session, column == m_left ? raw.first : raw.second);
    show_labels();
    if (m_labels.complete() && m_auto->isChecked())
        resolve();
}

void ResolveDoublesWindow::run_action(const QString& action)
{
    if (action == "resolve")
        resolve();
    else if (action == "remove")
        remove();
    else if (action == "clr") {
        m_labels.clear_team_labels();
        m_left->clearSelection();
        show_labels();
    } else if (action == "scrape text")
        scrape_resolve_text(m_session, m_eid);
    else if (action == "search")
        open_search();
    else if (action == "restore")
        restore();
    else if (action == "toggle")
        m_pages->setCurrentWidget(showing_resolved() ? m_pages->widget(0) : m_resolved_box);
    else if (action == "pd")
        player_details();
    else if (action == "key")
        m_key->setVisible(!m_key->isVisible());
}

void ResolveDoublesWindow::resolve()
{
    // Labels filled by hand make one team; otherwise the selected rows are resolved row by row.
    if (!m_labels.empty()) {
        resolve_labels(m_session, m_eid, m_labels);
    } else {
        std::vector<std::int64_t> ids;
        for (int row = 0; row < m_left->count(); ++row)
            if (m_left->item(row)->isSelected())
                ids.push_back(m_rows[static_cast<std::size_t>(row)].rdidx);
        resolve_call_main(m_session, m_eid, ids);
    }
    set_upper_lower();
}

void ResolveDoublesWindow::restore()
{
    std::vector<std::string> teams;
    for (const auto* item : m_resolved->selectedItems()) {
        auto text = to_std(item->text());
        if (const auto mark = text.rfind(" (reserve)"); mark != std::string::npos && mark + 10 == text.size())
            text.erase(mark);
        teams.push_back(text);
    }
    restore_teams(m_session, m_eid, teams);
    set_upper_lower();
}

void ResolveDoublesWindow::remove()
{
    std::vector<std::int64_t> ids;
    for (int row = 0; row < m_left->count(); ++row)
        if (m_left->item(row)->isSelected())
            ids.push_back(m_rows[static_cast<std::size_t>(row)].rdidx);
    remove_entries(m_session, m_eid, EntryList::raw_doubles, ids);
    set_upper_lower();
}

bool ResolveDoublesWindow::search_for(const QString& text)
{
    for (auto* column : { m_left, m_right })
        if (const auto row = next_matching_row(column, text)) {
            column->setCurrentRow(*row, QItemSelectionModel::NoUpdate);
            column->scrollToItem(column->item(*row));
            return true;
        }
    return false;
}

void ResolveDoublesWindow::open_search()
{
    show_over_parent(new ResolveSearchWindow(m_session, *this));
}

void ResolveDoublesWindow::player_details()
{
    QString name = m_labels.first() ? qs(m_labels.first()->name) : QString();
    for (auto* column : { m_left, m_right })
        if (name.isEmpty() && column->currentItem())
            name = column->currentItem()->text();
    if (name.isEmpty() || name == "partner required")
        return;
    open_player_details_by_name(m_session, to_std(name), this);
}

ResolveDoublesWindow* open_resolve_doubles(Session& session, std::int64_t eid, QWidget* parent)
{
    if (!session.has_tournament() || eid == 0)
        return nullptr;
    auto* window = new ResolveDoublesWindow(session, eid, parent);
    show_over_parent(window);
    return window;
}

} // namespace qv
