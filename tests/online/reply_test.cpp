#include "online/reply.h"
#include "online/request_url.h"
#include "support/temp_app_dir.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(Reply, JudgesEveryKindOfReply)
{
    struct Case
    {
        std::string reply;
        bool bad;
        std::string message_or_data;
    };
    const std::string server = "http://srv/qv";
    const Case cases[] = {
        { "73215qpx48102^no_error^", false, "" },
        { "73215qpx48102^no_error^a^b^", false, "a^b^" },
        { "  73215qpx48102^no_err\r\nor^x\r\ny  ", false, "xy" },
        { "", true, "webserver@ http://srv/qv not responding" },
        { " \r\n ", true, "webserver@ http://srv/qv not responding" },
        { "local error reading stream", true, "local error reading stream" },
        { "73215qpx48102^no_error", true, "servlet@ http://srv/qv not responding" },
        { "73215qpx48102", true, "servlet@ http://srv/qv not responding" },
        { "<html>It works!</html>", true, "servlet@ http://srv/qv not responding" },
        { "73215QPX48102^no_error^", true, "servlet@ http://srv/qv not responding" },
        { "73215qpx48102^NO_ERROR^", true, "server response: NO_ERROR" },
        { "73215qpx48102^wrong password^", true, "server response: wrong password" },
    };
    for (const auto& c : cases) {
        const auto judgement = judge_reply(c.reply, server);
        EXPECT_EQ(judgement.bad, c.bad) << c.reply;
        EXPECT_EQ(c.bad ? judgement.message : judgement.data, c.message_or_data) << c.reply;
    }
}

TEST(Reply, SplitsAtTheFirstTwoCaretsOnly)
{
    const auto parts = split_reply("m^e^d1^d2");
    EXPECT_EQ(parts.marker, "m");
    EXPECT_EQ(parts.error, "e");
    EXPECT_EQ(parts.data, "d1^d2");
    const auto one = split_reply("m^e");
    EXPECT_TRUE(one.marker.empty() && one.error.empty() && one.data.empty());
    EXPECT_EQ(strip_crlf("a\r\nb\nc\r"), "abc");
}

TEST(Reply, TheHeadOfASavedReplyIsLowerCasedSoCapitalsPassThere)
{
    test::TempAppDir dir;
    const auto file = dir.path() / "reply.txt";
    std::ofstream(file, std::ios::binary) << "  73215QPX48102^NO_ERROR^\r\n" << std::string(300, 'X');
    const std::string head = read_reply_head(file);
    EXPECT_EQ(head.size(), 98u); // 100 kept characters, trimmed of the two leading blanks
    EXPECT_EQ(head.substr(0, 24), "73215qpx48102^no_error^x");
    EXPECT_FALSE(judge_reply(head, "s").bad);
    EXPECT_EQ(read_reply_head(dir.path() / "missing.txt"), "");
}

TEST(RequestUrl, ThreeOrdersAndTheKeysAroundThem)
{
    const Requester who { "http://srv/qv", "club7", "pw1", "m1", "linux_6", "1.0" };
    EXPECT_EQ(build_url(who, "getrawdata", KeyOrder::order1, "S"),
        "http://srv/qv?idx=getrawdata&driveserial=m1&sequence=S&custid=club7&password=pw1&os=linux_6&app_id=1.0");
    EXPECT_EQ(build_url(who, "clear_events", KeyOrder::order2, "S"),
        "http://srv/qv?idx=clear_events&sequence=S&driveserial=m1&custid=club7&password=pw1&os=linux_6&app_id=1.0");
    EXPECT_EQ(build_url(who, "links", KeyOrder::public_page, "S"), "http://srv/qv?idx=links&sequence=S&custid=club7");
    EXPECT_EQ(build_url(who, "update_account_email", KeyOrder::order1, "S",
                  { .before_os = { { "accountemail", "a@b c" } }, .app_id_glued = true }),
        "http://srv/qv?idx=update_account_email&driveserial=m1&sequence=S&custid=club7&password=pw1"
        "&accountemail=a@b c&os=linux_6&app_id1.0");
}

TEST(RequestUrl, OnlyWhatARequestLineCannotCarryIsEncodedAtTheWire)
{
    EXPECT_EQ(wire_url("http://h/qv?idx=a&data=x y^z\xC2\xBF'\\\"<br>"), "http://h/qv?idx=a&data=x%20y^z\xBF'\\\"<br>");
    EXPECT_EQ(wire_url("http://h/qv?idx=a&data=why?%#\t"), "http://h/qv?idx=a&data=why%3F%25%23%09");
    EXPECT_EQ(wire_url("http://h/qv?idx=a&data=\xE2\x82\xAC"), "http://h/qv?idx=a&data=\x80");
}

} // namespace
} // namespace qv
