#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;

// A round robin as comma-separated text, by the steps of its screen scrape: the title, an empty line, the grid
// of wins ("#,name," the numbers and "total wins"), two empty lines, then "#,name,points" in descending points.
std::vector<std::string> text_draw_rr_lines(Database& tournament, std::int64_t eid, std::string_view title);

// text_draw_rr: those lines written to the file. False when it cannot be written.
bool text_draw_rr(const std::filesystem::path& file, Database& tournament, std::int64_t eid, std::string_view title);

} // namespace qv
