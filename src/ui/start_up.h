#pragma once

#include <QWidget>

namespace qv {

class MainWindow;

// The small "loading..." window: it shows the main window, and from the main loop boots the session and goes.
class StartUp : public QWidget
{
    Q_OBJECT

public:
    explicit StartUp(MainWindow& main);
    void start();

signals:
    void finished();

private:
    MainWindow& m_main;
};

} // namespace qv
