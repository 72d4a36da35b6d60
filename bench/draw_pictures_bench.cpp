// Draw pictures as the prints area saves them: 64 knock-out draws of 128, two rounds played, each laid out,
// painted and saved as a GIF file.
#include "bench_support.h"
#include "core/database.h"
#include "core/session.h"
#include "documents/makedrawpic_new.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr int events = 64;
constexpr int drawsize = 128;

void ensure_gui_app()
{
    if (QCoreApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "quorvelin_bench";
    static char* argv[] = { name, nullptr };
    static QGuiApplication app(argc, argv);
}

// Player k of event e in slot k, long names as real entries have them, the top player winning two rounds.
void save_draws(qv::Session& session)
{
    auto& db = session.tournament();
    qv::Transaction transaction(db);
    for (int eid = 1; eid <= events; ++eid) {
        db.run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, timestamp_text)
            values (?, ?, 'male', 'singles', 'ko', 'Monday, June 14, 2027 10:00:00'))",
            eid, "men's open event " + std::to_string(eid));
        qv::OpenDraw open;
        qv::load_event_state(db, eid, open.draw);
        open.build_tree(drawsize);
        for (int k = 1; k <= drawsize; ++k) {
            auto& slot = open.slot(1, k);
            slot.ttt = "Maximilian Schwarzenberger " + std::to_string(k);
            slot.frn = "M Schwarzenbe" + std::to_string(k);
            slot.tag = "Schwarz" + std::to_string(k);
            slot.seed = k <= 16 ? std::to_string(k) : "";
            slot.country = k % 3 ? "NED" : "BEL";
        }
        qv::KO_savecontrols(db, open);
        db.run("update events set drawdone=true, drawsize=? where eid=?", drawsize, eid);
        qv::progressdraw(session, eid, 1);
        qv::progressdraw(session, eid, 2);
    }
    transaction.commit();
}

void BM_DrawPicturesGif(benchmark::State& state)
{
    ensure_gui_app();
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
