#include "online/qv4_archive.h"

#include "core/session.h"
#include "online/ftp_files.h"

#include <algorithm>
#include <filesystem>

namespace qv {

bool copy_qv4_to_archive(Session& session)
{
    const auto names = local_file_names(session.dirs().website);
    const auto found = std::find_if(names.begin(), names.end(),
        [](const std::string& name) { return name.size() >= 4 && name.compare(name.size() - 4, 4, ".qv4") == 0; });
    auto& talk = session.talk();
    if (found == names.end()) {
        talk.message("no qv4 file");
        return false;
    }
    const auto target = session.dirs().qv4_file_archive / *found;
    std::error_code error;
    if (std::filesystem::exists(target, error)
        && talk.ask(*found + " already exists in the qv4 file archive, do you want to overwrite ?", "Confirm",
               Buttons::YesNoCancel)
            != Answer::Yes)
        return false;
    std::filesystem::create_directories(session.dirs().qv4_file_archive, error);
    std::filesystem::copy_file(
        session.dirs().website / *found, target, std::filesystem::copy_options::overwrite_existing, error);
    if (error) {
        talk.message(error.message());
        return false;
    }
    talk.message("ok");
    return true;
}

} // namespace qv
