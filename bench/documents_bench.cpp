// Every text document of a tournament of 5,080 matches: 38 knock-out draws of 128 with two rounds played and
// 8 round robins of 8, the first three rounds placed with times on 4 days of 20 courts. Each document is made
// in full, as the documents window makes it; the counters give the milliseconds of each and of all together.
#include "bench_support.h"
#include "core/database.h"
#include "core/match_record.h"
#include "core/session.h"
#include "core/time_rules.h"
#include "documents/idocuments.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "drawengine/rr_draw.h"
#include "drawengine/rr_saving.h"
#include "scheduling/day_keys.h"
#include "scheduling/days_courts.h"
#include "scheduling/match_counters.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <functional>
#include <map>

namespace {

constexpr int ko_events = 38;
constexpr int ko_size = 128;
constexpr int rr_events = 8;
constexpr int rr_size = 8;
constexpr int days = 4;
constexpr int courts = 20;

std::string person(int eid, int k)
{
    return "player" + std::to_string(eid) + " number" + std::to_string(k);
}

void add_event(qv::Database& db, int eid, const char* drawtype, int pts)
{
    db.run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, pts, timestamp_text)
        values (?, ?, 'male', 'singles', ?, ?, 'Monday, June 14, 2027 10:00:00'))",
        eid, "open event " + std::to_string(eid), drawtype, pts);
}

void knock_outs(qv::Session& session)
{
    auto& db = session.tournament();
    auto player = db.query(R"(insert into players (pid, player, sex, rating, ranking, country) values (?, ?, 'male',
        ?, ?, 'NZL'))");
    for (int eid = 1; eid <= ko_events; ++eid) {
        add_event(db, eid, "ko", 0);
        qv::OpenDraw open;
        qv::load_event_state(db, eid, open.draw);
        open.build_tree(ko_size);
        for (int k = 1; k <= ko_size; ++k) {
            auto& slot = open.slot(1, k);
            slot.ttt = person(eid, k);
            slot.frn = slot.ttt;
            slot.tag = "p" + std::to_string(k);
            slot.seed = k <= 8 ? std::to_string(k) : "";
            slot.country = k % 2 ? "NZL" : "AUS";
            player.bind_all(eid * 1000 + k, slot.ttt, std::to_string(1000 + k), std::to_string(k));
            player.step();
            player.reset();
        }
        qv::KO_savecontrols(db, open);
        db.run("update events set drawdone=true, drawsize=? where eid=?", ko_size, eid);
        qv::recompute_match_states(db, eid);
        qv::progressdraw(session, eid, 1);
        qv::progressdraw(session, eid, 2);
    }
}

void round_robins(qv::Session& session)
{
    auto& db = session.tournament();
    auto next = db.next_id("evententries", "ent_idx");
    for (int eid = ko_events + 1; eid <= ko_events + rr_events; ++eid) {
        add_event(db, eid, "rr", 2);
        for (int k = 1; k <= rr_size; ++k)
            db.run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, reserve, psex)
                values (?, ?, ?, 'player', ?, 0, 'male'))",
                next++, eid, person(eid, k), std::to_string(k));
        qv::DrawState draw;
        qv::OpenRoundRobin rr;
        qv::load_event_state(db, eid, draw);
        qv::RR_do_draw(session, draw, rr);
        qv::add_draw_stub_RR(db, draw, rr);
        qv::RR_savecontrols(db, draw, rr);
        db.run("update events set drawdone=true, drawsize=? where eid=?", rr_size, eid);
        db.run(
            R"(update schedule set mwttt=mtttt, points1='1', points2='0', matchscore='6-3' where eid=? and "match"<=10)",
            eid);
        qv::recompute_match_states(db, eid);
    }
}

// The matches of the first three rounds and of the round robins, in turn over the days and courts, each court
// from 09:00 in steps of 45 minutes.
void place_matches(qv::Session& session)
{
    qv::DaysCourtsEditor editor(session);
    editor.init();
    editor.set_days({ 2027, 3, 1 }, { 2027, 3, days });
    editor.generate(std::to_string(courts), editor.days());
    editor.save();
    auto& db = session.tournament();
    auto place = db.query(R"(update schedule set scheduledate=?, day_idx=?, cid=?, matchnumber=?, nbat='at ',
        matchtime=?, matchtime_int=? where sid=?)");
    std::vector<std::int64_t> sids;
    for (auto row = db.query("select sid from schedule where rid <= 3 and rname <> 'winner' order by sid"); row.step();)
        sids.push_back(row.integer(0));
    for (std::size_t i = 0; i < sids.size(); ++i) {
        const int day = static_cast<int>(i % days);
        const int cid = static_cast<int>((i / days) % courts) + 1;
        const int number = static_cast<int>(i / (days * courts)) + 1;
        const auto time = qv::add_minutes("09:00", 45 * (number - 1));
        place.bind_all(
            qv::day_forms({ 2027, 3, day + 1 }).fmt2, day + 1, cid, number, time, qv::time_to_minutes(time), sids[i]);
        place.step();
        place.reset();
    }
    qv::LIVE_MATCH_NUMBERS_DO(db, "");
    qv::LIVE_MATCH_COUNTS_ALL(session);
}

void BM_AllDocuments(benchmark::State& state)
{
    qv::bench::BenchAppDir dir("documents.qvd");
    qv::bench::QuietTalk talk;
    qv::bench::QuietHost host;
    qv::Session session(dir.app, talk, host);
    session.boot_start_app(dir.file.string());
    auto& db = session.tournament();
    {
        qv::Transaction transaction(db);
        knock_outs(session);
        round_robins(session);
        transaction.commit();
    }
    place_matches(session);
    if (db.scalar_integer("select count(*) from schedule where rname <> 'winner'") < 5000)
        state.SkipWithError("fewer than 5,000 matches");

    const auto context = qv::document_context(session);
    const auto all_days = qv::days_working_schedule(db);
    const qv::ScheduleOptions schedule_options { { true, true }, { true, true }, { true, true, true, true }, true };
    const qv::ResultsOptions results_options { { true, true }, { true, true } };
    std::size_t lines = 0;
    auto count = [&lines](const qv::Document& document) { lines += document.lines.size(); };
    const std::vector<std::pair<std::string, std::function<void()>>> documents {
        { "schedule_by_court",
            [&] {
                for (const auto& day : all_days)
                    count(qv::FORMAT_schedule_by(context, qv::ScheduleBy::court, day.substr(0, 10), schedule_options));
            } },
        { "schedule_by_time",
            [&] {
                for (const auto& day : all_days)
                    count(qv::FORMAT_schedule_by(context, qv::ScheduleBy::time, day.substr(0, 10), schedule_options));
            } },
        { "schedule_by_event",
            [&] {
                for (const auto& day : all_days)
                    count(qv::FORMAT_schedule_by(context, qv::ScheduleBy::event, day.substr(0, 10), schedule_options));
            } },
        { "results_by_event",
            [&] {
                qv::setlivedays_idocs(db, qv::days_results(db));
                count(qv::VIP_text_results(context, results_options));
            } },
        { "results_by_round", [&] { count(qv::VIP_text_results_by_round(context, results_options)); } },
        { "results_by_day", [&] { count(qv::VIP_text_results_groupbyday(context, results_options)); } },
        { "results_by_schedule", [&] { count(qv::VIP_text_resultsbyschedule(context, results_options)); } },
        { "player_times",
            [&] {
                qv::VIP_setlivedays_playertimes(db, qv::days_playertimes(db));
                qv::VIP_compile_player_times_idocs(
                    context, { { false, true, true, true }, qv::ExplicitTime::either, true });
                count(qv::VIP_text_player_times_idocs(context));
            } },
        { "players",
            [&] {
                count(qv::VIP_text_rating_ranking(context, { true, true, true, false, 0 }));
            } },
        { "country_codes", [&] { count(qv::make_country_codes(context, session.init_db())); } },
        { "name_map", [&] { count(qv::name_map(context, std::nullopt)); } },
        { "standings",
            [&] {
                for (int eid = ko_events + 1; eid <= ko_events + rr_events; ++eid)
                    count(qv::standings_rr(context, eid));
            } },
        { "text_draws",
            [&] {
                for (int eid = 1; eid <= ko_events + rr_events; ++eid)
                    count(qv::text_draw_document(db, eid, qv::NextRoundPointers::on, qv::TextDrawCountries::on));
            } },
    };
    std::map<std::string, double> ms;
    double total = 0;
    for (auto _ : state) {
        for (const auto& [name, make] : documents) {
            const auto start = std::chrono::steady_clock::now();
            make();
            const double took
                = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
            ms[name] += took;
            total += took;
        }
    }
    const double runs = static_cast<double>(state.iterations());
    for (const auto& [name, sum] : ms)
        state.counters[name + "_ms"] = sum / runs;
    state.counters["all_ms"] = total / runs;
    state.counters["lines"] = static_cast<double>(lines) / runs;
}
BENCHMARK(BM_AllDocuments)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
