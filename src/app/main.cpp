#include "core/command_line.h"
#include "core/installed_layout.h"
#include "core/session.h"
#include "ui/file_watch.h"
#include "ui/main_window.h"
#include "ui/start_up.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QStandardPaths>

#include <exception>
#include <functional>
#include <string>
#include <vector>

namespace {

// A fault of the machine inside an operation (a file that vanished, a database error) reaches the user as one
// message; the operation's transaction has rolled back and the program goes on.
class QuorvelinApplication : public QApplication
{
public:
    using QApplication::QApplication;

    // The words the director reads for a fault: plain words where the session knows the cause.
    std::function<std::string(const char*)> fault_text = [](const char* what) { return std::string(what); };

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& fault) {
            QMessageBox::critical(
                nullptr, QStringLiteral("quorvelin"), QString::fromStdString(fault_text(fault.what())));
            return false;
        }
    }
};

} // namespace

int main(int argc, char* argv[])
{
    QuorvelinApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quorvelin"));
    QCoreApplication::setOrganizationName(QStringLiteral("quorvelin"));

    const auto app_dir
        = qv::choose_installed_application_directory(QCoreApplication::applicationDirPath().toStdString(),
            QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString());

    qv::MainWindow window(app_dir);
    window.resize(1100, 720);
    app.fault_text = [&window](const char* what) { return window.session().fault_text(what); };
    app.installEventFilter(new qv::FileWatch(window.session(), &window));
    QObject::connect(&window, &qv::MainWindow::processEnded, &app, &QCoreApplication::quit, Qt::QueuedConnection);

    // Qt has taken its own options out of the arguments by now.
    std::vector<std::string> arguments;
    for (const auto& argument : QCoreApplication::arguments())
        arguments.push_back(argument.toStdString());
    const auto file = qv::tournament_file_argument(arguments, QDir::currentPath().toStdString());

    auto* start_up = new qv::StartUp(window, file ? QString::fromStdString(file->string()) : QString());
    start_up->start();
    return app.exec();
}
