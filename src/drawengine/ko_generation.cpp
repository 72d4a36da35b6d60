#include "drawengine/ko_generation.h"

#include "core/database.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "drawengine/ko_placing.h"
#include "drawengine/name_forms.h"
#include "drawengine/seeding_patterns.h"
#include "entries/main_lists.h"

#include <optional>
#include <tuple>

namespace qv {

namespace {

// The entries of the event that take part, in the table's order.
std::vector<DrawEntry> read_draw_entries(Database& tournament, std::int64_t eid)
{
    std::vector<DrawEntry> entries;
    for (auto rows = tournament.query(
             "select player, seeding, country, ar, psex from evententries where eid = ? and reserve = 0 order by rowid",
             eid);
         rows.step();)
        entries.push_back({ rows.text(0), rows.text(1), rows.text(2), rows.text(3), rows.text(4) });
    return entries;
}

// Keeps the all-draws flag up only while the run lasts, also when a database fault ends it early.
class AllDrawsFlag
{
public:
    explicit AllDrawsFlag(DrawState& draw)
        : m_draw(draw)
    {
        m_draw.all_draws = true;
    }
    AllDrawsFlag(const AllDrawsFlag&) = delete;
    AllDrawsFlag& operator=(const AllDrawsFlag&) = delete;
    ~AllDrawsFlag() { m_draw.all_draws = false; }

private:
    DrawState& m_draw;
};

} // namespace

EntryMarks register_marks(Database& tournament, const std::string& player)
{
    std::vector<std::string> names;
    if (player.find('/') != std::string::npos) {
        auto pair = split_pair(player);
        names = { std::move(pair.left), std::move(pair.right) };
    } else {
        names = { trim(player) };
    }
    EntryMarks marks;
    for (std::size_t n = 0; n < names.size(); ++n) {
        auto person = tournament.query(
            "select country, availabilityrestrictions from players where player = ? order by rowid limit 1", names[n]);
        const bool found = person.step();
        if (n > 0)
            marks.country += "/";
        if (found) {
            marks.country += person.text(0);
            if (!is_empty(person.text(1)))
                marks.ar += ".";
        }
    }
    return marks;
}

int get_random(DrawRandom& random, bool flag)
{
    return flag ? 2 + static_cast<int>(random.pick(2)) : 1 + static_cast<int>(random.pick(3));
}

void KO_do_draw_jumble1(std::vector<std::string>& hold, std::vector<std::string>& hold2, DrawRandom& random)
{
    while (!hold.empty()) {
        const auto k = static_cast<std::ptrdiff_t>(random.pick(hold.size()));
        hold2.push_back(std::move(hold[static_cast<std::size_t>(k)]));
        hold.erase(hold.begin() + k);
    }
}

void KO_do_draw_jumble2(std::vector<std::string>& hold, std::vector<std::string>& hold2, DrawRandom& random)
{
    hold.clear();
    while (!hold2.empty()) {
        const auto k = static_cast<std::ptrdiff_t>(random.pick(hold2.size()));
        hold.push_back(std::move(hold2[static_cast<std::size_t>(k)]));
        hold2.erase(hold2.begin() + k);
    }
}

std::vector<std::pair<std::string, std::string>> refresh_ar_countries(Database& tournament, std::int64_t eid)
{
    struct Entry
    {
        std::int64_t row = 0;
        std::string player, country, ar;
        bool has_null = false;
    };
    std::vector<Entry> entries;
    for (auto rows = tournament.query(R"(select rowid, player, country, ar, country is null or ar is null
             from evententries where eid = ? and reserve = 0 order by rowid)",
             eid);
         rows.step();)
        entries.push_back({ rows.integer(0), rows.text(1), rows.text(2), rows.text(3), rows.integer(4) != 0 });

    std::vector<std::pair<std::string, std::string>> written;
    written.reserve(entries.size());
    for (const auto& entry : entries) {
        auto marks = register_marks(tournament, entry.player);
        // A row that already holds these values is left alone: the write would change nothing.
        if (entry.has_null || marks.country != entry.country || marks.ar != entry.ar)
            tournament.run(
                "update evententries set country = ?, ar = ? where rowid = ?", marks.country, marks.ar, entry.row);
        written.emplace_back(std::move(marks.country), std::move(marks.ar));
    }
    return written;
}

void pull_ar_countries(Database& tournament, std::int64_t eid)
{
    refresh_ar_countries(tournament, eid);
}

void load_event_state(Database& tournament, std::int64_t eid, DrawState& draw)
{
    auto event = tournament.query(R"(select eventname, sex, drawtype, singdobs, pts, drawsize, min_sid, max_sid,
        timestamp_text from events where eid = ?)",
        eid);
    draw.curr_eid = eid;
    if (!event.step())
        return;
    draw.eventname = event.text("eventname");
    draw.evtsex = event.text("sex");
    draw.drawtype = event.text("drawtype");
    draw.singdobs = event.text("singdobs");
    draw.pts = static_cast<int>(event.integer("pts"));
    draw.drawsize = static_cast<int>(event.integer("drawsize"));
    draw.rounds = round_count(draw.drawsize) + 1;
    draw.min_sid = event.integer("min_sid");
    draw.max_sid = event.integer("max_sid");
    draw.timestamp_text = event.text("timestamp_text");
}

bool KO_do_draw2(Session& session, OpenDraw& open, DrawRandom& random, const DrawHooks& hooks)
{
    auto& db = session.tournament();
    auto& draw = open.draw;
    const auto eid = draw.curr_eid;

    std::int64_t wildcards = 0;
    std::int64_t qualifiers = 0;
    if (auto event = db.query("select wildcards, qualifiers, singdobs from events where eid = ?", eid); event.step()) {
        wildcards = event.integer("wildcards");
        qualifiers = event.integer("qualifiers");
        draw.singdobs = event.text("singdobs");
    }
    auto entries = read_draw_entries(db, eid);
    if (entries.empty() && wildcards + qualifiers <= 0) {
        if (!draw.all_draws)
            session.talk().message("no players");
        return false;
    }

    // Everything is read once, placed and named in memory; only the refresh of the entries' marks writes.
    Transaction transaction(db);
    if (session.settings().integer("refresh_ac_on_do_draw") == 1) {
        const auto marks = refresh_ar_countries(db, eid);
        for (std::size_t k = 0; k < entries.size() && k < marks.size(); ++k)
            std::tie(entries[k].country, entries[k].ar) = marks[k];
    }

    auto names = KO_candidate_names(entries, wildcards, qualifiers);
    const int count = static_cast<int>(names.size());
    if (count > 128 && !draw.all_draws)
        session.talk().message("max 128 players, you have " + std::to_string(count) + ",edit in draw config");
    const int drawsize = calcdrawsize(count);
    // A size past 128 has no tree to place into: the draw stops here rather than leave a draw nobody can use.
    if (round_count(drawsize) == 0) {
        transaction.commit();
        return false;
    }
    const auto stage = KO_place_draw(
        std::move(names), entries, drawsize, default_seed_positions(session.init_db(), drawsize), random);

    open.build_tree(drawsize);
    KO_pull_draw_stage2(stage.stage2, open);
    k_fmt_names_current_pre_draw(db, open);
    transaction.commit();

    draw.on_screen = true;
    draw.new_draw = true;
    if (hooks.set_scoreboxes)
        hooks.set_scoreboxes(open, session.settings().integer("draw.ihilightscorebox") == 1);
    if (session.settings().integer("draw.byes_thru_on_do_draw") == 1 && hooks.sendbyesthru)
        hooks.sendbyesthru(open);
    if (hooks.show_draw)
        hooks.show_draw(open);
    return true;
}

void KO_pull_draw_stage2(const std::vector<StageSlot>& stage2, OpenDraw& open)
{
    for (std::size_t k = 0; k < stage2.size(); ++k) {
        const int i = static_cast<int>(k) + 1;
        if (!open.has_slot(1, i))
            continue;
        const auto& from = stage2[k];
        auto& slot = open.slot(1, i);
        slot.ttt = slot.frn = slot.tag = from.player;
        slot.seed = from.seed;
        // Only a single code fits the draw sheet; a pair's "a/b" is left off.
        slot.country = from.cty.find('/') == std::string::npos && char_count(from.cty) <= 3 ? from.cty : std::string();
        slot.ar = from.ar;
        slot.sex = from.psex;
    }
}

bool RR_KO_delete_draw(Session& session, OpenDraw& open)
{
    auto& draw = open.draw;
    if (!draw.on_screen || draw.drawsize == 0 || draw.curr_eid == 0)
        return true;
    const auto answer
        = session.talk().ask("This will delete the draw data including any schedule data that may exist,continue?",
            "Confirm", Buttons::YesNoCancel);
    if (answer != Answer::Yes)
        return false;
    open.clear_tree();
    auto& db = session.tournament();
    db.run("delete from schedule where eid = ?", draw.curr_eid);
    db.run("update events set drawdone = 0, drawsize = 0, timestamp_text = '' where eid = ?", draw.curr_eid);
    db.run("update evententries set drawdone = 0 where eid = ?", draw.curr_eid);
    // The event's "*" goes, and with it everything that lists draws or shows the schedule board.
    session.refresh_lists(Lists::events);
    session.refresh_lists(Lists::draw);
    draw.on_screen = false;
    return true;
}

void DODRAW(Session& session, OpenDraw& open, DrawRandom& random, const DrawHooks& hooks)
{
    if (open.draw.curr_eid == 0)
        return;
    // The draw stays on show while the user is asked; only a Yes takes it away, before the new one is placed.
    const bool had_draw = open.draw.on_screen;
    if (!RR_KO_delete_draw(session, open))
        return;
    if (had_draw && !open.draw.on_screen && hooks.show_draw)
        hooks.show_draw(open);
    if (open.draw.drawtype == "ko")
        KO_do_draw2(session, open, random, hooks);
    else if (open.draw.drawtype == "rr" && hooks.round_robin)
        hooks.round_robin(open);
}

void do_all_draws(
    Session& session, OpenDraw& open, DrawRandom& random, const DrawHooks& hooks, const AllDrawsSteps& steps)
{
    if (steps.close_draw && !steps.close_draw(open))
        return;
    {
        // One unit of work: a failure part way leaves every event as it was.
        Transaction transaction(session.tournament());
        AllDrawsFlag flag(open.draw);
        // Only the events the list shows: a filtered-out event keeps having no draw.
        const auto lines = steps.event_lines ? steps.event_lines() : loadevents(session.tournament());
        for (const auto& line : lines) {
            if (line.text.find('*') != std::string::npos)
                continue;
            if (steps.load_draw) {
                steps.load_draw(open, line.id);
            } else {
                load_event_state(session.tournament(), line.id, open.draw);
                open.clear_tree();
                open.draw.on_screen = false;
                open.draw.new_draw = false;
            }
            if (steps.breathe)
                steps.breathe();
            DODRAW(session, open, random, hooks);
            if (steps.save_draw_doing_all_draws)
                steps.save_draw_doing_all_draws(open);
        }
        if (steps.close_draw_special)
            steps.close_draw_special(open);
        if (steps.save_draw_END_doing_all_draws)
            steps.save_draw_END_doing_all_draws(open);
        transaction.commit();
    }
    session.talk().message("ok");
}

} // namespace qv
