#include "documents/printroutines.h"

#include "core/session.h"
#include "documents/picture_render.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPagedPaintDevice>

#include <algorithm>
#include <cmath>
#include <memory>

namespace qv {

namespace {

constexpr int text_point_size = 10;
constexpr int max_text_setting = 50; // the control panel's limit of indent blanks and header lines

QPageLayout::Orientation orientation_of(std::string_view word)
{
    return word == "landscape" || word == "l" ? QPageLayout::Landscape : QPageLayout::Portrait;
}

int text_setting(Session& session, const char* key)
{
    return std::clamp(session.settings().integer(key), 0, max_text_setting);
}

QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Qt's tab stops, 80 pixels of a screen, at the resolution of the page.
qreal tab_stop(const QPainter& painter)
{
    return 80.0 * painter.device()->logicalDpiX() / 96.0;
}

// A line whose tabs jump to the next tab stop. The pieces are placed here: Qt's own expansion of tabs drops the
// text after a tab on a high-resolution printer.
void draw_tabbed_line(QPainter& painter, const QRectF& rect, const QString& line)
{
    const qreal tab = tab_stop(painter);
    const QFontMetricsF metrics(painter.font(), painter.device());
    qreal x = 0;
    const auto pieces = line.split(QLatin1Char('\t'));
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        if (i > 0)
            x = (std::floor(x / tab) + 1) * tab;
        painter.drawText(QRectF(rect.left() + x, rect.top(), std::max<qreal>(rect.width() - x, 1), rect.height()),
            Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, pieces[i]);
        x += metrics.horizontalAdvance(pieces[i]);
    }
}

} // namespace

PrintJob::PrintJob(QPagedPaintDevice& printer)
    : m_printer(printer)
{
}

PrintJob::~PrintJob()
{
    if (m_painter.isActive())
        m_painter.end();
}

bool PrintJob::new_page(std::string_view orientation)
{
    if (m_failed)
        return false;
    const auto wanted = orientation_of(orientation);
    if (m_pages == 0) {
        m_printer.setPageOrientation(wanted);
        m_failed = !m_painter.begin(&m_printer);
    } else {
        m_printer.setPageOrientation(wanted);
        m_failed = !m_printer.newPage();
    }
    if (m_failed)
        return false;
    ++m_pages;
    return true;
}

QRectF PrintJob::page() const
{
    const QRect inner = m_printer.pageLayout().paintRectPixels(m_printer.logicalDpiX());
    return QRectF(0, 0, inner.width(), inner.height());
}

bool PrintJob::end()
{
    if (m_painter.isActive() && !m_painter.end())
        m_failed = true;
    return !m_failed;
}

PrintablePicture printable(const QImage& picture)
{
    return [picture](QPainter& painter, const QRectF& target) {
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter.drawImage(target, picture);
        painter.restore();
    };
}

PrintablePicture printable(const PictureLayout& layout)
{
    auto shared = std::make_shared<const PictureLayout>(layout);
    return [shared](QPainter& painter, const QRectF& target) { paint_picture(painter, *shared, target); };
}

PicturePlace place_of(const PrintConfig& config)
{
    return { config.orientation, static_cast<double>(config.left), static_cast<double>(config.top),
        static_cast<double>(config.width), static_cast<double>(config.height) };
}

bool print_picture(PrintJob& job, const PrintablePicture& picture, const PicturePlace& place, int copies)
{
    for (int copy = 0; copy < copies; ++copy) {
        if (!job.new_page(place.orientation))
            return false;
        const QRectF page = job.page();
        const QRectF target(page.left() + place.left / 100.0 * page.width(),
            page.top() + place.top / 100.0 * page.height(), place.width / 100.0 * page.width(),
            place.height / 100.0 * page.height());
        picture(job.painter(), target);
    }
    return copies > 0;
}

bool print_picture_by_config(
    Session& session, PrintJob& job, const PrintablePicture& picture, const PrintKind& kind, int copies)
{
    const auto config = default_print_config(session.init_db(), kind);
    if (!config)
        return false;
    return print_picture(job, picture, place_of(*config), copies);
}

bool print_text(Session& session, PrintJob& job, const std::vector<std::string>& lines, std::string_view orientation,
    std::string_view title)
{
    const auto page_orientation = orientation == "l" ? "landscape" : "portrait";
    if (!job.new_page(page_orientation))
        return false;
    auto& painter = job.painter();
    QFont font(QStringLiteral("Verdana"));
    font.setPointSize(text_point_size);
    painter.setFont(font);
    painter.setPen(Qt::black);
    const qreal line_height = QFontMetricsF(font, painter.device()).lineSpacing();

    std::vector<std::string> printed(static_cast<std::size_t>(text_setting(session, "app.text_top")));
    const std::string indent(static_cast<std::size_t>(text_setting(session, "app.text_left")), ' ');
    if (!title.empty())
        printed.push_back(indent + std::string(title));
    for (const auto& line : lines)
        printed.push_back(indent + line);

    qreal y = 0;
    for (const auto& line : printed) {
        if (y + line_height > job.page().height()) {
            if (!job.new_page(page_orientation))
                return false;
            painter.setFont(font);
            painter.setPen(Qt::black);
            y = 0;
        }
        draw_tabbed_line(painter, QRectF(0, y, job.page().width(), line_height), qs(line));
        y += line_height;
    }
    return true;
}

bool print_with_printer(Session& session, std::string_view title, const std::function<void(PrintJob&)>& body)
{
    const auto printer = session.talk().choose_printer(title);
    if (!printer)
        return false;
    PrintJob job(*printer);
    body(job);
    if (!job.end()) {
        session.talk().message("print error");
        return false;
    }
    return job.pages() > 0;
}

bool print_lines(
    Session& session, const std::vector<std::string>& lines, std::string_view orientation, std::string_view title)
{
    return print_with_printer(
        session, title, [&](PrintJob& job) { print_text(session, job, lines, orientation, title); });
}

} // namespace qv
