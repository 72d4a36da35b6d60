#pragma once

#include "datafiles/results_file.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// The analysis of results files in the store: one open file ("single") or a compiled set ("multiple"). A name is
// one of the texts p1 to p4 of a match: the two people of the top side and the two of the bottom side.
enum class Qv4Store { single, multiple };

// not_wcqb: true for a person, false for "wildcard", "qualifier", "bye" and any text that holds one of the words.
bool not_wcqb(std::string_view name);

// The names of the first round, each with its sex, without duplicates (compile_players, make_players).
void compile_players(Database& store, Qv4Store which);
// The names of the index by name, all or of one sex ("male", "female").
std::vector<std::string> load_players(Database& store, Qv4Store which, std::string_view sex = {});

// A titled list of lines, as the analysis windows show and save it.
struct AnalysisText
{
    std::string title;
    std::vector<std::string> lines;
};

// The header as the single window shows it, with the note on incomplete draws when the file has one.
bool determine_incomplete(Database& store);
std::vector<std::string> qv4_header_lines(const Qv4Header& header, bool incomplete);

// A player's matches with a winner and no bye, each told from the player's side; in the multiple store the
// files are blocks, each headed by the tournament, its dates and the file's name.
AnalysisText load_players_results(Database& store, Qv4Store which, std::string_view name);
// The events a player has a match in, by name.
AnalysisText load_players_events(Database& store, std::string_view name);
// The three name forms of each entrant of an event, as its draw names them: full, first round and sub-round.
AnalysisText show_alias(Database& store, std::int64_t eid);
// Every result, or one event's, told from the winner's side.
AnalysisText results_in_general(Database& store, std::optional<std::int64_t> eid);
// The people entered in an event, by name.
AnalysisText event_entries(Database& store, std::int64_t eid);
// Everybody a player has met in a match with a winner.
AnalysisText load_players_opponents(Database& store, std::string_view name);
// The matches of the left player against the right one, told from the left; no lines when they never met.
AnalysisText head_to_head(Database& store, std::string_view left, std::string_view right);
// "save formatted results": one match a line, comma-separated.
std::vector<std::string> formatted_results(Database& store);
// "save all results txt": the compiled matches under a head line of their names; empty when there are none.
std::vector<std::string> all_results_lines(Database& store);

// Opens one results file into the single store: the header lines, or none (and the status words) on failure.
struct OpenedQv4
{
    bool ok = false;
    std::vector<std::string> header;
    std::string status;
};
OpenedQv4 open_qv4_single(Session& session, const std::filesystem::path& file);

// The archive of results files, by name.
std::vector<std::string> archive_files(Session& session);
// Copies the chosen files into the archive (a file of that name already there is kept) and shows the notes.
void import_qv4_files(Session& session, const std::vector<std::filesystem::path>& files);
// Deletes the chosen files of the archive after the question; false when nothing went.
bool delete_qv4_files(Session& session, const std::vector<std::string>& names);
// Shows the header of an archived file, with the notes file when there is one.
bool qv4_file_details(Session& session, const std::string& name);
// Empties the compiled set.
void clear_all(Session& session);
// Compiles the chosen archive files, in the order given, into the multiple store and tells the outcome. The
// number of files compiled.
int qv4_compile(Session& session, const std::vector<std::string>& names);
// The events of one compiled file, by id: (eid, name).
std::vector<std::pair<std::int64_t, std::string>> compiled_events(Database& store, const std::string& fn);
// The single tables take one event of one compiled file, for its draw and its name map.
void load_event_into_single(Database& store, const std::string& fn, std::int64_t eid);

// The files of the present compilation, in import order.
std::vector<std::string> load_current_build(Database& store);

} // namespace qv
