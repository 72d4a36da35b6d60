#pragma once

#include "documents/printroutines.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QPagedPaintDevice;

namespace qv {

class Session;

// A printer that writes a PDF file under a document title, as the windows make one (Qt's printer in PDF mode, no
// printer needed); none when it cannot be made.
using PdfDevice
    = std::function<std::shared_ptr<QPagedPaintDevice>(const std::filesystem::path& file, std::string_view title)>;

// "save as PDF": the user names the file (default_name, PDF files), then the body prints into it the pages a
// print would make. A file that cannot be written: "cannot write file:" and its path. What follows a saved file
// by on_file_save, without the offer to view it as text. The file written, or none (cancelled, no pages, or not
// written).
std::optional<std::filesystem::path> save_pdf_with(Session& session, const PdfDevice& device,
    const std::string& default_name, std::string_view title, const std::function<void(PrintJob&)>& body);

// Lines of a document or list as print_lines prints them ("l" landscape, "p" portrait, the title on top), into a
// PDF file.
std::optional<std::filesystem::path> save_lines_pdf(Session& session, const PdfDevice& device,
    const std::vector<std::string>& lines, std::string_view orientation, std::string_view title,
    const std::string& default_name);

} // namespace qv
