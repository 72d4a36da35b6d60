#include "core/session.h"
#include "datafiles/results_file.h"
#include "drawengine/ko_progression.h"
#include "support/drawn_tournament.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/analysis_lists.h"
#include "ui/analysis_text_panel.h"
#include "ui/main_window.h"
#include "ui/qv4_draw_panel.h"
#include "ui/qv4_multiple_window.h"
#include "ui/qv4_single_window.h"
#include "ui_test_support.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

// Two years of one tournament in the archive, written by the program; then the tournament is closed, as
// analysis needs none.
class ResultsAnalysisWindowsTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.show();
        auto& session = window.session();
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        auto& db = session.tournament();
        test::add_drawn_tournament_people(db);
        test::draw_every_event(session);
        for (int rid = 1; rid <= 3; ++rid)
            progressdraw(session, 1, rid);
        fs::create_directories(session.dirs().qv4_file_archive);
        for (const char* year : { "2025", "2026" }) {
            db.run("update tournament set tournament = ? where idx = 1", std::string("club open ") + year);
            ASSERT_TRUE(write_qv4_file(db, session.dirs().qv4_file_archive / (std::string("open") + year + ".qv4")));
        }
        session.menu_close();
        ASSERT_FALSE(session.has_tournament());
        talk.clear();
    }
    template <class Window> Window* opened(const char* line)
    {
        emit test::menu_of(window, QStringLiteral("tools"))->aboutToShow();
        auto* action = test::line_of(window, QStringLiteral("tools"), QString::fromLatin1(line));
        EXPECT_NE(action, nullptr);
        EXPECT_TRUE(action && action->isEnabled()) << "no tournament is needed";
        if (action)
            action->trigger();
        return test::last_opened<Window>(window);
    }
    static void select_text(QListWidget* list, const QString& text)
    {
        list->clearSelection();
        test::select_line(list, text);
    }
};

TEST_F(ResultsAnalysisWindowsTest, OneFileItsResultsAndADraw)
{
    auto* single = opened<Qv4SingleWindow>("one result (qv4) file");
    ASSERT_NE(single, nullptr);
    EXPECT_EQ(single->windowTitle(), QStringLiteral("one result (qv4) file"));
    talk.files.push_back({ window.session().dirs().qv4_file_archive / "open2026.qv4" });
    ASSERT_TRUE(single->open_file());
    EXPECT_TRUE(single->text()->box()->toPlainText().startsWith(QStringLiteral("tournament: club open 2026\n")));
    EXPECT_EQ(single->players()->count(), 14);

    select_text(single->players(), QStringLiteral("adam mann"));
    single->player_actions()->run(QStringLiteral("players results"));
    EXPECT_TRUE(single->text()->box()->toPlainText().startsWith(QStringLiteral("results for adam mann\n\n")));

    single->event_actions()->run(QStringLiteral("view draw"));
    EXPECT_EQ(talk.last_message(), "select event");
    single->events()->setCurrentRow(0);
    single->event_actions()->run(QStringLiteral("view draw"));
    EXPECT_FALSE(single->draw()->picture().isNull());
    single->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/qv4_single.png"));

    talk.files.push_back({ dir.path() / "not-a-results-file.qv4" });
    EXPECT_FALSE(single->open_file());
    EXPECT_EQ(single->status()->text(), QStringLiteral("not-a-results-file.qv4 error importing "));
    single->close();
}

TEST_F(ResultsAnalysisWindowsTest, ACompiledSetHeadToHeadAndADrawOfAFile)
{
    auto* multiple = opened<Qv4MultipleWindow>("multiple results (qv4) files");
    ASSERT_NE(multiple, nullptr);
    ASSERT_EQ(multiple->archive()->count(), 2);
    multiple->archive()->selectAll();
    multiple->file_actions()->run(QStringLiteral("compile"));
    EXPECT_EQ(talk.last_message(), "2 files compiled");
    EXPECT_EQ(test::lines_of(multiple->build()), (QStringList { "open2025.qv4", "open2026.qv4" }));

    multiple->player_actions()->run(QStringLiteral("head to head"));
    EXPECT_EQ(talk.last_message(), "select player on left");
    const auto final_loser = window.session().peek_browse_db().scalar_text(
        "select mbttt from qv4_multiple_schedule where rname = 'final' limit 1");
    const auto champion = window.session().peek_browse_db().scalar_text(
        "select mtttt from qv4_multiple_schedule where rname = 'final' limit 1");
    select_text(multiple->left_players(), QString::fromStdString(champion));
    select_text(multiple->right_players(), QString::fromStdString(final_loser));
    multiple->player_actions()->run(QStringLiteral("head to head"));
    const auto text = multiple->text()->box()->toPlainText();
    EXPECT_TRUE(text.startsWith(QString::fromStdString("Head to Head results for " + champion + " vs " + final_loser)));
    EXPECT_EQ(text.count(QStringLiteral(" def ")), 2) << text.toStdString();

    select_text(multiple->right_players(), QStringLiteral("idaa duo"));
    multiple->player_actions()->run(QStringLiteral("head to head"));
    EXPECT_EQ(talk.last_message(), "no results found");

    multiple->build()->setCurrentRow(1);
    ASSERT_GT(multiple->draw_events()->count(), 0);
    multiple->draw_events()->setCurrentRow(0);
    multiple->draw_actions()->run(QStringLiteral("view draw"));
    EXPECT_FALSE(multiple->draw()->picture().isNull());
    multiple->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/qv4_multiple.png"));
    multiple->close();
}

} // namespace
} // namespace qv
