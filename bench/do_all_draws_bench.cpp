// "do all draws" as the draw area runs it: 64 knock-out events of 128 entries each, every draw made, its names
// formed and saved into schedule, then the held-back refreshes once at the end.
#include "core/database.h"
#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>
#include <memory>
#include <random>

namespace {

namespace fs = std::filesystem;

constexpr int events = 64;
constexpr int entries_per_event = 128;
constexpr int seeds_per_event = 8;

class SilentTalk : public qv::UserTalk
{
public:
    void message(std::string_view, std::string_view) override { }
    qv::Answer ask(std::string_view, std::string_view, qv::Buttons) override { return qv::Answer::No; }
    std::vector<fs::path> choose_files(const qv::FileRequest&) override { return {}; }
    void show_text(const fs::path&, std::string_view) override { }
    void progress(std::string_view) override { }
    void beep() override { }
};

class SilentHost : public qv::SessionHost
{
public:
    void load_all_forms() override { }
    void unload_all_forms() override { }
    bool leave_draw() override { return true; }
    void cancel_list1() override { }
    void refresh_draw_on_entry() override { }
    void refresh_lists(qv::Lists) override { }
    void show_area(qv::Area, const qv::Markers&) override { }
    void set_generics(const std::string&, const std::string&) override { }
    void busy(bool) override { }
    void defer(std::function<void()>) override { }
    void end_process() override { }
};

// 2,048 people in the register, each entered in four events. A fair share of the names are long enough that
// the short forms have to be searched for, and many share a surname.
const char* const first_names[] = { "Alexander", "Bartholomew", "Catherine", "Dominique", "Elisabeth", "Frederik",
    "Gabriella", "Henrietta", "Ignatius", "Jacqueline", "Konstantin", "Leopoldine", "Maximilian", "Nathaniel",
    "Octavia", "Penelope", "Quentin", "Rosalind", "Sebastian", "Theodora", "Ulrich", "Valentina", "Wilhelmina",
    "Xavier", "Yolanda", "Zacharias", "Ann", "Bo", "Cy", "Di", "Ed", "Flo", "Gus", "Hal", "Ida", "Jo", "Kit", "Lu",
    "Max", "Ned", "Oz", "Pia", "Roy", "Sue", "Tom", "Una", "Vic", "Wes", "Abigail", "Benedict", "Cornelius", "Desmond",
    "Evangeline", "Florentina", "Gwendolyn", "Horatio", "Isadora", "Jeremiah", "Katarina", "Lysander", "Montgomery",
    "Nicodemus", "Ophelia", "Percival" };
const char* const surnames[] = { "Montgomery-Smith", "Vandenberghe", "Schwarzenbergerin", "Fitzgeraldson",
    "Kowalczykowski", "Oyelaran-Adeyemi", "Papadopoulos", "Rasmussen", "Lee", "Kim", "Ng", "Ito", "Smith", "Brown",
    "Nakamura", "Hernandez-Garcia", "Abernathy", "Blackwood", "Castellanos", "Delacroix-Moreau", "Eriksson",
    "Featherstonehaugh", "Gallagher", "Haversham", "Ivanovich", "Jankowski", "Kristiansen", "Lindqvist", "MacAllister",
    "Nordstrom", "Ostrowski", "Pemberton" };
constexpr int people = 64 * 32;

struct DrawsTournament
{
    fs::path app;
    fs::path filled;

    DrawsTournament()
    {
        std::random_device device;
        app = fs::temp_directory_path() / ("quorvelin-bench-" + std::to_string(device()));
        fs::create_directories(app);
        fs::copy(QV_INIT_FILES_DIR, app / "init_files", fs::copy_options::recursive);
        filled = app / "filled.qvd";
        fs::copy_file(app / "init_files" / "blank.qvd", filled);
        fill();
    }
    ~DrawsTournament() { fs::remove_all(app); }

    static std::string fname_of(int pid) { return first_names[(pid - 1) % 64]; }
    static std::string sname_of(int pid) { return surnames[(pid - 1) / 64]; }

    void fill()
    {
        qv::Database db(filled);
        qv::Transaction transaction(db);
        auto player = db.query(R"(insert into players (pid, player, fname, sname, sex, pval, country,
            availabilityrestrictions) values (?, ?, ?, ?, 'male', 1, ?, ?))");
        for (int pid = 1; pid <= people; ++pid) {
            player.bind_all(pid, fname_of(pid) + " " + sname_of(pid), fname_of(pid), sname_of(pid),
                std::string(pid % 3 ? "NED" : "BEL"), std::string(pid % 10 ? "" : "not before 10:00"));
            player.step();
            player.reset();
        }
        auto event = db.query(R"(insert into events (eid, eventname, singdobs, sex, pte, drawtype)
            values (?, ?, 'singles', 'male', 'e', 'ko'))");
        auto entry = db.query(R"(insert into evententries (ent_idx, eid, pid, player, playerfname, playersname, psex,
            reserve, seeding) values (?, ?, ?, ?, ?, ?, 'male', 0, ?))");
        int ent_idx = 0;
        for (int eid = 1; eid <= events; ++eid) {
            event.bind_all(eid, "event " + std::to_string(100 + eid));
            event.step();
            event.reset();
            for (int k = 0; k < entries_per_event; ++k) {
                const int pid = ((eid - 1) * entries_per_event + k) % people + 1;
                entry.bind_all(++ent_idx, eid, pid, fname_of(pid) + " " + sname_of(pid), fname_of(pid), sname_of(pid),
                    k < seeds_per_event ? k + 1 : 0);
                entry.step();
                entry.reset();
            }
        }
        transaction.commit();
    }

    // A working copy, so every run starts with no draw done.
    fs::path fresh() const
    {
        const auto file = app / "draws.qvd";
        fs::copy_file(filled, file, fs::copy_options::overwrite_existing);
        return file;
    }
};

void BM_DoAllDraws(benchmark::State& state)
{
    DrawsTournament tournament;
    SilentTalk talk;
    SilentHost host;
    double total_ms = 0;
    std::int64_t draws = 0;

    for (auto _ : state) {
        state.PauseTiming();
        auto session = std::make_unique<qv::Session>(tournament.app, talk, host);
        session->boot_start_app(tournament.fresh().string());
        qv::OpenDraw open;
        qv::SeededDrawRandom random(20260101);
        qv::DrawSaveHooks save_hooks;

        // The same steps the draw area hands in, without the windows.
        qv::DrawHooks hooks;
        hooks.set_scoreboxes = [](qv::OpenDraw& draw, bool highlight) { qv::set_scoreboxes(draw, highlight); };
        hooks.sendbyesthru = [&](qv::OpenDraw& draw) { qv::sendbyesthru(*session, draw); };
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
        qv::do_all_draws(*session, open, random, hooks, steps);
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
