#include "ui/visual_grid.h"

#include "ui/qt_text.h"

#include <QPainter>

#include <algorithm>
#include <map>

namespace qv {

namespace {

constexpr int time_axis = 60; // width of the hour labels
constexpr int column_width = 96;
constexpr int heading_height = 24;
constexpr int box_width = 44;
constexpr int box_height = 16;
constexpr double pixels_per_minute = 1.2;

QColor state_colour(const std::string& state)
{
    if (state == "1")
        return QColor(235, 235, 235);
    if (state == "2")
        return QColor(170, 220, 170);
    if (state == "2.1")
        return QColor(250, 210, 140);
    return QColor(190, 190, 230);
}

QString hour_text(int minutes)
{
    return QStringLiteral("%1:%2")
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

VisualGridWidget::VisualGridWidget(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("visual_grid"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
}

void VisualGridWidget::set_grid(VisualGrid grid)
{
    m_grid = std::move(grid);
    // The grid runs from the hour before the first box to the hour after the last.
    m_grid.first = m_grid.boxes.empty() ? 0 : std::max(0, m_grid.first / 60 * 60);
    m_grid.last = m_grid.boxes.empty() ? 0 : (m_grid.last / 60 + 1) * 60;
    const int width = time_axis + static_cast<int>(m_grid.columns.size()) * column_width + 10;
    const int height = heading_height + y_of(m_grid.last) + box_height + 10;
    setMinimumSize(width, height);
    resize(width, height);
    update();
}

int VisualGridWidget::x_of(std::int64_t cid) const
{
    const auto found = std::find_if(
        m_grid.columns.begin(), m_grid.columns.end(), [cid](const auto& column) { return column.first == cid; });
    return time_axis + static_cast<int>(found - m_grid.columns.begin()) * column_width;
}

int VisualGridWidget::y_of(int minutes) const
{
    return heading_height + static_cast<int>((minutes - m_grid.first) * pixels_per_minute);
}

void VisualGridWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    if (m_grid.boxes.empty()) {
        painter.drawText(rect(), Qt::AlignCenter, qs(m_grid.message));
        return;
    }
    for (std::size_t i = 0; i < m_grid.columns.size(); ++i)
        painter.drawText(QRect(time_axis + static_cast<int>(i) * column_width, 0, column_width, heading_height),
            Qt::AlignCenter, qs(m_grid.columns[i].second));
    // The lines of the time axis, one every half hour.
    for (int minutes = m_grid.first; minutes <= m_grid.last; minutes += 30) {
        const int y = y_of(minutes);
        painter.setPen(minutes % 60 == 0 ? Qt::gray : Qt::lightGray);
        painter.drawLine(time_axis - 6, y, width(), y);
        if (minutes % 60 == 0)
            painter.drawText(QRect(0, y - 8, time_axis - 8, 16), Qt::AlignRight | Qt::AlignVCenter, hour_text(minutes));
    }
    // Boxes at the same court and time stand side by side.
    std::map<std::pair<std::int64_t, int>, int> taken;
    for (const auto& box : m_grid.boxes) {
        const int beside = taken[{ box.cid, box.minutes }]++;
        const QRect place(x_of(box.cid) + 4 + (beside % 2) * (box_width + 2),
            y_of(box.minutes) + (beside / 2) * box_height, box_width, box_height);
        painter.fillRect(place, state_colour(box.match_state));
        painter.setPen(Qt::black);
        painter.drawRect(place);
        painter.drawText(place, Qt::AlignCenter, QString::number(box.sid));
    }
}

} // namespace qv
