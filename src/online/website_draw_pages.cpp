#include "online/website_draw_pages.h"

#include "core/database.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "documents/text_draw_ko.h"
#include "documents/text_draw_rr.h"

namespace qv {

std::vector<DrawnEvent> chosen_drawn_events(Database& tournament, const std::vector<std::int64_t>& eids)
{
    std::vector<DrawnEvent> events;
    for (auto eid : eids) {
        auto row
            = tournament.query("select eventname, drawtype, drawsize from events where eid=? and drawdone=true", eid);
        if (!row.step())
            continue;
        const auto name = row.text("eventname");
        events.push_back({ eid, { name, event_file_part(name) }, lcase(trim(row.text("drawtype"))),
            static_cast<int>(row.integer("drawsize")) });
    }
    return events;
}

std::vector<WebsiteEvent> event_names(const std::vector<DrawnEvent>& events)
{
    std::vector<WebsiteEvent> names;
    for (const auto& event : events)
        names.push_back(event.names);
    return names;
}

NamedPage text_draw_page(Database& tournament, const DrawnEvent& event, const WebsiteDrawOptions& options)
{
    const auto& name = event.names.name;
    const auto text = event.drawtype == "rr"
        ? text_draw_rr_lines(tournament, event.eid, name)
        : text_draw_ko_lines(tournament, event.drawsize, event.eid, name,
            options.next_round_pointer ? NextRoundPointers::on : NextRoundPointers::off,
            options.from ? TextDrawCountries::on : TextDrawCountries::off);
    return { "textdraw_" + event.names.file_part + ".htm", name, wrap_text_page(text, name) };
}

std::optional<NamedPage> text_draw_page(Database& tournament, std::int64_t eid, const WebsiteDrawOptions& options)
{
    const auto events = chosen_drawn_events(tournament, { eid });
    if (events.empty())
        return std::nullopt;
    return text_draw_page(tournament, events.front(), options);
}

} // namespace qv
