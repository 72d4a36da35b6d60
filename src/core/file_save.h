#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Session;

// Writes lines as a text file of this program: Windows-1252, each line ended by CR LF. Returns false when
// the file cannot be written.
bool write_text_file(const std::filesystem::path& file, const std::vector<std::string>& lines);

// What follows the writing of a text file, by the setting on_file_save: 0 a beep, 1 "ok", 2 the size and
// the offer to view it, 3 the file's path.
void on_file_save(Session& session, const std::filesystem::path& file);

// A text file the user saves: the "save as.." dialog under the suggested name, starting in start_dir, then the
// lines written and on_file_save. The path written, or none when the user cancelled or the file could not be
// written ("cannot write file:" and the path).
std::optional<std::filesystem::path> save_text_file_as(Session& session, const std::string& default_name,
    const std::filesystem::path& start_dir, const std::vector<std::string>& lines);

} // namespace qv
