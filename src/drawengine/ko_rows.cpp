#include "drawengine/ko_rows.h"

#include "core/database.h"
#include "core/text_rules.h"
#include "drawengine/ko_row_values.h"

#include <iterator>
#include <string>

namespace qv {

namespace {

std::string rname_for(int slots, int rid)
{
    switch (slots) {
    case 8:
        return "quaters";
    case 4:
        return "semis";
    case 2:
        return "final";
    case 1:
        return "winner";
    default:
        return "r" + std::to_string(rid);
    }
}

// The columns every row of the tree takes from the draw and its place, bound in this order.
constexpr std::string_view place_columns = R"(eid, ds, drawtype, singdobs, eventname, evtsex, "match", maxrounds, sid,
    rid, rname, rsname, mt, mb, mw_ptr, matchtime_int, match_state, scheduledate, prev_match_state, matchtime, nbat,
    p1_matchnote, p2_matchnote, p3_matchnote, p4_matchnote, mg_matchnote)";
constexpr std::string_view place_values = "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, -1, '1', '', '', '', '', "
                                          "'', '', '', '', ''";
constexpr int place_count = 15;

// The stub: the place, and every name, seed and shadow column empty.
std::string stub_statement()
{
    return "insert into schedule (" + std::string(place_columns) + R"(, mtseeding, mbseeding, mtttt, mtfrn, mttag,
        mbttt, mbfrn, mbtag, mwttt, mwfrn, mwtag, imtttt, imtfrn, imttag, imbttt, imbfrn, imbtag, imwttt, imwfrn,
        imwtag, imatchscore, imatchlongscore) values ()"
        + std::string(place_values)
        + ", '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', "
          "'', '', '')";
}

// The sides' values of side_columns, each going to its live and its shadow column through one numbered
// parameter: top from place_count + 1, bottom after it. Both sides of a match feed the same slot, so the winner
// and the scores are named once, with the top side.
constexpr int side_count = 14;

std::string filled_statement()
{
    std::string columns(place_columns);
    std::string values(place_values);
    const SideVals none;
    int number = place_count;
    for (const char side : { 't', 'b' }) {
        const auto live = side_columns("", side, none);
        const auto shadow = side_columns("i", side, none);
        for (int k = 0; k < side_count; ++k) {
            ++number;
            const bool winner_or_score = k >= 3 && k <= 7;
            if (winner_or_score && side == 'b')
                continue;
            for (const auto* list : { &live, &shadow }) {
                columns += ", " + (*list)[static_cast<std::size_t>(k)].first;
                values += ", ?" + std::to_string(number);
            }
        }
    }
    return "insert into schedule (" + columns + ", changed) values (" + values + ", 0)";
}

// The side's values in the order of side_columns.
void bind_side(Statement& insert, int first, const SideVals& vals)
{
    const std::string* values[] = { &vals.frn, &vals.ttt, &vals.tag, &vals.wfrn, &vals.wttt, &vals.wtag, &vals.score,
        &vals.longscore, &vals.country, &vals.seeding, &vals.ar, &vals.sex, &vals.pa, &vals.pb };
    static_assert(std::size(values) == side_count);
    int number = first;
    for (const auto* value : values)
        insert.bind(number++, *value);
}

// Lays down the rows in match order, level by level and top to bottom, the winner row last; with_values binds
// each row's values from the open draw as well.
void lay_down(Database& tournament, OpenDraw& open, bool with_values)
{
    auto& draw = open.draw;
    const int rounds = round_count(draw.drawsize);
    if (rounds == 0)
        return;
    std::int64_t sid = 1;
    if (auto max = tournament.query("select max(sid) as maxsid from schedule"); max.step() && !max.is_null("maxsid"))
        sid = max.integer("maxsid") + 1;
    const auto min_sid = sid;
    const int levels = rounds + 1;
    const std::string maxrounds = std::to_string(levels - 1);

    static const std::string stub = stub_statement();
    static const std::string filled = filled_statement();
    Transaction transaction(tournament);
    auto insert = tournament.query(with_values ? filled : stub);
    int match = 1;
    int slots = draw.drawsize;
    for (int rid = 1; rid <= levels; ++rid) {
        for (int s = 1; s <= slots; s += 2) {
            insert.reset();
            insert.bind_all(draw.curr_eid, draw.drawsize, draw.drawtype, draw.singdobs, draw.eventname, draw.evtsex,
                match, levels - 1, sid, rid, rname_for(slots, rid), std::to_string(rid) + "." + maxrounds,
                OpenDraw::address_text(rid, s), OpenDraw::address_text(rid, s + 1),
                OpenDraw::address_text(rid + 1, OpenDraw::next_position(s)));
            if (with_values) {
                // The winner row has only its top side: the champion.
                const bool winner_row = rid >= draw.rounds;
                const bool top = open.has_slot(rid, s);
                const bool bottom = !winner_row && top && open.has_slot(rid, s + 1);
                bind_side(insert, place_count + 1, top ? get_vals(open, rid, s) : SideVals {});
                bind_side(insert, place_count + side_count + 1, bottom ? get_vals(open, rid, s + 1) : SideVals {});
            }
            insert.step();
            ++sid;
            ++match;
        }
        slots /= 2;
    }
    const auto last_sid = sid - 1;
    tournament.run("update events set min_sid = ?, max_sid = ? where eid = ?", min_sid, last_sid, draw.curr_eid);
    transaction.commit();

    draw.min_sid = min_sid;
    draw.max_sid = last_sid + 1;
    for (int level = 1; level <= open.levels(); ++level)
        for (int position = 1; position <= open.positions(level); ++position)
            open.slot(level, position).sid = min_sid + open.match_of(level, position) - 1;
}

} // namespace

void add_draw_stub(Database& tournament, OpenDraw& open)
{
    lay_down(tournament, open, false);
}

void KO_savecontrols(Database& tournament, OpenDraw& open)
{
    lay_down(tournament, open, true);
}

} // namespace qv
