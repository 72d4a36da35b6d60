#include "scheduling/result_places.h"

#include "core/database.h"
#include "drawengine/open_draw.h"

#include <algorithm>

namespace qv {

std::vector<std::int64_t> changed_matches(const OpenDraw& draw, int level, int position)
{
    std::vector<std::int64_t> sids;
    auto add = [&](int l, int p) {
        if (draw.has_slot(l, p) && draw.slot(l, p).sid != 0
            && std::find(sids.begin(), sids.end(), draw.slot(l, p).sid) == sids.end())
            sids.push_back(draw.slot(l, p).sid);
    };
    add(level - 1, 2 * position - 1);
    add(level, position);
    add(level + 1, OpenDraw::next_position(position));
    return sids;
}

std::vector<std::int64_t> event_sids(Database& tournament, std::int64_t eid)
{
    std::vector<std::int64_t> sids;
    for (auto rows = tournament.query("select sid from schedule where eid=?", eid); rows.step();)
        sids.push_back(rows.integer(0));
    return sids;
}

std::vector<DayCourt> match_places(Database& tournament, const std::vector<std::int64_t>& sids)
{
    std::vector<DayCourt> places;
    auto find = tournament.query("select scheduledate, cid from schedule where sid=?");
    for (auto sid : sids) {
        find.bind_all(sid);
        if (find.step()) {
            DayCourt place { find.text(0), find.integer(1) };
            if (std::find(places.begin(), places.end(), place) == places.end())
                places.push_back(std::move(place));
        }
        find.reset();
    }
    return places;
}

} // namespace qv
