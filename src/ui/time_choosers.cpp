#include "ui/time_choosers.h"

#include "ui/qt_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

namespace qv {

namespace {

void fill(QComboBox* box, const std::vector<std::string>& entries)
{
    for (const auto& entry : entries)
        box->addItem(qs(entry));
}

void choose(QComboBox* box, const std::optional<std::string>& entry)
{
    if (!entry)
        return;
    const int at = box->findText(qs(*entry));
    if (at >= 0)
        box->setCurrentIndex(at);
}

} // namespace

TimeChoosers::TimeChoosers(QWidget* parent)
    : QWidget(parent)
    , m_nbat(new QComboBox(this))
    , m_hour(new QComboBox(this))
    , m_minute(new QComboBox(this))
{
    fill(m_nbat, nbat_choices());
    fill(m_hour, hour_choices());
    fill(m_minute, minute_choices());
    m_nbat->setObjectName(QStringLiteral("nbat"));
    m_hour->setObjectName(QStringLiteral("hour"));
    m_minute->setObjectName(QStringLiteral("minute"));
    m_nbat->setToolTip(QStringLiteral("nb/at"));
    m_hour->setToolTip(QStringLiteral("hour"));
    m_minute->setToolTip(QStringLiteral("minute"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_nbat);
    row->addWidget(m_hour);
    row->addWidget(new QLabel(QStringLiteral(":"), this));
    row->addWidget(m_minute);
}

TimeChoice TimeChoosers::choice() const
{
    return { to_std(m_nbat->currentText()), to_std(m_hour->currentText()), to_std(m_minute->currentText()) };
}

void TimeChoosers::set_choice(const TimeChoice& choice)
{
    choose(m_nbat, choice.nbat);
    choose(m_hour, choice.hour);
    choose(m_minute, choice.minute);
}

void TimeChoosers::set_grabbed(const GrabbedTime& grabbed)
{
    choose(m_nbat, grabbed.nbat);
    choose(m_hour, grabbed.hour);
    choose(m_minute, grabbed.minute);
}

void TimeChoosers::clear()
{
    for (auto* box : { m_nbat, m_hour, m_minute })
        box->setCurrentIndex(0);
}

} // namespace qv
