#pragma once

#include "drawengine/drawconfig.h"

#include <QString>

#include <cstdint>
#include <functional>

class QListWidget;

namespace qv {

class Session;
class TournamentArea;

// What the operations lists ask of the rest of the main window: the draw area lives beside the tournament area.
struct TournamentOperationHooks
{
    // "show draw": the draw area with the event's draw open.
    std::function<void(std::int64_t eid)> show_draw;
    // "select draw": the draw area, to choose a draw from its list.
    std::function<void()> select_draw;
    // The draw configuration reaches the open draw through these, so a draw in progress locks the editor.
    std::function<DrawConfigHooks()> drawconfig_hooks;
    // "add results": the result window.
    std::function<void()> open_addresult;
};

// "search" on a main list: the next line after the current one that holds the text, case-blind, wrapping round
// to the top. The line found becomes current; false when no line holds it.
bool search_list(QListWidget* list, const QString& text);

// Fills the four lists of operations of the tournament area with the windows they open.
void register_tournament_operations(TournamentArea& area, Session& session, TournamentOperationHooks hooks);

} // namespace qv
