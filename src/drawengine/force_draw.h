#pragma once

#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/open_draw.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// A player of the event as the layout offers and places them; their details travel with the name.
struct ForceEntry
{
    std::string player;
    std::string country;
    std::string ar;
    std::string psex;
    std::int64_t ent_idx = 0;
};

// One slot of a hand-made layout (a row of force_draw). `seed` is the pattern's seed number as text, "" for none.
struct ForceSlot
{
    int pos = 0;
    std::string seed;
    ForceEntry entry { "bye", {}, {}, {}, 0 };
};

// "(pos)[sN]name": "[]" for a slot with no seed in the pattern. The line the window shows for a slot.
std::string force_slot_line(const ForceSlot& slot);

enum class ForceOrder { by_player, by_insertion };

// The layout being edited: the players not yet placed on the left, the slots on the right.
class ForceDrawLayout
{
public:
    // The saved layout of the event (empty when there is none) and the players it leaves.
    void load(Database& tournament, std::int64_t eid, ForceOrder order);
    // "target draw size": every slot a "bye" with its seed from the size's default pattern; the saved layout is
    // deleted at once and every player is on the left again.
    void set_target_size(Session& session, std::int64_t eid, int drawsize, ForceOrder order);

    // "order by insertion order" on or off: the players list sorted again, the layout kept.
    void set_order(ForceOrder order);

    // The selected player onto the selected slot; a player already there goes back to the left.
    bool insert(Session& session, std::optional<std::size_t> player, std::optional<std::size_t> slot);
    // The slot's player back to the left; the slot holds "bye".
    bool remove(Session& session, std::optional<std::size_t> slot);
    // The first players on the left onto the chosen slots, one after the other.
    bool mirror(Session& session, const std::vector<std::size_t>& slots);
    // "save": the layout into force_draw, then "ok".
    void save(Session& session, std::int64_t eid, bool ignore_seeding) const;

    const std::vector<ForceEntry>& players() const { return m_players; }
    const std::vector<ForceSlot>& positions() const { return m_slots; }

private:
    void sort_players();
    void give_back(ForceEntry entry);

    std::vector<ForceEntry> m_players;
    std::vector<ForceSlot> m_slots;
    ForceOrder m_order = ForceOrder::by_player;
};

// True (and said) when the event has no layout.
bool no_force_draw_data_exists(Session& session, std::int64_t eid);
// True when the layout names players the entries no longer have; the report is then shown.
bool force_draw_ambiguities(Session& session, std::int64_t eid);

// The layout's slots into the first round of a new tree, then the names formed.
void KO_pull_force_draw(Session& session, OpenDraw& draw);
void KO_FORCE_DRAW(Session& session, OpenDraw& draw, const DrawHooks& hooks = {});
// "force draw": the event's layout becomes its open draw, to be saved like any other.
bool FORCEDRAW(Session& session, OpenDraw& draw, const DrawHooks& hooks = {});
// After the save of a new force draw: players off the layout become reserves, those on it stop being reserves.
void force_draw_fix_players(Database& tournament, std::int64_t eid);

} // namespace qv
