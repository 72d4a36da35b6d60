#pragma once

#include <span>
#include <string_view>

namespace qv {

class Database;

// Tables of the tournament file that each open and each close empty.
std::span<const std::string_view> tournament_scratch_tables();
// Tables of the peek-browse database emptied at boot.
std::span<const std::string_view> peek_browse_scratch_tables();
// Tables that a clear of data empties besides the scratch tables.
std::span<const std::string_view> clear_data_tables();

void empty_tables(Database& db, std::span<const std::string_view> tables);

} // namespace qv
