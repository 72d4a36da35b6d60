#include "results_fixture.h"
#include "ui/autoschedule_window.h"
#include "ui/board_list_view.h"
#include "ui/time_choosers.h"

#include <QComboBox>
#include <QPushButton>

namespace qv {
namespace {

using AutoscheduleWindowTest = test::ResultsBoardFixture;

TEST_F(AutoscheduleWindowTest, ACourtIsTimedFromTheBoard)
{
    window.session().toolbar_click(Area::schedule);
    auto* autoschedule = area().button(QStringLiteral("auto schedule"));
    ASSERT_NE(autoschedule, nullptr);
    autoschedule->click();
    EXPECT_EQ(talk.last_message(), "select match");
    EXPECT_EQ(test::last_opened<AutoscheduleWindow>(area()), nullptr);

    // Lines 1, 2 and 4 of the court.
    auto* court = area().view(BoardListId::court);
    ASSERT_EQ(court->count(), 15);
    for (int row : { 0, 1, 3 })
        court->item(row)->setSelected(true);
    autoschedule->click();
    auto* form = test::last_opened<AutoscheduleWindow>(area());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), QStringLiteral("auto-schedule matches"));
    form->choosers()->set_choice({ "nb ", "23", "30" });
    form->minutes()->setText(QStringLiteral("0"));
    test::press_enter(form->minutes());
    EXPECT_EQ(talk.last_message(), "zero invalid in this context");
    EXPECT_TRUE(form->isVisible());
    form->minutes()->setText(QStringLiteral("45"));
    test::press_enter(form->minutes());
    EXPECT_TRUE(test::run_main_loop_until([&] { return test::last_opened<AutoscheduleWindow>(area()) == nullptr; }));

    QStringList times;
    for (int row = 0; row < 5; ++row)
        times << court->item(row)->text().section(QLatin1Char('\t'), 4, 4);
    EXPECT_EQ(times, QStringList({ "nb 23:30", "nb 24:00", "        ", "nb 24:00", "        " }));
    EXPECT_EQ(window.session().settings().integer("dl.minsadd"), 45);

    // The form opens again on the stored choice.
    court->item(2)->setSelected(true);
    autoschedule->click();
    form = test::last_opened<AutoscheduleWindow>(area());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->choosers()->choice().value(), "nb 23:30");
    EXPECT_EQ(form->minutes()->text(), QStringLiteral("45"));
    form->button(QStringLiteral("close"))->click();
}

} // namespace
} // namespace qv
