#include "core/database.h"
#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/service_process.h"
#include "support/temp_app_dir.h"
#include "ui/main_window.h"
#include "ui/online_area.h"
#include "ui/online_events_tab.h"
#include "ui/peek_browse_window.h"
#include "ui/toolbar_windows.h"
#include "ui/window_behaviour.h"
#include "ui_test_support.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

class OnlineEventsTabTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };
    test::ServiceProcess service { dir.path() };
    std::vector<std::string> opened;

    void SetUp() override
    {
        ASSERT_TRUE(service.running());
        window.resize(1200, 700);
        window.show();
        session().boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session().has_tournament());
        session().settings().set_disk_var("app.servlet", service.server());
        session().settings().set_disk_var("app.custid", test::ServiceProcess::custid);
        session().settings().set_disk_var("app.password", test::ServiceProcess::password);
        ASSERT_NE(tab(), nullptr);
        tab()->set_url_opener([this](const std::string& url) { opened.push_back(url); });
        talk.clear();
    }

    Session& session() { return window.session(); }
    OnlineEventsTab* tab() { return window.findChild<OnlineEventsTab*>(); }

    void click(QListWidget* list, const QString& caption)
    {
        const auto found = list->findItems(caption, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << caption.toStdString();
        emit list->itemClicked(found.front());
    }
    void add_events()
    {
        session().tournament().run("insert into events (eid, eventname, sex, pte, fee, singdobs) values "
                                   "(1, 'mens singles', 'male', 'p', '5', 'singles'), "
                                   "(2, 'mixed doubles', 'mixed', 't', '8', 'doubles')");
        session().refresh_lists(Lists::events);
    }
    void enter_online(const std::string& query)
    {
        const auto page = test::fetch(service.server() + "?idx=enter2_submit&custid=club7" + query);
        ASSERT_NE(page.find("entry received"), std::string::npos) << page;
    }
};

TEST_F(OnlineEventsTabTest, TheTabListsItsOperationsInTheirOrder)
{
    auto* area = window.findChild<OnlineArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(area->tabs()->tabText(area->tabs()->indexOf(tab())), QStringLiteral("events and entries"));
    EXPECT_EQ(test::lines_of(tab()->online_operations()),
        QStringList({ "get selected event entries", "players", "clear players and entries", "peek entries",
            "peek entries refresh data", "download entries don't load", "download entries load", "refresh event list",
            "refresh ew state", "view enter page", "view withdraw page", "open entries", "close entries",
            "open withdrawals", "close withdrawals", "open entries/withdrawals", "close entries/withdrawals", "entries",
            "links online" }));
    EXPECT_EQ(test::lines_of(tab()->local_operations()),
        QStringList({ "upload events", "clear online events", "tournament", "event error check" }));
    EXPECT_EQ(
        test::lines_of(tab()->qv5_operations()), QStringList({ "load", "browse", "rename", "clear peeks", "search" }));
    add_events();
    EXPECT_EQ(test::lines_of(tab()->local_events()),
        QStringList({ "1 mens singles (male, singles)", "2 mixed doubles (mixed, doubles)" }));
}

TEST_F(OnlineEventsTabTest, UploadStatesPagesAndAPeekWithAWithdrawal)
{
    add_events();
    click(tab()->online_operations(), "get selected event entries");
    EXPECT_EQ(talk.last_message(), "select an online event");

    talk.answers.push_back(Answer::Yes);
    click(tab()->local_operations(), "upload events");
    EXPECT_EQ(test::lines_of(tab()->online_events()), QStringList({ "1 mens singles", "2 mixed doubles" }));
    EXPECT_EQ(tab()->states_label()->text(), QStringLiteral("entries are CLOSED\nwithdrawals are CLOSED"));
    click(tab()->online_operations(), "open entries");
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(tab()->states_label()->text(), QStringLiteral("entries are OPEN\nwithdrawals are CLOSED"));

    click(tab()->online_operations(), "view enter page");
    tab()->online_events()->setCurrentRow(1);
    click(tab()->online_operations(), "get selected event entries");
    ASSERT_EQ(opened.size(), 2u);
    EXPECT_NE(opened[0].find("?idx=enter1_enterpage&sequence="), std::string::npos) << opened[0];
    EXPECT_NE(opened[1].find("?idx=get_event_entries&sequence="), std::string::npos);
    EXPECT_NE(opened[1].find("&custid=club7&event=2&os="), std::string::npos) << opened[1];

    enter_online("&fname=Al&sname=West&email=al@x.org&e1=1");
    enter_online("&fname=Bea&sname=Lane&email=bea@x.org&sex=f&e2=1&pr2=1");
    click(tab()->online_operations(), "peek entries");
    auto* peek = window.findChild<PeekBrowseWindow*>();
    ASSERT_NE(peek, nullptr);
    EXPECT_EQ(peek->windowTitle(), QStringLiteral("peek entries"));
    EXPECT_EQ(test::lines_of(peek->players()), QStringList({ "Al West (al@x.org)", "Bea Lane (bea@x.org)" }));
    EXPECT_EQ(test::lines_of(peek->entries()), QStringList({ "Al West" }));
    peek->events()->setCurrentRow(1);
    EXPECT_EQ(test::lines_of(peek->entries()), QStringList({ "raw: Bea Lane / (partner required)" }));
    EXPECT_EQ(tab()->qv5_files()->count(), 1);
    peek->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/peek_browse.png"));
    tab()->resize(1150, 560);
    tab()->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/online_events_tab.png"));

    peek->players()->setCurrentRow(0);
    talk.answers.push_back(Answer::Yes);
    button_with_text(peek, "withdraw")->click();
    EXPECT_EQ(talk.last_message(), "Al West has been withdrawn from the tournament");
    EXPECT_EQ(test::lines_of(peek->players()), QStringList({ "Bea Lane (bea@x.org)" }));

    // The same file browsed from the archive opens a window of its own.
    tab()->qv5_files()->setCurrentRow(0);
    click(tab()->qv5_operations(), "browse");
    PeekBrowseWindow* browse = nullptr;
    for (auto* w : window.findChildren<PeekBrowseWindow*>())
        if (w->target() == EntriesTarget::browse)
            browse = w;
    ASSERT_NE(browse, nullptr);
    EXPECT_EQ(browse->windowTitle(), QStringLiteral("browse entries"));
    EXPECT_EQ(browse->players()->count(), 2) << "the file as it came down";
    EXPECT_EQ(button_with_text(browse, "withdraw"), nullptr) << "a browsed file is no online data";
}

TEST_F(OnlineEventsTabTest, TheTournamentMenuBrowsesAFileAndTheArchiveRenamesAndSearches)
{
    const auto file = dir.path() / "entries.qv5";
    std::ofstream(file, std::ios::binary) << "club cup^%^\r\n1^open^m^p^5^singles^'^\r\n^est^1^Al^West^a@b^^^m^"
                                          << std::string(15, '^') << "1^/^\r\n1^1^^^^\\^\r\n";
    talk.files.push_back({ file });
    auto* line = test::line_of(window, "tournament", "browse entries (qv5) file");
    ASSERT_NE(line, nullptr);
    line->trigger();
    EXPECT_EQ(talk.said.front().title, "browse qv5 file");
    auto* browse = window.findChild<PeekBrowseWindow*>();
    ASSERT_NE(browse, nullptr);
    EXPECT_EQ(browse->heading()->text(), QStringLiteral("club cup  (entries.qv5)"));
    EXPECT_EQ(test::lines_of(browse->entries()), QStringList({ "Al West" }));

    // The feederapps window downloads and loads too; without an account it stops at the first check.
    auto* feeder = window.open_feederapps();
    auto* download = feeder->button(QStringLiteral("download entries load"));
    ASSERT_NE(download, nullptr);
    session().settings().set_disk_var("app.custid", "");
    download->click();
    EXPECT_EQ(talk.last_message(), "no default account set,update in control panel");

    std::filesystem::copy_file(file, session().dirs().qv5_file_archive / "a.qv5");
    tab()->init();
    tab()->qv5_files()->setCurrentRow(0);
    tab()->qv5_name()->setText(QStringLiteral("b"));
    click(tab()->qv5_operations(), "rename");
    EXPECT_EQ(test::lines_of(tab()->qv5_files()), QStringList({ "b.qv5" }));
    tab()->qv5_files()->clearSelection();
    click(tab()->qv5_operations(), "search");
    EXPECT_EQ(tab()->qv5_files()->currentRow(), 0);
    tab()->qv5_name()->setText(QStringLiteral("zz"));
    click(tab()->qv5_operations(), "search");
    EXPECT_EQ(talk.last_message(), "not found");
}

} // namespace
} // namespace qv
