#include "core/installed_layout.h"

#include "core/app_dirs.h"

namespace qv {

namespace fs = std::filesystem;

fs::path shared_init_files(const fs::path& executable_dir)
{
    return (executable_dir / ".." / "share" / "quorvelin" / "init_files").lexically_normal();
}

fs::path choose_installed_application_directory(const fs::path& executable_dir, const fs::path& user_data_dir)
{
    std::error_code ec;
    const auto shared = shared_init_files(executable_dir);
    if (fs::exists(executable_dir / "init_files", ec) || !fs::is_directory(shared, ec))
        return choose_application_directory(executable_dir, user_data_dir);
    fs::create_directories(user_data_dir / "init_files", ec);
    // Settings and patterns live on in the user's copy: a file already there is never replaced.
    for (const auto& entry : fs::directory_iterator(shared, ec)) {
        const auto target = user_data_dir / "init_files" / entry.path().filename();
        if (entry.path().extension() == ".qvd" && !fs::exists(target, ec))
            fs::copy_file(entry.path(), target, ec);
    }
    return user_data_dir;
}

} // namespace qv
