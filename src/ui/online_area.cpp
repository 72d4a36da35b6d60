#include "ui/online_area.h"

#include "ui/online_events_tab.h"
#include "ui/remote_website_panel.h"
#include "ui/website_tab.h"

#include <QListWidget>
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
    add_tab(new OnlineEventsTab(session, this), QStringLiteral("events and entries"));
    connect_publishing();
}

// The website tab's "upload website" and "copy qv4 file to archive" run on the remote files panel, which sits
// beside the local files and brings them to the front or selects a row while it uploads.
void OnlineArea::connect_publishing()
{
    m_remote = new RemoteWebsitePanel(m_session, this);
    m_pages.push_back(m_remote);
    m_website->set_remote_panel(m_remote);
    connect(m_website, &WebsiteTab::uploadRequested, m_remote, &RemoteWebsitePanel::upload_website);
    connect(m_website, &WebsiteTab::copyQv4Requested, m_remote, &RemoteWebsitePanel::copy_qv4_to_archive);
    connect(m_remote, &RemoteWebsitePanel::files_tab_wanted, this, [this](FilesTab tab) {
        if (tab == FilesTab::local)
            m_website->show_local_files();
        else
            m_website->file_tabs()->setCurrentWidget(m_remote);
    });
    connect(m_remote, &RemoteWebsitePanel::local_row_selected, this,
        [this](int row) { m_website->local_files()->setCurrentRow(row); });
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
