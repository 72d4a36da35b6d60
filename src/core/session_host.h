#pragma once

#include "core/work_areas.h"

#include <functional>
#include <string>

namespace qv {

// The families of lists that operations ask the windows to read again.
enum class Lists { players, events, entries, folders, draw, schedule };

// The windows' side of the session: the work areas, the pointer, the deferred timer and the end of the process.
// The main window implements it; tests record what the session asked of it.
class SessionHost
{
public:
    virtual ~SessionHost() = default;

    // Initialise every work area from the open tournament, in the boot order
    // payments, assistant, documents, online, prints, tournament, schedule, draw.
    virtual void load_all_forms() = 0;
    // Tear the areas down (payments, tournament, draw, schedule, assistant, documents, online, prints)
    // and grey the toolbar buttons.
    virtual void unload_all_forms() = 0;

    // The draw area's consent to be left; false when the user chose to stay.
    virtual bool leave_draw() = 0;
    virtual void cancel_list1() = 0;
    // The draw area re-reads its draw when it is entered, so changes made elsewhere show.
    virtual void refresh_draw_on_entry() = 0;

    // An operation changed what these lists show; every open window that shows them reads them again.
    virtual void refresh_lists(Lists which) = 0;

    virtual void show_area(Area area, const Markers& markers) = 0;
    virtual void set_generics(const std::string& caption, const std::string& tooltip) = 0;
    virtual void busy(bool on) = 0;
    // A boot has run: the settings are read and a tournament is open, or none could be.
    virtual void boot_ended() { }

    // Runs the action from the main loop once the caller has returned.
    virtual void defer(std::function<void()> action) = 0;
    virtual void end_process() = 0;
};

} // namespace qv
