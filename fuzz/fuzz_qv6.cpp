// The results re-import reader (qv6) on arbitrary bytes, against a small knock-out.
#include "datafiles/results_reimport.h"
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& s = qv::fuzz::fuzz_session();
    qv::import_qv6_file(*s.session, s.file_of(data, size));
    return 0;
}
