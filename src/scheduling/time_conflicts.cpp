#include "scheduling/time_conflicts.h"

#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "scheduling/board_lines.h"
#include "scheduling/time_choice.h"

#include <array>
#include <cstdlib>
#include <unordered_map>
#include <unordered_set>

namespace qv {

namespace {

// A row of a result table while a day is being computed.
struct Offender
{
    std::int64_t cnt = 0;
    std::string sids;
    int tm = 0;
};

// The rows of one result table for one day, keyed by player name or court, in the order they were added.
template <class Key> class OffenderTable
{
public:
    // do_match_tcs and do_court_tcs: a new offender starts with the match; a known one takes the match unless its
    // sid text already occurs within sids (so 12 counts as present in "112").
    void enter(const Key& key, std::int64_t sid, int avg)
    {
        const auto sid_text = std::to_string(sid);
        auto found = m_rows.find(key);
        if (found == m_rows.end()) {
            m_rows.emplace(key, Offender { 1, sid_text, 0 });
            if (m_known.insert(key).second)
                m_order.push_back(key);
        } else if (found->second.sids.find(sid_text) == std::string::npos) {
            found->second.tm = avg;
            ++found->second.cnt;
            found->second.sids += "." + sid_text;
        }
        m_touched.push_back(key);
    }
    // The offenders with a single match are let go; only rows touched since the last sweep can hold one.
    template <class Drop> void sweep(Drop drop)
    {
        for (const auto& key : m_touched) {
            auto found = m_rows.find(key);
            if (found != m_rows.end() && (found->second.cnt == 1 || drop(key)))
                m_rows.erase(found);
        }
        m_touched.clear();
    }
    template <class Write> void each(Write write) const
    {
        for (const auto& key : m_order) {
            auto found = m_rows.find(key);
            if (found != m_rows.end())
                write(key, found->second);
        }
    }

private:
    std::unordered_map<Key, Offender> m_rows;
    std::vector<Key> m_order; // a key let go and entered again keeps its first place; the lists read ordered
    std::unordered_set<Key> m_known;
    std::vector<Key> m_touched;
};

struct TimedMatch
{
    std::int64_t sid = 0;
    std::int64_t cid = 0;
    std::array<std::string, 4> players;
};

const char* table_of(TcKind kind)
{
    return kind == TcKind::match ? "calc_time_conflicts_matches" : "calc_time_conflicts_courts";
}

std::string with_seed(const std::string& name, const std::string& seed)
{
    const auto shown = trim(name).empty() ? std::string("empty") : trim(name);
    const auto s = trim(seed);
    return s.empty() || s == "0" ? shown : shown + " [" + s + "]";
}

std::vector<std::string> split_dots(const std::string& text)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (auto dot = text.find('.'); dot != std::string::npos; dot = text.find('.', start)) {
        parts.push_back(text.substr(start, dot - start));
        start = dot + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

} // namespace

bool overlap(int t1, int t2, int avg)
{
    if (t1 == -1 || t2 == -1)
        return false;
    return std::abs(t1 - t2) < avg;
}

std::vector<TcDay> days_basic_tcs(Database& tournament)
{
    std::vector<TcDay> days;
    for (auto q = tournament.query(R"(select sdate, idx, ind from scheduledays where sdate in
            (select distinct scheduledate as sdate from schedule
             where matchtime <> '' and match_state <> '3' and match_state <> '0' and sdate <> '')
            order by idx)");
         q.step();)
        days.push_back({ q.text(0), q.integer(1), q.text(0) + " " + q.text(2) });
    return days;
}

bool compute_time_conflicts(Session& session, const std::vector<std::string>& days, const std::string& minutes)
{
    auto& talk = session.talk();
    if (days.empty()) {
        talk.message("select day(s)");
        return false;
    }
    const auto text = trim(minutes);
    if (!report(talk, value_required(text)) || !report(talk, check_integer(text)))
        return false;
    const auto avg = minutes_value(text);
    if (avg == 0) {
        talk.message("zero invalid in this context");
        return false;
    }
    if (avg > max_minutes) {
        talk.message("max 1440,24 hours");
        return false;
    }
    session.settings().set_disk_var("schedule.avgmatchtime", std::to_string(avg));
    const auto question = "This operation can take some time ,depending on number of "
        + current_sport_words(session).matches + ".You can cancel at any time,continue?";
    if (talk.ask(question, "Confirm", Buttons::YesNoCancel) != Answer::Yes)
        return false;
    auto& db = session.tournament();
    Transaction transaction(db);
    kill_all_tcs(db);
    for (const auto& line : days)
        BF_time_conflict_sdate1(db, line.substr(0, 10), static_cast<int>(avg));
    transaction.commit();
    talk.message("done");
    return true;
}

void kill_all_tcs(Database& tournament)
{
    tournament.run("delete from calc_time_conflicts_courts");
    tournament.run("delete from calc_time_conflicts_matches");
}

void kill_all_tcs_for_sdate(Database& tournament, const std::string& day)
{
    tournament.run("delete from calc_time_conflicts_courts where sdate=?", day);
    tournament.run("delete from calc_time_conflicts_matches where sdate=?", day);
}

void BF_time_conflict_sdate1(Database& tournament, const std::string& day, int avg)
{
    // The times stand as the check always read them: AND binds before OR, so the live matches of the day and the
    // unfinished matches of every day supply the times.
    std::vector<int> times;
    for (auto q = tournament.query(R"(select distinct matchtime_int from schedule where scheduledate=?
            and match_state='2' or match_state='2.1' and matchtime <> '' and cid <> 0 and cid <> -2 and cid <> -4
            order by matchtime_int)",
             day);
         q.step();)
        times.push_back(static_cast<int>(q.integer(0)));

    // The matches that take part at each time, by sid: undecided, on a court, first available or to be confirmed.
    std::unordered_map<int, std::vector<TimedMatch>> at_time;
    for (auto q = tournament.query(R"(select matchtime_int, sid, cid, p1, p2, p3, p4 from schedule
            where scheduledate=? and mwtag='' and cid <> 0 and cid <> -2 and cid <> -4 order by sid)",
             day);
         q.step();)
        at_time[static_cast<int>(q.integer(0))].push_back(
            { q.integer(1), q.integer(2), { q.text(3), q.text(4), q.text(5), q.text(6) } });

    OffenderTable<std::string> players;
    OffenderTable<std::int64_t> courts;
    const std::vector<TimedMatch> none;
    auto matches_at = [&](int t) -> const std::vector<TimedMatch>& {
        auto found = at_time.find(t);
        return found == at_time.end() ? none : found->second;
    };
    for (std::size_t i = 0; i < times.size(); ++i)
        for (std::size_t j = i; j < times.size(); ++j) {
            if (!overlap(times[i], times[j], avg))
                continue;
            for (int t : { times[i], times[j] })
                for (const auto& match : matches_at(t)) {
                    for (const auto& name : match.players)
                        players.enter(name, match.sid, avg);
                    courts.enter(match.cid, match.sid, avg);
                }
            // Empty places enter under the empty name and go again at once.
            players.sweep([](const std::string& name) { return name.empty(); });
            courts.sweep([](std::int64_t) { return false; });
        }

    auto add_player
        = tournament.query("insert into calc_time_conflicts_matches (sdate, pn, cnt, sids, tm) values (?, ?, ?, ?, ?)");
    players.each([&](const std::string& name, const Offender& row) {
        add_player.bind_all(day, name, row.cnt, row.sids, row.tm);
        add_player.step();
        add_player.reset();
    });
    auto add_court
        = tournament.query("insert into calc_time_conflicts_courts (sdate, cid, cnt, sids, tm) values (?, ?, ?, ?, ?)");
    courts.each([&](std::int64_t cid, const Offender& row) {
        add_court.bind_all(day, cid, row.cnt, row.sids, row.tm);
        add_court.step();
        add_court.reset();
    });
}

std::vector<TcDay> load_ctc_mtc_days(Database& tournament, TcKind kind)
{
    const std::string table = table_of(kind);
    std::vector<TcDay> days;
    for (auto q = tournament.query(
             "select sdate, sum(cnt) from " + table + " where cnt > 0 group by sdate order by min(rowid)");
         q.step();)
        days.push_back({ q.text(0), 0, q.text(0) + "(" + std::to_string(q.integer(1)) + ")" });
    return days;
}

TcList load_time_conflicts(Database& tournament, const std::string& day, TcKind kind)
{
    const std::string table = table_of(kind);
    const std::string order = kind == TcKind::match ? "pn" : "cid";
    TcList list;
    list.heading = kind == TcKind::match ? "match" : "court";
    list.heading.append(" time conflicts,").append(day);
    auto find = tournament.query(R"(select s.scheduledate, s.cid, s.matchtime, s.mtttt, s.mtseeding, s.mbttt,
        s.mbseeding, s.eid, s.rname, coalesce(e.eventname, '') from schedule s left join events e on e.eid = s.eid
        where s.sid=?)");
    // A sid that has gone shows the match last found again, as a recordset left standing would.
    std::vector<std::string> last;
    for (auto q = tournament.query("select sids, tm from " + table + " where sdate=? order by " + order, day);
         q.step();) {
        const auto tm = std::to_string(q.integer(1));
        for (const auto& sid_text : split_dots(q.text(0))) {
            if (sid_text.empty())
                continue;
            const std::int64_t sid = std::stoll(sid_text);
            find.bind_all(sid);
            if (find.step())
                last = { find.text(0), find.text(1), find.text(2), tm, with_seed(find.text(3), find.text(4)),
                    with_seed(find.text(5), find.text(6)), "(" + find.text(7) + ")", find.text(9), find.text(8) };
            find.reset();
            if (!last.empty())
                list.lines.push_back({ sid, join_fields(last) });
        }
    }
    return list;
}

} // namespace qv
