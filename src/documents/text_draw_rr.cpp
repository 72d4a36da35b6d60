#include "documents/text_draw_rr.h"

#include "core/file_save.h"
#include "documents/draw_rows.h"
#include "drawengine/rr_screenscrape.h"

namespace qv {

std::vector<std::string> text_draw_rr_lines(Database& tournament, std::int64_t eid, std::string_view title)
{
    const auto rr = round_robin_from_rows(read_draw_rows(tournament, DrawStore::tournament, eid), 0);
    const auto blocks = rr_screenscrape_blocks(tournament, rr);
    std::vector<std::string> lines { std::string(title), std::string() };
    lines.insert(lines.end(), blocks.wins.begin(), blocks.wins.end());
    lines.insert(lines.end(), { std::string(), std::string() });
    lines.insert(lines.end(), blocks.points.begin(), blocks.points.end());
    return lines;
}

bool text_draw_rr(const std::filesystem::path& file, Database& tournament, std::int64_t eid, std::string_view title)
{
    return write_text_file(file, text_draw_rr_lines(tournament, eid, title));
}

} // namespace qv
