#include "core/session.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/events_windows.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace qv {
namespace {

namespace fs = std::filesystem;

// The main window reads its tournament area again when told a list changed; so does this host.
class AreaHost : public test::FakeHost
{
public:
    TournamentArea* area = nullptr;
    void refresh_lists(Lists which) override
    {
        FakeHost::refresh_lists(which);
        if (area)
            area->refresh();
    }
};

class EventsWindowsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        area.init();
        host.area = &area;
        talk.clear();
    }

    void TearDown() override { host.area = nullptr; }

    // 1 drawn with entries, 2 doubles with raw entries, 3 empty.
    void fill()
    {
        session.tournament().exec_script(R"(
            insert into events (eid, eventname, fee, singdobs, sex, pte, drawtype, drawdone, drawsize) values
                (1, 'mens singles', '10', 'singles', 'male', 'p', 'ko', 1, 4),
                (2, 'mixed doubles', '5', 'doubles', 'mixed', 't', 'ko', 0, 0),
                (3, 'girls singles', '', 'singles', 'female', 'p', 'ko', 0, 0);
            insert into evententries (ent_idx, eid, en, player, eventfee) values
                (1, 1, 'mens singles', 'al west', '10'), (2, 1, 'mens singles', 'bo dee', '10');
            insert into rawdoublesentries (rdidx, eid, en, player, partnername) values
                (1, 2, 'mixed doubles', 'al west', 'di fox');
        )");
        area.refresh();
    }

    std::int64_t event_count() { return session.tournament().row_count("events"); }

    test::TempAppDir dir;
    test::ScriptedTalk talk;
    AreaHost host;
    Session session { dir.path(), talk, host };
    TournamentArea area { session };
};

TEST_F(EventsWindowsTest, AnEventAddedThroughItsWindowShowsInTheTournamentArea)
{
    session.settings().set_disk_var("default_draw_type", "2");
    session.settings().set_disk_var("events_beep_ok", "1");
    QPointer<AddEventWindow> add = open_add_event(session, nullptr);
    ASSERT_FALSE(add.isNull());
    auto* fields = add->fields();
    EXPECT_EQ(fields->fee_label()->text(), "event fee");
    fields->singdobs()->setCurrentText(QStringLiteral("doubles"));
    EXPECT_EQ(fields->fee_label()->text(), "event fee (per player)");

    fields->name()->setText(QStringLiteral("Open Pairs"));
    fields->fee()->setText(QStringLiteral("7.5"));
    fields->sex()->setCurrentText(QStringLiteral("neutral"));
    fields->type()->setCurrentText(QStringLiteral("teams only"));
    add->save_button()->click();

    EXPECT_EQ(test::lines_of(area.events()), QStringList { "(1)Open Pairs" });
    EXPECT_EQ(area.event_count(), "1");
    EXPECT_EQ(session.tournament().scalar_text(
                  "select eventname || fee || singdobs || sex || pte || drawtype || pts from events"),
        "Open Pairs7.5doublesneutraltrr2");
    ASSERT_FALSE(talk.said.empty());
    EXPECT_EQ(talk.said.back().kind, "beep");
    EXPECT_TRUE(talk.messages().empty());
    // The name goes for the next event; the kind stays.
    EXPECT_TRUE(fields->name()->text().isEmpty());
    EXPECT_EQ(fields->singdobs()->currentText(), "doubles");

    add->clear_button()->click();
    EXPECT_TRUE(fields->fee()->text().isEmpty());
    EXPECT_EQ(fields->singdobs()->currentText(), "singles");
    EXPECT_EQ(fields->fee_label()->text(), "event fee");
    add->close();
    EXPECT_TRUE(test::run_main_loop_until([&] { return add.isNull(); }));
}

TEST_F(EventsWindowsTest, BadInputIsRefusedWithItsMessageAndAddsNothing)
{
    struct Case
    {
        QString name;
        QString fee;
        const char* sex;
        std::string message;
        QString selected; // the offending character, selected in its box
    };
    const Case cases[] = {
        { QStringLiteral("men's open"), QString(), "male", "illegal character", QStringLiteral("'") },
        { QStringLiteral("open ^ cup"), QString(), "male", "illegal character", QStringLiteral("^") },
        { QString::fromUtf8("caf\u00e9 \u00bfcup"), QString(), "male", "illegal character",
            QString::fromUtf8("\u00bf") },
        { QString(51, QLatin1Char('x')), QString(), "male", "event name must be <= 50 characters in length",
            QStringLiteral("x") },
        { QStringLiteral("open"), QStringLiteral("1a"), "male", "invalid character for double", QStringLiteral("a") },
        { QStringLiteral("open"), QString(), "mixed", "a mixed event cannot be a singles event", QString() },
        { QString(), QString(), "male", "value required", QString() },
    };
    AddEventWindow add(session, [](std::int64_t) { ADD_FAILURE() << "nothing may be added"; });
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        talk.clear();
        add.fields()->name()->setText(c.name);
        add.fields()->fee()->setText(c.fee);
        add.fields()->sex()->setCurrentText(QString::fromLatin1(c.sex));
        EXPECT_EQ(add.save(), 0);
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message });
        EXPECT_EQ(add.fields()->name()->text(), c.name) << "the typing stays for correcting";
        if (!c.selected.isEmpty()) {
            const auto* box = c.fee.isEmpty() ? add.fields()->name() : add.fields()->fee();
            EXPECT_EQ(box->selectedText(), c.selected);
        }
    }
    EXPECT_EQ(event_count(), 0);
    EXPECT_EQ(area.events()->count(), 0);
}

TEST_F(EventsWindowsTest, EditingLocksWhatEntriesAndADrawHold)
{
    fill();
    AdminEventsWindow edit(session);
    EXPECT_EQ(
        test::lines_of(edit.events()), (QStringList { "(3)girls singles", "*(1)mens singles", "(2)mixed doubles" }));

    test::select_line(edit.events(), "*(1)mens singles");
    auto* fields = edit.fields();
    EXPECT_EQ(fields->name()->text(), "mens singles");
    EXPECT_FALSE(fields->sex()->isEnabled());
    EXPECT_FALSE(fields->singdobs()->isEnabled());
    EXPECT_FALSE(fields->type()->isEnabled());
    EXPECT_EQ(edit.entries_lock()->text(), "draw has entries,cannot change sex,sd,type");
    EXPECT_FALSE(edit.delete_button()->isEnabled());
    EXPECT_EQ(edit.drawdone_lock()->text(), "draw done, cannot delete event, delete draw first");
    edit.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/admin_events.png"));

    // A new name and fee reach the entries; the bills wait for their compile.
    fields->name()->setText(QStringLiteral("boys singles"));
    fields->fee()->setText(QStringLiteral("12"));
    EXPECT_TRUE(edit.save());
    EXPECT_EQ(talk.messages(),
        std::vector<std::string> { "boys singles,event has entries,payments will require a recompile" });
    EXPECT_EQ(session.tournament().scalar_integer(
                  "select count(*) from evententries where en='boys singles' and eventfee='12'"),
        2);
    EXPECT_EQ(edit.events()->currentItem()->text(), "*(1)boys singles");
    EXPECT_TRUE(test::lines_of(area.events()).contains("*(1)boys singles"));

    test::select_line(edit.events(), "(2)mixed doubles");
    EXPECT_EQ(fields->fee_label()->text(), "event fee (per player)");
    EXPECT_EQ(fields->type()->currentText(), "teams only");
    EXPECT_FALSE(fields->sex()->isEnabled());
    EXPECT_TRUE(edit.delete_button()->isEnabled());
    EXPECT_TRUE(edit.drawdone_lock()->text().isEmpty());

    test::select_line(edit.events(), "(3)girls singles");
    EXPECT_TRUE(fields->sex()->isEnabled());
    EXPECT_TRUE(edit.entries_lock()->text().isEmpty());
    fields->name()->setText(QStringLiteral("womens singles"));
    fields->sex()->setCurrentText(QStringLiteral("neutral"));
    fields->type()->setCurrentText(QStringLiteral("either"));
    // With the tick on, a name that breaks a rule stops the save and shows why.
    edit.check_on_save()->setChecked(true);
    EXPECT_EQ(session.settings().text("evt.checkerror"), "1");
    talk.clear();
    EXPECT_FALSE(edit.save());
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].title, "event error check");
    EXPECT_EQ(test::bytes_of(talk.said[0].text),
        "(3)womens singles,event is neutral event but contains word 'women'\r\n"
        "(3)womens singles,event is neutral event but contains word 'womens'\r\n");
    EXPECT_EQ(session.tournament().scalar_text("select eventname || sex || pte from events where eid=3"),
        "girls singlesfemalep");
    // Unticked, it saves as it stands.
    edit.check_on_save()->setChecked(false);
    EXPECT_TRUE(edit.save());
    EXPECT_EQ(session.tournament().scalar_text("select eventname || sex || pte from events where eid=3"),
        "womens singlesneutrale");
}

TEST_F(EventsWindowsTest, EditWindowSearchesChecksAndDeletesOne)
{
    fill();
    AdminEventsWindow edit(session);
    edit.search_text()->setText(QStringLiteral("MIXED"));
    EXPECT_TRUE(edit.search());
    EXPECT_EQ(edit.shown_event(), 2);
    // From the last line the search goes round to the top.
    edit.search_text()->setText(QStringLiteral("singles"));
    EXPECT_TRUE(edit.search());
    EXPECT_EQ(edit.shown_event(), 3);
    edit.search_text()->setText(QStringLiteral("quads"));
    EXPECT_FALSE(edit.search());
    EXPECT_EQ(edit.shown_event(), 3);

    EXPECT_FALSE(edit.errors());
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].title, "event error check");
    EXPECT_EQ(test::bytes_of(talk.said[0].text), "no errors found\r\n");

    edit.clear();
    EXPECT_EQ(edit.shown_event(), 0);
    EXPECT_TRUE(edit.fields()->name()->text().isEmpty());
    talk.clear();
    EXPECT_FALSE(edit.remove());
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "Select event(s) to delete" });

    edit.no_prompt()->setChecked(true);
    test::select_line(edit.events(), "(3)girls singles");
    talk.clear();
    EXPECT_TRUE(edit.remove());
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "girls singles deleted" });
    EXPECT_EQ(test::lines_of(edit.events()), (QStringList { "*(1)mens singles", "(2)mixed doubles" }));
    EXPECT_EQ(edit.shown_event(), 0);
    EXPECT_EQ(area.event_count(), "2");
}

TEST_F(EventsWindowsTest, DeletingThreeOfWhichOneHasADrawReportsIt)
{
    fill();
    session.settings().set_disk_var("admin_events_manage_filter", "*^*^*^*^*^event number");
    EventsManageWindow manage(session);
    EXPECT_EQ(test::lines_of(manage.events()),
        (QStringList { "set filter...", "*(1)mens singles", "(2)mixed doubles", "(3)girls singles" }));
    for (int row = 1; row < 4; ++row)
        manage.events()->item(row)->setSelected(true);
    talk.answers = { Answer::Yes, Answer::Yes };
    EXPECT_EQ(manage.remove(), 2);

    ASSERT_EQ(talk.said.size(), 3u);
    EXPECT_EQ(talk.said[0].title, "Confirm");
    EXPECT_EQ(talk.said[1].text, "2 events deleted,1 errors,view the errors?");
    EXPECT_EQ(talk.said[2].kind, "text");
    EXPECT_EQ(talk.said[2].title, "delete events errors");
    EXPECT_EQ(test::bytes_of(talk.said[2].text),
        "cannot delete mens singles,drawdone, delete draw first.\r\n"
        "mixed doubles deleted\r\n"
        "girls singles deleted\r\n");
    EXPECT_EQ(test::lines_of(manage.events()), (QStringList { "set filter...", "*(1)mens singles" }));
    EXPECT_EQ(test::lines_of(area.events()), QStringList { "*(1)mens singles" });
}

} // namespace
} // namespace qv
