#include "ui/autoschedule_window.h"

#include "core/session.h"
#include "scheduling/autoschedule.h"
#include "ui/qt_text.h"
#include "ui/time_choosers.h"
#include "ui/window_behaviour.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
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

AutoscheduleWindow::AutoscheduleWindow(
    Session& session, ScheduleBoard& board, std::function<void()> on_done, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_board(board)
    , m_on_done(std::move(on_done))
    , m_choosers(new TimeChoosers(this))
    , m_minutes(new QLineEdit(this))
{
    setObjectName(QStringLiteral("autoschedule_frm"));
    setWindowTitle(QStringLiteral("auto-schedule matches"));
    const auto& settings = session.settings();
    choose_index(m_choosers->nbat(), settings.integer("dl.nbat"));
    choose_index(m_choosers->hour(), settings.integer("dl.hrs"));
    choose_index(m_choosers->minute(), settings.integer("dl.mins"));
    m_minutes->setObjectName(QStringLiteral("minutes"));
    m_minutes->setText(QString::number(settings.integer("dl.minsadd")));
    fit_characters(m_minutes, 6);

    auto* minutes_row = new QHBoxLayout;
    minutes_row->addWidget(new QLabel(QStringLiteral("allow minutes per match"), this));
    minutes_row->addWidget(m_minutes);
    minutes_row->addStretch(1);
    auto* buttons = new QHBoxLayout;
    auto* ok = new QPushButton(QStringLiteral("ok"), this);
    auto* close = new QPushButton(QStringLiteral("close"), this);
    buttons->addWidget(ok);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("start first match at"), this));
    layout->addWidget(m_choosers);
    layout->addLayout(minutes_row);
    layout->addLayout(buttons);

    set_main_button(this, ok);
    set_tab_chain({ m_choosers->nbat(), m_choosers->hour(), m_choosers->minute(), m_minutes, ok, close });
    connect(ok, &QPushButton::clicked, this, &AutoscheduleWindow::confirm);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

QPushButton* AutoscheduleWindow::button(const QString& caption) const
{
    return button_with_text(this, caption);
}

bool AutoscheduleWindow::confirm()
{
    AutoscheduleRequest request;
    request.start = m_choosers->choice();
    request.nbat_index = m_choosers->nbat()->currentIndex();
    request.hour_index = m_choosers->hour()->currentIndex();
    request.minute_index = m_choosers->minute()->currentIndex();
    request.minutes = to_std(m_minutes->text());
    const auto outcome = autoschedule_confirm(m_board, request);
    if (outcome == AutoscheduleOutcome::refused_minutes) {
        m_minutes->setFocus();
        m_minutes->selectAll();
    }
    if (outcome != AutoscheduleOutcome::done)
        return false;
    if (m_on_done)
        m_on_done();
    accept();
    return true;
}

} // namespace qv
