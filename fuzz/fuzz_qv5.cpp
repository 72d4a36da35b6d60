// The entries file reader (qv5) on arbitrary bytes.
#include "datafiles/entries_file.h"
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& s = qv::fuzz::fuzz_session();
    qv::load_entries_file(*s.session, s.file_of(data, size), qv::EntriesTarget::peek);
    return 0;
}
