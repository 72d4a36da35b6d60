#include "core/file_save.h"
#include "entries/player_reports.h"
#include "entries/players.h"
#include "support/file_bytes.h"
#include "support/refusal_check.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

namespace fs = std::filesystem;

PlayerRecord person(std::string fname, std::string sname)
{
    PlayerRecord r;
    r.fname = std::move(fname);
    r.sname = std::move(sname);
    r.sex = "male";
    return r;
}

PlayerRecord team(std::string name)
{
    PlayerRecord r;
    r.kind = PlayerKind::team;
    r.team_name = std::move(name);
    return r;
}

using test::read_cp1252;

class PlayersTest : public test::TournamentFixture
{
protected:
    std::int64_t players() { return db().row_count("players"); }
    std::int64_t add(const PlayerRecord& r)
    {
        const auto saved = add_player(session, r);
        EXPECT_TRUE(saved.ok()) << talk.last_message();
        return saved.pid;
    }
    std::string column(std::int64_t pid, const std::string& name)
    {
        auto row = db().query("select * from players where pid=?", pid);
        return row.step() ? row.text(name) : "<gone>";
    }
};

// ---- validate ----

struct ValidateCase
{
    PlayerRecord record;
    PlayerForm form;
    std::string message; // empty: passes
    PlayerField field = PlayerField::fname;
    int position = -1;
};

TEST_F(PlayersTest, ValidateRefusesInOrderWithTheFieldAndCharacter)
{
    auto with_country = [](PlayerRecord r, std::string code) {
        r.country = std::move(code);
        return r;
    };
    using F = PlayerField;
    const auto add = PlayerForm::add_new;
    const auto edit = PlayerForm::edit;
    const std::vector<ValidateCase> cases {
        { person("", "Smith"), add, "value required", F::fname },
        { person("Bob", "  "), add, "value required", F::sname },
        { person("Bo'b", ""), add, "value required", F::sname }, // both required before any class test
        { person("Bo'b", "Smith"), add, "illegal character", F::fname, 2 },
        { person("Bob", "Sm^ith"), add, "illegal character", F::sname, 2 },
        { person("¿Bob", "Smith"), add, "illegal character", F::fname, 0 },
        { person("Bob", "O¿Ne\"il"), add, "illegal character", F::sname, 1 },
        { person("Bob", "a/b"), add, "illegal character", F::sname, 1 },
        { person("bye", "Smith"), add, "first name cannot equal 'bye'", F::fname },
        { person("Bob", "BYE"), add, "second name cannot equal 'bye'", F::sname },
        { person("Byebye", "Smith"), add, "" },
        { person("Bye Bye", "Smith"), add, "" },
        { person("Jowildcardy", "Smith"), add, "first name cannot contain the word 'wildcard'", F::fname },
        { person("Bob", "WildCard"), add, "second name cannot contain the word 'wildcard'", F::sname },
        { person("Bob", "The Qualifier 3"), add, "second name cannot contain the word 'qualifier'", F::sname },
        { person("preq", "preq"), add, "" },
        { person("Preq", "Smith"), edit, "first name cannot equal 'preq' ( partner required indicator )", F::fname },
        { person("Bob", "preq"), edit, "second name cannot equal 'preq' ( partner required indicator )", F::sname },
        { person("Preqs", "Smith"), edit, "" },
        { person("Partner", " REQUIRED"), add, "player cannot have name of 'partner required'", F::fname },
        { person("Partnerrequired", "X"), add, "" },
        { team(""), add, "value required", F::team_name },
        { team("A&B"), add, "illegal character", F::team_name, 1 },
        { team("Bye"), add, "teamname name cannot equal 'bye'", F::team_name },
        { team("wildcards united"), add, "teamname name cannot contain the word 'wildcard'", F::team_name },
        { team("preq"), add, "" },
        { team("preq"), edit, "teamname name cannot equal 'preq' ( partner required indicator )", F::team_name },
        { team("Partner Required"), add, "team cannot have name of 'partner required'", F::team_name },
        { team("partnerREQUIRED"), add, "team cannot have name of 'partner required'", F::team_name },
        { with_country(person("Bob", "Smith"), "uk-1"), add, "from code can be alphanumeric only", F::from_code, 2 },
        { with_country(person("Bob", "Smith"), "UK1"), add, "" },
        { with_country(person("Bo%b", "Smith"), "u k"), add, "illegal character", F::fname, 2 },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.record.fname + "|" + c.record.sname + "|" + c.record.team_name + "|" + c.record.country);
        test::expect_refusal(validate_player(db(), c.record, c.form), c.message, c.field, c.position);
    }
}

TEST_F(PlayersTest, DuplicatesAreBlindToCaseAndBlanksAndExcludeTheEditedRow)
{
    const auto bob = add(person("Bob", "Jones"));
    const auto aces = add(team("The aces"));

    for (const auto& [record, message] : std::vector<std::pair<PlayerRecord, std::string>> {
             { person(" bOB ", "JONES  "), "already have a player with name=Bob Jones" },
             { team(" THE ACES"), "already have a team with name=The aces" },
             { team("bob jones"), "already have a team with name=Bob jones" },
         }) {
        talk.clear();
        EXPECT_FALSE(add_player(session, record).ok());
        EXPECT_EQ(talk.messages(), std::vector<std::string> { message });
    }
    EXPECT_EQ(players(), 2);

    // An imported row in lower case is the same key.
    db().run("insert into players (pid, fname, sname, player, pval) values (9, 'ann', 'lee', ' ann lee', 1)");
    EXPECT_FALSE(add_player(session, person("Ann", "Lee")).ok());

    EXPECT_FALSE(validate_player(db(), person("bob", "jones"), PlayerForm::edit, bob)) << "its own name";
    const auto clash = validate_player(db(), person("bob", "jones"), PlayerForm::edit, aces);
    ASSERT_TRUE(clash);
    EXPECT_EQ(clash->refusal.message, "already have a player with name=Bob Jones");
}

// ---- adding ----

TEST_F(PlayersTest, AddStoresTheRowStampedWithFirstCappedNames)
{
    db().run("insert into players (pid, player, fname, sname) values (7, 'Old Row', 'Old', 'Row')");
    auto r = person("  éMILE ", "van DYKE");
    r.sex = "female";
    r.phone = "01 23";
    r.mobile = "077";
    r.email = "e@x.org";
    r.dob = "1 jan 1990";
    r.password = "pw";
    r.address = "1 high st";
    r.city = "york";
    r.state = "ny";
    r.postcode = "y01";
    r.country = "fra";
    r.club = "tc";
    r.ranking = "3";
    r.rating = "4.5";
    r.availabilityrestrictions = "not sunday";
    r.notes = "n";
    r.results = "res";
    r.message = "msg";
    r.tsd = "t-shirt xl";
    std::tm when {};
    when.tm_year = 2007 - 1900;
    when.tm_mon = 0;
    when.tm_mday = 5;
    when.tm_hour = 14;
    when.tm_min = 3;
    when.tm_sec = 9;

    const auto saved = add_player(session, r, when);

    ASSERT_TRUE(saved.ok());
    EXPECT_EQ(saved.pid, 8);
    const auto row = load_player(db(), 8);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->fname, "Émile");
    EXPECT_EQ(row->sname, "Van dyke");
    EXPECT_EQ(row->player, "Émile Van dyke");
    EXPECT_EQ(row->timestamp, "05-Jan-2007 14:03:09");
    EXPECT_FALSE(row->downloaded);
    for (const auto& [name, value] : std::vector<std::pair<std::string, std::string>> { { "pval", "1" },
             { "sex", "female" }, { "phone", "01 23" }, { "mobile", "077" }, { "email", "e@x.org" },
             { "dob", "1 jan 1990" }, { "password", "pw" }, { "address", "1 high st" }, { "city", "york" },
             { "state", "ny" }, { "postcode", "y01" }, { "country", "fra" }, { "club", "tc" }, { "ranking", "3" },
             { "rating", "4.5" }, { "availabilityrestrictions", "not sunday" }, { "notes", "n" }, { "results", "res" },
             { "message", "msg" }, { "tsd", "t-shirt xl" }, { "paid_state", "" } })
        EXPECT_EQ(column(8, name), value) << name;
    EXPECT_EQ(refreshes(Lists::players), 1);
    EXPECT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "beep");
}

TEST_F(PlayersTest, ATeamKeepsItsNameInFirstNameAndBeepsOnlyWhenTicked)
{
    session.settings().set_disk_var("players_beep_ok", "0");
    talk.clear();
    const auto pid = add(team(" the ACES "));
    EXPECT_EQ(column(pid, "fname"), "The aces");
    EXPECT_EQ(column(pid, "sname"), "");
    EXPECT_EQ(column(pid, "player"), "The aces");
    EXPECT_EQ(column(pid, "pval"), "0");
    EXPECT_TRUE(talk.said.empty());
    EXPECT_EQ(load_player(db(), pid)->team_name, "The aces");
}

TEST_F(PlayersTest, RefusedInputChangesNothing)
{
    add(person("Bob", "Jones"));
    host.calls.clear();
    for (const auto& bad :
        { person("O'Hara", "Kim"), person("Kim", "A^B"), person("Kim¿", "Lee"), person("Kim", "Le\"e"), team("x*y") }) {
        talk.clear();
        EXPECT_FALSE(add_player(session, bad).ok());
        EXPECT_EQ(talk.messages(), std::vector<std::string> { "illegal character" });
    }
    EXPECT_EQ(players(), 1);
    EXPECT_TRUE(host.calls.empty()) << "no list was told to refresh";
}

// ---- editing ----

TEST_F(PlayersTest, EditWritesAllFieldsAndRefreshesOnlyWhenTheNameChanged)
{
    const auto pid = add(person("Bob", "Jones"));
    const auto stamp = column(pid, "timestamp");
    host.calls.clear();
    auto r = *load_player(db(), pid);
    r.email = "bob@x.org";
    r.notes = "left handed";
    ASSERT_TRUE(save_player(session, pid, r, PlayerForm::edit).ok());
    EXPECT_EQ(column(pid, "email"), "bob@x.org");
    EXPECT_EQ(column(pid, "notes"), "left handed");
    EXPECT_EQ(column(pid, "timestamp"), stamp);
    EXPECT_TRUE(host.calls.empty());

    r.fname = "robert";
    r.kind = PlayerKind::player;
    ASSERT_TRUE(save_player(session, pid, r, PlayerForm::edit).ok());
    EXPECT_EQ(column(pid, "player"), "Robert Jones");
    EXPECT_EQ(host.calls, std::vector<std::string> { "refresh " + std::to_string(int(Lists::players)) });

    r.fname = "preq";
    talk.clear();
    EXPECT_FALSE(save_player(session, pid, r, PlayerForm::edit).ok());
    EXPECT_EQ(talk.last_message(), "first name cannot equal 'preq' ( partner required indicator )");
}

TEST_F(PlayersTest, AnyEntryLocksNameSexAndType)
{
    struct Entry
    {
        const char* sql;
        const char* what;
    };
    for (const auto& entry : { Entry { "insert into evententries (eid, player) values (1, 'ann lee')", "player" },
             Entry { "insert into evententries (eid, p1name, player) values (1, ' ANN LEE', 'x/y')", "p1name" },
             Entry { "insert into evententries (eid, partner) values (1, 'ann lee')", "partner" },
             Entry { "insert into rawdoublesentries (eid, player, partnername) values (2, 'Ann Lee', 'preq preq')",
                 "raw player" },
             Entry { "insert into rawdoublesentries (eid, player, partnername) values (2, 'x', 'ann lee ')",
                 "raw partner" } }) {
        SCOPED_TRACE(entry.what);
        db().run("delete from evententries");
        db().run("delete from rawdoublesentries");
        EXPECT_FALSE(is_in_event(db(), "Ann Lee"));
        db().run(entry.sql);
        EXPECT_TRUE(is_in_event(db(), "Ann Lee"));
    }
}

TEST_F(PlayersTest, ARawDoublesOnlyPlayerIsLockedButOtherFieldsSave)
{
    // An imported row, not first-capped: a save of other fields must not respell it.
    db().run(R"(insert into players (pid, fname, sname, player, pval, sex)
        values (4, 'ann', 'mcLee', 'ann mcLee', 1, 'female'))");
    db().run("insert into rawdoublesentries (eid, player, partnername) values (2, 'ann mclee', 'preq preq')");
    const auto stored = *load_player(db(), 4);

    auto renamed = stored;
    renamed.sname = "Lee";
    auto resexed = stored;
    resexed.sex = "male";
    auto teamed = stored;
    teamed.kind = PlayerKind::team;
    teamed.team_name = "ann mcLee";
    for (const auto& change : { renamed, resexed, teamed }) {
        talk.clear();
        EXPECT_FALSE(save_player(session, 4, change, PlayerForm::edit).ok());
        EXPECT_EQ(talk.messages(), std::vector<std::string> { std::string(player_locked_text) });
    }
    EXPECT_EQ(column(4, "player"), "ann mcLee");
    EXPECT_EQ(column(4, "sex"), "female");

    auto edited = stored;
    edited.rating = "9";
    ASSERT_TRUE(save_player(session, 4, edited, PlayerForm::edit).ok()) << talk.last_message();
    EXPECT_EQ(column(4, "rating"), "9");
    EXPECT_EQ(column(4, "fname"), "ann");
    EXPECT_EQ(column(4, "player"), "ann mcLee");

    talk.clear();
    EXPECT_FALSE(delete_player(session, 4, PlayerPrompt::none));
    EXPECT_EQ(talk.messages(),
        std::vector<std::string> { "ann mcLee is entered into 1 or more events, cannot delete, remove entry first" });
    EXPECT_EQ(players(), 1);
}

// ---- deleting ----

TEST_F(PlayersTest, DeleteAsksUnlessNoPrompt)
{
    const auto a = add(person("Al", "Ant"));
    const auto b = add(person("Bo", "Bee"));
    talk.clear();

    talk.answers = { Answer::No };
    EXPECT_FALSE(delete_player(session, a, PlayerPrompt::ask));
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "ask");
    EXPECT_EQ(talk.said[0].text, "Confirm player delete");
    EXPECT_EQ(talk.said[0].title, "Confirm");
    EXPECT_EQ(players(), 2);

    talk.answers = { Answer::Yes };
    EXPECT_TRUE(delete_player(session, a, PlayerPrompt::ask));
    talk.clear();
    EXPECT_TRUE(delete_player(session, b, PlayerPrompt::none));
    EXPECT_TRUE(talk.said.empty());
    EXPECT_EQ(players(), 0);
}

class DeleteBatchTest : public PlayersTest
{
protected:
    std::int64_t ann = 0, bob = 0, cy = 0, dee = 0;
    void SetUp() override
    {
        PlayersTest::SetUp();
        ann = add(person("Ann", "Ash"));
        bob = add(person("Bob", "Birch"));
        cy = add(person("Cy", "Cedar"));
        dee = add(person("Dee", "Dogwood"));
        talk.clear();
    }
    void enter_ann_and_cy()
    {
        db().run("insert into evententries (eid, player, p1name, partner) values (1, 'x/ann ash', 'x', 'Ann Ash')");
        db().run("insert into rawdoublesentries (eid, player, partnername) values (2, 'zed', 'cy cedar')");
    }
    fs::path feedback() const { return session.dirs().working / "temp.txt"; }
};

TEST_F(DeleteBatchTest, SomeDeletedSomeEnteredOffersTheErrors)
{
    enter_ann_and_cy();
    talk.answers = { Answer::Yes, Answer::Yes, Answer::Yes };
    EXPECT_EQ(delete_players(session, { ann, bob, cy, dee }), 2);

    EXPECT_EQ(players(), 2);
    EXPECT_TRUE(load_player(db(), ann));
    EXPECT_TRUE(load_player(db(), cy));
    EXPECT_EQ(read_cp1252(feedback()),
        "Ann Ash is entered into 1 or more events, cannot delete, remove entry first\r\n"
        "Cy Cedar is entered into 1 or more events, cannot delete, remove entry first\r\n");
    ASSERT_EQ(talk.said.size(), 4u);
    EXPECT_EQ(talk.said[0].text, "Confirm player delete");
    EXPECT_EQ(talk.said[1].text, "Confirm player delete");
    EXPECT_EQ(talk.said[2].kind, "ask");
    EXPECT_EQ(talk.said[2].text, "2 records deleted,2 errors,view the errors?");
    EXPECT_EQ(talk.said[2].title, "delete errors");
    EXPECT_EQ(talk.said[3].kind, "text");
    EXPECT_EQ(fs::path(talk.said[3].text), feedback());
}

TEST_F(DeleteBatchTest, AllEnteredAndNoneEnteredHaveTheirOwnWords)
{
    enter_ann_and_cy();
    EXPECT_EQ(delete_players(session, { ann, cy }), 0);
    ASSERT_EQ(talk.said.size(), 1u) << "no confirmation for rows that cannot go; the view declined";
    EXPECT_EQ(talk.said[0].text, "no players deleted,2 errors detected,all players,view the errors?");
    EXPECT_EQ(talk.said[0].title, "delete errors");

    talk.clear();
    talk.answers = { Answer::Yes, Answer::No, Answer::No };
    EXPECT_EQ(delete_players(session, { bob, dee, ann }), 1);
    EXPECT_EQ(talk.messages(), std::vector<std::string> {});
    EXPECT_EQ(talk.said.back().text, "1 records deleted,1 errors,view the errors?");
    EXPECT_TRUE(load_player(db(), dee)) << "declined at its prompt";

    talk.clear();
    EXPECT_EQ(delete_players(session, { dee }, PlayerPrompt::none), 1);
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "1 players deleted" });
    EXPECT_EQ(read_cp1252(feedback()), "");
}

// ---- search ----

TEST_F(PlayersTest, SearchFindsPartsOfNamesAndRefusesQuotes)
{
    const auto jo = add(person("Jo", "Smith"));
    const auto al = add(person("Al", "Johnson"));
    add(person("Cy", "Fox"));
    talk.clear();

    EXPECT_EQ(search_players(session, " JO").pids, (std::vector<std::int64_t> { al, jo }));
    EXPECT_TRUE(talk.said.empty());

    const auto quoted = search_players(session, "o'b");
    ASSERT_TRUE(quoted.refused);
    EXPECT_EQ(quoted.refused->field, PlayerField::search);
    EXPECT_EQ(quoted.refused->refusal.position, 1);
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "illegal character" });

    talk.clear();
    EXPECT_TRUE(search_players(session, "zz%").pids.empty());
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "player not found" });
}

// ---- reports ----

TEST_F(PlayersTest, PlayersWithTheirEventsMarksRawDoublesAndLegend)
{
    add(person("Ann", "Ash"));
    add(person("Bob", "Birch"));
    add(person("Cy", "Cedar"));
    add(person("Dee", "Dogwood"));
    db().exec_script(R"(
        insert into events (eid, eventname) values (1, 'mixed doubles'), (2, 'mens singles'), (3, 'open doubles');
        insert into evententries (ent_idx, eid, player) values (1, 2, 'bob birch');
        insert into evententries (ent_idx, eid, player, p1name, partner) values (2, 1, 'ann ash/bob birch', 'ann ash', 'bob birch');
        insert into rawdoublesentries (rdidx, eid, player, partnername) values (1, 3, 'Cy Cedar', ' ANN ASH'), (2, 3, 'x', 'preq preq');
        update players set evt_str='stale,';
    )");
    talk.clear();

    const auto file = report_players_events(session);

    ASSERT_TRUE(file);
    EXPECT_EQ(*file, session.dirs().working / "players_events.txt");
    EXPECT_EQ(read_cp1252(*file),
        "players ( event ids they are in,r=raw doubles)\r\n"
        "Ann Ash (1,r3)\r\n"
        "Bob Birch (1,2)\r\n"
        "Cy Cedar (r3)\r\n"
        "Dee Dogwood\r\n"
        "\r\n"
        "events\r\n"
        "1=mixed doubles\r\n"
        "2=mens singles\r\n"
        "3=open doubles\r\n");
    EXPECT_EQ(db().scalar_text("select evt_str from players where player='Ann Ash'"), "1,r3");
    EXPECT_EQ(db().scalar_text("select evt_str from players where player='Dee Dogwood'"), "");
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "beep") << "on_file_save 0";
}

TEST_F(PlayersTest, RatingReportAndDetailsExportAreWindows1252)
{
    auto emile = person("Émile", "Zola");
    emile.rating = "5.5";
    emile.ranking = "12";
    emile.country = "fra";
    const auto e = add(emile);
    auto aces = team("Aces");
    aces.sex = "";
    add(aces);
    db().run("update players set player_bill=12.5, amount_player_has_paid=10 where pid=?", e);

    const auto ratings = report_players_rating_ranking(session);
    ASSERT_TRUE(ratings);
    EXPECT_EQ(
        test::read_bytes(*ratings), "players rating,ranking,from,\r\nAces ,,,\r\n\xC9mile Zola (male) 5.5,12,fra,\r\n");

    const auto details = export_players_text(session, { e });
    ASSERT_TRUE(details);
    const auto text = read_cp1252(*details);
    EXPECT_EQ(text.substr(0, text.find("entry_date")),
        "player: Émile Zola\r\nemail: \r\npassword: \r\ndob: \r\naddress: \r\ncity: \r\nstate: \r\npostcode: \r\n"
        "country: fra\r\nphone: \r\nmobile: \r\nsex: male\r\nrating: 5.5\r\nranking: 12\r\nresults: \r\nclub: \r\n"
        "availability_restrictions: \r\n");
    EXPECT_NE(text.find("tournament_specfic_data: \r\nmessage: \r\nnotes: \r\nplayer_bill: 12.5\r\n"
                        "amount_player_has_paid: 10\r\namount_player_must_pay: 0\r\npaid_state: \r\n"),
        std::string::npos)
        << text;

    talk.clear();
    EXPECT_FALSE(export_players_text(session, {}));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "select players to export" });
}

TEST_F(PlayersTest, OnFileSaveFollowsTheSetting)
{
    const auto file = session.dirs().working / "x.txt";
    ASSERT_TRUE(write_text_file(file, { "abc" }));
    struct Case
    {
        const char* setting;
        Answer answer;
        std::vector<std::string> kinds;
        std::string first_text;
    };
    for (const auto& c : { Case { "0", Answer::No, { "beep" }, "" }, Case { "1", Answer::No, { "message" }, "ok" },
             Case { "2", Answer::No, { "ask" }, "file size=5 Bytes,view?" },
             Case { "2", Answer::Yes, { "ask", "text" }, "file size=5 Bytes,view?" },
             Case { "3", Answer::No, { "message" }, file.string() } }) {
        SCOPED_TRACE(c.setting);
        session.settings().set_disk_var("on_file_save", c.setting);
        talk.clear();
        talk.answers = { c.answer };
        on_file_save(session, file);
        std::vector<std::string> kinds;
        for (const auto& s : talk.said)
            kinds.push_back(s.kind);
        EXPECT_EQ(kinds, c.kinds);
        EXPECT_EQ(talk.said[0].text, c.first_text);
        if (c.kinds[0] == "ask") {
            EXPECT_EQ(talk.said[0].title, "File saved");
        }
    }
}

} // namespace
} // namespace qv
