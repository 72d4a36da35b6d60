// "do all draws" as the draw area runs it: 64 knock-out events of 128 entries each, every draw made, its names
// formed and saved into schedule, then the held-back refreshes once at the end.
#include "draws_tournament.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <memory>

namespace {

using namespace qv::bench;

void BM_DoAllDraws(benchmark::State& state)
{
    DrawsTournament tournament;
    qv::QuietTalk talk;
    qv::QuietHost host;
    double total_ms = 0;
    std::int64_t draws = 0;

    for (auto _ : state) {
        state.PauseTiming();
        auto session = std::make_unique<qv::Session>(tournament.app, talk, host);
        session->boot_start_app(tournament.fresh().string());
        qv::OpenDraw open;
        qv::SeededDrawRandom random(20260101);
        DrawAreaSteps area(*session);
        auto& save_hooks = area.save_hooks;

        qv::AllDrawsSteps steps;
        steps.close_draw = [&](qv::OpenDraw& draw) {
            return qv::leave_draw(*session, draw, qv::LeaveReason::closingdraws, save_hooks);
        };
        steps.load_draw
            = [&](qv::OpenDraw& draw, std::int64_t eid) { qv::BF_load_draw(*session, draw, eid, save_hooks); };
        steps.save_draw_doing_all_draws = [&](qv::OpenDraw& draw) {
            qv::save_draw(*session, draw, save_hooks, qv::SaveRefresh::doing_all_draws);
            return true;
        };
        steps.close_draw_special = [](qv::OpenDraw& draw) {
            draw.clear_tree();
            draw.draw.on_screen = false;
            draw.draw.new_draw = false;
            draw.draw.changes_waiting = false;
        };
        steps.save_draw_END_doing_all_draws
            = [&](qv::OpenDraw&) { qv::save_draw_END_doing_all_draws(*session, save_hooks); };
        state.ResumeTiming();

        const auto start = std::chrono::steady_clock::now();
        qv::do_all_draws(*session, open, random, area.hooks, steps);
        const auto elapsed = std::chrono::steady_clock::now() - start;

        state.PauseTiming();
        total_ms += std::chrono::duration<double, std::milli>(elapsed).count();
        const auto done = session->tournament().scalar_integer("select count(*) from events where drawdone <> 0");
        const auto rows = session->tournament().scalar_integer("select count(*) from schedule");
        if (done != events || rows != events * entries_per_event)
            state.SkipWithError("not every event was drawn and saved");
        draws += done;
        session.reset();
        state.ResumeTiming();
    }
    state.counters["ms_per_draw"] = draws > 0 ? total_ms / static_cast<double>(draws) : 0.0;
    state.counters["draws"] = static_cast<double>(events);
}
BENCHMARK(BM_DoAllDraws)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
