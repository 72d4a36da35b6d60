#include "ui/start_up.h"

#include "core/session.h"
#include "ui/main_window.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace qv {

StartUp::StartUp(MainWindow& main)
    : QWidget(nullptr, Qt::SplashScreen)
    , m_main(main)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("start_up"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("loading..."), this));
    resize(200, 60);
}

void StartUp::start()
{
    show();
    m_main.show();
    // The boot runs from the main loop, so both windows have painted before it starts.
    QTimer::singleShot(0, this, [this] {
        m_main.run_or_end([this] { m_main.session().boot_start_app(""); });
        emit finished();
        close();
    });
}

} // namespace qv
