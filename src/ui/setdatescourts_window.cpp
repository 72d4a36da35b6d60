#include "ui/setdatescourts_window.h"

#include "core/session.h"
#include "core/time_rules.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

void fill(QComboBox* box, const std::vector<std::string>& entries)
{
    box->clear();
    for (const auto& entry : entries)
        box->addItem(qs(entry));
}

std::vector<std::string> month_words()
{
    std::vector<std::string> months;
    for (int month = 1; month <= 12; ++month)
        months.push_back(i_to_mmm(month));
    return months;
}

QPushButton* add_button(QBoxLayout* layout, QWidget* parent, const char* caption)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setAutoDefault(false);
    layout->addWidget(button);
    return button;
}

} // namespace

SetDatesCourtsWindow::SetDatesCourtsWindow(
    Session& session, std::function<void(const std::string&)> on_saved, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_editor(session)
    , m_on_saved(std::move(on_saved))
    , m_century(new QComboBox(this))
    , m_start_year(new QComboBox(this))
    , m_start_month(new QComboBox(this))
    , m_start_day(new QComboBox(this))
    , m_end_year(new QComboBox(this))
    , m_end_month(new QComboBox(this))
    , m_end_day(new QComboBox(this))
    , m_days(new QListWidget(this))
    , m_days_count(new QLabel(this))
    , m_courts(new QListWidget(this))
    , m_number(new QLineEdit(this))
{
    setObjectName(QStringLiteral("setdatescourts_new"));
    setWindowTitle(qs(m_editor.dates_courts_label()));
    m_days->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_days->setObjectName(QStringLiteral("days"));
    m_courts->setObjectName(QStringLiteral("courts"));
    m_number->setObjectName(QStringLiteral("number"));

    fill(m_century, century_choices());
    const auto present = std::to_string(100 + local_time_now().tm_year % 100).substr(1);
    for (auto* year : { m_start_year, m_end_year }) {
        fill(year, year_choices());
        year->setCurrentText(qs(present));
    }
    for (auto [month, day] : { std::pair { m_start_month, m_start_day }, std::pair { m_end_month, m_end_day } }) {
        fill(month, month_words());
        refill_days(month, day);
        connect(month, &QComboBox::currentIndexChanged, this, [this, month, day] { refill_days(month, day); });
    }

    auto* dates = new QGridLayout;
    dates->addWidget(new QLabel(QStringLiteral("century"), this), 0, 1);
    dates->addWidget(new QLabel(QStringLiteral("year"), this), 0, 2);
    dates->addWidget(new QLabel(QStringLiteral("month"), this), 0, 3);
    dates->addWidget(new QLabel(QStringLiteral("day"), this), 0, 4);
    dates->addWidget(new QLabel(QStringLiteral("start"), this), 1, 0);
    dates->addWidget(m_century, 1, 1);
    dates->addWidget(m_start_year, 1, 2);
    dates->addWidget(m_start_month, 1, 3);
    dates->addWidget(m_start_day, 1, 4);
    dates->addWidget(new QLabel(QStringLiteral("end"), this), 2, 0);
    dates->addWidget(m_end_year, 2, 2);
    dates->addWidget(m_end_month, 2, 3);
    dates->addWidget(m_end_day, 2, 4);
    auto* set_days_button = new QPushButton(QStringLiteral("set days"), this);
    set_days_button->setAutoDefault(false);
    dates->addWidget(set_days_button, 2, 5);

    auto* day_column = new QVBoxLayout;
    day_column->addWidget(new QLabel(QStringLiteral("days"), this));
    day_column->addWidget(m_days, 1);
    day_column->addWidget(m_days_count);
    auto* day_buttons = new QHBoxLayout;
    auto* delete_days_button = add_button(day_buttons, this, "delete days");
    auto* save_days = add_button(day_buttons, this, "save list");
    day_column->addLayout(day_buttons);

    auto* court_column = new QVBoxLayout;
    court_column->addWidget(new QLabel(qs(m_editor.numbers_names_label()), this));
    court_column->addWidget(m_courts, 1);
    auto* court_buttons = new QHBoxLayout;
    auto* delete_button = add_button(court_buttons, this, "delete");
    auto* delete_all_button = add_button(court_buttons, this, "delete from all days");
    auto* save_courts = add_button(court_buttons, this, "save list");
    save_courts->setObjectName(QStringLiteral("save courts list"));
    court_column->addLayout(court_buttons);

    auto* lists = new QHBoxLayout;
    lists->addLayout(day_column, 1);
    lists->addLayout(court_column, 1);

    auto* generate_row = new QHBoxLayout;
    generate_row->addWidget(new QLabel(qs(m_editor.max_courts_label()), this));
    generate_row->addWidget(m_number);
    auto* generate_button = new QPushButton(QStringLiteral("generate"), this);
    generate_button->setDefault(true);
    generate_row->addWidget(generate_button);

    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    auto* save_button = add_button(bottom, this, "save");
    auto* close_button = add_button(bottom, this, "close");

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(dates);
    layout->addLayout(lists, 1);
    layout->addLayout(generate_row);
    layout->addLayout(bottom);
    resize(640, 520);

    connect(set_days_button, &QPushButton::clicked, this, &SetDatesCourtsWindow::set_days);
    connect(generate_button, &QPushButton::clicked, this, &SetDatesCourtsWindow::generate);
    connect(delete_button, &QPushButton::clicked, this, &SetDatesCourtsWindow::delete_court);
    connect(delete_all_button, &QPushButton::clicked, this, &SetDatesCourtsWindow::delete_from_all_days);
    connect(delete_days_button, &QPushButton::clicked, this, &SetDatesCourtsWindow::delete_days);
    connect(save_button, &QPushButton::clicked, this, &SetDatesCourtsWindow::save);
    connect(close_button, &QPushButton::clicked, this, &QDialog::reject);
    connect(save_days, &QPushButton::clicked, this, [this] { m_editor.save_days_list(); });
    connect(save_courts, &QPushButton::clicked, this, [this] { m_editor.save_courts_list(m_court_entries); });
    connect(m_days, &QListWidget::currentRowChanged, this, [this] { load_courts(); });
    connect(m_courts, &QListWidget::currentRowChanged, this, [this] { switch_ctls(); });

    m_editor.init();
    loaddays();
    if (!m_editor.days().empty()) {
        set_choosers(1, m_editor.days().front());
        set_choosers(2, m_editor.days().back());
    }
    m_number->setFocus();
}

QPushButton* SetDatesCourtsWindow::button(const QString& caption) const
{
    return button_with_text(this, caption);
}

void SetDatesCourtsWindow::refill_days(QComboBox* month, QComboBox* day)
{
    const auto kept = day->currentText();
    fill(day, getdays(month->currentIndex() + 1));
    const int at = day->findText(kept);
    day->setCurrentIndex(at >= 0 ? at : day->count() - 1);
    if (kept.isEmpty())
        day->setCurrentIndex(0);
}

void SetDatesCourtsWindow::set_choosers(int which, const std::string& sdate)
{
    const auto date = set_day_month_year(sdate);
    if (!date)
        return;
    year(which)->setCurrentIndex(date->year2);
    month(which)->setCurrentIndex(date->month - 1);
    const int at = day(which)->findText(qs(sdate.substr(3, 2)));
    if (at >= 0)
        day(which)->setCurrentIndex(at);
}

ChosenDate SetDatesCourtsWindow::chosen(int which) const
{
    const int century = m_century->currentText().toInt();
    return { century * 100 + year(which)->currentText().toInt(), month(which)->currentIndex() + 1,
        day(which)->currentText().toInt() };
}

void SetDatesCourtsWindow::loaddays()
{
    m_days->clear();
    for (const auto& sdate : m_editor.days())
        m_days->addItem(qs(sdate));
    m_days_count->setText(QString::number(m_days->count()));
    load_courts();
}

std::string SetDatesCourtsWindow::current_day() const
{
    const auto* item = m_days->currentItem();
    return item ? to_std(item->text()) : std::string();
}

std::vector<std::string> SetDatesCourtsWindow::selected_days() const
{
    std::vector<std::string> days;
    for (int row = 0; row < m_days->count(); ++row)
        if (m_days->item(row)->isSelected())
            days.push_back(to_std(m_days->item(row)->text()));
    return days;
}

std::optional<std::int64_t> SetDatesCourtsWindow::selected_cid() const
{
    const int row = m_courts->currentRow();
    if (row < 0 || row >= static_cast<int>(m_court_entries.size()) || !m_courts->item(row)->isSelected())
        return std::nullopt;
    return m_court_entries[static_cast<std::size_t>(row)].cid;
}

void SetDatesCourtsWindow::load_courts()
{
    m_courts->clear();
    m_court_entries = current_day().empty() ? std::vector<CourtEntry> {} : m_editor.load_courts(current_day());
    for (const auto& court : m_court_entries)
        m_courts->addItem(qs(court.text));
    switch_ctls();
}

void SetDatesCourtsWindow::switch_ctls()
{
    // The reserved rows can be renamed on the board but never deleted.
    const auto cid = selected_cid();
    const bool real = !cid || *cid > 0;
    button(QStringLiteral("delete"))->setEnabled(real);
    button(QStringLiteral("delete from all days"))->setEnabled(real);
}

void SetDatesCourtsWindow::set_days()
{
    m_editor.set_days(chosen(1), chosen(2));
    loaddays();
}

bool SetDatesCourtsWindow::generate()
{
    const bool done = m_editor.generate(to_std(m_number->text()), selected_days());
    if (!done) {
        m_number->setFocus();
        return false;
    }
    const auto kept = current_day();
    m_days->clear();
    for (const auto& sdate : m_editor.days())
        m_days->addItem(qs(sdate));
    m_days_count->setText(QString::number(m_days->count()));
    const auto found = m_days->findItems(qs(kept), Qt::MatchExactly);
    m_days->setCurrentRow(found.isEmpty() ? 0 : m_days->row(found.front()), QItemSelectionModel::NoUpdate);
    m_days->clearSelection();
    load_courts();
    if (m_courts->count() > 0)
        m_courts->setCurrentRow(0);
    return true;
}

void SetDatesCourtsWindow::delete_court()
{
    if (const auto row = m_editor.delete_court(current_day(), selected_cid())) {
        load_courts();
        m_courts->setCurrentRow(*row);
    }
}

void SetDatesCourtsWindow::delete_from_all_days()
{
    if (const auto row = m_editor.delete_from_all_days(current_day(), selected_cid())) {
        load_courts();
        m_courts->setCurrentRow(*row);
    }
}

void SetDatesCourtsWindow::delete_days()
{
    if (!m_editor.delete_days(selected_days()))
        return;
    m_courts->clear();
    m_court_entries.clear();
    loaddays();
}

void SetDatesCourtsWindow::save()
{
    const auto dates = m_editor.save();
    if (m_on_saved)
        m_on_saved(dates);
}

namespace {
QPointer<SetDatesCourtsWindow> open_window;
} // namespace

SetDatesCourtsWindow* open_setdatescourts(
    Session& session, QWidget* parent, std::function<void(const std::string&)> on_saved)
{
    auto& open = open_window;
    if (!session.has_tournament())
        return nullptr;
    if (!open) {
        open = new SetDatesCourtsWindow(session, std::move(on_saved), parent);
        open->setAttribute(Qt::WA_DeleteOnClose);
    }
    open->show();
    open->raise();
    return open;
}

void close_setdatescourts()
{
    if (open_window)
        open_window->close();
}

} // namespace qv
