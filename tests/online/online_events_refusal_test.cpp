#include "core/database.h"
#include "online/accounts.h"
#include "online/entries_download.h"
#include "online/online_events.h"
#include "online_fixture.h"
#include "plain_http_server.h"

#include <functional>

namespace qv {
namespace {

// The director's side of the online events against a host that does not answer as the service does: the local
// record of the account stays exactly as it was, whatever the operation.
class OnlineEventsRefusalTest : public test::OnlineTest
{
protected:
    void SetUp() override
    {
        OnlineTest::SetUp();
        session.tournament().run("insert into events (eid, eventname, sex, pte, fee, singdobs) "
                                 "values (1, 'mens singles', 'male', 'p', '10', 'singles')");
        auto& init = session.init_db();
        ensure_online_tournament_row(init, "club7");
        init.run("update acct_online_tournament set maxevents=8, scnti='2', entries_withdrawals='open^open' "
                 "where custid='club7'");
        init.run("insert into acct_onlineevents (custid, eid, eventname) values ('club7', 4, 'old event')");
    }

    void serve(const std::string& response)
    {
        host = std::make_unique<test::PlainHttpServer>(response);
        set_default_account(host->server(), "club7", "pw");
        talk.clear();
    }

    // Everything the operations may change in the account's local record.
    std::string record()
    {
        return session.init_db().scalar_text(
                   "select maxevents || ',' || scnti || ',' || entries_withdrawals from acct_online_tournament "
                   "where custid='club7'")
            + "|"
            + session.init_db().scalar_text(
                "select group_concat(eid || ' ' || eventname) from acct_onlineevents where custid='club7'");
    }

    std::unique_ptr<test::PlainHttpServer> host;
};

struct Operation
{
    const char* name;
    int yes_answers;
    std::function<bool(Session&)> run;
};

TEST_F(OnlineEventsRefusalTest, ABadReplyLeavesTheLocalRecordAsItWas)
{
    const std::string before = record();
    const std::vector<Operation> operations {
        { "upload events", 1, uploadevents_script_new },
        { "clear online events", 1, clear_online_events_script },
        { "clear players and entries", 1, clear_players_and_entries },
        { "refresh event list", 0, refreshevents },
        { "refresh ew state", 0, refresh_online_entries_wdrawls_state },
        { "close entries", 0, [](Session& s) { return set_state(s, "closeentries"); } },
        { "peek entries", 0, [](Session& s) { return down_load_entry_file(s, DownloadTarget::peek).has_value(); } },
    };
    serve(test::PlainHttpServer::html_page());
    for (const auto& operation : operations) {
        SCOPED_TRACE(operation.name);
        talk.clear();
        for (int i = 0; i < operation.yes_answers; ++i)
            talk.answers.push_back(Answer::Yes);
        EXPECT_FALSE(operation.run(session));
        EXPECT_EQ(talk.messages(), std::vector<std::string> { "servlet@ " + host->server() + " not responding" });
        EXPECT_EQ(record(), before);
    }
    EXPECT_TRUE(qv5_archive_files(session).empty()) << "a refused download leaves no file behind";
}

// A word of the service other than its event limit is told at once, and the upload counts as failed: the
// online list is not read again and the states stay.
TEST_F(OnlineEventsRefusalTest, AnyOtherWordAfterTheUploadIsToldAndChangesNothing)
{
    const std::string body = "73215qpx48102^no_error^events table is locked";
    serve("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
    const std::string before = record();
    talk.answers.push_back(Answer::Yes);
    EXPECT_FALSE(uploadevents_script_new(session));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "events table is locked" });
    EXPECT_EQ(record(), before);
}

} // namespace
} // namespace qv
