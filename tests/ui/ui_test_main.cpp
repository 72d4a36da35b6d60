#include <QApplication>

#include <gtest/gtest.h>

// The windows need an application object before the first widget. They run headless: CTest lists the tests
// by running this program before it sets the environment of the tests themselves.
int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
