#include "ui/remote_website_panel.h"

#include "core/session.h"
#include "online/format_bytes.h"
#include "online/ftp_files.h"
#include "online/qv4_archive.h"
#include "online/remote_website.h"
#include "online/request_url.h"
#include "ui/qt_text.h"
#include "ui/qv4_multiple_window.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QThread>
#include <QUrl>
#include <QVBoxLayout>

namespace qv {

namespace {

// Repaints and timers go on while files travel; the user's clicks wait, so no step starts twice.
void breathe()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void pause_breathing(int milliseconds)
{
    QDeadlineTimer deadline(milliseconds);
    while (!deadline.hasExpired()) {
        breathe();
        QThread::msleep(static_cast<unsigned long>(std::min<qint64>(50, deadline.remainingTime())));
    }
}

} // namespace

RemoteWebsitePanel::RemoteWebsitePanel(Session& session, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_address(new QLabel(this))
    , m_size(new QLabel(this))
    , m_remote(new QListWidget(this))
    , m_open_url([](const std::string& url) {
        QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(wire_url(url))));
    })
{
    setObjectName(QStringLiteral("remote_website"));
    m_address->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_address->setToolTip(QStringLiteral("website address"));
    m_size->setToolTip(QStringLiteral("website size"));
    m_remote->setObjectName(QStringLiteral("remote files"));

    auto* buttons = new QHBoxLayout;
    const std::pair<const char*, void (RemoteWebsitePanel::*)()> actions[]
        = { { "refresh remote files", &RemoteWebsitePanel::refresh_remote_files },
              { "clear remote files", &RemoteWebsitePanel::clear_remote_files },
              { "view remote website", &RemoteWebsitePanel::view_remote_website } };
    for (const auto& [caption, slot] : actions) {
        auto* button = new QPushButton(QString::fromLatin1(caption), this);
        button->setObjectName(QString::fromLatin1(caption));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, slot);
        buttons->addWidget(button);
    }
    buttons->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_address);
    layout->addWidget(m_size);
    layout->addWidget(m_remote, 1);
    layout->addLayout(buttons);
}

QPushButton* RemoteWebsitePanel::button(const QString& caption) const
{
    return findChild<QPushButton*>(caption);
}

void RemoteWebsitePanel::init()
{
    m_address->setText(qs(m_session.settings().text("app.ftp_website_url")));
    show_remote(load_remote_website(m_session.init_db(), m_session.settings().text("app.custid")));
    show_size();
}

void RemoteWebsitePanel::clear()
{
    m_remote->clear();
    m_address->clear();
    m_size->clear();
}

void RemoteWebsitePanel::show_size()
{
    m_size->setText(qs(format_bytes(get_dir_size(m_session.dirs().website))));
}

void RemoteWebsitePanel::show_remote(const std::vector<std::string>& names)
{
    m_remote->clear();
    for (const auto& name : names)
        m_remote->addItem(qs(name));
}

PublishingView RemoteWebsitePanel::view()
{
    PublishingView v;
    v.shown_address = [this] { return to_std(m_address->text()); };
    v.show_address = [this](const std::string& address) { m_address->setText(qs(address)); };
    v.show_tab = [this](FilesTab tab) { emit files_tab_wanted(tab); };
    v.show_remote_list = [this](const std::vector<std::string>& names) { show_remote(names); };
    v.select = [this](FilesTab tab, int row) {
        if (tab == FilesTab::remote)
            m_remote->setCurrentRow(row);
        else
            emit local_row_selected(row);
    };
    v.breathe = breathe;
    v.pause = pause_breathing;
    return v;
}

void RemoteWebsitePanel::run(bool (*operation)(Session&, PublishingView))
{
    if (m_running)
        return;
    m_running = true;
    setEnabled(false);
    operation(m_session, view());
    setEnabled(true);
    m_running = false;
}

void RemoteWebsitePanel::upload_website()
{
    show_size();
    run(qv::upload_website);
}

void RemoteWebsitePanel::refresh_remote_files()
{
    run(qv::refresh_remote_files);
}

void RemoteWebsitePanel::clear_remote_files()
{
    run(qv::clear_remote_files);
}

void RemoteWebsitePanel::view_remote_website()
{
    open_in_browser(m_session, m_session.settings().text("app.ftp_website_url"), m_open_url);
}

void RemoteWebsitePanel::copy_qv4_to_archive()
{
    if (!qv::copy_qv4_to_archive(m_session))
        return;
    // An open window of the archive shows the new file at once.
    for (auto* open : window()->findChildren<Qv4MultipleWindow*>())
        open->refresh_archive();
    emit archive_changed();
}

} // namespace qv
