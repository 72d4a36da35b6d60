#include "core/app_dirs.h"
#include "ui/main_window.h"
#include "ui/start_up.h"

#include <QApplication>
#include <QMessageBox>
#include <QStandardPaths>

#include <exception>

namespace {

// A fault of the machine inside an operation (a file that vanished, a database error) reaches the user as one
// message; the operation's transaction has rolled back and the program goes on.
class QuorvelinApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& fault) {
            QMessageBox::critical(nullptr, QStringLiteral("quorvelin"), QString::fromUtf8(fault.what()));
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

    const auto app_dir = qv::choose_application_directory(QCoreApplication::applicationDirPath().toStdString(),
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString());

    qv::MainWindow window(app_dir);
    window.resize(1100, 720);
    QObject::connect(&window, &qv::MainWindow::processEnded, &app, &QCoreApplication::quit, Qt::QueuedConnection);

    auto* start_up = new qv::StartUp(window);
    start_up->start();
    return app.exec();
}
