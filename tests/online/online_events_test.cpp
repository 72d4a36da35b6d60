#include "core/database.h"
#include "core/time_rules.h"
#include "core/utf8.h"
#include "html_form.h"
#include "online/entries_download.h"
#include "online/online_events.h"
#include "online/request_url.h"
#include "online_fixture.h"

#include <fstream>

namespace qv {
namespace {

class OnlineEventsTest : public test::OnlineTest
{
protected:
    void SetUp() override
    {
        OnlineTest::SetUp();
        start_service();
        use_service_account();
        db().run("update tournament set tournament='Spring Open' where idx=1");
        add_event(1, "mens singles", "male", "singles");
        add_event(2, "womens singles", "female", "singles");
        add_event(3, "mixed doubles", "mixed", "doubles");
        talk.clear();
    }
    Database& db() { return session.tournament(); }
    Database& init() { return session.init_db(); }
    void add_event(int eid, const std::string& name, const std::string& sex, const std::string& singdobs)
    {
        db().run("insert into events (eid, eventname, sex, pte, fee, singdobs) values (?, ?, ?, 'p', '10', ?)", eid,
            name, sex, singdobs);
    }
    std::string site() const { return "http://127.0.0.1:" + std::to_string(service->port()); }
    std::string page_url(const std::string& idx) { return wire_url(online_page_url(session, idx).value_or("")); }
    std::string local_states()
    {
        return init().scalar_text("select entries_withdrawals from acct_online_tournament where custid='club7'");
    }
    std::int64_t count(Database& in, const std::string& table)
    {
        return in.scalar_integer("select count(*) from " + table);
    }
    bool upload()
    {
        talk.answers.push_back(Answer::Yes);
        return uploadevents_script_new(session);
    }
    bool state(std::string_view word) { return set_state(session, word); }
    std::string last_question() const
    {
        for (auto it = talk.said.rbegin(); it != talk.said.rend(); ++it)
            if (it->kind == "ask")
                return it->text;
        return {};
    }

    // A player fills the enter page: names, e-mail, password, sex, and the events with their partners.
    std::string enter(const std::string& fname, const std::string& sname, const std::string& sex,
        const std::map<std::string, std::string>& events)
    {
        test::HtmlForm form(site(), page_url("enter1_enterpage"));
        if (!form.has_form())
            return form.page();
        form.fill("fname", fname).fill("sname", sname).fill("sex", sex);
        form.fill("email", lcase(fname) + "@club.org").fill("password", "pw" + lcase(fname));
        for (const auto& [name, value] : events)
            form.fill(name, value);
        return form.submit();
    }
};

TEST_F(OnlineEventsTest, UploadReplacesTheOnlineEventsAndClosesBothStates)
{
    ASSERT_TRUE(state("openentries_withdrawals"));
    EXPECT_EQ(local_states(), "open^open");

    talk.answers.push_back(Answer::No);
    EXPECT_FALSE(uploadevents_script_new(session));
    EXPECT_EQ(last_question(),
        "This will delete ALL online events and their entries.This is irreversible and ALL data will be deleted,lost "
        "and removed forever. Are you sure you want to do this?");
    EXPECT_EQ(count(init(), "acct_onlineevents"), 0);

    ASSERT_TRUE(upload());
    EXPECT_EQ(talk.last_message(),
        "(1) events were uploaded\n(2) max events settings were cleared,reset from tournament section\n(3) entries "
        "and withdrawals were set to 'CLOSED'");
    EXPECT_EQ(online_events(init(), "club7"),
        (std::vector<std::pair<std::int64_t, std::string>> {
            { 1, "mens singles" }, { 2, "womens singles" }, { 3, "mixed doubles" } }));
    EXPECT_EQ(local_states(), "closed^closed");
    EXPECT_EQ(set_online_entries_wdrawls_text(online_state_words(init(), "club7")),
        "entries are CLOSED\nwithdrawals are CLOSED");
    ASSERT_TRUE(refresh_online_entries_wdrawls_state(session));
    EXPECT_EQ(local_states(), "closed^closed") << "online too";

    bool batch_sent = false;
    for (const auto& line : service->log_lines())
        batch_sent = batch_sent
            || line.find("&cnt=1&data=1,mens singles,m,p,10,singles,^2,womens singles,f,p,10,singles,^3,mixed "
                         "doubles,x,p,10,doubles,^")
                != std::string::npos;
    EXPECT_TRUE(batch_sent);
}

// The service's account takes 50 events: it says so, and that is told instead of the three lines.
TEST_F(OnlineEventsTest, ALongListOfEventsGoesInBatchesUpToTheAccountsLimit)
{
    for (int eid = 4; eid <= 60; ++eid)
        add_event(eid, "event number " + std::to_string(eid) + " of the long list", "female", "doubles");
    ASSERT_GT(uploadevents_text(db()).size(), 2 * ServiceClient::batch_size);
    ASSERT_TRUE(upload());
    std::vector<std::string> progress;
    for (const auto& said : talk.said)
        if (said.kind == "progress" && !said.text.empty() && !said.text.ends_with("bytes downloaded"))
            progress.push_back(said.text);
    ASSERT_GE(progress.size(), 64u);
    EXPECT_EQ(progress[0], "preparing event 1");
    EXPECT_EQ(progress[59], "preparing event 60");
    EXPECT_EQ(std::vector<std::string>(progress.begin() + 60, progress.begin() + 64),
        (std::vector<std::string> {
            "uploading batch 1", "uploading batch 2", "uploading batch 3", "server is processing request..." }));
    EXPECT_EQ(talk.last_message(), "event limit of 50 reached, only the first 50 events were uploaded");
    const auto events = online_events(init(), "club7");
    ASSERT_EQ(events.size(), 50u);
    EXPECT_EQ(events.back(), (std::pair<std::int64_t, std::string> { 50, "event number 50 of the long list" }));
    EXPECT_EQ(local_states(), "closed^closed");
}

TEST_F(OnlineEventsTest, UploadRefusesWithoutEventsOrAccount)
{
    db().run("delete from events");
    EXPECT_FALSE(upload());
    EXPECT_EQ(talk.last_message(), "no events to upload?");
    add_event(1, "open", "male", "singles");
    session.settings().set_disk_var("app.password", "");
    EXPECT_FALSE(upload());
    EXPECT_EQ(talk.last_message(), "no password set for current account");
    session.settings().set_disk_var("app.password", "wrong");
    EXPECT_FALSE(upload());
    EXPECT_EQ(talk.last_message(), "server response: wrong password");
    EXPECT_EQ(count(init(), "acct_onlineevents"), 0);
    EXPECT_EQ(local_states(), "") << "nothing recorded after a bad reply";
}

TEST_F(OnlineEventsTest, AnUnknownSexTakesTheLetterOfTheEventBefore)
{
    db().run("delete from events");
    const std::vector<std::pair<std::string, std::string>> events { { "Neutral", "SINGLES" }, { "boys", "singles" },
        { "female", "Doubles" }, { "", "doubles" }, { "mixed", "doubles" }, { "male", "singles" } };
    for (std::size_t i = 0; i < events.size(); ++i)
        add_event(static_cast<int>(i + 1), "e" + std::to_string(i + 1), events[i].first, events[i].second);
    EXPECT_EQ(uploadevents_text(db()),
        "1,e1,n,p,10,singles,^2,e2,n,p,10,singles,^3,e3,f,p,10,doubles,^4,e4,f,p,10,doubles,^5,e5,x,p,10,"
        "doubles,^6,e6,m,p,10,singles,^");
    db().run("update events set sex='other' where eid=1");
    EXPECT_TRUE(uploadevents_text(db()).starts_with("1,e1,,p,10,singles,^2,e2,,p")) << "nothing before the first";
}

TEST_F(OnlineEventsTest, AnEmptyRefreshLeavesNoOnlineEventOfTheAccount)
{
    init().run("insert into acct_onlineevents (custid, eid, eventname) values ('club7', 9, 'old'), ('other', 1, 'x')");
    ASSERT_TRUE(refreshevents(session));
    EXPECT_TRUE(online_events(init(), "club7").empty());
    EXPECT_EQ(online_events(init(), "other").size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(session.dirs().working / "raweventdata.txt"));

    // The reply's greeting and line ends are no part of the records.
    const auto file = dir.path() / "events.txt";
    std::ofstream(file, std::ios::binary) << "73215qpx48102^no_error^1^men's^^2^wo\r\nmen^^^^x^y^^";
    process_event_refresh_file(init(), "club7", file);
    EXPECT_EQ(online_events(init(), "club7"),
        (std::vector<std::pair<std::int64_t, std::string>> { { 1, "men's" }, { 2, "women" } }));
}

TEST_F(OnlineEventsTest, StateWordsChangeTheirHalfOnlineAndHere)
{
    struct Case
    {
        std::string_view word;
        std::string after;
    };
    const Case cases[] = { { "openentries", "open^closed" }, { "openwithdrawals", "open^open" },
        { "closeentries", "closed^open" }, { "closewithdrawals", "closed^closed" },
        { "openentries_withdrawals", "open^open" }, { "closeentries_withdrawals", "closed^closed" } };
    ASSERT_TRUE(upload());
    for (const auto& c : cases) {
        ASSERT_TRUE(state(c.word)) << c.word;
        EXPECT_EQ(talk.last_message(), "ok");
        EXPECT_EQ(local_states(), c.after) << c.word;
        init().run("update acct_online_tournament set entries_withdrawals='x^y'");
        ASSERT_TRUE(refresh_online_entries_wdrawls_state(session));
        EXPECT_EQ(local_states(), c.after) << "the service agrees after " << c.word;
    }
    EXPECT_EQ(set_state_update("", "openwithdrawals"), "^open");
    EXPECT_EQ(state_words().size(), 6u);
}

TEST_F(OnlineEventsTest, ClearingAsksFirstAndEmptiesTheOnlineSide)
{
    ASSERT_TRUE(upload());
    ASSERT_TRUE(state("openentries"));
    ASSERT_NE(enter("Al", "West", "m", { { "e1", "1" } }).find("entry received"), std::string::npos);

    EXPECT_FALSE(clear_players_and_entries(session)) << "no is the default answer";
    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(clear_players_and_entries(session));
    EXPECT_EQ(last_question(),
        "This will delete all ONLINE tournament data for the current tournament. This is irreversible and ALL "
        "data will be lost and removed forever. Are you sure you want to do this ?");
    EXPECT_EQ(talk.last_message(), "ok");
    EXPECT_NE(test::fetch(page_url("players")).find("players: 0"), std::string::npos);
    EXPECT_EQ(online_events(init(), "club7").size(), 3u) << "the events stay";

    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(clear_online_events_script(session));
    EXPECT_EQ(last_question(), " This will clear the online events and entries.Are you sure you want to do this ?");
    EXPECT_TRUE(online_events(init(), "club7").empty());
    EXPECT_EQ(local_states(), "closed^closed");
    ASSERT_TRUE(refreshevents(session));
    EXPECT_TRUE(online_events(init(), "club7").empty()) << "none online either";
}

TEST_F(OnlineEventsTest, PlayersEnterOnlineAndTheDownloadBringsThemIn)
{
    ASSERT_TRUE(upload());
    EXPECT_NE(enter("Al", "West", "m", { { "e1", "1" } }).find("entries are closed"), std::string::npos);
    ASSERT_TRUE(state("openentries"));

    // Ten players: eight singles, a doubles pair entered by one of them, one who needs a partner.
    const std::vector<std::tuple<std::string, std::string, std::string, std::map<std::string, std::string>>> players {
        { "Al", "West", "m", { { "e1", "1" } } },
        { "Bo", "North", "m", { { "e1", "1" } } },
        { "Cy", "Stone", "m", { { "e1", "1" }, { "e3", "1" }, { "pf3", "Di" }, { "ps3", "Vale" }, { "px3", "f" } } },
        { "Di", "Vale", "f", { { "e2", "1" } } },
        { "Eva", "Moor", "f", { { "e2", "1" }, { "e3", "1" }, { "pr3", "1" } } },
        { "Fay", "Hill", "f", { { "e2", "1" } } },
        { "Gus", "Lee", "m", { { "e1", "1" } } },
        { "Hal", "O Brien", "m", { { "e1", "1" } } },
        { "Ivy", "Ray", "f", { { "e2", "1" } } },
        { "Jo", "Mé", "f", { { "e2", "1" } } },
    };
    for (const auto& [fname, sname, sex, events] : players)
        ASSERT_NE(enter(fname, sname, sex, events).find("entry received for " + fname + " " + sname), std::string::npos)
            << fname;
    EXPECT_NE(enter("Kim", "Solo", "f", { { "e3", "1" } }).find("or tick partner required"), std::string::npos);

    talk.answers.push_back(Answer::Yes);
    const auto file = down_load_entry_file(session, DownloadTarget::load);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->parent_path(), session.dirs().qv5_file_archive);
    EXPECT_TRUE(file->filename().string().starts_with("spring_open@")) << *file;
    EXPECT_EQ(last_question(), "This will clear the current tournament file.Are you sure you want to do this ?");
    EXPECT_FALSE(std::filesystem::exists(session.dirs().working / "temp.txt"));

    EXPECT_EQ(count(db(), "players"), 10);
    EXPECT_EQ(db().scalar_text("select group_concat(player, ',') from (select player from players order by pid)"),
        "Al West,Bo North,Cy Stone,Di Vale,Eva Moor,Fay Hill,Gus Lee,Hal O Brien,Ivy Ray,Jo Mé");
    EXPECT_EQ(db().scalar_text("select group_concat(eid || ':' || player, ',') from (select eid, player from "
                               "evententries where sd='singles' order by eid, pid)"),
        "1:Al West,1:Bo North,1:Cy Stone,1:Gus Lee,1:Hal O Brien,2:Di Vale,2:Eva Moor,2:Fay Hill,2:Ivy Ray,2:Jo Mé");
    EXPECT_EQ(db().scalar_text("select group_concat(player || '|' || partnerfname || '|' || partnersname || '|' || "
                               "partnername || '|' || p2sex, ',') from (select * from rawdoublesentries where eid=3 "
                               "order by pid)"),
        "Cy Stone|Di|Vale|Di Vale|female,Eva Moor|preq|preq|preq preq|");
    EXPECT_EQ(db().scalar_text("select email from players where pid=10"), "jo@club.org");
    EXPECT_EQ(db().scalar_text("select sex from players where pid=4"), "female");
}

TEST_F(OnlineEventsTest, WithdrawalsThroughTheServicePageAndThroughTheProgram)
{
    ASSERT_TRUE(upload());
    ASSERT_TRUE(state("openentries"));
    for (const auto& [fname, sname] : { std::pair { "Al", "West" }, { "Bo", "North" }, { "Cy", "Stone" } })
        ASSERT_NE(enter(fname, sname, "m", { { "e1", "1" } }).find("entry received"), std::string::npos);

    ASSERT_TRUE(down_load_entry_file(session, DownloadTarget::peek));
    EXPECT_EQ(count(session.peek_browse_db(), "peek_players"), 3);
    EXPECT_EQ(count(db(), "players"), 0) << "a peek leaves the tournament alone";
    EXPECT_EQ(qv5_archive_files(session).size(), 1u);
    EXPECT_TRUE(qv5_archive_files(session).front().starts_with("peek_spring_open@"));

    // Withdrawals closed: the page refuses, and the player stays.
    test::HtmlForm closed(site(), page_url("withdraw1_login_page"));
    EXPECT_FALSE(closed.has_form());
    EXPECT_NE(closed.page().find("withdrawals are closed"), std::string::npos);
    ASSERT_TRUE(state("openwithdrawals"));
    test::HtmlForm withdraw(site(), page_url("withdraw1_login_page"));
    withdraw.fill("email", "al@club.org").fill("password", "pwal");
    EXPECT_NE(withdraw.submit().find("your entries are withdrawn"), std::string::npos);

    // The director withdraws Bo, and then Al, who had gone already.
    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(withdraw_peek_player(session, 2));
    EXPECT_EQ(talk.last_message(), "Bo North has been withdrawn from the tournament");
    EXPECT_NE(last_question().find(" he "), std::string::npos);
    EXPECT_EQ(count(session.peek_browse_db(), "peek_players"), 2);
    EXPECT_EQ(session.peek_browse_db().scalar_integer("select count(*) from peek_evententries where pid=2"), 0);
    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(withdraw_peek_player(session, 1));
    EXPECT_EQ(talk.last_message(),
        "no entry was found for Al West was found online,player may have withdrawn themselves already");
    EXPECT_FALSE(withdraw_peek_player(session, 1));
    EXPECT_EQ(talk.last_message(), "select a player to withdraw");

    // A refused withdrawal keeps the player here.
    session.settings().set_disk_var("app.password", "wrong");
    talk.answers.push_back(Answer::Yes);
    EXPECT_FALSE(withdraw_peek_player(session, 3));
    EXPECT_EQ(count(session.peek_browse_db(), "peek_players"), 1);
    session.settings().set_disk_var("app.password", test::ServiceProcess::password);

    ASSERT_TRUE(down_load_entry_file(session, DownloadTarget::keep));
    EXPECT_EQ(count(session.peek_browse_db(), "peek_players"), 1) << "keeping loads nothing";
    ASSERT_TRUE(browse_archived_entries(session, qv5_archive_files(session).back()));
    EXPECT_EQ(session.peek_browse_db().scalar_text("select group_concat(player) from browse_players"), "Cy Stone");

    // Entries closed again: the enter page and its form refuse.
    ASSERT_TRUE(state("closeentries"));
    EXPECT_NE(enter("Di", "Vale", "f", {}).find("entries are closed"), std::string::npos);
    EXPECT_NE(test::fetch(site() + "/qv?idx=enter2_submit&custid=club7&fname=Di&sname=Vale&email=d&e1=1")
                  .find("entries are closed"),
        std::string::npos);
}

TEST_F(OnlineEventsTest, ArchiveNamesRenamesAndClearsPeeks)
{
    std::tm when {};
    when.tm_year = 126;
    when.tm_mon = 10;
    when.tm_mday = 4;
    when.tm_hour = 9;
    when.tm_min = 5;
    when.tm_sec = 7;
    EXPECT_EQ(qv5_archive_name("Spring Open: Day/1", when, false), "spring_open_day1@04-nov-2026_090507.qv5");
    EXPECT_EQ(qv5_archive_name("", when, true), "peek_qv5file@04-nov-2026_090507.qv5");

    const auto& archive = session.dirs().qv5_file_archive;
    for (const char* name : { "peek_a.qv5", "peek_b.qv5", "kept.qv5", "notes.txt" })
        std::ofstream(archive / name) << "x^%^\r\n";
    EXPECT_EQ(qv5_archive_files(session), (std::vector<std::string> { "kept.qv5", "peek_a.qv5", "peek_b.qv5" }));

    struct Case
    {
        std::string name, new_name, said;
    };
    const Case refused[] = { { "", "x", "select a qv5 file" }, { "gone.qv5", "x", "select a qv5 file" },
        { "kept.qv5", " ", "value required" }, { "kept.qv5", "a.b", "illegal character" },
        { "kept.qv5", "peek_a", "peek_a.qv5 already exists in the qv5 file archive" } };
    for (const auto& c : refused) {
        EXPECT_FALSE(rename_qv5_file(session, c.name, c.new_name)) << c.new_name;
        EXPECT_EQ(talk.last_message(), c.said) << c.new_name;
    }
    ASSERT_TRUE(rename_qv5_file(session, "kept.qv5", "final entries.QV5"));
    EXPECT_TRUE(std::filesystem::exists(archive / "final entries.qv5"));

    // "load": an archived file replaces the tournament's content once the director says yes.
    std::ofstream(archive / "full.qv5", std::ios::binary)
        << "club cup^%^\r\n1^open^m^p^5^singles^'^\r\n^est^1^Al^West^a@b^^^m^" << std::string(15, '^')
        << "1^/^\r\n1^1^^^^\\^\r\n";
    EXPECT_FALSE(load_archived_entries(session, "full.qv5"));
    EXPECT_EQ(last_question(), "This will clear the current tournament file.Are you sure you want to do this ?");
    EXPECT_EQ(count(db(), "events"), 3);
    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(load_archived_entries(session, "full.qv5"));
    EXPECT_EQ(db().scalar_text("select group_concat(eid || ':' || player) from evententries"), "1:Al West");
    EXPECT_EQ(count(db(), "events"), 1);
    std::filesystem::remove(archive / "full.qv5");

    EXPECT_EQ(clear_peek_files(session), 0) << "no is the default answer";
    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(clear_peek_files(session), 2);
    EXPECT_EQ(qv5_archive_files(session), (std::vector<std::string> { "final entries.qv5" }));
}

} // namespace
} // namespace qv
