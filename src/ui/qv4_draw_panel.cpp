#include "ui/qv4_draw_panel.h"

#include "core/session.h"
#include "documents/picture_render.h"
#include "documents/printroutines.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QScrollArea>
#include <QVBoxLayout>

namespace qv {

Qv4DrawPanel::Qv4DrawPanel(Session& session, std::string no_image_text, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_no_image_text(std::move(no_image_text))
    , m_view(new QLabel(this))
    , m_copies(new QLineEdit(QStringLiteral("1"), this))
    , m_split(new QCheckBox(QStringLiteral("split128"), this))
{
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(m_view);
    m_copies->setObjectName(QStringLiteral("copies"));
    m_copies->setMaximumWidth(60);
    auto* options = new QHBoxLayout;
    options->addWidget(new QLabel(QStringLiteral("copies"), this));
    options->addWidget(m_copies);
    options->addWidget(m_split);
    options->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(options);
    layout->addWidget(scroll, 1);
}

void Qv4DrawPanel::show_event(std::int64_t eid)
{
    PictureOptions options;
    options.split128 = m_split->isChecked();
    m_pictures = makepic1(m_session, DrawStore::qv4_single, eid, options);
    m_picture = m_pictures.empty() ? QImage() : scrape(m_pictures.front().layout);
    m_view->setPixmap(QPixmap::fromImage(m_picture));
    m_view->adjustSize();
}

void Qv4DrawPanel::clear()
{
    m_pictures.clear();
    m_picture = {};
    m_view->clear();
}

void Qv4DrawPanel::print()
{
    auto& talk = m_session.talk();
    if (m_pictures.empty()) {
        talk.message("no image to print");
        return;
    }
    bool whole = false;
    const int copies = m_copies->text().toInt(&whole);
    if (!whole || copies < 1) {
        talk.message("enter number of copies to print");
        return;
    }
    print_with_printer(m_session, "Print draws", [&](PrintJob& job) {
        for (const auto& picture : m_pictures)
            print_picture_by_config(
                m_session, job, printable(picture.layout), PrintKind { picture.drawtype, picture.print_size }, copies);
    });
}

void Qv4DrawPanel::save_images()
{
    auto& talk = m_session.talk();
    if (m_pictures.empty()) {
        talk.message(m_no_image_text);
        return;
    }
    const auto folder
        = talk.choose_file({ FileDialogKind::Directory, "save images to...", "", "", m_session.dirs().app });
    if (!folder)
        return;
    const auto saved = save_draw_pictures(m_pictures, *folder);
    talk.message(
        saved.ok() ? "Draw images available in " + folder->string() : "cannot write file:" + saved.failed.string());
}

} // namespace qv
