#include "ui/load_draw_gif_window.h"

#include "core/session.h"
#include "documents/load_draw_gif.h"
#include "documents/print_configs.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace qv {

LoadDrawGifWindow::LoadDrawGifWindow(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_kinds(new QComboBox(this))
    , m_scroll(new QScrollArea(this))
    , m_view(new QLabel(this))
    , m_print(new QPushButton(QStringLiteral("print"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("load_draw_gif"));
    setWindowTitle(QStringLiteral("load draw gif"));
    close_on_escape(this);

    auto* open = new QPushButton(QStringLiteral("open gif draw"), this);
    open->setObjectName(QStringLiteral("open gif draw"));
    m_print->setObjectName(QStringLiteral("print"));
    m_print->setDefault(true);
    auto* close_button = new QPushButton(QStringLiteral("close"), this);
    m_kinds->setObjectName(QStringLiteral("get_gif_details"));
    m_kinds->setToolTip(QStringLiteral("which draw the picture shows: its configuration prints it"));
    m_kinds->addItem(QString());
    for (auto word : draw_kind_words())
        m_kinds->addItem(qs(word));
    auto* kind_label = new QLabel(QStringLiteral("&drawtype/size"), this);
    kind_label->setBuddy(m_kinds);

    m_view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_view->setBackgroundRole(QPalette::Base);
    m_scroll->setWidget(m_view);
    m_scroll->setBackgroundRole(QPalette::Dark);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(open);
    buttons->addSpacing(20);
    buttons->addWidget(kind_label);
    buttons->addWidget(m_kinds);
    buttons->addWidget(m_print);
    buttons->addStretch();
    buttons->addWidget(close_button);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(m_scroll, 1);
    resize(760, 640);

    // The row reads left to right from "open gif draw"; the cursor starts on the kind of draw.
    set_tab_chain({ open, m_kinds, m_print, close_button, m_scroll });
    m_kinds->setFocus();

    connect(open, &QPushButton::clicked, this, &LoadDrawGifWindow::open_gif_draw);
    connect(m_print, &QPushButton::clicked, this, &LoadDrawGifWindow::print);
    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
}

void LoadDrawGifWindow::show_picture(const QImage& picture)
{
    m_picture = picture;
    m_view->setPixmap(QPixmap::fromImage(m_picture));
    m_view->adjustSize();
}

void LoadDrawGifWindow::open_gif_draw()
{
    if (const auto picture = qv::open_gif_draw(m_session))
        show_picture(*picture);
}

void LoadDrawGifWindow::print()
{
    if (m_picture.isNull()) {
        m_session.talk().message("no image to print");
        return;
    }
    print_draw_gif(m_session, m_picture, to_std(m_kinds->currentText()));
}

} // namespace qv
