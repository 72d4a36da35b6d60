#pragma once

#include <string>

namespace qv {

// What the system tells about itself; used only as fields of online requests.
struct OsVariables
{
    std::string machine_id;
    std::string name; // "Linux", or "unknown_os" when the system cannot be named
    std::string details;
};

OsVariables read_os_variables();

} // namespace qv
