#pragma once

#include <QGuiApplication>

namespace qv::test {

// Fonts, pictures and the PDF printer want an application object; the domain tests make one when they need it,
// headless unless told otherwise.
inline void ensure_gui_app()
{
    if (QCoreApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "quorvelin_tests";
    static char* argv[] = { name, nullptr };
    static QGuiApplication app(argc, argv);
}

} // namespace qv::test
