#include "core/session.h"
#include "support/file_bytes.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/exports_window.h"
#include "ui/main_window.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"
#include "window_fixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>

#include <fstream>
#include <gtest/gtest.h>

namespace qv {
namespace {

namespace fs = std::filesystem;

class ExportsWindowTest : public test::WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        auto& db = session().tournament();
        db.run("update tournament set tournament = 'spring open' where idx = 1");
        db.run("insert into events (eid, eventname, sex, singdobs, pte) values (1, 'open', 'male', 'singles', 'p')");
        db.run("insert into players (pid, player, fname, sname, sex) values (1, 'ann lee', 'ann', 'lee', 'female')");
        db.run("insert into evententries (ent_idx, eid, en, player, sd) values (1, 1, 'open', 'ann lee', 'singles')");
        db.run(R"(insert into schedule (sid, eid, "match", rname, mtttt, mbttt, match_state, drawtype, singdobs)
            values (1, 1, 1, 'final', 'ann lee', 'bo tan', '2', 'ko', 'singles'))");
    }
    ExportsWindow* open_exports()
    {
        test::click_operation(*window.tournament_area(), OperationList::tournament, QStringLiteral("imports/exports"));
        return test::last_opened<ExportsWindow>(window);
    }
    static void press(QWidget* widget, int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
};

// A director opens the exports, saves the entries by Enter on the first line, dumps the schedule by a double
// click, makes a results file and re-imports a result; Esc closes the window.
TEST_F(ExportsWindowTest, NumberedLinesRunByEnterOrDoubleClick)
{
    auto* exports = open_exports();
    ASSERT_NE(exports, nullptr);
    EXPECT_EQ(exports->windowTitle(), QStringLiteral("imports/exports"));
    const auto lines = test::lines_of(exports->list());
    ASSERT_EQ(lines.size(), 13);
    EXPECT_EQ(lines.front(), QStringLiteral("1)export entries (brief)"));
    EXPECT_EQ(lines.at(10), QStringLiteral("11)dump schedule"));
    EXPECT_EQ(lines.back(), QStringLiteral("13)import qv6 file"));

    const auto brief = dir.path() / "brief.txt";
    talk.files.push_back({ brief });
    exports->list()->setCurrentRow(0);
    press(exports->list(), Qt::Key_Return);
    EXPECT_EQ(talk.said.front().text, "entries_brief");
    EXPECT_EQ(test::read_crlf_lines(brief).back(), "ann lee(1)");

    const auto dump = dir.path() / "dump.txt";
    talk.files.push_back({ dump });
    emit exports->list()->itemDoubleClicked(exports->list()->item(10));
    EXPECT_EQ(test::read_crlf_lines(dump).size(), 2u);

    const auto qv4 = dir.path() / "spring.qv4";
    talk.clear();
    talk.files.push_back({ qv4 });
    exports->run(9);
    EXPECT_EQ(talk.said.front().text, "spring open");
    EXPECT_EQ(test::read_crlf_lines(qv4).front(), "spring open^^^^^^tmentendmarker^");

    const auto qv6 = dir.path() / "in.qv6";
    std::ofstream(qv6, std::ios::binary) << "1,ann lee,bo tan,1,6-0,,,,\r\n";
    talk.files.push_back({ qv6 });
    exports->run(12);
    EXPECT_EQ(talk.last_message(), "1 records imported");
    EXPECT_EQ(session().tournament().scalar_text("select mwttt from schedule where sid = 1"), "ann lee");

    QPointer<ExportsWindow> guard(exports);
    press(exports, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_TRUE(guard.isNull() || !guard->isVisible());
}

TEST_F(ExportsWindowTest, TheTournamentListSavesAResultsFileAndTheEntriesLists)
{
    const auto qv4 = dir.path() / "r.qv4";
    talk.files.push_back({ qv4 });
    test::click_operation(*window.tournament_area(), OperationList::tournament, QStringLiteral("save qv4 file"));
    EXPECT_TRUE(fs::exists(qv4));
    const auto expanded = dir.path() / "e.txt";
    talk.files.push_back({ expanded });
    test::click_operation(
        *window.tournament_area(), OperationList::tournament, QStringLiteral("export entries (expanded)"));
    EXPECT_EQ(test::read_crlf_lines(expanded).back(), "open)");
    auto* list = window.tournament_area()->operations(OperationList::tournament);
    EXPECT_EQ(list->item(1)->text(), QStringLiteral("imports/exports"));

    // The TODS export sits after the entries lists and writes JSON where the user chooses.
    EXPECT_EQ(list->item(5)->text(), QStringLiteral("export TODS (json)"));
    const auto tods = dir.path() / "t.json";
    talk.files.push_back({ tods });
    test::click_operation(*window.tournament_area(), OperationList::tournament, QStringLiteral("export TODS (json)"));
    EXPECT_EQ(test::read_bytes(tods).rfind("{\n  \"tournamentId\": ", 0), 0u);
}

} // namespace
} // namespace qv
