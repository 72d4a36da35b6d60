#include "../online/ftp_fixture.h"
#include "core/database.h"
#include "core/session.h"
#include "online/remote_website.h"
#include "ui/qv4_multiple_window.h"
#include "ui/remote_website_panel.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace qv {
namespace {

std::vector<std::string> items(const QListWidget* list)
{
    std::vector<std::string> names;
    for (int row = 0; row < list->count(); ++row)
        names.push_back(list->item(row)->text().toStdString());
    return names;
}

class RemoteWebsitePanelTest : public test::FtpFixture
{
protected:
    std::unique_ptr<RemoteWebsitePanel> panel;
    std::vector<std::string> opened;

    void SetUp() override
    {
        FtpFixture::SetUp();
        panel = std::make_unique<RemoteWebsitePanel>(session);
        panel->set_url_opener([this](const std::string& url) { opened.push_back(url); });
        panel->resize(520, 360);
        panel->show();
    }
};

TEST_F(RemoteWebsitePanelTest, OpensOnTheLastKnownListWithoutConnecting)
{
    save_remote_website(session.init_db(), "club7", { "index.htm", "draw1.gif" });
    session.settings().set_disk_var("app.ftp_website_url", address);
    make_site({ { "index.htm", std::string(2048, 'x') } });
    service.reset();

    panel->init();
    EXPECT_EQ(items(panel->remote_list()), (std::vector<std::string> { "index.htm", "draw1.gif" }));
    EXPECT_EQ(panel->address_label()->text().toStdString(), address);
    EXPECT_EQ(panel->size_label()->text().toStdString(), "2.00 KB");
    EXPECT_TRUE(talk.said.empty());

    panel->button(QStringLiteral("view remote website"))->click();
    EXPECT_EQ(opened, std::vector<std::string> { address });
}

TEST_F(RemoteWebsitePanelTest, TheButtonsAndSlotsPublishThroughTheHost)
{
    panel->init();
    make_site({ { "index.htm", "<html></html>" }, { "spring.qv4", "results" } });
    std::vector<FilesTab> tabs_wanted;
    QObject::connect(panel.get(), &RemoteWebsitePanel::files_tab_wanted,
        [&tabs_wanted](FilesTab tab) { tabs_wanted.push_back(tab); });

    panel->upload_website();
    EXPECT_EQ(test::tree_of(remote), (test::Tree { { "index.htm", "<html></html>" }, { "spring.qv4", "results" } }));
    EXPECT_EQ(items(panel->remote_list()), (std::vector<std::string> { "index.htm", "spring.qv4" }));
    EXPECT_EQ(panel->address_label()->text().toStdString(), address);
    EXPECT_EQ(tabs_wanted.size(), 3u);
    EXPECT_TRUE(panel->isEnabled());
    std::filesystem::create_directories(QV_SCREENSHOT_DIR);
    panel->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/remote_website_panel.png"));

    test::write_file(remote / "extra.gif", "gif");
    panel->button(QStringLiteral("refresh remote files"))->click();
    EXPECT_EQ(items(panel->remote_list()), (std::vector<std::string> { "extra.gif", "index.htm", "spring.qv4" }));

    panel->button(QStringLiteral("clear remote files"))->click();
    EXPECT_TRUE(test::tree_of(remote).empty());
    EXPECT_EQ(talk.last_message(), "ok");

    bool archived = false;
    QObject::connect(panel.get(), &RemoteWebsitePanel::archive_changed, [&archived] { archived = true; });
    panel->copy_qv4_to_archive();
    EXPECT_TRUE(archived);
    EXPECT_TRUE(std::filesystem::exists(session.dirs().qv4_file_archive / "spring.qv4"));
}

// An open window of the results archive lists the copied file at once; a refused copy leaves it as it was.
TEST_F(RemoteWebsitePanelTest, ACopiedResultsFileShowsInTheOpenArchiveWindow)
{
    auto* archive_window = new Qv4MultipleWindow(session, panel.get());
    make_site({ { "index.htm", "<html></html>" } });
    panel->copy_qv4_to_archive();
    EXPECT_EQ(talk.last_message(), "no qv4 file");
    EXPECT_TRUE(items(archive_window->archive()).empty());

    make_site({ { "index.htm", "<html></html>" }, { "spring.qv4", "results" } });
    panel->copy_qv4_to_archive();
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(items(archive_window->archive()), std::vector<std::string> { "spring.qv4" });
}

} // namespace
} // namespace qv
