#pragma once

#include "core/quiet_talk.h"
#include "core/session.h"
#include "core/session_host.h"
#include "core/user_talk.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

namespace qv::fuzz {

// One session for the whole run, on a tournament with a drawn-like schedule, in an application directory of
// its own; its files are written without waiting for the disk, since a run makes a million of them.
struct FuzzSession
{
    std::filesystem::path app;
    QuietTalk talk;
    QuietHost host;
    std::unique_ptr<Session> session;
    std::filesystem::path input;

    FuzzSession()
    {
        namespace fs = std::filesystem;
        app = fs::temp_directory_path() / ("quorvelin-fuzz-" + std::to_string(std::random_device()()));
        fs::create_directories(app);
        fs::copy(QV_INIT_FILES_DIR, app / "init_files", fs::copy_options::recursive);
        fs::copy_file(app / "init_files" / "blank.qvd", app / "fuzz.qvd");
        session = std::make_unique<Session>(app, talk, host);
        session->boot_start_app((app / "fuzz.qvd").string());
        for (auto* db : { &session->tournament(), &session->peek_browse_db() })
            db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session->tournament().exec_script(R"(
            insert into events (eid, eventname, singdobs, sex, drawtype, drawsize, drawdone)
                values (1, 'open', 'singles', 'male', 'ko', 4, 1);
            insert into schedule (sid, eid, "match", rid, rname, mt, mb, mw_ptr, mtttt, mbttt, mttag, mbtag,
                match_state, drawtype, singdobs) values
                (1, 1, 1, 1, 'semis', '1.1', '1.2', '2.1', 'ann lee', 'bo tan', 'lee', 'tan', '2', 'ko', 'singles'),
                (2, 1, 2, 1, 'semis', '1.3', '1.4', '2.2', 'cy ng', 'di wu', 'ng', 'wu', '2', 'ko', 'singles'),
                (3, 1, 3, 2, 'final', '2.1', '2.2', '3.1', '', '', '', '', '1', 'ko', 'singles'),
                (4, 1, 4, 3, 'winner', '3.1', '3.2', '', '', '', '', '', '1', 'ko', 'singles');)");
        input = app / "input.txt";
    }
    ~FuzzSession()
    {
        session.reset();
        std::filesystem::remove_all(app);
    }

    // The fuzzer's bytes as the file a reader is given.
    const std::filesystem::path& file_of(const std::uint8_t* data, std::size_t size)
    {
        std::ofstream(input, std::ios::binary | std::ios::trunc)
            .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
        return input;
    }
};

inline FuzzSession& fuzz_session()
{
    static FuzzSession one;
    return one;
}

} // namespace qv::fuzz
