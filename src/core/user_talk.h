#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The printer a print goes to; its header stays out of here, since Qt's keywords would clash with plain names.
class QPagedPaintDevice;

namespace qv {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

enum class FileDialogKind { Open, SaveAs, OpenMany, Directory };

// What a file dialog is asked for: a title, a default name and a filter written as the program writes it ("qvd.").
struct FileRequest
{
    FileDialogKind kind = FileDialogKind::Open;
    std::string title;
    std::string default_name;
    std::string filter;
    std::filesystem::path start_dir;
};

// Every word an operation says to the user goes through here. The windows implement it with dialogs;
// tests script the answers and read back what was said.
class UserTalk
{
public:
    virtual ~UserTalk() = default;
    virtual void message(std::string_view text, std::string_view title = {}) = 0;
    virtual Answer ask(std::string_view question, std::string_view title, Buttons buttons) = 0;
    virtual std::vector<std::filesystem::path> choose_files(const FileRequest& request) = 0;
    virtual void show_text(const std::filesystem::path& file, std::string_view title) = 0;
    virtual void progress(std::string_view label) = 0;
    virtual void beep() = 0;

    // The printer for a document: the system print dialog, where the user may also choose to print into a PDF
    // file. None when the user cancelled; a talk that offers no printers gives none.
    virtual std::shared_ptr<QPagedPaintDevice> choose_printer(std::string_view title)
    {
        (void)title;
        return nullptr;
    }

    // One file or none; the many-file dialog answers through choose_files.
    std::optional<std::filesystem::path> choose_file(const FileRequest& request)
    {
        auto files = choose_files(request);
        if (files.empty())
            return std::nullopt;
        return files.front();
    }
};

} // namespace qv
