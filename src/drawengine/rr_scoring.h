#pragma once

#include "drawengine/rr_draw.h"

#include <string>
#include <string_view>

namespace qv {

class UserTalk;

// The draw type line of a scoring mode (events.pts 1, 2 or 3); empty for any other value.
std::string_view rr_scoring_line(int pts);
// The mode as the window shows it: "drawtype: " and the line.
std::string RR_set_scoring(int pts);

// Which boxes of a match line take typing in a mode.
struct RrBoxes
{
    bool points_open = true;
    bool score_open = true;
};
RrBoxes rr_boxes(int pts);

// A blank value counts as "0".
std::string check_nothing(std::string_view value);

// Typed scores lose "¿" and "~" and are trimmed.
std::string filter_text_rr(std::string_view text);
// Typed points: "0" when blank, else only the characters of ".0123456789", trimmed.
std::string filter_text_rr_points(std::string_view text);

// A click on a side's name: marks that side as winner (taking the other mark off), or takes its own mark off.
void rr_toggle_winner(RrMatch& match, RrWinner side);

// A side's name on the match line: frn, with "*" behind it for the winner.
std::string rr_caption(const RrMatch& match, RrWinner side);

// Mode 1: the score follows the points as "points1/points2"; a bare "/" is no score.
void set_scores(RrMatch& match);
// Mode 2: a win is a point: 1 and 0, 0 and 1, or 0 and 0 without a winner.
void set_winner_points(RrMatch& match);
// What a mode does to a match line after a change: mode 1 set_scores, mode 2 set_winner_points, else nothing.
void rr_apply_scoring(RrMatch& match, int pts);

// Before a save: every points box must be a number. The first fault is shown and the answer is false.
bool validate_rr(UserTalk& talk, const OpenRoundRobin& rr);

} // namespace qv
