// One 128 knock-out as the director makes it: "do draw" (placed and named) and "save draw", each its own
// operation, in a tournament that already holds 63 saved draws of the same size.
#include "draws_tournament.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace qv::bench;

void BM_OneDraw128(benchmark::State& state)
{
    DrawsTournament tournament;
    qv::QuietTalk talk;
    qv::QuietHost host;
    qv::Session session(tournament.app, talk, host);
    session.boot_start_app(tournament.fresh().string());
    DrawAreaSteps area(session);
    qv::SeededDrawRandom random(20260101);
    auto& db = session.tournament();

    // Every event but the first gets its draw, so the measured one is saved beside 63 others.
    for (std::int64_t eid = 2; eid <= events; ++eid) {
        qv::OpenDraw open;
        qv::BF_load_draw(session, open, eid, area.save_hooks);
        qv::DODRAW(session, open, random, area.hooks);
        qv::save_draw(session, open, area.save_hooks);
    }

    for (auto _ : state) {
        qv::OpenDraw open;
        qv::BF_load_draw(session, open, 1, area.save_hooks);
        qv::DODRAW(session, open, random, area.hooks);
        qv::save_draw(session, open, area.save_hooks);

        state.PauseTiming();
        if (db.scalar_integer("select count(*) from schedule where eid = 1") != entries_per_event)
            state.SkipWithError("the draw was not saved");
        db.run("delete from schedule where eid = 1");
        db.run("update events set drawdone = 0, drawsize = 0, timestamp_text = '' where eid = 1");
        db.run("update evententries set drawdone = 0 where eid = 1");
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OneDraw128)->Unit(benchmark::kMillisecond)->MinTime(2.0);

} // namespace
