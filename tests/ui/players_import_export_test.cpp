#include "core/session.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/events_windows.h"
#include "ui/main_window.h"
#include "ui/players_import_export_window.h"
#include "ui/toolbar_windows.h"
#include "ui_test_support.h"
#include "window_fixture.h"

#include <QAction>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

class PlayersImportExportTest : public test::WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        session().tournament().run("insert into folders (fid, nm) values (3, 'juniors')");
    }
    fs::path file_of(const std::string& name, const std::string& bytes)
    {
        const auto file = dir.path() / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    static void trigger(QMenu* menu, const QString& caption)
    {
        for (auto* action : menu->actions())
            if (action->text() == caption) {
                action->trigger();
                return;
            }
        ADD_FAILURE() << "no menu line " << caption.toStdString();
    }
};

// A director imports a short player file into a folder, exports two of them in full and reads the formats.
TEST_F(PlayersImportExportTest, ImportIntoAFolderExportTheChosenAndTheFormats)
{
    test::click_operation(*window.tournament_area(), OperationList::players, QStringLiteral("   import/export"));
    auto* ie = test::last_opened<PlayersImportExportWindow>(window);
    ASSERT_NE(ie, nullptr);
    EXPECT_EQ(ie->windowTitle(), QStringLiteral("players import/export"));
    ASSERT_EQ(ie->folder()->count(), 2);
    ie->folder()->setCurrentIndex(1);

    talk.files.push_back({ file_of("in.qv2", "ann^lee^female^NZL^1^\r\nbo^tan^male^AUS^1^\r\nbad^line^\r\n") });
    talk.answers.push_back(Answer::No);
    trigger(ie->menu(), QStringLiteral("import qv2 file"));
    EXPECT_EQ(talk.said.at(1).text, "2 records imported,1 errors,view the errors?");
    EXPECT_EQ(session().tournament().scalar_integer("select count(*) from players where fid = 3"), 2);
    EXPECT_EQ(test::lines_of(ie->list()).mid(1), (QStringList { "Ann Lee", "Bo Tan" }));

    trigger(ie->menu(), QStringLiteral("export players qv1 format"));
    EXPECT_EQ(talk.last_message(), "select at least 1 player");
    ie->list()->item(1)->setSelected(true);
    ie->list()->item(2)->setSelected(true);
    const auto out = dir.path() / "out.qv2";
    talk.files.push_back({ out });
    trigger(ie->menu(), QStringLiteral("export players qv2 format"));
    EXPECT_EQ(test::bytes_of(out), "Ann^Lee^female^NZL^1^\r\nBo^Tan^male^AUS^1^\r\n");

    trigger(ie->menu(), QStringLiteral("file formats"));
    EXPECT_EQ(talk.said.back().kind, "text");
    EXPECT_NE(test::bytes_of(dir.path() / "working" / "file_formats.txt").find("qv1 (16 fields):"), std::string::npos);
    ie->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/players_import_export.png"));
    ie->close();
}

// Events come in from the feederapps window and go out from the events' menu.
TEST_F(PlayersImportExportTest, EventsInThroughFeederappsAndOutThroughTheEventsMenu)
{
    QPointer<ToolbarWindow> feeder = window.open_feederapps();
    ASSERT_FALSE(feeder.isNull());
    talk.files.push_back({ file_of("in.qv3", "girls^singles^female^p^5^\r\n") });
    feeder->button("import events")->click();
    EXPECT_EQ(talk.last_message(), "1 records imported");

    auto* events = open_events_manage(session(), &window);
    ASSERT_NE(events, nullptr);
    ASSERT_EQ(events->events()->count(), 2);
    events->events()->item(1)->setSelected(true);
    const auto out = dir.path() / "out.qv3";
    talk.files.push_back({ out });
    trigger(events->menu(), QStringLiteral("export events"));
    EXPECT_EQ(test::bytes_of(out), "girls^singles^female^p^5^\r\n");
    events->close();
}

} // namespace
} // namespace qv
