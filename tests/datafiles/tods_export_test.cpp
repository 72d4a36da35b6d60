#include "core/session.h"
#include "core/utf8.h"
#include "datafiles/tods_export.h"
#include "datafiles/tods_score.h"
#include "support/file_bytes.h"
#include "support/sample_tournament.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>

namespace qv {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

TEST(TodsScore, ReadsSetsFromTheWinnersSide)
{
    struct Case
    {
        const char* score;
        int winning_side;
        const char* side1;
        const char* side2;
        std::vector<TodsSet> sets;
    };
    const std::vector<Case> cases {
        { "64 63", 1, "6-4 6-3", "4-6 3-6", { { 6, 4, {} }, { 6, 3, {} } } },
        { "64 63", 2, "4-6 3-6", "6-4 6-3", { { 4, 6, {} }, { 3, 6, {} } } },
        { "7-6(5) 6/4", 1, "7-6(5) 6-4", "6-7(5) 4-6", { { 7, 6, 5 }, { 6, 4, {} } } },
        { " 36 64 10-8 ", 2, "6-3 4-6 8-10", "3-6 6-4 10-8", { { 6, 3, {} }, { 4, 6, {} }, { 8, 10, {} } } },
        { "64 2-1 ret", 1, "64 2-1 ret", "64 2-1 ret", {} },
        { "w/o", 2, "w/o", "w/o", {} },
        { "76(x)", 1, "76(x)", "76(x)", {} },
        { "", 0, "", "", {} },
    };
    for (const auto& c : cases) {
        const auto score = tods_score(c.score, c.winning_side);
        EXPECT_EQ(score.side1_text, c.side1) << c.score;
        EXPECT_EQ(score.side2_text, c.side2) << c.score;
        ASSERT_EQ(score.sets.size(), c.sets.size()) << c.score;
        for (std::size_t i = 0; i < c.sets.size(); ++i) {
            EXPECT_EQ(score.sets[i].side1, c.sets[i].side1) << c.score;
            EXPECT_EQ(score.sets[i].side2, c.sets[i].side2) << c.score;
            EXPECT_EQ(score.sets[i].tiebreak_loser, c.sets[i].tiebreak_loser) << c.score;
        }
    }
}

class TodsExportTest : public test::TournamentFixture
{
protected:
    void SetUp() override
    {
        TournamentFixture::SetUp();
        sample::build(session);
        tods = Json::parse(tods_json(db(), "sample", "court"));
        for (const auto& p : tods["participants"])
            participant_name[p["participantId"]] = p["participantName"];
    }

    const Json& draw_of(int event) { return tods["events"][event]["drawDefinitions"][0]; }
    // Each matchUp of a structure by its id.
    static std::map<std::string, Json> matches_of(const Json& structure)
    {
        std::map<std::string, Json> out;
        for (const auto& m : structure["matchUps"])
            out[m["matchUpId"]] = m;
        return out;
    }
    // The participant of a structure at a draw position; empty for a bye or an open place.
    static std::string at(const Json& structure, int position)
    {
        for (const auto& a : structure["positionAssignments"])
            if (a["drawPosition"] == position)
                return a.value("participantId", "");
        return {};
    }

    Json tods;
    std::map<std::string, std::string> participant_name;
};

TEST_F(TodsExportTest, ParticipantsArePersonsAndPairsOfPersons)
{
    EXPECT_EQ(tods["tournamentName"], "riverside spring open");
    EXPECT_EQ(tods["startDate"], "2026-03-02");
    EXPECT_EQ(tods["endDate"], "2026-03-04");
    int persons = 0, pairs = 0;
    for (const auto& p : tods["participants"]) {
        if (p["participantType"] == "PAIR") {
            ++pairs;
            ASSERT_EQ(p["individualParticipantIds"].size(), 2u);
            const std::string one = p["individualParticipantIds"][0], two = p["individualParticipantIds"][1];
            EXPECT_EQ(participant_name[one] + "/" + participant_name[two], p["participantName"]);
        } else {
            ++persons;
            EXPECT_EQ(p["person"]["standardGivenName"].get<std::string>() + " "
                    + p["person"]["standardFamilyName"].get<std::string>(),
                p["participantName"]);
        }
    }
    EXPECT_EQ(persons, 32 + 5 + 12);
    EXPECT_EQ(pairs, 6);
    const auto& singles = tods["events"][0];
    EXPECT_EQ(singles["eventType"], "SINGLES");
    EXPECT_EQ(singles["gender"], "MALE");
    EXPECT_EQ(singles["entries"].size(), 32u);
    EXPECT_EQ(tods["events"][2]["eventType"], "DOUBLES");
    EXPECT_EQ(tods["events"][2]["gender"], "MIXED");
}

TEST_F(TodsExportTest, SeedsSitWhereTheDrawPutThem)
{
    const auto& main = draw_of(0)["structures"][0];
    EXPECT_EQ(draw_of(0)["drawType"], "SINGLE_ELIMINATION");
    EXPECT_EQ(main["positionAssignments"].size(), 32u);
    ASSERT_EQ(main["seedAssignments"].size(), 8u);
    for (const auto& seed : main["seedAssignments"]) {
        const auto name = participant_name[seed["participantId"]];
        const auto line = db().scalar_text(R"(select case when lower(mtttt)=lower(?) then mt else mb end from schedule
            where eid=1 and rid=1 and (lower(mtttt)=lower(?) or lower(mbttt)=lower(?)))",
            name, name, name);
        const auto seeding = db().scalar_text(R"(select case when lower(mtttt)=lower(?) then mtseeding else mbseeding
            end from schedule where eid=1 and rid=1 and (lower(mtttt)=lower(?) or lower(mbttt)=lower(?)))",
            name, name, name);
        EXPECT_EQ(seed["seedValue"], seeding) << name;
        EXPECT_EQ(at(main, std::stoi(line.substr(line.find('.') + 1))), seed["participantId"]) << name;
    }
}

TEST_F(TodsExportTest, WinnersAndScoresFollowTheMatchRecord)
{
    std::map<std::string, Json> matches;
    std::map<std::string, const Json*> structure_of;
    for (int event = 0; event < 3; ++event) {
        const auto& top = draw_of(event)["structures"][0];
        const auto& structure = top.contains("structures") ? top["structures"][0] : top;
        for (auto& [id, m] : matches_of(structure)) {
            matches[id] = m;
            structure_of[id] = &structure;
        }
    }
    EXPECT_EQ(matches.size(), 31u + 10u + 7u);
    int won = 0;
    for (auto q = db().query("select sid, mwttt, matchscore, match_state from schedule where rname<>'winner'");
         q.step();) {
        const auto id = "M-" + std::to_string(q.integer("sid"));
        ASSERT_TRUE(matches.contains(id)) << id;
        const auto& m = matches[id];
        if (q.text("match_state") == "0") {
            EXPECT_EQ(m["matchUpStatus"], "BYE") << id;
            continue;
        }
        if (q.text("mwttt").empty()) {
            EXPECT_FALSE(m.contains("winningSide")) << id;
            continue;
        }
        ++won;
        EXPECT_EQ(m["matchUpStatus"], "COMPLETED") << id;
        const int side = m["winningSide"];
        const auto winner = at(*structure_of[id], m["drawPositions"][side - 1]);
        EXPECT_EQ(lcase(participant_name[winner]), lcase(q.text("mwttt"))) << id;
        const auto text = m["score"][side == 1 ? "scoreStringSide1" : "scoreStringSide2"].get<std::string>();
        EXPECT_EQ(tods_score(q.text("matchscore"), 1).side1_text, text) << id;
    }
    EXPECT_EQ(won, 28 + 8 + 2);
}

TEST_F(TodsExportTest, ScheduleNamesDayCourtAndTime)
{
    const auto& venue = tods["venues"][0];
    ASSERT_EQ(venue["courts"].size(), 4u);
    EXPECT_EQ(venue["courts"][0]["courtName"], "centre court");
    EXPECT_EQ(venue["courts"][2]["courtName"], "court 3");
    EXPECT_EQ(venue["courts"][0]["dateAvailability"].size(), 3u);
    const auto sid = db().scalar_integer("select sid from schedule where eid=1 and cid=1 and matchnumber=2");
    const auto m = matches_of(draw_of(0)["structures"][0])["M-" + std::to_string(sid)];
    std::map<std::string, Json> items;
    for (const auto& item : m["timeItems"])
        items[item["itemType"]] = item["itemValue"];
    EXPECT_EQ(items["SCHEDULE.DATE"], "2026-03-02");
    EXPECT_EQ(items["SCHEDULE.TIME.SCHEDULED"], "2026-03-02T11:30");
    EXPECT_EQ(items["SCHEDULE.ASSIGNMENT.COURT"], "C-1");
    EXPECT_EQ(items["SCHEDULE.ASSIGNMENT.VENUE"], venue["venueId"]);
    EXPECT_EQ(items["SCHEDULE.COURT.ORDER"], 2);
}

TEST_F(TodsExportTest, ARoundRobinIsAContainerOfOneGroupAndByesArePositions)
{
    const auto& container = draw_of(1)["structures"][0];
    EXPECT_EQ(draw_of(1)["drawType"], "ROUND_ROBIN");
    EXPECT_EQ(container["structureType"], "CONTAINER");
    const auto& group = container["structures"][0];
    EXPECT_EQ(group["positionAssignments"].size(), 5u);
    std::map<int, int> per_round;
    for (const auto& m : group["matchUps"])
        ++per_round[m["roundNumber"]];
    EXPECT_EQ(per_round.size(), 5u); // five players: five rounds of two matches, one player resting
    for (const auto& [round, count] : per_round)
        EXPECT_EQ(count, 2) << round;

    int byes = 0;
    for (const auto& a : draw_of(2)["structures"][0]["positionAssignments"])
        byes += a.value("bye", false) ? 1 : 0;
    EXPECT_EQ(byes, 2);
}

TEST_F(TodsExportTest, TheSameFileGivesTheSameText)
{
    const auto text = tods_json(db(), "sample", "court");
    EXPECT_EQ(text, test::read_bytes(fs::path(QV_TEST_DATA_DIR) / "expected/tods/sample_tournament.json"));
}

TEST_F(TodsExportTest, ExportSavesWhereTheUserChoosesAndCancelWritesNothing)
{
    const auto file = dir.path() / "out.json";
    talk.clear();
    talk.files.push_back({ file });
    ASSERT_TRUE(export_tods(session));
    EXPECT_EQ(Json::parse(test::read_bytes(file))["events"].size(), 3u);
    EXPECT_EQ(talk.said.front().text, fs::path(session.current_file_path()).stem().string() + "_tods.json");

    fs::remove(file);
    EXPECT_FALSE(export_tods(session));
    EXPECT_FALSE(fs::exists(file));

    talk.files.push_back({ dir.path() / "no such folder" / "out.json" });
    EXPECT_FALSE(export_tods(session));
    EXPECT_EQ(talk.last_message(), "cannot write file:" + (dir.path() / "no such folder" / "out.json").string());
}

} // namespace
} // namespace qv
