#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qv {

class Database;
class OpenDraw;

// The three forms of one entrant's name in a draw.
struct NameForms
{
    std::string ttt; // full name, as the entry has it
    std::string frn; // first-round name, at most 18 characters
    std::string tag; // sub-round handle, at most 13 characters
};

inline constexpr std::size_t frn_limit = 18;
inline constexpr std::size_t tag_limit = 13;

// The running number behind a fallback form. It starts afresh with every run over a draw.
class NameCounter
{
public:
    void reset() { m_value = 0; }
    std::string get_cnt_str() { return std::to_string(++m_value); }
    int value() const { return m_value; }

private:
    int m_value = 0;
};

// k_isunique(candidate, mode): the knock-out and the round-robin draw each bring their own test.
using UniqueTest = std::function<bool(std::string_view candidate)>;

// The form in which the uniqueness tests compare names: trimmed, and lower case for the accented capitals too,
// since the forms themselves capitalise Latin-1 letters ("émile" gives "É.").
std::string form_key(std::string_view text);

// No slot of the draw's first round has the candidate as its ttt, frn or tag (all compared as form_key).
bool k_isunique_ko(const OpenDraw& draw, std::string_view candidate);

// The four ways of making the forms. `name` is the slot's player text; the other names are the entry's, trimmed.
NameForms k_get_names_singles_player_fname_sname(std::string_view name, std::string_view fname, std::string_view sname,
    const UniqueTest& k_isunique, NameCounter& counter);
NameForms k_get_names_singles_player_fname(
    std::string_view name, std::string_view fname, const UniqueTest& k_isunique, NameCounter& counter);
NameForms k_get_names_doubles_player_fname_sname(std::string_view name, std::string_view fname1,
    std::string_view sname1, std::string_view fname2, std::string_view sname2, const UniqueTest& k_isunique,
    NameCounter& counter);
NameForms k_get_names_doubles_player_fname(std::string_view name, std::string_view fname1, std::string_view fname2,
    const UniqueTest& k_isunique, NameCounter& counter);

// The names the forms are made from: an entry's first names and surnames, trimmed.
struct EntryNames
{
    std::string fname1, sname1, fname2, sname2;
};

// The event's entries (reserves too) by name trimmed and lower-cased, read once for a run over a draw. A name
// that several entries share finds the first of them in the table's order.
class EventEntryNames
{
public:
    static EventEntryNames read(Database& tournament, std::int64_t eid);
    const EntryNames* find(const std::string& key) const;

private:
    std::unordered_map<std::string, EntryNames> m_by_key;
};

// The forms of one slot's name: "bye", "qualifier..." and "wildcard..." stand as they are in all three forms;
// any other name is looked up in the event's entries and goes to the function that fits its names. A name that
// no entry has keeps its text in all three forms.
NameForms form_slot_names(
    const EventEntryNames& entries, std::string_view name, const UniqueTest& k_isunique, NameCounter& counter);
NameForms form_slot_names(
    Database& tournament, std::int64_t eid, std::string_view name, const UniqueTest& k_isunique, NameCounter& counter);

// The run over a whole draw, slot 1 to count in order: each slot's forms are made while the later slots still
// hold their full names, and stored before the next slot is made.
void k_fmt_names(Database& tournament, std::int64_t eid, int count, const std::function<std::string(int)>& name_at,
    const std::function<void(int, const NameForms&)>& store, const UniqueTest& k_isunique);

// player(name): false when the name holds "wildcard", "qualifier" or "bye" anywhere, compared in lower case;
// true for any other name.
bool player(std::string_view name);

// wcq(name): the short form of a place holder. A name that holds "qualifier" gives "Q" and what follows the word
// ("qualifier3" "Q3", "qualifier" "Q"), one that holds "wildcard" gives "W" and what follows it; the name "bye"
// gives "bye". The words are found in the trimmed name in lower case. Any other name is no place holder: nullopt.
std::optional<std::string> wcq(std::string_view name);

// k_fmt_names_current_pre_draw("ko"): the forms of every first-round slot of the open draw.
void k_fmt_names_current_pre_draw(Database& tournament, OpenDraw& draw);

} // namespace qv
