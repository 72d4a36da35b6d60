#pragma once

#include "online/website_containers.h"
#include "online/website_html.h"
#include "online/website_options.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Database;

// A page as a step makes it: its file name in the site, its title, its lines.
struct NamedPage
{
    std::string file;
    std::string title;
    PageLines lines;
};

// A chosen event whose draw is done, as the draw pages need it.
struct DrawnEvent
{
    std::int64_t eid = 0;
    WebsiteEvent names;
    std::string drawtype; // "ko" or "rr"
    int drawsize = 0;
};

// The chosen events, in the order chosen, leaving out those without a done draw.
std::vector<DrawnEvent> chosen_drawn_events(Database& tournament, const std::vector<std::int64_t>& eids);
std::vector<WebsiteEvent> event_names(const std::vector<DrawnEvent>& events);

// VIP_make_text_draws for one event: "textdraw_" and the name's part, the text draw wrapped under the event's
// name; a knock-out with the countries ("from") and next round pointers as chosen.
NamedPage text_draw_page(Database& tournament, const DrawnEvent& event, const WebsiteDrawOptions& options);
// The same for an event by its id; none when its draw is not done.
std::optional<NamedPage> text_draw_page(Database& tournament, std::int64_t eid, const WebsiteDrawOptions& options);

} // namespace qv
