// Kills the program's work with SIGKILL at random moments and checks what is left on disk: during "do all draws"
// (one unit of work: afterwards every table holds all of it or none of it) and during compaction (the file is
// whole, the rows are all there, and a temporary file left behind goes at the next open).
//
//   quorvelin_kill_loop [kills per phase, default 50] [seed]
//
// Not part of the test run: it takes a few minutes. Exit status 1 when any file was torn or damaged.
#include "core/compaction.h"
#include "core/database.h"
#include "core/quiet_talk.h"
#include "core/session.h"
#include "core/tournament_file.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <map>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int events = 24;
constexpr int entries_per_event = 64;
constexpr int people = 600;

// The rows of every table that outlives a close (scratch tables are emptied at each open).
using Counts = std::map<std::string, std::int64_t>;

Counts counts_of(qv::Database& db)
{
    static const char* const tables[]
        = { "players", "events", "evententries", "schedule", "rounds", "tournament", "scheduledays" };
    Counts counts;
    for (const char* table : tables)
        counts[table] = db.row_count(table);
    counts["events drawn"] = db.scalar_integer("select count(*) from events where drawdone <> 0");
    counts["entries drawn"] = db.scalar_integer("select count(*) from evententries where drawdone <> 0");
    return counts;
}

void fill(const fs::path& file, int slack_rows)
{
    qv::Database db(file);
    qv::Transaction transaction(db);
    auto player = db.query(R"(insert into players (pid, player, fname, sname, sex, pval, country, notes)
        values (?, ?, ?, ?, 'male', 1, 'NED', ?))");
    for (int pid = 1; pid <= people + slack_rows; ++pid) {
        const auto fname = "First" + std::to_string(pid);
        const auto sname = "Second" + std::to_string(pid % 97);
        player.bind_all(pid, fname + " " + sname, fname, sname, std::string(pid > people ? 400 : 0, 'n'));
        player.step();
        player.reset();
    }
    auto event = db.query(R"(insert into events (eid, eventname, singdobs, sex, pte, drawtype)
        values (?, ?, 'singles', 'male', 'e', 'ko'))");
    auto entry = db.query(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, psex,
        reserve, seeding) values (?, ?, ?, ?, ?, 'male', 0, ?))");
    int ent_idx = 0;
    for (int eid = 1; eid <= events; ++eid) {
        event.bind_all(eid, "event " + std::to_string(eid));
        event.step();
        event.reset();
        for (int k = 0; k < entries_per_event; ++k) {
            const int pid = ((eid - 1) * entries_per_event + k) % people + 1;
            const auto fname = "First" + std::to_string(pid);
            const auto sname = "Second" + std::to_string(pid % 97);
            entry.bind_all(++ent_idx, eid, fname + " " + sname, fname, sname, k < 4 ? k + 1 : 0);
            entry.step();
            entry.reset();
        }
    }
    transaction.commit();
    // Half the padding goes again: free pages for the compaction to take away.
    db.run("delete from players where pid > ? and pid % 2 = 0", people);
}

void run_all_draws(const fs::path& app, const fs::path& file, int ready_fd)
{
    qv::QuietTalk talk;
    qv::QuietHost host;
    qv::Session session(app, talk, host);
    session.boot_start_app(file.string());
    if (!session.has_tournament())
        _exit(3);
    qv::OpenDraw open;
    qv::SeededDrawRandom random(20260101);
    qv::DrawSaveHooks save_hooks;
    qv::DrawHooks hooks;
    hooks.set_scoreboxes = [](qv::OpenDraw& draw, bool highlight) { qv::set_scoreboxes(draw, highlight); };
    hooks.sendbyesthru = [&](qv::OpenDraw& draw) { qv::sendbyesthru(session, draw); };
    qv::AllDrawsSteps steps;
    steps.close_draw
        = [&](qv::OpenDraw& draw) { return qv::leave_draw(session, draw, qv::LeaveReason::closingdraws, save_hooks); };
    steps.load_draw = [&](qv::OpenDraw& draw, std::int64_t eid) { qv::BF_load_draw(session, draw, eid, save_hooks); };
    steps.save_draw_doing_all_draws = [&](qv::OpenDraw& draw) {
        qv::save_draw(session, draw, save_hooks, qv::SaveRefresh::doing_all_draws);
        return true;
    };
    steps.close_draw_special = [](qv::OpenDraw& draw) {
        draw.clear_tree();
        draw.draw.on_screen = false;
        draw.draw.new_draw = false;
        draw.draw.changes_waiting = false;
    };
    steps.save_draw_END_doing_all_draws
        = [&](qv::OpenDraw&) { qv::save_draw_END_doing_all_draws(session, save_hooks); };
    if (ready_fd >= 0) {
        [[maybe_unused]] auto n = write(ready_fd, "r", 1);
    }
    qv::do_all_draws(session, open, random, hooks, steps);
    if (ready_fd >= 0) {
        [[maybe_unused]] auto n = write(ready_fd, "d", 1);
    }
    session.exit_app();
}

void run_compaction(const fs::path& file, int ready_fd)
{
    if (ready_fd >= 0) {
        [[maybe_unused]] auto n = write(ready_fd, "r", 1);
    }
    qv::compact_file(file);
    if (ready_fd >= 0) {
        [[maybe_unused]] auto n = write(ready_fd, "d", 1);
    }
}

// Runs the work in a child; with a delay, kills it that long after it said it was starting. The time from its
// start to its end, as the child says them.
double in_child(const std::function<void(int)>& work, std::optional<std::chrono::microseconds> kill_after)
{
    int ready[2];
    if (pipe(ready) != 0)
        std::exit(2);
    const pid_t child = fork();
    if (child == 0) {
        close(ready[0]);
        work(ready[1]);
        _exit(0);
    }
    close(ready[1]);
    char c = 0;
    [[maybe_unused]] auto n = read(ready[0], &c, 1);
    const auto start = Clock::now();
    if (kill_after) {
        std::this_thread::sleep_for(*kill_after);
        kill(child, SIGKILL);
    } else {
        n = read(ready[0], &c, 1);
    }
    const auto end = Clock::now();
    close(ready[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return std::chrono::duration<double, std::milli>(end - start).count();
}

std::vector<fs::path> temp_files(const fs::path& dir)
{
    std::vector<fs::path> found;
    for (const auto& entry : fs::directory_iterator(dir))
        if (entry.path().filename().string().find(".temp") != std::string::npos)
            found.push_back(entry.path());
    return found;
}

struct Tally
{
    int before = 0, after = 0, torn = 0, damaged = 0, not_opened = 0, temps_left = 0, temps_after_open = 0;
    std::uintmax_t largest_temp = 0;
};

// What a kill left: the file checked by the engine, its rows against both ends, then opened as a director would.
void judge(const fs::path& app, const fs::path& file, const Counts& before, const Counts& after, Tally& tally)
{
    const auto left = temp_files(file.parent_path());
    tally.temps_left += left.empty() ? 0 : 1;
    for (const auto& temp : left) {
        std::error_code ec;
        tally.largest_temp = std::max(tally.largest_temp, fs::file_size(temp, ec));
    }
    try {
        qv::Database db(file);
        if (db.scalar_text("pragma integrity_check") != "ok") {
            ++tally.damaged;
            return;
        }
        const auto now = counts_of(db);
        if (now == before)
            ++tally.before;
        else if (now == after)
            ++tally.after;
        else
            ++tally.torn;
    } catch (const qv::DbError&) {
        ++tally.damaged;
        return;
    }
    qv::QuietTalk talk;
    qv::QuietHost host;
    qv::Session session(app, talk, host);
    session.boot_start_app(file.string());
    if (!session.has_tournament()) {
        ++tally.not_opened;
        std::printf("  not opened: %s\n", talk.last_message.c_str());
    }
    session.exit_app();
    tally.temps_after_open += static_cast<int>(temp_files(file.parent_path()).size());
}

void report(const char* phase, int kills, const Tally& t, bool changes_rows)
{
    if (changes_rows)
        std::printf("%s: %d kills: %d all-before, %d all-after, %d torn", phase, kills, t.before, t.after, t.torn);
    else
        std::printf("%s: %d kills: %d with every row, %d torn", phase, kills, t.before, t.torn);
    std::printf(", %d damaged, %d not opened; %d left a temporary file (largest %.1f MB), %d temporary files after "
                "the next open\n",
        t.damaged, t.not_opened, t.temps_left, static_cast<double>(t.largest_temp) / 1e6, t.temps_after_open);
}

} // namespace

int main(int argc, char** argv)
{
    const int kills = argc > 1 ? std::atoi(argv[1]) : 50;
    std::mt19937 random(argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : std::random_device()());
    const auto app = fs::temp_directory_path() / ("quorvelin-kill-" + std::to_string(getpid()));
    fs::create_directories(app / "tournaments");
    fs::copy(QV_INIT_FILES_DIR, app / "init_files", fs::copy_options::recursive);
    const auto filled = app / "filled.qvd";
    fs::copy_file(app / "init_files" / "blank.qvd", filled);
    fill(filled, 60000);
    const auto file = app / "tournaments" / "t.qvd";
    const auto fresh = [&] {
        fs::remove_all(app / "tournaments");
        fs::create_directories(app / "tournaments");
        fs::copy_file(filled, file);
    };

    // Both ends of "do all draws", and how long it takes, from one run that is left alone.
    fresh();
    Counts before;
    {
        qv::Database db(file);
        before = counts_of(db);
    }
    const double draws_ms = in_child([&](int fd) { run_all_draws(app, file, fd); }, std::nullopt);
    Counts after;
    {
        qv::Database db(file);
        after = counts_of(db);
    }
    std::printf("do all draws: %d events drawn, %lld match rows, %.0f ms when left alone\n",
        static_cast<int>(after["events drawn"]), static_cast<long long>(after["schedule"]), draws_ms);

    Tally draws;
    for (int k = 0; k < kills; ++k) {
        fresh();
        const auto delay = std::chrono::microseconds(
            std::uniform_int_distribution<long>(0, static_cast<long>(draws_ms * 1000 * 1.1))(random));
        in_child([&](int fd) { run_all_draws(app, file, fd); }, delay);
        judge(app, file, before, after, draws);
    }
    report("do all draws", kills, draws, true);

    fresh();
    const auto size = fs::file_size(file);
    const double compact_ms = in_child([&](int fd) { run_compaction(file, fd); }, std::nullopt);
    std::printf("compaction: %.1f MB to %.1f MB, %.0f ms when left alone\n", static_cast<double>(size) / 1e6,
        static_cast<double>(fs::file_size(file)) / 1e6, compact_ms);
    Tally compaction;
    for (int k = 0; k < kills; ++k) {
        fresh();
        const auto delay = std::chrono::microseconds(
            std::uniform_int_distribution<long>(0, static_cast<long>(compact_ms * 1000 * 1.1))(random));
        in_child([&](int fd) { run_compaction(file, fd); }, delay);
        // A compaction changes no row: both ends are the same.
        judge(app, file, before, before, compaction);
    }
    report("compaction", kills, compaction, false);

    fs::remove_all(app);
    const bool whole = draws.torn + draws.damaged + draws.not_opened + compaction.torn + compaction.damaged
            + compaction.not_opened + draws.temps_after_open + compaction.temps_after_open
        == 0;
    return whole ? 0 : 1;
}
