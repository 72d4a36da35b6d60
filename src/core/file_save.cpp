#include "core/file_save.h"

#include "core/codepage.h"
#include "core/session.h"
#include "core/text_rules.h"

#include <fstream>
#include <system_error>

namespace qv {

bool write_text_file(const std::filesystem::path& file, const std::vector<std::string>& lines)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (!out)
        return false;
    for (const auto& line : lines)
        out << to_cp1252(line) << "\r\n";
    out.close();
    return static_cast<bool>(out);
}

std::optional<std::filesystem::path> save_text_file_as(Session& session, const std::string& default_name,
    const std::filesystem::path& start_dir, const std::vector<std::string>& lines)
{
    const auto file
        = session.talk().choose_file({ FileDialogKind::SaveAs, "save as..", default_name, "txt.", start_dir });
    if (!file)
        return std::nullopt;
    if (!write_text_file(*file, lines)) {
        session.talk().message("cannot write file:" + file->string());
        return std::nullopt;
    }
    on_file_save(session, *file);
    return file;
}

void on_file_save(Session& session, const std::filesystem::path& file)
{
    auto& talk = session.talk();
    switch (session.settings().integer("on_file_save")) {
    case 1:
        talk.message("ok");
        break;
    case 2: {
        std::error_code error;
        const auto size = std::filesystem::file_size(file, error);
        const std::string question = "file size=" + format_file_size(error ? 0 : size) + ",view?";
        if (talk.ask(question, "File saved", Buttons::YesNo) == Answer::Yes)
            talk.show_text(file, file.filename().string());
        break;
    }
    case 3:
        talk.message(file.string());
        break;
    default:
        talk.beep();
        break;
    }
}

} // namespace qv
