#pragma once

#include "core/quiet_talk.h"
#include "core/session_host.h"
#include "core/user_talk.h"

#include <filesystem>
#include <random>

namespace qv::bench {

using qv::QuietHost;
using qv::QuietTalk;

// An application directory of its own with the built init files and a blank tournament file, removed at the end.
struct BenchAppDir
{
    std::filesystem::path app;
    std::filesystem::path file;

    explicit BenchAppDir(const char* file_name)
    {
        namespace fs = std::filesystem;
        std::random_device device;
        app = fs::temp_directory_path() / ("quorvelin-bench-" + std::to_string(device()));
        fs::create_directories(app);
        fs::copy(QV_INIT_FILES_DIR, app / "init_files", fs::copy_options::recursive);
        file = app / file_name;
        fs::copy_file(app / "init_files" / "blank.qvd", file);
    }
    BenchAppDir(const BenchAppDir&) = delete;
    BenchAppDir& operator=(const BenchAppDir&) = delete;
    ~BenchAppDir() { std::filesystem::remove_all(app); }
};

} // namespace qv::bench
