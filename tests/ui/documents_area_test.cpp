#include "core/session.h"
#include "documents/documents_tournament.h"
#include "support/file_bytes.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/documents_area.h"
#include "ui/main_window.h"
#include "ui_test_support.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include <algorithm>
#include <gtest/gtest.h>

namespace qv {
namespace {

class DocumentsAreaTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };

    void SetUp() override
    {
        window.resize(1280, 860);
        window.show();
        window.session().boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(window.session().has_tournament());
        test::DocumentsTournamentBuilder(window.session()).build();
        area().init();
        window.session().toolbar_click(Area::idocuments);
        talk.clear();
    }

    DocumentsArea& area() { return *static_cast<DocumentsArea*>(window.area_page(Area::idocuments)); }
    Settings& settings() { return window.session().settings(); }
    void click(const QString& caption)
    {
        auto* button = area().findChild<QPushButton*>(caption);
        ASSERT_NE(button, nullptr) << caption.toStdString();
        button->click();
    }
    void choose_days(DocumentsArea::Tab tab, const QStringList& days)
    {
        area().tabs()->setCurrentIndex(tab);
        auto* list = area().days(tab);
        for (int row = 0; row < list->count(); ++row) {
            const auto text = list->item(row)->text();
            const bool chosen
                = std::any_of(days.begin(), days.end(), [&text](const QString& day) { return text.startsWith(day); });
            if (chosen && !list->currentItem())
                list->setCurrentRow(row, QItemSelectionModel::NoUpdate);
            list->item(row)->setSelected(chosen);
        }
    }
    static void press_enter(QWidget* widget)
    {
        widget->setFocus();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(widget, &press);
    }
};

TEST_F(DocumentsAreaTest, TheScheduleFillsTheListAndTheTextWithTheSameLines)
{
    EXPECT_EQ(area().days(DocumentsArea::schedule_tab)->count(), 2);
    area().tabs()->setCurrentIndex(DocumentsArea::schedule_tab);
    click(QStringLiteral("refresh schedule"));
    EXPECT_EQ(talk.last_message(), "select day");
    EXPECT_EQ(area().output_list()->count(), 0);

    choose_days(DocumentsArea::schedule_tab, { QStringLiteral("tue03mar26") });
    area().schedule_by()->setCurrentIndex(1);
    press_enter(area().days(DocumentsArea::schedule_tab));
    const auto lines = test::lines_of(area().output_list());
    ASSERT_GE(lines.size(), 4);
    EXPECT_EQ(lines[1], QStringLiteral("schedule (by time) for tue03mar26"));
    EXPECT_EQ(area().output_text()->toPlainText(), lines.join(QStringLiteral("\n")) + QStringLiteral("\n"));

    // A result entered elsewhere rewrites the match's line in place.
    // The live match carries its state mark "-".
    const auto row = lines.indexOf(QStringLiteral("-match 1 (court 2) otto orr vs piet pike(2)   mens singles r1 "));
    ASSERT_GE(row, 0);
    const auto sid = area().output_list()->item(row)->data(Qt::UserRole).toLongLong();
    window.session().tournament().run("update schedule set matchscore='6-1' where sid=?", sid);
    window.session().refresh_lists(Lists::schedule);
    EXPECT_EQ(area().output_list()->item(row)->text(),
        QStringLiteral("-match 1 (court 2) otto orr vs piet pike(2)  6-1 mens singles r1 "));
    QApplication::processEvents();
    window.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/documents_schedule.png"));
}

// Each tick writes its setting at once, the label restores the state defaults, and a new run follows them.
TEST_F(DocumentsAreaTest, TicksKeepTheirSettingsAndTheLabelRestoresTheStates)
{
    struct Case
    {
        const char* key;
        const char* caption;
    };
    const Case cases[] = { { "idocs.check1", "long score" }, { "idocs.check3", "from" },
        { "idocs.check14", "match id" }, { "idocs.dead_bottom", "dead" }, { "idocs_dead_top", "dead" },
        { "idocs.check11", "include match context" }, { "idocs.check10", "admin" } };
    for (const auto& c : cases) {
        auto* box = area().tick(c.key);
        ASSERT_NE(box, nullptr) << c.key;
        EXPECT_EQ(box->text(), QString::fromLatin1(c.caption));
        const bool was = settings().integer(c.key) == 1;
        box->setChecked(!was);
        EXPECT_EQ(settings().integer(c.key) == 1, !was) << c.key;
    }
    area().tick("idocs.empty_bottom")->setChecked(true);
    area().tick("idocs.live_bottom")->setChecked(false);
    click(QStringLiteral("states bottom"));
    EXPECT_EQ(settings().integer("idocs.empty_bottom"), 0);
    EXPECT_EQ(settings().integer("idocs.live_bottom"), 1);
    EXPECT_EQ(settings().integer("idocs.unf_bottom"), 1);
    EXPECT_EQ(settings().integer("idocs.dead_bottom"), 0);

    area().results_style()->setCurrentText(QStringLiteral("results by round"));
    EXPECT_EQ(settings().text("idocs_results_style"), "results by round");
    area().xtime()->setCurrentIndex(0);
    EXPECT_EQ(settings().integer("idocs_xtime"), 0);

    // The area read again shows what the settings keep.
    area().init();
    EXPECT_EQ(area().results_style()->currentText(), QStringLiteral("results by round"));
    EXPECT_EQ(area().xtime()->currentIndex(), 0);
}

TEST_F(DocumentsAreaTest, PlayerTimesListThePlayersAndAClickShowsOneAlone)
{
    area().tick("idocs_dead_top")->setChecked(true);
    choose_days(DocumentsArea::player_times_tab, { QStringLiteral("mon02mar26") });
    area().xtime()->setCurrentIndex(2);
    area().refresh();
    EXPECT_EQ(area().document().lines[1].text, "playertimes");
    const auto players = test::lines_of(area().players());
    EXPECT_TRUE(players.contains(QStringLiteral("eli east")));
    EXPECT_FALSE(players.contains(QStringLiteral("qualifier 3")));
    test::select_line(area().players(), QStringLiteral("eli east"));
    emit area().players()->itemClicked(area().players()->currentItem());
    EXPECT_EQ(area().document().lines[1].text, "times for eli east");
    QApplication::processEvents();
    window.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/documents_player_times.png"));
    EXPECT_EQ(area().output_list()->count(), 8); // two rows of eli east
    area().player_box()->setText(QStringLiteral("jon judd"));
    press_enter(area().player_box());
    EXPECT_EQ(area().document().lines[4].text, "jon judd mens singles at 10:00 r1 tue03mar26");
}

// "save as.." offers the page's file name and writes Windows-1252; a line without a match has none to show.
TEST_F(DocumentsAreaTest, SaveOffersThePagesFileAndWritesItsLines)
{
    choose_days(DocumentsArea::results_tab, { QStringLiteral("no day"), QStringLiteral("tue03mar26") });
    area().refresh();
    const auto saved = dir.path() / "results.txt";
    talk.files.push_back({ saved });
    emit area().output_chooser()->activated(1);
    EXPECT_EQ(talk.said.front().text, "results.txt");
    const auto lines = test::read_crlf_lines(saved);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[2], "days:unscheduled,tue03mar26");
    EXPECT_NE(test::read_bytes(saved).find("ren\xe9 roux"), std::string::npos);

    // "save as PDF(l)" writes the pages that "print(l)" prints, with the page's name offered.
    const auto pdf = dir.path() / "results.pdf";
    talk.files.push_back({ pdf });
    emit area().output_chooser()->activated(4);
    EXPECT_EQ(test::read_bytes(pdf).substr(0, 5), "%PDF-");
    EXPECT_EQ(area().output_chooser()->itemText(5), QStringLiteral("save as PDF(p)"));

    area().output_list()->setCurrentRow(0);
    click(QStringLiteral("player details"));
    EXPECT_EQ(talk.last_message(), "select match");
    area().output_list()->setCurrentRow(5);
    const auto sid = area().output_list()->currentItem()->data(Qt::UserRole).toLongLong();
    ASSERT_NE(sid, 0);
    window.session().tournament().run("delete from schedule where sid=?", sid);
    click(QStringLiteral("show in schedule"));
    EXPECT_EQ(talk.last_message(), "match not found,stale data");

    // "save all pages": the results and the schedule made since, in the order of the pages.
    choose_days(DocumentsArea::schedule_tab, { QStringLiteral("tue03mar26") });
    area().refresh_schedule();
    const auto all = dir.path() / "all.txt";
    talk.files.push_back({ all });
    emit area().output_chooser()->activated(6);
    EXPECT_TRUE(
        std::any_of(talk.said.begin(), talk.said.end(), [](const auto& said) { return said.text == "allpages.txt"; }));
    const auto all_lines = test::read_crlf_lines(all);
    const auto schedule_at = std::find(all_lines.begin(), all_lines.end(), "schedule (by court) for tue03mar26");
    const auto results_at = std::find(all_lines.begin(), all_lines.end(), "days:unscheduled,tue03mar26");
    EXPECT_LT(schedule_at, results_at);
    EXPECT_NE(results_at, all_lines.end());
}

TEST_F(DocumentsAreaTest, ThePagesWithoutDaysAndTheDraws)
{
    area().tabs()->setCurrentIndex(DocumentsArea::players_tab);
    area().refresh();
    EXPECT_EQ(area().document().lines[1].text.substr(0, 8), "players ");
    area().tabs()->setCurrentIndex(DocumentsArea::alias_tab);
    test::select_line(area().alias_events(), QStringLiteral("(2)womens round robin"));
    area().refresh();
    EXPECT_EQ(area().document().lines[3].text, "womens round robin");
    area().tabs()->setCurrentIndex(DocumentsArea::draws_tab);
    test::select_line(area().draw_events(), QStringLiteral("(2)womens round robin"));
    click(QStringLiteral("standings"));
    EXPECT_EQ(area().document().lines[1].text, "standings womens round robin");
    click(QStringLiteral("text draws"));
    EXPECT_EQ(area().document().lines[0].text, "womens round robin");
    click(QStringLiteral("toggle text"));
    EXPECT_TRUE(area().output_text()->isVisible());
    const auto folder = dir.path() / "images";
    std::filesystem::create_directories(folder);
    talk.files.push_back({ folder });
    click(QStringLiteral("save images"));
    EXPECT_EQ(talk.last_message(), "Draw images available in " + folder.string());
    EXPECT_TRUE(std::filesystem::exists(folder / "draw_womensroundrobin.gif"));
}

} // namespace
} // namespace qv
