#pragma once

#include "core/sports_vocabulary.h"
#include "drawengine/draw_saving.h"
#include "scheduling/board_lines.h"
#include "scheduling/board_list.h"
#include "scheduling/court_settings.h"
#include "scheduling/match_counters.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The three lists of the board: the unscheduled matches (List1), the clipboard (List1_cb) and the court of a day
// (List4). The first two share the upper place; one of them is on show.
enum class BoardListId { unscheduled, clipboard, court };

// Which states a list shows, from its four check boxes.
struct StateTicks
{
    bool empty = true;
    bool live = true;
    bool unf = true;
    bool dead = true;
    bool shows(std::string_view match_state) const;
};

// The state words of the check boxes and of the settings keys, in box order: "empty", "live", "unf", "dead",
// with the match states "1", "2", "2.1", "3" they stand for.
inline constexpr std::array<std::string_view, 4> state_words { "empty", "live", "unf", "dead" };
inline constexpr std::array<std::string_view, 4> state_values { "1", "2", "2.1", "3" };

// A line of the day chooser and of the court chooser.
struct DayChoice
{
    std::string sdate;
    std::int64_t idx = 0;
    std::string text; // sdate, a blank and the day's marks
};
struct CourtChoice
{
    std::int64_t cid = 0;
    std::string text; // the court word, a blank, the number or "fa", "tbc", "dcb", a blank and the marks
};

// The first and last sid of the draw on show in the draw area.
struct SidRange
{
    std::int64_t first = 0;
    std::int64_t last = 0;
    bool holds(std::int64_t sid) const { return sid >= first && sid <= last; }
};

// Where a match sits in its draw, for the draw area's locator.
struct MatchInDraw
{
    std::int64_t sid = 0;
    std::int64_t eid = 0;
    std::int64_t rid = 0;
    std::string drawtype;
    std::string mt; // "level.position" of a knock-out's top line; the top player's number in a round robin
    std::string mb;
};

// What the board asks of the draw area. Empty hooks do nothing.
struct BoardDrawLink
{
    std::function<std::optional<SidRange>()> sid_range; // draw.get_sid_range
    std::function<std::int64_t()> shown_eid; // the event whose draw is on show, 0 for none
    std::function<bool(std::int64_t eid)> event_listed; // the event has a line in the draw area's list
    std::function<void()> reload_events; // the list again, after its filter changed
    std::function<void(std::int64_t eid)> open_event; // the draw area to the front with the event's draw open
    std::function<void(const MatchInDraw&)> locate;
    std::function<void()> reload_draw; // the draw on show read again from schedule
};

// The schedule board ("schedule"): its lists, choosers and counters over the table schedule. The window mirrors
// it; every operation works here and speaks through the session's talk.
class ScheduleBoard
{
public:
    explicit ScheduleBoard(Session& session);

    Session& session() { return m_session; }
    const SportWords& words() const { return m_words; }
    // "select " and the match word: the refusal when nothing is selected.
    std::string select_match_text() const;
    std::string select_court_text() const;

    // A tournament was opened: days, the next match number, the ticks and holds from the settings, the lists.
    void init();
    // The file is closing.
    void clear();

    BoardList& list(BoardListId which) { return m_lists[index(which)]; }
    const BoardList& list(BoardListId which) const { return m_lists[index(which)]; }
    // The upper list on show: the unscheduled list or the clipboard.
    BoardListId upper() const { return m_upper; }
    void show_upper(BoardListId which);
    bool clipboard_shown() const { return m_upper == BoardListId::clipboard; }

    // Day and court choosers.
    const std::vector<DayChoice>& days() const { return m_days; }
    const std::vector<CourtChoice>& courts() const { return m_courts; }
    const std::string& day() const { return m_day; }
    std::optional<std::int64_t> court() const { return m_court; }
    void choose_day(const std::string& sdate);
    void choose_court(std::optional<std::int64_t> cid);
    // The day and court whose matches the court list holds.
    std::optional<DayCourt> shown() const { return m_shown; }
    // The day's idx; 0 for the empty day or one that has gone.
    std::int64_t day_idx_of(std::string_view sdate);
    std::string days_label() const; // "(days" n ")"
    std::string courts_label() const; // "(" courts n ")"

    // The day list again, keeping the chosen day and court where they still exist; the court list follows.
    void load_dates_courts();
    // "load court": the chosen day's chosen court in the court list. Refused with "select day" or "select "
    // and the court word.
    bool loadcourt();
    // Chooses the day and court and loads the court.
    void load_day_court(const std::string& sdate, std::int64_t cid);
    CourtDetails court_details();

    // The lists read again from the table.
    void loadschedule();
    enum class CbOrder { by_event, by_added };
    void loadcb(CbOrder order = CbOrder::by_event);
    void refresh_list4();
    // "refresh schedule".
    void refresh_schedule();
    // Each list that is not on hold reads itself again; the court list only while a court is shown.
    void reload_unheld(bool upper_lists = true, bool court_list = true);
    // One list read again, on hold or not.
    void reload(BoardListId which);
    // Whether a list shows the match: its state ticked, and for the upper lists no "winner" row and the event
    // filter passed.
    bool shows(BoardListId which, const MatchRow& row) const;

    // The event filter of the upper lists: "all events" (0) and "(" eid ") " eventname of the drawn events.
    std::vector<std::pair<std::int64_t, std::string>> event_filter_choices();
    std::int64_t event_filter() const { return m_event_filter; }
    void set_event_filter(std::int64_t eid);

    StateTicks ticks(BoardListId which) const { return m_ticks[index(which)]; }
    // A check box: the setting is written and the list read again.
    void set_tick(BoardListId which, std::string_view state_word, bool on);
    // Hold refresh; refused while the list has 30001 lines or more. False when refused.
    bool set_hold(BoardListId which, bool on);
    const StateCounts& counts(BoardListId which) const { return m_counts[index(which)]; }
    // A match counted by a list changed state without the list being read again.
    void recount(BoardListId which, std::string_view from, std::string_view to);
    std::string counts_text(BoardListId which) const;

    // The lines of a match for each list.
    BoardLine line_for(BoardListId which, const MatchRow& row) const;
    // list1_update_line and list4_update_line: the line of the sid read again; false when the list has no line
    // for it or the match has gone.
    bool update_line(BoardListId which, std::int64_t sid);
    // A held list that would show the match takes its line at the end; a held list loses the sid's line.
    void patch_in(BoardListId which, const MatchRow& row);
    void patch_out(BoardListId which, std::int64_t sid);
    // Lines of held lists are built with the register's availability as it was read last; this reads it again.
    void read_availability();

    // max_matchnumber: read once at init, raised before each placement, never reset in a session.
    std::int64_t max_matchnumber() const { return m_max_matchnumber; }
    std::int64_t next_matchnumber() { return ++m_max_matchnumber; }

    // draw_view_stale: a match of the draw on show was moved or retimed.
    bool draw_view_stale() const { return m_draw_view_stale; }
    void set_draw_view_stale(bool on) { m_draw_view_stale = on; }
    std::optional<SidRange> sid_range() const;
    void mark_stale_if_drawn(const std::vector<std::int64_t>& sids, const std::optional<SidRange>& range);

    BoardDrawLink& draw_link() { return m_draw; }
    // The hooks the draw engine's save uses: the court on show, the refreshes and the renumbering.
    ScheduleBoardHooks draw_save_hooks();
    // Set by the save when the shown court changed: the window reads its lists again when next shown.
    bool refresh_pending() const { return m_refresh_pending; }
    void set_refresh_pending(bool on) { m_refresh_pending = on; }
    // After a save or result: the courts renumbered and counted, the day and court lines and the court list again.
    void renumber(const std::vector<DayCourt>& changed);
    // After an event's draw was saved: the lines of that event in every list.
    void refresh_event(std::int64_t eid);
    // "match counts": LIVE_MATCH_COUNTS_ALL and the day list again.
    void match_counts();

    // The status line of a line of a list; the stale message when its match has gone.
    std::optional<std::string> status(BoardListId which, std::int64_t sid);
    // The stale message of a list: " not found,stale data" for the court list, " not found, stale data" above.
    std::string stale_text(BoardListId which) const;

private:
    static std::size_t index(BoardListId which) { return static_cast<std::size_t>(which); }
    std::vector<BoardLine> read_lines(
        BoardListId which, const std::string& sql, std::int64_t id_or_cid, const std::string& day, std::int64_t eid);
    void load_courts_of_day();
    void read_settings();

    Session& m_session;
    SportWords m_words;
    std::array<BoardList, 3> m_lists;
    std::array<StateTicks, 3> m_ticks;
    std::array<StateCounts, 3> m_counts;
    BoardListId m_upper = BoardListId::unscheduled;
    std::vector<DayChoice> m_days;
    std::vector<CourtChoice> m_courts;
    std::string m_day;
    std::optional<std::int64_t> m_court;
    std::optional<DayCourt> m_shown;
    std::int64_t m_event_filter = 0;
    std::int64_t m_max_matchnumber = 0;
    bool m_draw_view_stale = false;
    bool m_refresh_pending = false;
    AvailabilityLookup m_availability;
    BoardDrawLink m_draw;
};

// The settings keys of a list's four check boxes and of its hold refresh.
std::string tick_key(BoardListId which, std::string_view state_word);
std::string_view hold_key(BoardListId which);

} // namespace qv
