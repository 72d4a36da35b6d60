#include "ui/online_area.h"

#include "ui/website_tab.h"

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

    m_website = new WebsiteTab(session, this);
    add_tab(m_website, QStringLiteral("website"));
    const auto& pages = m_website->page_tabs();
    add_tab(pages.draws, QStringLiteral("draws"));
    add_tab(pages.schedules, QStringLiteral("schedules"));
    add_tab(pages.player_times, QStringLiteral("player times"));
    add_tab(pages.results, QStringLiteral("results"));
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
