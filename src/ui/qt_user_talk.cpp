#include "ui/qt_user_talk.h"

#include "ui/notepad2.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>

namespace qv {

QString file_dialog_filter(std::string_view filter)
{
    if (filter.empty())
        return QStringLiteral("all files (*)");
    if (filter.back() == '.') {
        const QString ext = qs(filter.substr(0, filter.size() - 1));
        return ext + QStringLiteral(" files (*.") + ext + QStringLiteral(")");
    }
    return qs(filter);
}

QtUserTalk::QtUserTalk(QWidget* parent, QStatusBar* status)
    : m_parent(parent)
    , m_status(status)
{
}

void QtUserTalk::message(std::string_view text, std::string_view title)
{
    QMessageBox::information(m_parent, qs(title), qs(text));
}

Answer QtUserTalk::ask(std::string_view question, std::string_view title, Buttons buttons)
{
    QMessageBox::StandardButtons shown;
    switch (buttons) {
    case Buttons::Ok:
        shown = QMessageBox::Ok;
        break;
    case Buttons::OkCancel:
        shown = QMessageBox::Ok | QMessageBox::Cancel;
        break;
    case Buttons::YesNo:
        shown = QMessageBox::Yes | QMessageBox::No;
        break;
    case Buttons::YesNoCancel:
        shown = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        break;
    }
    switch (QMessageBox::question(m_parent, qs(title), qs(question), shown)) {
    case QMessageBox::Ok:
        return Answer::Ok;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        // A box closed without a choice: the safe answer of its kind.
        return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }
}

std::vector<std::filesystem::path> QtUserTalk::choose_files(const FileRequest& request)
{
    const QString title = qs(request.title);
    const QString filter = file_dialog_filter(request.filter);
    const QString start = request.start_dir.empty() ? QString() : qs_path(request.start_dir);
    QString suggested = qs(request.default_name);
    if (!start.isEmpty())
        suggested = start + QStringLiteral("/") + suggested;

    std::vector<std::filesystem::path> chosen;
    auto take = [&chosen](const QString& file) {
        if (!file.isEmpty())
            chosen.push_back(to_path(file));
    };
    switch (request.kind) {
    case FileDialogKind::Open:
        take(QFileDialog::getOpenFileName(m_parent, title, suggested, filter));
        break;
    case FileDialogKind::SaveAs:
        take(QFileDialog::getSaveFileName(m_parent, title, suggested, filter));
        break;
    case FileDialogKind::OpenMany:
        for (const auto& file : QFileDialog::getOpenFileNames(m_parent, title, start, filter))
            take(file);
        break;
    case FileDialogKind::Directory:
        take(QFileDialog::getExistingDirectory(m_parent, title, start));
        break;
    }
    return chosen;
}

void QtUserTalk::show_text(const std::filesystem::path& file, std::string_view title)
{
    auto* viewer = new Notepad2(m_parent);
    viewer->setWindowTitle(qs(title));
    viewer->load_file(file);
    show_over_parent(viewer);
}

void QtUserTalk::progress(std::string_view label)
{
    if (!m_status)
        return;
    m_status->showMessage(qs(label));
    // Paint now: a long loop does not return to the message loop between its steps.
    m_status->repaint();
}

void QtUserTalk::beep()
{
    QApplication::beep();
}

std::shared_ptr<QPagedPaintDevice> QtUserTalk::choose_printer(std::string_view title)
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(qs(title));
    QPrintDialog dialog(printer.get(), m_parent);
    dialog.setWindowTitle(qs(title));
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    return printer;
}

} // namespace qv
