#pragma once

#include "core/session_host.h"
#include "core/user_talk.h"

#include <filesystem>
#include <random>

namespace qv::bench {

// A user who says nothing and answers no.
class QuietTalk : public UserTalk
{
public:
    void message(std::string_view, std::string_view) override { }
    Answer ask(std::string_view, std::string_view, Buttons) override { return Answer::No; }
    std::vector<std::filesystem::path> choose_files(const FileRequest&) override { return {}; }
    void show_text(const std::filesystem::path&, std::string_view) override { }
    void progress(std::string_view) override { }
    void beep() override { }
};

// A main window without windows.
class QuietHost : public SessionHost
{
public:
    void load_all_forms() override { }
    void unload_all_forms() override { }
    bool leave_draw() override { return true; }
    void cancel_list1() override { }
    void refresh_draw_on_entry() override { }
    void refresh_lists(Lists) override { }
    void show_area(Area, const Markers&) override { }
    void set_generics(const std::string&, const std::string&) override { }
    void busy(bool) override { }
    void defer(std::function<void()>) override { }
    void end_process() override { }
};

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
