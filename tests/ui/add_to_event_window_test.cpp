#include "core/session.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/add_to_event_window.h"
#include "ui/players_filter_window.h"
#include "ui_test_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qv {
namespace {

using Tab = AddToEventWindow::Tab;

class AddToEventWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        session.tournament().exec_script(R"(
            insert into players (pid, player, fname, sname, sex) values
                (1, 'Al West', 'Al', 'West', 'male'), (2, 'Bo Dee', 'Bo', 'Dee', 'male'),
                (3, 'Di Fox', 'Di', 'Fox', 'female');
            insert into events (eid, eventname, singdobs, sex, pte, drawtype) values
                (1, 'mens singles', 'singles', 'male', 'p', 'ko'),
                (2, 'open doubles', 'doubles', 'neutral', 'p', 'ko');
            insert into rawdoublesentries (rdidx, eid, en, player, partnername, p1, p2) values
                (1, 2, 'open doubles', 'Bo Dee', 'Di Fox', 'free', 'free');
        )");
        talk.clear();
        host.calls.clear();
    }

    std::string entries()
    {
        return session.tournament().scalar_text("select group_concat(x, ';') from (select player || ':' || reserve as "
                                                "x from evententries order by ent_idx)");
    }

    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
};

TEST_F(AddToEventWindowTest, SelectedPlayersGoIntoTheTargetAndTheReportIsRead)
{
    QPointer<AddToEventWindow> window = open_add_to_event(session, nullptr);
    EXPECT_EQ(window->objectName(), "addtoevent");
    EXPECT_EQ(window->windowTitle(), "add players to events");
    auto* players = window->source(Tab::players).list;
    EXPECT_EQ(test::lines_of(players), (QStringList { "set filter...", "Al West", "Bo Dee", "Di Fox" }));
    EXPECT_TRUE(window->players_tag()->text().startsWith("male: 1"));
    EXPECT_EQ(test::lines_of(window->targets().list),
        (QStringList { "set filter...", "(1)mens singles", "(2)open doubles" }));

    // Two searches select two people.
    window->source(Tab::players).find->setText(QStringLiteral("al"));
    window->source(Tab::players).search->click();
    window->source(Tab::players).find->setText(QStringLiteral("fox"));
    window->source(Tab::players).search->click();
    window->add_button(Tab::players)->click();
    EXPECT_EQ(talk.last_message(), "choose target event");
    EXPECT_EQ(entries(), "");

    test::select_line(window->targets().list, QStringLiteral("(1)mens singles"));
    talk.answers.push_back(Answer::Yes);
    window->add_button(Tab::players)->click();
    ASSERT_GE(talk.said.size(), 2u);
    EXPECT_EQ(
        talk.said[talk.said.size() - 2].text, "1 players added ,1 errors detected, would you like to view the errors");
    EXPECT_EQ(talk.said.back().kind, "text");
    EXPECT_EQ(talk.said.back().title, "add to event errors");
    EXPECT_EQ(entries(), "Al West:0");
    EXPECT_EQ(host.count("refresh " + std::to_string(int(Lists::entries))), 1);
    // The target stays chosen for the next batch.
    ASSERT_NE(window->targets().list->currentItem(), nullptr);
    EXPECT_EQ(window->targets().list->currentItem()->text(), "(1)mens singles");

    // A set as reserves.
    window->tabs()->setCurrentIndex(1);
    window->sets()->setCurrentText(QStringLiteral("all players NOT in a draw"));
    window->source(Tab::sets).load->click();
    EXPECT_EQ(test::lines_of(window->source(Tab::sets).list), (QStringList { "Al West", "Bo Dee", "Di Fox" }));
    test::select_line(window->source(Tab::sets).list, QStringLiteral("Bo Dee"));
    window->reserve_box(Tab::sets)->setChecked(true);
    talk.clear();
    window->add_button(Tab::sets)->click();
    EXPECT_EQ(talk.last_message(), "all players added,1 in total");
    EXPECT_EQ(entries(), "Al West:0;Bo Dee:1");
    window->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/addtoevent.png"));
    window->close();
    EXPECT_TRUE(test::run_main_loop_until([&] { return window.isNull(); }));
}

TEST_F(AddToEventWindowTest, AnEventsPairIsSplitAndOneHalfAdded)
{
    AddToEventWindow window(session);
    window.show();
    test::select_line(window.source_events(), QStringLiteral("(2)open doubles"));
    EXPECT_EQ(test::lines_of(window.criteria()), (QStringList { "all players entered", "all reserves" }));
    EXPECT_EQ(test::lines_of(window.source(Tab::events).list), QStringList { "Bo Dee/Di Fox" });

    window.split_button()->click();
    EXPECT_EQ(talk.last_message(), "select player");
    test::select_line(window.source(Tab::events).list, QStringLiteral("Bo Dee/Di Fox"));
    window.split_button()->click();
    EXPECT_EQ(test::lines_of(window.split_list()), (QStringList { "Bo Dee", "Di Fox" }));
    test::select_line(window.split_list(), QStringLiteral("Di Fox"));
    test::select_line(window.targets().list, QStringLiteral("(1)mens singles"));
    talk.answers.push_back(Answer::No);
    const auto report = window.add_split();
    EXPECT_EQ(report.errors, 1);
    EXPECT_EQ(talk.said.back().text, "No players added,1 errors detected, would you like to view the errors");

    // The whole pair from the event: a doubles entry into singles makes two entries, one refused by sex.
    test::select_line(window.source(Tab::events).list, QStringLiteral("Bo Dee/Di Fox"));
    talk.clear();
    window.add_button(Tab::events)->click();
    EXPECT_EQ(talk.said.back().text, "1 players added ,1 errors detected, would you like to view the errors");
    EXPECT_EQ(entries(), "Bo Dee:0");

    // The filter line opens the add-to-event variant of the players filter.
    QPointer<QDialog> filter = window.set_players_filter();
    EXPECT_EQ(filter->objectName(), "players_filter_addtoevent");
    auto* players_filter = qobject_cast<PlayersFilterWindow*>(filter.data());
    ASSERT_NE(players_filter, nullptr);
    players_filter->tick(1)->setChecked(false);
    players_filter->store_button()->click();
    EXPECT_TRUE(test::run_main_loop_until([&] { return filter.isNull(); }));
    EXPECT_EQ(test::lines_of(window.source(Tab::players).list), (QStringList { "set filter...", "Al West", "Bo Dee" }));
}

} // namespace
} // namespace qv
