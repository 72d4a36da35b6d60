#pragma once

#include "core/database.h"
#include "entries/filters.h"
#include "entries/main_lists.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qv {

class Session;

// ---- Events and persons as the transfer sees them ----

// Two letters: the first of the sex ("m", "f", "n" for neutral) and the first of singles/doubles; a mixed event
// is always "xd". So "ms", "fs", "ns", "md", "fd", "nd", "xd"; an event with damaged fields gives "".
std::string event_key(std::string_view sex, std::string_view singdobs);

struct EventData
{
    std::int64_t eid = 0;
    std::string eventname;
    bool drawdone = false;
    std::string singdobs;
    std::string sex;
    std::string pte; // "p" players only, "t" teams only, "e" either
    std::string drawtype; // "ko" or "rr"
    std::string fee;

    std::string key() const { return event_key(sex, singdobs); }
    // 's' or 'd': where a singles entry or a raw doubles entry goes.
    char sd() const;
    bool is_rr() const;
};

std::optional<EventData> get_data(Database& db, std::int64_t eid);

struct PersonData
{
    std::string fname;
    std::string sname;
    std::string rating;
    std::string ranking;
    std::string country;
    int pval = 1; // 1 player, 0 team
    std::string availabilityrestrictions; // "." when the register holds nothing
    std::string sex; // as the register holds it: "male", "female" or ""

    // The key name a row gets: the trimmed join of both names.
    std::string player() const;
};

// The register's person by lcase(trim(player)).
std::optional<PersonData> get_pn(Database& db, std::string_view name);

// ---- The checks of a person against a target, each a text behind " cannot add " and the name ----

// None when the person may go in; otherwise the text, for instance ",sex=male,cannot add to female singles".
std::optional<std::string> sex_s_to_s(const PersonData& person, const EventData& target);
std::optional<std::string> sex_s_to_d(const PersonData& person, const EventData& target);
std::optional<std::string> sex_d_to_s(const PersonData& person, const EventData& target);
std::optional<std::string> sex_d_to_d(const PersonData& person, const EventData& target);

// How a pair of a doubles event goes into another doubles event, by the two keys and the pair's sexes
// ("mf", "fm", "mm", "ff" or anything else when a sex is unknown). None adds nothing.
enum class HowToAdd { none, as_team, separate };
HowToAdd sex_d_to_d_how_to_add(std::string_view source_key, std::string_view target_key, std::string_view sexes);

// The words of an event key in the refusals of key pairs: "male singles", "female singles", "male doubles",
// "female doubles"; other keys are never refused, and give their own two letters.
std::string disp(std::string_view key);

// ---- Sources ----

// The eleven sets of the players tab, in list order.
const std::vector<std::string>& player_sets();

// The rows of `schedule` a set looks at.
enum class ScheduleRows { all, singles, doubles, doubles_not_mixed, mixed };

// Fills alist9_nm_sx with the distinct people of the chosen matches and their sexes ("m", "f" or ""): both sides,
// pairs split at "/", reserved names left out.
void break_up_schedule(Database& db, ScheduleRows rows);

// The players of a set, by name; the line's id is the pid. An unknown set lists nothing.
std::vector<ListLine> players_of_set(Database& db, std::string_view set);

// The players of the filter of the players tab (any source the filter names).
std::vector<ListLine> players_of_filter(Database& db, const PlayerFilter& filter);

// The players of a folder, narrowed by the folders tab's filter (sex and type; the register has no reserves).
std::vector<ListLine> players_of_folder(Database& db, std::int64_t fid, const PlayerFilter& filter);

// The criteria of the events tab for one event.
namespace criterion {
inline constexpr std::string_view all_entered = "all players entered";
inline constexpr std::string_view all_reserves = "all reserves";
inline constexpr std::string_view all_in_draw = "all players in draw";
inline constexpr std::string_view all_seeds = "all seeds";
inline constexpr std::string_view qualifiers = "qualifiers";
inline constexpr std::string_view wildcards = "wildcards";
inline constexpr std::string_view lost_first_round = "lost first round";
} // namespace criterion

// Every event offers its entries and reserves; an event with a draw adds the draw's criteria and one line per
// round ("select distinct rname,rid from schedule where eid=? order by rid").
std::vector<std::string> event_criteria(Database& db, std::int64_t eid);

// The lines a criterion lists. A pair reads "first/second". In a round-robin with a draw each name that stands in
// the group carries its points in brackets, "name(3)"; adding strips them again.
std::vector<std::string> criterion_lines(Database& db, std::int64_t eid, std::string_view criterion);

// The group of a round-robin by points, highest first, as "name(points)"; built in alist10_rr.
std::vector<std::string> loadallplayers_rr_indraw(Database& db, std::int64_t eid);

// The halves of a pair line (round-robin brackets stripped first), each a person that can be added alone.
// Empty, reserved and partner-required halves are left out.
std::vector<std::string> split_entry(std::string_view line, bool from_rr);

// ---- The batch ----

enum class AddSource { players, sets, folders, events, split };
enum class AsReserve { no, yes };

struct AddRequest
{
    AddSource source = AddSource::players;
    // The selected lines of the source list, as the list shows them.
    std::vector<std::string> lines;
    // The events tab: the event the lines come from.
    std::int64_t source_eid = 0;
    // The selected target event.
    std::optional<std::int64_t> target;
    AsReserve reserve = AsReserve::no;
};

struct AddReport
{
    bool ran = false; // false when refused before anything was done
    int added = 0;
    int errors = 0;
};

// The report's question or statement, in its three wordings.
std::string add_report_text(int added, int errors);
inline constexpr std::string_view add_report_title = "add to event errors";

// "select players", or "select player" for the halves of a split pair; true when nothing is selected.
bool none_selected(Session& session, const AddRequest& request);

// The button: every selected line into the target, in one transaction, its faults in working/temp.txt, then the
// report and the entries lists read again.
AddReport add_to_event1(Session& session, const AddRequest& request);

// One run of adding: the ids read once and counted on, the statements prepared once, the feedback lines.
// Refusals are feedback lines; only faults of the machine throw.
class AddToEvent
{
public:
    AddToEvent(Session& session, AsReserve reserve);

    // A person from the register (players, sets, folders, split).
    void add_player_to_event(std::string_view name, const EventData& target);
    void ADD_sp_to_s(const PersonData& person, const EventData& target);
    void ADD_sp_to_d(const PersonData& person, const EventData& target);

    // The selected entries of a source event: the checks of the two events, then one of the four copies.
    void add_to_event(const EventData& source, const EventData& target, const std::vector<std::string>& lines);
    void ADD_s_to_s(const EventData& source, const EventData& target, const std::vector<std::string>& lines);
    void ADD_s_to_d(const EventData& source, const EventData& target, const std::vector<std::string>& lines);
    void ADD_d_to_s(const EventData& source, const EventData& target, const std::vector<std::string>& lines);
    void ADD_d_to_d(const EventData& source, const EventData& target, const std::vector<std::string>& lines);

    void addnew_ee(const EventData& event, const PersonData& person);
    void addnew_raw_ee(const EventData& event, const PersonData& first, const PersonData* partner);

    void er(std::string line);

    int added() const { return m_added; }
    int errors() const { return static_cast<int>(m_feedback.size()); }
    const std::vector<std::string>& feedback() const { return m_feedback; }

private:
    // The target's names already entered, lower-cased as the case-blind columns compare them: `player` of its
    // entries for a singles event, `player` and `partnername` of its raw rows for a doubles event.
    bool is_entered(const EventData& target, std::string_view name);
    void mark_entered(const EventData& target, std::string_view name);
    // One person of a source entry into a singles target, as ADD_s_to_s does it.
    void one_to_singles(std::string_view name, const EventData& target, bool from_doubles);
    void already_entered(std::string_view name, const EventData& target);
    std::optional<PersonData> person(std::string_view name);

    Session& m_session;
    Database& m_db;
    AsReserve m_reserve;
    std::int64_t m_next_ent_idx = 1;
    std::int64_t m_next_rdidx = 1;
    int m_added = 0;
    std::vector<std::string> m_feedback;
    std::int64_t m_entered_eid = -1;
    std::unordered_set<std::string> m_entered;
    Statement m_person_by_name;
    Statement m_person_by_key;
    Statement m_insert_ee;
    Statement m_insert_raw;
};

} // namespace qv
