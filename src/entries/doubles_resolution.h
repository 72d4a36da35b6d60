#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// What the raw columns show of "preq preq".
std::string map_preq(std::string_view name);

// One person of a raw row as the columns show them.
struct RawPerson
{
    std::string name; // the raw text: "player" or "partnername"
    std::string fname, sname;
    std::string state; // "free" or "taken"
    std::string sex; // the register's sex, else the one the entry gave; "" when neither knows
    bool partner_required() const;
    bool taken() const { return state == "taken"; }
};

struct RawRow
{
    std::int64_t rdidx = 0;
    RawPerson first; // player, column p1
    RawPerson second; // partnername, column p2
};

// The raw rows of the event in the order the columns show them.
std::vector<RawRow> load_raw_rows(Database& tournament, std::int64_t eid);

// A resolved team of the event: an entry with sd "doubles".
struct ResolvedTeam
{
    std::string player;
    bool reserve = false;
};
std::vector<ResolvedTeam> load_resolved_teams(Database& tournament, std::int64_t eid);

// The counts the window shows beside its lists.
std::string resolve_totals(const std::vector<RawRow>& rows, const std::vector<ResolvedTeam>& teams);

// The two labels of a team made by hand, filled by clicks on names (set_label).
class TeamLabels
{
public:
    // A click on a person: the first fills label 1, the next label 2. "partner required" selects nothing; the
    // person already in label 1 is refused with "player already selected". True when a label took the name.
    bool set_label(Session& session, const RawPerson& person);
    void clear_team_labels() { m_first.reset(), m_second.reset(); }
    bool complete() const { return m_first && m_second; }
    bool empty() const { return !m_first && !m_second; }
    const std::optional<RawPerson>& first() const { return m_first; }
    const std::optional<RawPerson>& second() const { return m_second; }

private:
    std::optional<RawPerson> m_first;
    std::optional<RawPerson> m_second;
};

// How a team is being made: one by hand, or row by row with the faults collected.
enum class ResolveMode { single, multiple };

// Makes the team of two people: the register checked (and unknown people added), the people marked taken in all
// the event's raw rows, the team entered. A fault is said (single) or added to `faults` (multiple); false then.
bool resolve(Session& session, std::int64_t eid, const RawPerson& first, const RawPerson& second, ResolveMode mode,
    std::vector<std::string>& faults);
// "resolve" with the two labels: the checks of a hand-made team, then resolve. The labels are cleared after a team.
bool resolve_labels(Session& session, std::int64_t eid, TeamLabels& labels);
// "resolve" with rows selected (resolve_call_main): every row whose two people are free becomes a team; the
// others are reported in temp.txt. Returns the number of teams made.
int resolve_call_main(Session& session, std::int64_t eid, const std::vector<std::int64_t>& rdidx);

// "restore": the selected teams leave the entries and their people are free again. Returns the number restored.
int restore_teams(Session& session, std::int64_t eid, const std::vector<std::string>& teams);

// "scrape text": the lists into working/scrape.txt, which is then shown.
void scrape_resolve_text(Session& session, std::int64_t eid);

} // namespace qv
