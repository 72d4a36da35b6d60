#pragma once

#include "documents/pdf_save.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// A line of the prints area: a draw that exists, "(" eid ")" and the event's name.
struct DrawLine
{
    std::int64_t eid = 0;
    std::string text;
};

// events_drawdone_draws: the events whose draw is done, by eid.
std::vector<DrawLine> events_drawdone_draws(Database& tournament);

// What the prints area holds when an action starts: the selected draws, its three ticks and the copies typed.
struct PrintsChoice
{
    std::vector<std::int64_t> eids;
    bool split128 = false; // psd.check1
    bool country = true; // psd.check2
    bool times = false; // psd.check3
    std::string copies = "1";
};

// "print": each selected draw's pictures, every one by the default configuration of its draw kind, the copies
// typed. False when refused or nothing was printed.
bool prints_print(Session& session, const PrintsChoice& choice);

// "save as PDF": what "print" prints, one copy of each page, into one PDF file the user names ("draw_" and the
// event's name for one draw, "draws.pdf" for more).
bool prints_save_pdf(Session& session, const PrintsChoice& choice, const PdfDevice& device);

// "save as PDF" of the draw area: the event's draw by the pictures' settings, as the prints area makes it; a draw
// not yet saved has no picture: "no image to print".
bool draw_save_pdf(Session& session, std::int64_t eid, const PdfDevice& device);

// "save images": each selected draw's pictures as GIF files in the folder the user chooses; then
// "draw images available in " and the folder.
bool prints_save_images(Session& session, const PrintsChoice& choice);

// "save text": each selected draw as "textdraw_" and the event's name and ".txt" in the folder the user chooses;
// a knock-out draw with next round pointers when include_next_round_pointers is on. Then "ok".
bool prints_save_text(Session& session, const PrintsChoice& choice);

} // namespace qv
