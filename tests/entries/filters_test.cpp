#include "entries/filters.h"
#include "support/settings_fixture.h"

namespace qv {
namespace {

using Names = std::vector<std::string>;

// Ticks in stored order: male, female, reserves, non-reserve, players, teams.
PlayerFilter make(PlayerSource source, std::int64_t id, const char* ticks, PlayerOrder order = PlayerOrder::player)
{
    PlayerFilter f;
    f.source = source;
    f.id = id;
    f.male = ticks[0] == '1';
    f.female = ticks[1] == '1';
    f.reserves = ticks[2] == '1';
    f.non_reserve = ticks[3] == '1';
    f.players = ticks[4] == '1';
    f.teams = ticks[5] == '1';
    f.order = order;
    return f;
}

class FiltersTest : public test::SettingsFixture
{
protected:
    FiltersTest()
    {
        settings.load_disk_vars();
        db.exec_script(R"(
            insert into players (pid, player, fname, sname, sex, pval, fid) values
                (1, 'Al West', 'Al', 'West', 'male', 1, 1),
                (2, 'Bea Cole', 'Bea', 'Cole', 'female', 1, 1),
                (3, 'Cy Fox', 'Cy', 'Fox', 'male', 1, 2),
                (4, 'Dee Ames', 'Dee', 'Ames', 'female', 1, 0),
                (5, 'Red Club', 'Red Club', '', '', 0, 1);
            insert into folders (fid, nm) values (1, 'juniors'), (2, 'seniors');
            insert into events (eid, eventname, singdobs, sex, pte, drawdone) values
                (1, 'mens singles', 'singles', 'male', 'e', 1),
                (2, 'mixed doubles', 'doubles', 'mixed', 'p', 0),
                (3, 'womens singles', 'singles', 'female', 'p', 0),
                (4, 'club doubles', 'doubles', 'neutral', 't', 0),
                (5, 'open doubles', 'doubles', 'neutral', 'p', 0);
            insert into evententries (ent_idx, eid, player, reserve) values
                (1, 1, 'al west', 0), (2, 1, 'CY FOX ', 1), (3, 1, 'red club', 0);
            insert into evententries (ent_idx, eid, player, p1name, partner, reserve) values
                (4, 2, 'al west/bea cole', 'al west', 'bea cole', 0),
                (5, 2, 'cy fox/dee ames', 'cy fox', 'dee ames', 1),
                (6, 5, 'al west/cy fox', 'al west', 'cy fox', 0),
                (7, 9, 'dee ames', 'dee ames', '', 0);
            insert into rawdoublesentries (rdidx, eid, player, partnername) values
                (1, 2, 'al west', 'preq preq'), (2, 4, 'red club', 'preq preq');
        )");
    }
    Names names(const PlayerFilter& filter)
    {
        Names out;
        for (const auto& p : filtered_players(db, filter))
            out.push_back(p.player);
        return out;
    }
    Names events(const EventFilter& filter)
    {
        Names out;
        for (const auto& line : filtered_events(db, filter))
            out.push_back(line.text);
        return out;
    }

    Database db { app.new_tournament() };
};

TEST_F(FiltersTest, PlayersOfEachSourceAndTickCombination)
{
    const Names everyone { "Al West", "Bea Cole", "Cy Fox", "Dee Ames", "Red Club" };
    const struct
    {
        PlayerFilter filter;
        Names expected;
    } cases[] = {
        // All players: the reserve ticks have nothing to narrow in the register.
        { make(PlayerSource::all, 0, "111111"), everyone },
        { make(PlayerSource::all, 0, "000000"), everyone },
        { make(PlayerSource::all, 0, "101011"), { "Al West", "Cy Fox" } },
        { make(PlayerSource::all, 0, "011111"), { "Bea Cole", "Dee Ames" } },
        { make(PlayerSource::all, 0, "111001"), { "Red Club" } },
        { make(PlayerSource::all, 0, "001010"), { "Al West", "Bea Cole", "Cy Fox", "Dee Ames" } },
        // A folder.
        { make(PlayerSource::folder, 1, "111111"), { "Al West", "Bea Cole", "Red Club" } },
        { make(PlayerSource::folder, 1, "011111"), { "Bea Cole" } },
        { make(PlayerSource::folder, 1, "110001"), { "Red Club" } },
        { make(PlayerSource::folder, 0, "111111"), { "Dee Ames" } },
        { make(PlayerSource::folder, 7, "111111"), {} },
        // A singles event: names match whatever their case and blanks; the reserve ticks narrow the entries.
        { make(PlayerSource::event, 1, "111111"), { "Al West", "Cy Fox", "Red Club" } },
        { make(PlayerSource::event, 1, "111011"), { "Cy Fox" } },
        { make(PlayerSource::event, 1, "110111"), { "Al West", "Red Club" } },
        { make(PlayerSource::event, 1, "111110"), { "Al West", "Cy Fox" } },
        { make(PlayerSource::event, 1, "100110"), { "Al West" } },
        // A doubles event: both halves of each pair.
        { make(PlayerSource::event, 2, "111111"), { "Al West", "Bea Cole", "Cy Fox", "Dee Ames" } },
        { make(PlayerSource::event, 2, "111011"), { "Cy Fox", "Dee Ames" } },
        { make(PlayerSource::event, 2, "110111"), { "Al West", "Bea Cole" } },
        { make(PlayerSource::event, 2, "011111"), { "Bea Cole", "Dee Ames" } },
        { make(PlayerSource::event, 3, "111111"), {} },
        { make(PlayerSource::event, 0, "111111"), {} },
    };
    for (const auto& c : cases)
        EXPECT_EQ(names(c.filter), c.expected) << player_filter_text(c.filter);
}

TEST_F(FiltersTest, OrdersBySecondNameOrInsertion)
{
    EXPECT_EQ(names(make(PlayerSource::all, 0, "111110", PlayerOrder::second_name)),
        (Names { "Dee Ames", "Bea Cole", "Cy Fox", "Al West" }));
    // The whole register with no tick narrowing it always comes by name.
    EXPECT_EQ(names(make(PlayerSource::all, 0, "111111", PlayerOrder::second_name)),
        (Names { "Al West", "Bea Cole", "Cy Fox", "Dee Ames", "Red Club" }));
    db.run("update players set pid=9 where pid=1");
    EXPECT_EQ(names(make(PlayerSource::folder, 1, "111111", PlayerOrder::insertion)),
        (Names { "Bea Cole", "Red Club", "Al West" }));
}

TEST_F(FiltersTest, AnEventListDoesNotKeepTheNamesOfTheLastOne)
{
    EXPECT_EQ(names(make(PlayerSource::event, 2, "111111")).size(), 4U);
    EXPECT_EQ(names(make(PlayerSource::event, 1, "111111")), (Names { "Al West", "Cy Fox", "Red Club" }));
}

TEST_F(FiltersTest, StaleEventIdListsNobodyAfterTheRepairAtOpen)
{
    // Entries of a deleted event 9 linger; a filter still naming it would list them.
    settings.set_disk_var(filter_keys::players_delete, "2^9^1^1^1^1^1^1^order by player");
    EXPECT_EQ(names(load_player_filter(settings, filter_keys::players_delete)), Names { "Dee Ames" });

    repair_stored_filters(settings, db);

    const auto filter = load_player_filter(settings, filter_keys::players_delete);
    EXPECT_EQ(filter.source, PlayerSource::event);
    EXPECT_EQ(filter.id, 0);
    EXPECT_TRUE(names(filter).empty());
}

TEST_F(FiltersTest, StatementsAreThoseOfTheList)
{
    const struct
    {
        PlayerFilter filter;
        Names fill;
        std::string select;
    } cases[] = {
        { make(PlayerSource::all, 0, "111111"), {}, "select * from players order by player" },
        { make(PlayerSource::all, 0, "000000", PlayerOrder::second_name), {}, "select * from players order by player" },
        { make(PlayerSource::all, 0, "111111", PlayerOrder::insertion), {}, "select * from players order by player" },
        { make(PlayerSource::all, 0, "101111"), {}, "select * from players where sex='male' order by player" },
        { make(PlayerSource::all, 0, "011110", PlayerOrder::insertion), {},
            "select * from players where sex='female' and pval='1' order by pid" },
        { make(PlayerSource::all, 0, "111110"), {}, "select * from players where pval='1' order by player" },
        { make(PlayerSource::folder, 4, "111110"), {},
            "select * from players where fid=? and pval='1' order by player" },
        { make(PlayerSource::event, 1, "111111"),
            { "delete from alist", "insert into alist Select trim(player) as nm from evententries where eid=?" },
            "select * from players where lower(trim(player)) in ( select nm as player from alist )  order by player" },
        { make(PlayerSource::event, 2, "101011"),
            { "delete from alist",
                "insert into alist Select trim(p1name) as nm from evententries where eid=? and reserve=true",
                "insert into alist Select trim(partner) as nm from evententries where eid=? and reserve=true" },
            "select * from players where lower(trim(player)) in ( select nm as player from alist )  and sex='male' "
            "order by player" },
        { make(PlayerSource::event, 3, "110111"),
            { "delete from alist",
                "insert into alist Select trim(player) as nm from evententries where eid=? and reserve=false" },
            "select * from players where lower(trim(player)) in ( select nm as player from alist )  order by player" },
    };
    for (const auto& c : cases) {
        const auto sql = player_filter_sql(db, c.filter);
        EXPECT_EQ(sql.fill_alist, c.fill) << player_filter_text(c.filter);
        EXPECT_EQ(sql.select, c.select);
        EXPECT_EQ(sql.id, c.filter.id);
    }

    EXPECT_EQ(filter_where_and("select * from x where  and a=1 and b=2"), "select * from x where a=1 and b=2");
    EXPECT_EQ(filter_where_and("select * from x where a=1 and b=2"), "select * from x where a=1 and b=2");
}

TEST_F(FiltersTest, EventStatements)
{
    const struct
    {
        EventFilter filter;
        std::string sql;
    } cases[] = {
        { {}, "Select * from events  order by eid" },
        { { "*", "*", "*", "*", "has entries", "event name" }, "Select * from events  order by eventname" },
        { { "singles", "male", "teams only", "draw done", "*", "event name" },
            "select * from events where singdobs='singles' and sex='male' and pte='t' and drawdone=true order by "
            "eventname" },
        { { "*", "*", "players only", "*", "*", "event number" }, "select * from events where pte='p' order by eid" },
        { { "*", "*", "either", "draw not done", "*", "drawdone" },
            "select * from events where pte='e' and drawdone=false order by drawdone" },
        // A word that is not in its list restricts nothing and never reaches the text.
        { { "doubles' or 1=1 --", "mixed", "*", "*", "*", "bogus" },
            "select * from events where sex='mixed' order by eid" },
    };
    for (const auto& c : cases)
        EXPECT_EQ(event_filter_sql(c.filter), c.sql) << event_filter_text(c.filter);
}

TEST_F(FiltersTest, EventRowsIncludingEntriesTestedRowByRow)
{
    EXPECT_EQ(events({}),
        (Names { "*(1)mens singles", "(2)mixed doubles", "(3)womens singles", "(4)club doubles", "(5)open doubles" }));
    EXPECT_EQ(filtered_events(db, {})[1].id, 2);
    // A doubles event counts its raw entries only: event 5 has a resolved pair but no raw rows.
    EXPECT_EQ(events({ "*", "*", "*", "*", "has entries", "event name" }),
        (Names { "(4)club doubles", "*(1)mens singles", "(2)mixed doubles" }));
    EXPECT_EQ(events({ "*", "*", "*", "*", "has no entries", "event number" }),
        (Names { "(3)womens singles", "(5)open doubles" }));
    EXPECT_EQ(events({ "doubles", "neutral", "*", "*", "*", "event number" }),
        (Names { "(4)club doubles", "(5)open doubles" }));
    EXPECT_EQ(events({ "*", "*", "*", "draw done", "*", "event number" }), Names { "*(1)mens singles" });
    EXPECT_EQ(
        events({ "*", "*", "players only", "draw not done", "has entries", "drawdone" }), Names { "(2)mixed doubles" });
}

TEST_F(FiltersTest, StoredTextsReadBackAndDamagedOnesRestrictNothing)
{
    for (const char* text : { "1^0^1^1^1^1^1^1^order by player", "3^7^0^1^0^1^1^0^order order of insertion",
             "2^12^1^0^1^0^0^1^order by second name" })
        EXPECT_EQ(player_filter_text(parse_player_filter(text)), text);

    for (const char* damaged : { "", "0", "9^x", "2^abc^1" }) {
        const auto f = parse_player_filter(damaged);
        EXPECT_EQ(f.id, 0) << damaged;
        EXPECT_EQ(f.order, PlayerOrder::player);
        EXPECT_FALSE(f.reserves);
    }
    EXPECT_EQ(parse_player_filter("9^4").source, PlayerSource::all);
    EXPECT_EQ(parse_player_filter("2^abc^1").source, PlayerSource::event);

    EXPECT_EQ(event_filter_text(parse_event_filter("doubles^mixed^teams only^draw done^has no entries^event name")),
        "doubles^mixed^teams only^draw done^has no entries^event name");
    EXPECT_EQ(event_filter_text(parse_event_filter("x^male")), "*^male^*^*^*^event number");

    store_player_filter(settings, filter_keys::players_folders_assign, make(PlayerSource::folder, 2, "010111"));
    EXPECT_EQ(row_value("players_folders_assign_filter"), "3^2^0^1^0^1^1^1^order by player");
    EXPECT_EQ(load_player_filter(settings, filter_keys::players_folders_assign).id, 2);
    store_event_filter(settings, filter_keys::draw_events, { "singles", "*", "*", "*", "*", "drawdone" });
    EXPECT_EQ(row_value("draw_events_filter"), "singles^*^*^*^*^drawdone");
    EXPECT_EQ(load_event_filter(settings, filter_keys::draw_events).singdobs, "singles");
    EXPECT_TRUE(talk.said.empty()) << "every filter key has its row";
}

TEST(FilterWords, TagsShowTheFilterInWords)
{
    EXPECT_EQ(disp_tag(parse_player_filter("1^0^1^1^1^1^1^1^order by player")),
        "all players male: 1 female: 1 reserve: 1 non-reserve: 1 players: 1 teams: 1 order by: player");
    EXPECT_EQ(disp_tag(parse_player_filter("2^5^1^0^0^1^1^0^order by second name")),
        "event id: 5 male: 1 female: 0 reserve: 0 non-reserve: 1 players: 1 teams: 0 order by: second name");
    EXPECT_EQ(disp_tag(parse_player_filter("3^2^0^0^0^0^0^0^order order of insertion")),
        "folder id: 2 male: 0 female: 0 reserve: 0 non-reserve: 0 players: 0 teams: 0 order by: order of insertion");
    EXPECT_EQ(disp_tag(parse_player_filter("3^2^1^1^1^1^1^1^order by player"), FilterScope::without_source),
        "male: 1 female: 1 reserve: 1 non-reserve: 1 players: 1 teams: 1 order by: player");
    EXPECT_EQ(disp_tag(EventFilter { "doubles", "mixed", "teams only", "draw not done", "has entries", "event name" }),
        "singles/doubles: doubles event sex: mixed event type: teams only draw done: draw not done has entries: has "
        "entries order by: event name");
    EXPECT_EQ(set_filter_line, "set filter...");
}

} // namespace
} // namespace qv
