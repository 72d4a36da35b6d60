#include "documents/match_text.h"

#include "core/database.h"
#include "core/match_record.h"
#include "core/text_rules.h"
#include "core/utf8.h"

namespace qv {

std::string brackets_k(std::string_view name, std::string_view country)
{
    const auto slash = name.find('/');
    if (slash == std::string_view::npos)
        return std::string(name) + bracket(country);
    const auto code_slash = country.find('/');
    const auto first = country.substr(0, code_slash);
    const auto second = code_slash == std::string_view::npos ? std::string_view {} : country.substr(code_slash + 1);
    return std::string(name.substr(0, slash)) + bracket(first) + "/" + std::string(name.substr(slash + 1))
        + bracket(second);
}

std::string side_text(const Statement& row, std::string_view side, const NameOptions& names)
{
    const std::string s(side);
    const auto name = row.text(s + "ttt");
    std::string text = names.from ? brackets_k(name, row.text(s + "_country")) : name;
    if (names.wqs)
        text += bracket(row.text(s + "seeding"));
    return text;
}

std::string score_text(const Statement& row, const ScoreOptions& scores)
{
    const auto short_score = scores.short_score ? row.text("matchscore") : std::string();
    const auto long_score = scores.long_score ? row.text("matchlongscore") : std::string();
    if (!short_score.empty() && !long_score.empty())
        return short_score + "~" + long_score;
    return short_score.empty() ? long_score : short_score;
}

std::string facornot(std::int64_t cid, std::string_view court_word)
{
    if (cid < 0)
        return cid_word(cid);
    return std::string(court_word) + " " + std::to_string(cid);
}

std::string position_text(const Statement& row)
{
    const auto live = row.integer("matchnumber_live");
    return live != 0 ? std::to_string(live) : "-" + std::to_string(row.integer("matchnumber"));
}

bool top_won(const Statement& row)
{
    return same_name(row.text("mwttt"), row.text("mtttt"));
}

std::string players_text(const Statement& row, const NameOptions& names)
{
    const auto top = side_text(row, "mt", names);
    const auto bottom = side_text(row, "mb", names);
    if (row.text("match_state") != "3")
        return top + " vs " + bottom;
    if (top_won(row))
        return top + "* bt " + bottom;
    return top + " lost to " + bottom + "*";
}

} // namespace qv
