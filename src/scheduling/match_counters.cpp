#include "scheduling/match_counters.h"

#include "core/session.h"

#include <algorithm>
#include <vector>

namespace qv {

namespace {

bool is_live(std::string_view state)
{
    return state == "2" || state == "2.1";
}

void write_counts(Database& db, std::string_view table_update, const StateCounts& counts, std::string_view sdate,
    std::int64_t cid, bool by_court)
{
    const std::string sql = std::string(table_update) + (by_court ? " where sdate=? and cid=?" : " where sdate=?");
    if (by_court)
        db.run(sql, counts.empty, counts.live, counts.unf, counts.dead, sdate, cid);
    else
        db.run(sql, counts.empty, counts.live, counts.unf, counts.dead, sdate);
}

// The count arrays: days 0 .. max_day, courts 0 .. max_cid and the reserved courts -1 .. -4 behind them.
class CountArrays
{
public:
    CountArrays(std::int64_t max_day, std::int64_t max_cid)
        : m_max_day(max_day)
        , m_max_cid(max_cid)
        , m_days(static_cast<std::size_t>(max_day + 1))
        , m_courts(static_cast<std::size_t>((max_day + 1) * (max_cid + 5)))
    {
    }

    bool holds(std::int64_t day, std::int64_t cid) const
    {
        return day >= 0 && day <= m_max_day && cid >= -4 && cid <= m_max_cid;
    }
    StateCounts& day(std::int64_t day) { return m_days[static_cast<std::size_t>(day)]; }
    StateCounts& court(std::int64_t day, std::int64_t cid)
    {
        const auto column = cid >= 0 ? cid : m_max_cid - cid;
        return m_courts[static_cast<std::size_t>(day * (m_max_cid + 5) + column)];
    }

private:
    std::int64_t m_max_day;
    std::int64_t m_max_cid;
    std::vector<StateCounts> m_days;
    std::vector<StateCounts> m_courts;
};

void write_marks(Database& db, std::string_view table)
{
    // The table name is one of the program's two day tables, never user text.
    const std::string t(table);
    db.run("Update " + t + " set empty_cnt_ind='+' where empty_cnt >0");
    db.run("Update " + t + " set live_cnt_ind='?' where live_cnt >0");
    db.run("Update " + t + " set unf_cnt_ind='^' where unf_cnt >0");
    db.run("Update " + t + " set dead_cnt_ind='¿' where dead_cnt >0");
    db.run("Update " + t + " set ind=empty_cnt_ind || live_cnt_ind || unf_cnt_ind || dead_cnt_ind");
}

} // namespace

void StateCounts::add(std::string_view match_state)
{
    if (match_state == "1")
        ++empty;
    else if (match_state == "2")
        ++live;
    else if (match_state == "2.1")
        ++unf;
    else if (match_state == "3")
        ++dead;
}

void StateCounts::remove(std::string_view match_state)
{
    if (match_state == "1")
        --empty;
    else if (match_state == "2")
        --live;
    else if (match_state == "2.1")
        --unf;
    else if (match_state == "3")
        --dead;
}

std::string state_marks(const StateCounts& counts)
{
    std::string marks;
    if (counts.empty > 0)
        marks += "+";
    if (counts.live > 0)
        marks += "?";
    if (counts.unf > 0)
        marks += "^";
    if (counts.dead > 0)
        marks += "¿";
    return marks;
}

void LIVE_MATCH_NUMBERS_DO(Database& tournament, std::string_view day)
{
    Transaction transaction(tournament);
    // The effect is that of resetting every live number of the day (of every day) to 0 and then numbering the
    // walk; the rows outside the walk are reset and a walked row is written only when its numbers change, so a
    // court renumbered after one move writes little.
    if (day.empty())
        tournament.run("update schedule set matchnumber_live=0 where day_idx=0 and matchnumber_live<>0");
    auto rows = day.empty()
        ? tournament.query("select sid, day_idx, cid, match_state, matchnumber, matchnumber_live from schedule "
                           "where day_idx <>0 order by day_idx,cid,matchnumber")
        : tournament.query("select sid, day_idx, cid, match_state, matchnumber, matchnumber_live from schedule "
                           "where scheduledate=? order by day_idx,cid,matchnumber",
            day);
    auto write = tournament.query("update schedule set matchnumber_live=?, matchnumber=? where sid=?");
    std::int64_t live = 1, position = 1;
    std::int64_t last_day = 0, last_cid = 0;
    bool first = true;
    while (rows.step()) {
        const auto day_idx = rows.integer(1);
        const auto cid = rows.integer(2);
        if (first || day_idx != last_day || cid != last_cid) {
            live = 1;
            position = 1;
            last_day = day_idx;
            last_cid = cid;
            first = false;
        }
        const auto live_number = is_live(rows.text(3)) ? live++ : std::int64_t { 0 };
        const auto number = position++;
        if (live_number == rows.integer(5) && number == rows.integer(4))
            continue;
        write.bind_all(live_number, number, rows.integer(0));
        write.step();
        write.reset();
    }
    transaction.commit();
}

void live_match_counts(Database& tournament, std::string_view day, std::int64_t cid)
{
    Transaction transaction(tournament);
    StateCounts day_counts, court_counts;
    struct Placed
    {
        std::int64_t sid;
        std::int64_t matchnumber;
        std::string state;
    };
    std::vector<Placed> court_rows;
    for (auto rows = tournament.query(
             "select sid, cid, matchnumber, match_state from schedule where scheduledate=? order by matchnumber", day);
         rows.step();) {
        const auto state = rows.text(3);
        day_counts.add(state);
        if (rows.integer(1) != cid)
            continue;
        court_counts.add(state);
        court_rows.push_back({ rows.integer(0), rows.integer(2), state });
    }
    auto write = tournament.query("update schedule set matchnumber=?, matchnumber_live=?, todo=0 where sid=?");
    std::int64_t position = 1;
    for (const auto& row : court_rows) {
        const auto live_number = row.state == "3" ? row.matchnumber + dead_match_offset : position;
        write.bind_all(position, live_number, row.sid);
        write.step();
        write.reset();
        ++position;
    }
    tournament.run("Update scheduledays_courts set ind=? where sdate=? and cid=?", state_marks(court_counts), day, cid);
    write_counts(tournament, "Update scheduledays_courts set empty_cnt=?,live_cnt=?,unf_cnt=?,dead_cnt=?", court_counts,
        day, cid, true);
    tournament.run("Update scheduledays set ind=? where sdate=?", state_marks(day_counts), day);
    write_counts(
        tournament, "Update scheduledays set empty_cnt=?,live_cnt=?,unf_cnt=?,dead_cnt=?", day_counts, day, 0, false);
    transaction.commit();
}

void LIVE_MATCH_COUNTS_ALL(Session& session)
{
    auto& db = session.tournament();
    auto& settings = session.settings();
    Transaction transaction(db);
    db.run("update scheduledays set ind='',empty_cnt=0,live_cnt=0,unf_cnt=0,dead_cnt=0,empty_cnt_ind='',"
           "live_cnt_ind='',unf_cnt_ind='',dead_cnt_ind=''");
    db.run("update scheduledays_courts set ind='',empty_cnt=0,live_cnt=0,unf_cnt=0,dead_cnt=0,empty_cnt_ind='',"
           "live_cnt_ind='',unf_cnt_ind='',dead_cnt_ind=''");

    // The settings size the arrays; a file whose grid is larger than the one last saved (the settings belong to
    // the installation) widens them to its own days and courts, so that none of its counts is lost.
    const auto max_day
        = std::max<std::int64_t>(settings.integer("imaxdays"), db.scalar_integer("select max(idx) from scheduledays"));
    const auto max_cid = std::max<std::int64_t>(
        settings.integer("imaxcid"), db.scalar_integer("select max(cid) from scheduledays_courts"));
    CountArrays counts(std::max<std::int64_t>(max_day, 0), std::max<std::int64_t>(max_cid, 0));

    auto day_write = db.query("update scheduledays set empty_cnt=?,live_cnt=?,unf_cnt=?,dead_cnt=? where idx=?");
    auto court_write = db.query(
        "update scheduledays_courts set empty_cnt=?,live_cnt=?,unf_cnt=?,dead_cnt=? where sdate=? and cid=?");
    auto flush_day = [&](std::int64_t day) {
        const auto& c = counts.day(day);
        day_write.bind_all(c.empty, c.live, c.unf, c.dead, day);
        day_write.step();
        day_write.reset();
    };
    auto flush_court = [&](std::int64_t day, const std::string& sdate, std::int64_t cid) {
        const auto& c = counts.court(day, cid);
        court_write.bind_all(c.empty, c.live, c.unf, c.dead, sdate, cid);
        court_write.step();
        court_write.reset();
    };

    bool any = false;
    std::int64_t day = 0, cid = 0;
    std::string sdate;
    for (auto rows
         = db.query("select day_idx, cid, scheduledate, match_state from schedule order by day_idx,cid,matchnumber");
         rows.step();) {
        const auto row_day = rows.integer(0);
        const auto row_cid = rows.integer(1);
        if (!counts.holds(row_day, row_cid))
            continue;
        if (any && (row_day != day || row_cid != cid)) {
            flush_court(day, sdate, cid);
            if (row_day != day)
                flush_day(day);
        }
        any = true;
        day = row_day;
        cid = row_cid;
        sdate = rows.text(2);
        const auto state = rows.text(3);
        counts.day(day).add(state);
        counts.court(day, cid).add(state);
    }
    if (any) {
        flush_court(day, sdate, cid);
        flush_day(day);
    }
    write_marks(db, "scheduledays");
    write_marks(db, "scheduledays_courts");
    transaction.commit();
}

} // namespace qv
