#include "ui/distload_window.h"

#include "core/session.h"
#include "ui/qt_text.h"
#include "ui/time_choosers.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

// A stored index that the chooser no longer offers leaves it on its first entry.
void choose_index(QComboBox* box, int index)
{
    box->setCurrentIndex(index >= 0 && index < box->count() ? index : 0);
}

} // namespace

DistloadWindow::DistloadWindow(Session& session, ScheduleBoard& board, DistloadCaller caller, const std::string& day,
    std::int64_t idx, BoardList* assistant_list, std::function<void()> on_done, QWidget* parent)
    : QDialog(parent)
    , m_board(board)
    , m_caller(caller)
    , m_day(day)
    , m_idx(idx)
    , m_assistant_list(assistant_list)
    , m_on_done(std::move(on_done))
    , m_court_choices(load_cids(session.tournament(), board.words(), day))
    , m_courts(new QListWidget(this))
    , m_choosers(new TimeChoosers(this))
    , m_minutes(new QLineEdit(this))
    , m_ignore(new QCheckBox(QStringLiteral("ignore time, just distribute"), this))
{
    setObjectName(QStringLiteral("distributeload"));
    setWindowTitle(QStringLiteral("distribute load across - ") + qs(day));
    const auto& words = board.words();
    m_courts->setSelectionMode(QAbstractItemView::MultiSelection);
    for (const auto& court : m_court_choices) {
        auto* item = new QListWidgetItem(qs(court.text), m_courts);
        item->setData(Qt::UserRole, QVariant::fromValue<qint64>(court.cid));
    }
    const auto& settings = session.settings();
    choose_index(m_choosers->nbat(), settings.integer("dl.nbat"));
    choose_index(m_choosers->hour(), settings.integer("dl.hrs"));
    choose_index(m_choosers->minute(), settings.integer("dl.mins"));
    m_minutes->setObjectName(QStringLiteral("minutes"));
    m_minutes->setText(QString::number(settings.integer("dl.minsadd")));
    fit_characters(m_minutes, 6);
    m_ignore->setChecked(settings.integer("dl.check1") == 1);

    auto* all = new QPushButton(QStringLiteral("all"), this);
    auto* none = new QPushButton(QStringLiteral("none"), this);
    auto* toggles = new QHBoxLayout;
    toggles->addWidget(all);
    toggles->addWidget(none);
    toggles->addStretch(1);
    auto* minutes_row = new QHBoxLayout;
    minutes_row->addWidget(new QLabel(qs("allow minutes per " + words.match), this));
    minutes_row->addWidget(m_minutes);
    minutes_row->addStretch(1);
    auto* ok = new QPushButton(QStringLiteral("ok"), this);
    auto* close = new QPushButton(QStringLiteral("close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(ok);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(qs("select " + words.courts), this));
    layout->addWidget(m_courts);
    layout->addLayout(toggles);
    layout->addWidget(new QLabel(qs("start first " + words.match + " at"), this));
    layout->addWidget(m_choosers);
    layout->addLayout(minutes_row);
    layout->addWidget(m_ignore);
    layout->addLayout(buttons);

    set_main_button(this, ok);
    set_tab_chain({ m_courts, all, none, m_choosers->nbat(), m_choosers->hour(), m_choosers->minute(), m_minutes,
        m_ignore, ok, close });
    connect(all, &QPushButton::clicked, m_courts, &QListWidget::selectAll);
    connect(none, &QPushButton::clicked, m_courts, &QListWidget::clearSelection);
    connect(ok, &QPushButton::clicked, this, &DistloadWindow::confirm);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

QPushButton* DistloadWindow::button(const QString& caption) const
{
    return button_with_text(this, caption);
}

bool DistloadWindow::confirm()
{
    DistloadRequest request;
    for (int row = 0; row < m_courts->count(); ++row)
        if (m_courts->item(row)->isSelected())
            request.courts.push_back(m_court_choices[static_cast<std::size_t>(row)]);
    request.start = m_choosers->choice();
    request.nbat_index = m_choosers->nbat()->currentIndex();
    request.hour_index = m_choosers->hour()->currentIndex();
    request.minute_index = m_choosers->minute()->currentIndex();
    request.minutes = to_std(m_minutes->text());
    request.ignore_time = m_ignore->isChecked();
    const auto outcome = distload_confirm(m_board, m_caller, m_day, m_idx, request, m_assistant_list);
    if (!request.ignore_time)
        m_minutes->setText(qs(request.minutes));
    if (outcome == DistloadOutcome::refused_minutes) {
        m_minutes->setFocus();
        m_minutes->selectAll();
    }
    if (outcome != DistloadOutcome::done)
        return false;
    if (m_on_done)
        m_on_done();
    accept();
    return true;
}

} // namespace qv
