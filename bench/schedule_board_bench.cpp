// The schedule board on a busy tournament: 5,000 matches over 4 days of 20 courts, half of them placed. Each
// figure is one interactive step of a director at the board.
#include "core/database.h"
#include "core/quiet_talk.h"
#include "core/session.h"
#include "scheduling/board_moves.h"
#include "scheduling/day_keys.h"
#include "scheduling/days_courts.h"
#include "scheduling/match_counters.h"
#include "scheduling/schedule_board.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <memory>
#include <random>

namespace {

namespace fs = std::filesystem;

constexpr int events = 40;
constexpr int matches_per_event = 125;
constexpr int days = 4;
constexpr int courts = 20;
constexpr int moved = 200;

std::string day_key(int day)
{
    return qv::day_forms({ 2027, 3, day }).fmt2;
}

// A tournament file with the days and courts and the matches, every other one placed.
class BusyTournament
{
public:
    BusyTournament()
    {
        std::random_device device;
        m_app = fs::temp_directory_path() / ("quorvelin-board-bench-" + std::to_string(device()));
        fs::create_directories(m_app);
        fs::copy(QV_INIT_FILES_DIR, m_app / "init_files", fs::copy_options::recursive);
        const auto file = m_app / "busy.qvd";
        fs::copy_file(m_app / "init_files" / "blank.qvd", file);
        session = std::make_unique<qv::Session>(m_app, m_talk, m_host);
        session->boot_start_app(file.string());
        fill();
        board = std::make_unique<qv::ScheduleBoard>(*session);
        board->init();
    }
    ~BusyTournament()
    {
        board.reset();
        session.reset();
        fs::remove_all(m_app);
    }

    std::unique_ptr<qv::Session> session;
    std::unique_ptr<qv::ScheduleBoard> board;

private:
    void fill()
    {
        auto& db = session->tournament();
        qv::DaysCourtsEditor editor(*session);
        editor.init();
        editor.set_days({ 2027, 3, 1 }, { 2027, 3, days });
        editor.generate(std::to_string(courts), editor.days());
        editor.save();

        qv::Transaction transaction(db);
        auto player = db.query("insert into players (pid, player, fname, sname, availabilityrestrictions) "
                               "values (?, ?, 'p', ?, ?)");
        for (int pid = 1; pid <= 2000; ++pid) {
            player.bind_all(pid, "p" + std::to_string(pid), std::to_string(pid), pid % 7 ? "" : "mornings only");
            player.step();
            player.reset();
        }
        auto event = db.query("insert into events (eid, eventname, singdobs, drawtype, drawdone) "
                              "values (?, ?, 'singles', 'ko', 1)");
        auto match = db.query(R"(insert into schedule (sid, eid, "match", rid, rname, rsname, mtttt, mbttt,
            mtfrn, mbfrn, mttag, mbtag, mtseeding, match_state, eventname, singdobs, scheduledate, day_idx, cid,
            matchnumber) values (?, ?, ?, 1, 'r1', '1.7', ?, ?, ?, ?, ?, ?, ?, ?, ?, 'singles', ?, ?, ?, ?))");
        int sid = 0;
        for (int eid = 1; eid <= events; ++eid) {
            const auto name = "event " + std::to_string(eid);
            event.bind_all(eid, name);
            event.step();
            event.reset();
            for (int m = 1; m <= matches_per_event; ++m) {
                ++sid;
                const auto top = "p" + std::to_string(sid % 2000 + 1);
                const auto bottom = "p" + std::to_string((sid * 7) % 2000 + 1);
                const bool placed = sid % 2 == 0;
                const int day = sid % days + 1;
                const int cid = sid / days % courts + 1;
                match.bind_all(sid, eid, m, top, bottom, top, bottom, top, bottom, m == 1 ? "1" : "",
                    sid % 5 == 0 ? "3" : "2", name, placed ? day_key(day) : "", placed ? day : 0, placed ? cid : 0,
                    placed ? sid : 0);
                match.step();
                match.reset();
            }
        }
        transaction.commit();
        qv::LIVE_MATCH_NUMBERS_DO(db, "");
    }

    fs::path m_app;
    qv::QuietTalk m_talk;
    qv::QuietHost m_host;
};

BusyTournament& tournament()
{
    static BusyTournament busy;
    return busy;
}

void BM_LoadUnscheduledList(benchmark::State& state)
{
    auto& busy = tournament();
    for (auto _ : state)
        busy.board->loadschedule();
    state.counters["lines"] = static_cast<double>(busy.board->list(qv::BoardListId::unscheduled).size());
}
BENCHMARK(BM_LoadUnscheduledList)->Unit(benchmark::kMillisecond);

// "down" with 200 lines selected in the unscheduled list, onto the court on display; the court list and the
// unscheduled list held (patched) or not (read again).
void BM_Move200ToCourt(benchmark::State& state)
{
    auto& busy = tournament();
    auto& board = *busy.board;
    auto& db = busy.session->tournament();
    const bool hold = state.range(0) == 1;
    for (auto _ : state) {
        state.PauseTiming();
        board.list(qv::BoardListId::unscheduled).set_on_hold(false);
        board.list(qv::BoardListId::court).set_on_hold(false);
        board.loadschedule();
        board.choose_day(day_key(2));
        board.choose_court(7);
        board.loadcourt();
        board.list(qv::BoardListId::unscheduled).set_on_hold(hold);
        board.list(qv::BoardListId::court).set_on_hold(hold);
        auto& upper = board.list(qv::BoardListId::unscheduled);
        for (int row = 0; row < moved; ++row)
            upper.set_selected(row * 5, true);
        state.ResumeTiming();

        qv::NET_move_sel_schedule_to_list4(board);

        state.PauseTiming();
        if (board.list(qv::BoardListId::court).size() < moved)
            state.SkipWithError("the matches did not arrive on the court");
        db.run("update schedule set scheduledate='', day_idx=0, cid=0, matchnumber=0 where scheduledate=? and "
               "cid=7 and sid % 2 = 1",
            day_key(2));
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Move200ToCourt)->Arg(0)->Arg(1)->ArgName("hold")->Unit(benchmark::kMillisecond);

void BM_LiveMatchCountsAll(benchmark::State& state)
{
    auto& busy = tournament();
    for (auto _ : state)
        qv::LIVE_MATCH_COUNTS_ALL(*busy.session);
}
BENCHMARK(BM_LiveMatchCountsAll)->Unit(benchmark::kMillisecond);

void BM_LiveMatchNumbersOneDay(benchmark::State& state)
{
    auto& busy = tournament();
    for (auto _ : state)
        qv::LIVE_MATCH_NUMBERS_DO(busy.session->tournament(), day_key(3));
}
BENCHMARK(BM_LiveMatchNumbersOneDay)->Unit(benchmark::kMillisecond);

// The worst case: every match of the day in a new order, so that every row is written again.
void BM_LiveMatchNumbersOneDayAfresh(benchmark::State& state)
{
    auto& busy = tournament();
    auto& db = busy.session->tournament();
    for (auto _ : state) {
        state.PauseTiming();
        db.run("update schedule set matchnumber = 100000 - matchnumber where scheduledate=?", day_key(3));
        state.ResumeTiming();
        qv::LIVE_MATCH_NUMBERS_DO(db, day_key(3));
    }
}
BENCHMARK(BM_LiveMatchNumbersOneDayAfresh)->Unit(benchmark::kMillisecond);

} // namespace
