#include "documents/live_days.h"

#include "core/database.h"
#include "core/utf8.h"

namespace qv {

namespace {

constexpr std::string_view no_day = "no day";

std::vector<std::string> day_lines(Database& tournament, std::string_view sql)
{
    std::vector<std::string> lines;
    for (auto row = tournament.query(sql); row.step();) {
        const auto sdate = row.text("sdate");
        lines.push_back((sdate.empty() ? std::string(no_day) : sdate) + " " + row.text("ind"));
    }
    return lines;
}

void set_days(Database& tournament, const std::vector<std::string>& lines, bool no_day_is_empty)
{
    Transaction transaction(tournament);
    tournament.run("Delete from livedays");
    auto insert = tournament.query("insert into livedays (sdate) values (?)");
    for (const auto& line : lines) {
        const bool unscheduled = no_day_is_empty && line.starts_with(no_day);
        insert.bind_all(unscheduled ? std::string() : trim(left_chars(line, 10)));
        insert.step();
        insert.reset();
    }
    transaction.commit();
}

} // namespace

std::vector<std::string> days_working_schedule(Database& tournament)
{
    return day_lines(tournament, "Select * from scheduledays where sdate <>'' order by idx");
}

std::vector<std::string> days_results(Database& tournament)
{
    return day_lines(tournament, "Select * from scheduledays  where dead_cnt >0 or unf_cnt >0 order by idx");
}

std::vector<std::string> days_playertimes(Database& tournament)
{
    return day_lines(tournament,
        "Select * from scheduledays  where (live_cnt >0 or unf_cnt >0 or dead_cnt >0 ) and  "
        "sdate <>'' order by idx");
}

void VIP_setlivedays(Database& tournament, const std::vector<std::string>& lines)
{
    set_days(tournament, lines, false);
}

void setlivedays_idocs(Database& tournament, const std::vector<std::string>& lines)
{
    set_days(tournament, lines, true);
}

void VIP_setlivedays_playertimes(Database& tournament, const std::vector<std::string>& lines)
{
    set_days(tournament, lines, false);
}

std::vector<std::string> live_days(Database& tournament)
{
    std::vector<std::string> days;
    for (auto row = tournament.query("select sdate from livedays order by rowid"); row.step();) {
        const auto sdate = row.text(0);
        days.push_back(sdate.empty() ? "unscheduled" : sdate);
    }
    return days;
}

std::string live_days_line(Database& tournament)
{
    std::string line = "days:";
    const auto days = live_days(tournament);
    for (std::size_t i = 0; i < days.size(); ++i)
        line += (i ? "," : "") + days[i];
    return line;
}

} // namespace qv
