#include "drawengine/name_forms.h"

#include "core/database.h"
#include "core/utf8.h"
#include "drawengine/open_draw.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <vector>

namespace qv {

namespace {

bool fits(std::string_view text, std::size_t limit)
{
    return char_count(text) <= limit;
}

// The first letter in capitals, the rest as it stands.
std::string cap(std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
        std::string out(text);
        if (!out.empty() && out[0] >= 'a' && out[0] <= 'z')
            out[0] = static_cast<char>(out[0] - 'a' + 'A');
        return out;
    }
    auto chars = decode_utf8(text);
    if (!chars.empty())
        chars[0] = upper_cp1252(chars[0]);
    return encode_utf8(chars);
}

std::string first_letter_upper(std::string_view text)
{
    return cap(left_chars(text, 1));
}

// Fallback forms are shown in lower case, accented capitals included.
std::string lower_all(std::string_view text)
{
    auto chars = decode_utf8(text);
    for (auto& c : chars)
        c = lower_cp1252(c);
    return encode_utf8(chars);
}

std::optional<std::string> first_fitting(
    const std::vector<std::string>& candidates, std::size_t limit, const UniqueTest& k_isunique)
{
    for (const auto& candidate : candidates)
        if (fits(candidate, limit) && k_isunique(candidate))
            return candidate;
    return std::nullopt;
}

enum class TagFallbackGoesTo { tag, frn };

// The scheme the four functions share: the full name when it fits, else the first unique candidate that fits,
// else a fallback with the running number behind it.
NameForms make_forms(std::string_view name, const std::vector<std::string>& candidates,
    const std::string& frn_fallback_stem, const std::string& tag_fallback_stem, TagFallbackGoesTo tag_fallback_to,
    const UniqueTest& k_isunique, NameCounter& counter)
{
    NameForms forms;
    forms.ttt = std::string(name);

    if (fits(forms.ttt, frn_limit))
        forms.frn = forms.ttt;
    else if (auto found = first_fitting(candidates, frn_limit, k_isunique))
        forms.frn = *found;
    else
        forms.frn = frn_fallback_stem + counter.get_cnt_str();

    if (fits(forms.ttt, tag_limit))
        forms.tag = forms.ttt;
    else if (fits(forms.frn, tag_limit))
        forms.tag = forms.frn;
    else if (auto found = first_fitting(candidates, tag_limit, k_isunique))
        forms.tag = *found;
    else if (tag_fallback_to == TagFallbackGoesTo::tag)
        forms.tag = tag_fallback_stem + counter.get_cnt_str();
    else {
        // Pairs known by first names only have always kept this fallback in the first-round form and no handle.
        forms.frn = tag_fallback_stem + counter.get_cnt_str();
        forms.tag.clear();
    }
    return forms;
}

std::vector<std::string> doubles_candidates(std::string_view a, std::string_view b)
{
    static constexpr std::pair<std::size_t, std::size_t> widths[] = { { 9, 8 }, { 8, 9 }, { 8, 8 }, { 8, 7 }, { 7, 8 },
        { 7, 7 }, { 7, 6 }, { 6, 7 }, { 6, 6 }, { 5, 4 }, { 4, 5 } };
    std::vector<std::string> candidates;
    for (const auto& [m, n] : widths)
        candidates.push_back(trim(left_chars(a, m) + "/" + left_chars(b, n)));
    return candidates;
}

NameForms doubles_forms(std::string_view name, std::string_view a, std::string_view b,
    TagFallbackGoesTo tag_fallback_to, const UniqueTest& k_isunique, NameCounter& counter)
{
    return make_forms(name, doubles_candidates(a, b), lower_all(left_chars(a, 4) + "/" + left_chars(b, 5)),
        lower_all(left_chars(a, 3) + "/" + left_chars(b, 4)), tag_fallback_to, k_isunique, counter);
}

bool begins(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

} // namespace

std::string form_key(std::string_view text)
{
    auto key = trim(text);
    // The test runs for every slot of the draw per candidate: plain ASCII, the usual case, skips the decoding.
    if (std::all_of(key.begin(), key.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
        for (auto& c : key)
            if (c >= 'A' && c <= 'Z')
                c = static_cast<char>(c - 'A' + 'a');
        return key;
    }
    return lower_all(key);
}

bool k_isunique_ko(const OpenDraw& draw, std::string_view candidate)
{
    const auto key = form_key(candidate);
    for (int i = 1; i <= draw.positions(1); ++i) {
        const auto& s = draw.slot(1, i);
        if (form_key(s.ttt) == key || form_key(s.frn) == key || form_key(s.tag) == key)
            return false;
    }
    return true;
}

NameForms k_get_names_singles_player_fname_sname(std::string_view name, std::string_view fname, std::string_view sname,
    const UniqueTest& k_isunique, NameCounter& counter)
{
    const auto initial = first_letter_upper(fname);
    const std::vector<std::string> candidates {
        trim(initial + "." + cap(sname)),
        trim(initial + cap(sname)),
        trim(cap(sname)),
        trim(left_chars(sname, 15)),
        trim(left_chars(sname, 13)),
        trim(left_chars(sname, 12)),
        trim(left_chars(sname, 10)),
    };
    const auto& last = candidates.back();
    return make_forms(name, candidates, last, left_chars(last, 10), TagFallbackGoesTo::tag, k_isunique, counter);
}

NameForms k_get_names_singles_player_fname(
    std::string_view name, std::string_view fname, const UniqueTest& k_isunique, NameCounter& counter)
{
    std::vector<std::string> candidates;
    for (std::size_t n : { 17, 16, 15, 14, 13, 12 })
        candidates.push_back(trim(left_chars(fname, n)));
    const auto& last = candidates.back();
    return make_forms(name, candidates, last, left_chars(last, 10), TagFallbackGoesTo::tag, k_isunique, counter);
}

NameForms k_get_names_doubles_player_fname_sname(std::string_view name, std::string_view, std::string_view sname1,
    std::string_view, std::string_view sname2, const UniqueTest& k_isunique, NameCounter& counter)
{
    return doubles_forms(name, sname1, sname2, TagFallbackGoesTo::tag, k_isunique, counter);
}

NameForms k_get_names_doubles_player_fname(std::string_view name, std::string_view fname1, std::string_view fname2,
    const UniqueTest& k_isunique, NameCounter& counter)
{
    return doubles_forms(name, fname1, fname2, TagFallbackGoesTo::frn, k_isunique, counter);
}

EventEntryNames EventEntryNames::read(Database& tournament, std::int64_t eid)
{
    EventEntryNames names;
    for (auto rows = tournament.query(R"(select player, playerfname, playersname, partnerfname, partnersname
             from evententries where eid = ? order by rowid)",
             eid);
         rows.step();)
        names.m_by_key.try_emplace(name_key(rows.text(0)),
            EntryNames { trim(rows.text(1)), trim(rows.text(2)), trim(rows.text(3)), trim(rows.text(4)) });
    return names;
}

const EntryNames* EventEntryNames::find(const std::string& key) const
{
    const auto found = m_by_key.find(key);
    return found == m_by_key.end() ? nullptr : &found->second;
}

namespace {

NameForms forms_from(std::string_view name, const EntryNames* entry, const UniqueTest& k_isunique, NameCounter& counter)
{
    const auto key = name_key(name);
    NameForms as_it_stands { std::string(name), std::string(name), std::string(name) };
    if (key == "bye" || begins(key, "qualifier") || begins(key, "wildcard") || !entry)
        return as_it_stands;

    const bool no_surnames = entry->sname1.empty() && entry->sname2.empty();
    const bool doubles = name.find('/') != std::string_view::npos;
    if (doubles && !no_surnames)
        return k_get_names_doubles_player_fname_sname(
            name, entry->fname1, entry->sname1, entry->fname2, entry->sname2, k_isunique, counter);
    if (doubles)
        return k_get_names_doubles_player_fname(name, entry->fname1, entry->fname2, k_isunique, counter);
    if (!no_surnames)
        return k_get_names_singles_player_fname_sname(name, entry->fname1, entry->sname1, k_isunique, counter);
    return k_get_names_singles_player_fname(name, entry->fname1, k_isunique, counter);
}

bool is_plain_word(const std::string& key)
{
    return key == "bye" || begins(key, "qualifier") || begins(key, "wildcard");
}

// The form keys of every first-round slot's ttt, frn and tag, counted: a uniqueness test is one look-up, and
// a slot's new forms replace its old ones as the run goes on.
class FormKeys
{
public:
    explicit FormKeys(const OpenDraw& draw)
    {
        for (int i = 1; i <= draw.positions(1); ++i)
            add(draw.slot(1, i));
    }
    bool has(std::string_view candidate) const { return m_count.count(form_key(candidate)) > 0; }
    void add(const Slot& slot)
    {
        for (const auto* form : { &slot.ttt, &slot.frn, &slot.tag })
            ++m_count[form_key(*form)];
    }
    void remove(const Slot& slot)
    {
        for (const auto* form : { &slot.ttt, &slot.frn, &slot.tag }) {
            const auto found = m_count.find(form_key(*form));
            if (found != m_count.end() && --found->second == 0)
                m_count.erase(found);
        }
    }

private:
    std::unordered_map<std::string, int> m_count;
};

} // namespace

NameForms form_slot_names(
    const EventEntryNames& entries, std::string_view name, const UniqueTest& k_isunique, NameCounter& counter)
{
    const auto key = name_key(name);
    return forms_from(name, is_plain_word(key) ? nullptr : entries.find(key), k_isunique, counter);
}

NameForms form_slot_names(
    Database& tournament, std::int64_t eid, std::string_view name, const UniqueTest& k_isunique, NameCounter& counter)
{
    const auto key = name_key(name);
    if (is_plain_word(key))
        return forms_from(name, nullptr, k_isunique, counter);
    auto entry = tournament.query(R"(select playerfname, playersname, partnerfname, partnersname from evententries
        where eid = ? and lower(trim(player)) = ? order by rowid limit 1)",
        eid, key);
    if (!entry.step())
        return forms_from(name, nullptr, k_isunique, counter);
    const EntryNames names { trim(entry.text(0)), trim(entry.text(1)), trim(entry.text(2)), trim(entry.text(3)) };
    return forms_from(name, &names, k_isunique, counter);
}

bool player(std::string_view name)
{
    const auto lower = lcase(name);
    for (const std::string_view word : { "wildcard", "qualifier", "bye" })
        if (lower.find(word) != std::string::npos)
            return false;
    return true;
}

std::optional<std::string> wcq(std::string_view name)
{
    const auto trimmed = trim(name);
    const auto lower = lcase(trimmed);
    for (const auto& [word, mark] : { std::pair<std::string_view, std::string_view> { "qualifier", "Q" },
             std::pair<std::string_view, std::string_view> { "wildcard", "W" } }) {
        if (const auto at = lower.find(word); at != std::string::npos)
            return std::string(mark) + trimmed.substr(at + word.size());
    }
    if (lower == "bye")
        return "bye";
    return std::nullopt;
}

void k_fmt_names(Database& tournament, std::int64_t eid, int count, const std::function<std::string(int)>& name_at,
    const std::function<void(int, const NameForms&)>& store, const UniqueTest& k_isunique)
{
    const auto entries = EventEntryNames::read(tournament, eid);
    NameCounter counter;
    for (int i = 1; i <= count; ++i)
        store(i, form_slot_names(entries, name_at(i), k_isunique, counter));
}

void k_fmt_names_current_pre_draw(Database& tournament, OpenDraw& draw)
{
    FormKeys keys(draw);
    k_fmt_names(
        tournament, draw.draw.curr_eid, draw.positions(1), [&](int i) { return draw.slot(1, i).ttt; },
        [&](int i, const NameForms& forms) {
            auto& s = draw.slot(1, i);
            keys.remove(s);
            s.ttt = forms.ttt;
            s.frn = forms.frn;
            s.tag = forms.tag;
            keys.add(s);
        },
        [&](std::string_view candidate) { return !keys.has(candidate); });
}

} // namespace qv
