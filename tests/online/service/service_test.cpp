#include "command_line.h"
#include "query.h"
#include "qv5_text.h"
#include "service_fixture.h"

namespace qv::service {
namespace {

using test::ServiceTest;
using test::WireClient;

TEST(Query, DecodesOnlyPercentEscapesAndTheCodePage)
{
    const Query query = parse_target("/qv?idx=a&data=x%20y+z^%BF%zz%&app_id1.0&&k=");
    EXPECT_EQ(query.path, "/qv");
    ASSERT_EQ(query.params.size(), 4u);
    EXPECT_EQ(query.value("data"), "x y+z^\u00bf%zz%");
    EXPECT_FALSE(query.params[2].has_equals);
    EXPECT_EQ(query.params[2].key, "app_id1.0");
    EXPECT_EQ(query.value("k"), "");
    EXPECT_EQ(query.value("app_id"), std::nullopt);
    EXPECT_EQ(query.text(), "/qv?idx=a&data=x y+z^\u00bf%zz%&app_id1.0&k=");
    EXPECT_EQ(parse_target("/qv?fname=Ann+Marie", PlusMeans::blank).value("fname"), "Ann Marie");
}

TEST_F(ServiceTest, BadQueriesGetTheErrorReplyNeverACrash)
{
    struct Case
    {
        std::string target;
        std::string reply;
    };
    const std::string auth = "&custid=club7&password=pw1";
    const Case cases[] = {
        { "/qv", "73215qpx48102^missing key idx^" },
        { "/qv?custid=club7", "73215qpx48102^missing key idx^" },
        { "/qv?idx=", "73215qpx48102^unknown idx^" },
        { "/qv?idx=drop_everything" + auth, "73215qpx48102^unknown idx^" },
        { "/qv?idx=getrawevents", "73215qpx48102^missing key custid^" },
        { "/qv?idx=getrawevents&custid=nobody&password=pw1", "73215qpx48102^unknown account^" },
        { "/qv?idx=getrawevents&custid=club7", "73215qpx48102^missing key password^" },
        { "/qv?idx=getrawevents&custid=club7&password=PW1", "73215qpx48102^wrong password^" },
        { "/qv?idx=getrawevents&custid=club7&password", "73215qpx48102^missing key password^" },
        { "/qv?idx=setmaxevents" + auth + "&maxevents=1", "73215qpx48102^missing key scnti^" },
        { "/qv?idx=setmaxevents" + auth + "&maxevents=1&scnti=-1&dcnti=0&xcnti=0&xdcnti=0",
            "73215qpx48102^invalid number for scnti^" },
        { "/qv?idx=update_text_field&field=passwords" + auth + "&cnt=1&data=x", "73215qpx48102^unknown field^" },
        { "/qv?idx=update_text_field&field=tdetails" + auth + "&cnt=0&data=x", "73215qpx48102^invalid cnt^" },
        { "/qv?idx=update_text_field&field=tdetails" + auth + "&cnt=99999999999&data=x", "73215qpx48102^invalid cnt^" },
        { "/qv?idx=update_text_field" + auth + "&cnt=1&data=x", "73215qpx48102^missing key field^" },
        { "/qv?idx=set_state&tp=open_everything" + auth, "73215qpx48102^unknown state word^" },
        { "/qv?idx=uploadevents_append_execute_text" + auth + "&cnt=1&data=x,y^", "73215qpx48102^no_error^" },
        { "/qv?idx=uploadevents_parse_execute_text" + auth, "73215qpx48102^invalid events text^" },
        { "/qv?idx=withdraw_vb" + auth + "&pid=1'or'1", "73215qpx48102^invalid pid^" },
        { "/qv?idx=changepassword" + auth + "&newpwd=a b", "73215qpx48102^invalid password, alphanumeric only^" },
        { "/qv?idx=user_feedback&feedback_type=rant&feedback_text=x" + auth, "73215qpx48102^unknown feedback type^" },
        { "/qv?idx=get_event_entries&custid=club7&event=x", "" },
        { "/qv?idx=get_tdetails&custid=nobody", "<html><body>unknown account</body></html>" },
    };
    for (const auto& c : cases) {
        const std::string reply = ask(c.target);
        if (c.reply.empty())
            EXPECT_NE(reply.find("no such event"), std::string::npos) << c.target;
        else
            EXPECT_EQ(reply, c.reply) << c.target;
    }
    // Nothing of the refused requests stuck.
    EXPECT_EQ(ask_account("get_maxevents_config"), "73215qpx48102^no_error^0^0^0^0^0^");
    EXPECT_EQ(ask_account("getrawevents"), "73215qpx48102^no_error^");
    EXPECT_EQ(store.account("club7")->password, "pw1");
}

TEST_F(ServiceTest, AThousandRequestsOnLoopbackHold)
{
    serve();
    WireClient client;
    const std::string base = "http://127.0.0.1:" + std::to_string(port) + "/qv?idx=";
    int good = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::string reply = i % 2 == 0
            ? client.get(base + "get_maxevents_config&sequence=" + std::to_string(i) + "&custid=club7&password=pw1")
            : client.get(base + "update_text_field&field=conditions&custid=club7&password=pw1&cnt=1&data=n%20"
                + std::to_string(i) + "^\xBF");
        good += reply.rfind("73215qpx48102^no_error^", 0) == 0;
    }
    EXPECT_EQ(good, 1000);
    EXPECT_EQ(store.db().scalar_text("select conditions from tournaments where custid='club7'"), "n 999^\u00bf");

    long status = 0;
    EXPECT_EQ(client.get("http://127.0.0.1:" + std::to_string(port) + "/other?idx=links", &status), "not found");
    EXPECT_EQ(status, 404);
}

TEST_F(ServiceTest, UploadedEventsReplaceTheOldOnesUpToTheAccountsLimit)
{
    ask_account("uploadevents_append_execute_text", "&cnt=1&data=1,open, mens,m,p,10,singles,^2,ladies,f,p,");
    ask_account("uploadevents_append_execute_text", "&cnt=2&data=,doubles,^3,juniors,n,e,5,singles,^");
    ask_account("set_state", "&tp=openentries_withdrawals");
    ask_account("setmaxevents", "&maxevents=2&scnti=1&dcnti=1&xcnti=0&xdcnti=0");
    EXPECT_EQ(ask_account("uploadevents_parse_execute_text"),
        "73215qpx48102^no_error^event limit of 2 reached, only the first 2 events were uploaded");
    EXPECT_EQ(ask_account("getrawevents"), "73215qpx48102^no_error^1^open, mens^^2^ladies^^");
    EXPECT_EQ(ask_account("getstateentrieswithdrawals"), "73215qpx48102^no_error^closed^closed");
    EXPECT_EQ(ask_account("get_maxevents_config"), "73215qpx48102^no_error^0^0^0^0^0^");
    const auto events = parse_events_text("7,a,b,c,m,p,,doubles,^");
    ASSERT_TRUE(events);
    EXPECT_EQ(events->front().eventname, "a,b,c");
    EXPECT_EQ(events->front().fee, "");
}

TEST_F(ServiceTest, PlayersEnterAndWithdrawThroughThePublicForms)
{
    store.add_account({ "club7", "pw1", 3, 3 });
    ask_account("uploadevents_append_execute_text",
        "&cnt=1&data=1,ms,m,p,10,singles,^2,md,m,p,12,doubles,^3,xd,x,p,9,doubles,^");
    ask_account("uploadevents_parse_execute_text");
    const std::string enter
        = "/qv?idx=enter2_submit&custid=club7&fname=Ann+Marie&sname=Lee&email=a%40b.org&password=x1";
    EXPECT_NE(ask(enter + "&e1=1").find("entries are closed"), std::string::npos);
    EXPECT_NE(ask("/qv?idx=enter1_enterpage&custid=club7").find("entries are closed"), std::string::npos);

    ask_account("set_state", "&tp=openentries");
    EXPECT_NE(ask("/qv?idx=enter1_enterpage&custid=club7").find("name=\"pf2\""), std::string::npos);
    EXPECT_NE(ask(enter).find("choose at least one event"), std::string::npos);
    EXPECT_NE(ask(enter + "&e1=1&club=a%2Fb").find("illegal character in club"), std::string::npos);
    EXPECT_NE(ask("/qv?idx=enter2_submit&custid=club7&fname=Ann&e1=1").find("are required"), std::string::npos);
    ask_account("setmaxevents", "&maxevents=0&scnti=0&dcnti=1&xcnti=0&xdcnti=1");
    EXPECT_NE(ask(enter + "&e2=1&e3=1").find("at most 1 doubles events may be entered"), std::string::npos);
    EXPECT_NE(
        ask(enter + "&e1=1&e2=1&pf2=Bob&ps2=Ray&px2=m").find("entry received for Ann Marie Lee"), std::string::npos);
    const std::string qv5 = ask_account("getrawdata");
    EXPECT_NE(qv5.find("^est^1^Ann Marie^Lee^a@b.org^x1^"), std::string::npos) << qv5;
    EXPECT_NE(qv5.find("1^2^Bob^Ray^male^\\^"), std::string::npos) << qv5;
    EXPECT_NE(ask("/qv?idx=entries&custid=club7").find("Ann Marie Lee / Bob Ray"), std::string::npos);
    EXPECT_NE(ask("/qv?idx=get_event_entries&custid=club7&event=1").find("Ann Marie Lee<br>"), std::string::npos);

    // The account allows three players.
    for (const char* name : { "b", "c" })
        ask("/qv?idx=enter2_submit&custid=club7&fname=" + std::string(name) + "&sname=x&email=e&e1=1");
    EXPECT_NE(
        ask("/qv?idx=enter2_submit&custid=club7&fname=d&sname=x&email=e&e1=1").find("entry limit"), std::string::npos);

    const std::string withdraw = "/qv?idx=withdraw2_submit&custid=club7&email=A%40B.org&password=x1";
    EXPECT_NE(ask(withdraw).find("withdrawals are closed"), std::string::npos);
    ask_account("set_state", "&tp=openwithdrawals");
    EXPECT_NE(ask("/qv?idx=withdraw2_submit&custid=club7&email=a%40b.org&password=no").find("no entry found"),
        std::string::npos);
    EXPECT_NE(ask(withdraw).find("your entries are withdrawn"), std::string::npos);
    EXPECT_EQ(ask_account("getrawdata").find("Ann Marie"), std::string::npos);
}

// A doubles entry names its partner, or ticks that it needs one; the entries file then has no partner.
TEST_F(ServiceTest, ADoublesEntryHasAPartnerOrNeedsOne)
{
    ask_account("uploadevents_append_execute_text", "&cnt=1&data=1,md,m,p,12,doubles,^");
    ask_account("uploadevents_parse_execute_text");
    ask_account("set_state", "&tp=openentries");
    EXPECT_NE(ask("/qv?idx=enter1_enterpage&custid=club7").find("name=\"pr1\" value=\"1\"> partner required"),
        std::string::npos);
    const std::string enter = "/qv?idx=enter2_submit&custid=club7&fname=Al&sname=West&email=e&e1=1";
    for (const char* partner : { "", "&pf1=Bo", "&ps1=Ray" })
        EXPECT_NE(ask(enter + partner).find("give the partner's first and second name for md or tick partner "
                                            "required"),
            std::string::npos)
            << partner;
    EXPECT_NE(ask(enter + "&pf1=Bo&px1=f&pr1=1").find("entry received"), std::string::npos);
    EXPECT_NE(ask_account("getrawdata").find("\r\n1^1^^^^\\^"), std::string::npos) << "the tick wins";
    EXPECT_NE(ask("/qv?idx=entries&custid=club7").find("Al West / partner required"), std::string::npos);
}

TEST(CommandLine, OptionsAndTheirRefusals)
{
    const char* argv[] = { "quorvelin-service", "--port", "0", "--data", "x.db", "--add-account", "club7:pw1:5:20",
        "--ftp", "127.0.0.1:2121:u1:p1:http://127.0.0.1:8021/sites/:1048576", "--max-text", "100" };
    const auto line = parse_command_line(11, argv);
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.port, 0);
    EXPECT_EQ(line.data, "x.db");
    ASSERT_EQ(line.accounts.size(), 1u);
    EXPECT_EQ(line.accounts[0].maxevents, 5);
    EXPECT_EQ(line.accounts[0].maxentries, 20);
    ASSERT_TRUE(line.ftp);
    EXPECT_EQ(line.ftp->url, "http://127.0.0.1:8021/sites/");
    EXPECT_EQ(line.ftp->allocation, 1048576);
    EXPECT_EQ(line.options.max_text, 100u);

    const std::vector<std::vector<const char*>> bad { { "s", "--port" }, { "s", "--port", "99999" },
        { "s", "--add-account", "club_7:pw" }, { "s", "--add-account", "club7" }, { "s", "--ftp", "h:21:u:p:1x" },
        { "s", "--frobnicate", "1" } };
    for (const auto& args : bad)
        EXPECT_NE(parse_command_line(static_cast<int>(args.size()), args.data()).error, "") << args[1];
    const char* help[] = { "s", "--help" };
    EXPECT_TRUE(parse_command_line(2, help).help);
    EXPECT_NE(usage().find("--add-account"), std::string::npos);
}

} // namespace
} // namespace qv::service
