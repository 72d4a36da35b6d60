#include "drawengine/ko_row_values.h"

#include "core/text_rules.h"

#include <tuple>

namespace qv {

std::pair<std::string, std::string> split_people(const std::string& name)
{
    if (name.find('/') == std::string::npos)
        return { name, {} };
    auto pair = split_pair(name);
    return { std::move(pair.left), std::move(pair.right) };
}

SideVals get_vals(const OpenDraw& open, int level, int position)
{
    SideVals vals;
    const auto& slot = open.slot(level, position);
    vals.frn = slot.frn;
    vals.ttt = slot.ttt;
    vals.tag = slot.tag;
    vals.country = slot.country;
    vals.seeding = slot.seed;
    vals.ar = slot.ar;
    vals.sex = slot.sex;
    std::tie(vals.pa, vals.pb) = split_people(slot.ttt);
    const int n = OpenDraw::next_position(position);
    if (open.has_slot(level + 1, n)) {
        const auto& next = open.slot(level + 1, n);
        if (!open.is_empty(level + 1, n)) {
            vals.wfrn = next.frn;
            vals.wttt = next.ttt;
            vals.wtag = next.tag;
        }
        vals.score = next.score.matchscore;
        vals.longscore = next.score.matchlongscore;
    }
    return vals;
}

std::vector<Column> side_columns(std::string_view prefix, char side, const SideVals& vals)
{
    const std::string p(prefix);
    const std::string m = p + "m" + side;
    const bool top = side == 't';
    return {
        { m + "frn", vals.frn },
        { m + "ttt", vals.ttt },
        { m + "tag", vals.tag },
        { p + "mwfrn", vals.wfrn },
        { p + "mwttt", vals.wttt },
        { p + "mwtag", vals.wtag },
        { p + "matchscore", vals.score },
        { p + "matchlongscore", vals.longscore },
        { m + "_country", vals.country },
        { m + "seeding", vals.seeding },
        { m + "ar", vals.ar },
        { m + "sex", vals.sex },
        { p + (top ? "p1" : "p3"), vals.pa },
        { p + (top ? "p2" : "p4"), vals.pb },
    };
}

} // namespace qv
