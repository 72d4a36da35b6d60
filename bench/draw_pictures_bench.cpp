// Draw pictures as the prints area saves them: 64 knock-out draws of 128, two rounds played, each laid out,
// painted and saved as a GIF file.
#include "bench_draws.h"
#include "bench_support.h"
#include "core/database.h"
#include "core/session.h"
#include "documents/makedrawpic_new.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr int events = 64;
constexpr int drawsize = 128;

// The tournament's knock-out draws, their first two rounds played.
void save_draws(qv::Session& session)
{
    qv::Transaction transaction(session.tournament());
    for (int eid = 1; eid <= events; ++eid)
        qv::bench::save_played_ko_draw(session, eid, drawsize);
    transaction.commit();
}

void BM_DrawPicturesGif(benchmark::State& state)
{
    qv::bench::ensure_gui_app();
    qv::bench::BenchAppDir dir("pictures.qvd");
    qv::bench::QuietTalk talk;
    qv::bench::QuietHost host;
    qv::Session session(dir.app, talk, host);
    session.boot_start_app(dir.file.string());
    save_draws(session);
    const auto folder = dir.app / "images";
    fs::create_directories(folder);
    qv::PictureOptions options;
    options.split128 = state.range(0) == 1;
    options.site_line = "quorvelin https://quorvelin.example/";

    double total_ms = 0;
    std::int64_t pictures = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        for (int eid = 1; eid <= events; ++eid) {
            const auto saved
                = qv::save_draw_pictures(qv::makepic1(session, qv::DrawStore::tournament, eid, options), folder);
            if (!saved.ok())
                state.SkipWithError("a picture was not saved");
            pictures += static_cast<std::int64_t>(saved.files.size());
        }
        total_ms += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }
    state.counters["ms_per_picture"] = pictures > 0 ? total_ms / static_cast<double>(pictures) : 0.0;
    state.counters["pictures"] = static_cast<double>(pictures) / static_cast<double>(state.iterations());
}
// 0: each draw in one picture; 1: each draw split into its two halves.
BENCHMARK(BM_DrawPicturesGif)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace
