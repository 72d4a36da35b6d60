#include "scheduling/board_fixture.h"
#include "scheduling/court_settings.h"

namespace qv {
namespace {

class CourtSettingsTest : public test::BoardFixture
{
protected:
    std::int64_t with_start(const std::string& value)
    {
        return db->scalar_integer("select count(*) from scheduledays_courts where starttime=?", value);
    }
};

TEST_F(CourtSettingsTest, ChoosersAndTheirReading)
{
    EXPECT_EQ(nbat_choices(), (std::vector<std::string> { "", "nb ", "at " }));
    EXPECT_EQ(hour_choices().size(), 26u);
    EXPECT_EQ(hour_choices().back(), "24");
    EXPECT_EQ(minute_choices()[5], "");
    EXPECT_EQ(minute_choices().size(), 66u);

    const auto read = parse_starttime("nb 09:30");
    EXPECT_EQ(read.nbat, "nb ");
    EXPECT_EQ(read.hour, "09");
    EXPECT_EQ(read.minute, "30");
    EXPECT_TRUE(parse_starttime("").all_empty());
    // A value the choosers do not offer leaves its chooser alone.
    EXPECT_EQ(grab_time("at ", "25:70").hour, std::nullopt);
    EXPECT_EQ(grab_time("at ", "25:70").nbat, "at ");
    EXPECT_EQ(grab_time("xx", "10:05").nbat, std::nullopt);
    EXPECT_EQ(grab_time("xx", "10:05").minute, "05");
    // No time: the empty entries are chosen.
    EXPECT_EQ(grab_time("", "").hour, "");
    EXPECT_EQ(grab_time("", "").nbat, "");
    EXPECT_EQ((TimeChoice { "at ", "10", "30" }).value(), "at 10:30");
    EXPECT_EQ((TimeChoice {}).value(), "");
}

TEST_F(CourtSettingsTest, StartTimeGoesToTheRowsOfItsScope)
{
    const auto scopes = start_time_scopes("court", "courts");
    EXPECT_EQ(scopes,
        (std::vector<std::string> { "apply to this day,this court only", "apply to all courts on all days",
            "apply to all courts on this day", "apply to this court number on all days" }));

    // Refusals in their order; nothing changes.
    EXPECT_FALSE(setcourt_nm_st(session, day1, 2, { "nb ", "", "30" }, StartTimeScope::this_court_this_day));
    EXPECT_EQ(talk.last_message(), "enter hour");
    EXPECT_FALSE(setcourt_nm_st(session, day1, 2, { "nb ", "09", "" }, StartTimeScope::this_court_this_day));
    EXPECT_EQ(talk.last_message(), "enter minute");
    EXPECT_FALSE(setcourt_nm_st(session, day1, 2, { "", "09", "00" }, StartTimeScope::this_court_this_day));
    EXPECT_EQ(talk.last_message(), "enter nb/at");

    const struct
    {
        StartTimeScope scope;
        std::int64_t rows;
    } cases[] = {
        { StartTimeScope::this_court_this_day, 1 },
        { StartTimeScope::this_court_all_days, 3 },
        { StartTimeScope::all_courts_this_day, 9 },
        { StartTimeScope::all_courts_all_days, 27 },
    };
    for (const auto& c : cases) {
        db->run("update scheduledays_courts set starttime=''");
        ASSERT_TRUE(setcourt_nm_st(session, day1, 2, { "at ", "10", "15" }, c.scope));
        EXPECT_EQ(with_start("at 10:15"), c.rows);
    }
    // All three empty clears.
    ASSERT_TRUE(setcourt_nm_st(session, day1, 2, {}, StartTimeScope::all_courts_all_days));
    EXPECT_EQ(with_start(""), 27);
}

TEST_F(CourtSettingsTest, CourtNames)
{
    EXPECT_EQ(court_name_heading(-1, "table"), "first available");
    EXPECT_EQ(court_name_heading(-3, "table"), "to be confirmed");
    EXPECT_EQ(court_name_heading(-4, "table"), "day clipboard");
    EXPECT_EQ(court_name_heading(7, "table"), "table number 7");
    EXPECT_EQ(court_name_all_days_caption("table"), "apply to this table number on all days");

    set_court_name(session, day2, 3, "centre", false);
    EXPECT_EQ(db->scalar_integer("select count(*) from scheduledays_courts where courtname='centre'"), 1);
    set_court_name(session, day2, 3, "show court", true);
    EXPECT_EQ(db->scalar_integer("select count(*) from scheduledays_courts where courtname='show court'"), 3);
    EXPECT_EQ(loadcourtstarttime(session, day1, 3).courtname, "show court");
    EXPECT_EQ(loadcourtstarttime(session, day1, 99).courtname, "");
}

} // namespace
} // namespace qv
