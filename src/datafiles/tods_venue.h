#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace qv {

class Database;

// The days and courts of the tournament as a TODS venue, and a match's place in them as TODS time items.
class TodsVenue
{
public:
    static constexpr const char* venue_id = "V-1";

    // venue_name: the tournament's venue, or its name when it gives none.
    void load(Database& tournament, const std::string& venue_name, const std::string& court_word);
    // The first and the last day as ISO dates; empty without days.
    const std::string& start_date() const { return m_start; }
    const std::string& end_date() const { return m_end; }
    // The venue with its courts; null when the tournament has no courts.
    nlohmann::ordered_json venue() const;
    // The day, court, time and order on the court of a match; empty when the match is not on a day.
    nlohmann::ordered_json time_items(
        const std::string& sdate, std::int64_t cid, std::int64_t matchnumber, std::int64_t matchtime_int) const;

private:
    std::string m_name;
    std::map<std::string, std::string> m_dates; // sdate -> ISO date
    std::map<std::int64_t, nlohmann::ordered_json> m_courts; // cid -> court
    std::string m_start, m_end;
};

// A day key ("mon02mar26") as an ISO date ("2026-03-02"); empty when the key is not of that shape.
std::string iso_date_of_day_key(const std::string& sdate);

} // namespace qv
