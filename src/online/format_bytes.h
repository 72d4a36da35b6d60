#pragma once

#include "core/text_rules.h"

#include <cstdint>
#include <string>

namespace qv {

// Sizes of websites and allocations: "512 Bytes", "1.50 KB", "2.00 MB", "1.00 GB".
inline std::string format_bytes(std::uint64_t bytes)
{
    return format_file_size(bytes);
}

} // namespace qv
