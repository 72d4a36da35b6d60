// Opening a tournament compacts it and empties its scratch tables; this measures that on a busy file
// (2,000 players, 5,000 match rows) and compaction on its own.
#include "core/compaction.h"
#include "core/database.h"
#include "core/quiet_talk.h"
#include "core/session.h"
#include "core/tournament_file.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <random>

namespace {

namespace fs = std::filesystem;

struct BusyTournament
{
    fs::path app;
    fs::path file;

    BusyTournament()
    {
        std::random_device device;
        app = fs::temp_directory_path() / ("quorvelin-bench-" + std::to_string(device()));
        fs::create_directories(app);
        fs::copy(QV_INIT_FILES_DIR, app / "init_files", fs::copy_options::recursive);
        file = app / "busy.qvd";
        fs::copy_file(app / "init_files" / "blank.qvd", file);
        fill();
    }
    ~BusyTournament() { fs::remove_all(app); }

    void fill()
    {
        qv::Database db(file);
        qv::Transaction transaction(db);
        auto player = db.query("insert into players (pid, player, fname, sname, sex) values (?, ?, ?, ?, 'male')");
        for (int pid = 1; pid <= 2000; ++pid) {
            const auto name = "player" + std::to_string(pid);
            player.bind_all(pid, name + " smith", name, std::string("smith"));
            player.step();
            player.reset();
        }
        auto match = db.query("insert into schedule (sid, eid, match, rid, rname, mtttt, mbttt, mtfrn, mbfrn, mttag,"
                              " mbtag, match_state) values (?, ?, ?, 1, 'r1', ?, ?, ?, ?, ?, ?, '2')");
        for (int sid = 1; sid <= 5000; ++sid) {
            const auto top = "player" + std::to_string(sid % 2000 + 1) + " smith";
            const auto bottom = "player" + std::to_string((sid * 7) % 2000 + 1) + " smith";
            match.bind_all(sid, sid / 128 + 1, sid % 128 + 1, top, bottom, top, bottom, top, bottom);
            match.step();
            match.reset();
        }
        transaction.commit();
    }
};

void BM_OpenTournament(benchmark::State& state)
{
    BusyTournament busy;
    qv::QuietTalk talk { qv::Answer::Yes };
    qv::QuietHost host;
    qv::Session session(busy.app, talk, host);
    session.boot_start_app("");
    for (auto _ : state) {
        session.opendb(busy.file.string());
        state.PauseTiming();
        session.close_current_db();
        state.ResumeTiming();
    }
    state.counters["file_kib"] = static_cast<double>(fs::file_size(busy.file)) / 1024.0;
}
BENCHMARK(BM_OpenTournament)->Unit(benchmark::kMillisecond);

// The checks every open runs before anything changes the file: the engine's page check and the schema against
// the blank file's tables and columns.
void BM_OpenChecks(benchmark::State& state)
{
    BusyTournament busy;
    qv::Database db(busy.file);
    for (auto _ : state) {
        benchmark::DoNotOptimize(qv::passes_quick_check(db));
        benchmark::DoNotOptimize(qv::missing_schema(db, busy.app / "init_files" / "blank.qvd"));
    }
}
BENCHMARK(BM_OpenChecks)->Unit(benchmark::kMillisecond);

void BM_CompactTournament(benchmark::State& state)
{
    BusyTournament busy;
    for (auto _ : state)
        benchmark::DoNotOptimize(qv::compact_file(busy.file));
}
BENCHMARK(BM_CompactTournament)->Unit(benchmark::kMillisecond);

} // namespace
