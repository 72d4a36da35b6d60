#pragma once

#include "drawengine/rr_draw.h"

#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// The four blocks of the written draw, each a header line and its lines, built through rr_screenscrape.
struct RrScrapeBlocks
{
    std::vector<std::string> wins; // "#,name,1,..,n,total wins", a line per player by number
    std::vector<std::string> points; // "#,name,points", by points descending
    std::vector<std::string> matches; // "#,p1,p2,score,points1,points2", the winner marked "*"
    std::vector<std::string> countries; // "#,name,country"
};
RrScrapeBlocks rr_screenscrape_blocks(Database& tournament, const OpenRoundRobin& rr);

// The blocks one after another, two empty lines between them.
std::vector<std::string> rr_screenscrape_lines(Database& tournament, const OpenRoundRobin& rr);

// "screen scrape": asks for a file and writes the draw on show to it as comma-separated text. False when the
// user chose no file or the file could not be written.
bool rr_screenscrape(Session& session, const OpenRoundRobin& rr);

} // namespace qv
