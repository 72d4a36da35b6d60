#include "scheduling/distribute_load.h"

#include "core/session.h"
#include "core/time_rules.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "scheduling/assistant_lines.h"
#include "scheduling/match_counters.h"
#include "scheduling/time_choice.h"

#include <optional>

namespace qv {

namespace {

bool refuse(ScheduleBoard& board, const std::string& text)
{
    board.session().talk().message(text);
    return false;
}

// The court pointer of a run: the courts in turn, and the time moving on each time the turn is back at the first.
class CourtTurn
{
public:
    explicit CourtTurn(const DistloadRun& run)
        : m_run(run)
        , m_time(run.time)
    {
    }
    const DistloadCourt& court() const { return m_run.courts[m_at]; }
    const std::string& time() const { return m_time; }
    int minutes() const { return m_time.empty() ? -1 : time_to_minutes(m_time); }
    void next()
    {
        if (m_at + 1 < m_run.courts.size()) {
            ++m_at;
            return;
        }
        m_at = 0;
        if (!m_time.empty())
            m_time = add_minutes(m_time, m_run.minutes);
    }

private:
    const DistloadRun& m_run;
    std::size_t m_at = 0;
    std::string m_time;
};

// One match to its day, court and time with the next match number.
void place(ScheduleBoard& board, Statement& update, const DistloadRun& run, const CourtTurn& turn, std::int64_t sid)
{
    board.session().talk().progress(turn.court().text);
    update.bind_all(
        run.day, run.idx, turn.court().cid, run.nbat, turn.time(), turn.minutes(), board.next_matchnumber(), sid);
    update.step();
    update.reset();
}

Statement update_statement(Database& db)
{
    return db.query(R"(update schedule set scheduledate=?, day_idx=?, cid=?, nbat=?, matchtime=?, matchtime_int=?,
        matchnumber=? where sid=?)");
}

} // namespace

std::vector<DistloadCourt> load_cids(Database& tournament, const SportWords& words, const std::string& day)
{
    std::vector<DistloadCourt> courts;
    for (auto q = tournament.query(
             "select cid from scheduledays_courts where lower(sdate)=lower(?) and cid>0 order by idx, cid", day);
         q.step();)
        courts.push_back({ q.integer(0), words.court + " " + std::to_string(q.integer(0)) });
    return courts;
}

bool distload_allowed_board(ScheduleBoard& board)
{
    if (board.day().empty())
        return refuse(board, "select day");
    if (!board.list(board.upper()).any_selected())
        return refuse(board, "select " + board.words().matches);
    return true;
}

bool distload_allowed_assistant(ScheduleBoard& board, bool any_selected, const std::string& day)
{
    if (!any_selected)
        return refuse(board, "select " + board.words().matches);
    if (day.empty())
        return refuse(board, "select day to distribute matches across");
    return true;
}

DistloadOutcome distload_confirm(ScheduleBoard& board, DistloadCaller caller, const std::string& day, std::int64_t idx,
    DistloadRequest& request, BoardList* assistant_list)
{
    auto& talk = board.session().talk();
    long long minutes = 0;
    if (!request.ignore_time) {
        // An empty box becomes "0", so that the value-required test never fires and zero is refused instead.
        request.minutes = trim(request.minutes);
        if (request.minutes.empty())
            request.minutes = "0";
        if (!report(talk, check_integer(request.minutes)))
            return DistloadOutcome::refused_minutes;
        minutes = minutes_value(request.minutes);
        if (minutes <= 0) {
            talk.message("zero invalid in this context");
            return DistloadOutcome::refused_minutes;
        }
        if (minutes > max_minutes) {
            talk.message("Max 1440,24 hours");
            return DistloadOutcome::refused_minutes;
        }
    }
    if (request.courts.empty()) {
        talk.message("select " + board.words().courts);
        return DistloadOutcome::refused;
    }
    // Only the minute is asked for: nb/at and the hour pass empty.
    if (!request.ignore_time && request.start.minute.empty()) {
        talk.message("Need minute");
        return DistloadOutcome::refused;
    }

    DistloadRun run { day, idx, request.courts, {}, 0, {} };
    if (!request.ignore_time) {
        run.time = request.start.hour + ":" + request.start.minute;
        run.minutes = static_cast<int>(minutes);
        run.nbat = request.start.nbat;
    }
    auto& settings = board.session().settings();
    settings.set_disk_var("dl.nbat", std::to_string(request.nbat_index));
    settings.set_disk_var("dl.hrs", std::to_string(request.hour_index));
    settings.set_disk_var("dl.mins", std::to_string(request.minute_index));
    // With the times ignored the box was never checked: only whole minutes are remembered.
    if (!request.minutes.empty() && !check_integer(request.minutes))
        settings.set_disk_var("dl.minsadd", request.minutes);
    settings.set_disk_var("dl.check1", request.ignore_time ? "1" : "0");
    BF_distributetheload(board, caller, run, assistant_list);
    return DistloadOutcome::done;
}

void BF_distributetheload(
    ScheduleBoard& board, DistloadCaller caller, const DistloadRun& run, BoardList* assistant_list)
{
    if (run.courts.empty())
        return;
    board.session().talk().progress("working...");
    switch (caller) {
    case DistloadCaller::list1:
        BF_distributetheload_schedule(board, BoardListId::unscheduled, run);
        break;
    case DistloadCaller::list1_cb:
        BF_distributetheload_schedule(board, BoardListId::clipboard, run);
        break;
    case DistloadCaller::assistant:
        if (assistant_list)
            BF_distributetheload_assistant(board, *assistant_list, run);
        break;
    }
    board.session().talk().progress({});
}

void BF_distributetheload_schedule(ScheduleBoard& board, BoardListId source_id, const DistloadRun& run)
{
    auto& db = board.session().tournament();
    auto& source = board.list(source_id);
    auto& court = board.list(BoardListId::court);
    const auto range = board.sid_range();
    const bool court_held = court.on_hold();
    const auto shown = board.shown();
    std::vector<std::int64_t> sids;
    Transaction transaction(db);
    {
        BulkChange source_bulk(source);
        BulkChange court_bulk(court);
        auto update = update_statement(db);
        CourtTurn turn(run);
        for (int row = 0; row < source.size();) {
            if (!source.line(row).selected) {
                ++row;
                continue;
            }
            const BoardLine line = source.line(row);
            const DistloadCourt used = turn.court();
            const std::string time = turn.time();
            place(board, update, run, turn, line.sid);
            sids.push_back(line.sid);
            turn.next();
            if (court_held && shown && shown->scheduledate == run.day && shown->cid == used.cid)
                court.append(
                    { line.sid, quick_fix_schedule_time(translate_sstring_to_l4s(line.text, run.day), run.nbat, time),
                        line.seeded });
            // The walk goes on at the same row.
            source.remove(row);
        }
    }
    LIVE_MATCH_NUMBERS_DO(db, run.day);
    transaction.commit();
    if (!source.on_hold())
        board.reload(source_id);
    if (court_held) {
        for (const auto& line : std::vector<BoardLine>(court.lines()))
            board.update_line(BoardListId::court, line.sid);
    } else {
        board.refresh_list4();
    }
    board.mark_stale_if_drawn(sids, range);
}

void BF_distributetheload_assistant(ScheduleBoard& board, BoardList& source, const DistloadRun& run)
{
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    std::vector<std::int64_t> sids;
    Transaction transaction(db);
    {
        BulkChange source_bulk(source);
        auto update = update_statement(db);
        CourtTurn turn(run);
        for (int row = 0; row < source.size(); ++row) {
            if (!source.line(row).selected)
                continue;
            const auto sid = source.line(row).sid;
            const DistloadCourt used = turn.court();
            const std::string time = turn.time();
            place(board, update, run, turn, sid);
            sids.push_back(sid);
            turn.next();
            source.set_text(
                row, quick_fix_assistant_list4_list3(source.line(row).text, run.day, used.cid, run.nbat, time));
        }
    }
    LIVE_MATCH_NUMBERS_DO(db, run.day);
    transaction.commit();
    board.reload_unheld();
    board.mark_stale_if_drawn(sids, range);
}

} // namespace qv
