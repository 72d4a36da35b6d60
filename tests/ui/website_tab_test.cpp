#include "core/session.h"
#include "support/saved_draws.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/main_window.h"
#include "ui/online_area.h"
#include "ui/remote_website_panel.h"
#include "ui/website_tab.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

void click_line(QListWidget* list, const QString& text)
{
    const auto found = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << text.toStdString();
    emit list->itemClicked(found.front());
}

class WebsiteTabTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };
    std::vector<fs::path> opened;

    void SetUp() override
    {
        window.resize(1200, 720);
        window.show();
        auto& session = window.session();
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        session.settings().set_tournament_cache(session.tournament(), "itname", "city open");
        test::save_ko_draw(session, 1, "boys 16", 16, 14, 2);
        test::save_rr_draw(session, 2, "group a", 5, 2, 6);
        session.toolbar_click(Area::config_admin);
        area = qobject_cast<OnlineArea*>(window.current_page());
        ASSERT_NE(area, nullptr);
        // The draws were saved behind the windows' back: the area reads the tournament again.
        area->init();
        tab = area->website();
        tab->set_file_opener([this](const fs::path& file) { opened.push_back(file); });
        talk.clear();
    }

    std::string ticks()
    {
        std::string text;
        for (const char* caption : { "details", "draws", "alias", "schedules", "player times", "results", "qv4 file",
                 "enter", "withdraw", "entries...", "players...", "message" })
            text += tab->part(QString::fromLatin1(caption))->isChecked() ? '1' : '0';
        return text + (tab->page_tabs().draws->ticked(QStringLiteral("include next round pointer")) ? "1" : "0");
    }

    OnlineArea* area = nullptr;
    WebsiteTab* tab = nullptr;
};

TEST_F(WebsiteTabTest, TabsOfTheOnlineArea)
{
    QStringList captions;
    for (int i = 0; i < area->tabs()->count(); ++i)
        captions << area->tabs()->tabText(i);
    for (const char* caption : { "website", "draws", "schedules", "player times", "results" })
        EXPECT_TRUE(captions.contains(QString::fromLatin1(caption))) << caption;
    QStringList operations;
    for (int row = 0; row < tab->operations()->count(); ++row)
        operations << tab->operations()->item(row)->text();
    EXPECT_EQ(operations,
        (QStringList { "make website", "upload website", "copy qv4 file to archive", "tournament", "links",
            "view local website" }));
    EXPECT_EQ(tab->page_tabs().draws->list()->count(), 2);
}

// A style sets all the parts at once, the next round pointer of the draws tab with them; the star and the
// blank label beside the list select and unselect all.
TEST_F(WebsiteTabTest, StylesSetTheOptions)
{
    const std::pair<const char*, const char*> cases[] = {
        { "qv4", "1000001000000" },
        { "tournament website", "1111110001110" },
        { "enter/withdraw basic", "1000000111110" },
        { "select all", "1111111111111" },
        { "archive", "0110001000000" },
    };
    for (const auto& [style, expected] : cases) {
        click_line(tab->styles(), QString::fromLatin1(style));
        EXPECT_EQ(ticks(), expected) << style;
    }
    emit tab->style_mark(true)->clicked();
    EXPECT_EQ(ticks(), "1111111111111");
    emit tab->style_mark(false)->clicked();
    EXPECT_EQ(ticks(), "0000000000000");
}

// A label sets its setting to "1" and the other of its pair to "0", and shows which one holds.
TEST_F(WebsiteTabTest, LabelsToggleTheSettingsPairs)
{
    auto& settings = window.session().settings();
    const std::tuple<WebsitePair, bool, const char*, const char*> clicks[] = {
        { WebsitePair::entries, false, "entries_make", "entries_online" },
        { WebsitePair::entries, true, "entries_online", "entries_make" },
        { WebsitePair::players, false, "players_make", "players_online" },
        { WebsitePair::alias, true, "alias_page", "alias_pages" },
        { WebsitePair::alias, false, "alias_pages", "alias_page" },
    };
    for (const auto& [pair, first, on, off] : clicks) {
        emit tab->pair_label(pair, first)->clicked();
        EXPECT_EQ(settings.get_disk_var(on), "1") << on;
        EXPECT_EQ(settings.get_disk_var(off), "0") << off;
        EXPECT_TRUE(tab->pair_label(pair, first)->font().bold()) << on;
        EXPECT_FALSE(tab->pair_label(pair, !first)->font().bold()) << off;
    }
}

TEST_F(WebsiteTabTest, ViewTextDrawAsksForADraw)
{
    auto* draws = tab->page_tabs().draws;
    draws->button(QStringLiteral("view text draw"))->click();
    EXPECT_EQ(talk.last_message(), "select draw");
    draws->list()->setCurrentRow(0);
    draws->button(QStringLiteral("view text draw"))->click();
    ASSERT_FALSE(talk.said.empty());
    EXPECT_EQ(talk.said.back().kind, "text");
    EXPECT_EQ(talk.said.back().title, "boys 16");
    EXPECT_TRUE(talk.said.back().text.ends_with("textdraw_boys16.htm"));
}

// The day tabs' view buttons need a day; the text draw button a draw.
TEST_F(WebsiteTabTest, ViewButtonsAskForADay)
{
    const auto& pages = tab->page_tabs();
    const std::pair<WebsitePageTab*, const char*> buttons[] = {
        { pages.schedules, "view by court" },
        { pages.schedules, "view by time" },
        { pages.schedules, "view by event" },
        { pages.player_times, "view player times" },
        { pages.results, "view by event" },
        { pages.results, "view by schedule" },
        { pages.results, "view by day" },
        { pages.results, "view by round" },
    };
    for (const auto& [page, caption] : buttons) {
        talk.clear();
        auto* button = page->button(QString::fromLatin1(caption));
        ASSERT_NE(button, nullptr) << caption;
        button->click();
        EXPECT_EQ(talk.messages(), std::vector<std::string> { "select day " }) << caption;
    }
}

// "make website" writes the site and lists it; "view local website" opens its index, or says there is none.
TEST_F(WebsiteTabTest, MakeAndViewLocalWebsite)
{
    click_line(tab->operations(), QStringLiteral("view local website"));
    EXPECT_EQ(talk.last_message(), "no index file found");
    EXPECT_TRUE(opened.empty());

    click_line(tab->styles(), QStringLiteral("archive"));
    tab->page_tabs().draws->list()->selectAll();
    click_line(tab->operations(), QStringLiteral("make website"));
    EXPECT_EQ(talk.last_message(), "ok");
    QStringList files;
    for (int row = 0; row < tab->local_files()->count(); ++row)
        files << tab->local_files()->item(row)->text();
    EXPECT_EQ(files,
        (QStringList { "city_open.qv4", "draw_boys16.gif", "draw_groupa.gif", "file_alias.htm", "file_draws.htm",
            "file_qv4.htm", "index.htm" }));
    EXPECT_FALSE(tab->size_label()->text().isEmpty());
    click_line(tab->operations(), QStringLiteral("view local website"));
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened.front(), window.session().dirs().website / "index.htm");
    tab->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/website_tab.png"));
}

// "upload website" and "copy qv4 file to archive" run on the remote files panel beside the local files.
TEST_F(WebsiteTabTest, PublishingRunsOnTheRemoteFilesPanel)
{
    EXPECT_EQ(tab->file_tabs()->tabText(1), "remote files");
    EXPECT_EQ(tab->file_tabs()->widget(1), static_cast<QWidget*>(area->remote_files()));

    click_line(tab->operations(), QStringLiteral("copy qv4 file to archive"));
    EXPECT_EQ(talk.last_message(), "no qv4 file");
    click_line(tab->styles(), QStringLiteral("qv4"));
    click_line(tab->operations(), QStringLiteral("make website"));
    click_line(tab->operations(), QStringLiteral("copy qv4 file to archive"));
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_TRUE(fs::exists(window.session().dirs().qv4_file_archive / "city_open.qv4"));

    talk.clear();
    click_line(tab->operations(), QStringLiteral("upload website"));
    ASSERT_FALSE(talk.said.empty());
    EXPECT_EQ(talk.last_message(), "no default account set,update in control panel");
}

} // namespace
} // namespace qv
