#include "drawengine/draw_saving.h"

#include "core/database.h"
#include "core/match_record.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/time_rules.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "drawengine/ko_row_values.h"
#include "drawengine/rr_saving.h"

#include <array>
#include <cstdio>
#include <tuple>
#include <utility>

namespace qv {

namespace {

constexpr std::string_view save_as_u_go = "draw.isaveasugo";
constexpr std::string_view save_no_prompt = "draw.iautosavechanges";

void write_row(Database& db, std::int64_t sid, const std::vector<Column>& columns)
{
    std::string sql = "update schedule set ";
    for (std::size_t i = 0; i < columns.size(); ++i)
        sql += (i ? ", " : "") + columns[i].first + " = ?";
    sql += " where sid = ?";
    auto statement = db.query(sql);
    int index = 0;
    for (const auto& column : columns)
        statement.bind(++index, column.second);
    statement.bind(++index, sid);
    statement.step();
}

std::optional<std::int64_t> find_row(Database& db, std::int64_t eid, char side, const std::string& address)
{
    auto row = db.query(side == 't' ? "select sid from schedule where eid = ? and mt = ? order by \"match\""
                                    : "select sid from schedule where eid = ? and mb = ? order by \"match\"",
        eid, address);
    if (!row.step())
        return std::nullopt;
    return row.integer("sid");
}

// Draw columns with a shadow, in the order of the copy statements.
constexpr std::array<std::string_view, 23> shadowed = { "mtttt", "mtfrn", "mttag", "mbttt", "mbfrn", "mbtag", "mwttt",
    "mwfrn", "mwtag", "p1", "p2", "p3", "p4", "mtseeding", "mbseeding", "mtar", "mbar", "mtsex", "mbsex", "mt_country",
    "mb_country", "matchscore", "matchlongscore" };

// The compared columns, in the order the comparison stops at the first difference.
constexpr std::array<std::string_view, 15> compared = { "matchscore", "matchlongscore", "mwttt", "mtttt", "mbttt",
    "mwfrn", "mtfrn", "mbfrn", "mwtag", "mttag", "mbtag", "mt_country", "mb_country", "mtseeding", "mbseeding" };

// " Update schedule set  mtttt=imtttt, ... changed=0 where eid=? and changed=1", or the other way round.
std::string copy_statement(bool to_live)
{
    std::string sql = " Update schedule set ";
    for (const auto column : shadowed) {
        const std::string live(column);
        const std::string shadow = "i" + live;
        sql += " " + (to_live ? live + "=" + shadow : shadow + "=" + live) + ",";
    }
    sql += " changed=0";
    sql += " where eid=? and changed=1";
    return sql;
}

class BusyCursor
{
public:
    explicit BusyCursor(const std::function<void(bool)>& busy)
        : m_busy(busy)
    {
        if (m_busy)
            m_busy(true);
    }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
    ~BusyCursor()
    {
        if (m_busy)
            m_busy(false);
    }

private:
    const std::function<void(bool)>& m_busy;
};

std::tm now_of(const DrawSaveHooks& hooks)
{
    return hooks.now ? hooks.now() : local_time_now();
}

// The tree again from schedule, then its score boxes coloured and the draw shown.
void reload(Session& session, OpenDraw& open, const DrawSaveHooks& hooks)
{
    if (open.draw.drawtype == "rr") {
        if (hooks.RR_loadroundsdata)
            hooks.RR_loadroundsdata(open);
    } else {
        KO_loadroundsdata(session.tournament(), open);
        set_scoreboxes(open, session.settings().integer("draw.ihilightscorebox") == 1);
    }
    if (hooks.show_draw)
        hooks.show_draw(open);
}

} // namespace

void carry_winner(Database& db, std::int64_t sid, std::int64_t next_sid, std::string_view prefix, char next_side)
{
    const std::string p(prefix);
    SideVals vals;
    {
        auto row = db.query("select * from schedule where sid = ?", sid);
        if (!row.step())
            return;
        vals.ttt = row.text(p + "mwttt");
        vals.frn = row.text(p + "mwfrn");
        vals.tag = row.text(p + "mwtag");
        std::string from;
        if (vals.ttt == row.text(p + "mtttt"))
            from = "mt";
        else if (vals.ttt == row.text(p + "mbttt"))
            from = "mb";
        if (!from.empty()) {
            vals.ar = row.text(p + from + "ar");
            vals.sex = row.text(p + from + "sex");
            vals.country = row.text(p + from + "_country");
            vals.seeding = row.text(p + from + "seeding");
        }
    }
    if (!vals.ttt.empty())
        std::tie(vals.pa, vals.pb) = split_people(vals.ttt);

    const std::string m = p + "m" + next_side;
    const bool top = next_side == 't';
    write_row(db, next_sid,
        {
            { m + "ttt", vals.ttt },
            { m + "frn", vals.frn },
            { m + "tag", vals.tag },
            { m + "ar", vals.ar },
            { m + "sex", vals.sex },
            { m + "_country", vals.country },
            { m + "seeding", vals.seeding },
            { p + (top ? "p1" : "p3"), vals.pa },
            { p + (top ? "p2" : "p4"), vals.pb },
        });
}

std::optional<LeaveReason> leave_reason_from_word(std::string_view word)
{
    if (word == "switchingdraws")
        return LeaveReason::switchingdraws;
    if (word == "closingdraws")
        return LeaveReason::closingdraws;
    if (word == "switchingforms")
        return LeaveReason::switchingforms;
    return std::nullopt;
}

bool check_for_changes(const OpenDraw& open)
{
    return open.draw.changes_waiting || open.draw.new_draw;
}

bool draw_save_settings_locked(const OpenDraw& open)
{
    return open.draw.on_screen;
}

bool is_draw_save_setting(std::string_view key)
{
    return key == save_as_u_go || key == save_no_prompt;
}

bool set_draw_save_setting(Session& session, const OpenDraw& open, std::string_view key, bool on)
{
    if (!is_draw_save_setting(key))
        return false;
    if (draw_save_settings_locked(open)) {
        session.talk().message("cannot alter this setting while draw is loaded");
        return false;
    }
    session.settings().set_disk_var(key, on ? "1" : "0");
    return true;
}

std::string draw_timestamp(const std::tm& when)
{
    static constexpr std::array<const char*, 7> days
        = { "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday" };
    static constexpr std::array<const char*, 12> months = { "January", "February", "March", "April", "May", "June",
        "July", "August", "September", "October", "November", "December" };
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, "%s, %s %02d, %04d %02d:%02d:%02d", days[(when.tm_wday % 7 + 7) % 7],
        months[(when.tm_mon % 12 + 12) % 12], when.tm_mday, when.tm_year + 1900, when.tm_hour, when.tm_min,
        when.tm_sec);
    return buffer;
}

void save_draw(Session& session, OpenDraw& open, const DrawSaveHooks& hooks, SaveRefresh refresh)
{
    auto& draw = open.draw;
    if (draw.drawsize == 0 || !draw.on_screen)
        return;
    if (hooks.cancel_list1)
        hooks.cancel_list1();
    draw.list1_showing = false;
    if (!check_for_changes(open))
        return;
    const bool rr = draw.drawtype == "rr";
    if (rr && hooks.validate_rr && !hooks.validate_rr(open))
        return;

    BusyCursor busy(hooks.busy);
    auto& db = session.tournament();
    // One unit of work: the rows, the states, the marks and the counts are written together or not at all.
    Transaction transaction(db);
    const auto eid = draw.curr_eid;
    draw.new_draw = false;
    if (db.scalar_integer("select count(*) from schedule where eid = ?", eid) == 0) {
        draw.new_draw = true;
        // A knock-out's stub rows are laid down with their values at once: KO_savecontrols does both.
        if (!rr)
            KO_savecontrols(db, open);
        else if (hooks.add_draw_stub_RR)
            hooks.add_draw_stub_RR(open);
    }
    if (draw.new_draw) {
        if (rr && hooks.RR_savecontrols)
            hooks.RR_savecontrols(open);
    } else {
        if (!rr)
            KO_copy_over(db, eid);
        else if (hooks.RR_copy_over)
            hooks.RR_copy_over(open);
    }
    recompute_match_states(db, eid);

    const bool refreshes = refresh == SaveRefresh::all;
    if (draw.new_draw) {
        draw.timestamp_text = draw_timestamp(now_of(hooks));
        db.run("Update events set drawdone=true,drawsize=?,drawtype=?,timestamp_text=? where eid=?", draw.drawsize,
            draw.drawtype, draw.timestamp_text, eid);
        db.run("Update evententries set drawdone=true where eid=?", eid);
        if (refreshes) {
            // The event's "*" and every list that depends on which draws exist.
            session.refresh_lists(Lists::events);
            session.refresh_lists(Lists::draw);
            if (hooks.board.refresh)
                hooks.board.refresh();
        }
        draw.new_draw = false;
        reload(session, open, hooks);
        if (draw.force_draw && hooks.force_draw_fix_players)
            hooks.force_draw_fix_players(open);
        draw.force_draw = false;
    } else {
        if (refreshes && hooks.board.refresh_event)
            hooks.board.refresh_event(eid);
        reload(session, open, hooks);
        draw.timestamp_text = draw_timestamp(now_of(hooks));
        db.run("Update events set timestamp_text=? where eid=?", draw.timestamp_text, eid);
    }
    draw.new_draw = false;
    do_live_match_counts(db, eid, hooks.board);
    set_changed_recs(db, open);
    transaction.commit();
}

void save_draw_END_doing_all_draws(Session& session, const DrawSaveHooks& hooks)
{
    session.refresh_lists(Lists::events);
    session.refresh_lists(Lists::draw);
    if (hooks.board.refresh)
        hooks.board.refresh();
}

void KO_copy_over(Database& tournament, std::int64_t eid)
{
    tournament.run(copy_statement(true), eid);
}

void BF_rollback_draw(Session& session, OpenDraw& open, const DrawSaveHooks& hooks)
{
    auto& draw = open.draw;
    if (draw.curr_eid == 0 || !draw.on_screen || draw.drawsize == 0)
        return;
    if (session.settings().integer(save_as_u_go) == 1) {
        session.talk().message(
            "Cannot roll back as you are in 'save as u go mode', all changes are therefore immediate");
        return;
    }
    // A draw never saved has no last save to go back to; reading it from schedule would lose it.
    if (draw.new_draw)
        return;
    // A round robin's rows carry points as well, which the knock-out column list leaves out.
    if (draw.drawtype == "rr")
        RR_copy_back(session.tournament(), draw.curr_eid);
    else
        session.tournament().run(copy_statement(false), draw.curr_eid);
    reload(session, open, hooks);
    set_changed_recs(session.tournament(), open);
}

void KO_imm_save(Session& session, OpenDraw& open, int level, int position)
{
    auto& draw = open.draw;
    if (draw.new_draw || !open.has_slot(level, position))
        return;
    auto& db = session.tournament();
    const auto eid = draw.curr_eid;
    const bool both = session.settings().integer(save_as_u_go) == 1;
    const std::array<std::string_view, 2> prefixes = { "i", "" };
    const int passes = both ? 2 : 1;

    const char side = OpenDraw::side(position);
    const int n = OpenDraw::next_position(position);
    const char next_side = OpenDraw::side(n);
    const auto sid = find_row(db, eid, side, OpenDraw::address_text(level, position));
    if (!sid)
        return;
    const auto vals = get_vals(open, level, position);
    const auto next_sid = find_row(db, eid, next_side, OpenDraw::address_text(level + 1, n));

    Transaction savepoint(db);
    for (int pass = 0; pass < passes; ++pass)
        write_row(db, *sid, side_columns(prefixes[pass], side, vals));
    store_changed(db, *sid);
    if (next_sid) {
        for (int pass = 0; pass < passes; ++pass)
            carry_winner(db, *sid, *next_sid, prefixes[pass], next_side);
        store_changed(db, *next_sid);
    }
    savepoint.commit();

    set_changed_recs(db, open);
    if (both)
        recompute_match_states(db, eid);
}

bool diff_vals(const Statement& row)
{
    for (const auto column : compared)
        if (row.text(column) != row.text("i" + std::string(column)))
            return true;
    return false;
}

bool store_changed(Database& tournament, std::int64_t sid)
{
    auto row = tournament.query("select * from schedule where sid = ?", sid);
    if (!row.step())
        return false;
    const bool changed = diff_vals(row);
    tournament.run("update schedule set changed = ? where sid = ?", changed ? 1 : 0, sid);
    return changed;
}

bool set_changed_recs(Database& tournament, OpenDraw& open)
{
    open.draw.changes_waiting
        = tournament.scalar_integer("select count(*) from schedule where changed=1 and eid=?", open.draw.curr_eid) > 0;
    return open.draw.changes_waiting;
}

bool leave_draw(Session& session, OpenDraw& open, LeaveReason reason, const DrawSaveHooks& hooks)
{
    auto& draw = open.draw;
    if (draw.curr_eid == 0 || !draw.on_screen || session.settings().integer(save_as_u_go) == 1)
        return true;
    const bool pending = draw.new_draw ? true : check_for_changes(open);
    if (!pending)
        return true;
    if (session.settings().integer(save_no_prompt) == 1) {
        save_draw(session, open, hooks);
        return true;
    }
    switch (session.talk().ask("save changes?", "Confirm", Buttons::YesNoCancel)) {
    case Answer::Yes:
        save_draw(session, open, hooks);
        return true;
    case Answer::No:
        if (reason == LeaveReason::switchingforms)
            BF_refresh_draw(session, open, hooks);
        return true;
    default:
        return false;
    }
}

std::vector<DayCourt> do_live_match_counts(Database& tournament, std::int64_t eid, const ScheduleBoardHooks& board)
{
    // The eid term binds to the second "or" term only, as the count has always been made: a row of another
    // event that turned dead since its own last count is reported as well. The two terms are asked apart, so
    // that each finds its rows through an index, and the days and courts come once each, in their order.
    std::vector<DayCourt> changed;
    for (auto rows = tournament.query("select scheduledate,cid from schedule where "
                                      "match_state='3' and prev_match_state <>'3' "
                                      "union select scheduledate,cid from schedule where "
                                      "eid=? and match_state<>'3' and prev_match_state ='3' order by 1, 2",
             eid);
         rows.step();)
        changed.push_back({ rows.text("scheduledate"), rows.integer("cid") });
    if (board.shown && board.mark_for_refresh) {
        if (const auto shown = board.shown()) {
            for (const auto& day_court : changed)
                if (day_court == *shown) {
                    board.mark_for_refresh();
                    break;
                }
        }
    }
    if (board.renumber && !changed.empty())
        board.renumber(changed);
    // Rows whose count is already current are left alone: the write would change nothing.
    tournament.run(
        "Update schedule set prev_match_state=match_state where eid=? and prev_match_state is not match_state collate "
        "binary",
        eid);
    return changed;
}

void KO_loadroundsdata(Database& tournament, OpenDraw& open)
{
    open.build_tree(open.draw.drawsize);
    // Columns by position: sid, mt, mb, mw_ptr, then seven of each side from 4 and 11, then the two scores.
    auto rows = tournament.query(R"(select sid, mt, mb, mw_ptr,
        imtttt, imtfrn, imttag, imt_country, imtseeding, imtar, imtsex,
        imbttt, imbfrn, imbtag, imb_country, imbseeding, imbar, imbsex, imatchscore, imatchlongscore
        from schedule where eid = ? order by "match")",
        open.draw.curr_eid);
    while (rows.step()) {
        const auto sid = rows.integer(0);
        auto fill = [&](int address_column, int first) {
            const auto at = OpenDraw::split_mtmb(rows.text(address_column));
            if (!at || !open.has_slot(at->level, at->position))
                return;
            auto& slot = open.slot(*at);
            slot.ttt = rows.text(first);
            slot.frn = rows.text(first + 1);
            slot.tag = rows.text(first + 2);
            slot.country = rows.text(first + 3);
            slot.seed = rows.text(first + 4);
            slot.ar = rows.text(first + 5);
            slot.sex = rows.text(first + 6);
            slot.sid = sid;
        };
        fill(1, 4);
        fill(2, 11);
        if (const auto next = OpenDraw::split_mtmb(rows.text(3)); next && open.has_slot(next->level, next->position)) {
            auto& score = open.slot(*next).score;
            score.matchscore = rows.text(18);
            score.matchlongscore = rows.text(19);
        }
    }
}

void BF_load_draw(Session& session, OpenDraw& open, std::int64_t eid, const DrawSaveHooks& hooks)
{
    auto& draw = open.draw;
    auto& db = session.tournament();
    // "do all draws" loads each event in turn and keeps its flag up over the loads.
    const bool all_draws = draw.all_draws;
    draw = DrawState {};
    draw.all_draws = all_draws;
    open.clear_tree();
    load_event_state(db, eid, draw);
    if (draw.drawsize == 0 || db.scalar_integer("select count(*) from schedule where eid = ?", eid) == 0)
        return;
    draw.on_screen = true;
    reload(session, open, hooks);
    set_changed_recs(db, open);
}

void BF_refresh_draw(Session& session, OpenDraw& open, const DrawSaveHooks& hooks)
{
    auto& draw = open.draw;
    if (draw.curr_eid == 0 || !draw.on_screen || draw.new_draw)
        return;
    reload(session, open, hooks);
    set_changed_recs(session.tournament(), open);
}

} // namespace qv
