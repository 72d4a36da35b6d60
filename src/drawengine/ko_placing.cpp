#include "drawengine/ko_placing.h"

#include "core/text_rules.h"
#include "core/utf8.h"
#include "drawengine/ko_generation.h"
#include "drawengine/open_draw.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace qv {

namespace {

bool begins(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

// The first letters compared without regard to case, as the label strip has always compared them.
bool begins_any_case(std::string_view text, std::string_view prefix)
{
    return text.size() >= prefix.size() && lcase(text.substr(0, prefix.size())) == prefix;
}

std::string seed_of_kind(int pwq)
{
    if (pwq == wildcard_kind)
        return "wc";
    if (pwq == qualifier_kind)
        return "q";
    return {};
}

class Placing
{
public:
    Placing(const std::vector<DrawEntry>& entries, int drawsize)
        : m_entries(entries)
    {
        // A name finds the first entry, in the entries' order, with that name trimmed and lower-cased.
        for (std::size_t k = 0; k < entries.size(); ++k)
            m_by_key.emplace(name_key(entries[k].player), k);
        m_stage.stage1.reserve(static_cast<std::size_t>(drawsize));
        m_stage.stage2.resize(static_cast<std::size_t>(drawsize));
    }

    // One shuffled name into the candidates: an entry when an entry has that name, else one of the labels.
    void add_candidate(const std::string& name)
    {
        StageCandidate candidate;
        candidate.i = static_cast<int>(m_stage.stage1.size()) + 1;
        if (const auto found = m_by_key.find(name_key(name)); found != m_by_key.end()) {
            const auto& entry = m_entries[found->second];
            candidate.seeding = entry.seeding == "0" ? std::string() : entry.seeding;
            candidate.player = entry.player;
            candidate.cty = entry.country;
            candidate.ar = entry.ar;
            candidate.psex = sex_code(entry.psex);
        } else {
            if (begins(name, "wildcard"))
                candidate.pwq = wildcard_kind;
            else if (begins(name, "qualifier"))
                candidate.pwq = qualifier_kind;
            else if (begins(name, "bye"))
                candidate.pwq = bye_kind;
            candidate.seeding = seed_of_kind(candidate.pwq);
            candidate.player = name;
        }
        m_stage.stage1.push_back(std::move(candidate));
    }

    // Seeds go on their pattern slots in ascending order, and while byes last each seed gets one beside it. The
    // seed is looked for among all candidates, placed or not, as its search has always run.
    void place_seeds(const std::vector<SeedPosition>& seeds)
    {
        for (const auto& row : seeds) {
            const auto seed = std::to_string(row.seed);
            auto* seeded = first([&](const StageCandidate& c) { return c.seeding == seed; });
            if (!seeded || !slot_free(row.pos))
                continue;
            place(row.pos, *seeded, seeded->seeding);
            const int partner = OpenDraw::partner(row.pos);
            if (auto* bye = first_left(bye_kind); bye && slot_free(partner))
                place_bye(partner, *bye);
        }
    }

    // Every pair still empty gets one candidate on its top slot: players first, wildcards and qualifiers last, so
    // that no pair is left to two byes while a candidate remains.
    void fill_empty_pairs()
    {
        const int drawsize = static_cast<int>(m_stage.stage2.size());
        for (int s = 1; s <= drawsize; s += 2) {
            if (slot(s).player != "-" || slot(s + 1).player != "-")
                continue;
            auto* candidate = first_left(player_kind);
            if (!candidate)
                candidate = first_left(wildcard_kind);
            if (!candidate)
                candidate = first_left(qualifier_kind);
            if (candidate)
                place(s, *candidate, seed_of_kind(candidate->pwq));
        }
    }

    // The free slots are taken in random order; the byes left over go first.
    void fill_the_rest(DrawRandom& random)
    {
        std::vector<int> hold;
        for (int s = 1; s <= static_cast<int>(m_stage.stage2.size()); ++s)
            if (slot(s).player == "-")
                hold.push_back(s);
        while (!hold.empty()) {
            const auto k = random.pick(hold.size());
            const int s = hold[k];
            if (auto* bye = first_left(bye_kind))
                place_bye(s, *bye);
            else if (auto* candidate = first([](const StageCandidate& c) { return !c.gone; }))
                place(s, *candidate, seed_of_kind(candidate->pwq));
            hold.erase(hold.begin() + static_cast<std::ptrdiff_t>(k));
        }
    }

    // The running numbers come off the labels. This runs over every slot, so a player whose name begins with
    // these letters is renamed as well; draws have always come out this way.
    void strip_labels()
    {
        for (auto& s : m_stage.stage2)
            if (begins_any_case(s.player, "bye"))
                s.player = "bye";
        for (auto& s : m_stage.stage2)
            if (begins_any_case(s.player, "wildcard"))
                s.player = "wildcard";
        for (auto& s : m_stage.stage2)
            if (begins_any_case(s.player, "qualifier"))
                s.player = "qualifier";
    }

    DrawStage take() { return std::move(m_stage); }

private:
    template <class Test> StageCandidate* first(Test test)
    {
        for (auto& c : m_stage.stage1)
            if (test(c))
                return &c;
        return nullptr;
    }

    StageCandidate* first_left(int pwq)
    {
        return first([pwq](const StageCandidate& c) { return c.pwq == pwq && !c.gone; });
    }

    StageSlot& slot(int s) { return m_stage.stage2[static_cast<std::size_t>(s - 1)]; }

    bool slot_free(int s) const
    {
        return s >= 1 && s <= static_cast<int>(m_stage.stage2.size())
            && m_stage.stage2[static_cast<std::size_t>(s - 1)].player == "-";
    }

    void place(int s, StageCandidate& candidate, const std::string& seed)
    {
        auto& to = slot(s);
        to.seed = seed;
        to.player = candidate.player;
        to.cty = candidate.cty;
        to.ar = candidate.ar;
        to.psex = candidate.psex;
        candidate.gone = true;
    }

    void place_bye(int s, StageCandidate& bye)
    {
        slot(s).player = bye.player;
        bye.gone = true;
    }

    const std::vector<DrawEntry>& m_entries;
    std::unordered_map<std::string, std::size_t> m_by_key;
    DrawStage m_stage;
};

} // namespace

std::vector<std::string> KO_candidate_names(
    const std::vector<DrawEntry>& entries, std::int64_t wildcards, std::int64_t qualifiers)
{
    std::vector<std::string> names;
    names.reserve(entries.size() + static_cast<std::size_t>(std::max<std::int64_t>(wildcards + qualifiers, 0)));
    for (const auto& entry : entries)
        names.push_back(entry.player);
    for (std::int64_t w = 1; w <= wildcards; ++w)
        names.push_back("wildcard" + std::to_string(w));
    for (std::int64_t q = 1; q <= qualifiers; ++q)
        names.push_back("qualifier" + std::to_string(q));
    return names;
}

DrawStage KO_place_draw(std::vector<std::string> hold, const std::vector<DrawEntry>& entries, int drawsize,
    const std::vector<SeedPosition>& seeds, DrawRandom& random)
{
    const int count = static_cast<int>(hold.size());
    for (int b = 1; b <= drawsize - count; ++b)
        hold.push_back("bye" + std::to_string(b));

    std::vector<std::string> hold2;
    KO_do_draw_jumble1(hold, hold2, random);
    KO_do_draw_jumble2(hold, hold2, random);

    Placing placing(entries, drawsize);
    while (!hold.empty()) {
        const auto k = random.pick(hold.size());
        placing.add_candidate(hold[k]);
        hold.erase(hold.begin() + static_cast<std::ptrdiff_t>(k));
    }
    placing.place_seeds(seeds);
    placing.fill_empty_pairs();
    placing.fill_the_rest(random);
    placing.strip_labels();
    return placing.take();
}

} // namespace qv
