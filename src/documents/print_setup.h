#pragma once

#include "documents/printroutines.h"

#include <QImage>

namespace qv {

class Session;

// The moving buttons of the print configuration window, and their steps in percent of the page.
enum class PictureMove { left, right, up, down, width_plus, width_minus, height_plus, height_minus };
inline constexpr double picture_step = 5;
inline constexpr double picture_small_step = 1;

// pos_draw_pic's place after a move; the place stays on the page's 0 to 100 in each of its four values.
PicturePlace move_picture(PicturePlace place, PictureMove move, bool small_steps);
// "expand to fit": the whole page. "set or origin 0,0": left and top 0.
PicturePlace expand_to_fit(PicturePlace place);
PicturePlace set_origin_0_0(PicturePlace place);
// clear_settings: portrait and all four 0.
PicturePlace clear_settings();

// whole_number_pct: a share as the fields show it.
int whole_number_pct(double percent);

// "print" of the window: the picture at the place on screen. "no image to print" without a picture.
bool print_setup_print(Session& session, const QImage& picture, const PicturePlace& place);

} // namespace qv
