#include "ui/force_draw_window.h"

#include "core/session.h"
#include "ui/list_search.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

std::optional<std::size_t> chosen_row(const QListWidget* list)
{
    const auto* item = list->currentItem();
    if (!item || !item->isSelected())
        return std::nullopt;
    return static_cast<std::size_t>(list->row(item));
}

QPushButton* add_button(QBoxLayout* layout, const char* caption, QWidget* parent)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setAutoDefault(false);
    layout->addWidget(button);
    return button;
}

} // namespace

ForceDrawWindow::ForceDrawWindow(Session& session, std::int64_t eid, const std::string& eventname, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_eid(eid)
    , m_players(new QListWidget(this))
    , m_slots(new QListWidget(this))
    , m_size(new QComboBox(this))
    , m_ignore(new QCheckBox(QStringLiteral("ignore seeding"), this))
    , m_order(new QCheckBox(QStringLiteral("order by insertion order"), this))
    , m_search(new QLineEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("force_draw_new"));
    setWindowTitle(QStringLiteral("force draw config: ") + qs(eventname));
    m_players->setObjectName(QStringLiteral("players"));
    m_slots->setObjectName(QStringLiteral("slots"));
    m_slots->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_size->addItem(QString());
    for (int size = 2; size <= 128; size *= 2)
        m_size->addItem(QString::number(size));
    m_ignore->setChecked(session.settings().integer("force_draw_ignore_seeding") == 1);

    auto* middle = new QVBoxLayout;
    middle->addStretch();
    auto* insert_button = add_button(middle, "insert>", this);
    middle->addWidget(new QLabel(QStringLiteral("(space bar)"), this));
    auto* remove_button = add_button(middle, "<remove", this);
    middle->addWidget(new QLabel(QStringLiteral("(z key)"), this));
    auto* mirror_button = add_button(middle, "mirror>", this);
    middle->addStretch();

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("target draw size"), this));
    top->addWidget(m_size);
    top->addWidget(m_ignore);
    top->addWidget(m_order);
    top->addStretch();
    auto* lists = new QHBoxLayout;
    lists->addWidget(m_players, 1);
    lists->addLayout(middle);
    lists->addWidget(m_slots, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_search);
    auto* search_button = add_button(bottom, "search", this);
    bottom->addStretch();
    auto* reset_button = add_button(bottom, "reset", this);
    auto* save_button = add_button(bottom, "save", this);
    auto* close_button = add_button(bottom, "close", this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(lists, 1);
    layout->addLayout(bottom);
    resize(640, 520);

    m_players->installEventFilter(this);
    m_slots->installEventFilter(this);
    set_main_button(this, save_button);
    run_on_enter(m_search, [this] { search(); });
    connect(m_size, &QComboBox::activated, this, [this] {
        if (m_size->currentIndex() > 0)
            choose_size(m_size->currentText().toInt());
    });
    connect(insert_button, &QPushButton::clicked, this, &ForceDrawWindow::insert);
    connect(remove_button, &QPushButton::clicked, this, &ForceDrawWindow::remove);
    connect(mirror_button, &QPushButton::clicked, this, &ForceDrawWindow::mirror);
    connect(search_button, &QPushButton::clicked, this, &ForceDrawWindow::search);
    connect(reset_button, &QPushButton::clicked, this, &ForceDrawWindow::reset);
    connect(save_button, &QPushButton::clicked, this, &ForceDrawWindow::save);
    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
    connect(m_ignore, &QCheckBox::toggled, this,
        [this](bool on) { m_session.settings().set_disk_var("force_draw_ignore_seeding", on ? "1" : "0"); });
    connect(m_order, &QCheckBox::toggled, this, [this] {
        m_layout.set_order(order());
        show_lists(0, m_slots->currentRow());
    });

    m_layout.load(session.tournament(), eid, order());
    if (const int size = static_cast<int>(m_layout.positions().size()); size > 0)
        m_size->setCurrentText(QString::number(size));
    show_lists(0, 0);
}

ForceOrder ForceDrawWindow::order() const
{
    return m_order->isChecked() ? ForceOrder::by_insertion : ForceOrder::by_player;
}

void ForceDrawWindow::show_lists(int player_row, int slot_row)
{
    m_players->clear();
    for (const auto& entry : m_layout.players()) {
        auto* item = new QListWidgetItem(qs(entry.player), m_players);
        item->setData(Qt::UserRole, qs(entry.country + "^" + entry.ar + "^" + entry.psex));
    }
    m_slots->clear();
    for (const auto& slot : m_layout.positions()) {
        auto* item = new QListWidgetItem(qs(force_slot_line(slot)), m_slots);
        item->setData(Qt::UserRole, qs(slot.seed));
    }
    if (m_players->count() > 0)
        m_players->setCurrentRow(std::min(player_row, m_players->count() - 1));
    if (m_slots->count() > 0)
        m_slots->setCurrentRow(std::min(slot_row, m_slots->count() - 1));
}

void ForceDrawWindow::choose_size(int drawsize)
{
    m_size->setCurrentText(QString::number(drawsize));
    m_layout.set_target_size(m_session, m_eid, drawsize, order());
    show_lists(0, 0);
}

void ForceDrawWindow::insert()
{
    const auto player = chosen_row(m_players);
    const auto slot = chosen_row(m_slots);
    if (m_layout.insert(m_session, player, slot))
        show_lists(static_cast<int>(*player), static_cast<int>(*slot) + 1);
}

void ForceDrawWindow::remove()
{
    const auto slot = chosen_row(m_slots);
    if (m_layout.remove(m_session, slot))
        show_lists(m_players->currentRow(), static_cast<int>(*slot) + 1);
}

void ForceDrawWindow::mirror()
{
    std::vector<std::size_t> rows;
    for (int row = 0; row < m_slots->count(); ++row)
        if (m_slots->item(row)->isSelected())
            rows.push_back(static_cast<std::size_t>(row));
    if (m_layout.mirror(m_session, rows))
        show_lists(0, rows.empty() ? 0 : static_cast<int>(rows.back()));
}

void ForceDrawWindow::save()
{
    if (m_layout.positions().empty()) {
        m_session.talk().message("select position on right");
        return;
    }
    m_layout.save(m_session, m_eid, m_ignore->isChecked());
}

void ForceDrawWindow::reset()
{
    if (m_size->currentIndex() > 0)
        choose_size(m_size->currentText().toInt());
}

void ForceDrawWindow::search()
{
    const auto text = m_search->text().trimmed();
    if (text.isEmpty())
        return;
    for (auto* list : { m_players, m_slots })
        if (const auto row = next_matching_row(list, text)) {
            list->setCurrentRow(*row);
            list->setFocus();
            return;
        }
    m_session.talk().message("not found");
}

bool ForceDrawWindow::eventFilter(QObject* watched, QEvent* event)
{
    if ((watched == m_players || watched == m_slots) && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Space) {
            insert();
            return true;
        }
        if (key->key() == Qt::Key_Z) {
            remove();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace qv
