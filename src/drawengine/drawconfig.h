#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The three lists of the editor: seeds ("(n)name"), ordinary players, and "reserves/defaults/excludes".
enum class ConfigList { seeds, players, reserves };
// The two boxes of open places.
enum class ConfigBox { wildcards, qualifiers };
enum class SeedMove { up, down };

// One line of a list: the text shown and the entry row it stands for.
struct ConfigLine
{
    std::string text;
    std::int64_t ent_idx = 0;
    bool selected = false;
};

// The event as the editor reads it (`get_singdobs_drawtype`).
struct ConfigEvent
{
    std::string singdobs;
    std::string drawtype;
    std::string eventname;
    bool drawdone = false;
    std::int64_t wildcards = 0;
    std::int64_t qualifiers = 0;
    int pts = 0;
};

// What the editor shows under its lists; drawsize 0 shows as an empty size.
struct ConfigCounts
{
    int seeds = 0;
    int players = 0;
    int reserves = 0;
    int drawsize = 0;
};

// The draw type line; the index is stored in events.pts, index 0 being the knock-out.
inline constexpr std::array<std::string_view, 4> draw_type_lines { "ko", "rr-allocate points,scores locked",
    "rr-a win is a point,scores open", "rr-allocate points,scores open" };

inline constexpr std::string_view drawconfig_locked_note = "delete draw to edit draw configuration";
inline constexpr std::string_view doubles_remove_tip = "cannot remove entries for doubles,use resolve tool";

// What the editor needs from the draw window, which is built elsewhere and may not be there at all.
struct DrawConfigHooks
{
    // Told after a save: the draw window compares the event with the one it shows and takes the new type.
    std::function<void(std::int64_t eid, const std::string& drawtype, int pts)> drawconfig_change;
    // True while the event has a draw made but not yet saved.
    std::function<bool(std::int64_t eid)> draw_in_progress;
};

// Everything up to and including the first ")"; a text without one stays as it is.
std::string removebrackets(std::string_view text);

// The usual number of seeds of a draw size: 2 -> 1, 4 and 8 -> 2, 16 -> 4 ... 256 -> 64; other sizes 0.
int numdefaultseeds(int drawsize);

// An event has a draw once it is marked drawdone or has rows in schedule.
bool event_has_draw(Session& session, std::int64_t eid);

// The draw configuration of one event (`drawconfig`). The window copies its selections and box texts in, calls
// one operation and shows the lists again; every change is refused while the event has a draw.
class DrawConfig
{
public:
    // `init`: reads the entries and the event and takes the draw type line from drawtype and pts.
    DrawConfig(Session& session, std::int64_t eid, DrawConfigHooks hooks = {});

    std::int64_t eid() const { return m_eid; }
    const ConfigEvent& event() const { return m_event; }
    std::string title() const { return "draw config: " + m_event.eventname; }
    bool locked() const { return m_locked; }
    bool is_doubles() const;
    // The text exports of the lists are offered only with the application's export switch on.
    bool exports_allowed() const;

    const std::vector<ConfigLine>& lines(ConfigList list) const;
    const ConfigCounts& counts() const { return m_counts; }
    const std::string& box_text(ConfigBox box) const;
    int type_index() const { return m_type_index; }

    // Selection and typed text, as the window holds them.
    void set_selected(ConfigList list, const std::vector<int>& rows);
    void selectall(ConfigList list);
    void unselectall(ConfigList list);
    void set_box_text(ConfigBox box, std::string text);

    // Re-reads the three lists from evententries, ordered by seeding, then counts.
    void load_all();
    // Reads the counts of the lists and the boxes into the shown counts and draw size.
    void setcounts_and_drawsize();
    // Writes "(n)" before each seed line by its place.
    void do_seedings();

    // The operations of the window; each answers whether anything changed.
    bool move_seeds_to_players();
    bool move_players_to_seeds();
    bool move_players_to_reserves();
    bool move_reserves_to_players();
    bool move_seed(SeedMove direction);
    bool set_type_index(int index);
    bool set_box(ConfigBox box);
    bool clear_box(ConfigBox box);
    bool remove_entries();
    // Selects the first line holding the text, case-blind; nullopt (and a beep) when none does.
    std::optional<int> search(ConfigList list, std::string_view text);
    // The player of the first selected line, for the player's record.
    std::optional<std::string> details_player(ConfigList list);
    // Writes the list to a text file the user chooses.
    bool export_list(ConfigList list);

    // "Save Player Configuration": true when the configuration was written and the editor may close.
    bool save();

private:
    std::vector<ConfigLine>& list(ConfigList which);
    bool move_selected(ConfigList from, ConfigList to);
    bool any_selected(ConfigList which) const;
    void save_all();
    void get_singdobs_drawtype();

    Session& m_session;
    std::int64_t m_eid;
    DrawConfigHooks m_hooks;
    ConfigEvent m_event;
    std::array<std::vector<ConfigLine>, 3> m_lists;
    std::array<std::string, 2> m_boxes;
    ConfigCounts m_counts;
    int m_type_index = 0;
    bool m_locked = false;
};

} // namespace qv
