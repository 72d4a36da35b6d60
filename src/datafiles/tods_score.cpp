#include "datafiles/tods_score.h"

#include "core/utf8.h"

#include <cctype>
#include <charconv>
#include <sstream>

namespace qv {

namespace {

struct SetWord
{
    int first = 0;
    int second = 0;
    std::optional<int> tiebreak;
    std::string tail; // the tie-break as written, "(5)"
};

std::optional<int> number_of(std::string_view text)
{
    int value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc {} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

// "6-4", "6/4", "64", "7-6(5)", "76(5)".
std::optional<SetWord> set_word(std::string_view word)
{
    SetWord set;
    if (const auto open = word.find('('); open != std::string_view::npos) {
        if (word.back() != ')')
            return std::nullopt;
        set.tiebreak = number_of(word.substr(open + 1, word.size() - open - 2));
        if (!set.tiebreak)
            return std::nullopt;
        set.tail = std::string(word.substr(open));
        word = word.substr(0, open);
    }
    std::optional<int> first, second;
    if (const auto cut = word.find_first_of("-/"); cut != std::string_view::npos) {
        first = number_of(word.substr(0, cut));
        second = number_of(word.substr(cut + 1));
    } else if (word.size() == 2) {
        first = number_of(word.substr(0, 1));
        second = number_of(word.substr(1));
    }
    if (!first || !second)
        return std::nullopt;
    set.first = *first;
    set.second = *second;
    return set;
}

std::string set_text(int a, int b, const std::string& tail)
{
    return std::to_string(a) + "-" + std::to_string(b) + tail;
}

} // namespace

TodsScore tods_score(std::string_view score, int winning_side)
{
    TodsScore out;
    const auto text = trim(score);
    out.side1_text = text;
    out.side2_text = text;
    std::istringstream words(text);
    std::vector<SetWord> sets;
    for (std::string word; words >> word;) {
        const auto set = set_word(word);
        if (!set)
            return out;
        sets.push_back(*set);
    }
    std::string winner_view, loser_view;
    for (const auto& set : sets) {
        winner_view += (winner_view.empty() ? "" : " ") + set_text(set.first, set.second, set.tail);
        loser_view += (loser_view.empty() ? "" : " ") + set_text(set.second, set.first, set.tail);
        const bool side2_won = winning_side == 2;
        out.sets.push_back({ side2_won ? set.second : set.first, side2_won ? set.first : set.second, set.tiebreak });
    }
    out.side1_text = winning_side == 2 ? loser_view : winner_view;
    out.side2_text = winning_side == 2 ? winner_view : loser_view;
    return out;
}

} // namespace qv
