#include "core/database.h"
#include "online/tournament_details.h"
#include "online_fixture.h"

namespace qv {
namespace {

class TournamentDetailsTest : public test::OnlineTest
{
protected:
    void SetUp() override
    {
        OnlineTest::SetUp();
        start_service();
        use_service_account();
    }
    std::string column(const char* name)
    {
        return session.tournament().scalar_text(std::string("select ") + name + " from tournament where idx=1");
    }
    std::string page(TournamentText which)
    {
        std::string url = text_view_url(session, which).value_or("");
        return test::fetch(wire_url(url));
    }
};

TEST_F(TournamentDetailsTest, DetailsAreSavedLocallyUploadedAndViewed)
{
    EXPECT_TRUE(save_tournament(session, "spring's open", "1-2 may", "eur"));
    EXPECT_EQ(talk.last_message(), "illegal character");
    EXPECT_EQ(column("tournament"), "");

    EXPECT_FALSE(save_tournament(session, "spring open", "1-2 may", "eur"));
    EXPECT_EQ(column("tournament"), "spring open");
    EXPECT_EQ(column("currencycode"), "eur");
    EXPECT_EQ(session.settings().itname(), "spring open");
    EXPECT_EQ(session.settings().itdates(), "1-2 may");
    const auto refused = save_venue(session, "park", "1 high st", "france", "clay/hard");
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->field, 3);
    EXPECT_FALSE(save_venue(session, "park", "1 high st", "france", "clay"));
    EXPECT_EQ(load_tournament(session.tournament()).surface, "clay");

    ASSERT_TRUE(save_tournament_online(session, "spring & open #1", "1-2 may", "eur%"));
    EXPECT_NE(
        logged_without_sequence().find("&tournament=spring  open 1&dates=1-2 may&currencycode=eur"), std::string::npos);
    EXPECT_NE(page(TournamentText::details).find("<b>spring  open 1</b><br>1-2 may"), std::string::npos);

    std::optional<FieldRefusal> text_refused;
    ASSERT_TRUE(upload_text(session, TournamentText::details, "it's \"ours\"\nc:\\draws\n", "page two", text_refused));
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_NE(logged_without_sequence().find("&field=tdetails&driveserial=" + session.machine_id()), std::string::npos);
    EXPECT_NE(service->last_logged().find("&cnt=1&data=it\\'s \\\"ours\\\"<br>c:\\\\draws<br>page two<br>"),
        std::string::npos)
        << service->last_logged();
    EXPECT_NE(page(TournamentText::details).find("it's \"ours\"<br>c:\\draws<br>page two<br>"), std::string::npos);

    EXPECT_FALSE(upload_text(session, TournamentText::conditions, "a", "b & c", text_refused));
    ASSERT_TRUE(text_refused);
    EXPECT_EQ(text_refused->field, 1);
    EXPECT_EQ(text_refused->refusal.position, 2);
    EXPECT_EQ(talk.last_message(), "illegal character");

    const auto lines_sent = service->log_lines().size();
    ASSERT_TRUE(upload_text(session, TournamentText::payment_instructions, "", "", text_refused));
    EXPECT_EQ(service->log_lines().size(), lines_sent);
    EXPECT_EQ(talk.last_message(), "ok");
}

TEST_F(TournamentDetailsTest, EachTextHasItsColumnAndPage)
{
    for (auto which : tournament_texts()) {
        const std::string caption(text_info(which).caption);
        save_text_locally(session, which, caption + " here", "second page");
        EXPECT_EQ(column(std::string(text_info(which).column).c_str()), caption + " here");
        std::optional<FieldRefusal> refused;
        ASSERT_TRUE(upload_text(session, which, caption + " online", "", refused));
        const std::string html = page(which);
        EXPECT_NE(html.find("<title>" + caption + "</title>"), std::string::npos) << html;
        EXPECT_NE(html.find(caption + " online<br>"), std::string::npos) << html;
    }
    EXPECT_EQ(column("tdetails2"), "second page");

    set_default_account(service->server(), "", "pw1");
    EXPECT_FALSE(text_view_url(session, TournamentText::conditions));
    EXPECT_EQ(talk.last_message(), "no default account set,update in control panel");
    set_default_account("", "club7", "");
    EXPECT_FALSE(text_view_url(session, TournamentText::conditions));
    EXPECT_EQ(talk.last_message(), "no server set for current account");
}

TEST_F(TournamentDetailsTest, LimitsUploadBlanksAsZeroAndRefreshIntoTheAccountsRecord)
{
    std::optional<FieldRefusal> refused;
    EXPECT_FALSE(save_max_events_online(session, { "3", "x", "", "" }, refused));
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->field, 1);
    EXPECT_EQ(talk.last_message(), "invalid character for integer");

    ASSERT_TRUE(save_max_events_online(session, { "3", " ", "", "1", true }, refused));
    EXPECT_NE(logged_without_sequence().find("&maxevents=3&scnti=0&dcnti=0&xcnti=1&xdcnti=1&os="), std::string::npos);
    const auto stored = stored_online_limits(session.init_db(), "club7");
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->maxevents, "3");
    EXPECT_EQ(stored->xdcnti, "1");

    session.init_db().run("update acct_online_tournament set maxevents=9");
    const auto online = get_online_maxevents_stuff(session);
    ASSERT_TRUE(online);
    EXPECT_EQ(online->maxevents, "3");
    EXPECT_EQ(online->xcnti, "1");
    EXPECT_EQ(stored_online_limits(session.init_db(), "club7")->maxevents, "3");

    EXPECT_FALSE(save_max_events(session, { "", "2", "", "", false }));
    EXPECT_EQ(column("maxevents"), "0");
    EXPECT_EQ(column("scnti"), "2");
    EXPECT_EQ(column("xdcnti"), "0");

    // A refusal of the service changes no local record.
    set_default_account(service->server(), "club7", "wrong");
    EXPECT_FALSE(save_max_events_online(session, { "7", "", "", "" }, refused));
    EXPECT_EQ(talk.last_message(), "server response: wrong password");
    EXPECT_EQ(stored_online_limits(session.init_db(), "club7")->maxevents, "3");
    EXPECT_FALSE(get_online_maxevents_stuff(session));
}

TEST_F(TournamentDetailsTest, RecoveryEmails)
{
    EXPECT_FALSE(upload_recovery_emails(session, "a%b@c.org", true));
    EXPECT_EQ(talk.last_message(), "% Invalid character for email");
    EXPECT_FALSE(upload_recovery_emails(session, "a&b@c.org", true));
    EXPECT_EQ(talk.last_message(), "& Invalid character for email");
    EXPECT_FALSE(upload_recovery_emails(session, "a/b@c.org", true));
    EXPECT_EQ(talk.last_message(), "illegal character");

    ASSERT_TRUE(upload_recovery_emails(session, "a@c.org,b@c.org", true));
    const auto remote = refesh_remote_state(session);
    ASSERT_TRUE(remote);
    EXPECT_EQ(remote->ccemails, "a@c.org,b@c.org");
    EXPECT_TRUE(remote->dosend);

    save_recovery_emails(session, "x@c.org", true);
    EXPECT_EQ(load_tournament(session.tournament()).ccemails, "x@c.org");
    EXPECT_TRUE(load_tournament(session.tournament()).dosend);
}

TEST(TournamentTexts, TemplateAndNameLines)
{
    TournamentDetails details;
    details.venue = "park";
    details.surface = "clay";
    const std::string text = data_template(details, false);
    EXPECT_EQ(text.substr(0, 40), "official website url:\nvenue: park\nvenue ");
    EXPECT_NE(text.find("\nsurface: clay\n"), std::string::npos);
    EXPECT_NE(data_template(details, true).find("\nMOBILE/CELLPHONE:\n"), std::string::npos);
    EXPECT_EQ(name_dates_lines("open", "1 may"), "tournament name: open\ndates: 1 may\n");
    EXPECT_EQ(prepare_text_upload("a\r\n\r\nb\n"), "a<br><br>b<br>");
    EXPECT_EQ(escape_characters("'\\\""), "\\'\\\\\\\"");
    EXPECT_EQ(process_maxevents("1^2^3^4^0^").dcnti, "3");
}

} // namespace
} // namespace qv
