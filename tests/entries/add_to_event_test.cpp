#include "entries/add_to_event.h"
#include "support/file_bytes.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

namespace fs = std::filesystem;

// ---- The rules, without a tournament ----

TEST(AddToEventRules, EventKeysAreSexAndKindWithMixedAlwaysXd)
{
    const std::tuple<const char*, const char*, const char*> cases[]
        = { { "male", "singles", "ms" }, { "FEMALE", "singles", "fs" }, { "neutral", "singles", "ns" },
              { "male", "doubles", "md" }, { "female", " doubles", "fd" }, { "neutral", "doubles", "nd" },
              { "mixed", "doubles", "xd" }, { "mixed", "singles", "xd" }, { "", "singles", "" }, { "male", "", "" } };
    for (const auto& [sex, singdobs, key] : cases)
        EXPECT_EQ(event_key(sex, singdobs), key) << sex << "/" << singdobs;
}

EventData event_of(const char* sex, const char* singdobs, const char* pte)
{
    EventData event;
    event.sex = sex;
    event.singdobs = singdobs;
    event.pte = pte;
    return event;
}

PersonData person_of(const char* sex, int pval)
{
    PersonData person;
    person.sex = sex;
    person.pval = pval;
    return person;
}

using Check = std::optional<std::string> (*)(const PersonData&, const EventData&);

TEST(AddToEventRules, PersonChecksGiveTheirTextsByTargetKeyAndType)
{
    struct Case
    {
        Check check;
        const char* name;
        const char* sex;
        int pval;
        EventData target;
        const char* text; // "" when the person may go in
    };
    const auto ms = event_of("male", "singles", "p"), fs = event_of("female", "singles", "p");
    const auto md = event_of("male", "doubles", "p"), fd = event_of("female", "doubles", "p");
    const auto ns_t = event_of("neutral", "singles", "t"), ns_p = event_of("neutral", "singles", "p");
    const auto nd_t = event_of("neutral", "doubles", "t"), nd_p = event_of("neutral", "doubles", "p");
    const auto xd = event_of("mixed", "doubles", "p"), ns_e = event_of("neutral", "singles", "e");
    const Case cases[] = {
        { sex_s_to_s, "s_to_s", "male", 1, fs, ",sex=male,cannot add to female singles" },
        { sex_s_to_s, "s_to_s", "female", 1, ms, ",sex=female,cannot add to male singles" },
        { sex_s_to_s, "s_to_s", "male", 1, ns_t, ",cannot add player to teams only event" },
        { sex_s_to_s, "s_to_s", "", 0, ns_p, ",cannot add team to players only event" },
        { sex_s_to_s, "s_to_s", "MALE", 1, ms, "" },
        { sex_s_to_s, "s_to_s", "", 0, ns_e, "" },
        { sex_s_to_d, "s_to_d", "male", 1, fd, ",sex=male,cannot add to female doubles" },
        { sex_s_to_d, "s_to_d", "female", 1, md, ",sex=female,cannot add to male doubles" },
        { sex_s_to_d, "s_to_d", "male", 1, nd_t, ",cannot add player to teams only doubles event" },
        { sex_s_to_d, "s_to_d", "", 0, nd_p, ",cannot add team to players only doubles event" },
        { sex_s_to_d, "s_to_d", "female", 1, xd, "" },
        { sex_s_to_d, "s_to_d", "male", 1, xd, "" },
        { sex_d_to_s, "d_to_s", "male", 1, fs, ",sex=male,cannot add to female singles" },
        { sex_d_to_s, "d_to_s", "male", 1, fd, ",sex=male,cannot add to female doubles" },
        { sex_d_to_s, "d_to_s", "female", 1, ms, ",sex=female,cannot add to male singles" },
        { sex_d_to_s, "d_to_s", "female", 1, md, ",sex=female,cannot add to male doubles" },
        { sex_d_to_s, "d_to_s", "male", 1, ns_t, ",cannot add player to teams only event" },
        { sex_d_to_s, "d_to_s", "", 0, ns_p, ",cannot add team to players only event" },
        { sex_d_to_d, "d_to_d", "male", 1, fd, ",sex=male,cannot add to female doubles" },
        { sex_d_to_d, "d_to_d", "female", 1, md, ",sex=female,cannot add to male doubles" },
        { sex_d_to_d, "d_to_d", "male", 1, nd_t, ",cannot add player to teams only event" },
        { sex_d_to_d, "d_to_d", "", 0, nd_p, ",cannot add team to players only event" },
        { sex_d_to_d, "d_to_d", "male", 1, fs, "" },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.name) + " " + c.sex + " " + c.target.key() + c.target.pte);
        const auto refused = c.check(person_of(c.sex, c.pval), c.target);
        if (*c.text == '\0')
            EXPECT_FALSE(refused) << *refused;
        else
            EXPECT_EQ(refused.value_or("(passes)"), c.text);
    }
}

TEST(AddToEventRules, HowAPairGoesIntoAnotherDoublesEventRowByRow)
{
    const auto team = HowToAdd::as_team, separate = HowToAdd::separate, none = HowToAdd::none;
    const std::tuple<const char*, const char*, const char*, HowToAdd> cases[] = {
        { "nd", "nd", "mm", team },
        { "nd", "nd", "", team },
        { "nd", "xd", "mf", team },
        { "nd", "xd", "fm", team },
        { "nd", "xd", "ff", separate },
        { "nd", "xd", "mm", separate },
        { "nd", "xd", "m", none },
        { "nd", "md", "ff", team },
        { "nd", "fd", "mm", team },
        { "xd", "nd", "mf", team },
        { "xd", "xd", "mf", team },
        { "xd", "md", "mf", separate },
        { "xd", "fd", "mf", separate },
        { "md", "nd", "mm", team },
        { "md", "md", "mm", team },
        { "md", "xd", "mm", separate },
        { "md", "fd", "mm", separate },
        { "fd", "nd", "ff", team },
        { "fd", "fd", "ff", team },
        { "fd", "xd", "ff", separate },
        { "fd", "md", "ff", separate },
        { "ms", "md", "mm", none },
    };
    for (const auto& [source, target, sexes, answer] : cases)
        EXPECT_EQ(sex_d_to_d_how_to_add(source, target, sexes), answer) << source << ">" << target << " " << sexes;
}

TEST(AddToEventRules, TheReportsThreeWordings)
{
    EXPECT_EQ(add_report_text(3, 2), "3 players added ,2 errors detected, would you like to view the errors");
    EXPECT_EQ(add_report_text(0, 4), "No players added,4 errors detected, would you like to view the errors");
    EXPECT_EQ(add_report_text(5, 0), "all players added,5 in total");
    EXPECT_EQ(add_report_title, "add to event errors");
}

TEST(AddToEventRules, SplitGivesTheRealHalvesOfAPair)
{
    EXPECT_EQ(split_entry("Al West / Di Fox", false), (std::vector<std::string> { "Al West", "Di Fox" }));
    EXPECT_EQ(split_entry("Al West/Di Fox(4)", true), (std::vector<std::string> { "Al West", "Di Fox" }));
    EXPECT_EQ(split_entry("Al West/preq preq", false), std::vector<std::string> { "Al West" });
    EXPECT_EQ(split_entry("bye/Qualifier 2", false), std::vector<std::string> {});
}

// ---- On a tournament ----

// Events: the seven keys, two teams-only events and a round-robin.
constexpr const char* events_sql = R"(
    insert into events (eid, eventname, fee, singdobs, sex, pte, drawtype) values
        (1, 'mens singles', '10', 'singles', 'male', 'p', 'ko'),
        (2, 'womens singles', '10', 'singles', 'female', 'p', 'ko'),
        (3, 'open singles', '10', 'singles', 'neutral', 'e', 'ko'),
        (4, 'mens doubles', '8', 'doubles', 'male', 'p', 'ko'),
        (5, 'womens doubles', '8', 'doubles', 'female', 'p', 'ko'),
        (6, 'open doubles', '8', 'doubles', 'neutral', 'p', 'ko'),
        (7, 'mixed doubles', '8', 'doubles', 'mixed', 'p', 'ko'),
        (8, 'team singles', '20', 'singles', 'neutral', 't', 'ko'),
        (9, 'team doubles', '20', 'doubles', 'neutral', 't', 'ko'),
        (10, 'round robin', '5', 'singles', 'neutral', 'p', 'rr');
    insert into players (pid, player, fname, sname, sex, pval, rating, ranking, country, availabilityrestrictions)
    values
        (1, 'Al West', 'Al', 'West', 'male', 1, '1500', '3', 'aus', 'not sat'),
        (2, 'Bo Dee', 'Bo', 'Dee', 'male', 1, '', '', '', ''),
        (3, 'Cy Hill', 'Cy', 'Hill', 'male', 1, '', '', '', ''),
        (4, 'Di Fox', 'Di', 'Fox', 'female', 1, '', '', 'nzl', ''),
        (5, 'Eve Ray', 'Eve', 'Ray', 'female', 1, '', '', '', ''),
        (6, 'Fay Lu', 'Fay', 'Lu', 'female', 1, '', '', '', ''),
        (7, 'Gil Ash', 'Gil', 'Ash', 'male', 1, '', '', '', ''),
        (8, 'Red Team', 'Red Team', '', '', 0, '', '', '', '');
)";

class AddToEventTest : public test::SessionFixture
{
protected:
    void SetUp() override
    {
        open_new_tournament();
        db().exec_script(events_sql);
    }

    EventData event(std::int64_t eid) { return get_data(db(), eid).value(); }

    // One batch without the report: what it wrote and said.
    std::vector<std::string> from_event(std::int64_t source, std::int64_t target, const std::vector<std::string>& lines,
        AsReserve reserve = AsReserve::no)
    {
        AddToEvent batch(session, reserve);
        batch.add_to_event(event(source), event(target), lines);
        return batch.feedback();
    }
    std::vector<std::string> from_register(
        std::int64_t target, const std::vector<std::string>& names, AsReserve reserve = AsReserve::no)
    {
        AddToEvent batch(session, reserve);
        for (const auto& name : names)
            batch.add_player_to_event(name, event(target));
        return batch.feedback();
    }

    // "column=value;" of the first row of the event in the table, for the columns named.
    std::string row(const char* table, std::int64_t eid, std::initializer_list<const char*> columns)
    {
        auto query = db().query(std::string("select * from ") + table + " where eid=?", eid);
        if (!query.step())
            return "<no row>";
        std::string out;
        for (const char* column : columns)
            out += std::string(column) + "=" + query.text(column) + ";";
        return out;
    }
    // "player:reserve" of the entries, in id order.
    std::string entries(std::int64_t eid)
    {
        return db().scalar_text("select group_concat(x, ';') from (select player || ':' || reserve as x "
                                "from evententries where eid=? order by ent_idx)",
            eid);
    }
    // "player/partnername" of the raw rows, in id order.
    std::string raw(std::int64_t eid)
    {
        return db().scalar_text("select group_concat(x, ';') from (select player || '/' || partnername as x "
                                "from rawdoublesentries where eid=? order by rdidx)",
            eid);
    }
};

TEST_F(AddToEventTest, ARegisterPersonIntoSinglesCarriesTheRegistersFields)
{
    db().run("insert into evententries (ent_idx, eid, player) values (41, 3, 'Somebody Else')");
    EXPECT_TRUE(from_register(1, { "al west " }, AsReserve::yes).empty());
    // Ids count on from the largest of the table, whatever its event.
    EXPECT_EQ(row("evententries", 1,
                  { "ent_idx", "player", "playerfname", "playersname", "rating", "ranking", "country", "ar", "psex",
                      "en", "sd", "reserve", "eventfee" }),
        "ent_idx=42;player=Al West;playerfname=Al;playersname=West;rating=1500;ranking=3;country=aus;ar=not sat;"
        "psex=m;en=mens singles;sd=singles;reserve=1;eventfee=;");

    // An empty availability is stored as ".".
    EXPECT_TRUE(from_register(1, { "Bo Dee" }).empty());
    EXPECT_EQ(db().scalar_text("select ar from evententries where player='Bo Dee'"), ".");
}

TEST_F(AddToEventTest, ARegisterPersonIntoDoublesNeedsAPartner)
{
    db().run("insert into rawdoublesentries (rdidx, eid, player, partnername) values (7, 5, 'x', 'y')");
    EXPECT_TRUE(from_register(7, { "Di Fox" }, AsReserve::yes).empty());
    EXPECT_EQ(row("rawdoublesentries", 7,
                  { "rdidx", "player", "playerfname", "playersname", "partnerfname", "partnersname", "partnername",
                      "p1", "p2", "p1sex", "en" }),
        "rdidx=8;player=Di Fox;playerfname=Di;playersname=Fox;partnerfname=preq;partnersname=preq;"
        "partnername=preq preq;p1=free;p2=free;p1sex=female;en=mixed doubles;");
    // The reserve tick is for singles rows only.
    EXPECT_EQ(db().row_count("evententries"), 0);
}

TEST_F(AddToEventTest, RegisterRefusalsUseTheirShortForms)
{
    const auto feedback = from_register(8, { "Al West", "Red Team" });
    EXPECT_EQ(feedback, std::vector<std::string> { "Al West to team singles:cannot add player to a teams only event" });
    EXPECT_EQ(entries(8), "Red Team:0");

    EXPECT_EQ(from_register(3, { "Red Team" }), std::vector<std::string> {});
    EXPECT_EQ(from_register(1, { "Red Team" }),
        std::vector<std::string> { "Red Team to mens singles:cannot add team to a players only event" });
    EXPECT_EQ(
        from_register(2, { "Al West" }), std::vector<std::string> { "Al West to womens singles:sexes dont match" });
    EXPECT_EQ(from_register(4, { "Di Fox" }), std::vector<std::string> { "Di Fox to mens doubles:sexes dont match" });
    EXPECT_EQ(
        from_register(7, { "Nobody Known" }), std::vector<std::string> { " cannot add Nobody Known,player not found" });
    EXPECT_EQ(entries(1) + entries(2) + raw(4) + raw(7), "");
}

TEST_F(AddToEventTest, TheSamePersonTwiceLeavesOneRowAndOneError)
{
    EXPECT_EQ(from_register(1, { "Al West", "AL WEST" }),
        std::vector<std::string> { "Al West already entered into mens singles" });
    EXPECT_EQ(entries(1), "Al West:0");
    // A later batch finds the row in the table.
    EXPECT_EQ(
        from_register(1, { "Al West" }), std::vector<std::string> { "Al West already entered into mens singles" });
    EXPECT_EQ(from_register(6, { "Al West", "Al West" }),
        std::vector<std::string> { "Al West already entered into open doubles" });
    EXPECT_EQ(raw(6), "Al West/preq preq");
}

TEST_F(AddToEventTest, APersonNamedAsPartnerInARawRowCountsAsEntered)
{
    db().run("insert into rawdoublesentries (rdidx, eid, player, partnername) values (1, 4, 'Bo Dee', 'al west')");
    EXPECT_EQ(
        from_register(4, { "Al West" }), std::vector<std::string> { "Al West already entered into mens doubles" });
    EXPECT_EQ(
        from_event(1, 4, { "Al West" }), std::vector<std::string> { "Al West already entered into mens doubles" });
    EXPECT_EQ(from_event(6, 4, { "Al West/Cy Hill" }),
        std::vector<std::string> { "Al West already entered into mens doubles" });
    EXPECT_EQ(raw(4), "Bo Dee/al west;Cy Hill/preq preq");
}

TEST_F(AddToEventTest, EventPairsThatCannotMeetAreRefusedWithOneLine)
{
    const std::tuple<int, int, const char*> cases[] = {
        { 1, 8, "cannot add players only event entries to teams only event" },
        { 9, 6, "cannot add teams only event entries to players only event" },
        { 1, 2, " cannot add male singles to female singles" },
        { 1, 5, " cannot add male singles to female doubles" },
        { 2, 1, " cannot add female singles to male singles" },
        { 2, 4, " cannot add female singles to male doubles" },
        { 4, 2, " cannot add male doubles to female singles" },
        { 4, 5, " cannot add male doubles to female doubles" },
        { 5, 1, " cannot add female doubles to male singles" },
        { 5, 4, " cannot add female doubles to male doubles" },
    };
    for (const auto& [source, target, line] : cases) {
        SCOPED_TRACE(std::to_string(source) + ">" + std::to_string(target));
        EXPECT_EQ(from_event(source, target, { "Al West", "Di Fox/Eve Ray" }), std::vector<std::string> { line });
    }
    EXPECT_EQ(db().row_count("evententries") + db().row_count("rawdoublesentries"), 0);
}

TEST_F(AddToEventTest, EachSourceKindIntoEachTargetKind)
{
    struct Case
    {
        int source;
        int target;
        std::vector<std::string> lines;
        const char* entries; // of the target when singles, raw rows when doubles
        std::vector<std::string> feedback;
    };
    const Case cases[] = {
        // singles to singles, with the sex and type lines
        { 3, 1, { "Al West", "Di Fox" }, "Al West:0", { " cannot add Di Fox,sex=female,cannot add to male singles" } },
        { 3, 2, { "Di Fox", "Al West" }, "Di Fox:0", { " cannot add Al West,sex=male,cannot add to female singles" } },
        { 3, 8, { "Al West", "Red Team" }, "Red Team:0",
            { " cannot add Al West,cannot add player to teams only event" } },
        // singles to doubles: each person partner required
        { 1, 7, { "Al West", "Bo Dee" }, "Al West/preq preq;Bo Dee/preq preq", {} },
        { 3, 4, { "Di Fox", "Cy Hill" }, "Cy Hill/preq preq",
            { " cannot add Di Fox,sex=female,cannot add to male doubles" } },
        { 3, 9, { "Al West", "Red Team" }, "Red Team/preq preq",
            { " cannot add Al West,cannot add player to teams only doubles event" } },
        { 3, 6, { "Red Team" }, "", { " cannot add Red Team,cannot add team to players only doubles event" } },
        // doubles to singles: a pair becomes two entries, each checked
        { 4, 1, { "Al West/Bo Dee" }, "Al West:0;Bo Dee:0", {} },
        { 7, 2, { "Al West/Di Fox" }, "Di Fox:0", { " cannot add Al West,sex=male,cannot add to female singles" } },
        { 6, 3, { "Eve Ray/preq preq", "Fay Lu" }, "Eve Ray:0;Fay Lu:0", {} },
        // doubles to doubles by the table of how to add
        { 6, 7, { "Al West/Di Fox", "Bo Dee/Cy Hill", "Eve Ray/Fay Lu" },
            "Al West/Di Fox;Bo Dee/preq preq;Cy Hill/preq preq;Eve Ray/preq preq;Fay Lu/preq preq", {} },
        { 6, 4, { "Al West/Bo Dee" }, "Al West/Bo Dee", {} },
        { 7, 6, { "Al West/Di Fox" }, "Al West/Di Fox", {} },
        { 4, 7, { "Al West/Bo Dee" }, "Al West/preq preq;Bo Dee/preq preq", {} },
        { 4, 6, { "Al West/Bo Dee" }, "Al West/Bo Dee", {} },
        { 5, 7, { "Di Fox/Eve Ray" }, "Di Fox/preq preq;Eve Ray/preq preq", {} },
        // one of the pair fails its check: the other goes in alone
        { 7, 4, { "Al West/Di Fox" }, "Al West/preq preq",
            { " cannot add Di Fox,sex=female,cannot add to male doubles" } },
        // a raw line with partner required is one person
        { 6, 7, { "Al West/preq preq" }, "Al West/preq preq", {} },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.source) + ">" + std::to_string(c.target) + " " + c.lines.front());
        db().run("delete from evententries");
        db().run("delete from rawdoublesentries");
        EXPECT_EQ(from_event(c.source, c.target, c.lines), c.feedback);
        EXPECT_EQ(event(c.target).sd() == 'd' ? raw(c.target) : entries(c.target), c.entries);
    }
}

TEST_F(AddToEventTest, APairWithOneOrBothAlreadyEntered)
{
    db().run(R"(insert into rawdoublesentries (rdidx, eid, player, partnername) values
        (1, 6, 'Al West', 'preq preq'), (2, 6, 'Bo Dee', 'Eve Ray'))");
    EXPECT_EQ(from_event(7, 6, { "Al West/Di Fox" }),
        std::vector<std::string> { "Al West already entered into open doubles" });
    EXPECT_EQ(from_event(7, 6, { "Bo Dee/Eve Ray" }),
        (std::vector<std::string> {
            "Bo Dee already entered into open doubles", "Eve Ray already entered into open doubles" }));
    EXPECT_EQ(raw(6), "Al West/preq preq;Bo Dee/Eve Ray;Di Fox/preq preq");
}

TEST_F(AddToEventTest, NamesFromARoundRobinLoseTheirBrackets)
{
    EXPECT_TRUE(from_event(10, 3, { "Al West(3)", "Di Fox (0)" }).empty());
    EXPECT_EQ(entries(3), "Al West:0;Di Fox:0");
}

TEST_F(AddToEventTest, TheBatchReportsAndWritesTheFeedbackFile)
{
    AddRequest request;
    request.source = AddSource::players;
    request.lines = { "Al West", "Di Fox", "Bo Dee", "Al West" };
    EXPECT_FALSE(add_to_event1(session, request).ran);
    EXPECT_EQ(talk.last_message(), "choose target event");

    request.target = 1;
    talk.answers.push_back(Answer::Yes);
    const auto report = add_to_event1(session, request);
    EXPECT_EQ(report.added, 2);
    EXPECT_EQ(report.errors, 2);
    ASSERT_GE(talk.said.size(), 2u);
    const auto& asked = talk.said[talk.said.size() - 2];
    EXPECT_EQ(asked.kind, "ask");
    EXPECT_EQ(asked.text, "2 players added ,2 errors detected, would you like to view the errors");
    EXPECT_EQ(asked.title, "add to event errors");
    const auto file = session.dirs().working / "temp.txt";
    EXPECT_EQ(talk.said.back().kind, "text");
    EXPECT_EQ(talk.said.back().text, file.string());
    EXPECT_EQ(test::read_crlf_lines(file),
        (std::vector<std::string> {
            "Di Fox to mens singles:sexes dont match", "Al West already entered into mens singles" }));
    EXPECT_EQ(refreshes(Lists::entries), 1);

    // Only errors, and "No" leaves the file unshown.
    talk.clear();
    request.lines = { "Al West" };
    add_to_event1(session, request);
    EXPECT_EQ(talk.said.back().kind, "ask");
    EXPECT_EQ(talk.said.back().text, "No players added,1 errors detected, would you like to view the errors");

    // No errors: a plain statement under the same title.
    talk.clear();
    request.lines = { "Cy Hill", "Gil Ash" };
    add_to_event1(session, request);
    EXPECT_EQ(talk.said.back().kind, "message");
    EXPECT_EQ(talk.said.back().text, "all players added,2 in total");
    EXPECT_EQ(talk.said.back().title, "add to event errors");
    EXPECT_TRUE(test::read_crlf_lines(file).empty());
    EXPECT_EQ(entries(1), "Al West:0;Bo Dee:0;Cy Hill:0;Gil Ash:0");
}

TEST_F(AddToEventTest, TheBatchFromAnEventAndFromASplitPair)
{
    AddRequest request;
    request.source = AddSource::events;
    request.source_eid = 6;
    request.target = 7;
    request.lines = { "Al West/Di Fox", "Bo Dee/Cy Hill" };
    const auto report = add_to_event1(session, request);
    EXPECT_EQ(report.added, 4);
    EXPECT_EQ(report.errors, 0);
    EXPECT_EQ(talk.last_message(), "all players added,4 in total");
    EXPECT_EQ(raw(7), "Al West/Di Fox;Bo Dee/preq preq;Cy Hill/preq preq");

    request.source = AddSource::split;
    request.target = 2;
    request.lines = {};
    talk.clear();
    EXPECT_FALSE(add_to_event1(session, request).ran);
    EXPECT_EQ(talk.last_message(), "select player");
    request.lines = split_entry("Eve Ray/Fay Lu", false);
    request.reserve = AsReserve::yes;
    EXPECT_EQ(add_to_event1(session, request).added, 2);
    EXPECT_EQ(entries(2), "Eve Ray:1;Fay Lu:1");

    request.source = AddSource::folders;
    request.lines = {};
    talk.clear();
    add_to_event1(session, request);
    EXPECT_EQ(talk.last_message(), "select players");
}

// The draws: Al and Gil in singles; Bo and Cy in men's doubles; Di, Bo, Eve and Al in the mixed.
constexpr const char* schedule_sql = R"(
    insert into schedule (sid, eid, rid, singdobs, evtsex, mtttt, mtsex, mbttt, mbsex) values
        (1, 1, 1, 'singles', 'male', 'Al West', 'm', 'bye', ''),
        (2, 1, 1, 'singles', 'male', 'Gil Ash', 'm', 'Qualifier 1', ''),
        (3, 4, 1, 'doubles', 'male', 'Bo Dee/Cy Hill', 'mm', 'Wildcard 1', ''),
        (4, 7, 1, 'doubles', 'mixed', 'Di Fox / Bo Dee', 'fm', 'Eve Ray/Al West', 'fm'),
        (5, 7, 2, 'doubles', 'mixed', 'Di Fox / Bo Dee', 'fm', '', '');
)";

std::vector<std::string> texts(const std::vector<ListLine>& lines)
{
    std::vector<std::string> out;
    for (const auto& line : lines)
        out.push_back(line.text);
    return out;
}

TEST_F(AddToEventTest, TheElevenSetsReadTheDraws)
{
    db().exec_script(schedule_sql);
    using Names = std::vector<std::string>;
    const std::pair<const char*, Names> cases[] = {
        { "all players", { "Al West", "Bo Dee", "Cy Hill", "Di Fox", "Eve Ray", "Fay Lu", "Gil Ash", "Red Team" } },
        { "all players NOT in a draw", { "Fay Lu", "Red Team" } },
        { "all players NOT in a SINGLES draw", { "Bo Dee", "Cy Hill", "Di Fox", "Eve Ray", "Fay Lu", "Red Team" } },
        { "all players NOT in a DOUBLES (including mixed) draw", { "Fay Lu", "Gil Ash", "Red Team" } },
        { "all players NOT in a DOUBLES (excluding mixed) draw",
            { "Al West", "Di Fox", "Eve Ray", "Fay Lu", "Gil Ash", "Red Team" } },
        { "all players NOT in a MIXED draw", { "Cy Hill", "Fay Lu", "Gil Ash", "Red Team" } },
        { "all players in an draw", { "Al West", "Bo Dee", "Cy Hill", "Di Fox", "Eve Ray", "Gil Ash" } },
        { "all players in a SINGLES draw", { "Al West", "Gil Ash" } },
        { "all players in a DOUBLES (including mixed) draw", { "Al West", "Bo Dee", "Cy Hill", "Di Fox", "Eve Ray" } },
        { "all players in a DOUBLES (excluding mixed) draw", { "Bo Dee", "Cy Hill" } },
        { "all players in a MIXED draw", { "Al West", "Bo Dee", "Di Fox", "Eve Ray" } },
    };
    ASSERT_EQ(player_sets().size(), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(player_sets()[i], cases[i].first);
        EXPECT_EQ(texts(players_of_set(db(), cases[i].first)), cases[i].second) << cases[i].first;
    }
    EXPECT_TRUE(players_of_set(db(), "no such set").empty());
}

TEST_F(AddToEventTest, BreakingUpTheScheduleKeepsOnePersonOnceWithTheSexOfTheSide)
{
    db().exec_script(schedule_sql);
    break_up_schedule(db(), ScheduleRows::all);
    EXPECT_EQ(db().scalar_text("select group_concat(x, ';') from (select nm || ':' || sx || flag as x "
                               "from alist9_nm_sx order by nm)"),
        "Al West:m0;Bo Dee:m0;Cy Hill:m0;Di Fox:f0;Eve Ray:f0;Gil Ash:m0");
    break_up_schedule(db(), ScheduleRows::mixed);
    EXPECT_EQ(db().row_count("alist9_nm_sx"), 4);
}

TEST_F(AddToEventTest, CriteriaOfAnEventWithAndWithoutADraw)
{
    EXPECT_EQ(event_criteria(db(), 1), (std::vector<std::string> { "all players entered", "all reserves" }));
    db().exec_script(R"(
        update events set drawdone=1 where eid=1;
        insert into evententries (ent_idx, eid, player, reserve) values
            (1, 1, 'Al West', 0), (2, 1, 'Gil Ash', 0), (3, 1, 'Cy Hill', 0), (4, 1, 'Bo Dee', 1);
        insert into schedule (sid, eid, "match", rid, rname, mtttt, mbttt, mtseeding, mbseeding, mwttt) values
            (1, 1, 1, 1, 'semi final', 'Al West', 'bye', '1', '', 'Al West'),
            (2, 1, 2, 1, 'semi final', 'Gil Ash', 'Cy Hill', 'wc', 'q', 'Cy Hill'),
            (3, 1, 3, 2, 'final', 'Al West', 'Cy Hill', '', '', '');
    )");
    EXPECT_EQ(event_criteria(db(), 1),
        (std::vector<std::string> { "all players entered", "all reserves", "all players in draw", "all seeds",
            "qualifiers", "wildcards", "lost first round", "semi final", "final" }));
    EXPECT_EQ(criterion_lines(db(), 1, "all players entered"),
        (std::vector<std::string> { "Al West", "Bo Dee", "Cy Hill", "Gil Ash" }));
    EXPECT_EQ(criterion_lines(db(), 1, "all reserves"), std::vector<std::string> { "Bo Dee" });
    EXPECT_EQ(criterion_lines(db(), 1, "all players in draw"),
        (std::vector<std::string> { "Al West", "Gil Ash", "Cy Hill" }));
    EXPECT_EQ(criterion_lines(db(), 1, "all seeds"), std::vector<std::string> { "Al West" });
    EXPECT_EQ(criterion_lines(db(), 1, "qualifiers"), std::vector<std::string> { "Cy Hill" });
    EXPECT_EQ(criterion_lines(db(), 1, "wildcards"), std::vector<std::string> { "Gil Ash" });
    EXPECT_EQ(criterion_lines(db(), 1, "lost first round"), std::vector<std::string> { "Gil Ash" });
    EXPECT_EQ(criterion_lines(db(), 1, "final"), (std::vector<std::string> { "Al West", "Cy Hill" }));
}

TEST_F(AddToEventTest, ARoundRobinListsItsGroupByPoints)
{
    db().exec_script(R"(
        update events set drawdone=1 where eid=10;
        insert into schedule (sid, eid, "match", rid, rname, mtttt, mbttt, points1, points2) values
            (1, 10, 1, 1, 'group', 'Al West', 'Bo Dee', '1', '3'),
            (2, 10, 2, 1, 'group', 'Al West', 'Cy Hill', '2', '0'),
            (3, 10, 3, 1, 'group', 'Bo Dee', 'Cy Hill', '1.5', '2');
    )");
    EXPECT_EQ(
        loadallplayers_rr_indraw(db(), 10), (std::vector<std::string> { "Bo Dee(4.5)", "Al West(3)", "Cy Hill(2)" }));
    EXPECT_EQ(criterion_lines(db(), 10, "all players in draw"), loadallplayers_rr_indraw(db(), 10));
    // The names go into another event without their brackets.
    AddToEvent batch(session, AsReserve::no);
    batch.add_to_event(event(10), event(3), criterion_lines(db(), 10, "all players in draw"));
    EXPECT_EQ(entries(3), "Bo Dee:0;Al West:0;Cy Hill:0");
}

} // namespace
} // namespace qv
