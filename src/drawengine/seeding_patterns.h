#pragma once

#include "core/database.h"
#include "core/user_talk.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// One first-round slot of a pattern and the seed placed there (0: none).
struct SeedPosition
{
    int pos = 0;
    int seed = 0;
    friend bool operator==(const SeedPosition&, const SeedPosition&) = default;
};

// A row of seedposmapping_index.
struct SeedingPattern
{
    std::int64_t idx = 0;
    std::string name;
    int drawsize = 0;
    bool is_default = false;
    bool is_system = false;
};

// The sizes the windows offer, in this order. Size 2 keeps the pattern the init database holds for it.
inline constexpr std::array<int, 6> seeding_pattern_sizes { 4, 8, 16, 32, 64, 128 };

// The list forms. A pattern line is "default" or nothing, a tab and the name; a position line is "pos,seed".
std::string pattern_list_heading(int drawsize);
std::string position_list_heading(int drawsize);
std::string pattern_line(const SeedingPattern& pattern);
std::string position_line(const SeedPosition& position);

// A pattern line taken apart at its tab: the "default" mark (or nothing) and the name.
struct PatternLineParts
{
    std::string mark;
    std::string name;
};
PatternLineParts get_name(std::string_view line);

// "pos,seed" divided at the ","; nullopt for a line that is not two whole numbers.
std::optional<SeedPosition> splitup(std::string_view line);

// Reading the init database.
std::vector<SeedingPattern> load_patterns(Database& init, int drawsize);
std::optional<SeedingPattern> find_pattern(Database& init, std::int64_t idx);
// Every position of a pattern, seed 0 included, by slot.
std::vector<SeedPosition> load_positions(Database& init, std::int64_t idx);
// A fresh list for a new pattern: slots 1..drawsize, all seed 0.
std::vector<SeedPosition> empty_positions(int drawsize);

// What the knock-out draw places: the seeded slots of the size's default pattern, seeds ascending.
// A size with no default is a fault of the init database and throws DbError.
std::vector<SeedPosition> default_seed_positions(Database& init, int drawsize);
// The force draw reads the default by its name: the name, then every row of seedposmapping with that name.
// The name lookup throws DbError like the one above.
std::string default_pattern_name(Database& init, int drawsize);
std::vector<SeedPosition> seed_positions_by_name(Database& init, std::string_view name);

// Which window sets the seed: the two say "already defined" in slightly different words.
enum class PatternWindow { main, new_pattern };

// Writes the box's value on the chosen line of the list. Refusals are told to the user and change nothing.
bool set_seed(UserTalk& talk, std::vector<SeedPosition>& positions, std::optional<std::size_t> chosen,
    std::string_view box, PatternWindow window);
// Every line becomes "pos,0".
void clear_pattern(std::vector<SeedPosition>& positions);

// The operations on the stored patterns. drawsize and idx are what the user has chosen (nullopt: nothing);
// each refusal is a message and leaves the tables as they were. True when the tables changed.
bool save_pattern(Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx,
    const std::vector<SeedPosition>& positions);
bool rename_pattern(
    Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx, std::string_view new_name);
bool set_default(Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx);
bool delete_pattern(Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx);
// The "save" of the new-pattern window: the new idx, or nullopt when refused.
std::optional<std::int64_t> save_new_pattern(
    Session& session, std::optional<int> drawsize, std::string_view name, const std::vector<SeedPosition>& positions);

// Writes the position list to a file the user names ("seeding.txt" proposed) under the heading "seeding".
// Only while the export switch app.screenscrape is "allow screenscrape"; false when nothing was written.
bool export_seeding_list(Session& session, const std::vector<SeedPosition>& positions);
bool seeding_export_allowed(Session& session);

} // namespace qv
