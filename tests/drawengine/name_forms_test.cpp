#include "core/database.h"
#include "drawengine/name_forms.h"
#include "drawengine/open_draw.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace qv {
namespace {

// A uniqueness test that refuses a fixed set of forms (exact text) and records what it was asked, in order.
struct Probe
{
    std::set<std::string> taken;
    std::vector<std::string> asked;

    UniqueTest test()
    {
        return [this](std::string_view candidate) {
            asked.emplace_back(candidate);
            return !taken.contains(std::string(candidate));
        };
    }
};

struct FormsCase
{
    const char* label;
    std::function<NameForms(const UniqueTest&, NameCounter&)> make;
    std::set<std::string> taken;
    std::vector<std::string> asked;
    NameForms expected;
    int counter_after;
};

NameForms singles_sname(const char* name, const char* fname, const char* sname, const UniqueTest& u, NameCounter& c)
{
    return k_get_names_singles_player_fname_sname(name, fname, sname, u, c);
}

// Surname of 16: its seven candidates are all distinct and all within 18.
const std::vector<std::string> montgomery = { "A.Montgomery-Smith", "AMontgomery-Smith", "Montgomery-Smith",
    "Montgomery-Smit", "Montgomery-Sm", "Montgomery-S", "Montgomery" };
const std::vector<std::string> maximilian
    = { "Maximilian-Alexan", "Maximilian-Alexa", "Maximilian-Alex", "Maximilian-Ale", "Maximilian-Al", "Maximilian-A" };
// The eleven cuts of "Vandenberghe" and "Schmidtmann".
const std::vector<std::string> pair_cuts
    = { "Vandenber/Schmidtm", "Vandenbe/Schmidtma", "Vandenbe/Schmidtm", "Vandenbe/Schmidt", "Vandenb/Schmidtm",
          "Vandenb/Schmidt", "Vandenb/Schmid", "Vanden/Schmidt", "Vanden/Schmid", "Vande/Schm", "Vand/Schmi" };

std::vector<std::string> pick(const std::vector<std::string>& list, std::initializer_list<int> orders)
{
    std::vector<std::string> out;
    for (int order : orders)
        out.push_back(list[static_cast<std::size_t>(order - 1)]);
    return out;
}

std::set<std::string> taken_of(const std::vector<std::string>& list, std::initializer_list<int> orders)
{
    const auto picked = pick(list, orders);
    return { picked.begin(), picked.end() };
}

TEST(NameFormsTest, EachFunctionTriesItsCandidatesInOrderThenFallsBack)
{
    const std::string long_single = "Alexander Montgomery-Smith";
    const std::string long_pair = "Pieter Vandenberghe/Klaus Schmidtmann";
    const std::string first_names_pair = "Vandenberghe/Schmidtmann";
    const std::vector<FormsCase> cases = {
        { "singles, surname: every candidate refused",
            [&](auto& u, auto& c) { return singles_sname(long_single.c_str(), "Alexander", "Montgomery-Smith", u, c); },
            taken_of(montgomery, { 1, 2, 3, 4, 5, 6, 7 }), montgomery, { long_single, "Montgomery1", "Montgomery1" },
            1 },
        { "singles, surname: the handles within 13 refused",
            [&](auto& u, auto& c) { return singles_sname(long_single.c_str(), "Alexander", "Montgomery-Smith", u, c); },
            taken_of(montgomery, { 5, 6, 7 }), pick(montgomery, { 1, 5, 6, 7 }),
            { long_single, "A.Montgomery-Smith", "Montgomery1" }, 1 },
        { "singles, surname: free candidates are taken at once",
            [&](auto& u, auto& c) { return singles_sname(long_single.c_str(), "Alexander", "Montgomery-Smith", u, c); },
            {}, pick(montgomery, { 1, 5 }), { long_single, "A.Montgomery-Smith", "Montgomery-Sm" }, 0 },
        { "singles, first name only: every candidate refused",
            [](auto& u, auto& c) {
                return k_get_names_singles_player_fname("Maximilian-Alexander", "Maximilian-Alexander", u, c);
            },
            taken_of(maximilian, { 1, 2, 3, 4, 5, 6 }), maximilian,
            { "Maximilian-Alexander", "Maximilian-A1", "Maximilian-A1" }, 1 },
        { "singles, first name only: the handles within 13 refused",
            [](auto& u, auto& c) {
                return k_get_names_singles_player_fname("Maximilian-Alexander", "Maximilian-Alexander", u, c);
            },
            taken_of(maximilian, { 5, 6 }), pick(maximilian, { 1, 5, 6 }),
            { "Maximilian-Alexander", "Maximilian-Alexan", "Maximilian1" }, 1 },
        { "doubles, surnames: every candidate refused",
            [&](auto& u, auto& c) {
                return k_get_names_doubles_player_fname_sname(
                    long_pair, "Pieter", "Vandenberghe", "Klaus", "Schmidtmann", u, c);
            },
            taken_of(pair_cuts, { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 }), pair_cuts,
            { long_pair, "vand/schmi1", "vand/schmi1" }, 1 },
        { "doubles, surnames: the handles within 13 refused",
            [&](auto& u, auto& c) {
                return k_get_names_doubles_player_fname_sname(
                    long_pair, "Pieter", "Vandenberghe", "Klaus", "Schmidtmann", u, c);
            },
            taken_of(pair_cuts, { 9, 10, 11 }), pick(pair_cuts, { 1, 9, 10, 11 }),
            { long_pair, "Vandenber/Schmidtm", "van/schm1" }, 1 },
        { "doubles, first names: every candidate refused",
            [&](auto& u, auto& c) {
                return k_get_names_doubles_player_fname(first_names_pair, "Vandenberghe", "Schmidtmann", u, c);
            },
            taken_of(pair_cuts, { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 }), pair_cuts,
            { first_names_pair, "vand/schmi1", "vand/schmi1" }, 1 },
        // The handle's fallback lands in the first-round form and the handle stays empty.
        { "doubles, first names: the handles within 13 refused",
            [&](auto& u, auto& c) {
                return k_get_names_doubles_player_fname(first_names_pair, "Vandenberghe", "Schmidtmann", u, c);
            },
            taken_of(pair_cuts, { 9, 10, 11 }), pick(pair_cuts, { 1, 9, 10, 11 }),
            { first_names_pair, "van/schm1", "" }, 1 },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        Probe probe { c.taken, {} };
        NameCounter counter;
        const auto forms = c.make(probe.test(), counter);
        EXPECT_EQ(probe.asked, c.asked);
        EXPECT_EQ(forms.ttt, c.expected.ttt);
        EXPECT_EQ(forms.frn, c.expected.frn);
        EXPECT_EQ(forms.tag, c.expected.tag);
        EXPECT_EQ(counter.value(), c.counter_after);
    }
}

TEST(NameFormsTest, FullNamesWithinTheLimitsStandWithoutAnyCandidate)
{
    struct Case
    {
        const char* name;
        std::function<NameForms(const std::string&, const UniqueTest&, NameCounter&)> make;
    };
    const std::vector<Case> makers = {
        { "singles, surname",
            [](auto& n, auto& u, auto& c) { return k_get_names_singles_player_fname_sname(n, "Ann", "Lee", u, c); } },
        { "singles, first name",
            [](auto& n, auto& u, auto& c) { return k_get_names_singles_player_fname(n, "Ann", u, c); } },
        { "doubles, surnames",
            [](auto& n, auto& u, auto& c) {
                return k_get_names_doubles_player_fname_sname(n, "A", "Lee", "B", "Kim", u, c);
            } },
        { "doubles, first names",
            [](auto& n, auto& u, auto& c) { return k_get_names_doubles_player_fname(n, "Ann", "Bo", u, c); } },
    };
    for (const auto& m : makers) {
        SCOPED_TRACE(m.name);
        // Ten characters: both short forms are the name itself, and nothing is asked even when everything is taken.
        Probe refuse_all { { "A.Lee", "ALee", "Lee", "Ann", "Lee/Kim", "Ann/Bo" }, {} };
        NameCounter counter;
        auto forms = m.make("Ann Lee/Bo", refuse_all.test(), counter);
        EXPECT_EQ(forms.frn, "Ann Lee/Bo");
        EXPECT_EQ(forms.tag, "Ann Lee/Bo");
        EXPECT_TRUE(refuse_all.asked.empty());
        EXPECT_EQ(counter.value(), 0);

        // Exactly 13 and exactly 18 characters are within the limits.
        Probe free;
        forms = m.make("Ann Lee/Bo Ki", free.test(), counter);
        EXPECT_EQ(forms.tag, "Ann Lee/Bo Ki");
        forms = m.make("Ann Lee/Bo Kimball", free.test(), counter);
        EXPECT_EQ(forms.frn, "Ann Lee/Bo Kimball");
        EXPECT_EQ(free.asked.size(), 1u) << "only the handle looks for a candidate";
    }
}

TEST(NameFormsTest, LimitsCountCharactersAndCapitalsComeFromTheFirstLetterOnly)
{
    struct Case
    {
        const char* name;
        const char* fname;
        const char* sname;
        const char* frn;
        const char* tag;
    };
    const Case cases[] = {
        // 26 characters, surname of 17: "J.Schwarzenbergerin" has 19, the form without the point has 18.
        { "Johannes Schwarzenbergerin", "Johannes", "Schwarzenbergerin", "JSchwarzenbergerin", "Schwarzenberg" },
        // Accented letters are one character each and take capitals; the cut surname keeps its own case.
        { "åsa ödegård-björnstad", "åsa", "ödegård-björnstad", "ÅÖdegård-björnstad", "ödegård-björn" },
        { "alexander montgomery-smith", "alexander", "montgomery-smith", "A.Montgomery-smith", "montgomery-sm" },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Probe free;
        NameCounter counter;
        const auto forms = k_get_names_singles_player_fname_sname(c.name, c.fname, c.sname, free.test(), counter);
        EXPECT_EQ(forms.frn, c.frn);
        EXPECT_EQ(forms.tag, c.tag);
    }
}

TEST(NameFormsTest, CandidatesAreTrimmedAndFallbacksAreLowerCase)
{
    Probe free;
    NameCounter counter;
    // The 17th character is a blank: the cut ends at "Louis".
    auto forms = k_get_names_singles_player_fname(
        "Anne-Marie-Louis Catherine", "Anne-Marie-Louis Catherine", free.test(), counter);
    EXPECT_EQ(forms.frn, "Anne-Marie-Louis");

    Probe refuse_all { { "Öde/Åkes", "Ödeg/Åkess", "Ödegå/Åkes" }, {} };
    forms = k_get_names_doubles_player_fname_sname(
        "Pieter Ödegård/Klaus Åkesson", "Pieter", "Ödegård", "Klaus", "Åkesson", refuse_all.test(), counter);
    EXPECT_EQ(forms.frn, "Ödegård/Åkesson");
    refuse_all.taken
        = { "Ödegård/Åkesson", "Ödegård/Åkesso", "Ödegår/Åkesson", "Ödegår/Åkesso", "Ödegå/Åkes", "Ödeg/Åkess" };
    forms = k_get_names_doubles_player_fname_sname(
        "Pieter Ödegård/Klaus Åkesson", "Pieter", "Ödegård", "Klaus", "Åkesson", refuse_all.test(), counter);
    EXPECT_EQ(forms.frn, "ödeg/åkess1");
    EXPECT_EQ(forms.tag, "ödeg/åkess1");
}

TEST(NameFormsTest, TheCounterRunsOnAcrossBothFormsOfOneName)
{
    NameCounter counter;
    for (int i = 0; i < 9; ++i)
        counter.get_cnt_str();
    // With a two-digit number the first-round fallback passes 13, so the handle needs a fallback of its own.
    Probe refuse_all { { "Maximilian-Alexan", "Maximilian-Alexa", "Maximilian-Alex", "Maximilian-Ale", "Maximilian-Al",
                           "Maximilian-A" },
        {} };
    const auto forms
        = k_get_names_singles_player_fname("Maximilian-Alexander", "Maximilian-Alexander", refuse_all.test(), counter);
    EXPECT_EQ(forms.frn, "Maximilian-A10");
    EXPECT_EQ(forms.tag, "Maximilian11");
    EXPECT_EQ(counter.value(), 11);
    counter.reset();
    EXPECT_EQ(counter.get_cnt_str(), "1");
}

void set_forms(Slot& slot, const char* ttt, const char* frn, const char* tag)
{
    slot.ttt = ttt;
    slot.frn = frn;
    slot.tag = tag;
}

TEST(NameFormsTest, KnockOutUniquenessLooksAtEveryFormOfEveryFirstRoundSlot)
{
    OpenDraw draw;
    draw.build_tree(4);
    set_forms(draw.slot(1, 1), "Alexander Montgomery-Smith", "A.Montgomery-Smith", "Montgomery-Sm");
    set_forms(draw.slot(1, 2), "é.durand", "é.durand", "é.durand");
    set_forms(draw.slot(1, 3), "bye", "bye", "bye");
    set_forms(draw.slot(1, 4), "Zoë Last", " Z.Last ", "Last");
    set_forms(draw.slot(2, 1), "Winner Alone", "W.Alone", "Alone");

    const std::pair<const char*, bool> cases[] = {
        { "alexander montgomery-smith", false },
        { "  A.MONTGOMERY-SMITH ", false },
        { "montgomery-sm", false },
        { "É.Durand", false }, // accented capitals fold too
        { "BYE", false },
        { "z.last", false }, // the last slot, its padded form
        { "LAST", false },
        { "W.Alone", true }, // later rounds do not count
        { "Montgomery-S", true },
        { "Montgomery-Smith", true },
    };
    for (const auto& [candidate, unique] : cases)
        EXPECT_EQ(k_isunique_ko(draw, candidate), unique) << candidate;
}

class NameFormsDrawTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    Database db { dir.new_tournament() };
    std::int64_t next_ent = 1;

    void add_entry(std::int64_t eid, const std::string& player, const std::string& fname, const std::string& sname,
        const std::string& partnerfname = {}, const std::string& partnersname = {})
    {
        db.run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, partnerfname,
            partnersname) values (?, ?, ?, ?, ?, ?, ?))",
            next_ent++, eid, player, fname, sname, partnerfname, partnersname);
    }

    // The tree as generation hands it over: every first-round slot shows its full name in all three forms.
    OpenDraw draw_of(std::int64_t eid, const std::vector<std::string>& names)
    {
        OpenDraw draw;
        draw.draw.curr_eid = eid;
        draw.build_tree(static_cast<int>(names.size()));
        for (std::size_t i = 0; i < names.size(); ++i) {
            auto& s = draw.slot(1, static_cast<int>(i) + 1);
            s.ttt = s.frn = s.tag = names[i];
        }
        return draw;
    }

    static std::vector<std::pair<std::string, std::string>> short_forms(const OpenDraw& draw)
    {
        std::vector<std::pair<std::string, std::string>> out;
        for (int i = 1; i <= draw.positions(1); ++i)
            out.emplace_back(draw.slot(1, i).frn, draw.slot(1, i).tag);
        return out;
    }
};

TEST_F(NameFormsDrawTest, EachSlotGoesToTheFunctionItsEntryFits)
{
    // An entry of the same name in another event, written first, must not be used.
    add_entry(2, "Alexander Montgomery-Smith", "Zachary", "Montgomery-Smith");
    add_entry(1, "Alexander Montgomery-Smith", "  alexander ", " Montgomery-Smith ");
    add_entry(1, "Maximilian-Alexander", "Maximilian-Alexander", "");
    add_entry(1, "Pieter Vandenberghe/Klaus Schmidtmann", "Pieter", "Vandenberghe", "Klaus", "Schmidtmann");
    add_entry(1, "Bartholomew-Jean/Maximilian-Karl", "Bartholomew-Jean", "", "Maximilian-Karl", "");
    add_entry(1, "Pieter/Klaus Schmidtmann-Lange", "Pieter", "", "Klaus", "Schmidtmann-Lange");
    add_entry(1, "Byeong-Cheol Kim-Parkinson", "Byeong-Cheol", "Kim-Parkinson");

    struct Case
    {
        const char* name;
        const char* frn;
        const char* tag;
    };
    const Case cases[] = {
        { "Alexander Montgomery-Smith", "A.Montgomery-Smith", "Montgomery-Sm" },
        { "ALEXANDER MONTGOMERY-SMITH", "A.Montgomery-Smith", "Montgomery-Sm" }, // found case-blind
        { "Maximilian-Alexander", "Maximilian-Alexan", "Maximilian-Al" },
        { "Pieter Vandenberghe/Klaus Schmidtmann", "Vandenber/Schmidtm", "Vanden/Schmid" },
        { "Bartholomew-Jean/Maximilian-Karl", "Bartholom/Maximili", "Bartho/Maximi" },
        // One surname is enough for the surname variant, even with the other side empty.
        { "Pieter/Klaus Schmidtmann-Lange", "/Schmidtm", "/Schmidtm" },
        { "Byeong-Cheol Kim-Parkinson", "B.Kim-Parkinson", "Kim-Parkinson" },
        // The plain words keep their text whatever its length; so does a name no entry of the event has.
        { "bye", "bye", "bye" },
        { "BYE", "BYE", "BYE" },
        { " Wildcard ", " Wildcard ", " Wildcard " },
        { "Qualifier from the northern region", "Qualifier from the northern region",
            "Qualifier from the northern region" },
        { "Nobody In This Event At All", "Nobody In This Event At All", "Nobody In This Event At All" },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        NameCounter counter;
        const auto forms = form_slot_names(
            db, 1, c.name, [](std::string_view) { return true; }, counter);
        EXPECT_EQ(forms.ttt, c.name);
        EXPECT_EQ(forms.frn, c.frn);
        EXPECT_EQ(forms.tag, c.tag);
        EXPECT_EQ(counter.value(), 0);
    }
}

TEST_F(NameFormsDrawTest, EarlierSlotsTakeTheShorterFormsSoThePlacingDecides)
{
    add_entry(1, "Alexander Montgomery-Smith", "Alexander", "Montgomery-Smith");
    add_entry(1, "Andrew Montgomery-Smith", "Andrew", "Montgomery-Smith");
    add_entry(1, "Benjamin Montgomery-Smith", "Benjamin", "Montgomery-Smith");

    auto draw
        = draw_of(1, { "Alexander Montgomery-Smith", "Benjamin Montgomery-Smith", "Andrew Montgomery-Smith", "bye" });
    k_fmt_names_current_pre_draw(db, draw);
    const std::vector<std::pair<std::string, std::string>> expected = {
        { "A.Montgomery-Smith", "Montgomery-Sm" },
        { "B.Montgomery-Smith", "Montgomery-S" },
        { "AMontgomery-Smith", "Montgomery" },
        { "bye", "bye" },
    };
    EXPECT_EQ(short_forms(draw), expected);
    EXPECT_EQ(draw.slot(1, 3).ttt, "Andrew Montgomery-Smith");

    // The other way round Andrew is first to the initial.
    draw = draw_of(1, { "Andrew Montgomery-Smith", "Alexander Montgomery-Smith" });
    k_fmt_names_current_pre_draw(db, draw);
    EXPECT_EQ(draw.slot(1, 1).frn, "A.Montgomery-Smith");
    EXPECT_EQ(draw.slot(1, 2).frn, "AMontgomery-Smith");
}

TEST_F(NameFormsDrawTest, ALaterSlotsFullNameBlocksACandidate)
{
    add_entry(1, "Alexander Montgomery-Smith", "Alexander", "Montgomery-Smith");
    add_entry(1, "a.montgomery-smith", "a.montgomery-smith", "");
    auto draw = draw_of(1, { "Alexander Montgomery-Smith", "a.montgomery-smith" });
    k_fmt_names_current_pre_draw(db, draw);
    EXPECT_EQ(draw.slot(1, 1).frn, "AMontgomery-Smith");
    EXPECT_EQ(draw.slot(1, 2).frn, "a.montgomery-smith");
}

TEST_F(NameFormsDrawTest, PairsWhoseFormsAreAllTakenCountOnAndTheCountStartsAgainEachRun)
{
    const std::vector<std::string> firsts
        = { "Aart", "Bram", "Cas", "Daan", "Eef", "Floor", "Gijs", "Hein", "Ids", "Joost" };
    std::vector<std::string> names;
    for (const auto& first : firsts) {
        names.push_back(first + " Vandenberghe/" + first + " Schmidtmann");
        add_entry(1, names.back(), first, "Vandenberghe", first, "Schmidtmann");
    }
    while (names.size() < 16)
        names.push_back("bye");

    const std::vector<std::pair<std::string, std::string>> pairs = {
        { pair_cuts[0], pair_cuts[8] },
        { pair_cuts[1], pair_cuts[9] },
        { pair_cuts[2], pair_cuts[10] },
        { pair_cuts[3], "van/schm1" },
        { pair_cuts[4], "van/schm2" },
        { pair_cuts[5], "van/schm3" },
        { pair_cuts[6], "van/schm4" },
        { pair_cuts[7], "van/schm5" },
        { "vand/schmi6", "vand/schmi6" },
        { "vand/schmi7", "vand/schmi7" },
    };
    for (int run = 1; run <= 2; ++run) {
        SCOPED_TRACE(run);
        auto draw = draw_of(1, names);
        k_fmt_names_current_pre_draw(db, draw);
        const auto forms = short_forms(draw);
        EXPECT_EQ(std::vector(forms.begin(), forms.begin() + 10), pairs);
        EXPECT_EQ(forms.back().first, "bye");
        EXPECT_EQ(forms.back().second, "bye");
    }
}

TEST(NameFormsTest, PlayerAndPlaceHolderWords)
{
    const struct
    {
        const char* name;
        bool is_player;
        std::optional<std::string> short_form;
    } cases[] = {
        { "ann lee", true, std::nullopt },
        { "", true, std::nullopt },
        { "qualifier3", false, "Q3" },
        { "qualifier", false, "Q" },
        { " Wildcard12 ", false, "W12" },
        { "wildcard", false, "W" },
        { "bye", false, "bye" },
        { "BYE ", false, "bye" },
        // Anywhere in the name: a player with such letters counts as none, yet only the plain "bye" is a bye.
        { "Byeford Smith", false, std::nullopt },
        { "joe wildcard2", false, "W2" },
        { "lee qualifierson", false, "Qson" },
    };
    for (const auto& c : cases) {
        EXPECT_EQ(player(c.name), c.is_player) << c.name;
        EXPECT_EQ(wcq(c.name), c.short_form) << c.name;
    }
}

} // namespace
} // namespace qv
