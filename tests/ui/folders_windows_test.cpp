#include "core/session.h"
#include "entries/filters.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/events_filter_window.h"
#include "ui/folders_windows.h"
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

class FoldersWindowsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        session.tournament().run(R"(insert into players (pid, player, fname, sname, sex) values
            (1, 'Al West', 'Al', 'West', 'male'), (2, 'Bea Cole', 'Bea', 'Cole', 'female'))");
        session.settings().set_disk_var("players_folders_assign_filter", "1^0^1^1^1^1^1^1^order by player");
        talk.clear();
    }

    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
};

TEST_F(FoldersWindowsTest, AddAFolderAndMoveAPlayerIntoIt)
{
    FoldersWindow folders(session);
    folders.show();
    QPointer<AddFolderWindow> add = folders.add_new();
    add->name()->setText(QStringLiteral("juniors"));
    add->save_button()->click();
    EXPECT_TRUE(add->name()->text().isEmpty());
    EXPECT_EQ(test::lines_of(folders.folders()), QStringList { "juniors" });
    // The same name again is refused through the user's box.
    add->name()->setText(QStringLiteral(" Juniors"));
    add->save_button()->click();
    EXPECT_EQ(talk.last_message(), "already have a folder named Juniors");
    add->close();

    FoldersAssignWindow assign(session);
    assign.show();
    EXPECT_EQ(test::lines_of(assign.filtered()), (QStringList { "set filter...", "Al West", "Bea Cole" }));
    EXPECT_TRUE(assign.filter_tag()->text().startsWith("all players male: 1"));
    test::select_line(assign.filtered(), "Bea Cole");
    test::select_line(assign.folders(), "juniors");
    assign.move_in_button()->click();
    EXPECT_EQ(test::lines_of(assign.folder_players()), QStringList { "Bea Cole" });
    assign.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/players_folders_assign.png"));

    // The filter by folder now lists only her, and the window reads its list again.
    QPointer<QDialog> filter_window = assign.set_filter();
    auto* filter = qobject_cast<PlayersFilterWindow*>(filter_window.data());
    ASSERT_NE(filter, nullptr);
    filter->use_folder()->setChecked(true);
    EXPECT_FALSE(filter->all_players()->isChecked());
    test::select_line(filter->folder_list(), "juniors");
    filter->store_button()->click();
    EXPECT_TRUE(test::run_main_loop_until([&] { return filter_window.isNull(); }));
    EXPECT_EQ(session.settings().text("players_folders_assign_filter"), "3^1^1^1^1^1^1^1^order by player");
    EXPECT_EQ(test::lines_of(assign.filtered()), (QStringList { "set filter...", "Bea Cole" }));
    EXPECT_TRUE(assign.filter_tag()->text().startsWith("folder id: 1 "));

    folders.refresh();
    test::select_line(folders.folders(), "juniors");
    EXPECT_EQ(test::lines_of(folders.players()), QStringList { "Bea Cole" });
}

TEST_F(FoldersWindowsTest, FilterWindowsStoreUnderTheCallersKey)
{
    int heard = 0;
    auto* players = new PlayersFilterWindow(session, std::string(filter_keys::players_delete),
        PlayersFilterKind::with_sources, [&heard](const PlayerFilter&) { ++heard; });
    players->all_players()->setChecked(false);
    EXPECT_FALSE(players->store());
    EXPECT_EQ(talk.last_message(), "select at least 1 source");
    EXPECT_EQ(heard, 0);
    delete players;

    session.settings().set_disk_var("players_addtoevent_filter", "3^4^1^1^1^1^1^1^order by player");
    auto* addtoevent = new PlayersFilterWindow(session, std::string(filter_keys::players_addtoevent),
        PlayersFilterKind::addtoevent, [&heard](const PlayerFilter&) { ++heard; });
    EXPECT_EQ(addtoevent->tabs(), nullptr);
    addtoevent->tick(1)->setChecked(false);
    addtoevent->order()->setCurrentIndex(2);
    EXPECT_TRUE(addtoevent->store());
    EXPECT_EQ(session.settings().text("players_addtoevent_filter"), "3^4^1^0^1^1^1^1^order order of insertion");

    EventFilter chosen;
    auto* events = new EventsFilterWindow(
        session, std::string(filter_keys::draw_events), [&chosen](const EventFilter& f) { chosen = f; });
    EXPECT_EQ(events->windowTitle(), "events  filter");
    events->list(0)->setCurrentText(QStringLiteral("doubles"));
    events->list(4)->setCurrentText(QStringLiteral("has no entries"));
    events->store_button()->click();
    EXPECT_EQ(chosen.singdobs, "doubles");
    EXPECT_EQ(session.settings().text("draw_events_filter"), "doubles^*^*^*^has no entries^event number");
    EXPECT_EQ(heard, 1);
    test::run_main_loop_until([] { return false; });
}

} // namespace
} // namespace qv
