#include "documents/picture_render.h"

#include <QFont>
#include <QPainter>
#include <QPen>

#include <map>
#include <utility>

namespace qv {

namespace {

constexpr int text_margin = 20; // the inner margin of a cell's text, in twips
constexpr qreal line_width = twips_per_pixel; // one pixel of a 96-dpi picture

QString qs(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

int text_flags(const PictureCell& cell)
{
    int flags = cell.align == CellAlign::left ? Qt::AlignLeft
        : cell.align == CellAlign::right      ? Qt::AlignRight
                                              : Qt::AlignHCenter;
    flags |= cell.valign == CellVAlign::top ? Qt::AlignTop
        : cell.valign == CellVAlign::bottom ? Qt::AlignBottom
                                            : Qt::AlignVCenter;
    if (cell.wrap)
        flags |= Qt::TextWordWrap;
    if (!cell.clip)
        flags |= Qt::TextDontClip;
    return flags;
}

void draw_frame(QPainter& painter, const PictureCell& cell)
{
    const QRectF box(cell.left, cell.top, cell.width, cell.height);
    switch (cell.frame) {
    case CellFrame::none:
        return;
    case CellFrame::box:
        painter.drawRect(box);
        return;
    case CellFrame::underline:
        painter.drawLine(box.bottomLeft(), box.bottomRight());
        return;
    case CellFrame::bracket: {
        const qreal q1 = cell.top + cell.height / 4.0;
        const qreal q3 = cell.top + 3.0 * cell.height / 4.0;
        painter.drawLine(QPointF(box.left(), q1), QPointF(box.right(), q1));
        painter.drawLine(QPointF(box.left(), q3), QPointF(box.right(), q3));
        painter.drawLine(QPointF(box.right(), q1), QPointF(box.right(), q3));
        return;
    }
    case CellFrame::bracket_last: {
        const qreal middle = cell.top + cell.height / 2.0;
        painter.drawLine(QPointF(box.left(), middle), QPointF(box.right(), middle));
        return;
    }
    }
}

// The fonts of one painting, made once per size and weight.
class Fonts
{
public:
    const QFont& get(int size_twips, bool bold)
    {
        auto& font = m_fonts[{ size_twips, bold }];
        if (font.pixelSize() != size_twips) {
            font = QFont(QStringLiteral("Verdana"));
            font.setPixelSize(size_twips);
            font.setBold(bold);
        }
        return font;
    }

private:
    std::map<std::pair<int, bool>, QFont> m_fonts;
};

} // namespace

QColor picture_color(std::uint32_t value)
{
    return QColor(
        static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF), static_cast<int>((value >> 16) & 0xFF));
}

QRectF picture_pixel_rect(const PictureLayout& layout)
{
    return QRectF(0, 0, layout.pixel_width(), layout.pixel_height());
}

void paint_picture(QPainter& painter, const PictureLayout& layout, const QRectF& target)
{
    if (layout.width <= 0 || layout.height <= 0)
        return;
    painter.save();
    painter.translate(target.topLeft());
    painter.scale(target.width() / layout.width, target.height() / layout.height);
    painter.setClipRect(QRectF(0, 0, layout.width, layout.height));
    painter.fillRect(QRectF(0, 0, layout.width, layout.height), picture_color(layout.background));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    const QPen pen(picture_color(picture_black), line_width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    Fonts fonts;
    for (const auto& cell : layout.cells()) {
        if (!cell.visible)
            continue;
        if (cell.filled)
            painter.fillRect(QRectF(cell.left, cell.top, cell.width, cell.height), picture_color(cell.fill));
        if (cell.frame != CellFrame::none) {
            painter.setPen(pen);
            painter.setBrush(Qt::NoBrush);
            draw_frame(painter, cell);
        }
        if (cell.text.empty())
            continue;
        painter.setPen(picture_color(picture_black));
        painter.setFont(fonts.get(cell.font_twips, cell.bold));
        const QRectF inner(cell.left + text_margin, cell.top, cell.width - 2 * text_margin, cell.height);
        painter.drawText(inner, text_flags(cell), qs(cell.text));
    }
    painter.restore();
}

QImage scrape(const PictureLayout& layout)
{
    QImage image(layout.pixel_width(), layout.pixel_height(), QImage::Format_RGB32);
    image.fill(picture_color(layout.background));
    QPainter painter(&image);
    paint_picture(painter, layout,
        QRectF(0, 0, static_cast<qreal>(layout.width) / twips_per_pixel,
            static_cast<qreal>(layout.height) / twips_per_pixel));
    painter.end();
    return image;
}

} // namespace qv
