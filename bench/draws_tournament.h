// A tournament of 64 knock-out events of 128 entries each, shared by the draw benchmarks.
#pragma once

#include "core/database.h"
#include "core/quiet_talk.h"
#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"

#include <filesystem>
#include <random>

namespace qv::bench {

namespace fs = std::filesystem;

inline constexpr int events = 64;
inline constexpr int entries_per_event = 128;
inline constexpr int seeds_per_event = 8;

// 2,048 people in the register, each entered in four events. A fair share of the names are long enough that
// the short forms have to be searched for, and many share a surname.
inline const char* const first_names[] = { "Alexander", "Bartholomew", "Catherine", "Dominique", "Elisabeth",
    "Frederik", "Gabriella", "Henrietta", "Ignatius", "Jacqueline", "Konstantin", "Leopoldine", "Maximilian",
    "Nathaniel", "Octavia", "Penelope", "Quentin", "Rosalind", "Sebastian", "Theodora", "Ulrich", "Valentina",
    "Wilhelmina", "Xavier", "Yolanda", "Zacharias", "Ann", "Bo", "Cy", "Di", "Ed", "Flo", "Gus", "Hal", "Ida", "Jo",
    "Kit", "Lu", "Max", "Ned", "Oz", "Pia", "Roy", "Sue", "Tom", "Una", "Vic", "Wes", "Abigail", "Benedict",
    "Cornelius", "Desmond", "Evangeline", "Florentina", "Gwendolyn", "Horatio", "Isadora", "Jeremiah", "Katarina",
    "Lysander", "Montgomery", "Nicodemus", "Ophelia", "Percival" };
inline const char* const surnames[] = { "Montgomery-Smith", "Vandenberghe", "Schwarzenbergerin", "Fitzgeraldson",
    "Kowalczykowski", "Oyelaran-Adeyemi", "Papadopoulos", "Rasmussen", "Lee", "Kim", "Ng", "Ito", "Smith", "Brown",
    "Nakamura", "Hernandez-Garcia", "Abernathy", "Blackwood", "Castellanos", "Delacroix-Moreau", "Eriksson",
    "Featherstonehaugh", "Gallagher", "Haversham", "Ivanovich", "Jankowski", "Kristiansen", "Lindqvist", "MacAllister",
    "Nordstrom", "Ostrowski", "Pemberton" };
inline constexpr int people = 64 * 32;

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

// The steps the draw area hands to generation and saving, without the windows.
struct DrawAreaSteps
{
    qv::DrawSaveHooks save_hooks;
    qv::DrawHooks hooks;

    explicit DrawAreaSteps(qv::Session& session)
    {
        hooks.set_scoreboxes = [](qv::OpenDraw& draw, bool highlight) { qv::set_scoreboxes(draw, highlight); };
        hooks.sendbyesthru = [&session](qv::OpenDraw& draw) { qv::sendbyesthru(session, draw); };
    }
};

} // namespace qv::bench
