// The results file reader (qv4) on arbitrary bytes.
#include "datafiles/results_file.h"
#include "fuzz_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& s = qv::fuzz::fuzz_session();
    qv::Qv4Header header;
    qv::read_qv4_single(s.session->peek_browse_db(), s.file_of(data, size), "input", header);
    return 0;
}
