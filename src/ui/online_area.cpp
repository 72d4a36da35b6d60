#include "ui/online_area.h"

#include "ui/online_events_tab.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

OnlineArea::OnlineArea(Session& session, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("config_admin"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    add_tab(new OnlineEventsTab(session, this), QStringLiteral("events and entries"));
}

void OnlineArea::add_tab(AreaPage* page, const QString& caption)
{
    m_pages.push_back(page);
    m_tabs->addTab(page, caption);
}

void OnlineArea::init()
{
    for (auto* page : m_pages)
        page->init();
}

void OnlineArea::clear()
{
    for (auto* page : m_pages)
        page->clear();
}

void OnlineArea::refresh_lists(Lists which)
{
    for (auto* page : m_pages)
        page->refresh_lists(which);
}

} // namespace qv
