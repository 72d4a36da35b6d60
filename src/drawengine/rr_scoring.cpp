#include "drawengine/rr_scoring.h"

#include "core/text_rules.h"
#include "core/user_talk.h"
#include "core/utf8.h"
#include "core/validators.h"

namespace qv {

std::string_view rr_scoring_line(int pts)
{
    switch (pts) {
    case 1:
        return "rr-allocate points,scores locked";
    case 2:
        return "rr-a win is a point,scores open";
    case 3:
        return "rr-allocate points,scores open";
    default:
        return {};
    }
}

std::string RR_set_scoring(int pts)
{
    return "drawtype: " + std::string(rr_scoring_line(pts));
}

RrBoxes rr_boxes(int pts)
{
    if (pts == 1)
        return { true, false };
    if (pts == 2)
        return { false, true };
    return { true, true };
}

std::string check_nothing(std::string_view value)
{
    return is_empty(value) ? std::string("0") : std::string(value);
}

std::string filter_text_rr(std::string_view text)
{
    std::u32string kept;
    for (char32_t c : decode_utf8(text))
        if (c != U'\u00BF' && c != U'~')
            kept.push_back(c);
    return trim(encode_utf8(kept));
}

std::string filter_text_rr_points(std::string_view text)
{
    const auto trimmed = trim(text);
    if (trimmed.empty())
        return "0";
    std::string kept;
    for (char c : trimmed)
        if (c == '.' || (c >= '0' && c <= '9'))
            kept.push_back(c);
    return trim(kept);
}

void rr_toggle_winner(RrMatch& match, RrWinner side)
{
    if (side == RrWinner::none)
        return;
    match.winner = match.winner == side ? RrWinner::none : side;
}

std::string rr_caption(const RrMatch& match, RrWinner side)
{
    auto caption = match.names(side).frn;
    if (side != RrWinner::none && match.winner == side)
        caption += "*";
    return caption;
}

void set_scores(RrMatch& match)
{
    match.score = check_nothing(match.points1) + "/" + check_nothing(match.points2);
    if (match.score == "/")
        match.score.clear();
}

void set_winner_points(RrMatch& match)
{
    match.points1 = match.winner == RrWinner::top ? "1" : "0";
    match.points2 = match.winner == RrWinner::bottom ? "1" : "0";
}

void rr_apply_scoring(RrMatch& match, int pts)
{
    if (pts == 1)
        set_scores(match);
    else if (pts == 2)
        set_winner_points(match);
}

bool validate_rr(UserTalk& talk, const OpenRoundRobin& rr)
{
    for (const auto& m : rr.matches)
        for (const auto* points : { &m.points1, &m.points2 })
            if (!report(talk, check_double(*points)))
                return false;
    return true;
}

} // namespace qv
