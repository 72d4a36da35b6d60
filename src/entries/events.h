#pragma once

#include "core/validators.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// What the event windows type and choose. singdobs "singles"/"doubles"; sex "male", "female", "mixed",
// "neutral"; pte "p" players only, "t" teams only, "e" either.
struct EventRecord
{
    std::string eventname;
    std::string fee;
    std::string singdobs;
    std::string sex;
    std::string pte;
};

// The box or list a refusal points at, so the window can put the cursor there.
enum class EventField { eventname, fee, singdobs, sex, pte };

struct EventRefusal
{
    EventField field;
    Refusal refusal;
};

// The limits of the columns, in characters.
inline constexpr std::size_t eventname_max_chars = 50;
inline constexpr std::size_t fee_max_chars = 10;

// The caption of an event type in the lists, and back; an unknown value gives the empty text.
std::string pte_caption(std::string_view pte);
std::string pte_code(std::string_view caption);

// The pairs of the three lists that cannot go together.
std::optional<EventRefusal> validate_options(const EventRecord& event);

// The add window refuses any event of the same name; the edit window any other event of it.
enum class EventWindow { add, edit };
std::optional<EventRefusal> validate(
    Database& db, const EventRecord& event, EventWindow window, std::int64_t own_eid = 0);

// The words a name should not hold for its sex and type: one line per rule that holds, none when it is clean.
std::vector<std::string> check_event_name(
    std::int64_t eid, std::string_view name, std::string_view sex, std::string_view singdobs);

// Checks one event's name into temp.txt and, if any rule held, shows it; true when the save must stop.
bool evt_error(Session& session, std::int64_t eid, const EventRecord& event);
// Checks every event into temp.txt and shows it; true when any rule held.
bool check_errors(Session& session);

bool has_entries(Database& db, std::int64_t eid);

// An event as stored, with what locks its fields.
struct StoredEvent
{
    std::int64_t eid = 0;
    EventRecord record;
    bool drawdone = false;
    bool entries = false;
};
std::optional<StoredEvent> load_event(Database& db, std::int64_t eid);

inline constexpr std::string_view entries_lock_label = "draw has entries,cannot change sex,sd,type";
inline constexpr std::string_view drawdone_lock_label = "draw done, cannot delete event, delete draw first";

// The draw kind a new event starts with, from the setting default_draw_type.
struct DrawKind
{
    std::string drawtype;
    int pts = 0;
};
DrawKind default_draw_kind(int default_draw_type);

// The shared add, for the add window and the event files: the row, then the lists. No checks; returns the eid.
// One statement, so a batch of imports can hold it in its own transaction.
std::int64_t addnewevent(Session& session, const EventRecord& event);

// What a save of either window came to. A refusal has been told to the user already.
enum class EventSaved { refused, name_errors, saved };
struct EventSaveResult
{
    EventSaved outcome = EventSaved::refused;
    std::optional<EventRefusal> refusal;
    std::int64_t eid = 0;
};

// The add window's save: the checks, the name check when ticked, the row, the beep.
EventSaveResult add_event(Session& session, const EventRecord& typed);

// The edit window's save: the checks, the name check when ticked, the fields, then the name and fee carried
// into the entries (and the draw's matches).
EventSaveResult save_event(Session& session, std::int64_t eid, const EventRecord& typed);

// Deleting. The selection is refused when empty; the question is skipped when "no prompt" is ticked.
bool oktodelete(Session& session, std::span<const std::int64_t> eids);

struct DeleteReport
{
    std::vector<std::string> lines; // "<name> deleted" or the reason it was kept, in selection order
    int deleted = 0;
    int errors = 0;
};
// Deletes every selected event that has no draw, with its entries and matches. Asks nothing.
DeleteReport delete_events(Session& session, std::span<const std::int64_t> eids);

// The edit window's delete of its one event: the question, the deletion, the line told.
bool delete_one_event(Session& session, std::int64_t eid);

// The manage window's delete: the question, the deletions, the report in feedback.txt and the summing up.
// Returns the number of events deleted.
int delete_events_with_report(Session& session, std::span<const std::int64_t> eids);

// The first line after the given one (wrapping round) whose text holds the searched text, case-blind; none when
// no line does.
std::optional<std::size_t> find_line(
    const std::vector<std::string>& lines, std::string_view text, std::optional<std::size_t> after);

} // namespace qv
