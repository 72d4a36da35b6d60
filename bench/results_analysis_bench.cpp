// Results analysis over an archive of 200 results files of 500 matches each (a knock-out of 512 in one event,
// one year each, the same 400 players drawn anew every year): compiling the set, then one head to head.
#include "bench_support.h"
#include "core/codepage.h"
#include "core/session.h"
#include "datafiles/results_analysis.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <random>

namespace {

namespace fs = std::filesystem;

constexpr int files = 200;
constexpr int matches = 500;
constexpr int people = 400;

std::string person(int k)
{
    return "player " + std::to_string(k);
}

// A results file as the program writes one: header, event, then the match records, winners chosen by chance.
void write_file(const fs::path& file, int year, std::mt19937& random)
{
    std::ofstream out(file, std::ios::binary);
    out << "club open " << year << "^" << year << "^venue^address^country^clay^tmentendmarker^\r\n";
    out << "1^open singles^singles^male^ko^512^0^^\xbf^\r\n";
    std::uniform_int_distribution<int> anyone(1, people);
    for (int sid = 1; sid <= matches; ++sid) {
        const auto top = person(anyone(random));
        const auto bottom = person(anyone(random));
        const auto& winner = random() % 2 ? top : bottom;
        out << sid << "^1^" << sid << "^1^round 1^r1^1." << sid << "^1." << sid + 1 << "^" << top << "^" << bottom
            << "^" << top << "^" << top << "^" << bottom << "^" << bottom << "^" << winner
            << "^6-3 6-4^^^^^^^^m^m^open singles^singles^male^ko^512^0^" << top << "^" << top << "^" << bottom << "^^"
            << "01/mar/" << year % 100 << "^&^\r\n";
    }
}

void BM_Qv4CompileAndHeadToHead(benchmark::State& state)
{
    qv::bench::BenchAppDir dir("analysis.qvd");
    qv::bench::QuietTalk talk;
    qv::bench::QuietHost host;
    qv::Session session(dir.app, talk, host);
    session.boot_start_app("");
    fs::create_directories(session.dirs().qv4_file_archive);
    std::mt19937 random(2026);
    std::vector<std::string> names;
    for (int k = 0; k < files; ++k) {
        names.push_back("open" + std::to_string(1800 + k) + ".qv4");
        write_file(session.dirs().qv4_file_archive / names.back(), 1800 + k, random);
    }
    double compile_ms = 0;
    double h2h_ms = 0;
    std::size_t met = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(qv::qv4_compile(session, names));
        const auto compiled = std::chrono::steady_clock::now();
        met = qv::head_to_head(session.peek_browse_db(), person(1), person(7)).lines.size();
        const auto answered = std::chrono::steady_clock::now();
        compile_ms = std::chrono::duration<double, std::milli>(compiled - start).count();
        h2h_ms = std::chrono::duration<double, std::milli>(answered - compiled).count();
    }
    state.counters["compile_ms"] = compile_ms;
    state.counters["head_to_head_ms"] = h2h_ms;
    state.counters["h2h_lines"] = static_cast<double>(met);
    state.counters["matches"] = static_cast<double>(session.peek_browse_db().row_count("qv4_multiple_schedule"));
    state.counters["players"] = static_cast<double>(session.peek_browse_db().row_count("qv4_multiple_players"));
}
BENCHMARK(BM_Qv4CompileAndHeadToHead)->Iterations(2)->Unit(benchmark::kMillisecond);

} // namespace
