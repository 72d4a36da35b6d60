#pragma once

#include "online/website_options.h"
#include "ui/area_page.h"
#include "ui/website_page_tabs.h"

#include <QLabel>

#include <filesystem>
#include <functional>
#include <map>

class QCheckBox;
class QListWidget;
class QTabWidget;

namespace qv {

// A label that acts when clicked: the two-way choices and the style marks beside the lists.
class ClickLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

// The website tab of the online area: the parts of the site, the styles that set them at once, the two-way
// choices of the settings, the operations, and the files of the site as made here and as they stand at the
// host. Its page tabs carry the options of the draws, schedules, player times and results pages.
class WebsiteTab : public AreaPage
{
    Q_OBJECT

public:
    WebsiteTab(Session& session, QWidget* parent = nullptr);

    void init() override;
    void clear() override;
    void refresh_lists(Lists which) override;

    const WebsitePageTabs& page_tabs() const { return m_pages; }
    // Everything the tab and its page tabs hold, as make_website takes it.
    WebsiteOptions options() const;

    QCheckBox* part(const QString& caption) const;
    ClickLabel* pair_label(WebsitePair pair, bool first) const;
    ClickLabel* style_mark(bool star) const { return star ? m_star : m_no_star; }
    QListWidget* styles() const { return m_styles; }
    QListWidget* operations() const { return m_operations; }
    QListWidget* local_files() const { return m_local; }
    QLabel* size_label() const { return m_size; }
    QLabel* status_label() const { return m_status; }
    QTabWidget* file_tabs() const { return m_files; }

    // How a local page is opened in the desktop's browser; tests put their own.
    using OpenFile = std::function<void(const std::filesystem::path&)>;
    void set_file_opener(OpenFile open) { m_open_file = std::move(open); }

    // The list of the remote files of the site goes on a tab of its own beside the local files.
    void set_remote_panel(QWidget* panel);
    void show_local_files();

signals:
    // "upload website" and "copy qv4 file to archive": the publishing side runs them.
    void uploadRequested();
    void copyQv4Requested();

public slots:
    void apply_style(const QString& style);
    bool make_website();
    void view_local_website();
    void load_local_files();
    void run_operation(const QString& caption);

private:
    QWidget* build_parts();
    void add_pair(QWidget* row, WebsitePair pair, const QString& first, const QString& second);
    void show_pair(WebsitePair pair);
    void set_options(const WebsiteOptions& options);

    Session& m_session;
    WebsitePageTabs m_pages;
    std::vector<QCheckBox*> m_parts;
    std::map<std::pair<int, bool>, ClickLabel*> m_pair_labels;
    ClickLabel* m_star = nullptr;
    ClickLabel* m_no_star = nullptr;
    QListWidget* m_styles;
    QListWidget* m_operations;
    QListWidget* m_local;
    QLabel* m_size;
    QLabel* m_status;
    QTabWidget* m_files;
    OpenFile m_open_file;
};

} // namespace qv
