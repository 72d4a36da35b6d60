#pragma once

#include "ui/area_page.h"

class QTabWidget;

namespace qv {

class RemoteWebsitePanel;
class WebsiteTab;

// The online area, config_admin: the website of the tournament and its publishing, and the events and entries
// exchanged with the online service, each on tabs of their own.
class OnlineArea : public AreaPage
{
    Q_OBJECT

public:
    OnlineArea(Session& session, QWidget* parent = nullptr);

    void init() override;
    void clear() override;
    void refresh_lists(Lists which) override;

    QTabWidget* tabs() const { return m_tabs; }
    WebsiteTab* website() const { return m_website; }
    RemoteWebsitePanel* remote_files() const { return m_remote; }

private:
    // Each tab is an area page of its own; the area passes init, clear and refreshes on to all of them.
    void add_tab(AreaPage* page, const QString& caption);
    void connect_publishing();

    Session& m_session;
    QTabWidget* m_tabs;
    std::vector<AreaPage*> m_pages;
    WebsiteTab* m_website = nullptr;
    RemoteWebsitePanel* m_remote = nullptr;
};

} // namespace qv
