// The event file reader (qv3) on arbitrary bytes.
#include "datafiles/event_files.h"
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& s = qv::fuzz::fuzz_session();
    qv::import_events(*s.session, s.file_of(data, size));
    return 0;
}
