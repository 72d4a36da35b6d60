#pragma once

#include "core/user_talk.h"

#include <QPointer>
#include <QString>

class QStatusBar;
class QWidget;

namespace qv {

// The program's filter words ("qvd.") as a file dialog filter ("qvd files (*.qvd)"); an empty word shows all files.
QString file_dialog_filter(std::string_view filter);

// The user-talk of the running program: message boxes, file dialogs, the text viewer and the status bar.
class QtUserTalk : public UserTalk
{
public:
    QtUserTalk(QWidget* parent, QStatusBar* status);

    void message(std::string_view text, std::string_view title = {}) override;
    Answer ask(std::string_view question, std::string_view title, Buttons buttons) override;
    std::vector<std::filesystem::path> choose_files(const FileRequest& request) override;
    void show_text(const std::filesystem::path& file, std::string_view title) override;
    void progress(std::string_view label) override;
    void beep() override;
    std::shared_ptr<QPagedPaintDevice> choose_printer(std::string_view title) override;

private:
    QPointer<QWidget> m_parent;
    QPointer<QStatusBar> m_status;
};

} // namespace qv
