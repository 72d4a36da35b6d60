#include "core/app_dirs.h"

#include <unistd.h>

namespace qv {

namespace fs = std::filesystem;

AppDirs AppDirs::under(const fs::path& app_dir)
{
    AppDirs dirs;
    dirs.app = app_dir;
    dirs.working = app_dir / "working";
    dirs.init_files = app_dir / "init_files";
    dirs.website = app_dir / "website";
    dirs.qv4_file_archive = app_dir / "qv4_file_archive";
    dirs.qv5_file_archive = app_dir / "qv5_file_archive";
    return dirs;
}

void AppDirs::check_directories_exist() const
{
    for (const auto& dir : { working, website, qv4_file_archive, qv5_file_archive })
        fs::create_directories(dir);
}

void AppDirs::clean_working() const
{
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(working, ec)) {
        if (entry.is_regular_file(ec) || entry.is_symlink(ec))
            fs::remove(entry.path(), ec);
    }
}

namespace {

bool writable_dir(const fs::path& dir)
{
    return ::access(dir.c_str(), W_OK) == 0;
}

} // namespace

fs::path choose_application_directory(const fs::path& executable_dir, const fs::path& user_data_dir)
{
    const auto shipped = executable_dir / "init_files";
    if (writable_dir(executable_dir) && (!fs::exists(shipped) || writable_dir(shipped)))
        return executable_dir;
    std::error_code ec;
    fs::create_directories(user_data_dir / "init_files", ec);
    // The user's copy of the init files is made once; settings and patterns live on in it afterwards.
    for (const char* name : { "init.qvd", "qv4_peek_browse.qvd", "blank.qvd" }) {
        const auto target = user_data_dir / "init_files" / name;
        if (!fs::exists(target) && fs::exists(shipped / name))
            fs::copy_file(shipped / name, target, ec);
    }
    return user_data_dir;
}

} // namespace qv
