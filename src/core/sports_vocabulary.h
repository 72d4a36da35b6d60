#pragma once

#include "core/validators.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The six words that let the program speak of tees, tables or boards instead of courts.
struct SportWords
{
    std::string court, c, courts, match, m, matches;
};

// The settings keys of the six words, in the order of the fields of SportWords.
inline constexpr std::array<std::string_view, 6> sport_word_keys { "app.generic_court", "app.generic_c",
    "app.generic_courts", "app.generic_match", "app.generic_m", "app.generic_matches" };

struct Sport
{
    std::string name;
    SportWords words;
};

// The sports of the control panel, in the order offered.
const std::vector<Sport>& set_up_sport();

std::array<std::string, 6> as_array(const SportWords& words);
SportWords current_sport_words(Session& session);

// The first word that fails its check, with the refusal; none when all six pass.
struct WordRefusal
{
    int field = -1;
    Refusal refusal;
};
std::optional<WordRefusal> validate_sport_words(const SportWords& words);

enum class SaveWords { saved, saved_restarting, refused, declined };

// Checks the six words and writes them. With a tournament open the user confirms a restart first, and the
// restart carries the new words everywhere; without one the toolbar takes them at once.
SaveWords save_sport_words(Session& session, const SportWords& words);

} // namespace qv
