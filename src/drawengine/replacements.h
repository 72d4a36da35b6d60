#pragma once

#include "drawengine/draw_saving.h"
#include "drawengine/open_draw.h"

#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// What a first-round slot holds, as the first-round menu tells them apart.
enum class R1Kind { player, wildcard, qualifier, bye };
R1Kind r1_kind(std::string_view name);

// The lines of the first-round menu for the slot at position, in order.
std::vector<std::string> r1_rmc(const OpenDraw& draw, int position);

// Before any change of a first-round slot: refused while its match has a result, then the open draw is left
// (the question about waiting changes). False stops the change.
bool r1_change_allowed(Session& session, OpenDraw& draw, int position, const DrawSaveHooks& hooks);

// "set as bye", "set as wildcard", "set as qualifier": the word is "bye", "wildcard" or "qualifier". A player
// who leaves the draw becomes a reserve. False when refused.
bool set_as_bye(Session& session, OpenDraw& draw, int position, std::string_view word, const DrawSaveHooks& hooks);

// The event's reserves by name, as the replacement list offers them.
std::vector<std::string> event_reserves(Database& tournament, std::int64_t eid);

// True (and said) when the name, or for doubles either of its people, already stands in the first round.
bool REP_already_in_draw(Session& session, const OpenDraw& draw, std::string_view name);

// The reserve new_name takes the slot: the leaving player becomes a reserve, the new one stops being one, and the
// slot gets the new names. False when refused.
bool REP_replace_player_or_team1(
    Session& session, OpenDraw& draw, std::string_view new_name, int position, const DrawSaveHooks& hooks);

// Other first-round and sub-round forms for the slot's player; the full name stays.
bool overidenames(Session& session, OpenDraw& draw, int position, std::string_view frn, std::string_view tag,
    const DrawSaveHooks& hooks);

// A first-round slot's seed text, and its country: one code for singles, one per person for doubles.
bool override_seeding(
    Session& session, OpenDraw& draw, int position, std::string_view seed, const DrawSaveHooks& hooks);
bool overidecountry_singles(
    Session& session, OpenDraw& draw, int position, std::string_view country, const DrawSaveHooks& hooks);
bool overidecountry_doubles(Session& session, OpenDraw& draw, int position, std::string_view first,
    std::string_view second, const DrawSaveHooks& hooks);

} // namespace qv
