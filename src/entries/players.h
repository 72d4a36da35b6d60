#pragma once

#include "core/time_rules.h"
#include "core/validators.h"

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;
class UserTalk;

// A row of `players` is a person ("1") or a team ("0").
enum class PlayerKind { team = 0, player = 1 };

// What the player windows show and save. A team keeps its one name in team_name; loaded from the table it
// comes from `fname`. pid, player, timestamp and downloaded are read only: saving ignores them.
struct PlayerRecord
{
    PlayerKind kind = PlayerKind::player;
    std::string fname, sname, team_name;
    std::string sex; // "male" or "female"
    std::string phone, mobile, email, dob, password;
    std::string address, city, state, postcode;
    std::string country; // the "from code"
    std::string club, ranking, rating, availabilityrestrictions, notes, results, message, tsd;

    std::int64_t pid = 0;
    std::string player;
    std::string timestamp;
    bool downloaded = false;
};

// The boxes a refusal sends the user back to.
enum class PlayerField { fname, sname, team_name, from_code, search };

struct PlayerRefusal
{
    PlayerField field = PlayerField::fname;
    Refusal refusal;
};

// The add window lets "preq" through as a name; the edit and details windows refuse it, and an edited row
// must not count as its own duplicate.
enum class PlayerForm { add_new, edit };

// The key name a record would be saved under: first name, a blank, second name (both first-capped), or
// the team name.
std::string player_name_of(const PlayerRecord& record);

// The reserved words a name field may not hold; the text is tested lower-cased and trimmed, as it is stored.
Check check_wqb(std::string_view text, std::string_view label, PlayerForm form);

// Every check before a save, in order; the first fault. edited_pid is the row being edited (edit form only).
std::optional<PlayerRefusal> validate_player(
    Database& db, const PlayerRecord& record, PlayerForm form, std::int64_t edited_pid = 0);

// The outcome of a save: the new or edited pid, or the refusal already told to the user.
struct PlayerSave
{
    std::optional<PlayerRefusal> refused;
    std::int64_t pid = 0;
    bool ok() const { return !refused; }
};

// The message of the lock on a player who is entered somewhere.
inline constexpr std::string_view player_locked_text = "player in a draw, cannot change spelling of name ,sex or type";

// Adds a row after validate: pid the maximum plus 1, names first-capped, stamped now, not downloaded.
PlayerSave add_player(Session& session, const PlayerRecord& record, const std::tm& now = local_time_now());

// Writes every field of the row `pid`. A player who is in an event keeps name, sex and type: a change of
// them is refused.
PlayerSave save_player(Session& session, std::int64_t pid, const PlayerRecord& record, PlayerForm form);

// True when the name is entered in an event: as a player or either half of a pair, or in a raw doubles entry.
bool is_in_event(Database& db, std::string_view name);

// The tournament's register, or the downloaded players of the peek tables (same columns, another database).
enum class PlayerTable { players, peek_players };

// The row of a pid or of a key name (compared as lcase(trim(...))).
std::optional<PlayerRecord> load_player(Database& db, std::int64_t pid, PlayerTable table = PlayerTable::players);
std::optional<PlayerRecord> load_player_by_name(
    Database& db, std::string_view name, PlayerTable table = PlayerTable::players);

// Every player by `player`: the list of the players window.
struct PlayerLine
{
    std::int64_t pid = 0;
    std::string player;
};
std::vector<PlayerLine> all_players(Database& db);

enum class PlayerPrompt { ask, none };

// Deletes one player after "Confirm player delete" (unless no prompt). An entered player is refused.
// True when the row went.
bool delete_player(Session& session, std::int64_t pid, PlayerPrompt prompt);

// The delete window's batch: entered players are written to working/temp.txt and counted as errors, the
// rest deleted (each after the prompt), then one summary. Returns the number deleted.
int delete_players(Session& session, const std::vector<std::int64_t>& pids, PlayerPrompt prompt = PlayerPrompt::ask);

// The pids, by `player`, whose name holds the text, case-blind. Quotes are refused.
struct PlayerSearch
{
    std::optional<PlayerRefusal> refused;
    std::vector<std::int64_t> pids;
};
PlayerSearch search_players(Session& session, std::string_view text);

} // namespace qv
