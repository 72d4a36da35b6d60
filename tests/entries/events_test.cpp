#include "core/utf8.h"
#include "entries/events.h"
#include "support/file_bytes.h"
#include "support/refusal_check.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

namespace fs = std::filesystem;

const EventRecord mens_singles { "mens singles", "10", "singles", "male", "p" };

using test::read_bytes;

// ---- The checks, without a session ----

struct OptionsCase
{
    const char* singdobs;
    const char* sex;
    const char* pte;
    const char* message; // "" when the pair is allowed
    EventField field;
};

TEST(EventValidateOptions, RefusesThePairsThatCannotGoTogether)
{
    const OptionsCase cases[] = {
        { "singles", "mixed", "p", "a mixed event cannot be a singles event", EventField::sex },
        { "doubles", "male", "e",
            "a doubles event must be players only,teams only but not a mixture of players and teams", EventField::pte },
        { "", "mixed", "p", "a mixed doubles event must be a doubles event", EventField::singdobs },
        { "doubles", "mixed", "t", "", EventField::eventname },
        { "singles", "neutral", "e", "", EventField::eventname },
        { "doubles", "female", "p", "", EventField::eventname },
    };
    for (const auto& c : cases) {
        const auto refusal = validate_options({ "open", "", c.singdobs, c.sex, c.pte });
        SCOPED_TRACE(std::string(c.singdobs) + "/" + c.sex + "/" + c.pte);
        test::expect_refusal(refusal, c.message, c.field);
    }
}

struct NameCase
{
    const char* name;
    const char* sex;
    const char* singdobs;
    std::vector<std::string> messages;
};

TEST(EventNameCheck, EachRuleIsAPlainSubstringWithItsBlanks)
{
    const NameCase cases[] = {
        { "Mens Women Open", "male", "singles", { "event is male event but contains word 'women'" } },
        { "womens open", "male", "singles",
            { "event is male event but contains word 'women'", "event is male event but contains word 'womens'" } },
        { "female cup", "male", "singles", { "event is male event but contains word 'female'" } },
        { "ladies night", "male", "doubles", { "event is male event but contains word 'ladies'" } },
        // The word at the start or the end has no blank on one side.
        { "mens doubles", "female", "doubles", {} },
        { "girls u12 men", "female", "singles", {} },
        { "under 12 mens doubles", "female", "doubles", { "event is female event but contains word 'mens'" } },
        { "a male b man c", "female", "singles",
            { "event is female event but contains word 'male'", "event is female event but contains word 'man'" } },
        // Rule 11 compares the sex with "singles": a singles event called mixed passes.
        { "mixed open", "neutral", "singles", {} },
        { "mixed open", "male", "singles", {} },
        { "open doubles", "male", "singles", { "event is singles event but contains word 'doubles'" } },
        { "mixed singles", "mixed", "doubles",
            { "event is doubles event but contains word 'singles'",
                "event is mixed event but contains word 'singles'" } },
        { "Ladies Doubles", "neutral", "singles",
            { "event is singles event but contains word 'doubles'",
                "event is neutral event but contains word 'ladies'" } },
        { "open men only", "neutral", "doubles", { "event is neutral event but contains word 'men'" } },
        { "the female cup", "neutral", "singles", { "event is neutral event but contains word 'female'" } },
        { "a woman b", "neutral", "singles", { "event is neutral event but contains word 'woman'" } },
        { "all womens x mens y", "neutral", "singles",
            { "event is neutral event but contains word 'women'", "event is neutral event but contains word 'womens'",
                "event is neutral event but contains word 'mens'" } },
        { "x male y man z", "neutral", "singles",
            { "event is neutral event but contains word 'male'", "event is neutral event but contains word 'man'" } },
        { "womens singles", "female", "singles", {} },
        { "MEN'S", "MALE", "SINGLES", {} },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::string> expected;
        for (const auto& message : c.messages)
            expected.push_back("(7)" + lcase(c.name) + "," + message);
        EXPECT_EQ(check_event_name(7, c.name, c.sex, c.singdobs), expected);
    }
}

TEST(EventDrawKind, DefaultDrawTypeGivesKnockOutOrRoundRobinMode)
{
    const std::pair<int, DrawKind> cases[] = { { 0, { "ko", 0 } }, { 1, { "rr", 1 } }, { 2, { "rr", 2 } },
        { 3, { "rr", 3 } }, { 4, { "ko", 0 } }, { -1, { "ko", 0 } } };
    for (const auto& [setting, kind] : cases) {
        EXPECT_EQ(default_draw_kind(setting).drawtype, kind.drawtype) << setting;
        EXPECT_EQ(default_draw_kind(setting).pts, kind.pts) << setting;
    }
}

TEST(EventSearch, FindsTheNextLineCaseBlindWrappingRound)
{
    const std::vector<std::string> lines { "(1)mens singles", "(2)womens doubles", "(3)Mens Doubles" };
    EXPECT_EQ(find_line(lines, "MENS", std::nullopt), 0u);
    EXPECT_EQ(find_line(lines, "mens d", 0), 1u);
    EXPECT_EQ(find_line(lines, "mens", 2), 0u);
    EXPECT_EQ(find_line(lines, "mixed", std::nullopt), std::nullopt);
    EXPECT_EQ(find_line(lines, "", std::nullopt), std::nullopt);
}

// ---- Operations on a tournament ----

class EventsTest : public test::TournamentFixture
{
protected:
    fs::path working(const char* name) { return session.dirs().working / name; }
    std::string column(const char* sql, std::int64_t eid) { return db().scalar_text(sql, eid); }

    // Three events: 1 with entries and a draw, 2 with raw doubles entries, 3 empty.
    void fill()
    {
        db().exec_script(R"(
            insert into events (eid, eventname, fee, singdobs, sex, pte, drawtype, drawdone, drawsize) values
                (1, 'mens singles', '10', 'singles', 'male', 'p', 'ko', 1, 4),
                (2, 'mixed doubles', '5', 'doubles', 'mixed', 'p', 'ko', 0, 0),
                (3, 'girls singles', '', 'singles', 'female', 'p', 'ko', 0, 0);
            insert into evententries (ent_idx, eid, en, player, eventfee) values
                (1, 1, 'mens singles', 'al west', '10'), (2, 1, 'mens singles', 'bo dee', '10');
            insert into rawdoublesentries (rdidx, eid, en, player, partnername) values
                (1, 2, 'mixed doubles', 'al west', 'di fox');
            insert into schedule (sid, eid, eventname) values (1, 1, 'mens singles'), (2, 1, 'mens singles'),
                (3, 2, 'mixed doubles');
        )");
    }

    std::int64_t event_count() { return db().row_count("events"); }
    std::string events_dump()
    {
        return db().scalar_text(
            "select group_concat(eid || eventname || fee || singdobs || sex || pte, ';') from events order by eid");
    }
};

TEST_F(EventsTest, ValidateRefusesEachFieldWithItsPlace)
{
    fill();
    struct Case
    {
        std::string name;
        std::string fee;
        EventWindow window;
        std::int64_t own;
        std::string message; // "" when it passes
        EventField field;
        int position;
    };
    const Case cases[] = {
        { "", "1", EventWindow::add, 0, "value required", EventField::eventname, -1 },
        { "   ", "1", EventWindow::add, 0, "value required", EventField::eventname, -1 },
        { "men's open", "1", EventWindow::add, 0, "illegal character", EventField::eventname, 3 },
        { "open (a)", "1", EventWindow::add, 0, "illegal character", EventField::eventname, 5 },
        { "ab\u00bfc", "1", EventWindow::add, 0, "illegal character", EventField::eventname, 2 },
        { "a/b", "1", EventWindow::add, 0, "illegal character", EventField::eventname, 1 },
        { std::string(51, 'x'), "1", EventWindow::add, 0, "event name must be <= 50 characters in length",
            EventField::eventname, 50 },
        { std::string(50, 'x'), "1", EventWindow::add, 0, "", EventField::eventname, -1 },
        { "\u00e9" + std::string(49, 'x'), "1", EventWindow::add, 0, "", EventField::eventname, -1 },
        { "open", "1.2.3", EventWindow::add, 0, "invalid double value, more than one point (.)", EventField::fee, 3 },
        { "open", "1a", EventWindow::add, 0, "invalid character for double", EventField::fee, 1 },
        { "open", ".", EventWindow::add, 0, "invalid double value", EventField::fee, -1 },
        { "open", "12345678.90", EventWindow::add, 0, "event fee must be <= 10 characters in length", EventField::fee,
            10 },
        { "open", "", EventWindow::add, 0, "", EventField::eventname, -1 },
        { " MENS Singles ", "1", EventWindow::add, 0, "already have an event of this name", EventField::eventname, -1 },
        { " MENS Singles ", "1", EventWindow::edit, 1, "", EventField::eventname, -1 },
        { "Mixed Doubles", "1", EventWindow::edit, 1, "already have an event named Mixed Doubles",
            EventField::eventname, -1 },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name + " / " + c.fee);
        const auto refusal = validate(db(), { c.name, c.fee, "singles", "male", "p" }, c.window, c.own);
        test::expect_refusal(refusal, c.message, c.field, c.position);
    }
}

TEST_F(EventsTest, BadInputChangesNothing)
{
    fill();
    const auto before = events_dump();
    // One name per refusal: which characters each refusal takes is the business of the validation table.
    const std::pair<std::string, std::string> cases[] = {
        { "men's", "illegal character" },
        { "   ", "value required" },
        { std::string(51, 'm'), "event name must be <= 50 characters in length" },
    };
    for (const auto& [name, message] : cases) {
        talk.clear();
        const auto added = add_event(session, { name, "1", "singles", "male", "p" });
        EXPECT_EQ(added.outcome, EventSaved::refused) << name;
        const auto saved = save_event(session, 3, { name, "1", "singles", "female", "p" });
        EXPECT_EQ(saved.outcome, EventSaved::refused) << name;
        EXPECT_EQ(talk.messages(), (std::vector<std::string> { message, message })) << name;
    }
    // Fifty characters are the column's full width and pass.
    talk.clear();
    EXPECT_EQ(add_event(session, { std::string(50, 'm'), "1", "singles", "male", "p" }).outcome, EventSaved::saved);
    db().run("delete from events where eid=4");
    host.calls.clear();
    EXPECT_EQ(event_count(), 3);
    EXPECT_EQ(column("select eventname from events where eid=?", 3), "girls singles");
    EXPECT_EQ(events_dump(), before);
    EXPECT_TRUE(host.calls.empty()) << "no list is read again";
}

TEST_F(EventsTest, AddTakesNextIdAndDrawKindThenRefreshesAndBeeps)
{
    fill();
    session.settings().set_disk_var("evt.checkerror", "0");
    for (const auto& [setting, drawtype, pts] :
        { std::tuple { "0", "ko", 0 }, std::tuple { "2", "rr", 2 }, std::tuple { "3", "rr", 3 } }) {
        session.settings().set_disk_var("default_draw_type", setting);
        const auto added = add_event(session, { std::string(" boys ") + setting + " ", "7.5", "doubles", "male", "t" });
        ASSERT_EQ(added.outcome, EventSaved::saved);
        auto row = db().query("select * from events where eid=?", added.eid);
        ASSERT_TRUE(row.step());
        EXPECT_EQ(row.text("eventname"), std::string("boys ") + setting) << "stored trimmed";
        EXPECT_EQ(row.text("drawtype"), drawtype);
        EXPECT_EQ(row.integer("pts"), pts);
        EXPECT_EQ(row.integer("drawdone"), 0);
        EXPECT_EQ(row.integer("drawsize"), 0);
        EXPECT_EQ(row.text("fee"), "7.5");
        EXPECT_EQ(row.text("pte"), "t");
    }
    EXPECT_EQ(db().scalar_integer("select max(eid) from events"), 6);
    EXPECT_EQ(refreshes(Lists::events), 3);
    EXPECT_EQ(talk.said.back().kind, "beep");

    session.settings().set_disk_var("events_beep_ok", "0");
    talk.clear();
    ASSERT_EQ(add_event(session, { "quiet", "", "singles", "male", "p" }).outcome, EventSaved::saved);
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(EventsTest, NameCheckOnSaveStopsAndShowsTheFile)
{
    fill();
    ASSERT_EQ(session.settings().text("evt.checkerror"), "1");
    const auto added = add_event(session, { "Womens Open", "", "singles", "male", "p" });
    EXPECT_EQ(added.outcome, EventSaved::name_errors);
    EXPECT_EQ(event_count(), 3);
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "text");
    EXPECT_EQ(talk.said[0].title, "event error check");
    EXPECT_EQ(fs::path(talk.said[0].text), working("temp.txt"));
    EXPECT_EQ(read_bytes(working("temp.txt")),
        "(4)womens open,event is male event but contains word 'women'\r\n"
        "(4)womens open,event is male event but contains word 'womens'\r\n");

    const auto edited = save_event(session, 1, { "mens ladies", "10", "singles", "male", "p" });
    EXPECT_EQ(edited.outcome, EventSaved::name_errors);
    EXPECT_EQ(column("select eventname from events where eid=?", 1), "mens singles");

    // Unticked, the name is the director's choice.
    session.settings().set_disk_var("evt.checkerror", "0");
    talk.clear();
    EXPECT_EQ(add_event(session, { "Womens Open", "", "singles", "male", "p" }).outcome, EventSaved::saved);
    EXPECT_EQ(event_count(), 4);
}

TEST_F(EventsTest, CheckErrorsListsEveryEventOrSaysNone)
{
    db().exec_script(R"(insert into events (eid, eventname, sex, singdobs) values
        (1, 'girls singles', 'female', 'singles'), (2, 'Open Doubles', 'neutral', 'doubles'))");
    EXPECT_FALSE(check_errors(session));
    EXPECT_EQ(read_bytes(working("temp.txt")), "no errors found\r\n");
    EXPECT_EQ(talk.said.back().title, "event error check");

    db().run("update events set eventname='ladies \u00bf', sex='male' where eid=1");
    db().run("update events set singdobs='singles' where eid=2");
    EXPECT_TRUE(check_errors(session));
    EXPECT_EQ(read_bytes(working("temp.txt")),
        to_cp1252("(1)ladies \u00bf,event is male event but contains word 'ladies'\r\n")
            + "(2)open doubles,event is singles event but contains word 'doubles'\r\n")
        << "Windows-1252 file";
}

TEST_F(EventsTest, RenameIsCarriedIntoEntriesRawEntriesAndTheDraw)
{
    fill();
    session.settings().set_disk_var("evt.checkerror", "0");
    ASSERT_EQ(save_event(session, 1, { "Open Singles", "10", "singles", "male", "p" }).outcome, EventSaved::saved);
    EXPECT_EQ(column("select eventname from events where eid=?", 1), "Open Singles");
    EXPECT_EQ(db().scalar_integer("select count(*) from evententries where en='Open Singles' and eid=?", 1), 2);
    EXPECT_EQ(db().scalar_integer("select count(*) from schedule where eventname='Open Singles'"), 2);
    EXPECT_EQ(column("select eventname from schedule where sid=?", 3), "mixed doubles");
    EXPECT_EQ(refreshes(Lists::draw), 1);
    EXPECT_TRUE(talk.messages().empty()) << "fee unchanged";

    ASSERT_EQ(save_event(session, 2, { "Mixed Pairs", "5", "doubles", "mixed", "p" }).outcome, EventSaved::saved);
    EXPECT_EQ(column("select en from rawdoublesentries where eid=?", 2), "Mixed Pairs");
    EXPECT_EQ(column("select eventname from schedule where sid=?", 3), "mixed doubles")
        << "an event without a draw leaves the matches alone";
}

TEST_F(EventsTest, FeeChangeReachesEntriesAndWarnsWhenThereAreSome)
{
    fill();
    session.settings().set_disk_var("evt.checkerror", "0");
    ASSERT_EQ(save_event(session, 1, { "mens singles", "12.5", "singles", "male", "p" }).outcome, EventSaved::saved);
    EXPECT_EQ(db().scalar_integer("select count(*) from evententries where eventfee='12.5'"), 2);
    EXPECT_EQ(talk.messages(),
        std::vector<std::string> { "mens singles,event has entries,payments will require a recompile" });

    talk.clear();
    ASSERT_EQ(save_event(session, 3, { "girls singles", "4", "singles", "female", "p" }).outcome, EventSaved::saved);
    EXPECT_TRUE(talk.messages().empty());
    EXPECT_EQ(column("select fee from events where eid=?", 3), "4");
}

TEST_F(EventsTest, EntriesLockSexTypeAndPlayerTypeAndDrawLocksDelete)
{
    fill();
    session.settings().set_disk_var("evt.checkerror", "0");
    const auto one = load_event(db(), 1);
    ASSERT_TRUE(one);
    EXPECT_TRUE(one->entries);
    EXPECT_TRUE(one->drawdone);
    EXPECT_TRUE(load_event(db(), 2)->entries) << "raw doubles entries count";
    EXPECT_FALSE(load_event(db(), 3)->entries);
    EXPECT_FALSE(load_event(db(), 9));

    for (const EventRecord& changed : { EventRecord { "mens singles", "10", "singles", "neutral", "p" },
             EventRecord { "mens singles", "10", "singles", "male", "t" } }) {
        talk.clear();
        const auto result = save_event(session, 1, changed);
        EXPECT_EQ(result.outcome, EventSaved::refused);
        EXPECT_EQ(talk.messages(), std::vector<std::string> { std::string(entries_lock_label) });
    }
    EXPECT_EQ(column("select sex || pte from events where eid=?", 1), "malep");
    EXPECT_EQ(save_event(session, 3, { "girls singles", "", "singles", "neutral", "e" }).outcome, EventSaved::saved);
    EXPECT_EQ(column("select sex || pte from events where eid=?", 3), "neutrale");
}

TEST_F(EventsTest, DeletingThreeWithOneDrawDeletesTwoAndReportsOne)
{
    fill();
    const std::vector<std::int64_t> selected { 1, 2, 3 };
    talk.answers = { Answer::Yes, Answer::Yes };
    EXPECT_EQ(delete_events_with_report(session, selected), 2);

    ASSERT_EQ(talk.said.size(), 3u);
    EXPECT_EQ(talk.said[0].text,
        "This action will delete all event entries for the selected event(s)\n"
        "Events which have a draw will be ignored (delete draw before deleting event)Do you want to continue?");
    EXPECT_EQ(talk.said[0].title, "Confirm");
    EXPECT_EQ(talk.said[1].text, "2 events deleted,1 errors,view the errors?");
    EXPECT_EQ(talk.said[1].title, "delete events errors");
    EXPECT_EQ(talk.said[2].kind, "text");
    EXPECT_EQ(fs::path(talk.said[2].text), working("feedback.txt"));
    EXPECT_EQ(read_bytes(working("feedback.txt")),
        "cannot delete mens singles,drawdone, delete draw first.\r\n"
        "mixed doubles deleted\r\n"
        "girls singles deleted\r\n");

    EXPECT_EQ(db().scalar_integer("select group_concat(eid) from events"), 1);
    EXPECT_EQ(db().row_count("evententries"), 2);
    EXPECT_EQ(db().row_count("rawdoublesentries"), 0);
    EXPECT_EQ(db().scalar_integer("select count(*) from schedule where eid=1"), 2);
    EXPECT_EQ(db().row_count("schedule"), 2);
}

TEST_F(EventsTest, DeleteSummariesAndQuestions)
{
    fill();
    EXPECT_EQ(delete_events_with_report(session, std::vector<std::int64_t> {}), 0);
    EXPECT_EQ(talk.last_message(), "Select event(s) to delete");

    talk.clear();
    talk.answers = { Answer::No };
    EXPECT_EQ(delete_events_with_report(session, std::vector<std::int64_t> { 2 }), 0);
    EXPECT_EQ(event_count(), 3) << "declined";

    session.settings().set_disk_var("admin_events_delete_no_prompt", "1");
    talk.clear();
    talk.answers = { Answer::No };
    EXPECT_EQ(delete_events_with_report(session, std::vector<std::int64_t> { 1 }), 0);
    ASSERT_EQ(talk.said.size(), 1u) << "no question before, the summary only";
    EXPECT_EQ(talk.said[0].text, "no events delete,1 errors detected,all events,view the errors?");
    EXPECT_EQ(talk.said[0].title, "delete events errors");

    talk.clear();
    EXPECT_EQ(delete_events_with_report(session, std::vector<std::int64_t> { 2, 3 }), 2);
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "2 events deleted" });
    EXPECT_EQ(event_count(), 1);
}

TEST_F(EventsTest, EditWindowDeletesItsOneEventOrSaysWhyNot)
{
    fill();
    session.settings().set_disk_var("admin_events_delete_no_prompt", "1");
    EXPECT_FALSE(delete_one_event(session, 1));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "cannot delete mens singles,drawdone, delete draw first." });
    talk.clear();
    EXPECT_TRUE(delete_one_event(session, 3));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "girls singles deleted" });
    EXPECT_EQ(event_count(), 2);
}

} // namespace
} // namespace qv
