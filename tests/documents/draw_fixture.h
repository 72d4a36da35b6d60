#pragma once

#include "documents/picture_layout.h"
#include "support/gui_app.h"
#include "support/saved_draws.h"
#include "support/session_fixture.h"

#include <string>

namespace qv::test {

// A tournament file, named and dated, to which tests add saved draws (see saved_draws.h).
class DrawFixture : public SessionFixture
{
protected:
    void SetUp() override
    {
        ensure_gui_app();
        open_new_tournament();
        db().exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().set_tournament_cache(db(), "itname", "city open championships");
        session.settings().set_tournament_cache(db(), "itdates", "12-14 june 2027");
        talk.clear();
    }

    void add_event(std::int64_t eid, const std::string& name, const std::string& drawtype, int pts = 0)
    {
        add_draw_event(db(), eid, name, drawtype, pts);
    }
    void ko_draw(std::int64_t eid, const std::string& name, int drawsize, int entrants, int played = 0)
    {
        save_ko_draw(session, eid, name, drawsize, entrants, played);
    }
    void rr_draw(std::int64_t eid, const std::string& name, int n, int pts, int played)
    {
        save_rr_draw(session, eid, name, n, pts, played);
    }

    // The text of one cell of a picture, or "<none>" when the picture has no such cell.
    static std::string text(const PictureLayout& layout, const std::string& name, int index)
    {
        const auto* cell = layout.find(name, index);
        return cell ? cell->text : "<none>";
    }
};

} // namespace qv::test
