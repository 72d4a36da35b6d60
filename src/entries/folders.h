#pragma once

#include "entries/main_lists.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

struct Folder
{
    std::int64_t fid = 0;
    std::string nm;
};

// The folders by name.
std::vector<Folder> load_folders(Database& db);

// The players of one folder by name; the line's id is the pid.
std::vector<ListLine> folder_players(Database& db, std::int64_t fid);

// Adds a folder and returns its fid (the maximum plus 1). Refused, with a message and no change: a name that is
// empty or holds a character outside systemdisallow, and a name already used, compared by lcase(trim(nm)).
// With folders_beep_ok ticked a beep confirms.
std::optional<std::int64_t> addnew_folder(Session& session, std::string_view name);

// Renames a folder; "select folder" when none is chosen, and no other folder may have the name.
bool rename_folder(Session& session, std::optional<std::int64_t> fid, std::string_view name);

// Deletes the folders; their players stay in the register with fid 0. "select folder(s) to delete" when none.
bool delete_folders(Session& session, const std::vector<std::int64_t>& fids);

// Puts the players into the folder in one pass: "select folder" without a folder, "select players to export"
// without players.
bool assign_to_folder(Session& session, std::optional<std::int64_t> fid, const std::vector<std::int64_t>& pids);

// Takes the players out of their folders (fid 0).
bool move_out_of_folder(Session& session, const std::vector<std::int64_t>& pids);

} // namespace qv
