// Compiling the bills of 2,000 players, each entered in four events: two singles events of 2,000 entries and two
// doubles events of 1,000 pairs, all drawn, so that 8,000 bills are added up from 6,000 entries.
#include "bench_support.h"
#include "core/database.h"
#include "core/session.h"
#include "payments/compile.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int players = 2000;

void fill(const std::filesystem::path& file)
{
    qv::Database db(file);
    qv::Transaction transaction(db);
    db.exec_script(R"(insert into events (eid, eventname, fee, singdobs, sex, drawdone) values
        (1, 'open singles', '20', 'singles', 'neutral', 1), (2, 'veterans singles', '12.5', 'singles', 'neutral', 1),
        (3, 'open doubles', '15', 'doubles', 'neutral', 1), (4, 'veterans doubles', '7.25', 'doubles', 'neutral', 1))");
    auto player = db.query("insert into players (pid, player, fname, sname) values (?, ?, ?, ?)");
    auto single = db.query(R"(insert into evententries (ent_idx, eid, en, sd, player, playerfname, playersname)
        values (?, ?, 'singles', 'singles', ?, ?, ?))");
    auto pair = db.query(R"(insert into evententries (ent_idx, eid, en, sd, player, playerfname, playersname,
        p1name, partner, partnerfname, partnersname) values (?, ?, 'doubles', 'doubles', ?, ?, 'Smith', ?, ?, ?,
        'Smith'))");
    const auto step = [](qv::Statement& statement) {
        statement.step();
        statement.reset();
    };
    int ent_idx = 0;
    for (int pid = 1; pid <= players; ++pid) {
        const auto fname = "Player" + std::to_string(pid);
        const auto name = fname + " Smith";
        player.bind_all(pid, name, fname, "Smith");
        step(player);
        for (int eid : { 1, 2 }) {
            single.bind_all(++ent_idx, eid, name, fname, "Smith");
            step(single);
        }
        if (pid % 2 == 0) {
            const auto first = "Player" + std::to_string(pid - 1);
            for (int eid : { 3, 4 }) {
                pair.bind_all(++ent_idx, eid, first + " Smith/" + name, first, first + " Smith", name, fname);
                step(pair);
            }
        }
    }
    transaction.commit();
}

void BM_CompilePayments(benchmark::State& state)
{
    qv::bench::BenchAppDir dir("payments.qvd");
    fill(dir.file);
    qv::bench::QuietTalk talk;
    qv::bench::QuietHost host;
    qv::Session session(dir.app, talk, host);
    session.boot_start_app(dir.file.string());

    for (auto _ : state) {
        if (!qv::compile(session, 1))
            state.SkipWithError("nothing was compiled");
    }
    const double bill = session.tournament().scalar_integer("select round(sum(player_bill)) from players");
    if (bill != players * (20 + 12.5 + 15 + 7.25))
        state.SkipWithError("the bills do not add up");
    state.counters["entries_per_second"]
        = benchmark::Counter(3.0 * players, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_CompilePayments)->Unit(benchmark::kMillisecond);

} // namespace
