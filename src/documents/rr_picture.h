#pragma once

#include "documents/draw_rows.h"
#include "documents/picture_layout.h"
#include "documents/picture_options.h"

namespace qv {

class Database;

// The widths of the round robin's picture, in twips: the grid of wins, the standings and the match list.
namespace rr_twips {
inline constexpr int row = 270;
inline constexpr int line = 195; // the scoring line and the players line above the grid
inline constexpr int number = 315;
inline constexpr int name = 2000;
inline constexpr int wl = 400;
inline constexpr int total = 600;
inline constexpr int gap = 300;
inline constexpr int time = 1800;
inline constexpr int versus = 315;
inline constexpr int score = 1500;
inline constexpr int points = 700;
} // namespace rr_twips

// RR_loadcontrols and RR_loadroundsdata: the picture of a round robin. Under the title the scoring line; then the
// grid (a row per player: number, name, a "w" or "l" against each opponent, total wins) with the standings
// beside it, built in alist10_rr of the scratch database; then the list of matches; then the time and site lines.
PictureLayout rr_picture(Database& scratch, const DrawData& draw, const PictureOptions& options);

} // namespace qv
