#pragma once

#include "scheduling/day_keys.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// The reserved courts every generated day carries, in the order they are added.
inline constexpr std::int64_t cid_first_available = -1;
inline constexpr std::int64_t cid_clipboard = -2;
inline constexpr std::int64_t cid_to_be_confirmed = -3;
inline constexpr std::int64_t cid_day_clipboard = -4;

// The default names of the reserved rows, from the court word.
std::string reserved_court_name(std::int64_t cid, std::string_view court_word);

// A court of a day as the days-and-courts window lists it.
struct CourtEntry
{
    std::int64_t cid = 0;
    std::string courtname;
    std::string starttime;
    std::string text; // the court word, a blank, the number or short form, a tab and the name
};

// The window setdatescourts_new: days and courts are edited in the working copies scheduledays_temp and
// scheduledays_courts_temp, and only "save" puts them in place. The day list is kept here as the window shows it.
class DaysCourtsEditor
{
public:
    explicit DaysCourtsEditor(Session& session);

    // Opening the window: the working copies are taken afresh from the tables, without the no-day row.
    void init();
    // The days of the working copy; the list the window shows.
    const std::vector<std::string>& days() const { return m_days; }
    const std::vector<std::string>& loaddays();
    std::vector<CourtEntry> load_courts(std::string_view sdate);

    // Replaces the working days by the range; an end before the start leaves no day.
    void set_days(const ChosenDate& start, const ChosenDate& end);

    // "generate": checks the number typed into "max courts for selected day(s)" and then generates. False on a
    // refusal, which has been said. Keeps exactly the selected days.
    bool generate(std::string_view number, const std::vector<std::string>& selected_days);
    // All courts of all days go first; every selected day gets courts 1..n and the three reserved rows; the days
    // not selected leave the working copy.
    void generate_courts(int n, const std::vector<std::string>& selected_days);

    // "delete" and "delete from all days"; refused with "select day" or "select " and the court word. Reserved
    // rows are never deleted. The row to select afterwards: the fourth court when four remain, else the first.
    std::optional<int> delete_court(std::string_view sdate, std::optional<std::int64_t> cid);
    std::optional<int> delete_from_all_days(std::string_view sdate, std::optional<std::int64_t> cid);
    // "delete days": the days and their courts; refused with "select days". idx keeps its gaps.
    bool delete_days(const std::vector<std::string>& selected_days);

    // "save": the working copies replace the tables, the no-day row comes back, imaxdays and imaxcid are counted,
    // every match but those on the clipboard loses its place, and the tournament's dates are written. Returns
    // the dates text ("" with no days).
    std::string save();

    // The two lists as text files: "days.txt" headed "days", "courts.txt" headed "courts".
    bool save_days_list();
    bool save_courts_list(const std::vector<CourtEntry>& courts);

    // The window's captions, from the sports words.
    std::string dates_courts_label() const; // "dates/" courts
    std::string numbers_names_label() const; // court " numbers/" court " names"
    std::string max_courts_label() const; // "max " courts " for selected day(s)"

private:
    Session& m_session;
    std::vector<std::string> m_days;
};

// The table update of BF_free_all_days2: every match but those on the clipboard loses day, court, number and time.
void free_all_days_statement(Database& tournament);

} // namespace qv
