#include "documents/player_list.h"

#include "core/database.h"

namespace qv {

namespace {

struct Field
{
    bool PlayerListOptions::*chosen;
    const char* caption;
    const char* column;
};
constexpr Field fields[] = {
    { &PlayerListOptions::rating, "rating", "rating" },
    { &PlayerListOptions::ranking, "ranking", "ranking" },
    { &PlayerListOptions::from, "from", "country" },
};

std::string title_of(const PlayerListOptions& options)
{
    std::string chosen;
    for (const auto& field : fields)
        if (options.*field.chosen)
            chosen += (chosen.empty() ? "" : ",") + std::string(field.caption);
    return "players " + chosen;
}

std::string line_of(const Statement& row, const PlayerListOptions& options)
{
    std::string values;
    bool any = false;
    bool first = true;
    for (const auto& field : fields) {
        if (!(options.*field.chosen))
            continue;
        const auto value = row.text(field.column);
        any = any || !value.empty();
        values += (first ? "" : ",") + value;
        first = false;
    }
    return row.text("player") + " " + row.text("sex") + (any ? " (" + values + ")" : "");
}

} // namespace

Document VIP_text_rating_ranking(const DocumentContext& context, const PlayerListOptions& options)
{
    Document document;
    begin_document(document, context, title_of(options));
    document.add("");
    int count = 0;
    for (auto row = context.tournament.query("Select * from players order by player, pid"); row.step(); ++count) {
        document.add(line_of(row, options));
        if (options.admin)
            for (int i = 0; i < options.admin_lines; ++i)
                document.add("");
    }
    document.add("");
    document.add(std::to_string(count) + " players");
    end_document(document, context);
    return document;
}

} // namespace qv
