#pragma once

#include "core/session_host.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace qv::test {

// A main window without a screen: records what the session asked and runs deferred actions on demand.
class FakeHost : public SessionHost
{
public:
    std::vector<std::string> calls;
    std::deque<std::function<void()>> deferred;
    bool allow_leave_draw = true;
    bool ended = false;
    Markers markers {};
    std::string generics_caption, generics_tooltip;

    void load_all_forms() override { calls.push_back("load_all_forms"); }
    void unload_all_forms() override { calls.push_back("unload_all_forms"); }
    bool leave_draw() override
    {
        calls.push_back("leave_draw");
        return allow_leave_draw;
    }
    void cancel_list1() override { calls.push_back("cancel_list1"); }
    void refresh_draw_on_entry() override { calls.push_back("refresh_draw"); }
    void refresh_lists(Lists which) override { calls.push_back("refresh " + std::to_string(int(which))); }
    void show_area(Area area, const Markers& m) override
    {
        calls.push_back("show " + std::string(area_name(area)));
        markers = m;
    }
    void set_generics(const std::string& caption, const std::string& tooltip) override
    {
        generics_caption = caption;
        generics_tooltip = tooltip;
    }
    void busy(bool) override { }
    void defer(std::function<void()> action) override { deferred.push_back(std::move(action)); }
    void end_process() override { ended = true; }

    // Runs the main loop's timers until nothing is pending.
    void run_deferred()
    {
        while (!deferred.empty()) {
            auto action = std::move(deferred.front());
            deferred.pop_front();
            action();
        }
    }
    int count(const std::string& call) const
    {
        int n = 0;
        for (const auto& c : calls)
            n += c == call;
        return n;
    }
};

} // namespace qv::test
