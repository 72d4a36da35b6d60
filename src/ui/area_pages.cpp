#include "ui/area_page.h"
#include "ui/assistant_area.h"
#include "ui/documents_area.h"
#include "ui/online_area.h"
#include "ui/payments_area.h"
#include "ui/prints_area.h"
#include "ui/schedule_board.h"

namespace qv {

// One case per area whose window stands; an area without one shows its title.
AreaPage* make_area_page(Area area, Session& session, MainWindow& main, QWidget* parent)
{
    switch (area) {
    case Area::payments:
        return new PaymentsArea(session, parent);
    case Area::prints:
        return new PrintsArea(session, parent);
    case Area::schedule:
        return new ScheduleBoardArea(session, main, parent);
    case Area::assistant_new:
        return new AssistantArea(session, main, parent);
    case Area::idocuments:
        return new DocumentsArea(session, main, parent);
    case Area::config_admin:
        return new OnlineArea(session, parent);
    case Area::mainform:
    case Area::draw:
        break;
    }
    return nullptr;
}

} // namespace qv
