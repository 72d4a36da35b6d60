#pragma once

#include <filesystem>
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

} // namespace qv
