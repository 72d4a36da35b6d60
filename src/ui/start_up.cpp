#include "ui/start_up.h"

#include "core/session.h"
#include "core/settings.h"
#include "ui/main_window.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace qv {

void open_as_chosen(Session& session, const std::filesystem::path& file)
{
    session.settings().set_disk_var("app.last_dir_opened", file.parent_path().string());
    session.open_recent(file.string());
}

StartUp::StartUp(MainWindow& main, QString file)
    : QWidget(nullptr, Qt::SplashScreen)
    , m_main(main)
    , m_file(std::move(file))
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
        if (!m_file.isEmpty() && !m_main.process_ended())
            m_main.run_or_end([this] { open_as_chosen(m_main.session(), m_file.toStdString()); });
        emit finished();
        close();
    });
}

} // namespace qv
