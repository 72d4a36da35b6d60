#include "scheduling/schedule_board.h"

#include "core/match_record.h"
#include "core/session.h"

#include <algorithm>

namespace qv {

namespace {

std::string_view tick_suffix(BoardListId which)
{
    switch (which) {
    case BoardListId::unscheduled:
        return "_top";
    case BoardListId::clipboard:
        return "_top_cb";
    case BoardListId::court:
        return "_bottom";
    }
    return "_top";
}

} // namespace

bool StateTicks::shows(std::string_view match_state) const
{
    if (match_state == "1")
        return empty;
    if (match_state == "2")
        return live;
    if (match_state == "2.1")
        return unf;
    if (match_state == "3")
        return dead;
    return false;
}

std::string tick_key(BoardListId which, std::string_view state_word)
{
    return "schedule." + std::string(state_word) + std::string(tick_suffix(which));
}

std::string_view hold_key(BoardListId which)
{
    switch (which) {
    case BoardListId::unscheduled:
        return "schedule_hfr_upper";
    case BoardListId::clipboard:
        return "cb_hfr_upper";
    case BoardListId::court:
        return "schedule_hfr_lower";
    }
    return "schedule_hfr_upper";
}

ScheduleBoard::ScheduleBoard(Session& session)
    : m_session(session)
{
}

std::string ScheduleBoard::select_match_text() const
{
    return "select " + m_words.match;
}

std::string ScheduleBoard::select_court_text() const
{
    return "select " + m_words.court;
}

void ScheduleBoard::read_settings()
{
    auto& settings = m_session.settings();
    m_words = current_sport_words(m_session);
    for (auto which : { BoardListId::unscheduled, BoardListId::clipboard, BoardListId::court }) {
        auto& ticks = m_ticks[index(which)];
        bool* boxes[] = { &ticks.empty, &ticks.live, &ticks.unf, &ticks.dead };
        for (std::size_t i = 0; i < state_words.size(); ++i)
            *boxes[i] = settings.integer(tick_key(which, state_words[i])) == 1;
        list(which).set_on_hold(settings.text(hold_key(which)) == "1");
    }
}

void ScheduleBoard::init()
{
    read_settings();
    m_max_matchnumber = m_session.tournament().scalar_integer("Select max(matchnumber) as mx from schedule");
    m_event_filter = 0;
    m_draw_view_stale = false;
    m_refresh_pending = false;
    m_day.clear();
    m_court.reset();
    m_shown.reset();
    list(BoardListId::court).clear();
    m_counts[index(BoardListId::court)] = {};
    load_dates_courts();
    loadschedule();
    loadcb();
}

void ScheduleBoard::clear()
{
    for (auto& each : m_lists)
        each.clear();
    m_counts = {};
    m_days.clear();
    m_courts.clear();
    m_day.clear();
    m_court.reset();
    m_shown.reset();
    m_event_filter = 0;
    m_refresh_pending = false;
}

void ScheduleBoard::show_upper(BoardListId which)
{
    if (which != BoardListId::court)
        m_upper = which;
}

void ScheduleBoard::choose_day(const std::string& sdate)
{
    m_day = sdate;
    m_court.reset();
    load_courts_of_day();
}

void ScheduleBoard::choose_court(std::optional<std::int64_t> cid)
{
    m_court = cid;
}

std::int64_t ScheduleBoard::day_idx_of(std::string_view sdate)
{
    return m_session.tournament().scalar_integer("select idx from scheduledays where sdate=?", sdate);
}

std::string ScheduleBoard::days_label() const
{
    return "(days " + std::to_string(m_days.size()) + ")";
}

std::string ScheduleBoard::courts_label() const
{
    // The reserved courts of the day are not counted.
    const auto real = std::count_if(m_courts.begin(), m_courts.end(), [](const CourtChoice& c) { return c.cid > 0; });
    return "(" + m_words.courts + " " + std::to_string(real) + ")";
}

void ScheduleBoard::load_dates_courts()
{
    m_days.clear();
    bool day_found = false;
    for (auto rows
         = m_session.tournament().query("select sdate, idx, ind from scheduledays where sdate <>'' order by idx");
         rows.step();) {
        DayChoice day { rows.text(0), rows.integer(1), rows.text(0) };
        if (const auto ind = rows.text(2); !ind.empty())
            day.text += " " + ind;
        day_found = day_found || day.sdate == m_day;
        m_days.push_back(std::move(day));
    }
    if (!day_found) {
        m_day.clear();
        m_court.reset();
    }
    load_courts_of_day();
    if (m_shown && (m_shown->scheduledate != m_day || day_idx_of(m_shown->scheduledate) == 0)) {
        m_shown.reset();
        list(BoardListId::court).clear();
        m_counts[index(BoardListId::court)] = {};
    }
}

void ScheduleBoard::load_courts_of_day()
{
    m_courts.clear();
    if (m_day.empty())
        return;
    bool court_found = false;
    for (auto rows
         = m_session.tournament().query("select cid, ind from scheduledays_courts where sdate=? order by cid", m_day);
         rows.step();) {
        CourtChoice court { rows.integer(0), m_words.court + " " + court_list_cid_word(rows.integer(0)) };
        if (const auto ind = rows.text(1); !ind.empty())
            court.text += " " + ind;
        court_found = court_found || (m_court && *m_court == court.cid);
        m_courts.push_back(std::move(court));
    }
    if (!court_found)
        m_court.reset();
}

bool ScheduleBoard::loadcourt()
{
    if (m_day.empty()) {
        m_session.talk().message("select day");
        return false;
    }
    if (!m_court) {
        m_session.talk().message(select_court_text());
        return false;
    }
    m_shown = DayCourt { m_day, *m_court };
    refresh_list4();
    return true;
}

void ScheduleBoard::load_day_court(const std::string& sdate, std::int64_t cid)
{
    m_day = sdate;
    m_court = cid;
    load_courts_of_day();
    if (!m_court)
        m_court = cid;
    m_shown = DayCourt { sdate, cid };
    refresh_list4();
}

CourtDetails ScheduleBoard::court_details()
{
    if (!m_shown)
        return {};
    return loadcourtstarttime(m_session, m_shown->scheduledate, m_shown->cid);
}

std::vector<BoardLine> ScheduleBoard::read_lines(
    BoardListId which, const std::string& sql, std::int64_t cid, const std::string& day, std::int64_t eid)
{
    auto& counts = m_counts[index(which)];
    counts = {};
    const auto ticks = m_ticks[index(which)];
    std::vector<BoardLine> lines;
    auto rows = m_session.tournament().query(sql);
    int bound = 0;
    if (which == BoardListId::court)
        rows.bind(++bound, day);
    rows.bind(++bound, cid);
    if (eid != 0 && which != BoardListId::court)
        rows.bind(++bound, eid);
    while (rows.step()) {
        const auto row = MatchRow::read(rows);
        // The champion's row is no match.
        if (row.rname == "winner")
            continue;
        counts.add(row.match_state);
        if (ticks.shows(row.match_state))
            lines.push_back(line_for(which, row));
    }
    return lines;
}

void ScheduleBoard::loadschedule()
{
    read_availability();
    std::string sql
        = "Select " + MatchRow::columns() + " from schedule where rname <>'winner' and match_state <>'0' and cid=?";
    if (m_event_filter != 0)
        sql += " and eid=?";
    sql += " order by eid,\"match\"";
    list(BoardListId::unscheduled).assign(read_lines(BoardListId::unscheduled, sql, 0, {}, m_event_filter));
}

void ScheduleBoard::loadcb(CbOrder order)
{
    read_availability();
    std::string sql
        = "Select " + MatchRow::columns() + " from schedule where rname <>'winner' and match_state <>'0' and cid=?";
    if (m_event_filter != 0)
        sql += " and eid=?";
    sql += order == CbOrder::by_added ? " order by matchnumber" : " order by eid,\"match\"";
    list(BoardListId::clipboard).assign(read_lines(BoardListId::clipboard, sql, -2, {}, m_event_filter));
}

void ScheduleBoard::refresh_list4()
{
    auto& court = list(BoardListId::court);
    if (!m_shown) {
        court.clear();
        m_counts[index(BoardListId::court)] = {};
        return;
    }
    read_availability();
    const auto sql
        = "Select " + MatchRow::columns() + " from schedule where scheduledate=? and cid=? order by matchnumber";
    court.assign(read_lines(BoardListId::court, sql, m_shown->cid, m_shown->scheduledate, 0));
}

void ScheduleBoard::refresh_schedule()
{
    loadschedule();
    loadcb();
}

void ScheduleBoard::reload_unheld(bool upper_lists, bool court_list)
{
    if (upper_lists) {
        if (!list(BoardListId::unscheduled).on_hold())
            loadschedule();
        if (!list(BoardListId::clipboard).on_hold())
            loadcb();
    }
    if (court_list && !list(BoardListId::court).on_hold())
        refresh_list4();
}

void ScheduleBoard::reload(BoardListId which)
{
    switch (which) {
    case BoardListId::unscheduled:
        loadschedule();
        break;
    case BoardListId::clipboard:
        loadcb();
        break;
    case BoardListId::court:
        refresh_list4();
        break;
    }
}

bool ScheduleBoard::shows(BoardListId which, const MatchRow& row) const
{
    if (row.rname == "winner" || !m_ticks[index(which)].shows(row.match_state))
        return false;
    return which == BoardListId::court || m_event_filter == 0 || row.eid == m_event_filter;
}

void ScheduleBoard::patch_in(BoardListId which, const MatchRow& row)
{
    auto& target = list(which);
    if (target.on_hold() && shows(which, row))
        target.append(line_for(which, row));
}

void ScheduleBoard::patch_out(BoardListId which, std::int64_t sid)
{
    auto& target = list(which);
    if (!target.on_hold())
        return;
    if (const auto row = target.find(sid))
        target.remove(*row);
}

void ScheduleBoard::read_availability()
{
    m_availability = AvailabilityLookup(m_session.tournament());
}

std::vector<std::pair<std::int64_t, std::string>> ScheduleBoard::event_filter_choices()
{
    std::vector<std::pair<std::int64_t, std::string>> choices { { 0, "all events" } };
    for (auto rows = m_session.tournament().query("select eid, eventname from events where drawdone=true order by eid");
         rows.step();)
        choices.emplace_back(rows.integer(0), "(" + std::to_string(rows.integer(0)) + ") " + rows.text(1));
    return choices;
}

void ScheduleBoard::set_event_filter(std::int64_t eid)
{
    m_event_filter = eid;
    loadschedule();
    loadcb();
}

void ScheduleBoard::set_tick(BoardListId which, std::string_view state_word, bool on)
{
    auto& ticks = m_ticks[index(which)];
    bool* boxes[] = { &ticks.empty, &ticks.live, &ticks.unf, &ticks.dead };
    for (std::size_t i = 0; i < state_words.size(); ++i)
        if (state_words[i] == state_word)
            *boxes[i] = on;
    m_session.settings().set_disk_var(tick_key(which, state_word), on ? "1" : "0");
    reload(which);
}

bool ScheduleBoard::set_hold(BoardListId which, bool on)
{
    auto& target = list(which);
    if (on && target.size() >= BoardList::hold_limit) {
        m_session.talk().message(
            which == BoardListId::clipboard ? "cb is full,cannot hold refresh" : "list is full,cannot hold refresh");
        return false;
    }
    m_session.settings().set_disk_var(hold_key(which), on ? "1" : "0");
    target.set_on_hold(on);
    // Let go, the list shows the table again.
    if (!on)
        reload(which);
    return true;
}

void ScheduleBoard::recount(BoardListId which, std::string_view from, std::string_view to)
{
    m_counts[index(which)].remove(from);
    m_counts[index(which)].add(to);
}

std::string ScheduleBoard::counts_text(BoardListId which) const
{
    const auto& c = counts(which);
    return "empty " + std::to_string(c.empty) + "  live " + std::to_string(c.live) + "  unf " + std::to_string(c.unf)
        + "  dead " + std::to_string(c.dead) + "  total " + std::to_string(c.total());
}

BoardLine ScheduleBoard::line_for(BoardListId which, const MatchRow& row) const
{
    BoardLine line;
    line.sid = row.sid;
    line.seeded = has_seed(row);
    line.text
        = which == BoardListId::court ? court_line_text(row, m_availability) : upper_line_text(row, m_availability);
    return line;
}

bool ScheduleBoard::update_line(BoardListId which, std::int64_t sid)
{
    auto& target = list(which);
    const auto row_index = target.find(sid);
    MatchRow row;
    if (!row_index || !read_match_row(m_session.tournament(), sid, row))
        return false;
    auto line = line_for(which, row);
    target.set_text(*row_index, std::move(line.text));
    return true;
}

std::optional<SidRange> ScheduleBoard::sid_range() const
{
    return m_draw.sid_range ? m_draw.sid_range() : std::nullopt;
}

void ScheduleBoard::mark_stale_if_drawn(const std::vector<std::int64_t>& sids, const std::optional<SidRange>& range)
{
    if (!range)
        return;
    for (auto sid : sids)
        if (range->holds(sid)) {
            m_draw_view_stale = true;
            return;
        }
}

ScheduleBoardHooks ScheduleBoard::draw_save_hooks()
{
    ScheduleBoardHooks hooks;
    hooks.shown = [this] { return m_shown; };
    hooks.mark_for_refresh = [this] { m_refresh_pending = true; };
    hooks.refresh_event = [this](std::int64_t eid) { refresh_event(eid); };
    hooks.refresh = [this] {
        load_dates_courts();
        reload_unheld();
    };
    hooks.renumber = [this](const std::vector<DayCourt>& changed) { renumber(changed); };
    return hooks;
}

void ScheduleBoard::renumber(const std::vector<DayCourt>& changed)
{
    auto& db = m_session.tournament();
    bool shown_changed = false;
    for (const auto& place : changed) {
        live_match_counts(db, place.scheduledate, place.cid);
        shown_changed = shown_changed || (m_shown && *m_shown == place);
    }
    load_dates_courts();
    if (shown_changed && !list(BoardListId::court).on_hold())
        refresh_list4();
}

void ScheduleBoard::refresh_event(std::int64_t eid)
{
    const auto eid_text = std::to_string(eid);
    for (auto which : { BoardListId::unscheduled, BoardListId::clipboard, BoardListId::court }) {
        auto& target = list(which);
        if (!target.on_hold()) {
            reload(which);
            continue;
        }
        read_availability();
        std::vector<std::int64_t> sids;
        for (const auto& line : target.lines())
            if (line.text.compare(0, line.text.find('\t'), eid_text) == 0)
                sids.push_back(line.sid);
        BulkChange bulk(target);
        for (auto sid : sids)
            update_line(which, sid);
    }
}

void ScheduleBoard::match_counts()
{
    LIVE_MATCH_COUNTS_ALL(m_session);
    load_dates_courts();
}

std::string ScheduleBoard::stale_text(BoardListId which) const
{
    return m_words.match + (which == BoardListId::court ? " not found,stale data" : " not found, stale data");
}

std::optional<std::string> ScheduleBoard::status(BoardListId which, std::int64_t sid)
{
    MatchRow row;
    if (!read_match_row(m_session.tournament(), sid, row)) {
        m_session.talk().message(stale_text(which));
        return std::nullopt;
    }
    return status_line(row, m_words.match);
}

} // namespace qv
