#include "entries/entries.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

class RemoveEntriesTest : public test::SessionFixture
{
protected:
    void SetUp() override
    {
        open_new_tournament();
        // Event 1 singles with a draw; event 2 doubles with a team made of two raw rows; event 3 holds the same
        // people taken in its own team.
        db().exec_script(R"(
            insert into events (eid, eventname, singdobs, sex, drawdone) values
                (1, 'mens singles', 'singles', 'male', 1), (2, 'open doubles', 'doubles', 'neutral', 0),
                (3, 'mixed doubles', 'doubles', 'mixed', 0);
            insert into evententries (ent_idx, eid, player, reserve, sd) values
                (1, 1, 'Al West', 0, 'singles'), (2, 1, 'Bo Dee', 1, 'singles'), (3, 1, 'Cy Hill', 1, 'singles');
            insert into evententries (ent_idx, eid, player, p1name, partner, sd) values
                (4, 2, 'Al West/Di Fox', 'Al West', 'Di Fox', 'doubles'),
                (5, 3, 'Al West/Di Fox', 'Al West', 'Di Fox', 'doubles');
            insert into evententries (ent_idx, eid, player, sd) values (6, 2, 'Bo Dee/Eve Ray', 'doubles');
            insert into rawdoublesentries (rdidx, eid, player, partnername, p1, p2) values
                (1, 2, 'al west', 'preq preq', 'taken', 'free'), (2, 2, 'Cy Hill', 'Di Fox ', 'free', 'taken'),
                (3, 2, 'Bo Dee', 'Eve Ray', 'taken', 'taken'), (4, 3, 'Al West', 'Di Fox', 'taken', 'taken');
        )");
    }

    std::string ids(const char* table, const char* column)
    {
        return db().scalar_text(std::string("select group_concat(x, ',') from (select ") + column + " as x from "
            + table + " order by " + column + ")");
    }
    std::string states()
    {
        return db().scalar_text(
            "select group_concat(x, ',') from (select p1 || '-' || p2 as x from rawdoublesentries order by rdidx)");
    }
};

TEST_F(RemoveEntriesTest, NothingSelectedOrAStaleEventChangesNothing)
{
    EXPECT_EQ(remove_entries(session, 1, EntryList::players, {}), 0);
    EXPECT_EQ(talk.last_message(), "select player(s)");
    EXPECT_EQ(remove_entries(session, 2, EntryList::raw_doubles, {}), 0);
    EXPECT_EQ(talk.last_message(), "select teams to delete");
    EXPECT_EQ(remove_entries(session, 9, EntryList::reserve, { 2 }), 0);
    EXPECT_EQ(talk.last_message(), "9 not found,stale data");
    EXPECT_EQ(ids("evententries", "ent_idx"), "1,2,3,4,5,6");
    EXPECT_EQ(refreshes(Lists::entries), 0);
}

TEST_F(RemoveEntriesTest, ReservesOfADrawnEventGoAfterTheQuestion)
{
    EXPECT_EQ(remove_entries(session, 1, EntryList::reserve, { 2, 3 }), 0);
    EXPECT_EQ(talk.said.back().kind, "ask");
    EXPECT_EQ(talk.said.back().text, "This will remove the selected players from this event");
    EXPECT_EQ(talk.said.back().title, "Confirm");
    EXPECT_EQ(ids("evententries", "ent_idx"), "1,2,3,4,5,6");

    talk.answers.push_back(Answer::Yes);
    // An id of another event is passed over.
    EXPECT_EQ(remove_entries(session, 1, EntryList::reserve, { 2, 4 }), 1);
    EXPECT_EQ(ids("evententries", "ent_idx"), "1,3,4,5,6");
    EXPECT_EQ(refreshes(Lists::entries), 1);
}

TEST_F(RemoveEntriesTest, AnEntryInTheDrawStaysAndNothingIsAsked)
{
    EXPECT_EQ(remove_entries(session, 1, EntryList::players, { 3, 1 }), 0);
    EXPECT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.last_message(), "cannot remove Al West,draw is done and player is in the draw (non-reserve)");
    EXPECT_EQ(ids("evententries", "ent_idx"), "1,2,3,4,5,6");

    db().run("update events set drawdone=0 where eid=1");
    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(remove_entries(session, 1, EntryList::players, { 1 }), 1);
    EXPECT_EQ(ids("evententries", "ent_idx"), "2,3,4,5,6");
}

TEST_F(RemoveEntriesTest, ATeamThatGoesFreesItsPeopleInTheEventsRawRows)
{
    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(remove_entries(session, 2, EntryList::players, { 4 }), 1);
    EXPECT_EQ(ids("evententries", "ent_idx"), "1,2,3,5,6");
    // Names compare case-blind and trimmed; the other event's team keeps its people.
    EXPECT_EQ(states(), "free-free,free-free,taken-taken,taken-taken");

    // A team that has only its joined name is split to find its people.
    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(remove_entries(session, 2, EntryList::players, { 6 }), 1);
    EXPECT_EQ(states(), "free-free,free-free,free-free,taken-taken");
}

TEST_F(RemoveEntriesTest, RawRowsGoByTheirIdWithinTheEvent)
{
    talk.answers.push_back(Answer::No);
    EXPECT_EQ(remove_entries(session, 2, EntryList::raw_doubles, { 1 }), 0);
    EXPECT_EQ(talk.said.back().text, "This will delete these entries from the data base.");
    EXPECT_EQ(talk.said.back().title, "confirm");
    EXPECT_EQ(ids("rawdoublesentries", "rdidx"), "1,2,3,4");

    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(remove_entries(session, 2, EntryList::raw_doubles, { 1, 2, 4 }), 2);
    EXPECT_EQ(talk.last_message(), "2 entries deleted");
    EXPECT_EQ(ids("rawdoublesentries", "rdidx"), "3,4");
    // The resolved teams are not the raw list's business.
    EXPECT_EQ(ids("evententries", "ent_idx"), "1,2,3,4,5,6");
    EXPECT_EQ(refreshes(Lists::entries), 1);

    // Only another event's row: nothing goes, and the count says so.
    talk.answers.push_back(Answer::Yes);
    EXPECT_EQ(remove_entries(session, 2, EntryList::raw_doubles, { 4 }), 0);
    EXPECT_EQ(talk.last_message(), "no entries deleted");
    EXPECT_EQ(ids("rawdoublesentries", "rdidx"), "3,4");
}

} // namespace
} // namespace qv
