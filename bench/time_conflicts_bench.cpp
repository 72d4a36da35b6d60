// Time conflicts over one day with 2,000 timed matches among 1,000 players, and the full statistics of the
// assistant over the same schedule.
#include "bench_support.h"
#include "core/session.h"
#include "scheduling/assistant_stats.h"
#include "scheduling/time_conflicts.h"

#include <benchmark/benchmark.h>
#include <random>
#include <string>

namespace {

using namespace qv::bench;

constexpr int matches = 2000;
constexpr int players = 1000;
constexpr const char* day = "mon02mar26";

// Live matches on 16 courts every 5 minutes from 09:00, each between two of the players drawn at random.
void fill_day(qv::Database& db)
{
    db.exec_script("pragma synchronous=off; pragma journal_mode=memory;");
    qv::Transaction transaction(db);
    db.run("insert into events (eid, eventname, drawtype, drawdone) values (1, 'open', 'ko', 1)");
    db.run("insert into scheduledays (idx, sdate) values (1, ?)", day);
    std::mt19937 random(20260302);
    std::uniform_int_distribution<int> player(1, players);
    auto add = db.query(R"(insert into schedule (sid, eid, "match", rname, mtttt, mbttt, p1, p2, match_state,
        scheduledate, day_idx, cid, matchtime, matchtime_int) values (?, 1, ?, 'r1', ?, ?, ?, ?, '2', ?, 1, ?, ?, ?))");
    for (int sid = 1; sid <= matches; ++sid) {
        const auto top = "player " + std::to_string(player(random));
        const auto bottom = "player " + std::to_string(player(random));
        const int minutes = 540 + ((sid - 1) / 16) * 5;
        const auto time = std::to_string(minutes / 60) + ":" + std::to_string(minutes % 60);
        add.bind_all(sid, sid, top, bottom, top, bottom, day, 1 + (sid - 1) % 16, time, minutes);
        add.step();
        add.reset();
    }
    transaction.commit();
}

struct Fixture
{
    BenchAppDir dir { "conflicts.qvd" };
    QuietTalk talk;
    QuietHost host;
    qv::Session session { dir.app, talk, host };
    Fixture()
    {
        session.boot_start_app(dir.file.string());
        fill_day(session.tournament());
    }
};

void BM_TimeConflicts2000(benchmark::State& state)
{
    Fixture fixture;
    auto& db = fixture.session.tournament();
    for (auto _ : state) {
        qv::Transaction transaction(db);
        qv::kill_all_tcs(db);
        qv::BF_time_conflict_sdate1(db, day, 60);
        transaction.commit();
    }
    if (db.row_count("calc_time_conflicts_matches") == 0)
        state.SkipWithError("no conflicts found");
}
BENCHMARK(BM_TimeConflicts2000)->Unit(benchmark::kMillisecond);

void BM_FullStatistics2000(benchmark::State& state)
{
    Fixture fixture;
    auto& db = fixture.session.tournament();
    for (auto _ : state) {
        qv::Transaction transaction(db);
        qv::stats_by_event(db, qv::all_days);
        qv::stats_by_cid(db, qv::all_days);
        qv::stats_by_day(db, qv::all_days);
        qv::calc_counts(db);
        transaction.commit();
    }
}
BENCHMARK(BM_FullStatistics2000)->Unit(benchmark::kMillisecond);

} // namespace
