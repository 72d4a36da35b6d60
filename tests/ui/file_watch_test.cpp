#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/file_watch.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QMouseEvent>
#include <QToolButton>

#include <filesystem>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

bool click(QWidget* widget)
{
    const QPointF at(widget->width() / 2.0, widget->height() / 2.0);
    QMouseEvent press(
        QEvent::MouseButtonPress, at, widget->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(
        QEvent::MouseButtonRelease, at, widget->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    const bool pressed = QApplication::sendEvent(widget, &press);
    QApplication::sendEvent(widget, &release);
    return pressed;
}

TEST(FileWatch, TheClickAfterTheFileWentTellsAndGoesNoFurther)
{
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    const auto file = dir.new_tournament();
    MainWindow window(dir.path(), &talk);
    qApp->installEventFilter(new FileWatch(window.session(), &window));
    window.show();
    window.session().boot_start_app(file.string());
    ASSERT_EQ(window.session().current_area(), Area::draw);
    auto* tournament_button = window.area_button(Area::mainform);

    fs::rename(file, dir.path() / "moved.qvd");
    talk.answers.push_back(Answer::No);
    click(tournament_button);
    EXPECT_EQ(window.session().current_area(), Area::draw) << "the click that found it out did nothing else";
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].title, "tournament file gone");

    click(tournament_button);
    EXPECT_EQ(window.session().current_area(), Area::mainform) << "told once; reading goes on";
    EXPECT_EQ(talk.said.size(), 1u);

    talk.answers.push_back(Answer::No);
    window.session().exit_app();
    EXPECT_TRUE(window.process_ended());
}

} // namespace
} // namespace qv
