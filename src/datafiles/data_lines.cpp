#include "datafiles/data_lines.h"

#include "core/codepage.h"
#include "core/file_save.h"
#include "core/session.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace qv {

int hat_cnt(std::string_view line)
{
    return static_cast<int>(std::count(line.begin(), line.end(), '^'));
}

std::vector<std::string> record_fields(std::string_view line)
{
    std::vector<std::string> fields;
    for (auto hat = line.find('^'); hat != std::string_view::npos; hat = line.find('^')) {
        fields.emplace_back(line.substr(0, hat));
        line.remove_prefix(hat + 1);
    }
    return fields;
}

std::string record_line(const std::vector<std::string>& fields)
{
    std::string line;
    for (const auto& field : fields)
        line += field + "^";
    return line;
}

std::optional<std::vector<std::string>> read_data_file(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return std::nullopt;
    const std::string bytes { std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>() };
    std::vector<std::string> lines;
    std::string_view rest(bytes);
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        auto line = rest.substr(0, end);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        lines.push_back(from_cp1252(line));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    return lines;
}

ImportFeedback::ImportFeedback(std::string heading, const std::filesystem::path& source)
    : m_lines { std::move(heading), "file: " + source.string() }
{
}

void ImportFeedback::wrong_count(std::string_view line, int expected, int got)
{
    m_lines.push_back("line: " + std::string(line));
    m_lines.push_back("expecting " + std::to_string(expected) + " ^, got " + std::to_string(got) + " ^");
    ++m_errors;
}

void ImportFeedback::fault(std::string_view line, const LineFault& fault)
{
    m_lines.push_back("line: " + std::string(line));
    m_lines.push_back("error at field: " + std::to_string(fault.field));
    m_lines.push_back("error text: " + fault.text);
    m_lines.push_back("error description: " + fault.description);
    ++m_errors;
}

void ImportFeedback::skipped(std::string_view text)
{
    m_lines.emplace_back(text);
    ++m_errors;
}

void ImportFeedback::error_block(std::vector<std::string> lines)
{
    m_lines.insert(m_lines.end(), lines.begin(), lines.end());
    ++m_errors;
}

void ImportFeedback::finish(Session& session, int lines, int imported, const std::string& title) const
{
    auto& talk = session.talk();
    const auto file = session.dirs().working / "feedback.txt";
    write_text_file(file, m_lines);
    if (lines == 0) {
        talk.message("no records to import?");
        return;
    }
    if (m_errors == 0) {
        talk.message(std::to_string(imported) + " records imported");
        return;
    }
    const auto question = imported == 0
        ? "no records imported," + std::to_string(m_errors) + " errors detected,all lines,view the errors?"
        : std::to_string(imported) + " records imported," + std::to_string(m_errors) + " errors,view the errors?";
    if (talk.ask(question, title, Buttons::YesNo) == Answer::Yes)
        talk.show_text(file, title);
}

} // namespace qv
