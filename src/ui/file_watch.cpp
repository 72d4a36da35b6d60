#include "ui/file_watch.h"

#include "core/session.h"

#include <QEvent>

namespace qv {

FileWatch::FileWatch(Session& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
{
}

bool FileWatch::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
        if (m_session.tell_if_file_gone())
            return true;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace qv
