#pragma once

#include "core/database.h"
#include "core/match_record.h"
#include "core/text_rules.h"
#include "core/time_rules.h"
#include "documents/document_lines.h"
#include "drawengine/draw_saving.h"
#include "drawengine/result_entry.h"
#include "drawengine/rr_draw.h"
#include "drawengine/rr_saving.h"
#include "scheduling/match_counters.h"
#include "support/drawn_tournament.h"
#include "support/saved_draws.h"
#include "support/session_fixture.h"

#include <string>
#include <vector>

namespace qv::test {

// One fixed tournament for the documents, over two days of two courts:
// event 1 "mens singles", a knock-out of 16 with four seeds and "qualifier 3" in slot 9: the first round played
// but for match 5 (live), match 7 (unfinished) and match 8 (live), match 4 a walkover without score, match 9 of
// the second round played;
// event 2 "womens round robin", five players, matches 2, 3, 4 and 6 played;
// event 3 "mixed doubles", a knock-out of four teams, the first match played.
// Day 1 mon02mar26: court 1 "centre" from 10:00, court 2 from 10:00, a round-robin match first available and one
// on the day clipboard. Day 2 tue03mar26: both courts, a doubles match to be confirmed. Match 6 of the round
// robin waits on the clipboard; the rest are unscheduled. Two matches carry notes.
class DocumentsTournamentBuilder
{
public:
    static constexpr const char* day1 = "mon02mar26";
    static constexpr const char* day2 = "tue03mar26";

    explicit DocumentsTournamentBuilder(Session& session)
        : session(session)
    {
    }

    // Builds the tournament in the session's open file.
    void build()
    {
        db().exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().set_tournament_cache(db(), "itname", "harbour open");
        add_players();
        singles_draw();
        round_robin();
        doubles_draw();
        make_tournament_days(session, 2, 2);
        place_matches();
    }

    // The moment every document of these tests was created.
    static std::tm created()
    {
        std::tm when {};
        when.tm_year = 127;
        when.tm_mon = 5;
        when.tm_mday = 14;
        when.tm_hour = 18;
        when.tm_min = 30;
        when.tm_sec = 5;
        return when;
    }

    std::int64_t sid_of(std::int64_t eid, int match)
    {
        return db().scalar_integer(R"(select sid from schedule where eid=? and "match"=?)", eid, match);
    }

    void result(
        std::int64_t eid, int match, ResultWinner winner, const std::string& score, const std::string& longscore = "")
    {
        MatchResult r { sid_of(eid, match), winner, score, longscore, "", "" };
        if (eid == 2)
            rr_result_mode(2, r);
        ASSERT_FALSE(write_result(session, r).empty()) << eid << " " << match;
    }

private:
    Session& session;
    Database& db() { return session.tournament(); }

    inline static const std::vector<std::string> singles { "adam ash", "ben birch", "carl cole", "dan dale", "eli east",
        "finn ford", "gus grey", "hal hart", "qualifier 3", "jon judd", "kai kerr", "leo lamb", "max moss", "ned nash",
        "otto orr", "piet pike" };
    inline static const std::vector<std::string> teams { "ida ince/jack jones", "kim king/lou lowe",
        "mia mills/nat noble", "ola oaks/pat page" };

    void add_players()
    {
        auto insert = db().query(R"(insert into players (pid, player, fname, sname, sex, rating, ranking, country, pval)
            values (?, ?, ?, ?, ?, ?, ?, ?, 1))");
        int pid = 0;
        auto add = [&](const std::string& name, const char* sex, std::string rating, std::string ranking,
                       std::string country) {
            const auto blank = name.find(' ');
            insert.bind_all(++pid, name, name.substr(0, blank), name.substr(blank + 1), sex, rating, ranking, country);
            insert.step();
            insert.reset();
        };
        for (std::size_t i = 0; i < singles.size(); ++i)
            if (singles[i] != "qualifier 3")
                add(singles[i], "male", i < 4 ? std::to_string(2400 - 50 * int(i)) : "",
                    i % 3 ? std::to_string(i + 1) : "", i % 2 ? "AUS" : "NZL");
        for (const char* name : { "ann ames", "bea best", "cleo cruz", "dora diaz", "rené roux" })
            add(name, "female", "", "", "FRA");
        for (const auto& team : teams) {
            add(team.substr(0, team.find('/')), "female", "", "", "");
            add(team.substr(team.find('/') + 1), "male", "", "", "NZL");
        }
    }

    void ko_draw(std::int64_t eid, const std::string& name, const std::vector<std::string>& names,
        const std::vector<std::string>& seeds, const std::string& singdobs)
    {
        add_draw_event(db(), eid, name, "ko");
        db().run(
            "update events set singdobs=?, sex=? where eid=?", singdobs, singdobs == "doubles" ? "mixed" : "male", eid);
        OpenDraw open;
        load_event_state(db(), eid, open.draw);
        const int size = static_cast<int>(names.size());
        open.build_tree(size);
        for (int k = 1; k <= size; ++k) {
            auto& slot = open.slot(1, k);
            slot.ttt = names[k - 1];
            slot.frn = slot.ttt.substr(0, 18);
            slot.tag = slot.ttt.substr(0, 1) + "." + slot.ttt.substr(slot.ttt.rfind(' ') + 1, 11);
            slot.seed = seeds[k - 1];
            const bool pair = slot.ttt.find('/') != std::string::npos;
            slot.country = is_reserved(slot.ttt) ? "" : pair ? "NZL/AUS" : (k % 2 ? "NZL" : "AUS");
            slot.sex = pair ? "fm" : "m";
        }
        KO_savecontrols(db(), open);
        db().run("update events set drawdone=true, drawsize=? where eid=?", size, eid);
        recompute_match_states(db(), eid);
    }

    void singles_draw()
    {
        std::vector<std::string> seeds(16);
        seeds[0] = "1";
        seeds[15] = "2";
        seeds[4] = "3";
        seeds[11] = "4";
        seeds[8] = "q";
        ko_draw(1, "mens singles", singles, seeds, "singles");
        result(1, 1, ResultWinner::top, "6-2 6-1");
        result(1, 2, ResultWinner::bottom, "4-6 6-3 7-5", "4-6 6-3 7-6(5)");
        result(1, 3, ResultWinner::top, "6-3 6-4");
        result(1, 4, ResultWinner::bottom, ""); // a walkover
        result(1, 6, ResultWinner::bottom, "7-6 6-4");
        result(1, 9, ResultWinner::top, "6-0 6-0");
        db().run(R"(update schedule set match_state='2.1', matchscore='6-4 2-1' where eid=1 and "match"=7)");
    }

    void round_robin()
    {
        add_draw_event(db(), 2, "womens round robin", "rr", 2);
        db().run("update events set sex='female' where eid=2");
        int ent = 100;
        for (const char* name : { "ann ames", "bea best", "cleo cruz", "dora diaz", "rené roux" }) {
            const std::string full(name);
            db().run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, reserve, psex)
                values (?, 2, ?, ?, ?, 0, 'female'))",
                ++ent, full, full.substr(0, full.find(' ')), full.substr(full.find(' ') + 1));
        }
        DrawState draw;
        OpenRoundRobin rr;
        load_event_state(db(), 2, draw);
        ASSERT_TRUE(RR_do_draw(session, draw, rr));
        add_draw_stub_RR(db(), draw, rr);
        RR_savecontrols(db(), draw, rr);
        db().run("update events set drawdone=true, drawsize=5 where eid=2");
        recompute_match_states(db(), 2);
        result(2, 2, ResultWinner::top, "6-3");
        result(2, 3, ResultWinner::bottom, "4-6 6-4 10-8");
        result(2, 4, ResultWinner::top, "6-1");
        result(2, 6, ResultWinner::bottom, "6-2");
    }

    void doubles_draw()
    {
        ko_draw(3, "mixed doubles", teams, { "1", "", "", "" }, "doubles");
        result(3, 1, ResultWinner::top, "6-4 6-4");
    }

    // A match onto a day and court at a position, with its time word and time.
    void place(std::int64_t eid, int match, const char* day, std::int64_t cid, int number, const char* nbat = "",
        const char* time = "")
    {
        db().run(R"(update schedule set scheduledate=?, day_idx=(select idx from scheduledays where sdate=?), cid=?,
            matchnumber=?, nbat=?, matchtime=?, matchtime_int=? where eid=? and "match"=?)",
            day, day, cid, number, nbat, time, time_to_minutes(time), eid, match);
    }

    void place_matches()
    {
        db().run("update scheduledays_courts set courtname='centre' where sdate=? and cid=1", day1);
        db().run("update scheduledays_courts set starttime='10:00' where sdate=? and cid in (1, 2)", day1);
        place(1, 1, day1, 1, 1, "at ", "10:00");
        place(1, 3, day1, 1, 2, "at ", "11:30");
        place(1, 9, day1, 1, 3, "nb ", "13:00");
        place(2, 2, day1, 1, 4, "at ", "15:00");
        place(1, 2, day1, 2, 1, "at ", "10:00");
        place(1, 4, day1, 2, 2, "at ", "11:00");
        place(1, 10, day1, 2, 3, "nb ", "14:00");
        place(2, 1, day1, -1, 1);
        place(2, 5, day1, -4, 1);
        place(1, 5, day2, 1, 1, "at ", "10:00");
        place(1, 7, day2, 1, 2, "at ", "11:00");
        place(1, 11, day2, 1, 3, "at ", "13:00");
        place(2, 3, day2, 1, 4, "at ", "15:00");
        place(2, 4, day2, 1, 5, "at ", "16:00");
        place(3, 1, day2, 2, 1, "at ", "09:00");
        place(1, 6, day2, 2, 2, "at ", "10:00");
        place(1, 8, day2, 2, 3, "at ", "12:00");
        place(3, 2, day2, -3, 1);
        db().run(R"(update schedule set cid=-2, matchnumber=1 where eid=2 and "match"=6)");
        db().run(R"(update schedule set mg_matchnote='bring towels' where eid=1 and "match"=9)");
        db().run(R"(update schedule set mg_matchnote='resume at 11' where eid=1 and "match"=7)");
        LIVE_MATCH_NUMBERS_DO(db(), "");
        LIVE_MATCH_COUNTS_ALL(session);
    }
};

class DocumentsTournament : public SessionFixture
{
protected:
    static constexpr const char* day1 = DocumentsTournamentBuilder::day1;
    static constexpr const char* day2 = DocumentsTournamentBuilder::day2;

    void SetUp() override
    {
        open_new_tournament();
        DocumentsTournamentBuilder(session).build();
        talk.clear();
    }

    DocumentContext context()
    {
        return { db(), "harbour open", "court", "c", "courts", "match", "m", "matches",
            DocumentsTournamentBuilder::created() };
    }
};

} // namespace qv::test
