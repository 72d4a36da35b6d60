#pragma once

#include "online/ftp_publishing.h"
#include "online/service_operations.h"
#include "ui/area_page.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// The published side of the website: the public address, the size of the local site, the last known list of
// remote files and the operations on them. The website tab's lines "upload website" and "copy qv4 file to
// archive" call the two public slots.
class RemoteWebsitePanel : public AreaPage
{
    Q_OBJECT

public:
    RemoteWebsitePanel(Session& session, QWidget* parent = nullptr);

    void init() override;
    void clear() override;

    QListWidget* remote_list() const { return m_remote; }
    QLabel* address_label() const { return m_address; }
    QLabel* size_label() const { return m_size; }
    QPushButton* button(const QString& caption) const;
    bool running() const { return m_running; }
    void set_url_opener(OpenUrl open) { m_open_url = std::move(open); }

public slots:
    void upload_website();
    void copy_qv4_to_archive();
    void refresh_remote_files();
    void clear_remote_files();
    void view_remote_website();
    // The size of the local site, read again after each make.
    void show_size();

signals:
    // The run wants the list of local or of remote files in front, or a row of the local list selected.
    void files_tab_wanted(qv::FilesTab tab);
    void local_row_selected(int row);
    // A results file went into the archive; its lists read it again.
    void archive_changed();

private:
    PublishingView view();
    void show_remote(const std::vector<std::string>& names);
    // Runs one publishing operation with the panel's buttons off; a second click meanwhile does nothing.
    void run(bool (*operation)(Session&, PublishingView));

    Session& m_session;
    QLabel* m_address;
    QLabel* m_size;
    QListWidget* m_remote;
    OpenUrl m_open_url;
    bool m_running = false;
};

} // namespace qv
