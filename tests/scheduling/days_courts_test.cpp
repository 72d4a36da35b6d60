#include "scheduling/board_fixture.h"
#include "scheduling/board_moves.h"
#include "scheduling/days_courts.h"
#include "support/file_bytes.h"

namespace qv {
namespace {

class DaysCourtsTest : public test::BoardFixture
{
protected:
    DaysCourtsEditor editor { session };

    void SetUp() override
    {
        BoardFixture::SetUp();
        editor.init();
    }

    std::vector<std::string> court_texts(const std::string& day)
    {
        std::vector<std::string> texts;
        for (const auto& court : editor.load_courts(day))
            texts.push_back(court.text);
        return texts;
    }
    std::int64_t rows(const std::string& table) { return db->row_count(table); }
};

TEST_F(DaysCourtsTest, OpeningCopiesTheGridWithoutTheNoDayRow)
{
    EXPECT_EQ(editor.days(), (std::vector<std::string> { day1, day2, day3 }));
    EXPECT_EQ(db->scalar_integer("select count(*) from scheduledays_temp where idx=0"), 0);
    EXPECT_EQ(rows("scheduledays_courts_temp"), 3 * 9);
    // Reserved rows first, by cid, then the courts; the tab parts the court from its name.
    const auto texts = court_texts(day1);
    ASSERT_EQ(texts.size(), 9u);
    EXPECT_EQ(texts[0], "court dcb\tday clipboard");
    EXPECT_EQ(texts[1], "court tbc\tcourt to be confirmed");
    EXPECT_EQ(texts[2], "court fa\tfirst available court");
    EXPECT_EQ(texts[3], "court 1\t");
    EXPECT_EQ(editor.dates_courts_label(), "dates/courts");
    EXPECT_EQ(editor.numbers_names_label(), "court numbers/court names");
    EXPECT_EQ(editor.max_courts_label(), "max courts for selected day(s)");
}

TEST_F(DaysCourtsTest, GenerateRefusesInOrder)
{
    const std::vector<std::string> one { day1 };
    struct Case
    {
        std::string number;
        std::vector<std::string> selected;
        std::string refusal;
    };
    const Case cases[] = {
        { "", one, "value required" },
        { "  ", one, "value required" },
        { "1a", one, "invalid character for integer" },
        { "0", one, "zero invalid in this context" },
        { "000", one, "zero invalid in this context" },
        { "10001", one, "max 10,000 courts" },
        { "99999999999999999999999", one, "max 10,000 courts" },
        { "4", {}, "select at least one day" },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.number);
        talk.clear();
        EXPECT_FALSE(editor.generate(c.number, c.selected));
        EXPECT_EQ(talk.last_message(), c.refusal);
    }
    // Nothing changed on any refusal.
    EXPECT_EQ(rows("scheduledays_courts_temp"), 3 * 9);

    // An end before the start leaves no days: "no days setup".
    editor.set_days({ 2026, 3, 4 }, { 2026, 3, 2 });
    EXPECT_TRUE(editor.days().empty());
    talk.clear();
    EXPECT_FALSE(editor.generate("4", one));
    EXPECT_EQ(talk.last_message(), "no days setup");
}

TEST_F(DaysCourtsTest, GenerateKeepsTheSelectedDaysAndThrowsAwayAllCourts)
{
    editor.set_days({ 2026, 3, 2 }, { 2026, 3, 6 });
    ASSERT_EQ(editor.days().size(), 5u);
    db->run("update scheduledays_courts_temp set courtname='centre'");
    ASSERT_TRUE(editor.generate("2", { day2, "thu05mar26" }));
    EXPECT_EQ(editor.days(), (std::vector<std::string> { day2, "thu05mar26" }));
    EXPECT_EQ(rows("scheduledays_temp"), 2);
    EXPECT_EQ(rows("scheduledays_courts_temp"), 2 * 5);
    EXPECT_EQ(db->scalar_integer("select count(*) from scheduledays_courts_temp where courtname='centre'"), 0);
    // The idx of a day is its offset in the range: days keep the numbers they were set with.
    EXPECT_EQ(db->scalar_integer("select idx from scheduledays_temp where sdate='thu05mar26'"), 4);
    EXPECT_EQ(db->scalar_text("select fmt1 || fmt3 || fmt4 from scheduledays_courts_temp where cid=2 and idx=4"),
        "05mar26thu05mar05mar");
}

TEST_F(DaysCourtsTest, TenThousandCourtsIsTheLimit)
{
    ASSERT_TRUE(editor.generate("10000", { day1 }));
    EXPECT_EQ(rows("scheduledays_courts_temp"), 10003);
    EXPECT_EQ(db->scalar_integer("select max(cid) from scheduledays_courts_temp"), 10000);
    editor.save();
    EXPECT_EQ(session.settings().integer("imaxcid"), 10000);
    EXPECT_EQ(session.settings().integer("imaxdays"), 1);
    talk.clear();
    EXPECT_FALSE(editor.generate("10001", editor.days()));
    EXPECT_EQ(talk.last_message(), "max 10,000 courts");
}

TEST_F(DaysCourtsTest, DeletingCourtsAndDays)
{
    // "delete" refuses without a day or court, and never deletes a reserved row.
    EXPECT_FALSE(editor.delete_court("", 3));
    EXPECT_EQ(talk.last_message(), "select day");
    EXPECT_FALSE(editor.delete_court(day1, std::nullopt));
    EXPECT_EQ(talk.last_message(), "select court");
    EXPECT_FALSE(editor.delete_court(day1, -1));
    EXPECT_FALSE(editor.delete_from_all_days(day1, std::nullopt));
    EXPECT_EQ(talk.last_message(), "select court");

    // Court 6 goes from day 1 only; the selection moves to the first court behind the reserved rows.
    EXPECT_EQ(editor.delete_court(day1, 6), 3);
    EXPECT_EQ(court_texts(day1).size(), 8u);
    EXPECT_EQ(court_texts(day2).size(), 9u);
    // Court 3 from every day.
    EXPECT_EQ(editor.delete_from_all_days(day1, 3), 3);
    EXPECT_EQ(db->scalar_integer("select count(*) from scheduledays_courts_temp where cid=3"), 0);
    editor.save();
    // Day 2 still has court 6: imaxcid stays 6.
    EXPECT_EQ(session.settings().integer("imaxcid"), 6);

    // "delete days": idx keeps its gaps.
    editor.init();
    EXPECT_FALSE(editor.delete_days({}));
    EXPECT_EQ(talk.last_message(), "select days");
    ASSERT_TRUE(editor.delete_days({ day2 }));
    EXPECT_EQ(editor.days(), (std::vector<std::string> { day1, day3 }));
    editor.save();
    EXPECT_EQ(db->scalar_text("select group_concat(idx) from (select idx from scheduledays order by idx)"), "0,1,3");
    EXPECT_EQ(session.settings().integer("imaxdays"), 3);
    EXPECT_EQ(session.settings().itdates(), std::string(day1) + "-" + day3);
}

TEST_F(DaysCourtsTest, SavingWithNoChangeFreesEveryMatchButTheClipboard)
{
    const auto sids = first_round(1);
    place({ sids[0], sids[1] }, day1, 2);
    db->run("update schedule set nbat='at ', matchtime='10:00', matchtime_int=600 where sid=?", sids[0]);
    board->show_upper(BoardListId::unscheduled);
    select(BoardListId::unscheduled, { sids[2] });
    ASSERT_TRUE(NET_move_sel_schedule_to_cb(*board));
    host.calls.clear();

    editor.save();
    for (auto sid : { sids[0], sids[1] }) {
        EXPECT_EQ(number(sid, "cid"), 0);
        EXPECT_EQ(column(sid, "scheduledate"), "");
        EXPECT_EQ(number(sid, "day_idx"), 0);
        EXPECT_EQ(number(sid, "matchnumber") + number(sid, "matchnumber_live"), 0);
    }
    EXPECT_EQ(column(sids[0], "nbat") + column(sids[0], "matchtime"), "");
    EXPECT_EQ(number(sids[0], "matchtime_int"), -1);
    EXPECT_EQ(number(sids[2], "cid"), -2);
    // The no-day row exactly once, the tournament's dates, and the board told.
    EXPECT_EQ(db->scalar_integer("select count(*) from scheduledays where sdate='' and idx=0"), 1);
    EXPECT_EQ(db->scalar_text("select dates from tournament"), std::string(day1) + "-" + day3);
    EXPECT_EQ(host.count("refresh " + std::to_string(int(Lists::schedule))), 1);
    // No question was asked.
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(DaysCourtsTest, SavingNoDaysEmptiesTheDates)
{
    editor.set_days({ 2026, 3, 4 }, { 2026, 3, 2 });
    EXPECT_EQ(editor.save(), "");
    EXPECT_EQ(db->scalar_text("select dates from tournament"), "");
    EXPECT_EQ(db->row_count("scheduledays"), 1);
    EXPECT_EQ(session.settings().integer("imaxdays"), 0);
    EXPECT_EQ(session.settings().integer("imaxcid"), 0);
}

// The two lists go to text files under their headings, in Windows-1252 with CR LF.
TEST_F(DaysCourtsTest, ListsSaveUnderTheirHeadings)
{
    const auto days_file = dir.path() / "days.txt";
    const auto courts_file = dir.path() / "courts.txt";
    talk.files.push_back({ days_file });
    talk.files.push_back({ courts_file });
    ASSERT_TRUE(editor.save_days_list());
    ASSERT_TRUE(editor.save_courts_list(editor.load_courts(day1)));
    EXPECT_EQ(talk.said.front().text, "days.txt");
    EXPECT_EQ(test::read_bytes(days_file), std::string("days\r\n") + day1 + "\r\n" + day2 + "\r\n" + day3 + "\r\n");
    const auto courts = test::read_bytes(courts_file);
    EXPECT_EQ(courts.substr(0, 41), "courts\r\ncourt dcb\tday clipboard\r\ncourt tb");
    EXPECT_TRUE(courts.ends_with("court 6\t\r\n")) << courts;
    // A cancelled file choice writes nothing.
    EXPECT_FALSE(editor.save_days_list());
}

} // namespace
} // namespace qv
