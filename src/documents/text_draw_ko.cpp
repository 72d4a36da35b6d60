#include "documents/text_draw_ko.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "documents/match_text.h"
#include "drawengine/open_draw.h"

namespace qv {

namespace {

// "quaters", "semis" and "final" by the round's name, otherwise "r" and the round.
std::string round_word(std::string_view rname, int rid)
{
    const auto name = lcase(trim(rname));
    if (name == "quaters" || name == "semis" || name == "final")
        return name;
    return "r" + std::to_string(rid);
}

std::string joiner(const Statement& row)
{
    const auto winner = row.text("mwttt");
    if (!winner.empty() && same_name(winner, row.text("mtttt")))
        return " def ";
    if (!winner.empty() && same_name(winner, row.text("mbttt")))
        return " lost ";
    return " vs ";
}

std::string score_of(const Statement& row)
{
    const auto score = row.text("matchscore");
    const auto longscore = row.text("matchlongscore");
    return !score.empty() && !longscore.empty() ? score + "~" + longscore : score;
}

} // namespace

std::string text_draw_side(
    std::string_view seeding, std::string_view name, std::string_view country, TextDrawCountries countries)
{
    return bracket(seeding) + (countries == TextDrawCountries::on ? brackets_k(name, country) : std::string(name));
}

int next_match_number(int drawsize, std::string_view mw_ptr)
{
    const auto at = OpenDraw::split_mtmb(mw_ptr);
    if (!at || at->level < 1 || at->position < 1)
        return 0;
    const int q = (at->position % 2 == 0 ? at->position : at->position + 1) / 2;
    int before = 0;
    for (int level = 1, matches = drawsize / 2; level < at->level; ++level, matches /= 2)
        before += matches;
    return before + q;
}

std::vector<std::string> text_draw_ko_lines(Database& tournament, int drawsize, std::int64_t eid,
    std::string_view title, NextRoundPointers pointers, TextDrawCountries countries)
{
    int levels = 0;
    for (int size = drawsize; size > 0; size /= 2)
        ++levels;
    std::vector<std::string> lines { std::string(title), std::string() };
    int last_rid = 0;
    for (auto row = tournament.query(R"(select * from schedule where eid=? and rid < ? order by "match")", eid, levels);
         row.step();) {
        const int rid = static_cast<int>(row.integer("rid"));
        if (rid != last_rid)
            lines.emplace_back();
        last_rid = rid;
        std::string pointer;
        if (pointers == NextRoundPointers::on && rid < levels - 1) {
            const auto mw_ptr = row.text("mw_ptr");
            pointer = "(" + std::to_string(next_match_number(drawsize, mw_ptr)) + "," + mw_ptr + ")";
        }
        lines.push_back(std::to_string(row.integer("match")) + " " + round_word(row.text("rname"), rid) + " "
            + text_draw_side(row.text("mtseeding"), row.text("mtttt"), row.text("mt_country"), countries) + joiner(row)
            + text_draw_side(row.text("mbseeding"), row.text("mbttt"), row.text("mb_country"), countries) + "      "
            + score_of(row) + "    " + pointer);
    }
    return lines;
}

bool text_draw_ko(const std::filesystem::path& file, Database& tournament, int drawsize, std::int64_t eid,
    std::string_view title, NextRoundPointers pointers, TextDrawCountries countries)
{
    return write_text_file(file, text_draw_ko_lines(tournament, drawsize, eid, title, pointers, countries));
}

} // namespace qv
