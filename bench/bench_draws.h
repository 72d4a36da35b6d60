#pragma once

#include "core/database.h"
#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"

#include <QGuiApplication>

#include <string>

namespace qv::bench {

// Pictures need a GUI application for their fonts; benchmarks run without a screen.
inline void ensure_gui_app()
{
    if (QCoreApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "quorvelin_bench";
    static char* argv[] = { name, nullptr };
    static QGuiApplication app(argc, argv);
}

// A knock-out event of the given size with player k in slot k, long names as real entries have them, the top
// player of each match winning the first two rounds. The caller holds the transaction.
inline void save_played_ko_draw(Session& session, int eid, int drawsize)
{
    auto& db = session.tournament();
    db.run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, timestamp_text)
        values (?, ?, 'male', 'singles', 'ko', 'Monday, June 14, 2027 10:00:00'))",
        eid, "men's open event " + std::to_string(eid));
    OpenDraw open;
    load_event_state(db, eid, open.draw);
    open.build_tree(drawsize);
    for (int k = 1; k <= drawsize; ++k) {
        auto& slot = open.slot(1, k);
        slot.ttt = "Maximilian Schwarzenberger " + std::to_string(k);
        slot.frn = "M Schwarzenbe" + std::to_string(k);
        slot.tag = "Schwarz" + std::to_string(k);
        slot.seed = k <= 16 ? std::to_string(k) : "";
        slot.country = k % 3 ? "NED" : "BEL";
    }
    KO_savecontrols(db, open);
    db.run("update events set drawdone=true, drawsize=? where eid=?", drawsize, eid);
    progressdraw(session, eid, 1);
    progressdraw(session, eid, 2);
}

} // namespace qv::bench
