#include "core/clear_data.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

class ClearDataTest : public test::SessionFixture
{
protected:
    void SetUp() override
    {
        open_new_tournament();
        fill();
    }

    void fill()
    {
        auto& db = session.tournament();
        db.exec_script(R"(
            delete from players; delete from events; delete from evententries; delete from rawdoublesentries;
            delete from schedule; delete from folders; delete from force_draw; delete from player_match_counts;
            delete from scheduledays where idx=1; delete from scheduledays_courts;
            insert into players (pid, player) values (1, 'ann lee');
            insert into events (eid, eventname, drawdone, drawsize, min_sid, max_sid) values (1, 'ms', 1, 8, 1, 8);
            insert into evententries (ent_idx, eid, player) values (1, 1, 'ann lee');
            insert into rawdoublesentries (rdidx, eid, player) values (1, 1, 'ann lee');
            insert into schedule (sid, eid) values (1, 1);
            insert into folders (fid, nm) values (1, 'juniors');
            insert into force_draw (eid, pos) values (1, 1);
            insert into player_match_counts (pn) values ('ann lee');
            insert into scheduledays (idx, sdate, live_cnt, live_cnt_ind) values (1, 'mon01jan07', 3, '?');
            insert into scheduledays_courts (idx, sdate, cid, dead_cnt, dead_cnt_ind) values (1, 'mon01jan07', 1, 2, '¿');
            update tournament set tournament='open', dates='1-2 jan', venue='park', conditions='none' where idx=1;
        )");
    }

    std::int64_t rows(const char* table) { return session.tournament().row_count(table); }
    std::string value(const char* sql) { return session.tournament().scalar_text(sql); }
};

TEST_F(ClearDataTest, NothingTickedStillRemovesDrawsScheduleAndFolders)
{
    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(clear_data(session, {}));
    EXPECT_EQ(talk.said.front().text, "This will clear data from the current tournament file?");
    EXPECT_EQ(talk.said.front().title, "Confirm");

    EXPECT_EQ(rows("schedule"), 0);
    EXPECT_EQ(rows("folders"), 0);
    EXPECT_EQ(rows("force_draw"), 0);
    EXPECT_EQ(rows("player_match_counts"), 0);
    EXPECT_EQ(value("select drawdone || ',' || drawsize || ',' || min_sid || ',' || max_sid from events"), "0,0,0,0");
    EXPECT_EQ(value("select live_cnt || live_cnt_ind from scheduledays where idx=1"), "0");
    EXPECT_EQ(value("select dead_cnt || dead_cnt_ind from scheduledays_courts"), "0");
    EXPECT_EQ(rows("players"), 1);
    EXPECT_EQ(rows("evententries"), 1);
    EXPECT_EQ(value("select venue from tournament"), "park");
    EXPECT_EQ(host.deferred.size(), 1u) << "a restart follows";
}

TEST_F(ClearDataTest, EachTickClearsItsTables)
{
    struct Case
    {
        ClearDataTicks ticks;
        std::int64_t players, events, entries, raw;
    };
    const Case cases[] = {
        { { .players_and_entries = true }, 0, 1, 0, 0 },
        { { .events_and_entries = true }, 1, 0, 0, 0 },
        { { .entries = true }, 1, 1, 0, 0 },
    };
    for (const auto& c : cases) {
        fill();
        talk.answers.push_back(Answer::Yes);
        ASSERT_TRUE(clear_data(session, c.ticks));
        EXPECT_EQ(rows("players"), c.players);
        EXPECT_EQ(rows("events"), c.events);
        EXPECT_EQ(rows("evententries"), c.entries);
        EXPECT_EQ(rows("rawdoublesentries"), c.raw);
        host.run_deferred();
    }
}

TEST_F(ClearDataTest, DaysAndDetails)
{
    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(clear_data(session, { .days = true, .details = true }));
    EXPECT_EQ(rows("scheduledays"), 1);
    EXPECT_EQ(value("select '[' || sdate || ']' from scheduledays"), "[]");
    EXPECT_EQ(rows("scheduledays_courts"), 0);
    EXPECT_EQ(value("select dates || venue || conditions || tournament from tournament where idx=1"), "");
}

TEST_F(ClearDataTest, AnsweringNoChangesNothing)
{
    talk.answers.push_back(Answer::No);
    EXPECT_FALSE(clear_data(session, { true, true, true, true, true }));
    EXPECT_EQ(rows("schedule"), 1);
    EXPECT_EQ(rows("players"), 1);
    EXPECT_TRUE(host.deferred.empty());
}

} // namespace
} // namespace qv
