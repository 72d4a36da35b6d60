#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The lines of the data files: one record a line, each field followed by a "^", no header, no quoting. The
// files are Windows-1252 with CR LF; inside they are UTF-8 lines.

// hat_cnt: how many "^" the line holds.
int hat_cnt(std::string_view line);
// The fields of a line, each the text before its "^"; what follows the last "^" is not a field.
std::vector<std::string> record_fields(std::string_view line);
// A record: each field followed by its "^".
std::string record_line(const std::vector<std::string>& fields);

// The lines of a file, CR LF or LF, a last empty line dropped. None when the file cannot be read.
std::optional<std::vector<std::string>> read_data_file(const std::filesystem::path& file);

// What stopped one line of an import: the field's number (1-based), its text and why.
struct LineFault
{
    int field = 0;
    std::string text;
    std::string description;
};

// The feedback file of one import, in the working directory, and the word at its end.
class ImportFeedback
{
public:
    ImportFeedback(std::string heading, const std::filesystem::path& source);

    void wrong_count(std::string_view line, int expected, int got);
    void fault(std::string_view line, const LineFault& fault);
    // A line that is not an error of the file but stops its record (" already in db").
    void skipped(std::string_view text);
    // A line of the file's own layout, no error; and a block of lines that tells one error.
    void plain(std::string text) { m_lines.push_back(std::move(text)); }
    void error_block(std::vector<std::string> lines);

    int errors() const { return m_errors; }
    // Writes the file and tells the user what came of the lines; the errors are offered in the text viewer
    // under the given title.
    void finish(Session& session, int lines, int imported, const std::string& title) const;

private:
    std::vector<std::string> m_lines;
    int m_errors = 0;
};

} // namespace qv
