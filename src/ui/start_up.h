#pragma once

#include <QString>
#include <QWidget>

#include <filesystem>

namespace qv {

class MainWindow;
class Session;

// What "open" does with the file the user chose: its folder is remembered and the program restarts on it.
void open_as_chosen(Session& session, const std::filesystem::path& file);

// The small "loading..." window: it shows the main window, and from the main loop boots the session and goes.
// A tournament file named when the program was started is then opened as "open" opens a chosen file.
class StartUp : public QWidget
{
    Q_OBJECT

public:
    explicit StartUp(MainWindow& main, QString file = {});
    void start();

signals:
    void finished();

private:
    MainWindow& m_main;
    QString m_file;
};

} // namespace qv
