#include "ui/drawconfig_window.h"

#include "core/session.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

const char* list_name(ConfigList which)
{
    switch (which) {
    case ConfigList::seeds:
        return "seeds";
    case ConfigList::players:
        return "players";
    case ConfigList::reserves:
        return "reserves";
    }
    return "";
}

constexpr std::array<ConfigList, 3> all_lists { ConfigList::seeds, ConfigList::players, ConfigList::reserves };

} // namespace

DrawConfigWindow::DrawConfigWindow(Session& session, std::int64_t eid, DrawConfigHooks hooks, QWidget* parent)
    : QDialog(parent)
    , m_config(session, eid, std::move(hooks))
{
    setObjectName(QStringLiteral("drawconfig"));
    setWindowTitle(qs(m_config.title()));

    m_type = new QComboBox(this);
    for (auto line : draw_type_lines)
        m_type->addItem(qs(line));
    m_drawsize = new QLabel(this);
    m_drawsize->setObjectName(QStringLiteral("drawsize"));
    auto* type_row = new QHBoxLayout;
    type_row->addWidget(new QLabel(QStringLiteral("draw type"), this));
    type_row->addWidget(m_type, 1);
    type_row->addWidget(new QLabel(QStringLiteral("drawsize"), this));
    type_row->addWidget(m_drawsize);

    auto* seed_moves = new QVBoxLayout;
    seed_moves->addStretch();
    seed_moves->addWidget(add_button(QStringLiteral("up"), QStringLiteral("seed_up")));
    seed_moves->addWidget(add_button(QStringLiteral("down"), QStringLiteral("seed_down")));
    seed_moves->addSpacing(20);
    seed_moves->addWidget(add_button(QStringLiteral(">"), QStringLiteral("seeds_to_players")));
    seed_moves->addWidget(add_button(QStringLiteral("<"), QStringLiteral("players_to_seeds")));
    seed_moves->addStretch();
    auto* reserve_moves = new QVBoxLayout;
    reserve_moves->addStretch();
    reserve_moves->addWidget(add_button(QStringLiteral(">"), QStringLiteral("players_to_reserves")));
    reserve_moves->addWidget(add_button(QStringLiteral("<"), QStringLiteral("reserves_to_players")));
    reserve_moves->addStretch();

    auto* lists = new QHBoxLayout;
    lists->addWidget(list_column(ConfigList::seeds, "seeds", "seeds"), 1);
    lists->addLayout(seed_moves);
    lists->addWidget(list_column(ConfigList::players, "players", "players"), 1);
    lists->addLayout(reserve_moves);
    lists->addWidget(list_column(ConfigList::reserves, "reserves/defaults/excludes", "reserves"), 1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(box_row(ConfigBox::wildcards, "wildcards", "wildcards"));
    bottom->addWidget(box_row(ConfigBox::qualifiers, "qualifiers", "qualifiers"));
    bottom->addStretch();
    bottom->addWidget(add_button(QStringLiteral("remove entries"), QStringLiteral("remove_entries")));
    bottom->addWidget(add_button(QStringLiteral("save"), QStringLiteral("save")));
    bottom->addWidget(add_button(QStringLiteral("close"), QStringLiteral("close")));

    m_locked_note = new QLabel(qs(drawconfig_locked_note), this);
    m_locked_note->setStyleSheet(QStringLiteral("color: red"));
    m_locked_note->setVisible(false);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(type_row);
    layout->addLayout(lists, 1);
    layout->addLayout(bottom);
    layout->addWidget(m_locked_note);
    set_main_button(this, button(QStringLiteral("save")));
    set_tab_chain(tab_chain());

    connect(button(QStringLiteral("seeds_to_players")), &QPushButton::clicked, this,
        [this] { move(ConfigList::seeds, ConfigList::players); });
    connect(button(QStringLiteral("players_to_seeds")), &QPushButton::clicked, this,
        [this] { move(ConfigList::players, ConfigList::seeds); });
    connect(button(QStringLiteral("players_to_reserves")), &QPushButton::clicked, this,
        [this] { move(ConfigList::players, ConfigList::reserves); });
    connect(button(QStringLiteral("reserves_to_players")), &QPushButton::clicked, this,
        [this] { move(ConfigList::reserves, ConfigList::players); });
    connect(button(QStringLiteral("seed_up")), &QPushButton::clicked, this, [this] { move_seed(SeedMove::up); });
    connect(button(QStringLiteral("seed_down")), &QPushButton::clicked, this, [this] { move_seed(SeedMove::down); });
    connect(button(QStringLiteral("remove_entries")), &QPushButton::clicked, this, &DrawConfigWindow::remove_entries);
    connect(button(QStringLiteral("save")), &QPushButton::clicked, this, &DrawConfigWindow::save);
    connect(button(QStringLiteral("close")), &QPushButton::clicked, this, &QDialog::close);
    connect(m_type, &QComboBox::currentIndexChanged, this, &DrawConfigWindow::choose_type);

    if (m_config.is_doubles()) {
        button(QStringLiteral("remove_entries"))->setEnabled(false);
        button(QStringLiteral("remove_entries"))->setToolTip(qs(doubles_remove_tip));
    }
    for (auto which : all_lists)
        button(QString::fromLatin1(list_name(which)) + QStringLiteral("_export"))
            ->setVisible(m_config.exports_allowed());
    show_config();
    if (m_config.locked())
        disable_ctls();
}

std::vector<QWidget*> DrawConfigWindow::tab_chain() const
{
    // Column by column, left to right, each from its heading down, with the moves beside a column after it; then
    // the boxes and buttons of the bottom row.
    const auto moves_after = [](ConfigList which) -> std::vector<const char*> {
        switch (which) {
        case ConfigList::seeds:
            return { "seed_up", "seed_down", "seeds_to_players", "players_to_seeds" };
        case ConfigList::players:
            return { "players_to_reserves", "reserves_to_players" };
        case ConfigList::reserves:
            break;
        }
        return {};
    };
    std::vector<QWidget*> chain { m_type };
    for (auto which : all_lists) {
        const QString prefix = QString::fromLatin1(list_name(which)) + QLatin1Char('_');
        chain.insert(chain.end(),
            { button(prefix + "all"), button(prefix + "none"), m_lists.at(index(which)), m_search.at(index(which)),
                button(prefix + "search"), button(prefix + "details"), button(prefix + "export") });
        for (const char* name : moves_after(which))
            chain.push_back(button(QString::fromLatin1(name)));
    }
    for (auto [which, name] :
        { std::pair { ConfigBox::wildcards, "wildcards" }, std::pair { ConfigBox::qualifiers, "qualifiers" } }) {
        const QString suffix = QLatin1Char('_') + QString::fromLatin1(name);
        chain.insert(chain.end(), { box(which), button("set" + suffix), button("clr" + suffix) });
    }
    for (const char* name : { "remove_entries", "save", "close" })
        chain.push_back(button(QString::fromLatin1(name)));
    return chain;
}

QWidget* DrawConfigWindow::list_column(ConfigList which, const char* heading, const char* name)
{
    const QString prefix = QString::fromLatin1(name) + QLatin1Char('_');
    auto* column = new QWidget(this);
    auto* list = new QListWidget(column);
    list->setObjectName(QString::fromLatin1(name));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_lists.at(index(which)) = list;
    m_counts.at(index(which)) = new QLabel(column);
    m_search.at(index(which)) = new QLineEdit(column);

    auto* head = new QHBoxLayout;
    head->addWidget(new QLabel(QString::fromLatin1(heading), column), 1);
    head->addWidget(add_button(QStringLiteral("all"), prefix + QStringLiteral("all")));
    head->addWidget(add_button(QStringLiteral("none"), prefix + QStringLiteral("none")));
    auto* search_row = new QHBoxLayout;
    search_row->addWidget(m_search.at(index(which)), 1);
    search_row->addWidget(add_button(QStringLiteral("search"), prefix + QStringLiteral("search")));
    auto* foot = new QHBoxLayout;
    foot->addWidget(m_counts.at(index(which)), 1);
    foot->addWidget(add_button(QStringLiteral("player details"), prefix + QStringLiteral("details")));
    foot->addWidget(add_button(QStringLiteral("export"), prefix + QStringLiteral("export")));

    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(head);
    layout->addWidget(list, 1);
    layout->addLayout(search_row);
    layout->addLayout(foot);

    connect(button(prefix + QStringLiteral("all")), &QPushButton::clicked, this, [this, which] { select_all(which); });
    connect(
        button(prefix + QStringLiteral("none")), &QPushButton::clicked, this, [this, which] { select_none(which); });
    connect(button(prefix + QStringLiteral("search")), &QPushButton::clicked, this, [this, which] { search(which); });
    run_on_enter(m_search.at(index(which)), [this, which] { search(which); });
    connect(button(prefix + QStringLiteral("details")), &QPushButton::clicked, this,
        [this, which] { player_details(which); });
    connect(
        button(prefix + QStringLiteral("export")), &QPushButton::clicked, this, [this, which] { export_list(which); });
    return column;
}

QWidget* DrawConfigWindow::box_row(ConfigBox which, const char* caption, const char* name)
{
    const QString suffix = QLatin1Char('_') + QString::fromLatin1(name);
    auto* row = new QWidget(this);
    auto* box = new QLineEdit(row);
    box->setObjectName(QString::fromLatin1(name));
    box->setMaximumWidth(60);
    m_boxes.at(static_cast<std::size_t>(which)) = box;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QString::fromLatin1(caption), row));
    layout->addWidget(box);
    layout->addWidget(add_button(QStringLiteral("set"), QStringLiteral("set") + suffix));
    layout->addWidget(add_button(QStringLiteral("clr"), QStringLiteral("clr") + suffix));
    connect(button(QStringLiteral("set") + suffix), &QPushButton::clicked, this, [this, which] { set_box(which); });
    run_on_enter(box, [this, which] { set_box(which); });
    connect(button(QStringLiteral("clr") + suffix), &QPushButton::clicked, this, [this, which] { clear_box(which); });
    return row;
}

QPushButton* DrawConfigWindow::add_button(const QString& caption, const QString& name)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QPushButton* DrawConfigWindow::button(const QString& name) const
{
    return findChild<QPushButton*>(name);
}

void DrawConfigWindow::take_input()
{
    for (auto which : all_lists) {
        std::vector<int> rows;
        const auto* list = m_lists.at(index(which));
        for (int row = 0; row < list->count(); ++row)
            if (list->item(row)->isSelected())
                rows.push_back(row);
        m_config.set_selected(which, rows);
    }
    for (auto which : { ConfigBox::wildcards, ConfigBox::qualifiers })
        m_config.set_box_text(which, to_std(box(which)->text()));
}

void DrawConfigWindow::show_config()
{
    for (auto which : all_lists) {
        auto* list = m_lists.at(index(which));
        list->clear();
        int current = -1;
        for (const auto& line : m_config.lines(which)) {
            auto* item = new QListWidgetItem(qs(line.text), list);
            item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(line.ent_idx));
            item->setSelected(line.selected);
            if (line.selected && current < 0)
                current = list->count() - 1;
        }
        if (current >= 0) {
            list->setCurrentRow(current, QItemSelectionModel::NoUpdate);
            list->scrollToItem(list->item(current));
        }
    }
    const auto& counts = m_config.counts();
    m_counts.at(index(ConfigList::seeds))->setText(QString::number(counts.seeds));
    m_counts.at(index(ConfigList::players))->setText(QString::number(counts.players));
    m_counts.at(index(ConfigList::reserves))->setText(QString::number(counts.reserves));
    m_drawsize->setText(counts.drawsize == 0 ? QString() : QString::number(counts.drawsize));
    for (auto which : { ConfigBox::wildcards, ConfigBox::qualifiers })
        box(which)->setText(qs(m_config.box_text(which)));
    m_type->blockSignals(true);
    m_type->setCurrentIndex(m_config.type_index());
    m_type->blockSignals(false);
}

void DrawConfigWindow::disable_ctls()
{
    for (const char* name :
        { "seeds_to_players", "players_to_seeds", "players_to_reserves", "reserves_to_players", "seed_up", "seed_down",
            "remove_entries", "set_wildcards", "clr_wildcards", "set_qualifiers", "clr_qualifiers", "save" })
        button(QString::fromLatin1(name))->setEnabled(false);
    for (auto* box : m_boxes)
        box->setEnabled(false);
    m_type->setEnabled(false);
    m_locked_note->setVisible(true);
}

void DrawConfigWindow::move(ConfigList from, ConfigList to)
{
    take_input();
    bool moved = false;
    if (from == ConfigList::seeds && to == ConfigList::players)
        moved = m_config.move_seeds_to_players();
    else if (from == ConfigList::players && to == ConfigList::seeds)
        moved = m_config.move_players_to_seeds();
    else if (from == ConfigList::players && to == ConfigList::reserves)
        moved = m_config.move_players_to_reserves();
    else if (from == ConfigList::reserves && to == ConfigList::players)
        moved = m_config.move_reserves_to_players();
    if (moved)
        show_config();
}

void DrawConfigWindow::move_seed(SeedMove direction)
{
    take_input();
    if (m_config.move_seed(direction))
        show_config();
}

void DrawConfigWindow::select_all(ConfigList which)
{
    m_lists.at(index(which))->selectAll();
}

void DrawConfigWindow::select_none(ConfigList which)
{
    m_lists.at(index(which))->clearSelection();
}

void DrawConfigWindow::search(ConfigList which)
{
    take_input();
    if (m_config.search(which, to_std(search_box(which)->text())))
        show_config();
}

void DrawConfigWindow::player_details(ConfigList which)
{
    take_input();
    if (const auto player = m_config.details_player(which))
        emit playerDetailsRequested(qs(*player));
}

void DrawConfigWindow::export_list(ConfigList which)
{
    m_config.export_list(which);
}

void DrawConfigWindow::remove_entries()
{
    take_input();
    if (m_config.remove_entries())
        show_config();
}

void DrawConfigWindow::set_box(ConfigBox which)
{
    take_input();
    if (m_config.set_box(which))
        show_config();
}

void DrawConfigWindow::clear_box(ConfigBox which)
{
    take_input();
    if (!m_config.clear_box(which))
        return;
    box(which)->setText(qs(m_config.box_text(which)));
    box(which)->setFocus();
}

void DrawConfigWindow::choose_type(int index)
{
    take_input();
    m_config.set_type_index(index);
    show_config();
}

bool DrawConfigWindow::save()
{
    take_input();
    if (!m_config.save())
        return false;
    emit saved(m_config.eid());
    close();
    return true;
}

DrawConfigWindow* open_drawconfig(Session& session, std::int64_t eid, DrawConfigHooks hooks, QWidget* parent)
{
    auto* window = new DrawConfigWindow(session, eid, std::move(hooks), parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    return window;
}

} // namespace qv
