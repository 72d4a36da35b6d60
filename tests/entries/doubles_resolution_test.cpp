#include "core/session.h"
#include "entries/doubles_resolution.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

class DoublesResolutionTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        db->run(R"(insert into events (eid, eventname, sex, singdobs, pte, fee) values
            (1, 'mixed doubles', 'mixed', 'doubles', 'p', '12.50'), (2, 'mens doubles', 'male', 'doubles', 'p', ''))");
        auto person = db->query(R"(insert into players (pid, player, fname, sname, sex, pval, availabilityrestrictions)
            values (?, ?, ?, ?, ?, '1', ?))");
        const struct
        {
            const char *first, *second, *sex, *ar;
        } people[] = { { "ann", "ash", "female", "" }, { "bob", "birch", "male", "not before 10:00" },
            { "cat", "cole", "female", "" }, { "dan", "dale", "male", "" }, { "eve", "elm", "female", "" } };
        int pid = 0;
        for (const auto& p : people) {
            person.bind_all(++pid, std::string(p.first) + " " + p.second, p.first, p.second, p.sex, p.ar);
            person.step();
            person.reset();
        }
        talk.clear();
    }

    void raw(std::int64_t rdidx, std::int64_t eid, const std::string& a, const std::string& a_sex, const std::string& b,
        const std::string& b_sex)
    {
        const auto space_a = a.find(' '), space_b = b.find(' ');
        db->run(R"(insert into rawdoublesentries (rdidx, eid, player, playerfname, playersname, p1sex, partnername,
            partnerfname, partnersname, p2sex, p1, p2, en) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'free', 'free', ''))",
            rdidx, eid, a, a.substr(0, space_a), a.substr(space_a + 1), a_sex, b, b.substr(0, space_b),
            b.substr(space_b + 1), b_sex);
    }
    std::string states(std::int64_t eid)
    {
        return db->scalar_text(
            "select group_concat(p1 || '-' || p2, ' ') from (select p1, p2 from rawdoublesentries where eid=? order "
            "by rdidx)",
            eid);
    }
    std::vector<std::string> teams(std::int64_t eid)
    {
        std::vector<std::string> out;
        for (const auto& team : load_resolved_teams(*db, eid))
            out.push_back(team.player);
        return out;
    }
    RawPerson person(const std::string& name)
    {
        for (const auto& row : load_raw_rows(*db, 1))
            for (const auto* p : { &row.first, &row.second })
                if (p->name == name)
                    return *p;
        ADD_FAILURE() << name;
        return {};
    }
};

TEST_F(DoublesResolutionTest, AResolvedRowTakesItsPeopleInEveryRawRowAndEntersTheTeam)
{
    raw(1, 1, "ann ash", "female", "bob birch", "male");
    raw(2, 1, "cat cole", "female", "bob birch", "male");
    raw(3, 1, "bob birch", "male", "eve elm", "female");
    raw(4, 2, "bob birch", "male", "dan dale", "male");
    EXPECT_EQ(resolve_call_main(session, 1, { 1, 2, 3 }), 1);
    EXPECT_EQ(states(1), "taken-taken free-taken taken-free");
    EXPECT_EQ(states(2), "free-free");
    ASSERT_EQ(talk.said.back().kind, "ask");
    EXPECT_EQ(talk.said.back().text, "1 teams resolved,2 errors,view the errors?");
    EXPECT_EQ(talk.said.back().title, "resolve errors");
    std::ifstream faults(dir.path() / "working" / "temp.txt");
    std::string line;
    std::getline(faults, line);
    EXPECT_EQ(line, "could not resolve cat cole/bob birch - bob birch taken\r");

    auto team = db->query("select * from evententries where eid=1");
    ASSERT_TRUE(team.step());
    for (const auto& [column, value] :
        std::vector<std::pair<std::string, std::string>> { { "player", "ann ash/bob birch" }, { "p1name", "ann ash" },
            { "partner", "bob birch" }, { "playerfname", "ann" }, { "playersname", "ash" }, { "partnerfname", "bob" },
            { "partnersname", "birch" }, { "reserve", "0" }, { "en", "mixed doubles" }, { "ar", "..not before 10:00" },
            { "eventfee", "12.50" }, { "psex", "female.male" }, { "sd", "doubles" } })
        EXPECT_EQ(team.text(column), value) << column;
}

TEST_F(DoublesResolutionTest, RowsRefusedWholeAndTheirReports)
{
    raw(1, 2, "bob birch", "male", "preq preq", "");
    raw(2, 2, "ann ash", "male", "dan dale", "male");
    raw(3, 1, "ann ash", "female", "cat cole", "female");
    talk.clear();
    EXPECT_EQ(resolve_call_main(session, 2, {}), 0);
    EXPECT_EQ(talk.last_message(), "select teams to resolve");
    // Partner required: not a team as a row. A sex the register contradicts: a fault.
    EXPECT_EQ(resolve_call_main(session, 2, { 1, 2 }), 0);
    EXPECT_EQ(talk.said.back().text, "no teams resolved,1 errors detected,all teams,view the errors?");
    std::ifstream faults(dir.path() / "working" / "temp.txt");
    std::string line;
    std::getline(faults, line);
    EXPECT_EQ(line, "ann ash was found in db with sex=female,cannot resolve ann ash/dan dale\r");
    EXPECT_EQ(states(2), "free-free free-free");
    EXPECT_TRUE(teams(2).empty());

    EXPECT_EQ(resolve_call_main(session, 1, { 3 }), 0);
    std::ifstream again(dir.path() / "working" / "temp.txt");
    std::getline(again, line);
    EXPECT_EQ(line, "this is a mixed event and requires a male and a female player, to make a team\r");
}

TEST_F(DoublesResolutionTest, AHandMadeTeamPairsAPartnerRequiredPersonAndAddsUnknownPeople)
{
    raw(1, 1, "zed zulu", "male", "preq preq", "");
    raw(2, 1, "eve elm", "female", "preq preq", "");
    TeamLabels labels;
    EXPECT_FALSE(resolve_labels(session, 1, labels));
    EXPECT_FALSE(labels.set_label(session, person("preq preq")));
    ASSERT_TRUE(labels.set_label(session, person("zed zulu")));
    EXPECT_FALSE(resolve_labels(session, 1, labels));
    EXPECT_FALSE(labels.set_label(session, person("zed zulu")));
    ASSERT_TRUE(labels.set_label(session, person("eve elm")));
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> {
            "doubles team requires 2 players", "add another player", "player already selected" }));
    ASSERT_TRUE(resolve_labels(session, 1, labels));
    EXPECT_TRUE(labels.empty());
    EXPECT_EQ(teams(1), std::vector<std::string> { "zed zulu/eve elm" });
    EXPECT_EQ(db->scalar_text("select sex || ',' || fname || ',' || sname || ',' || pval || ',' || pid from players "
                              "where player='zed zulu'"),
        "male,zed,zulu,1,6");
    EXPECT_EQ(states(1), "taken-free taken-free");
}

TEST_F(DoublesResolutionTest, ASexMismatchByHandIsSaidAndTheAddedPersonStays)
{
    raw(1, 2, "yan york", "male", "ann ash", "male");
    TeamLabels labels;
    const auto rows = load_raw_rows(*db, 2);
    ASSERT_TRUE(labels.set_label(session, rows[0].first));
    ASSERT_TRUE(labels.set_label(session, rows[0].second));
    EXPECT_FALSE(resolve_labels(session, 2, labels));
    EXPECT_EQ(talk.last_message(), "ann ash was found in db with sex=female,cannot resolve yan york/ann ash");
    EXPECT_EQ(db->scalar_integer("select count(*) from players where player='yan york'"), 1);
    EXPECT_TRUE(teams(2).empty());
    EXPECT_EQ(states(2), "free-free");
}

TEST_F(DoublesResolutionTest, RestoringFreesThePeopleButNotForATeamInADrawnEvent)
{
    raw(1, 1, "ann ash", "female", "bob birch", "male");
    raw(2, 1, "cat cole", "female", "dan dale", "male");
    raw(3, 1, "cat cole", "female", "bob birch", "male");
    ASSERT_EQ(resolve_call_main(session, 1, { 1, 2 }), 2);
    db->run("update events set drawdone=1 where eid=1");
    db->run("update evententries set reserve=1 where player='cat cole/dan dale'");
    talk.clear();
    EXPECT_EQ(restore_teams(session, 1, {}), 0);
    EXPECT_EQ(talk.last_message(), "select at least 1 team to restore");
    EXPECT_EQ(restore_teams(session, 1, { "ann ash/bob birch", "cat cole/dan dale", "nobody/here" }), 1);
    EXPECT_EQ(talk.said.back().text, "1 teams restored,2 errors,view the errors?");
    std::ifstream faults(dir.path() / "working" / "temp.txt");
    std::vector<std::string> lines;
    for (std::string line; std::getline(faults, line);)
        lines.push_back(line.substr(0, line.size() - 1));
    EXPECT_EQ(lines,
        (std::vector<std::string> {
            "cannot restore:ann ash/bob birch-draw is done and team is in the draw (non-reserve)",
            "error:could not find nobody/here in the entries" }));
    EXPECT_EQ(teams(1), std::vector<std::string> { "ann ash/bob birch" });
    // cat cole is free again in both her rows; bob birch stays taken.
    EXPECT_EQ(states(1), "taken-taken free-free free-taken");
}

TEST_F(DoublesResolutionTest, ScrapeAndTotalsTellWhatTheListsHold)
{
    raw(1, 1, "ann ash", "female", "bob birch", "male");
    raw(2, 1, "eve elm", "female", "preq preq", "");
    ASSERT_EQ(resolve_call_main(session, 1, { 1 }), 1);
    EXPECT_EQ(resolve_totals(load_raw_rows(*db, 1), load_resolved_teams(*db, 1)),
        "1 teams resolved, 2 raw entries, 1 of 3 players free");
    scrape_resolve_text(session, 1);
    ASSERT_EQ(talk.said.back().kind, "text");
    std::ifstream scrape(talk.said.back().text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(scrape, line);)
        lines.push_back(line.substr(0, line.size() - 1));
    EXPECT_EQ(lines,
        (std::vector<std::string> { "doubles resolve for mixed doubles", "", "original raw entries",
            "ann ash (taken)\tbob birch (taken)", "eve elm (free)\tpartner required (free)", "", "resolved teams",
            "ann ash/bob birch" }));
}

} // namespace
} // namespace qv
