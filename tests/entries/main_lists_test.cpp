#include "core/database.h"
#include "entries/main_lists.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

std::vector<std::string> texts(const std::vector<ListLine>& lines)
{
    std::vector<std::string> out;
    for (const auto& line : lines)
        out.push_back(line.text);
    return out;
}

class MainListsTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    Database db { dir.new_tournament() };

    void SetUp() override
    {
        db.exec_script(R"(
            insert into events (eid, eventname, drawdone) values (2, 'mens singles', 1), (1, 'mixed doubles', 0);
            insert into players (pid, player, fname) values (1, 'zoe park', 'Zoe'), (2, 'al west', 'Al');
            insert into evententries (ent_idx, eid, en, player, reserve) values
                (1, 2, 'mens singles', 'al west', 0), (2, 2, 'mens singles', 'bo dee', 1),
                (3, 1, 'mixed doubles', 'al west/zoe park', 0);
            update evententries set p1name='al west', partner='zoe park' where ent_idx=3;
            insert into rawdoublesentries (rdidx, eid, en, player, partnername) values
                (1, 1, 'mixed doubles', 'Zoe Park', 'preq preq'), (2, 1, 'mixed doubles', 'cy fox', 'di fox');
        )");
    }
};

TEST_F(MainListsTest, EventsShowTheDrawStarAndId)
{
    EXPECT_EQ(texts(loadevents(db)), (std::vector<std::string> { "*(2)mens singles", "(1)mixed doubles" }));
    EXPECT_EQ(loadevents(db)[0].id, 2);
}

TEST_F(MainListsTest, TheThreeEntryListsOfAnEvent)
{
    EXPECT_EQ(texts(load_event_entries(db, 2, EntryList::players)), std::vector<std::string> { "al west" });
    EXPECT_EQ(texts(load_event_entries(db, 2, EntryList::reserve)), std::vector<std::string> { "bo dee" });
    EXPECT_EQ(texts(load_event_entries(db, 1, EntryList::raw_doubles)),
        (std::vector<std::string> { "cy fox/di fox", "Zoe Park/(partner required)" }));
}

TEST_F(MainListsTest, PlayersByFirstNameAndTheirEventsAsPlayerPartnerOrRaw)
{
    EXPECT_EQ(texts(loadplayers(db)), (std::vector<std::string> { "al west", "zoe park" }));
    EXPECT_EQ(texts(player_events(db, "Al West ")), (std::vector<std::string> { "mens singles", "mixed doubles" }));
    EXPECT_EQ(
        texts(player_events(db, "zoe park")), (std::vector<std::string> { "mixed doubles", "raw: mixed doubles" }));
    const auto counts = main_counts(db);
    EXPECT_EQ(counts.events, 2);
    EXPECT_EQ(counts.entries, 5);
}

} // namespace
} // namespace qv
