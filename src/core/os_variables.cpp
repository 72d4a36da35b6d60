#include "core/os_variables.h"

#include <fstream>
#include <sys/utsname.h>
#include <unistd.h>

namespace qv {

namespace {

std::string first_line(const char* file)
{
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line;
}

} // namespace

OsVariables read_os_variables()
{
    OsVariables os;
    os.machine_id = first_line("/etc/machine-id");
    if (os.machine_id.empty()) {
        char host[256] = {};
        if (::gethostname(host, sizeof host - 1) == 0)
            os.machine_id = host;
    }
    utsname uts {};
    if (::uname(&uts) == 0) {
        os.name = std::string(uts.sysname) == "Linux" ? "Linux" : "unknown_os";
        os.details = std::string(uts.sysname) + "_" + uts.release + "_" + uts.machine;
    } else {
        os.name = "unknown_os";
    }
    return os;
}

} // namespace qv
