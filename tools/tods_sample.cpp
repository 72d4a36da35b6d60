// Writes the sample tournament of the export tests and its TODS export, for the check under tools/tods_check:
//   quorvelin_tods_sample <folder>   ->  <folder>/sample.qvd and <folder>/sample_tods.json
#include "core/quiet_talk.h"
#include "core/session.h"
#include "core/session_host.h"
#include "core/user_talk.h"
#include "datafiles/tods_export.h"
#include "support/sample_tournament.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

// The sample is built without a window: every question gets its default answer.
class QuietTalk : public qv::UserTalk
{
public:
    void message(std::string_view text, std::string_view) override
    {
        std::fprintf(stderr, "%.*s\n", int(text.size()), text.data());
    }
    qv::Answer ask(std::string_view, std::string_view, qv::Buttons buttons) override
    {
        return buttons == qv::Buttons::Ok || buttons == qv::Buttons::OkCancel ? qv::Answer::Ok : qv::Answer::Yes;
    }
    std::vector<fs::path> choose_files(const qv::FileRequest&) override { return {}; }
    void show_text(const fs::path&, std::string_view) override { }
    void progress(std::string_view) override { }
    void beep() override { }
};

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <folder>\n", argv[0]);
        return 2;
    }
    const fs::path out = argv[1];
    const auto app = out / "app";
    fs::remove_all(app);
    fs::create_directories(app);
    fs::copy(QV_INIT_FILES_DIR, app / "init_files", fs::copy_options::recursive);
    const auto file = out / "sample.qvd";
    fs::copy_file(app / "init_files" / "blank.qvd", file, fs::copy_options::overwrite_existing);

    QuietTalk talk;
    qv::QuietHost host;
    qv::Session session(app, talk, host);
    session.boot_start_app(file.string());
    if (!session.has_tournament()) {
        std::fprintf(stderr, "cannot open %s\n", file.c_str());
        return 1;
    }
    qv::sample::build(session);
    std::ofstream(out / "sample_tods.json", std::ios::binary) << qv::tods_json(session.tournament(), "sample", "court");
    std::printf("%s\n%s\n", file.c_str(), (out / "sample_tods.json").c_str());
    return 0;
}
