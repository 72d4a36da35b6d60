#pragma once

#include "documents/picture_layout.h"

#include <QColor>
#include <QImage>
#include <QRectF>

class QPainter;

namespace qv {

// Paints the layout into a rectangle of the painter, the canvas stretched to fill it: on a picture, a page or a
// screen alike. Text is set in "Verdana".
void paint_picture(QPainter& painter, const PictureLayout& layout, const QRectF& target);

// The canvas size in pixels of a 96-dpi picture.
QRectF picture_pixel_rect(const PictureLayout& layout);

// scrape: the canvas copied into a picture of the canvas's size.
QImage scrape(const PictureLayout& layout);

// A colour as the settings store it (red + 256 * green + 65536 * blue).
QColor picture_color(std::uint32_t value);

} // namespace qv
