#include "core/session.h"
#include "online/accounts.h"
#include "online/request_url.h"
#include "support/scripted_talk.h"
#include "support/service_process.h"
#include "support/temp_app_dir.h"
#include "ui/accounts_tab.h"
#include "ui/addresses_tab.h"
#include "ui/control_panel.h"
#include "ui/feedback_tab.h"
#include "ui/main_window.h"
#include "ui/options_tab.h"
#include "ui/tournament_area.h"
#include "ui/tournament_config_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>

#include <gtest/gtest.h>

namespace qv {
namespace {

class OnlineWindowsTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };
    test::ServiceProcess service { dir.path(), { "--ftp", "127.0.0.1:2121:u1:p1:http://127.0.0.1:8021/:1048576" } };

    void SetUp() override
    {
        ASSERT_TRUE(service.running());
        window.resize(1100, 700);
        window.show();
        window.session().boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(window.session().has_tournament());
    }

    Session& session() { return window.session(); }
    std::string setting(const char* key) { return session().settings().text(key); }

    TournamentConfigWindow* open_tournament_configuration()
    {
        auto* list = window.tournament_area()->operations(OperationList::tournament);
        const auto found = list->findItems(QStringLiteral("tournament"), Qt::MatchExactly);
        EXPECT_EQ(found.size(), 1);
        if (found.isEmpty())
            return nullptr;
        emit list->itemClicked(found.front());
        return window.findChild<TournamentConfigWindow*>(QStringLiteral("sc_tdetails"));
    }
};

TEST_F(OnlineWindowsTest, AnAccountOnTheLocalServiceBecomesDefaultAndRefreshes)
{
    QPointer<ControlPanel> panel = window.open_control_panel();
    ASSERT_TRUE(panel);
    auto* accounts = panel->accounts();

    accounts->button(QStringLiteral("toggle default"))->click();
    EXPECT_EQ(talk.last_message(), "select account");

    accounts->server_box()->setText(QString::fromStdString(service.server()));
    accounts->login_box()->setText(QStringLiteral("club7"));
    accounts->password_box()->setText(QStringLiteral("pw1"));
    accounts->button(QStringLiteral("add account"))->click();
    ASSERT_EQ(accounts->list()->count(), 1);
    EXPECT_EQ(accounts->list()->currentRow(), 0);

    accounts->login_box()->setText(QStringLiteral("club7"));
    accounts->button(QStringLiteral("add account"))->click();
    EXPECT_EQ(talk.last_message(), "already have a login=club7");
    EXPECT_EQ(accounts->list()->count(), 1);

    accounts->button(QStringLiteral("toggle default"))->click();
    EXPECT_TRUE(accounts->list()->item(0)->text().endsWith(QStringLiteral("default")));
    EXPECT_EQ(setting("app.custid"), "club7");
    EXPECT_EQ(setting("app.servlet"), service.server());

    accounts->button(QStringLiteral("refresh account data"))->click();
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_TRUE(accounts->details()->toPlainText().contains(QStringLiteral("max website storage: 1.00 MB")))
        << accounts->details()->toPlainText().toStdString();
    EXPECT_TRUE(
        accounts->details()->toPlainText().contains(QStringLiteral("website address: http://127.0.0.1:8021/club7/")));

    // Requests of the other tabs go out for the account of the accounts tab, as stored.
    accounts->password_box()->setText(QStringLiteral("changed"));
    panel->addresses()->button(QStringLiteral("get ip address presented to server"))->click();
    EXPECT_EQ(talk.last_message(), "must first save changes to server/login/password");
    accounts->password_box()->setText(QStringLiteral("pw1"));
    panel->addresses()->button(QStringLiteral("get ip address presented to server"))->click();
    EXPECT_EQ(talk.last_message(), "127.0.0.1");

    panel->feedback()->kinds()->setCurrentRow(2);
    EXPECT_TRUE(panel->feedback()->text()->toPlainText().startsWith(QStringLiteral("IF you find any bugs,")));
    panel->feedback()->send_button()->click();
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_NE(service.last_logged().find("feedback_type=bug&"), std::string::npos);

    // Options are written as they change.
    panel->options()->tick("app.screenscrape")->setChecked(true);
    EXPECT_EQ(session().settings().get_disk_var("app.screenscrape"), "1");
    panel->options()->on_file_save()->setCurrentIndex(2);
    EXPECT_EQ(session().settings().integer("on_file_save"), 2);
    auto* timeout = panel->options()->number("app.ftp_timeout");
    timeout->setText(QStringLiteral("4"));
    emit timeout->editingFinished();
    EXPECT_EQ(talk.last_message(), "value must be greater than 5 seconds");
    EXPECT_EQ(setting("app.ftp_timeout"), "30");

    panel->tabs()->setCurrentIndex(0);
    panel->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/control_panel_accounts.png"));
    panel->tabs()->setCurrentIndex(2);
    panel->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/control_panel_options.png"));
    panel->tabs()->setCurrentIndex(5);
    panel->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/control_panel_addresses.png"));
    panel->close();
}

TEST_F(OnlineWindowsTest, TournamentDetailsAreUploadedAndViewed)
{
    const auto idx = controlpanel_addaccount(session(), service.server(), "club7", "pw1").idx;
    ASSERT_TRUE(idx);
    toggle_default(session(), *idx);

    auto* list = window.tournament_area()->operations(OperationList::tournament);
    EXPECT_LT(list->row(list->findItems(QStringLiteral("tournament"), Qt::MatchExactly).value(0)),
        list->row(list->findItems(QStringLiteral("clear data"), Qt::MatchExactly).value(0)));

    QPointer<TournamentConfigWindow> config = open_tournament_configuration();
    ASSERT_TRUE(config);
    std::vector<std::string> opened;
    config->set_url_opener([&opened](const std::string& url) { opened.push_back(url); });

    config->name_box()->setText(QStringLiteral("spring open"));
    config->dates_box()->setText(QStringLiteral("1-2 may"));
    config->run_action(config->details_actions(), QStringLiteral("save locally"));
    EXPECT_EQ(session().settings().itname(), "spring open");
    config->run_action(config->details_actions(), QStringLiteral("upload"));
    EXPECT_EQ(talk.last_message(), "ok");

    auto* details = config->text_box(TournamentText::details);
    details->setPlainText(QStringLiteral("draws posted: friday\nthe club's courts"));
    config->run_action(config->text_actions(TournamentText::details), QStringLiteral("add name/dates"));
    EXPECT_TRUE(details->toPlainText().endsWith(QStringLiteral("tournament name: spring open\ndates: 1-2 may\n")));
    EXPECT_EQ(config->text_state(TournamentText::details)->text(), QStringLiteral("local"));
    config->run_action(config->text_actions(TournamentText::details), QStringLiteral("upload"));
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(config->text_state(TournamentText::details)->text(), QStringLiteral("online"));
    config->run_action(config->text_actions(TournamentText::details), QStringLiteral("save locally"));
    EXPECT_EQ(config->text_state(TournamentText::details)->text(), QStringLiteral("local"));
    config->run_action(config->text_actions(TournamentText::details), QStringLiteral("view"));
    ASSERT_EQ(opened.size(), 1u);
    const std::string page = test::fetch(wire_url(opened.front()));
    EXPECT_NE(
        page.find("draws posted: friday<br>the club's courts<br>tournament name: spring open<br>"), std::string::npos)
        << page;
    EXPECT_NE(page.find("<b>spring open</b><br>1-2 may"), std::string::npos);

    // A refused character is selected where it stands.
    auto* conditions = config->text_box(TournamentText::conditions);
    conditions->setPlainText(QStringLiteral("no #1 seeds"));
    config->run_action(config->text_actions(TournamentText::conditions), QStringLiteral("upload"));
    EXPECT_EQ(talk.last_message(), "illegal character");
    EXPECT_EQ(config->text_state(TournamentText::conditions)->text(), QStringLiteral("local"));
    EXPECT_EQ(conditions->textCursor().selectedText(), QStringLiteral("#"));
    config->run_action(config->text_actions(TournamentText::conditions), QStringLiteral("clean text"));
    EXPECT_EQ(conditions->toPlainText(), QStringLiteral("no 1 seeds"));

    config->limit_box(0)->setText(QStringLiteral("3"));
    config->limit_box(1)->clear();
    config->run_action(config->limit_actions(), QStringLiteral("upload"));
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_EQ(config->online_limit_box(0)->text(), QStringLiteral("3"));
    EXPECT_EQ(config->online_limit_box(1)->text(), QStringLiteral("0"));

    config->tabs()->setCurrentIndex(6);
    config->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/tournament_configuration_limits.png"));
    config->tabs()->setCurrentIndex(1);
    config->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/tournament_configuration.png"));
    config->tabs()->setCurrentIndex(0);
    config->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/tournament_configuration_details.png"));
    config->close();
}

} // namespace
} // namespace qv
