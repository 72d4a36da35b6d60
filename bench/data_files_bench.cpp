// The data files of a large tournament: the results file of 5,000 matches written and read back into the
// analysis tables, and an entries file of 2,000 entries read into the peek tables.
#include "bench_support.h"
#include "core/database.h"
#include "core/session.h"
#include "datafiles/entries_file.h"
#include "datafiles/results_file.h"

#include <benchmark/benchmark.h>
#include <fstream>

namespace {

constexpr int matches = 5000;
constexpr int entries = 2000;

void fill_schedule(qv::Database& db)
{
    qv::Transaction transaction(db);
    db.run("update tournament set tournament = 'bench open', dates = 'mon02mar26' where idx = 1");
    db.run("insert into events (eid, eventname, singdobs, sex, drawtype, drawsize, drawdone) values "
           "(1, 'open', 'singles', 'male', 'ko', 128, 1)");
    auto row = db.query(R"(insert into schedule (sid, eid, "match", rid, rname, rsname, mt, mb, mtttt, mbttt, mtfrn,
        mttag, mbfrn, mbtag, matchscore, eventname, singdobs, evtsex, drawtype, ds, scheduledate)
        values (?, 1, ?, 1, 'first', '1.7', '1.1', '1.2', ?, ?, ?, ?, ?, ?, '6-4 6-4', 'open', 'singles', 'male',
        'ko', 128, ?))");
    for (int sid = 1; sid <= matches; ++sid) {
        const auto top = "top player " + std::to_string(sid);
        const auto bottom = "bottom player " + std::to_string(sid);
        row.bind_all(sid, sid, top, bottom, top, top, bottom, bottom, sid % 2 ? "mon02mar26" : "");
        row.step();
        row.reset();
    }
    transaction.commit();
}

void fill_entries(qv::Database& db)
{
    qv::Transaction transaction(db);
    db.run("insert into events (eid, eventname, singdobs, sex, pte) values (1, 'open', 'singles', 'male', 'p')");
    auto player = db.query("insert into players (pid, player, fname, sname, sex, email) values (?, ?, ?, 'lee', "
                           "'male', 'a@b.org')");
    auto entry = db.query("insert into evententries (ent_idx, eid, player, sd) values (?, 1, ?, 'singles')");
    for (int pid = 1; pid <= entries; ++pid) {
        const auto first = "p" + std::to_string(pid);
        player.bind_all(pid, first + " lee", first);
        player.step();
        player.reset();
        entry.bind_all(pid, first + " lee");
        entry.step();
        entry.reset();
    }
    transaction.commit();
}

void BM_ResultsFileWriteAndRead5000(benchmark::State& state)
{
    qv::bench::BenchAppDir dir("results.qvd");
    qv::bench::QuietTalk talk;
    qv::bench::QuietHost host;
    qv::Session session(dir.app, talk, host);
    session.boot_start_app(dir.file.string());
    fill_schedule(session.tournament());
    const auto file = dir.app / "bench.qv4";
    for (auto _ : state) {
        qv::Qv4Header header;
        if (!qv::write_qv4_file(session.tournament(), file)
            || !qv::read_qv4_single(session.peek_browse_db(), file, "bench.qv4", header)
            || session.peek_browse_db().row_count("qv4_single_schedule") != matches)
            state.SkipWithError("the results file did not come back whole");
    }
}
BENCHMARK(BM_ResultsFileWriteAndRead5000)->Unit(benchmark::kMillisecond);

void BM_EntriesFileLoad2000(benchmark::State& state)
{
    qv::bench::BenchAppDir dir("entries.qvd");
    qv::bench::QuietTalk talk;
    qv::bench::QuietHost host;
    qv::Session session(dir.app, talk, host);
    session.boot_start_app(dir.file.string());
    fill_entries(session.tournament());
    const auto file = dir.app / "bench.qv5";
    std::vector<std::string> lines = qv::qv5_lines(session.tournament(), qv::Qv5Doubles::resolved);
    {
        std::ofstream out(file, std::ios::binary);
        for (const auto& line : lines)
            out << line << "\r\n";
    }
    for (auto _ : state)
        if (!qv::load_entries_file(session, file, qv::EntriesTarget::peek)
            || session.peek_browse_db().row_count("peek_evententries") != entries)
            state.SkipWithError("the entries file did not load whole");
}
BENCHMARK(BM_EntriesFileLoad2000)->Unit(benchmark::kMillisecond);

} // namespace
