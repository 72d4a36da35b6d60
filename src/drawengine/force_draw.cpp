#include "drawengine/force_draw.h"

#include "core/app_dirs.h"
#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "drawengine/name_forms.h"
#include "drawengine/seeding_patterns.h"

#include <algorithm>
#include <utility>

namespace qv {

namespace {

ForceEntry entry_of(const Statement& row)
{
    return { row.text("player"), row.text("country"), row.text("ar"), row.text("psex"), row.integer("ent_idx") };
}

// Refreshes the layout's countries and availability marks from the register.
void pull_ar_countries_FD(Database& db, std::int64_t eid)
{
    std::vector<std::pair<std::int64_t, std::string>> rows;
    for (auto row = db.query("select rowid, player from force_draw where eid=? and player<>'bye'", eid); row.step();)
        rows.emplace_back(row.integer(0), row.text(1));
    for (const auto& [rowid, player] : rows) {
        const auto marks = register_marks(db, player);
        db.run("update force_draw set country=?, ar=? where rowid=?", marks.country, marks.ar, rowid);
    }
}

} // namespace

std::string force_slot_line(const ForceSlot& slot)
{
    const bool seeded = !slot.seed.empty() && slot.seed != "0";
    return "(" + std::to_string(slot.pos) + ")[" + (seeded ? "s" + slot.seed : std::string()) + "]" + slot.entry.player;
}

void ForceDrawLayout::load(Database& db, std::int64_t eid, ForceOrder order)
{
    m_order = order;
    m_players.clear();
    m_slots.clear();
    for (auto rows = db.query(R"(select * from evententries where eid=? and reserve=0
             and player not in (select player from force_draw where eid=?))",
             eid, eid);
         rows.step();)
        m_players.push_back(entry_of(rows));
    sort_players();
    for (auto rows = db.query("select * from force_draw where eid=? order by pos", eid); rows.step();) {
        ForceSlot slot;
        slot.pos = static_cast<int>(rows.integer("pos"));
        // An empty seed mark, "[s]", stands for no seed.
        slot.seed = rows.text("seed");
        slot.entry = { rows.text("player"), rows.text("country"), rows.text("ar"), rows.text("psex"), 0 };
        m_slots.push_back(std::move(slot));
    }
}

void ForceDrawLayout::set_target_size(Session& session, std::int64_t eid, int drawsize, ForceOrder order)
{
    auto& init = session.init_db();
    const auto name = default_pattern_name(init, drawsize);
    const auto pattern = seed_positions_by_name(init, name);
    session.tournament().run("delete from force_draw where eid=?", eid);
    load(session.tournament(), eid, order);
    m_slots.clear();
    for (int p = 1; p <= drawsize; ++p) {
        ForceSlot slot;
        slot.pos = p;
        const auto found
            = std::find_if(pattern.begin(), pattern.end(), [p](const SeedPosition& at) { return at.pos == p; });
        if (found != pattern.end() && found->seed != 0)
            slot.seed = std::to_string(found->seed);
        m_slots.push_back(std::move(slot));
    }
}

void ForceDrawLayout::set_order(ForceOrder order)
{
    m_order = order;
    sort_players();
}

void ForceDrawLayout::sort_players()
{
    if (m_order == ForceOrder::by_insertion)
        std::stable_sort(m_players.begin(), m_players.end(),
            [](const ForceEntry& a, const ForceEntry& b) { return a.ent_idx < b.ent_idx; });
    else
        std::stable_sort(m_players.begin(), m_players.end(),
            [](const ForceEntry& a, const ForceEntry& b) { return a.player < b.player; });
}

void ForceDrawLayout::give_back(ForceEntry entry)
{
    if (entry.player == "bye")
        return;
    m_players.push_back(std::move(entry));
    sort_players();
}

bool ForceDrawLayout::insert(Session& session, std::optional<std::size_t> player, std::optional<std::size_t> slot)
{
    if (!player || *player >= m_players.size()) {
        session.talk().message("select player on left");
        return false;
    }
    if (!slot || *slot >= m_slots.size()) {
        session.talk().message("select position on right");
        return false;
    }
    auto entry = m_players[*player];
    m_players.erase(m_players.begin() + static_cast<std::ptrdiff_t>(*player));
    give_back(std::exchange(m_slots[*slot].entry, std::move(entry)));
    return true;
}

bool ForceDrawLayout::remove(Session& session, std::optional<std::size_t> slot)
{
    if (!slot || *slot >= m_slots.size()) {
        session.talk().message("select position on right");
        return false;
    }
    give_back(std::exchange(m_slots[*slot].entry, ForceSlot {}.entry));
    return true;
}

bool ForceDrawLayout::mirror(Session& session, const std::vector<std::size_t>& slots)
{
    if (m_players.empty()) {
        session.talk().message("select players");
        return false;
    }
    if (slots.empty()) {
        session.talk().message("select position on right");
        return false;
    }
    for (const auto at : slots) {
        if (m_players.empty())
            break;
        if (at < m_slots.size())
            insert(session, std::size_t { 0 }, at);
    }
    return true;
}

void ForceDrawLayout::save(Session& session, std::int64_t eid, bool ignore_seeding) const
{
    auto& db = session.tournament();
    Transaction transaction(db);
    db.run("delete from force_draw where eid=?", eid);
    auto insert = db.query(R"(insert into force_draw (eid, pos, seed, player, country, psex, ar)
        values (?, ?, ?, ?, ?, ?, ?))");
    for (std::size_t k = 0; k < m_slots.size(); ++k) {
        const auto& slot = m_slots[k];
        const bool bye = slot.entry.player == "bye";
        insert.bind_all(eid, static_cast<std::int64_t>(k + 1), ignore_seeding || bye ? std::string() : slot.seed,
            slot.entry.player, slot.entry.country, slot.entry.psex, slot.entry.ar);
        insert.step();
        insert.reset();
    }
    transaction.commit();
    session.talk().message("ok");
}

bool no_force_draw_data_exists(Session& session, std::int64_t eid)
{
    if (session.tournament().scalar_integer("select count(*) from force_draw where eid=?", eid) > 0)
        return false;
    session.talk().message("No force draw configuration defined");
    return true;
}

bool force_draw_ambiguities(Session& session, std::int64_t eid)
{
    std::vector<std::string> missing;
    for (auto rows = session.tournament().query(R"(select player from force_draw where eid=? and player<>'bye'
             and player not in (select player from evententries where eid=?) order by pos)",
             eid, eid);
         rows.step();)
        missing.push_back(rows.text(0));
    if (missing.empty())
        return false;
    std::vector<std::string> lines { "force draw errors",
        "1) Your force draw configuration contains players that are not in your event entries (non-reserve) for "
        "this draw",
        "2) All players that are in your force draw configuration must be in your event entries (non-reserve)",
        "3) Players were restored/removed using the 'resolve doubles' tool",
        "3) Players were removed using the 'draw configuration' tool,'remove' function",
        "4) The following players are in your force draw configuration but not in your event entries "
        "(non-reserve)" };
    lines.insert(lines.end(), missing.begin(), missing.end());
    lines.push_back("5)You can reset your force draw configuration using the 'force draw config'. tool");
    const auto file = session.dirs().working / "temp.txt";
    write_text_file(file, lines);
    session.talk().show_text(file, "Force Draw Ambiguity");
    return true;
}

void KO_pull_force_draw(Session& session, OpenDraw& open)
{
    auto& db = session.tournament();
    const auto eid = open.draw.curr_eid;
    if (session.settings().integer("refresh_ac_on_do_draw") == 1)
        pull_ar_countries_FD(db, eid);
    for (auto rows = db.query("select * from force_draw where eid=? order by pos", eid); rows.step();) {
        const int pos = static_cast<int>(rows.integer("pos"));
        if (!open.has_slot(1, pos))
            continue;
        auto& slot = open.slot(1, pos);
        const auto country = rows.text("country");
        slot.country = char_count(country) <= 3 ? country : std::string();
        slot.seed = trim(rows.text("seed"));
        slot.ttt = slot.frn = slot.tag = rows.text("player");
        slot.ar = rows.text("ar");
        slot.sex = sex_code(rows.text("psex"));
    }
}

void KO_FORCE_DRAW(Session& session, OpenDraw& open, const DrawHooks& hooks)
{
    auto& db = session.tournament();
    auto& draw = open.draw;
    const int drawsize
        = static_cast<int>(db.scalar_integer("select count(*) as cnt from force_draw where eid=?", draw.curr_eid));
    draw.drawtype = "ko";
    open.build_tree(drawsize);
    KO_pull_force_draw(session, open);
    k_fmt_names_current_pre_draw(db, open);
    if (hooks.set_scoreboxes)
        hooks.set_scoreboxes(open, session.settings().integer("draw.ihilightscorebox") == 1);
}

bool FORCEDRAW(Session& session, OpenDraw& open, const DrawHooks& hooks)
{
    auto& draw = open.draw;
    const auto eid = draw.curr_eid;
    if (eid == 0)
        return false;
    const bool had_draw = draw.on_screen;
    if (!RR_KO_delete_draw(session, open))
        return false;
    if (had_draw && !draw.on_screen && hooks.show_draw)
        hooks.show_draw(open);
    if (no_force_draw_data_exists(session, eid) || force_draw_ambiguities(session, eid))
        return false;
    Transaction transaction(session.tournament());
    session.tournament().run("delete from schedule where eid=?", eid);
    draw.new_draw = true;
    open.clear_tree();
    KO_FORCE_DRAW(session, open, hooks);
    transaction.commit();
    draw.on_screen = true;
    draw.force_draw = true;
    if (hooks.show_draw)
        hooks.show_draw(open);
    return true;
}

void force_draw_fix_players(Database& tournament, std::int64_t eid)
{
    tournament.run("update evententries set reserve=true where player not in (select player from force_draw where "
                   "eid=?) and eid=?",
        eid, eid);
    tournament.run(
        "update evententries set reserve=false where player in (select player from force_draw where eid=?) and eid=?",
        eid, eid);
}

} // namespace qv
