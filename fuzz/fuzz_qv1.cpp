// The player file reader (qv1) on arbitrary bytes.
#include "datafiles/player_files.h"
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& s = qv::fuzz::fuzz_session();
    qv::import_players(*s.session, s.file_of(data, size), qv::PlayerFormat::qv1, 0);
    // Each input starts from an empty register: otherwise every run checks its names against all the players
    // of the runs before it, and a million runs slow to a crawl.
    s.session->tournament().exec_script("delete from players;");
    return 0;
}
