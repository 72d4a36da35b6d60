#include "ui/tournament_operations.h"

#include "core/session.h"
#include "datafiles/results_file.h"
#include "datafiles/tods_export.h"
#include "ui/add_to_event_window.h"
#include "ui/drawconfig_window.h"
#include "ui/events_windows.h"
#include "ui/exports_window.h"
#include "ui/folders_windows.h"
#include "ui/list_search.h"
#include "ui/players_import_export_window.h"
#include "ui/players_windows.h"
#include "ui/qt_text.h"
#include "ui/resolve_doubles_window.h"
#include "ui/seeding_patterns_window.h"
#include "ui/setdatescourts_window.h"
#include "ui/tournament_area.h"
#include "ui/tournament_config_window.h"
#include "ui/window_behaviour.h"

#include <QInputDialog>
#include <QListWidget>

#include <algorithm>

namespace qv {

namespace {

// Operations on the selected event say so when none is selected.
bool event_chosen(TournamentArea& area, Session& session)
{
    if (area.selected_event() != 0)
        return true;
    session.talk().message("select event");
    return false;
}

template <typename Window> void show_window(Window* window)
{
    if (window) {
        window->show();
        window->raise();
    }
}

// Asks for the text and searches the list; the director is told when nothing holds it.
void search_operation(Session& session, QListWidget* list)
{
    bool ok = false;
    const auto text
        = QInputDialog::getText(list->window(), QStringLiteral("search"), QStringLiteral("search for"), {}, {}, &ok);
    if (!ok || text.trimmed().isEmpty())
        return;
    if (!search_list(list, text.trimmed()))
        session.talk().message("not found");
}

void register_events(TournamentArea& area, Session& session, const TournamentOperationHooks& hooks)
{
    auto* parent = area.window();
    area.add_operation(OperationList::events, QStringLiteral("show draw"), [&area, &session, hooks] {
        if (event_chosen(area, session) && hooks.show_draw)
            hooks.show_draw(area.selected_event());
    });
    area.add_operation(OperationList::events, QStringLiteral("select draw"), [hooks] {
        if (hooks.select_draw)
            hooks.select_draw();
    });
    area.add_operation(OperationList::events, QStringLiteral("events"),
        [&session, parent] { show_window(open_admin_events(session, parent)); });
    area.add_operation(OperationList::events, QStringLiteral("draw config"), [&area, &session, parent, hooks] {
        if (!event_chosen(area, session))
            return;
        auto* window = open_drawconfig(session, area.selected_event(),
            hooks.drawconfig_hooks ? hooks.drawconfig_hooks() : DrawConfigHooks {}, parent);
        QObject::connect(
            window, &DrawConfigWindow::playerDetailsRequested, window, [&session, window](const QString& player) {
                open_player_details_by_name(session, to_std(player), window);
            });
        show_window(window);
    });
    area.add_operation(OperationList::events, QStringLiteral("manage events"),
        [&session, parent] { show_window(open_events_manage(session, parent)); });
    area.add_operation(OperationList::events, QStringLiteral("seeding patterns"),
        [&session, parent] { show_window(open_seeding_patterns(session, parent)); });
    area.add_operation(OperationList::events, QStringLiteral("search"),
        [&area, &session] { search_operation(session, area.events()); });
}

void register_players(TournamentArea& area, Session& session)
{
    auto* parent = area.window();
    area.add_operation(OperationList::players, QStringLiteral("players"),
        [&session, parent] { show_window(open_players(session, parent)); });
    area.add_operation(OperationList::players, QStringLiteral("   import/export"),
        [&session, parent] { show_window(open_players_import_export(session, parent)); });
    area.add_operation(OperationList::players, QStringLiteral("   delete"),
        [&session, parent] { show_window(open_players_delete(session, parent)); });
    area.add_operation(OperationList::players, QStringLiteral("   folders"), [&session, parent] {
        if (session.has_tournament())
            show_window(new FoldersAssignWindow(session, parent));
    });
    area.add_operation(OperationList::players, QStringLiteral("manage folders"), [&session, parent] {
        if (session.has_tournament())
            show_window(new FoldersWindow(session, parent));
    });
    area.add_operation(OperationList::players, QStringLiteral("add to event"),
        [&session, parent] { show_window(open_add_to_event(session, parent)); });
    area.add_operation(OperationList::players, QStringLiteral("search"),
        [&area, &session] { search_operation(session, area.players()); });
    area.add_operation(OperationList::selected_event, QStringLiteral("resolve doubles"), [&area, &session, parent] {
        if (event_chosen(area, session))
            open_resolve_doubles(session, area.selected_event(), parent);
    });
    area.add_operation(OperationList::selected_event, QStringLiteral("search"),
        [&area, &session] { search_operation(session, area.entries()); });
}

// The tournament list keeps its order whichever window registered its line first.
void keep_tournament_order(QListWidget* list)
{
    static const QStringList order { "add results", "imports/exports", "save qv4 file", "export entries (brief)",
        "export entries (expanded)", "export TODS (json)", "tournament", "set dates/", "clear data" };
    const auto rank = [](const QString& caption) {
        for (int i = 0; i < order.size(); ++i)
            if (caption == order[i] || (order[i].endsWith(QLatin1Char('/')) && caption.startsWith(order[i])))
                return i;
        return static_cast<int>(order.size());
    };
    QList<QListWidgetItem*> items;
    while (list->count() > 0)
        items << list->takeItem(0);
    std::stable_sort(items.begin(), items.end(),
        [&rank](QListWidgetItem* a, QListWidgetItem* b) { return rank(a->text()) < rank(b->text()); });
    for (auto* item : items)
        list->addItem(item);
}

void register_tournament(TournamentArea& area, Session& session, const TournamentOperationHooks& hooks)
{
    auto* parent = area.window();
    area.add_operation(OperationList::tournament, QStringLiteral("add results"), [&session, hooks] {
        if (session.has_tournament() && hooks.open_addresult)
            hooks.open_addresult();
    });
    area.add_operation(OperationList::tournament, QStringLiteral("imports/exports"), [&session, parent] {
        if (session.has_tournament())
            show_over_parent(new ExportsWindow(session, parent));
    });
    area.add_operation(OperationList::tournament, QStringLiteral("save qv4 file"), [&session] {
        if (session.has_tournament())
            save_qv4_file(session);
    });
    area.add_operation(OperationList::tournament, QStringLiteral("export entries (brief)"), [&session] {
        if (session.has_tournament())
            save_entries_brief(session);
    });
    area.add_operation(OperationList::tournament, QStringLiteral("export entries (expanded)"), [&session] {
        if (session.has_tournament())
            save_entries_expanded(session);
    });
    area.add_operation(OperationList::tournament, QStringLiteral("export TODS (json)"), [&session] {
        if (session.has_tournament())
            export_tods(session);
    });
    area.add_operation(OperationList::tournament, QStringLiteral("tournament"), [&session, parent] {
        if (session.has_tournament())
            show_over_parent(new TournamentConfigWindow(session, parent));
    });
    area.add_worded_operation(
        OperationList::tournament,
        [&session] { return qs("set dates/" + session.settings().text("app.generic_courts")); },
        [&session, parent] { open_setdatescourts(session, parent); }, QStringLiteral("clear data"));
    keep_tournament_order(area.operations(OperationList::tournament));
}

} // namespace

bool search_list(QListWidget* list, const QString& text)
{
    const auto row = next_matching_row(list, text);
    if (row)
        list->setCurrentRow(*row);
    return row.has_value();
}

void register_tournament_operations(TournamentArea& area, Session& session, TournamentOperationHooks hooks)
{
    register_tournament(area, session, hooks);
    register_events(area, session, hooks);
    register_players(area, session);
}

} // namespace qv
