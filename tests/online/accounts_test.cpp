#include "core/database.h"
#include "online/accounts.h"
#include "online_fixture.h"

namespace qv {
namespace {

using test::ServiceProcess;

class AccountsTest : public test::OnlineTest
{
protected:
    Database& init() { return session.init_db(); }
    std::int64_t add(const std::string& server, const std::string& login = "club7", const std::string& password = "pw1")
    {
        const auto result = controlpanel_addaccount(session, server, login, password);
        EXPECT_TRUE(result.idx) << talk.last_message();
        return result.idx.value_or(0);
    }
    std::string setting(const char* key) { return session.settings().text(key); }
};

TEST_F(AccountsTest, AddingRefusesEachBadFieldInItsTurn)
{
    struct Case
    {
        std::string server, login, password, message;
        AccountField field;
    };
    const Case cases[] = {
        { " ", "club7", "pw1", "need server", AccountField::server },
        { "http://s/qv", "", "pw1", "need login", AccountField::login },
        { "http://s/qv", "default", "pw1", "cannot have login named 'default'", AccountField::login },
        { "http://s/qv", "club7", " ", "need password", AccountField::password },
        { "http://s/qv?a&b", "club7", "pw1", "invalid server url", AccountField::server },
        { "http://s/qv", "club_7", "pw1", "invalid login, alphanumeric only\": Exit Sub", AccountField::login },
        { "http://s/qv", "club7", "pw-1", "invalid password, alphanumeric only", AccountField::password },
    };
    for (const auto& c : cases) {
        const auto result = controlpanel_addaccount(session, c.server, c.login, c.password);
        EXPECT_FALSE(result.idx) << c.message;
        EXPECT_EQ(result.field, c.field) << c.message;
        EXPECT_EQ(talk.last_message(), c.message);
    }
    EXPECT_EQ(init().row_count("acct_accountdata"), 0);

    EXPECT_EQ(add(" http://s/qv ", " club7 "), 1);
    const auto row = find_account(init(), 1);
    EXPECT_EQ(row->servlet, "http://s/qv");
    EXPECT_EQ(row->custid, "club7");
    EXPECT_FALSE(row->is_default);
    EXPECT_EQ(init().scalar_text("select entries_withdrawals from acct_online_tournament where custid='club7'"),
        "closed^closed");

    const auto again = controlpanel_addaccount(session, "http://other/qv", "CLUB7", "pw2");
    EXPECT_FALSE(again.idx);
    EXPECT_EQ(talk.last_message(), "already have a login=CLUB7");
    EXPECT_EQ(add("http://s/qv", "club8"), 2);
}

TEST_F(AccountsTest, ToggleDefaultFillsOrEmptiesTheSettingsAndDeleteLeavesThem)
{
    const auto first = add("http://s/qv", "club7", "pw1");
    const auto second = add("http://t/qv", "club8", "pw2");
    init().run("update acct_accountdata set ftpurl='http://w/club8/' where idx=?", second);

    toggle_default(session, first);
    EXPECT_EQ(setting("app.custid"), "club7");
    toggle_default(session, second);
    EXPECT_FALSE(find_account(init(), first)->is_default);
    EXPECT_TRUE(find_account(init(), second)->is_default);
    EXPECT_EQ(setting("app.servlet"), "http://t/qv");
    EXPECT_EQ(setting("app.custid"), "club8");
    EXPECT_EQ(setting("app.password"), "pw2");
    EXPECT_EQ(setting("app.ftp_website_url"), "http://w/club8/");
    EXPECT_EQ(init().scalar_text("select value from disk_vars where nm='app.custid'"), "club8");

    toggle_default(session, second);
    EXPECT_FALSE(find_account(init(), second)->is_default);
    for (const char* key : { "app.servlet", "app.custid", "app.password", "app.ftp_website_url" })
        EXPECT_EQ(setting(key), "") << key;

    toggle_default(session, second);
    init().run("insert into acct_onlineevents (custid, eid, eventname) values ('club8', 1, 'ms')");
    talk.answers.push_back(Answer::No);
    EXPECT_FALSE(delete_account(session, second));
    talk.answers.push_back(Answer::Yes);
    EXPECT_TRUE(delete_account(session, second));
    EXPECT_EQ(talk.said.back().text, "delete account club8?");
    EXPECT_EQ(talk.said.back().title, "Control panel");
    EXPECT_FALSE(find_account(init(), second));
    EXPECT_EQ(init().row_count("acct_onlineevents"), 0);
    EXPECT_EQ(init().scalar_integer("select count(*) from acct_online_tournament where custid='club8'"), 0);
    EXPECT_EQ(setting("app.custid"), "club8");
}

TEST_F(AccountsTest, RefreshAccountDataFillsTheRowFromTheService)
{
    start_service({ "--ftp", "127.0.0.1:2121:u1:p1:http://127.0.0.1:8021/:5242880" });
    const auto idx = add(service->server());
    init().run("update acct_accountdata set signupemail='kept@club.org' where idx=?", idx);
    ASSERT_TRUE(refresh_account_data(session, idx));
    EXPECT_EQ(talk.last_message(), "ok");
    const auto row = find_account(init(), idx);
    EXPECT_EQ(row->ftpurl, "http://127.0.0.1:8021/club7/");
    EXPECT_EQ(row->maxbytes, 5242880);
    EXPECT_EQ(row->maxentries, "1000");
    EXPECT_EQ(row->maxevents, "50");
    EXPECT_EQ(row->numentries, "0");
    EXPECT_EQ(row->signupdate.size(), 11u);
    EXPECT_EQ(row->signupemail, "kept@club.org") << "an empty field leaves its column";
    EXPECT_EQ(row->last_refresh.size(), 20u);

    const auto lines = account_lines(load_accounts(init()));
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[0], "account name: club7");
    EXPECT_EQ(lines[2], "max website storage: 5.00 MB");
    EXPECT_EQ(lines[4], "maximum number events that can be uploaded: 50");
    EXPECT_EQ(lines[8], "send confirmation emails to: kept@club.org");
}

TEST_F(AccountsTest, AFailedRefreshChangesNothing)
{
    const auto idx = add("http://127.0.0.1:" + std::to_string(test::closed_port()) + "/qv");
    const auto before = find_account(init(), idx);
    EXPECT_FALSE(refresh_account_data(session, idx));
    EXPECT_EQ(talk.last_message(), "webserver@ " + before->servlet + " not responding");
    EXPECT_EQ(find_account(init(), idx)->last_refresh, "");
}

TEST_F(AccountsTest, PasswordEmailAddressAndFeedback)
{
    start_service();
    const auto idx = add(service->server());
    toggle_default(session, idx);

    EXPECT_FALSE(change_password(session, idx, "", "pw2"));
    EXPECT_EQ(talk.last_message(), "Enter old password");
    EXPECT_FALSE(change_password(session, idx, "pw1", ""));
    EXPECT_EQ(talk.last_message(), "Enter new password");
    EXPECT_FALSE(change_password(session, idx, "nope", "pw2"));
    EXPECT_EQ(talk.last_message(), "old password is incorrect");
    EXPECT_FALSE(change_password(session, idx, "pw1", "pw_2"));
    EXPECT_EQ(talk.last_message(), "invalid password, alphanumeric only");
    EXPECT_FALSE(change_password(session, idx, "pw1", "pw'2"));
    EXPECT_EQ(talk.last_message(), "illegal character");
    ASSERT_TRUE(change_password(session, idx, "pw1", "pw2"));
    EXPECT_EQ(find_account(init(), idx)->password, "pw2");
    EXPECT_EQ(setting("app.password"), "pw2");

    ASSERT_TRUE(update_account_email(session, idx, "director@club.org"));
    EXPECT_EQ(find_account(init(), idx)->signupemail, "director@club.org");
    EXPECT_FALSE(update_account_email(session, idx, "a/b@club.org"));
    EXPECT_EQ(talk.last_message(), "illegal character");

    ASSERT_TRUE(show_ip_address(session, idx));
    EXPECT_EQ(talk.last_message(), "127.0.0.1");

    EXPECT_FALSE(send_feedback(session, idx, "bug", "  "));
    EXPECT_EQ(talk.last_message(), "no text?");
    EXPECT_FALSE(send_feedback(session, idx, "bug", std::string(1001, 'x')));
    EXPECT_EQ(talk.last_message(), "max 1000 characters");
    ASSERT_TRUE(send_feedback(session, idx, "bug", "it's 100% broken & #2"));
    EXPECT_NE(service->last_logged().find("feedback_type=bug&feedback_text=its 100 broken  2&"), std::string::npos);
    EXPECT_EQ(feedback_kinds()[1].type, "feature_request");

    // The service no longer knows the old password: nothing changes here.
    init().run("update acct_accountdata set password='pw1' where idx=?", idx);
    EXPECT_FALSE(change_password(session, idx, "pw1", "pw3"));
    EXPECT_EQ(talk.last_message(), "server response: wrong password");
    EXPECT_EQ(find_account(init(), idx)->password, "pw1");
    EXPECT_FALSE(update_account_email(session, idx, "other@club.org"));
    EXPECT_EQ(find_account(init(), idx)->signupemail, "director@club.org");
}

TEST_F(AccountsTest, LocalGuardWantsTheStoredFieldsAndNoneEmpty)
{
    AccountRow row;
    row.idx = 1;
    row.servlet = "http://s/qv";
    row.custid = "club7";
    row.password = "pw1";
    EXPECT_TRUE(local_havecustidpwd(session, row, "http://s/qv", " club7", "pw1"));
    EXPECT_FALSE(local_havecustidpwd(session, row, "http://s/qv", "club8", "pw1"));
    EXPECT_EQ(talk.last_message(), "must first save changes to server/login/password");
    row.password.clear();
    EXPECT_FALSE(local_havecustidpwd(session, row, "http://s/qv", "club7", ""));
    EXPECT_EQ(talk.last_message(), "no password set");
    EXPECT_EQ(remove_chars("a&b%c#d'e", "&%#'"), "abcde");
}

} // namespace
} // namespace qv
