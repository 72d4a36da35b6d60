#pragma once

#include "documents/draw_rows.h"
#include "documents/picture_layout.h"
#include "documents/picture_options.h"

#include <string>
#include <vector>

namespace qv {

// The constants of the knock-out layout, in twips.
namespace ko_twips {
inline constexpr int head_row = 195;
inline constexpr int head_inner = 165;
inline constexpr int rownum_width = 315; // also the width of the two info columns beside it
inline constexpr int row = 270;
inline constexpr int first_column = 2000;
inline constexpr int first_column_left = 3 * rownum_width; // behind rownum, infobit and infobit2
inline constexpr int column = 1500;
inline constexpr int margin_x = 20;
inline constexpr int margin_y = 10;
inline constexpr int clip = 40; // adjust_clip
inline constexpr int name_height = 250; // a name above the bracket's line, its score below it
inline constexpr int winner_score_height = 600;
} // namespace ko_twips

// The modes of the knock-out layout: a draw size, or one half of a draw of 128.
inline constexpr int ko_top_half = -64;
inline constexpr int ko_lower_half = -128;

// How many rows a mode lays out and from which draw row the first of them is: a half has 64 rows, the lower
// half numbering them from 65.
struct KoRows
{
    int rows = 0;
    int row_offset = 0;
    int levels = 0; // columns of the tree, the winner column last
};
KoRows ko_rows(int mode);

// The header of a tree column: "round " and the number, and from the end "winner", "final", "semis", "quaters".
std::string ko_header_text(int level, int levels);

// The time and place of a match under its line: day ("-" when none), time ("?" when unset) and court.
std::string settsdisplay(const DrawRow& row, const PictureOptions& options);

// KO_loadcontrols and KO_loadroundsdata_split: the picture of a knock-out draw, or of one half of a draw of 128,
// filled from the draw's rows, with its headers, patches, site and time lines; toggle_cc when the country column
// is off.
PictureLayout ko_picture(const DrawData& draw, int mode, const PictureOptions& options);

} // namespace qv
