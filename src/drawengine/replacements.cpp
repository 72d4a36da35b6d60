#include "drawengine/replacements.h"

#include "core/database.h"
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "drawengine/name_forms.h"

namespace qv {

namespace {

bool begins(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

bool has_result(const OpenDraw& open, int position)
{
    const int next = OpenDraw::next_position(position);
    return open.has_slot(2, next) && !open.is_empty(2, next);
}

bool first_round_slot(const OpenDraw& open, int position)
{
    return open.draw.on_screen && open.draw.drawtype != "rr" && open.has_slot(1, position);
}

// The slot written at once: its match row and the row its winner goes to, then the draw saved.
void save_slot(Session& session, OpenDraw& open, int position, const DrawSaveHooks& hooks)
{
    KO_imm_save(session, open, 1, position);
    save_draw(session, open, hooks);
}

// A country fits the draw sheet as one code of at most three characters.
std::string sheet_country(const std::string& country)
{
    return country.find('/') == std::string::npos && char_count(country) <= 3 ? country : std::string();
}

// The slot's names, seed mark and data for the entry now standing in it.
void REP_k_fmt_names_current_pre_draw(Database& db, OpenDraw& open, int position, std::string_view name)
{
    auto& slot = open.slot(1, position);
    slot.ttt.clear();
    slot.frn.clear();
    slot.tag.clear();
    NameCounter counter;
    const auto forms = form_slot_names(
        db, open.draw.curr_eid, name, [&](std::string_view candidate) { return k_isunique_ko(open, candidate); },
        counter);
    slot.ttt = forms.ttt;
    slot.frn = forms.frn;
    slot.tag = forms.tag;
    // "wc" and "q" mark the place holder that has just been filled; a seed belongs to the slot and stays.
    if (slot.seed == "wc" || slot.seed == "q")
        slot.seed.clear();
    auto entry = db.query("select country, ar, psex from evententries where eid=? and lower(trim(player))=? limit 1",
        open.draw.curr_eid, name_key(name));
    if (entry.step()) {
        slot.country = sheet_country(entry.text("country"));
        slot.ar = entry.text("ar");
        slot.sex = sex_code(entry.text("psex"));
    } else {
        slot.country.clear();
        slot.ar.clear();
        slot.sex.clear();
    }
}

// The refusal of seed and country changes once the slot's player has a result.
bool refuse_played(Session& session, const OpenDraw& open, int position, std::string_view what)
{
    if (!has_result(open, position))
        return false;
    session.talk().message("cannot overide " + std::string(what) + " when player has already played a "
        + current_sport_words(session).match);
    return true;
}

} // namespace

R1Kind r1_kind(std::string_view name)
{
    const auto key = name_key(name);
    if (key == "bye")
        return R1Kind::bye;
    if (begins(key, "wildcard"))
        return R1Kind::wildcard;
    if (begins(key, "qualifier"))
        return R1Kind::qualifier;
    return R1Kind::player;
}

std::vector<std::string> r1_rmc(const OpenDraw& open, int position)
{
    if (!open.has_slot(1, position))
        return {};
    switch (r1_kind(open.slot(1, position).ttt)) {
    case R1Kind::wildcard:
        return { "replace", "set as bye", "set as qualifier", "cancel" };
    case R1Kind::qualifier:
        return { "replace", "set as bye", "set as wildcard", "cancel" };
    case R1Kind::bye:
        return { "replace", "set as wildcard", "set as qualifier", "cancel" };
    case R1Kind::player:
        break;
    }
    return { "replace", "set as bye", "set as wildcard", "set as qualifier", "overide name", "cancel" };
}

bool r1_change_allowed(Session& session, OpenDraw& open, int position, const DrawSaveHooks& hooks)
{
    if (!first_round_slot(open, position))
        return false;
    if (has_result(open, position)) {
        session.talk().message("cannot modify round1 while match played, clear result first");
        return false;
    }
    // The changes act on a saved draw: a new one the user chose not to save stays as it is.
    return leave_draw(session, open, LeaveReason::closingdraws, hooks) && !open.draw.new_draw;
}

bool set_as_bye(Session& session, OpenDraw& open, int position, std::string_view word, const DrawSaveHooks& hooks)
{
    if (word != "bye" && word != "wildcard" && word != "qualifier")
        return false;
    if (!r1_change_allowed(session, open, position, hooks))
        return false;
    if (word == "bye" && r1_kind(open.slot(1, OpenDraw::partner(position)).ttt) == R1Kind::bye) {
        session.talk().message("cannot introduce a double bye");
        return false;
    }
    auto& db = session.tournament();
    Transaction transaction(db);
    auto& slot = open.slot(1, position);
    slot.seed = word == "bye" ? "" : word == "wildcard" ? "wc" : "q";
    const auto old = slot.ttt;
    slot.ttt = slot.frn = slot.tag = std::string(word);
    slot.ar.clear();
    slot.sex.clear();
    slot.country.clear();
    if (r1_kind(old) == R1Kind::player)
        db.run("Update evententries set reserve=true where lower(trim(player))=? and eid=?", name_key(old),
            open.draw.curr_eid);
    save_slot(session, open, position, hooks);
    transaction.commit();
    return true;
}

std::vector<std::string> event_reserves(Database& tournament, std::int64_t eid)
{
    std::vector<std::string> names;
    for (auto rows
         = tournament.query("select player from evententries where eid=? and reserve<>0 order by player", eid);
         rows.step();)
        names.push_back(rows.text(0));
    return names;
}

bool REP_already_in_draw(Session& session, const OpenDraw& open, std::string_view name)
{
    const auto key = name_key(name);
    const bool doubles = open.draw.singdobs == "doubles";
    const auto halves = split_pair(name);
    for (int position = 1; position <= open.positions(1); ++position) {
        const auto& ttt = open.slot(1, position).ttt;
        if (!doubles) {
            if (name_key(ttt) == key) {
                session.talk().message("player already in draw");
                return true;
            }
            continue;
        }
        if (name_key(ttt) == key) {
            session.talk().message(std::string(name) + " already in the draw");
            return true;
        }
        const auto in_slot = split_pair(ttt);
        for (const auto* half : { &halves.left, &halves.right }) {
            if (half->empty())
                continue;
            if (same_name(*half, in_slot.left) || same_name(*half, in_slot.right)) {
                session.talk().message(*half + " already in the draw, team " + ttt);
                return true;
            }
        }
    }
    return false;
}

bool REP_replace_player_or_team1(
    Session& session, OpenDraw& open, std::string_view new_name, int position, const DrawSaveHooks& hooks)
{
    if (!r1_change_allowed(session, open, position, hooks))
        return false;
    if (REP_already_in_draw(session, open, new_name))
        return false;
    auto& db = session.tournament();
    Transaction transaction(db);
    const auto eid = open.draw.curr_eid;
    db.run("Update evententries set reserve=true where lower(trim(player))=? and eid=?",
        name_key(open.slot(1, position).ttt), eid);
    db.run("Update evententries set reserve=false where lower(trim(player))=? and eid=?", name_key(new_name), eid);
    REP_k_fmt_names_current_pre_draw(db, open, position, trim(new_name));
    save_slot(session, open, position, hooks);
    transaction.commit();
    return true;
}

bool overidenames(Session& session, OpenDraw& open, int position, std::string_view frn, std::string_view tag,
    const DrawSaveHooks& hooks)
{
    // A slot whose forms are empty would count as an empty slot.
    if (!first_round_slot(open, position))
        return false;
    for (const auto text : { frn, tag })
        if (!report(session.talk(), value_required(text))
            || !report(session.talk(), check_class(text, ValueClass::overidenames)))
            return false;
    if (!r1_change_allowed(session, open, position, hooks))
        return false;
    Transaction transaction(session.tournament());
    auto& slot = open.slot(1, position);
    slot.frn = left_chars(trim(frn), frn_limit);
    slot.tag = left_chars(trim(tag), tag_limit);
    save_slot(session, open, position, hooks);
    transaction.commit();
    return true;
}

bool override_seeding(Session& session, OpenDraw& open, int position, std::string_view seed, const DrawSaveHooks& hooks)
{
    if (!first_round_slot(open, position) || refuse_played(session, open, position, "seeding")
        || !report(session.talk(), check_class(seed, ValueClass::alphanumeric)))
        return false;
    if (!leave_draw(session, open, LeaveReason::closingdraws, hooks))
        return false;
    Transaction transaction(session.tournament());
    open.slot(1, position).seed = trim(seed);
    save_slot(session, open, position, hooks);
    transaction.commit();
    return true;
}

bool overidecountry_singles(
    Session& session, OpenDraw& open, int position, std::string_view country, const DrawSaveHooks& hooks)
{
    if (!first_round_slot(open, position) || refuse_played(session, open, position, "country")
        || !report(session.talk(), check_class(country, ValueClass::country)))
        return false;
    if (!leave_draw(session, open, LeaveReason::closingdraws, hooks))
        return false;
    Transaction transaction(session.tournament());
    open.slot(1, position).country = trim(country);
    save_slot(session, open, position, hooks);
    transaction.commit();
    return true;
}

bool overidecountry_doubles(Session& session, OpenDraw& open, int position, std::string_view first,
    std::string_view second, const DrawSaveHooks& hooks)
{
    if (!first_round_slot(open, position))
        return false;
    switch (r1_kind(open.slot(1, position).ttt)) {
    case R1Kind::bye:
        session.talk().message("cannot overide bye (country) in doubles");
        return false;
    case R1Kind::wildcard:
        session.talk().message("cannot overide wildcard (country) in doubles");
        return false;
    case R1Kind::qualifier:
        session.talk().message("cannot overide qualifier (country) in doubles");
        return false;
    case R1Kind::player:
        break;
    }
    if (refuse_played(session, open, position, "country")
        || !report(session.talk(), check_class(first, ValueClass::country))
        || !report(session.talk(), check_class(second, ValueClass::country)))
        return false;
    if (!leave_draw(session, open, LeaveReason::closingdraws, hooks))
        return false;
    Transaction transaction(session.tournament());
    open.slot(1, position).country = trim(first) + "/" + trim(second);
    save_slot(session, open, position, hooks);
    transaction.commit();
    return true;
}

} // namespace qv
