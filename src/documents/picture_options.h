#pragma once

#include <cstdint>
#include <ctime>
#include <map>
#include <string>

namespace qv {

class Database;
class Session;

// What a draw picture shows beyond the draw itself.
struct PictureOptions
{
    bool split128 = false; // a draw of 128 as two pictures of 64 rows
    bool country = true; // the country column of the first round (draw.icc)
    bool times = false; // the day, time and court of a match not yet played under its line
    bool fill_rr_voids = true; // app.fillrrvoids: empty cells of a round robin's grid are filled
    // The event's own round labels, by the keys "round1" .. "round4", "quaters", "semi_", "final/winner".
    std::map<std::string, std::string> header_overrides;
    std::string site_line; // the line of addad
    std::string generic_c = "c"; // the one-letter court and match words of the time and place text
    std::string generic_m = "m";
    std::tm now {}; // stamps a picture of a draw that carries no time stamp of its own
};

// The options as the settings have them (split, country and times from the draw window's settings), with the
// present time.
PictureOptions picture_options_from_settings(Session& session);

// The keys of the event's own round labels: rows of rounds whose rname is one of the label keys.
std::map<std::string, std::string> event_header_overrides(Database& tournament, std::int64_t eid);

// "quorvelin " and the home page: the product's address is configuration (homepage_url), with a built-in page.
std::string picture_site_line(Session& session);
// The product's home page alone.
std::string home_page_address(Session& session);

} // namespace qv
