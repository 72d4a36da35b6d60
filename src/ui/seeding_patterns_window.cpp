#include "ui/seeding_patterns_window.h"

#include "core/session.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <string_view>

namespace qv {

namespace {

QListWidget* size_list(QWidget* parent)
{
    auto* list = new QListWidget(parent);
    for (int size : seeding_pattern_sizes)
        list->addItem(QString::number(size));
    return list;
}

std::optional<int> size_of(const QListWidget* sizes)
{
    const auto* item = sizes->currentItem();
    if (!item)
        return std::nullopt;
    return item->text().toInt();
}

QPushButton* button_of(const QWidget* window, const QString& caption)
{
    for (auto* button : window->findChildren<QPushButton*>())
        if (button->text() == caption)
            return button;
    return nullptr;
}

QLineEdit* new_seed_box(QWidget* parent)
{
    auto* box = new QLineEdit(parent);
    // Room for the nine digits the whole-number test takes; a longer number is refused by it, never cut here.
    fit_characters(box, 9);
    return box;
}

} // namespace

std::vector<SeedPosition> PositionList::positions() const
{
    std::vector<SeedPosition> out;
    for (int row = 0; row < m_list->count(); ++row)
        if (auto position = splitup(to_std(m_list->item(row)->text())))
            out.push_back(*position);
    return out;
}

void PositionList::show(const std::vector<SeedPosition>& positions)
{
    const int row = m_list->currentRow();
    m_list->clear();
    for (const auto& p : positions)
        m_list->addItem(qs(position_line(p)));
    if (row >= 0 && row < m_list->count())
        m_list->setCurrentRow(row);
}

std::optional<std::size_t> PositionList::chosen() const
{
    const int row = m_list->currentRow();
    if (row < 0)
        return std::nullopt;
    return static_cast<std::size_t>(row);
}

NewSeedingPatternWindow::NewSeedingPatternWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_sizes(size_list(this))
    , m_heading(new QLabel(this))
    , m_positions(new QListWidget(this))
    , m_lines(m_positions)
    , m_seed(new_seed_box(this))
    , m_name(new QLineEdit(this))
{
    setObjectName(QStringLiteral("seeding_patterns_an"));
    setWindowTitle(QStringLiteral("new seeding pattern"));

    auto* left = new QVBoxLayout;
    left->addWidget(new QLabel(QStringLiteral("drawsize"), this));
    left->addWidget(m_sizes);
    left->addWidget(new QLabel(QStringLiteral("name"), this));
    left->addWidget(m_name);
    auto* right = new QVBoxLayout;
    right->addWidget(m_heading);
    right->addWidget(m_positions);
    auto* seed_row = new QHBoxLayout;
    seed_row->addWidget(m_seed);
    auto* buttons = new QHBoxLayout;
    for (const char* caption : { "set", "clear", "save", "close" }) {
        auto* button = new QPushButton(QString::fromLatin1(caption), this);
        button->setAutoDefault(false);
        (caption == std::string_view("set") ? seed_row : buttons)->addWidget(button);
    }
    right->addLayout(seed_row);
    auto* layout = new QVBoxLayout(this);
    auto* lists = new QHBoxLayout;
    lists->addLayout(left);
    lists->addLayout(right);
    layout->addLayout(lists);
    layout->addLayout(buttons);
    set_main_button(this, button(QStringLiteral("save")));
    run_on_enter(m_seed, [this] { set(); });
    set_tab_chain({ m_sizes, m_name, m_positions, m_seed, button(QStringLiteral("set")),
        button(QStringLiteral("clear")), button(QStringLiteral("save")), button(QStringLiteral("close")) });

    connect(m_sizes, &QListWidget::currentRowChanged, this, &NewSeedingPatternWindow::choose_size);
    connect(button(QStringLiteral("set")), &QPushButton::clicked, this, &NewSeedingPatternWindow::set);
    connect(button(QStringLiteral("clear")), &QPushButton::clicked, this, &NewSeedingPatternWindow::clear);
    connect(button(QStringLiteral("save")), &QPushButton::clicked, this, &NewSeedingPatternWindow::save);
    connect(button(QStringLiteral("close")), &QPushButton::clicked, this, &QDialog::close);
}

QPushButton* NewSeedingPatternWindow::button(const QString& caption) const
{
    return button_of(this, caption);
}

std::optional<int> NewSeedingPatternWindow::chosen_size() const
{
    return size_of(m_sizes);
}

void NewSeedingPatternWindow::choose_size(int)
{
    const auto size = chosen_size();
    m_heading->setText(size ? qs(position_list_heading(*size)) : QString());
    m_positions->clear();
    if (size)
        m_lines.show(empty_positions(*size));
}

void NewSeedingPatternWindow::set()
{
    auto positions = m_lines.positions();
    if (set_seed(m_session.talk(), positions, m_lines.chosen(), to_std(m_seed->text()), PatternWindow::new_pattern))
        m_lines.show(positions);
}

void NewSeedingPatternWindow::clear()
{
    auto positions = m_lines.positions();
    clear_pattern(positions);
    m_lines.show(positions);
}

void NewSeedingPatternWindow::save()
{
    const auto size = chosen_size();
    const auto idx = save_new_pattern(m_session, size, to_std(m_name->text()), m_lines.positions());
    if (!idx) {
        m_name->setFocus();
        return;
    }
    emit patternSaved(*idx, *size);
}

SeedingPatternsWindow::SeedingPatternsWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_sizes(size_list(this))
    , m_patterns_heading(new QLabel(this))
    , m_patterns(new QListWidget(this))
    , m_positions_heading(new QLabel(this))
    , m_positions(new QListWidget(this))
    , m_lines(m_positions)
    , m_seed(new_seed_box(this))
    , m_name(new QLineEdit(this))
{
    setObjectName(QStringLiteral("seeding_patterns"));
    setWindowTitle(QStringLiteral("seeding patterns"));

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("drawsize"), this), 0, 0);
    grid->addWidget(m_sizes, 1, 0);
    grid->addWidget(m_patterns_heading, 0, 1);
    grid->addWidget(m_patterns, 1, 1);
    grid->addWidget(m_positions_heading, 0, 2);
    grid->addWidget(m_positions, 1, 2);
    grid->addWidget(m_name, 2, 1);
    grid->addWidget(m_seed, 2, 2);
    auto* buttons = new QHBoxLayout;
    for (const char* caption :
        { "delete", "set default", "save", "add new", "clear", "set", "rename", "screenscrape", "close" }) {
        auto* button = new QPushButton(QString::fromLatin1(caption), this);
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);
    set_main_button(this, button(QStringLiteral("save")));
    run_on_enter(m_seed, [this] { set(); });
    set_tab_chain({ m_sizes, m_patterns, m_positions, m_name, m_seed, button(QStringLiteral("delete")) });

    button(QStringLiteral("screenscrape"))->setVisible(seeding_export_allowed(m_session));

    connect(m_sizes, &QListWidget::currentRowChanged, this, &SeedingPatternsWindow::choose_size);
    connect(m_patterns, &QListWidget::currentRowChanged, this, &SeedingPatternsWindow::choose_pattern);
    connect(button(QStringLiteral("delete")), &QPushButton::clicked, this, &SeedingPatternsWindow::delete_pattern);
    connect(button(QStringLiteral("set default")), &QPushButton::clicked, this, &SeedingPatternsWindow::set_default);
    connect(button(QStringLiteral("save")), &QPushButton::clicked, this, &SeedingPatternsWindow::save);
    connect(button(QStringLiteral("add new")), &QPushButton::clicked, this, &SeedingPatternsWindow::add_new);
    connect(button(QStringLiteral("clear")), &QPushButton::clicked, this, &SeedingPatternsWindow::clear);
    connect(button(QStringLiteral("set")), &QPushButton::clicked, this, &SeedingPatternsWindow::set);
    connect(button(QStringLiteral("rename")), &QPushButton::clicked, this, &SeedingPatternsWindow::rename);
    connect(button(QStringLiteral("screenscrape")), &QPushButton::clicked, this, &SeedingPatternsWindow::export_list);
    connect(button(QStringLiteral("close")), &QPushButton::clicked, this, &QDialog::close);
}

QPushButton* SeedingPatternsWindow::button(const QString& caption) const
{
    return button_of(this, caption);
}

std::optional<int> SeedingPatternsWindow::chosen_size() const
{
    return size_of(m_sizes);
}

std::optional<std::int64_t> SeedingPatternsWindow::chosen_idx() const
{
    const auto* item = m_patterns->currentItem();
    if (!item)
        return std::nullopt;
    return item->data(Qt::UserRole).toLongLong();
}

void SeedingPatternsWindow::enable_editing(bool on)
{
    for (QWidget* widget : std::initializer_list<QWidget*> { m_name, m_seed, button(QStringLiteral("rename")),
             button(QStringLiteral("delete")), button(QStringLiteral("save")), button(QStringLiteral("set")),
             button(QStringLiteral("clear")) })
        widget->setEnabled(on);
}

void SeedingPatternsWindow::choose_size(int)
{
    reload_patterns(std::nullopt);
}

void SeedingPatternsWindow::reload_patterns(std::optional<std::int64_t> keep)
{
    const auto size = chosen_size();
    // Rebuilding the list moves its current row; the slots follow only the final choice.
    m_patterns->blockSignals(true);
    m_patterns->clear();
    m_patterns_heading->setText(size ? qs(pattern_list_heading(*size)) : QString());
    int keep_row = -1;
    if (size) {
        for (const auto& pattern : load_patterns(m_session.init_db(), *size)) {
            auto* item = new QListWidgetItem(qs(pattern_line(pattern)), m_patterns);
            item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(pattern.idx));
            if (keep && pattern.idx == *keep)
                keep_row = m_patterns->count() - 1;
        }
    }
    m_patterns->setCurrentRow(keep_row);
    m_patterns->blockSignals(false);
    choose_pattern(keep_row);
}

void SeedingPatternsWindow::choose_pattern(int)
{
    m_positions->clear();
    const auto idx = chosen_idx();
    const auto pattern = idx ? find_pattern(m_session.init_db(), *idx) : std::nullopt;
    if (!pattern) {
        m_positions_heading->clear();
        m_name->clear();
        enable_editing(true);
        return;
    }
    m_positions_heading->setText(qs(position_list_heading(pattern->drawsize)));
    m_lines.show(load_positions(m_session.init_db(), pattern->idx));
    m_name->setText(qs(pattern->name));
    enable_editing(!pattern->is_system);
}

void SeedingPatternsWindow::delete_pattern()
{
    if (qv::delete_pattern(m_session, chosen_size(), chosen_idx()))
        reload_patterns(std::nullopt);
}

void SeedingPatternsWindow::set_default()
{
    const auto idx = chosen_idx();
    if (qv::set_default(m_session, chosen_size(), idx))
        reload_patterns(idx);
}

void SeedingPatternsWindow::save()
{
    save_pattern(m_session, chosen_size(), chosen_idx(), m_lines.positions());
}

void SeedingPatternsWindow::add_new()
{
    if (!m_new_window) {
        m_new_window = new NewSeedingPatternWindow(m_session, this);
        m_new_window->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_new_window, &NewSeedingPatternWindow::patternSaved, this,
            [this](qint64, int) { reload_patterns(chosen_idx()); });
    }
    m_new_window->show();
    m_new_window->raise();
}

void SeedingPatternsWindow::clear()
{
    auto positions = m_lines.positions();
    clear_pattern(positions);
    m_lines.show(positions);
}

void SeedingPatternsWindow::set()
{
    auto positions = m_lines.positions();
    if (set_seed(m_session.talk(), positions, m_lines.chosen(), to_std(m_seed->text()), PatternWindow::main))
        m_lines.show(positions);
}

void SeedingPatternsWindow::rename()
{
    const auto idx = chosen_idx();
    if (rename_pattern(m_session, chosen_size(), idx, to_std(m_name->text())))
        reload_patterns(idx);
}

void SeedingPatternsWindow::export_list()
{
    export_seeding_list(m_session, m_lines.positions());
}

SeedingPatternsWindow* open_seeding_patterns(Session& session, QWidget* parent)
{
    auto* window = new SeedingPatternsWindow(session, parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    return window;
}

} // namespace qv
