// The whole website of a big tournament: 64 knock-out draws (15 of 128 and 49 of 64, 4,992 matches), two rounds
// played, the first three rounds on three days of eight courts, every part and page option on, every draw and
// every day chosen.
#include "bench_draws.h"
#include "bench_support.h"
#include "core/database.h"
#include "core/session.h"
#include "documents/live_days.h"
#include "online/website_make.h"
#include "scheduling/days_courts.h"
#include "scheduling/match_counters.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr int events = 64;
constexpr int big_draws = 15; // of 128; the others are of 64

// The tournament's knock-out draws, their first two rounds played.
void save_draws(qv::Session& session)
{
    qv::Transaction transaction(session.tournament());
    for (int eid = 1; eid <= events; ++eid)
        qv::bench::save_played_ko_draw(session, eid, eid <= big_draws ? 128 : 64);
    transaction.commit();
}

// The first three rounds spread over the days and courts in sid order, numbered on each court.
void place_matches(qv::Session& session)
{
    qv::DaysCourtsEditor editor(session);
    editor.init();
    editor.set_days({ 2027, 6, 14 }, { 2027, 6, 16 });
    editor.generate("8", editor.days());
    editor.save();
    auto& db = session.tournament();
    std::vector<std::pair<std::string, std::int64_t>> days;
    for (auto rows = db.query("select sdate, idx from scheduledays where sdate <>'' order by idx"); rows.step();)
        days.emplace_back(rows.text(0), rows.integer(1));
    qv::Transaction transaction(db);
    std::int64_t n = 0;
    for (auto rows = db.query("select sid from schedule where rid < 3 order by sid"); rows.step(); ++n) {
        const auto& [sdate, idx] = days[static_cast<std::size_t>(n % 3)];
        db.run("update schedule set scheduledate=?, day_idx=?, cid=?, matchnumber=? where sid=?", sdate, idx,
            n / 3 % 8 + 1, n / 24 + 1, rows.integer(0));
    }
    transaction.commit();
    qv::LIVE_MATCH_COUNTS_ALL(session);
}

void BM_MakeWebsite(benchmark::State& state)
{
    qv::bench::ensure_gui_app();
    qv::bench::BenchAppDir dir("website.qvd");
    qv::bench::QuietTalk talk;
    qv::bench::QuietHost host;
    qv::Session session(dir.app, talk, host);
    session.boot_start_app(dir.file.string());
    session.settings().set_tournament_cache(session.tournament(), "itname", "Big Open");
    save_draws(session);
    place_matches(session);

    qv::WebsiteOptions options;
    qv::apply_website_style(options, "select all");
    options.draws.text_draws = true;
    options.draws.from = true;
    for (int eid = 1; eid <= events; ++eid)
        options.draws.eids.push_back(eid);
    auto& db = session.tournament();
    options.schedules = { true, true, true, true, true, true, qv::days_working_schedule(db) };
    options.player_times = { true, qv::days_playertimes(db) };
    options.results = { true, true, true, true, true, true, true, true, qv::days_results(db) };
    session.settings().set_disk_var("entries_make", "1");
    session.settings().set_disk_var("players_make", "1");
    auto run = qv::website_run_now(session);
    run.step = {};

    double total_ms = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        if (!qv::make_website(session, options, run))
            state.SkipWithError("the website was not made");
        total_ms += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& file : fs::directory_iterator(session.dirs().website))
        ++files;
    state.counters["matches"] = static_cast<double>(
        session.tournament().scalar_integer("select count(*) from schedule where rname <> 'winner'"));
    state.counters["on_days"]
        = static_cast<double>(session.tournament().scalar_integer("select count(*) from schedule where day_idx > 0"));
    state.counters["files"] = static_cast<double>(files);
    state.counters["ms_per_site"] = total_ms / static_cast<double>(state.iterations());
}
BENCHMARK(BM_MakeWebsite)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
