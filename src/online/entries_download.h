#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The entries the players made online come down as an entries file (qv5) into the archive of such files,
// qv5_file_archive; from there they are looked into (peek, browse) or loaded into the tournament.

// What a download is for: "peek entries", "download entries load", "download entries don't load".
enum class DownloadTarget { peek, load, keep };

// The archive's name of a downloaded file: the tournament's name and the time, both through the file-name
// filter, joined by "@", ".qv5" behind and "peek_" in front for a peek.
std::string qv5_archive_name(std::string_view tournament_name, const std::tm& when, bool peek);

// Fetches the entries file into the archive and peeks into it, loads it into the tournament after the
// question (the program then restarts on it), or keeps it. The archived file, or nothing after a bad reply.
std::optional<std::filesystem::path> down_load_entry_file(Session& session, DownloadTarget target);

// The entries files of the archive, by name.
std::vector<std::string> qv5_archive_files(Session& session);
// "load": the chosen archived file replaces the tournament's content after the question.
bool load_archived_entries(Session& session, const std::string& name);
// "browse": the chosen archived file into the browse tables.
bool browse_archived_entries(Session& session, const std::string& name);
// "rename": a new name for an archived file (".qv5" is added when missing); the name must pass the file-name
// rule and be free.
bool rename_qv5_file(Session& session, const std::string& name, std::string_view new_name);
// "clear peeks": after the question, the files of the archive that peeks left ("peek_" in front) go.
int clear_peek_files(Session& session);

// A player of the peek tables, as the withdrawal reads and names them.
struct PeekPlayer
{
    std::int64_t pid = 0;
    std::string fname, sname, email, sex;
};
std::optional<PeekPlayer> peek_player(Session& session, std::int64_t pid);
// "withdraw" in the peek and browse window: after the question the service withdraws the player, who then
// leaves the peek tables.
bool withdraw_peek_player(Session& session, std::int64_t pid);

} // namespace qv
