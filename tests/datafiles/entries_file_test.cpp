#include "core/codepage.h"
#include "core/session.h"
#include "datafiles/entries_file.h"
#include "support/drawn_tournament.h"
#include "support/file_bytes.h"
#include "support/session_fixture.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

fs::path expected(const std::string& name)
{
    return fs::path(QV_TEST_DATA_DIR) / "expected" / "datafiles" / name;
}

// The people of the drawn tournament (entries resolved into teams), a raw doubles event with a pair and a player
// waiting for a partner, and details that travel with the players.
class EntriesFileTest : public test::TournamentFixture
{
protected:
    void SetUp() override
    {
        TournamentFixture::SetUp();
        test::add_drawn_tournament_people(db());
        db().run("update tournament set tournament = 'Zürich open' where idx = 1");
        db().run("update events set fee = '20' where eid = 1");
        db().run(R"(update players set "timestamp" = '26-02-01 10:00:00', country = 'SUI', email = 'a@b.ch',
            address1 = '1 quay', address2 = 'zürich', rating = '4.5' where pid = 1)");
        db().run(R"(update evententries set psex = 'female.male' where eid = 2)");
        db().run("insert into events (eid, eventname, sex, singdobs, pte) values (3, 'open pairs', 'neutral', "
                 "'doubles', 'e')");
        db().run(R"(insert into rawdoublesentries (rdidx, eid, player, partnerfname, partnersname, partnername, p2sex)
            values (1, 3, 'adam mann', 'bert', 'mann', 'bert mann', 'male'),
            (2, 3, 'carl mann', 'preq', 'preq', 'preq preq', ''))");
    }
    fs::path written(Qv5Doubles doubles, const std::string& name)
    {
        const auto file = dir.path() / name;
        talk.files.push_back({ file });
        EXPECT_TRUE(export_qv5(session, doubles));
        return file;
    }
    fs::path file_of(const std::string& name, const std::string& bytes)
    {
        const auto file = dir.path() / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    Database& store() { return session.peek_browse_db(); }
    std::string column(const std::string& sql) { return store().scalar_text(sql); }
};

TEST_F(EntriesFileTest, WritesTheGoldenFiles)
{
    EXPECT_EQ(test::read_bytes(written(Qv5Doubles::resolved, "resolved.qv5")),
        test::read_bytes(expected("qv5_with_resolved_doubles.qv5")));
    EXPECT_EQ(
        test::read_bytes(written(Qv5Doubles::raw, "raw.qv5")), test::read_bytes(expected("qv5_with_raw_doubles.qv5")));
}

// What is written is read back into the peek tables; resolved teams come back as pairs with their partners.
TEST_F(EntriesFileTest, ReadsBackEventsPlayersAndEntries)
{
    ASSERT_TRUE(load_entries_file(session, written(Qv5Doubles::resolved, "r.qv5"), EntriesTarget::peek));
    EXPECT_EQ(column("select tname || '|' || fn from peek_info"), "Zürich open|r.qv5");
    EXPECT_EQ(column("select group_concat(eid || ':' || sex || ':' || drawtype || pts, ',') from peek_events"),
        "1:male:ko0,2:mixed:ko0,3:neutral:ko0");
    EXPECT_EQ(store().row_count("peek_players"), db().row_count("players"));
    EXPECT_EQ(column(R"(select "timestamp" || '|' || timezone || '|' || player || '|' || country || '|' || address
        || '|' || downloaded from peek_players where pid = 1)"),
        "26-02-01 10:00:00|est|adam mann|sui|1 quay zürich|1");
    EXPECT_EQ(column("select ar || '|' || sex from peek_players where pid = 3"), "1|male");
    EXPECT_EQ(column("select group_concat(player || ':' || en || ':' || eventfee || ':' || psex, ',') from "
                     "(select * from peek_evententries order by ent_idx limit 2)"),
        "adam mann:mens singles:20:m,bert mann:mens singles:20:m");
    EXPECT_EQ(column("select group_concat(player || '+' || partnername || ':' || p2sex, ',') from "
                     "peek_rawdoublesentries order by rdidx"),
        "idaa duo+jona duo:male,idab duo+jonb duo:male,idac duo+jonc duo:male,idad duo+jond duo:male");

    ASSERT_TRUE(load_entries_file(session, written(Qv5Doubles::raw, "w.qv5"), EntriesTarget::browse));
    EXPECT_EQ(store().row_count("browse_evententries"), 8);
    EXPECT_EQ(column("select group_concat(player || '+' || partnername || ':' || en, ',') from "
                     "browse_rawdoublesentries order by rdidx"),
        "adam mann+bert mann:open pairs,carl mann+preq preq:open pairs");
    EXPECT_EQ(store().row_count("peek_evententries"), 8) << "the peek tables stay as they were";
}

// The greeting of the service at the head is read as if it were not there; bad files load nothing.
TEST_F(EntriesFileTest, GreetingAndBrokenFiles)
{
    const std::string good
        = "open^%^\r\n1^ms^m^p^^singles^'^\r\n^est^7^ann^lee" + std::string(20, '^') + "1^/^\r\n7^1^^^^\\^\r\n";
    struct Case
    {
        const char* name;
        std::string bytes;
        bool loaded;
    };
    const Case cases[] = {
        { "plain", good, true },
        { "greeting", "73215qpx48102^no_error^\r\n" + good, true },
        { "binary", std::string("open^%^\0\0\1^", 11), false },
        { "undefined byte", "open^%^\xC2\x90^", false },
        { "event of 5 fields", "1^ms^m^p^singles^'^", false },
        { "event id not a number", "x^ms^m^p^^singles^'^", false },
        { "entry for an unknown event", "7^9^^^^\\^", false },
        { "player of 24 fields", "^est^7^ann^lee" + std::string(19, '^') + "1^/^", false },
        { "truncated last record", good + "8^1^^", true },
        { "empty file", "", true },
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(load_entries_file(session, file_of("good.qv5", good), EntriesTarget::browse));
        talk.clear();
        EXPECT_EQ(load_entries_file(session, file_of("c.qv5", to_cp1252(c.bytes)), EntriesTarget::browse), c.loaded)
            << c.name;
        const bool refused = talk.last_message() == "invalid qv5 file,no data loaded";
        EXPECT_EQ(refused, !c.loaded) << c.name;
        if (c.loaded && !c.bytes.empty()) {
            EXPECT_EQ(column("select playerfname || ' ' || en from browse_evententries"), "ann ms") << c.name;
        }
        if (!c.loaded) {
            EXPECT_EQ(store().row_count("browse_players"), 1) << c.name << ": what was there stays";
        }
    }
}

// "load entries (qv5) file": the file replaces the tournament's content, or nothing changes.
TEST_F(EntriesFileTest, LoadIntoTheTournamentReplacesItsContentOrNothing)
{
    const auto file = written(Qv5Doubles::raw, "w.qv5");
    session.settings().set_disk_var("qv5_load_pull_tname", "1");
    db().run("update tournament set tournament = 'old name' where idx = 1");
    db().run("insert into folders (fid, nm) values (1, 'kept?')");
    talk.clear();

    talk.answers.push_back(Answer::No);
    EXPECT_FALSE(load_entries_into_tournament(session));
    EXPECT_EQ(talk.said.back().title, "Clear current qvd file");
    EXPECT_EQ(db().row_count("evententries"), 12);

    talk.answers.push_back(Answer::Yes);
    talk.files.push_back({ file_of("bad.qv5", "x^ms^m^p^^singles^'^") });
    EXPECT_FALSE(load_entries_into_tournament(session));
    EXPECT_EQ(talk.last_message(), "invalid qv5 file,no data loaded");
    EXPECT_EQ(db().row_count("evententries"), 12) << "the tournament stays as it was";

    talk.answers.push_back(Answer::Yes);
    talk.files.push_back({ file });
    host.deferred.clear();
    ASSERT_TRUE(load_entries_into_tournament(session));
    EXPECT_EQ(host.deferred.size(), 1u) << "a restart is asked for";
    EXPECT_EQ(db().scalar_text("select tournament from tournament where idx = 1"), "Zürich open");
    EXPECT_EQ(db().row_count("players"), 16);
    EXPECT_EQ(db().row_count("folders"), 0);
    EXPECT_EQ(db().scalar_text("select group_concat(player || ':' || en, ',') from evententries where ent_idx < 3"),
        "adam mann:mens singles,bert mann:mens singles");
    EXPECT_EQ(db().scalar_text("select group_concat(player || '+' || partnername, ',') from rawdoublesentries"),
        "adam mann+bert mann,carl mann+preq preq");
    EXPECT_EQ(db().scalar_integer("select count(*) from events where drawtype = 'ko' and pts = 0"), 3);
}

TEST_F(EntriesFileTest, LoadIntoTheTournamentNeedsOne)
{
    ASSERT_TRUE(session.close_current_db());
    talk.clear();
    EXPECT_FALSE(load_entries_into_tournament(session));
    EXPECT_EQ(talk.last_message(), "need a qvd file to load the qv5 file into");
}

} // namespace
} // namespace qv
