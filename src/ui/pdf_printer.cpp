#include "ui/pdf_printer.h"

#include "ui/qt_text.h"

#include <QPrinter>

namespace qv {

std::shared_ptr<QPagedPaintDevice> pdf_printer(const std::filesystem::path& file, std::string_view title)
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(file.string()));
    printer->setDocName(qs(title));
    printer->setCreator(QStringLiteral("quorvelin"));
    return printer;
}

std::optional<std::filesystem::path> save_lines_as_pdf(Session& session, const std::vector<std::string>& lines,
    std::string_view orientation, std::string_view title, const std::string& default_name)
{
    return save_lines_pdf(session, pdf_printer, lines, orientation, title, default_name);
}

} // namespace qv
