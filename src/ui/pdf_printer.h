#pragma once

#include "documents/pdf_save.h"

namespace qv {

// Qt's printer in PDF mode writing the file: no printer is needed, the page size is the printer's default.
std::shared_ptr<QPagedPaintDevice> pdf_printer(const std::filesystem::path& file, std::string_view title);

// "save as PDF" of lines of text as print_lines prints them: for any window that offers "print(l)"/"print(p)"
// of a document or a list.
std::optional<std::filesystem::path> save_lines_as_pdf(Session& session, const std::vector<std::string>& lines,
    std::string_view orientation, std::string_view title, const std::string& default_name);

} // namespace qv
