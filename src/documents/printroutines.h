#pragma once

#include "documents/print_configs.h"

#include <QPainter>
#include <QRectF>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QImage;
class QPagedPaintDevice;

namespace qv {

class PictureLayout;
class Session;

// The printed pages of one print: pages of a known inner size in an orientation, pictures drawn into rectangles,
// lines of text in a font, new pages, the end of the document. The printer comes from the user's choice.
class PrintJob
{
public:
    explicit PrintJob(QPagedPaintDevice& printer);
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    ~PrintJob();

    // Starts a page in the orientation ("portrait" or "landscape"); the first page starts the document. False
    // when the printer refuses.
    bool new_page(std::string_view orientation);
    QPainter& painter() { return m_painter; }
    // The page inside its margins, in the painter's coordinates.
    QRectF page() const;
    int pages() const { return m_pages; }
    bool failed() const { return m_failed; }
    // Ends the document; false when the printer failed at any point.
    bool end();

private:
    QPagedPaintDevice& m_printer;
    QPainter m_painter;
    int m_pages = 0;
    bool m_failed = false;
};

// A picture as the print routines draw it: into any rectangle of a page, stretched to fill it.
using PrintablePicture = std::function<void(QPainter&, const QRectF&)>;
PrintablePicture printable(const QImage& picture);
PrintablePicture printable(const PictureLayout& layout);

// Where the picture goes on the page: the orientation and the four percentages of the page's inner size.
struct PicturePlace
{
    std::string orientation = "portrait";
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};
PicturePlace place_of(const PrintConfig& config);

// The picture at its place, on a page of its own for each copy.
bool print_picture(PrintJob& job, const PrintablePicture& picture, const PicturePlace& place, int copies);

// Prints a picture by the default configuration of its draw kind. A kind with no default prints nothing and
// says nothing; the answer is then false.
bool print_picture_by_config(
    Session& session, PrintJob& job, const PrintablePicture& picture, const PrintKind& kind, int copies);

// Text in "Verdana": app.text_top empty lines, then the title and the lines each behind app.text_left blanks,
// over as many pages as they take. orientation is "l" (landscape) or "p" (portrait).
bool print_text(Session& session, PrintJob& job, const std::vector<std::string>& lines, std::string_view orientation,
    std::string_view title);

// One print as the user starts it: the printer is asked for under the title (the system print dialog), then the
// body prints into it. Nothing happens when the user cancels. A printer that fails shows "print error". True when
// pages went out.
bool print_with_printer(Session& session, std::string_view title, const std::function<void(PrintJob&)>& body);

// "print(l)" and "print(p)" of a list: its lines, with a title, landscape for "l" and portrait for "p".
bool print_lines(
    Session& session, const std::vector<std::string>& lines, std::string_view orientation, std::string_view title);

} // namespace qv
