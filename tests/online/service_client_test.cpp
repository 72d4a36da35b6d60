#include "core/database.h"
#include "online/accounts.h"
#include "online/service_operations.h"
#include "online/tournament_details.h"
#include "online_fixture.h"
#include "plain_http_server.h"
#include "support/file_bytes.h"

namespace qv {
namespace {

using test::ServiceProcess;

class ServiceClientTest : public test::OnlineTest
{
protected:
    void SetUp() override
    {
        OnlineTest::SetUp();
        start_service();
        use_service_account();
    }

    // The keys every request of the first order carries, in order, around the given middle part.
    std::string order1(const std::string& idx, const std::string& after_idx = "", const std::string& before_os = "")
    {
        return "/qv?idx=" + idx + after_idx + "&driveserial=" + session.machine_id()
            + "&sequence=SEQ&custid=club7&password=pw1" + before_os + "&os=" + session.os_details() + "&app_id=1.0";
    }
    std::string order2(const std::string& idx, const std::string& before_os = "")
    {
        return "/qv?idx=" + idx + "&sequence=SEQ&driveserial=" + session.machine_id() + "&custid=club7&password=pw1"
            + before_os + "&os=" + session.os_details() + "&app_id=1.0";
    }
    std::size_t logged_count(const std::string& idx)
    {
        std::size_t n = 0;
        for (const auto& line : service->log_lines())
            n += line.rfind("/qv?idx=" + idx + "&", 0) == 0;
        return n;
    }
};

TEST_F(ServiceClientTest, EveryOperationRoundTripsWithTheKeysInTheirOrder)
{
    auto c = client();
    const auto working = session.dirs().working;

    ASSERT_TRUE(update_tournament(c, "spring open", "1-2 may", "eur"));
    EXPECT_EQ(logged_without_sequence(),
        order1("update_tournament") + "&tournament=spring open&dates=1-2 may&currencycode=eur");

    ASSERT_TRUE(update_text_field(c, "entryinstructions", "line 1<br>"));
    EXPECT_EQ(
        logged_without_sequence(), order1("update_text_field", "&field=entryinstructions") + "&cnt=1&data=line 1<br>");

    ASSERT_TRUE(setmaxevents(c, { "3", "2", "1", "1", "0" }));
    EXPECT_EQ(logged_without_sequence(), order1("setmaxevents", "", "&maxevents=3&scnti=2&dcnti=1&xcnti=1&xdcnti=0"));
    EXPECT_EQ(get_maxevents_config(c), "3^2^1^1^0^");
    EXPECT_EQ(logged_without_sequence(), order2("get_maxevents_config"));

    ASSERT_TRUE(ccto_dosend_update(c, "a@b.c", "1"));
    EXPECT_EQ(logged_without_sequence(),
        "/qv?idx=ccto_dosend_update&sequence=SEQ&driveserial=" + session.machine_id()
            + "&custid=club7&password=pw1&ccto=a@b.c&dosend=1&os=" + session.os_details() + "&app_id=1.0");
    EXPECT_EQ(ccto_dosend_get(c), "a@b.c^1");
    EXPECT_EQ(logged_without_sequence(), order2("ccto_dosend_get"));

    ASSERT_TRUE(uploadevents_append_execute_text(c, "1,men singles,m,p,10,singles,^2,mixed doubles,x,p,12,doubles,^"));
    EXPECT_EQ(logged_without_sequence(),
        order1("uploadevents_append_execute_text")
            + "&cnt=1&data=1,men singles,m,p,10,singles,^2,mixed doubles,x,p,12,doubles,^");
    EXPECT_EQ(uploadevents_parse_execute_text(c), "");
    EXPECT_EQ(logged_without_sequence(), order1("uploadevents_parse_execute_text"));

    ASSERT_TRUE(getrawevents(c, working / "raweventdata.txt"));
    EXPECT_EQ(logged_without_sequence(), order1("getrawevents"));
    EXPECT_EQ(
        test::read_bytes(working / "raweventdata.txt"), "73215qpx48102^no_error^1^men singles^^2^mixed doubles^^");

    ASSERT_TRUE(set_state(c, "openentries_withdrawals"));
    EXPECT_EQ(logged_without_sequence(), order1("set_state", "&tp=openentries_withdrawals"));
    EXPECT_EQ(getstateentrieswithdrawals(c), "open^open");
    EXPECT_EQ(logged_without_sequence(), order1("getstateentrieswithdrawals"));

    // A player enters through the public form, as a browser sends it.
    test::fetch(service->server()
        + "?idx=enter2_submit&custid=club7&fname=Ann&sname=Lee&email=ann%40x.org&password=p9&sex=f&e1=1");
    ASSERT_TRUE(getrawdata(c, working / "temp.txt"));
    EXPECT_EQ(logged_without_sequence(), order1("getrawdata"));
    const std::string qv5 = test::read_bytes(working / "temp.txt");
    EXPECT_EQ(qv5.rfind("73215qpx48102^no_error^spring open^%^\r\n1^men singles^m^p^10^singles^'^\r\n", 0), 0u) << qv5;
    EXPECT_NE(qv5.find("^est^1^Ann^Lee^ann@x.org^p9^^f^"), std::string::npos) << qv5;
    EXPECT_NE(qv5.find("\r\n1^1^^^^\\^\r\n"), std::string::npos) << qv5;

    EXPECT_EQ(withdraw_vb(c, 1, "Ann", "Lee", "ann@x.org"), "withdrawn");
    EXPECT_EQ(logged_without_sequence(),
        "/qv?idx=withdraw_vb&sequence=SEQ&driveserial=" + session.machine_id()
            + "&custid=club7&password=pw1&pid=1&pfname=Ann&psname=Lee&email=ann@x.org&os=" + session.os_details()
            + "&app_id=1.0");
    EXPECT_EQ(withdraw_vb(c, 1, "Ann", "Lee", "ann@x.org"), "entry not found");

    ASSERT_TRUE(clear_players_entries(c));
    EXPECT_EQ(logged_without_sequence(), order1("clear_players_entries"));
    ASSERT_TRUE(clear_events(c));
    EXPECT_EQ(logged_without_sequence(), order2("clear_events"));

    EXPECT_EQ(getftpstrings(c), std::nullopt);
    EXPECT_EQ(talk.last_message(), "server response: no ftp server configured");
    EXPECT_EQ(logged_without_sequence(), order1("getftpstrings"));
    vb_ftp_error(c, "ftp.example", "u1", 31);
    EXPECT_EQ(
        logged_without_sequence(), order1("vb_ftp_error", "", "&ftpserver=ftp.example&ftpusername=u1&timeout=31"));

    ASSERT_TRUE(update_account_email(c, "director@club.org"));
    EXPECT_EQ(logged_without_sequence(),
        "/qv?idx=update_account_email&driveserial=" + session.machine_id()
            + "&sequence=SEQ&custid=club7&password=pw1&accountemail=director@club.org&os=" + session.os_details()
            + "&app_id1.0");
    const auto account = vb_account_data_control_panel(c);
    ASSERT_TRUE(account);
    EXPECT_EQ(logged_without_sequence(), order1("vb_account_data_control_panel"));
    EXPECT_EQ(account->substr(account->size() - 19), "director@club.org\u00bf");

    EXPECT_EQ(getipaddress_private(c), "127.0.0.1");
    EXPECT_EQ(logged_without_sequence(), order1("getipaddress_private"));

    ASSERT_TRUE(user_feedback(c, "feature_request", "more colours"));
    EXPECT_EQ(logged_without_sequence(),
        "/qv?idx=user_feedback&feedback_type=feature_request&feedback_text=more colours"
        "&driveserial="
            + session.machine_id() + "&sequence=SEQ&custid=club7&password=pw1&os=" + session.os_details()
            + "&app_id=1.0");

    ASSERT_TRUE(changepassword(c, "pw2"));
    EXPECT_EQ(logged_without_sequence(), order1("changepassword", "", "&newpwd=pw2"));
    EXPECT_EQ(getstateentrieswithdrawals(c), std::nullopt);
    EXPECT_EQ(talk.last_message(), "server response: wrong password");
    EXPECT_EQ(talk.messages().size(), 2u);
}

TEST_F(ServiceClientTest, PublicPagesCarrySequenceAndCustidOnly)
{
    auto c = client();
    ASSERT_TRUE(update_text_field(c, "tdetails", "venue: park<br>draws posted: friday<br>"));
    for (const char* page : { "players", "entries", "enter1_enterpage", "withdraw1_login_page", "links", "get_tdetails",
             "get_entryinstructions", "get_paymentinstructions", "get_messagetoplayers", "get_conditions" }) {
        std::string opened;
        open_in_browser(session, public_page_url(c, page), [&opened](const std::string& url) { opened = url; });
        EXPECT_EQ(opened.rfind(service->server() + "?idx=" + page + "&sequence=", 0), 0u) << opened;
        const std::string html = test::fetch(wire_url(opened));
        EXPECT_NE(html.find("<html>"), std::string::npos) << page;
        EXPECT_EQ(logged_without_sequence(), std::string("/qv?idx=") + page + "&sequence=SEQ&custid=club7");
    }
    EXPECT_NE(test::fetch(wire_url(public_page_url(c, "get_tdetails"))).find("venue: park<br>draws posted: friday<br>"),
        std::string::npos);

    test::fetch(wire_url(event_entries_url(c, 4, false)));
    EXPECT_EQ(logged_without_sequence(), "/qv?idx=get_event_entries&sequence=SEQ&custid=club7&event=4");
    test::fetch(wire_url(event_entries_url(c, 4, true)));
    EXPECT_EQ(logged_without_sequence(),
        "/qv?idx=get_event_entries&sequence=SEQ&custid=club7&event=4&os=" + session.os_details() + "&app_id=1.0");
}

// With an FTP host configured the reply carries its five fields, each ended by "^".
TEST_F(ServiceClientTest, FtpStringsOfAConfiguredHost)
{
    service.reset();
    start_service({ "--ftp", "127.0.0.1:2121:u1:p1:http://127.0.0.1:8021/:1048576" });
    use_service_account();
    auto c = client();
    EXPECT_EQ(getftpstrings(c), "127.0.0.1:2121^u1^p1^http://127.0.0.1:8021/^1048576^");
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(ServiceClientTest, BlanksCaretsAndTheInvertedMarkReachTheServiceAsTyped)
{
    auto c = client();
    const std::string name = "Spring Open ^ 2007 \u00bf caf\u00e9 why?";
    ASSERT_TRUE(update_tournament(c, name, "1/2 may", "eur"));
    EXPECT_EQ(logged_without_sequence(),
        order1("update_tournament") + "&tournament=" + name + "&dates=1/2 may&currencycode=eur");
    const std::string page = test::fetch(wire_url(public_page_url(c, "get_tdetails")));
    EXPECT_NE(page.find(name), std::string::npos) << page;
}

TEST_F(ServiceClientTest, LongTextsGoInBatchesOf1500Characters)
{
    auto c = client();
    ASSERT_TRUE(update_text_field(c, "conditions", std::string(1500, 'a')));
    EXPECT_EQ(logged_count("update_text_field"), 1u);
    EXPECT_NE(service->last_logged().find("&cnt=1&data=a"), std::string::npos);

    // One sequence stands in every batch of one text.
    ASSERT_TRUE(update_text_field(c, "conditions", std::string(1500, 'b') + "\u00bf"));
    const auto lines = service->log_lines();
    ASSERT_EQ(logged_count("update_text_field"), 3u);
    EXPECT_NE(lines[lines.size() - 2].find("&cnt=1&data=b"), std::string::npos);
    EXPECT_EQ(lines.back().substr(lines.back().find("&cnt=")), "&cnt=2&data=\u00bf");
    const auto sequence = [](const std::string& line) { return line.substr(line.find("sequence="), 25); };
    EXPECT_EQ(sequence(lines.back()), sequence(lines[lines.size() - 2]));

    // An empty text sends nothing and is done.
    ASSERT_TRUE(update_text_field(c, "conditions", ""));
    EXPECT_EQ(logged_count("update_text_field"), 3u);
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(ServiceClientTest, ProgressShowsTheBytesAndIsClearedAfterwards)
{
    auto c = client();
    ASSERT_TRUE(getstateentrieswithdrawals(c));
    std::vector<std::string> labels;
    for (const auto& s : talk.said)
        if (s.kind == "progress")
            labels.push_back(s.text);
    ASSERT_GE(labels.size(), 2u);
    EXPECT_EQ(labels[labels.size() - 2], "36 bytes downloaded");
    EXPECT_EQ(labels.back(), "");
}

TEST_F(ServiceClientTest, SequencesEndInTheSessionsCounter)
{
    const std::string first = get_sequence(session);
    const std::string second = get_sequence(session);
    EXPECT_EQ(first.size(), 15u);
    EXPECT_EQ(first.back(), '1');
    EXPECT_EQ(second.substr(14), "2");
    EXPECT_NE(first, second);
}

TEST_F(ServiceClientTest, HavecustidpwdNamesTheFirstMissingValue)
{
    EXPECT_TRUE(havecustidpwd(session));
    set_default_account(" ", "club7", "pw1");
    EXPECT_FALSE(havecustidpwd(session));
    EXPECT_EQ(talk.last_message(), "no server set for current account");
    set_default_account("", "club7", "");
    EXPECT_FALSE(havecustidpwd(session));
    EXPECT_EQ(talk.last_message(), "no password set for current account");
    set_default_account("", "", "");
    EXPECT_FALSE(havecustidpwd(session));
    EXPECT_EQ(talk.last_message(), "no default account set,update in control panel");
}

TEST_F(ServiceClientTest, EachFailureGivesItsMessageAndChangesNoLocalTable)
{
    test::PlainHttpServer other(test::PlainHttpServer::html_page());
    const std::string closed = "http://127.0.0.1:" + std::to_string(test::closed_port()) + "/qv";
    struct Case
    {
        std::string server, password, message;
    };
    const Case cases[] = {
        { closed, "pw1", "webserver@ " + closed + " not responding" },
        { other.server(), "pw1", "servlet@ " + other.server() + " not responding" },
        { service->server(), "wrong", "server response: wrong password" },
    };
    auto& init = session.init_db();
    init.run("insert into acct_online_tournament (custid, entries_withdrawals, maxevents) values ('club7', "
             "'open^closed', 4)");
    const auto account = controlpanel_addaccount(session, service->server(), "club7", "pw1").idx;
    ASSERT_TRUE(account);
    for (const auto& c : cases) {
        set_default_account(c.server, "club7", c.password);
        init.run("update acct_accountdata set servlet=?, password=?", c.server, c.password);
        std::optional<FieldRefusal> refused;
        EXPECT_FALSE(save_max_events_online(session, { "9", "1", "1", "1" }, refused));
        EXPECT_EQ(talk.last_message(), c.message);
        EXPECT_FALSE(get_online_maxevents_stuff(session));
        EXPECT_EQ(talk.last_message(), c.message);
        EXPECT_FALSE(refresh_account_data(session, *account));
        EXPECT_EQ(talk.last_message(), c.message);
        EXPECT_EQ(
            init.scalar_text("select maxevents || entries_withdrawals from acct_online_tournament"), "4open^closed");
        EXPECT_EQ(find_account(init, *account)->last_refresh, "");
    }
}

TEST_F(ServiceClientTest, AReplyThatBreaksOffLeavesNoFile)
{
    test::PlainHttpServer broken(test::PlainHttpServer::broken_off());
    set_default_account(broken.server(), "club7", "pw1");
    auto c = client();
    const auto file = session.dirs().working / "temp.txt";
    EXPECT_FALSE(getrawdata(c, file));
    EXPECT_EQ(talk.last_message(), "an error occurred");
    EXPECT_FALSE(std::filesystem::exists(file));

    EXPECT_FALSE(c.call_url_get_ret(c.url("getrawdata", KeyOrder::order1), session.dirs().app / "none" / "x.txt"));
}

TEST_F(ServiceClientTest, AFailingBatchStopsTheRestAndTheEarlierOnesStay)
{
    service.reset();
    start_service({ "--max-text", "2000" });
    use_service_account();
    auto c = client();
    const std::string text = std::string(1500, 'a') + std::string(1500, 'b') + std::string(1500, 'c');
    EXPECT_FALSE(update_text_field(c, "messagetoplayers", text));
    EXPECT_EQ(talk.last_message(), "server response: text too long");
    EXPECT_EQ(logged_count("update_text_field"), 2u);
    const std::string page = test::fetch(wire_url(public_page_url(c, "get_messagetoplayers")));
    EXPECT_NE(page.find(std::string(1500, 'a') + "\r\n</font>"), std::string::npos);
    EXPECT_EQ(page.find("bbb"), std::string::npos);
}

} // namespace
} // namespace qv
