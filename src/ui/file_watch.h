#pragma once

#include <QObject>

namespace qv {

class Session;

// Watches the open tournament file at each click and key press, before the operation it starts: a file that
// was renamed, moved, deleted or replaced while open is found out there, the director is told in plain words
// and offered save as, and that click or key goes no further.
class FileWatch : public QObject
{
public:
    FileWatch(Session& session, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Session& m_session;
};

} // namespace qv
