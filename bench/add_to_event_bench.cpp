// Adding a whole register to one event in one batch: 2,000 people, each looked up, checked against the event and
// the entries already there, and written.
#include "core/database.h"
#include "core/quiet_talk.h"
#include "core/session.h"
#include "entries/add_to_event.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <random>

namespace {

namespace fs = std::filesystem;

constexpr int people = 2000;

struct Register
{
    fs::path app;
    fs::path file;

    Register()
    {
        std::random_device device;
        app = fs::temp_directory_path() / ("quorvelin-bench-" + std::to_string(device()));
        fs::create_directories(app);
        fs::copy(QV_INIT_FILES_DIR, app / "init_files", fs::copy_options::recursive);
        file = app / "register.qvd";
        fs::copy_file(app / "init_files" / "blank.qvd", file);
        qv::Database db(file);
        qv::Transaction transaction(db);
        db.run("insert into events (eid, eventname, singdobs, sex, pte, drawtype) values "
               "(1, 'open singles', 'singles', 'neutral', 'e', 'ko')");
        auto player = db.query("insert into players (pid, player, fname, sname, sex, pval, availabilityrestrictions) "
                               "values (?, ?, ?, ?, ?, 1, '')");
        for (int pid = 1; pid <= people; ++pid) {
            const auto fname = "Player" + std::to_string(pid);
            player.bind_all(pid, fname + " Smith", fname, std::string("Smith"), pid % 2 ? "male" : "female");
            player.step();
            player.reset();
        }
        transaction.commit();
    }
    ~Register() { fs::remove_all(app); }
};

void BM_AddRegisterToEvent(benchmark::State& state)
{
    Register reg;
    qv::QuietTalk talk;
    qv::QuietHost host;
    qv::Session session(reg.app, talk, host);
    session.boot_start_app(reg.file.string());

    qv::AddRequest request;
    request.source = qv::AddSource::players;
    request.target = 1;
    for (int pid = 1; pid <= people; ++pid)
        request.lines.push_back("Player" + std::to_string(pid) + " Smith");

    for (auto _ : state) {
        state.PauseTiming();
        session.tournament().run("delete from evententries");
        state.ResumeTiming();
        const auto report = qv::add_to_event1(session, request);
        if (report.added != people)
            state.SkipWithError("not every person was added");
    }
    state.counters["rows_per_second"]
        = benchmark::Counter(static_cast<double>(people), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_AddRegisterToEvent)->Unit(benchmark::kMillisecond);

} // namespace
