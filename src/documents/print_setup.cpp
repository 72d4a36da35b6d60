#include "documents/print_setup.h"

#include "core/session.h"

#include <algorithm>
#include <cmath>

namespace qv {

namespace {

double on_page(double value)
{
    return std::clamp(value, 0.0, 100.0);
}

} // namespace

PicturePlace move_picture(PicturePlace place, PictureMove move, bool small_steps)
{
    const double step = small_steps ? picture_small_step : picture_step;
    switch (move) {
    case PictureMove::left:
        place.left -= step;
        break;
    case PictureMove::right:
        place.left += step;
        break;
    case PictureMove::up:
        place.top -= step;
        break;
    case PictureMove::down:
        place.top += step;
        break;
    case PictureMove::width_plus:
        place.width += step;
        break;
    case PictureMove::width_minus:
        place.width -= step;
        break;
    case PictureMove::height_plus:
        place.height += step;
        break;
    case PictureMove::height_minus:
        place.height -= step;
        break;
    }
    place.left = on_page(place.left);
    place.top = on_page(place.top);
    place.width = on_page(place.width);
    place.height = on_page(place.height);
    return place;
}

PicturePlace expand_to_fit(PicturePlace place)
{
    place.left = 0;
    place.top = 0;
    place.width = 100;
    place.height = 100;
    return place;
}

PicturePlace set_origin_0_0(PicturePlace place)
{
    place.left = 0;
    place.top = 0;
    return place;
}

PicturePlace clear_settings()
{
    return PicturePlace { "portrait", 0, 0, 0, 0 };
}

int whole_number_pct(double percent)
{
    return static_cast<int>(std::lround(percent));
}

bool print_setup_print(Session& session, const QImage& picture, const PicturePlace& place)
{
    if (picture.isNull()) {
        session.talk().message("no image to print");
        return false;
    }
    return print_with_printer(
        session, "print configuration", [&](PrintJob& job) { print_picture(job, printable(picture), place, 1); });
}

} // namespace qv
