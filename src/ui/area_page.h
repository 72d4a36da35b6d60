#pragma once

#include "core/session_host.h"

#include <QWidget>

namespace qv {

class MainWindow;
class Session;

// The window of a work area. The main window initialises the areas when a tournament opens, tears them down when
// it closes, and passes on every refresh that an operation asks for.
class AreaPage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    // Reads what the area shows from the tournament file just opened.
    virtual void init() = 0;
    // Forgets the tournament: the file is closing.
    virtual void clear() = 0;
    // An operation changed what these lists show.
    virtual void refresh_lists(Lists which) { (void)which; }
};

// The window of an area other than the tournament and draw areas, or none while that area has no window yet.
AreaPage* make_area_page(Area area, Session& session, MainWindow& main, QWidget* parent);

} // namespace qv
