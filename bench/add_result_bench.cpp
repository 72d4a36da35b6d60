// The 127 results of a 128 knock-out entered one by one through BF_add_result, each its own committed operation,
// in a tournament that holds 64 saved draws of that size, with the schedule board open.
#include "draws_tournament.h"
#include "scheduling/add_result.h"
#include "scheduling/schedule_board.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace {

using namespace qv::bench;

constexpr int results_per_draw = entries_per_event - 1;

void draw_event(qv::Session& session, DrawAreaSteps& area, qv::DrawRandom& random, std::int64_t eid)
{
    qv::OpenDraw open;
    qv::BF_load_draw(session, open, eid, area.save_hooks);
    qv::DODRAW(session, open, random, area.hooks);
    qv::save_draw(session, open, area.save_hooks);
}

void BM_AddResults128(benchmark::State& state)
{
    DrawsTournament tournament;
    qv::QuietTalk talk;
    qv::QuietHost host;
    qv::Session session(tournament.app, talk, host);
    session.boot_start_app(tournament.fresh().string());
    DrawAreaSteps area(session);
    qv::SeededDrawRandom random(20260101);
    auto& db = session.tournament();
    for (std::int64_t eid = 1; eid <= events; ++eid)
        draw_event(session, area, random, eid);
    qv::ScheduleBoard board(session);
    board.init();

    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::int64_t> sids;
        for (auto rows = db.query("select sid from schedule where eid=1 and rname<>'winner' order by \"match\"");
             rows.step();)
            sids.push_back(rows.integer(0));
        state.ResumeTiming();

        // Match order: each round's winners are in place before its next round is played.
        for (auto sid : sids) {
            qv::MatchResult result;
            result.sid = sid;
            result.winner = qv::ResultWinner::top;
            result.matchscore = "64 64";
            result.matchlongscore = "6-4 6-4";
            qv::BF_add_result(board, result, qv::OnSave::beep_confirm);
        }

        state.PauseTiming();
        if (db.scalar_integer("select count(*) from schedule where eid=1 and match_state='3'") != results_per_draw
            || db.scalar_text("select mtttt from schedule where eid=1 and rname='winner'").empty())
            state.SkipWithError("the results did not reach the final");
        // The draw again for the next round of results.
        db.run("delete from schedule where eid=1");
        db.run("update events set drawdone=0, drawsize=0, timestamp_text='' where eid=1");
        db.run("update evententries set drawdone=0 where eid=1");
        draw_event(session, area, random, 1);
        state.ResumeTiming();
    }
    // Shown with the unit "s" by the library: the figure is milliseconds of wall time per result.
    state.counters["ms_per_result"] = benchmark::Counter(
        results_per_draw / 1000.0, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_AddResults128)->Unit(benchmark::kMillisecond)->MinTime(2.0)->UseRealTime();

} // namespace
