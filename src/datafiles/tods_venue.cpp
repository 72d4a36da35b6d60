#include "datafiles/tods_venue.h"

#include "core/database.h"
#include "core/utf8.h"
#include "scheduling/day_keys.h"

#include <cstdio>

namespace qv {

namespace {

std::string two_digits(std::int64_t value)
{
    char text[8];
    std::snprintf(text, sizeof text, "%02d", static_cast<int>(value % 100));
    return text;
}

// A court's start time is "nb 09:00" or "at 10:30"; the standard takes the time alone.
std::string start_time_of(const std::string& starttime)
{
    const auto text = trim(starttime);
    const auto time = text.size() >= 5 ? text.substr(text.size() - 5) : std::string();
    return time.size() == 5 && time[2] == ':' ? time : std::string();
}

} // namespace

std::string iso_date_of_day_key(const std::string& sdate)
{
    const auto date = set_day_month_year(sdate);
    if (!date || date->month < 1 || date->day < 1)
        return {};
    // Day keys carry two digits of the year; the choosers offer this century's years.
    return std::to_string(2000 + date->year2) + "-" + two_digits(date->month) + "-" + two_digits(date->day);
}

void TodsVenue::load(Database& tournament, const std::string& venue_name, const std::string& court_word)
{
    m_name = venue_name;
    for (auto q = tournament.query("select sdate from scheduledays where idx>0 order by idx"); q.step();) {
        const auto iso = iso_date_of_day_key(q.text("sdate"));
        if (iso.empty())
            continue;
        m_dates[lcase(q.text("sdate"))] = iso;
        if (m_start.empty() || iso < m_start)
            m_start = iso;
        if (iso > m_end)
            m_end = iso;
    }
    for (auto q = tournament.query(
             "select sdate, cid, courtname, starttime from scheduledays_courts where cid>0 order by cid, idx");
         q.step();) {
        const auto cid = q.integer("cid");
        auto& court = m_courts[cid];
        if (court.is_null())
            court = { { "courtId", "C-" + std::to_string(cid) }, { "courtName", "" },
                { "dateAvailability", nlohmann::ordered_json::array() } };
        if (court["courtName"] == "" && !trim(q.text("courtname")).empty())
            court["courtName"] = trim(q.text("courtname"));
        const auto day = m_dates.find(lcase(q.text("sdate")));
        if (day == m_dates.end())
            continue;
        nlohmann::ordered_json available { { "date", day->second } };
        if (const auto start = start_time_of(q.text("starttime")); !start.empty())
            available["startTime"] = start;
        court["dateAvailability"].push_back(available);
    }
    for (auto& [cid, court] : m_courts)
        if (court["courtName"] == "")
            court["courtName"] = court_word + " " + std::to_string(cid);
}

nlohmann::ordered_json TodsVenue::venue() const
{
    if (m_courts.empty())
        return nullptr;
    nlohmann::ordered_json courts = nlohmann::ordered_json::array();
    for (const auto& [cid, court] : m_courts)
        courts.push_back(court);
    return { { "venueId", venue_id }, { "venueName", m_name }, { "courts", courts } };
}

nlohmann::ordered_json TodsVenue::time_items(
    const std::string& sdate, std::int64_t cid, std::int64_t matchnumber, std::int64_t matchtime_int) const
{
    auto items = nlohmann::ordered_json::array();
    const auto day = m_dates.find(lcase(sdate));
    if (day == m_dates.end())
        return items;
    const auto item = [&items](const char* type, const nlohmann::ordered_json& value) {
        items.push_back({ { "itemType", type }, { "itemValue", value } });
    };
    item("SCHEDULE.DATE", day->second);
    if (matchtime_int >= 0)
        item("SCHEDULE.TIME.SCHEDULED",
            day->second + "T" + two_digits(matchtime_int / 60) + ":" + two_digits(matchtime_int % 60));
    if (m_courts.contains(cid)) {
        item("SCHEDULE.ASSIGNMENT.VENUE", venue_id);
        item("SCHEDULE.ASSIGNMENT.COURT", "C-" + std::to_string(cid));
        item("SCHEDULE.COURT.ORDER", matchnumber);
    }
    return items;
}

} // namespace qv
