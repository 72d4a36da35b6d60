#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// The results file (qv4): the tournament's header, its events with a done draw and every match record, as
// "^"-ended tokens. A header closes with "tmentendmarker", an event with "¿", a match with "&".

// The day of a match in the file: characters 4-5, 6-8 and 9-10 of a day key such as "mon01jan07", joined by "/".
std::string qv4_date(std::string_view day_key);

// The lines of the file: the header, one line per done event, one line per match in sid order.
std::vector<std::string> qv4_lines(Database& tournament);

// Writes the results file, replacing the target. False when it cannot be written.
bool write_qv4_file(Database& tournament, const std::filesystem::path& file);

// "save qv4 file": the user names the file (the tournament's name, else "qv4file") and it is written.
bool save_qv4_file(Session& session);

// The header fields of a results file.
struct Qv4Header
{
    std::string tournament;
    std::string dates;
    std::string venue;
    std::string address;
    std::string country;
    std::string surface;
};

// Reads a results file into the analysis tables of the store: the "single" tables are emptied first, the
// "multiple" ones are added to. The events and matches carry the header and the file's name (fn). False, with
// the tables as they were, when the file is not text or a record does not fit its table.
bool read_qv4_single(Database& store, const std::filesystem::path& file, const std::string& fn, Qv4Header& header);
bool read_qv4_multiple(Database& store, const std::filesystem::path& file, const std::string& fn, Qv4Header& header);

} // namespace qv
