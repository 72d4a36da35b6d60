#pragma once

#include "documents/draw_rows.h"
#include "documents/picture_layout.h"
#include "documents/picture_options.h"

#include <string>

namespace qv {

// The title block every draw picture starts with, in twips.
namespace title_twips {
inline constexpr int left = 75;
inline constexpr int top = 120;
inline constexpr int height = 270;
inline constexpr int event_top = top + height;
inline constexpr int event_height = 240;
inline constexpr int head_top = event_top + event_height; // where the draw itself starts
inline constexpr int long_name = 43; // a longer tournament name is set in 8 point
} // namespace title_twips

// A cell of the picture at a place, with nothing in it yet.
PictureCell make_cell(std::string name, int index, int left, int top, int width, int height);

// set_tn_dts_en: the tournament's name, under it the event, and the tournament's dates at the right of the
// event's line, across the given width. The draw starts at title_twips::head_top below it.
void set_tn_dts_en(PictureLayout& layout, const DrawInfo& info, int width);

// addad and addtimestamp: the line of the draw's time stamp on the left and the site's line on the right.
// A draw without a time stamp of its own shows the time the picture was made.
void add_site_and_time(PictureLayout& layout, const std::string& stamp_name, const DrawInfo& info, int top, int width,
    const PictureOptions& options);

} // namespace qv
