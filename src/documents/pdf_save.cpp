#include "documents/pdf_save.h"

#include "core/session.h"
#include "core/settings.h"

#include <QPagedPaintDevice>

namespace qv {

namespace {

// on_file_save, where 2 would offer the text viewer: a PDF is told by its path instead.
void tell_saved(Session& session, const std::filesystem::path& file)
{
    switch (session.settings().integer("on_file_save")) {
    case 0:
        session.talk().beep();
        break;
    case 1:
        session.talk().message("ok");
        break;
    default:
        session.talk().message(file.string());
        break;
    }
}

} // namespace

std::optional<std::filesystem::path> save_pdf_with(Session& session, const PdfDevice& device,
    const std::string& default_name, std::string_view title, const std::function<void(PrintJob&)>& body)
{
    const auto file = session.talk().choose_file({ FileDialogKind::SaveAs, "save as PDF", default_name, "pdf.",
        session.settings().text("app.last_dir_opened") });
    if (!file)
        return std::nullopt;
    const auto printer = device(*file, title);
    bool written = printer != nullptr;
    int pages = 0;
    if (printer) {
        PrintJob job(*printer);
        body(job);
        pages = job.pages();
        written = job.end() && !job.failed();
    }
    if (!written) {
        session.talk().message("cannot write file:" + file->string());
        return std::nullopt;
    }
    if (pages == 0)
        return std::nullopt;
    tell_saved(session, *file);
    return file;
}

std::optional<std::filesystem::path> save_lines_pdf(Session& session, const PdfDevice& device,
    const std::vector<std::string>& lines, std::string_view orientation, std::string_view title,
    const std::string& default_name)
{
    return save_pdf_with(session, device, default_name, title,
        [&](PrintJob& job) { print_text(session, job, lines, orientation, title); });
}

} // namespace qv
