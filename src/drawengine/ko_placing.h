#pragma once

#include "drawengine/draw_random.h"
#include "drawengine/seeding_patterns.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

// An entry of the event as the placing reads it: a row of evententries that is no reserve.
struct DrawEntry
{
    std::string player;
    std::string seeding = {};
    std::string country = {};
    std::string ar = {};
    std::string psex = {}; // as the entry has it: "male.female" ...
};

// Kind of a draw position (pwq).
enum Pwq { player_kind = 0, wildcard_kind = 1, qualifier_kind = 2, bye_kind = 3 };

// A candidate in shuffled order (a row of draw_stage1).
struct StageCandidate
{
    int i = 0; // 1.. in the order the shuffle drew it
    std::string seeding; // the seed text ("0" made empty), "wc", "q", or empty for a bye
    std::string player; // the entry's player, or the label "wildcard3", "qualifier1", "bye2"
    int pwq = player_kind;
    std::string cty;
    std::string ar;
    std::string psex; // short form: "mf" ...
    bool gone = false; // placed
};

// A first-round slot being placed (a row of draw_stage2).
struct StageSlot
{
    std::string player = "-"; // "-" while free
    std::string seed;
    std::string cty;
    std::string ar;
    std::string psex;
};

// The placing's outcome: the candidates in shuffled order, and slots 1..drawsize top to bottom.
struct DrawStage
{
    std::vector<StageCandidate> stage1;
    std::vector<StageSlot> stage2;
};

// The names a draw is made of, in the entries' order: each entry's player, then "wildcard1".., "qualifier1"..
std::vector<std::string> KO_candidate_names(
    const std::vector<DrawEntry>& entries, std::int64_t wildcards, std::int64_t qualifiers);

// The placing of a knock-out first round: byes added up to drawsize, three shuffles, seeds on their pattern
// slots with a bye each while byes last, one candidate for every empty pair, the rest on random free slots,
// and the labels stripped to "bye", "wildcard" and "qualifier". `names` as KO_candidate_names gives them;
// a name is an entry when an entry (reserves left out) has that name trimmed and lower-cased.
DrawStage KO_place_draw(std::vector<std::string> names, const std::vector<DrawEntry>& entries, int drawsize,
    const std::vector<SeedPosition>& seeds, DrawRandom& random);

} // namespace qv
