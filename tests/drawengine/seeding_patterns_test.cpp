#include "core/session.h"
#include "drawengine/seeding_patterns.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace qv {
namespace {

namespace fs = std::filesystem;

class SeedingPatternsTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };

    void SetUp() override
    {
        session.boot_start_app("");
        ASSERT_TRUE(session.booted());
        talk.clear();
    }

    Database& init() { return session.init_db(); }

    // Both tables as text, to show that a refusal left them exactly as they were.
    std::string snapshot()
    {
        std::string out;
        auto index = init().query(R"(select * from seedposmapping_index order by idx)");
        while (index.step())
            out += std::to_string(index.integer("idx")) + "|" + index.text("nm") + "|"
                + std::to_string(index.integer("drawsize")) + "|" + std::to_string(index.integer("default")) + "|"
                + std::to_string(index.integer("system")) + "\n";
        auto rows = init().query(R"(select * from seedposmapping order by idx, pos)");
        while (rows.step())
            out += std::to_string(rows.integer("idx")) + "|" + rows.text("nm") + "|"
                + std::to_string(rows.integer("pos")) + "|" + std::to_string(rows.integer("seed")) + "\n";
        return out;
    }

    std::int64_t system_idx(int drawsize)
    {
        return init().scalar_integer(
            R"(select idx from seedposmapping_index where "system" = 1 and drawsize = ?)", drawsize);
    }
    std::int64_t default_idx(int drawsize)
    {
        return init().scalar_integer(
            R"(select idx from seedposmapping_index where "default" = 1 and drawsize = ?)", drawsize);
    }
    std::int64_t defaults_of(int drawsize)
    {
        return init().scalar_integer(
            R"(select count(*) from seedposmapping_index where "default" = 1 and drawsize = ?)", drawsize);
    }

    // A user pattern of size 8 with seeds 1 and 2 swapped against the system one.
    std::int64_t add_pattern(const std::string& name, int drawsize = 8)
    {
        auto positions = empty_positions(drawsize);
        positions.front().seed = 2;
        positions.back().seed = 1;
        const auto idx = save_new_pattern(session, drawsize, name, positions);
        EXPECT_TRUE(idx.has_value()) << talk.last_message();
        talk.clear();
        return idx.value_or(0);
    }
};

TEST(SeedingListForms, LinesHeadingsAndSplitting)
{
    EXPECT_EQ(pattern_list_heading(16), "seeding patterns for drawsize=16");
    EXPECT_EQ(position_list_heading(8), "drawsize=8(position,seeding)");
    EXPECT_EQ(pattern_line({ 3, "mine", 8, true, false }), "default\tmine");
    EXPECT_EQ(pattern_line({ 3, "mine", 8, false, false }), "\tmine");
    EXPECT_EQ(get_name("default\tmy pattern").mark, "default");
    EXPECT_EQ(get_name("default\tmy pattern").name, "my pattern");
    EXPECT_EQ(get_name("\tmine").mark, "");
    EXPECT_EQ(get_name("\tmine").name, "mine");
    EXPECT_EQ(position_line({ 12, 3 }), "12,3");
    EXPECT_EQ(splitup("12,3"), (SeedPosition { 12, 3 }));
    EXPECT_EQ(splitup("1,0"), (SeedPosition { 1, 0 }));
    for (const char* bad : { "", "12", "a,1", "1,", ",1", "1,2,3", "-1,2" })
        EXPECT_FALSE(splitup(bad).has_value()) << bad;
    EXPECT_EQ(empty_positions(4), (std::vector<SeedPosition> { { 1, 0 }, { 2, 0 }, { 3, 0 }, { 4, 0 } }));
}

TEST(SetSeed, RefusalsSayWhyAndChangeNothing)
{
    struct Case
    {
        std::optional<std::size_t> chosen;
        std::string box;
        PatternWindow window;
        std::string message;
    };
    const std::vector<Case> cases {
        { std::nullopt, "1", PatternWindow::main, "select position" },
        { 8, "1", PatternWindow::main, "select position" },
        { 2, "", PatternWindow::main, "value required" },
        { 2, "   ", PatternWindow::new_pattern, "value required" },
        { 2, "3a", PatternWindow::main, "invalid character for integer" },
        { 2, " 3", PatternWindow::main, "invalid character for integer" },
        { 2, "-1", PatternWindow::main, "invalid character for integer" },
        { 2, "9", PatternWindow::main, "drawsize is =8 you cannot define a seed > number of players in the draw" },
        { 2, "123456789012", PatternWindow::new_pattern,
            "drawsize is =8 you cannot define a seed > number of players in the draw" },
        { 2, "2", PatternWindow::main, "seeding 2 already defined" },
        { 2, "2", PatternWindow::new_pattern, "seeding of 2 already defined" },
        // The chosen line is searched as well: its own seed again is a repeat.
        { 0, "1", PatternWindow::main, "seeding 1 already defined" },
        { 0, "01", PatternWindow::new_pattern, "seeding of 1 already defined" },
    };
    for (const auto& c : cases) {
        test::ScriptedTalk talk;
        auto positions = empty_positions(8);
        positions[0].seed = 1;
        positions[7].seed = 2;
        const auto before = positions;
        EXPECT_FALSE(set_seed(talk, positions, c.chosen, c.box, c.window)) << c.box;
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message }) << c.box;
        EXPECT_EQ(positions, before) << c.box;
    }
}

TEST(SetSeed, WritesTheValueAndZeroAlwaysPasses)
{
    test::ScriptedTalk talk;
    auto positions = empty_positions(8);
    EXPECT_TRUE(set_seed(talk, positions, 3, "8", PatternWindow::main));
    EXPECT_EQ(positions[3].seed, 8);
    EXPECT_TRUE(set_seed(talk, positions, 4, "03", PatternWindow::main));
    EXPECT_EQ(positions[4].seed, 3);
    // Zero marks no seed: it may stand on any number of lines, also where it already is.
    EXPECT_TRUE(set_seed(talk, positions, 3, "0", PatternWindow::main));
    EXPECT_TRUE(set_seed(talk, positions, 5, "0", PatternWindow::new_pattern));
    EXPECT_TRUE(set_seed(talk, positions, 5, "000", PatternWindow::new_pattern));
    EXPECT_EQ(positions[3].seed, 0);
    EXPECT_TRUE(talk.said.empty());

    clear_pattern(positions);
    EXPECT_EQ(positions, empty_positions(8));
}

TEST_F(SeedingPatternsTest, DefaultOfEverySizeHasAscendingSeedsOnSlotsOfTheSize)
{
    for (int size = 2; size <= 128; size *= 2) {
        const auto seeds = default_seed_positions(init(), size);
        ASSERT_FALSE(seeds.empty()) << size;
        std::set<int> slots;
        for (std::size_t i = 0; i < seeds.size(); ++i) {
            EXPECT_EQ(seeds[i].seed, static_cast<int>(i) + 1) << size;
            EXPECT_GE(seeds[i].pos, 1) << size;
            EXPECT_LE(seeds[i].pos, size) << size;
            slots.insert(seeds[i].pos);
        }
        EXPECT_EQ(slots.size(), seeds.size()) << size;
        EXPECT_EQ(seeds.front().pos, 1) << size;
        EXPECT_EQ(seeds[1].pos, size) << size;
        EXPECT_EQ(defaults_of(size), 1) << size;

        // The force draw reads the same pattern by its name, zero rows included.
        const auto name = default_pattern_name(init(), size);
        EXPECT_EQ(name, "system " + std::to_string(size));
        EXPECT_EQ(seed_positions_by_name(init(), name).size(), static_cast<std::size_t>(size));
    }
}

TEST_F(SeedingPatternsTest, SizeWithoutDefaultIsADatabaseFault)
{
    init().run(R"(update seedposmapping_index set "default" = 0 where drawsize = 16)");
    try {
        default_seed_positions(init(), 16);
        FAIL() << "no error";
    } catch (const DbError& error) {
        EXPECT_STREQ(error.what(), "no default seeding pattern for drawsize=16");
    }
    EXPECT_THROW(default_pattern_name(init(), 16), DbError);
    EXPECT_THROW(default_seed_positions(init(), 3), DbError);
}

TEST_F(SeedingPatternsTest, NewPatternRefusals)
{
    add_pattern("mine");
    const auto before = snapshot();
    struct Case
    {
        std::optional<int> drawsize;
        std::string name;
        std::string message;
    };
    const std::vector<Case> cases {
        { 8, "", "name required" },
        { 8, "   ", "name required" },
        { 8, "a/b", "illegal character" },
        { 8, "it's", "illegal character" },
        { 8, "my System one", "pattern name cannot contain the word 'default'" },
        { 8, "system 8", "pattern name cannot contain the word 'default'" },
        { 8, "  MINE ", " already have a seeding pattern named MINE" },
        // Names are one list across all sizes.
        { 16, "Mine", " already have a seeding pattern named Mine" },
        { std::nullopt, "other", "select drawsize" },
    };
    for (const auto& c : cases) {
        talk.clear();
        const auto size = c.drawsize.value_or(8);
        EXPECT_FALSE(save_new_pattern(session, c.drawsize, c.name, empty_positions(size)).has_value()) << c.name;
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message }) << c.name;
    }
    EXPECT_EQ(snapshot(), before);
}

TEST_F(SeedingPatternsTest, NewPatternTakesNextIdxAndIsNeitherDefaultNorSystem)
{
    auto positions = empty_positions(4);
    positions[1].seed = 1;
    positions[2].seed = 2;
    const auto idx = save_new_pattern(session, 4, "  my default ", positions);
    ASSERT_EQ(idx, 8) << "the system patterns hold 1..7";
    EXPECT_TRUE(talk.said.empty());

    const auto pattern = find_pattern(init(), 8);
    ASSERT_TRUE(pattern.has_value());
    EXPECT_EQ(pattern->name, "my default");
    EXPECT_EQ(pattern->drawsize, 4);
    EXPECT_FALSE(pattern->is_default);
    EXPECT_FALSE(pattern->is_system);
    EXPECT_EQ(load_positions(init(), 8), positions);
    EXPECT_EQ(seed_positions_by_name(init(), "my default"), positions);
    EXPECT_EQ(default_idx(4), system_idx(4));

    // With no pattern at all numbering starts again at 1.
    init().run("delete from seedposmapping_index");
    init().run("delete from seedposmapping");
    EXPECT_EQ(save_new_pattern(session, 8, "first", empty_positions(8)), 1);
}

TEST_F(SeedingPatternsTest, SaveReplacesRowsAndNamesThemByTheListLine)
{
    const auto idx = add_pattern("mine");
    auto positions = load_positions(init(), idx);
    positions[3].seed = 3;
    EXPECT_TRUE(save_pattern(session, 8, idx, positions));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "ok" });
    EXPECT_EQ(load_positions(init(), idx), positions);
    EXPECT_EQ(init().scalar_integer("select count(*) from seedposmapping where idx = ? and nm = ?", idx, "\tmine"), 8);

    ASSERT_TRUE(set_default(session, 8, idx));
    EXPECT_TRUE(save_pattern(session, 8, idx, positions));
    EXPECT_EQ(
        init().scalar_integer("select count(*) from seedposmapping where idx = ? and nm = ?", idx, "default\tmine"), 8);
}

TEST_F(SeedingPatternsTest, SaveRefusals)
{
    const auto idx = add_pattern("mine");
    const auto before = snapshot();
    auto positions = empty_positions(8);
    EXPECT_FALSE(save_pattern(session, std::nullopt, idx, positions));
    EXPECT_FALSE(save_pattern(session, 8, std::nullopt, positions));
    EXPECT_FALSE(save_pattern(session, 8, 999, positions));
    EXPECT_FALSE(save_pattern(session, 8, system_idx(8), positions));
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> {
            "select drawsize", "select seeding pattern", "select seeding pattern", "cannot change system pattern" }));
    EXPECT_EQ(snapshot(), before);
    EXPECT_THROW(save_pattern(session, 8, idx, empty_positions(4)), std::invalid_argument);
}

TEST_F(SeedingPatternsTest, RenameGoesByNameAcrossSizes)
{
    const auto idx8 = add_pattern("shared");
    const auto idx16 = add_pattern("other", 16);
    // Two sizes that carry one name, as an older installation may hold them.
    init().run("update seedposmapping_index set nm = 'Shared' where idx = ?", idx16);

    EXPECT_TRUE(rename_pattern(session, 8, idx8, "  renamed "));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "ok" });
    EXPECT_EQ(find_pattern(init(), idx8)->name, "renamed");
    EXPECT_EQ(find_pattern(init(), idx16)->name, "renamed");
    EXPECT_EQ(find_pattern(init(), system_idx(8))->name, "system 8");

    // The twin of another size now carries the name, so the search by idx finds it.
    talk.clear();
    EXPECT_FALSE(rename_pattern(session, 8, idx8, "Renamed"));
    EXPECT_EQ(find_pattern(init(), idx8)->name, "renamed");

    // A lone pattern may take its own name in another case.
    const auto idx32 = add_pattern("lone", 32);
    talk.clear();
    EXPECT_TRUE(rename_pattern(session, 32, idx32, "LONE"));
    EXPECT_EQ(find_pattern(init(), idx32)->name, "LONE");
}

TEST_F(SeedingPatternsTest, RenameRefusals)
{
    const auto idx = add_pattern("mine");
    add_pattern("theirs", 16);
    const auto before = snapshot();
    struct Case
    {
        std::optional<int> drawsize;
        std::optional<std::int64_t> idx;
        std::string name;
        std::string message;
    };
    const std::vector<Case> cases {
        { std::nullopt, idx, "new", "select drawsize" },
        { 8, std::nullopt, "new", "select seeding pattern" },
        { 8, idx, " ", "name required" },
        { 8, idx, "a#b", "illegal character" },
        { 8, idx, "SYSTEMATIC", "pattern name cannot contain the word 'default'" },
        { 8, idx, "Theirs ", " already have a seeding pattern named Theirs" },
        { 8, idx, "system 4", "pattern name cannot contain the word 'default'" },
        { 8, system_idx(8), "plain", "cannot change system pattern" },
    };
    for (const auto& c : cases) {
        talk.clear();
        EXPECT_FALSE(rename_pattern(session, c.drawsize, c.idx, c.name)) << c.name;
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message }) << c.name;
    }
    EXPECT_EQ(snapshot(), before);
}

TEST_F(SeedingPatternsTest, EditedPatternMadeDefaultIsWhatTheDrawReads)
{
    const auto idx = add_pattern("mine");
    const auto idx16 = add_pattern("big", 16);
    ASSERT_TRUE(set_default(session, 16, idx16));
    auto positions = load_positions(init(), idx);
    ASSERT_TRUE(set_seed(talk, positions, 4, "3", PatternWindow::main));
    ASSERT_TRUE(save_pattern(session, 8, idx, positions));
    ASSERT_TRUE(set_default(session, 8, idx));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "ok" });

    EXPECT_EQ(defaults_of(8), 1);
    EXPECT_EQ(default_idx(8), idx);
    EXPECT_EQ(default_idx(16), idx16) << "another size keeps its default";
    EXPECT_EQ(default_seed_positions(init(), 8), (std::vector<SeedPosition> { { 8, 1 }, { 1, 2 }, { 5, 3 } }));
    EXPECT_EQ(default_pattern_name(init(), 8), "mine");

    // Back to the system pattern by choosing it.
    ASSERT_TRUE(set_default(session, 8, system_idx(8)));
    EXPECT_EQ(default_idx(8), system_idx(8));
    EXPECT_EQ(defaults_of(8), 1);

    talk.clear();
    EXPECT_FALSE(set_default(session, std::nullopt, idx));
    EXPECT_FALSE(set_default(session, 8, std::nullopt));
    EXPECT_EQ(talk.messages(), (std::vector<std::string> { "select drawsize", "select seeding pattern" }));
}

TEST_F(SeedingPatternsTest, DeletingTheDefaultFallsBackOnTheSystemPattern)
{
    const auto kept = add_pattern("kept");
    const auto idx = add_pattern("gone");
    ASSERT_TRUE(set_default(session, 8, idx));

    EXPECT_TRUE(delete_pattern(session, 8, idx));
    EXPECT_FALSE(find_pattern(init(), idx).has_value());
    EXPECT_TRUE(load_positions(init(), idx).empty());
    EXPECT_EQ(default_idx(8), system_idx(8));
    EXPECT_EQ(defaults_of(8), 1);
    EXPECT_EQ(default_seed_positions(init(), 8).front(), (SeedPosition { 1, 1 }));

    // A pattern that is not the default leaves the default alone.
    EXPECT_TRUE(delete_pattern(session, 8, kept));
    EXPECT_EQ(default_idx(8), system_idx(8));
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SeedingPatternsTest, DeleteRefusalsAndSystemPatternsStay)
{
    const auto idx = add_pattern("mine");
    const auto before = snapshot();
    EXPECT_FALSE(delete_pattern(session, std::nullopt, idx));
    EXPECT_FALSE(delete_pattern(session, 8, std::nullopt));
    EXPECT_FALSE(delete_pattern(session, 8, system_idx(8)));
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> {
            "select drawsize", "select seeding pattern to delete", "cannot delete system pattern" }));
    EXPECT_EQ(snapshot(), before);
}

TEST_F(SeedingPatternsTest, ExportOnlyWithTheSwitchOn)
{
    const auto file = dir.path() / "out.txt";
    talk.files.push_back({ file });
    EXPECT_FALSE(export_seeding_list(session, empty_positions(2)));
    EXPECT_TRUE(talk.said.empty()) << "no dialog while the switch is off";

    session.settings().set_disk_var("app.screenscrape", "allow screenscrape");
    EXPECT_TRUE(export_seeding_list(session, { { 1, 1 }, { 2, 2 } }));
    ASSERT_FALSE(talk.said.empty());
    EXPECT_EQ(talk.said.front().kind, "file");
    EXPECT_EQ(talk.said.front().text, "seeding.txt");
    std::ifstream in(file, std::ios::binary);
    const std::string bytes { std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>() };
    EXPECT_EQ(bytes, "seeding\r\n1,1\r\n2,2\r\n");
}

} // namespace
} // namespace qv
