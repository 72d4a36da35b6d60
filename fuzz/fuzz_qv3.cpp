// The event file reader (qv3) on arbitrary bytes.
#include "datafiles/event_files.h"
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& s = qv::fuzz::fuzz_session();
    qv::import_events(*s.session, s.file_of(data, size));
    // Each input starts from the one event of the session: otherwise every run checks its names against all the
    // events of the runs before it, and a million runs slow to a crawl.
    s.session->tournament().exec_script("delete from events where eid<>1;");
    return 0;
}
