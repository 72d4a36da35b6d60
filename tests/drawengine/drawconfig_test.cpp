#include "core/session.h"
#include "drawengine/drawconfig.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <tuple>

namespace qv {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> texts(const std::vector<ConfigLine>& lines)
{
    std::vector<std::string> out;
    for (const auto& line : lines)
        out.push_back(line.text);
    return out;
}

std::vector<int> selected_rows(const std::vector<ConfigLine>& lines)
{
    std::vector<int> rows;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].selected)
            rows.push_back(int(i));
    return rows;
}

class DrawConfigTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
    int next_ent_idx = 1;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        talk.clear();
    }

    Database& db() { return session.tournament(); }

    void add_event(std::int64_t eid, const std::string& name, const std::string& drawtype = "ko", int pts = 0,
        const std::string& singdobs = "singles")
    {
        db().run("insert into events (eid, eventname, singdobs, drawtype, pts, wildcards, qualifiers) "
                 "values (?, ?, ?, ?, ?, 0, 0)",
            eid, name, singdobs, drawtype, pts);
    }
    void add_entry(std::int64_t eid, const std::string& player, int seeding = 0, bool reserve = false)
    {
        db().run("insert into evententries (ent_idx, eid, player, seeding, reserve) values (?, ?, ?, ?, ?)",
            next_ent_idx++, eid, player, seeding, reserve);
    }
    void add_players(std::int64_t eid, int count, const std::string& stem = "p")
    {
        for (int i = 1; i <= count; ++i)
            add_entry(eid, stem + std::to_string(i));
    }
    std::int64_t seeding_of(std::int64_t eid, const std::string& player)
    {
        return db().scalar_integer("select seeding from evententries where eid=? and player=?", eid, player);
    }
    std::int64_t reserve_of(std::int64_t eid, const std::string& player)
    {
        return db().scalar_integer("select reserve from evententries where eid=? and player=?", eid, player);
    }
    std::string event_row(std::int64_t eid)
    {
        auto row = db().query("select drawtype, pts, wildcards, qualifiers from events where eid=?", eid);
        if (!row.step())
            return {};
        return row.text("drawtype") + " " + row.text("pts") + " " + row.text("wildcards") + " "
            + row.text("qualifiers");
    }
    // Every entry row as text, to see that a refused save wrote nothing.
    std::string all_entries()
    {
        std::string out;
        auto rows = db().query("select eid, player, seeding, reserve from evententries order by ent_idx");
        while (rows.step())
            out += rows.text("eid") + rows.text("player") + rows.text("seeding") + rows.text("reserve") + ";";
        return out;
    }
};

TEST_F(DrawConfigTest, LoadAllPlacesEachRowByItsSeedingAndReserveMark)
{
    add_event(1, "mens singles", "rr", 2);
    db().run("update events set wildcards=1, qualifiers=2 where eid=1");
    add_entry(1, "alan", 2);
    add_entry(1, "bill", 1);
    add_entry(1, "carl");
    add_entry(1, "dave", 0, true);
    add_entry(1, "eric", 3, true);
    add_entry(2, "other event");

    DrawConfig config(session, 1);

    EXPECT_EQ(config.title(), "draw config: mens singles");
    EXPECT_EQ(texts(config.lines(ConfigList::seeds)), (std::vector<std::string> { "(1)bill", "(2)alan", "(3)eric" }));
    EXPECT_EQ(texts(config.lines(ConfigList::players)), std::vector<std::string> { "carl" });
    EXPECT_EQ(texts(config.lines(ConfigList::reserves)), (std::vector<std::string> { "dave", "eric" }));
    EXPECT_EQ(config.lines(ConfigList::seeds)[2].ent_idx, config.lines(ConfigList::reserves)[1].ent_idx)
        << "a seeded reserve is one row shown twice";
    EXPECT_EQ(config.counts().seeds, 3);
    EXPECT_EQ(config.counts().players, 1);
    EXPECT_EQ(config.counts().reserves, 2);
    EXPECT_EQ(config.type_index(), 2);
    EXPECT_EQ(config.box_text(ConfigBox::wildcards), "1");
    EXPECT_EQ(config.box_text(ConfigBox::qualifiers), "2");
    EXPECT_FALSE(config.locked());
}

TEST_F(DrawConfigTest, MovingASeedOutRenumbersTheRestAndSavesItWithoutSeed)
{
    add_event(1, "ms");
    add_entry(1, "alan", 1);
    add_entry(1, "bill", 2);
    add_entry(1, "carl", 3);
    add_entry(1, "dave");
    add_entry(1, "eric");
    add_entry(1, "fred", 0, true);
    std::vector<std::tuple<std::int64_t, std::string, int>> told;
    DrawConfig config(session, 1,
        { [&told](std::int64_t eid, const std::string& type, int pts) { told.emplace_back(eid, type, pts); }, {} });

    config.set_selected(ConfigList::seeds, { 0 });
    ASSERT_TRUE(config.move_seeds_to_players());
    EXPECT_EQ(texts(config.lines(ConfigList::seeds)), (std::vector<std::string> { "(1)bill", "(2)carl" }));
    EXPECT_EQ(texts(config.lines(ConfigList::players)), (std::vector<std::string> { "dave", "eric", "alan" }));

    config.set_selected(ConfigList::players, { 0, 1 });
    ASSERT_TRUE(config.move_players_to_seeds());
    EXPECT_EQ(texts(config.lines(ConfigList::seeds)),
        (std::vector<std::string> { "(1)bill", "(2)carl", "(3)dave", "(4)eric" }));

    config.set_selected(ConfigList::reserves, { 0 });
    ASSERT_TRUE(config.move_reserves_to_players());
    config.set_selected(ConfigList::players, { 0 });
    ASSERT_TRUE(config.move_players_to_reserves());
    EXPECT_EQ(texts(config.lines(ConfigList::reserves)), std::vector<std::string> { "alan" });
    EXPECT_EQ(config.counts().seeds, 4);
    EXPECT_EQ(config.counts().players, 1);

    EXPECT_FALSE(config.move_seeds_to_players()) << "nothing selected";
    EXPECT_EQ(talk.last_message(), "select player(s)");

    ASSERT_TRUE(config.save());
    EXPECT_EQ(seeding_of(1, "bill"), 1);
    EXPECT_EQ(seeding_of(1, "carl"), 2);
    EXPECT_EQ(seeding_of(1, "dave"), 3);
    EXPECT_EQ(seeding_of(1, "eric"), 4);
    EXPECT_EQ(seeding_of(1, "alan"), 0);
    EXPECT_EQ(reserve_of(1, "alan"), 1);
    EXPECT_EQ(reserve_of(1, "fred"), 0);
    EXPECT_EQ(event_row(1), "ko 0 0 0");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0], std::make_tuple(std::int64_t(1), std::string("ko"), 0));
    EXPECT_EQ(host.count("refresh " + std::to_string(int(Lists::entries))), 1);
}

TEST_F(DrawConfigTest, SeedUpAndDownKeepTheNumbersInPlaceAndTheSelectionFollows)
{
    add_event(1, "ms");
    add_entry(1, "alan", 2);
    add_entry(1, "bill", 5);
    add_entry(1, "carl", 7);
    DrawConfig config(session, 1);
    const auto carl = config.lines(ConfigList::seeds)[2].ent_idx;

    EXPECT_FALSE(config.move_seed(SeedMove::up));
    EXPECT_EQ(talk.last_message(), "select player");

    config.set_selected(ConfigList::seeds, { 2 });
    ASSERT_TRUE(config.move_seed(SeedMove::up));
    EXPECT_EQ(texts(config.lines(ConfigList::seeds)), (std::vector<std::string> { "(2)alan", "(5)carl", "(7)bill" }));
    EXPECT_EQ(config.lines(ConfigList::seeds)[1].ent_idx, carl);
    EXPECT_EQ(selected_rows(config.lines(ConfigList::seeds)), std::vector<int> { 1 });

    ASSERT_TRUE(config.move_seed(SeedMove::up));
    EXPECT_FALSE(config.move_seed(SeedMove::up)) << "already first";
    EXPECT_EQ(texts(config.lines(ConfigList::seeds)), (std::vector<std::string> { "(2)carl", "(5)alan", "(7)bill" }));

    config.set_selected(ConfigList::seeds, { 1 });
    ASSERT_TRUE(config.move_seed(SeedMove::down));
    EXPECT_EQ(texts(config.lines(ConfigList::seeds)), (std::vector<std::string> { "(2)carl", "(5)bill", "(7)alan" }));
    EXPECT_EQ(selected_rows(config.lines(ConfigList::seeds)), std::vector<int> { 2 });
    EXPECT_FALSE(config.move_seed(SeedMove::down)) << "already last";

    // The saved seed is the place in the list, whatever number the line showed.
    ASSERT_TRUE(config.save());
    EXPECT_EQ(seeding_of(1, "carl"), 1);
    EXPECT_EQ(seeding_of(1, "bill"), 2);
    EXPECT_EQ(seeding_of(1, "alan"), 3);
}

TEST_F(DrawConfigTest, RefusedSavesWriteNothing)
{
    struct Case
    {
        const char* what;
        int type_index;
        int players;
        const char* wildcards;
        const char* qualifiers;
        const char* message; // "" for a silent stop
        int shown_size;
    };
    const Case cases[] = {
        { "ko over 128 with wildcards", 0, 127, "2", "", "max drawsize is 128", 256 },
        { "ko over 128 with qualifiers", 0, 120, "0", "9", "max drawsize is 128", 256 },
        { "rr of 8 and a wildcard", 1, 8, "1", "0", "round robin for 2-8 players", 8 },
        { "rr of 9", 3, 9, "0", "0", "round robin for 2-8 players", 9 },
        { "letters in a box", 0, 4, "2x", "0", "", 8 },
        { "a sign in a box", 0, 4, "0", "-1", "", 4 },
        { "ten digits", 0, 4, "0", "1234567890", "", 0 },
    };
    std::int64_t eid = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ++eid;
        add_event(eid, c.what);
        add_players(eid, c.players, "e" + std::to_string(eid) + "p");
        add_entry(eid, "e" + std::to_string(eid) + "extra");
        const auto before_entries = all_entries();
        const auto before_event = event_row(eid);
        bool told = false;
        DrawConfig config(session, eid, { [&told](std::int64_t, const std::string&, int) { told = true; }, {} });
        // A move is held in the editor only until a save succeeds.
        config.set_selected(ConfigList::players, { c.players });
        ASSERT_TRUE(config.move_players_to_reserves());
        ASSERT_TRUE(config.set_type_index(c.type_index));
        config.set_box_text(ConfigBox::wildcards, c.wildcards);
        config.set_box_text(ConfigBox::qualifiers, c.qualifiers);
        config.setcounts_and_drawsize();
        EXPECT_EQ(config.counts().drawsize, c.shown_size);
        talk.clear();

        EXPECT_FALSE(config.save());
        if (*c.message)
            EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message });
        else
            EXPECT_TRUE(talk.said.empty());
        EXPECT_EQ(all_entries(), before_entries);
        EXPECT_EQ(event_row(eid), before_event);
        EXPECT_FALSE(told);
    }
}

TEST_F(DrawConfigTest, SaveTakesBlankBoxesAsZeroAndStoresTheTypeLine)
{
    add_event(1, "ms");
    add_players(1, 6);
    DrawConfig config(session, 1);
    config.set_box_text(ConfigBox::wildcards, " ");
    config.set_box_text(ConfigBox::qualifiers, "2");
    ASSERT_TRUE(config.set_type_index(3));
    ASSERT_TRUE(config.save());
    EXPECT_EQ(event_row(1), "rr 3 0 2") << "6 and 2 qualifiers make 8 exactly";

    DrawConfig again(session, 1);
    EXPECT_EQ(again.type_index(), 3);
    ASSERT_TRUE(again.set_type_index(0));
    again.set_box_text(ConfigBox::wildcards, "120");
    ASSERT_TRUE(again.save());
    EXPECT_EQ(event_row(1), "ko 0 120 2") << "6 + 120 + 2 is 128 exactly";
}

TEST_F(DrawConfigTest, SavingOneEventChangesThePlayersRowsInEveryEvent)
{
    add_event(1, "ms");
    add_event(2, "open");
    add_entry(1, "Ann Smith");
    add_entry(1, "bob jones", 0, true);
    add_entry(1, "carl");
    add_entry(2, "ann smith ");
    add_entry(2, "bob jones", 3);
    add_entry(2, "dora", 1);

    DrawConfig config(session, 1);
    config.set_selected(ConfigList::players, { 0 });
    ASSERT_TRUE(config.move_players_to_seeds());
    ASSERT_TRUE(config.save());

    EXPECT_EQ(seeding_of(1, "ann smith"), 1);
    EXPECT_EQ(seeding_of(2, "ann smith "), 1) << "no event test, names compared trimmed and case-blind";
    EXPECT_EQ(seeding_of(2, "bob jones"), 0);
    EXPECT_EQ(reserve_of(2, "bob jones"), 1);
    EXPECT_EQ(seeding_of(2, "dora"), 1) << "a player not in this event is left alone";
}

TEST_F(DrawConfigTest, AnEventWithADrawRefusesEveryChange)
{
    add_event(1, "done");
    db().run("update events set drawdone=1 where eid=1");
    add_event(2, "rows in schedule");
    db().run("insert into schedule (sid, eid) values (1, 2)");
    add_event(3, "drawn but not saved");
    add_event(4, "free");
    for (std::int64_t eid = 1; eid <= 4; ++eid) {
        add_entry(eid, "s" + std::to_string(eid), 1);
        add_entry(eid, "p" + std::to_string(eid));
        add_entry(eid, "r" + std::to_string(eid), 0, true);
    }
    const DrawConfigHooks hooks { {}, [](std::int64_t eid) { return eid == 3; } };
    const auto before = all_entries();

    for (std::int64_t eid = 1; eid <= 3; ++eid) {
        SCOPED_TRACE(eid);
        DrawConfig config(session, eid, hooks);
        EXPECT_TRUE(config.locked());
        EXPECT_EQ(config.counts().seeds, 1) << "the lists are shown";
        for (auto list : { ConfigList::seeds, ConfigList::players, ConfigList::reserves })
            config.selectall(list);
        config.set_box_text(ConfigBox::wildcards, "5");
        EXPECT_FALSE(config.move_seeds_to_players());
        EXPECT_FALSE(config.move_players_to_seeds());
        EXPECT_FALSE(config.move_players_to_reserves());
        EXPECT_FALSE(config.move_reserves_to_players());
        EXPECT_FALSE(config.move_seed(SeedMove::down));
        EXPECT_FALSE(config.set_type_index(1));
        EXPECT_FALSE(config.set_box(ConfigBox::wildcards));
        EXPECT_FALSE(config.clear_box(ConfigBox::wildcards));
        EXPECT_FALSE(config.remove_entries());
        EXPECT_FALSE(config.save());
        EXPECT_EQ(texts(config.lines(ConfigList::seeds)), std::vector<std::string> { "(1)s" + std::to_string(eid) });
    }
    EXPECT_TRUE(talk.said.empty());
    EXPECT_EQ(all_entries(), before);
    EXPECT_EQ(event_row(1), "ko 0 0 0");
    EXPECT_FALSE(DrawConfig(session, 4, hooks).locked());
}

TEST_F(DrawConfigTest, RemoveEntriesAsksAndDeletesTheSelectedRowsOfThisEvent)
{
    add_event(1, "ms");
    add_entry(1, "alan", 1);
    add_entry(1, "bill", 2, true);
    add_entry(1, "carl", 3);
    add_entry(1, "dave");
    add_entry(1, "eric");
    add_entry(2, "bill");
    DrawConfig config(session, 1);

    EXPECT_FALSE(config.remove_entries());
    EXPECT_EQ(talk.last_message(), "select player(s)");

    config.set_selected(ConfigList::seeds, { 1 });
    config.set_selected(ConfigList::players, { 1 });
    for (auto answer : { Answer::No, Answer::Cancel }) {
        talk.clear();
        talk.answers.push_back(answer);
        EXPECT_FALSE(config.remove_entries());
        ASSERT_EQ(talk.said.size(), 1u);
        EXPECT_EQ(talk.said[0].text, "This will remove the selected players from this event");
        EXPECT_EQ(talk.said[0].title, "Confirm");
    }
    EXPECT_EQ(db().scalar_integer("select count(*) from evententries"), 6);

    talk.answers.push_back(Answer::Yes);
    ASSERT_TRUE(config.remove_entries());
    EXPECT_EQ(db().scalar_integer("select count(*) from evententries where eid=1"), 3);
    EXPECT_EQ(db().scalar_integer("select count(*) from evententries where player in ('bill', 'eric')"), 1)
        << "bill's entry in event 2 stays";
    EXPECT_EQ(texts(config.lines(ConfigList::seeds)), (std::vector<std::string> { "(1)alan", "(2)carl" }));
    EXPECT_EQ(texts(config.lines(ConfigList::players)), std::vector<std::string> { "dave" });
    EXPECT_TRUE(config.lines(ConfigList::reserves).empty()) << "the seeded reserve's row is gone";
    EXPECT_EQ(config.counts().seeds, 2);
    EXPECT_EQ(config.counts().reserves, 0);

    add_event(3, "md", "ko", 0, "doubles");
    add_entry(3, "ann/bea");
    DrawConfig doubles(session, 3);
    EXPECT_TRUE(doubles.is_doubles());
    doubles.selectall(ConfigList::players);
    talk.answers.push_back(Answer::Yes);
    EXPECT_FALSE(doubles.remove_entries());
    EXPECT_EQ(db().scalar_integer("select count(*) from evententries where eid=3"), 1);
}

TEST_F(DrawConfigTest, ShownSizeCountsOpenPlacesOnlyForAKnockOut)
{
    add_event(1, "ms");
    add_entry(1, "alan", 1);
    add_players(1, 4);
    add_entry(1, "resv", 0, true);
    DrawConfig config(session, 1);
    EXPECT_EQ(config.counts().drawsize, 8);

    config.set_box_text(ConfigBox::wildcards, "2");
    config.set_box_text(ConfigBox::qualifiers, "2");
    EXPECT_EQ(config.counts().drawsize, 8) << "typing alone does not recount";
    ASSERT_TRUE(config.set_box(ConfigBox::qualifiers));
    EXPECT_EQ(config.counts().drawsize, 16);

    ASSERT_TRUE(config.set_type_index(2));
    EXPECT_EQ(config.counts().drawsize, 5);
    ASSERT_TRUE(config.set_type_index(0));
    EXPECT_EQ(config.counts().drawsize, 16);

    config.set_box_text(ConfigBox::wildcards, "129");
    EXPECT_FALSE(config.set_box(ConfigBox::wildcards));
    EXPECT_EQ(talk.last_message(), "max value=128");
    EXPECT_EQ(config.counts().drawsize, 16);
    config.set_box_text(ConfigBox::wildcards, "");
    ASSERT_TRUE(config.set_box(ConfigBox::wildcards));
    EXPECT_EQ(config.counts().drawsize, 8) << "a blank box counts 0";

    ASSERT_TRUE(config.clear_box(ConfigBox::qualifiers));
    EXPECT_EQ(config.box_text(ConfigBox::qualifiers), "0");
}

TEST_F(DrawConfigTest, SearchSelectsTheFirstLineHoldingTheText)
{
    add_event(1, "ms");
    add_entry(1, "Alan Brown", 1);
    add_entry(1, "bill brown", 2);
    add_entry(1, "carl");
    DrawConfig config(session, 1);

    EXPECT_EQ(config.search(ConfigList::seeds, "BROWN"), 0);
    EXPECT_EQ(config.search(ConfigList::seeds, "bill"), 1);
    EXPECT_EQ(selected_rows(config.lines(ConfigList::seeds)), std::vector<int> { 1 });
    EXPECT_EQ(config.search(ConfigList::seeds, "(1)"), std::nullopt) << "the seed number is not part of the name";
    EXPECT_EQ(config.search(ConfigList::players, "x'"), std::nullopt);
    EXPECT_EQ(talk.last_message(), "illegal character");

    EXPECT_EQ(config.details_player(ConfigList::seeds), "bill brown");
    EXPECT_EQ(config.details_player(ConfigList::players), std::nullopt);
    EXPECT_EQ(talk.last_message(), "select player");
}

TEST_F(DrawConfigTest, ExportWritesTheListUnderItsHeadingInWindows1252)
{
    add_event(1, "mens singles");
    add_entry(1, "andré", 1);
    add_entry(1, "bill", 2);
    add_entry(1, "carl", 0, true);
    DrawConfig config(session, 1);
    EXPECT_FALSE(config.exports_allowed());
    EXPECT_FALSE(config.export_list(ConfigList::seeds));
    EXPECT_TRUE(talk.said.empty());

    session.settings().set_disk_var("app.screenscrape", "allow screenscrape");
    ASSERT_TRUE(config.exports_allowed());
    const auto seeds = dir.path() / "out" / "s.txt";
    fs::create_directories(seeds.parent_path());
    talk.files.push_back({ seeds });
    ASSERT_TRUE(config.export_list(ConfigList::seeds));
    ASSERT_GE(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "file");
    EXPECT_EQ(talk.said[0].text, "seeds.txt");
    std::ifstream in(seeds, std::ios::binary);
    const std::string body { std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>() };
    EXPECT_EQ(body, "seeds for mens singles\r\n(1)andr\xe9\r\n(2)bill\r\n");
    EXPECT_EQ(session.settings().text("app.last_dir_opened"), seeds.parent_path().string());

    talk.clear();
    EXPECT_FALSE(config.export_list(ConfigList::reserves)) << "the file choice was cancelled";
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].text, "reserves.txt");
}

TEST(DrawConfigRules, DefaultSeedsAndBrackets)
{
    const std::pair<int, int> seeds[]
        = { { 2, 1 }, { 4, 2 }, { 8, 2 }, { 16, 4 }, { 32, 8 }, { 64, 16 }, { 128, 32 }, { 256, 64 }, { 3, 0 } };
    for (auto [size, expected] : seeds)
        EXPECT_EQ(numdefaultseeds(size), expected) << size;
    EXPECT_EQ(removebrackets("(12)bob (jr)"), "bob (jr)");
    EXPECT_EQ(removebrackets("(3/4)ann"), "ann");
    EXPECT_EQ(removebrackets("plain"), "plain");
}

} // namespace
} // namespace qv
