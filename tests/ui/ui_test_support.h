#pragma once

#include <QCoreApplication>
#include <QEvent>

namespace qv::test {

// Lets the main loop run its deferred actions and deletions until the condition holds (or plainly gives up
// after enough rounds, and the test's own assertion then fails).
template <class Condition> bool run_main_loop_until(Condition done)
{
    for (int round = 0; round < 500 && !done(); ++round) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return done();
}

} // namespace qv::test
