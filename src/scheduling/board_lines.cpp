#include "scheduling/board_lines.h"

#include "core/database.h"
#include "core/text_rules.h"
#include "core/utf8.h"

namespace qv {

namespace {

constexpr std::size_t time_index = 4; // of a court line
constexpr std::size_t day_index = 7; // of a court line
constexpr std::size_t top_index = 2;
constexpr std::size_t bottom_index = 3;

std::string padded(std::string_view text, std::size_t width)
{
    std::string out(text);
    if (out.size() < width)
        out.append(width - out.size(), ' ');
    return out;
}

std::string two_digits(std::string_view text)
{
    const auto value = trim(text);
    return value.size() == 1 ? "0" + value : value;
}

bool ends_with_hat(const std::string& field)
{
    return !field.empty() && field.back() == '^';
}

} // namespace

const std::string& MatchRow::columns()
{
    static const std::string list = "sid, eid, rsname, rname, mtfrn, mbfrn, mttag, mbtag, mwtag, mtttt, mbttt, "
                                    "mtseeding, mbseeding, match_state, nbat, matchtime, matchtime_int, mtar, mbar, "
                                    "matchscore, matchlongscore, scheduledate, day_idx, cid, matchnumber, "
                                    "matchnumber_live, eventname, singdobs";
    return list;
}

MatchRow MatchRow::read(const Statement& row)
{
    MatchRow m;
    int i = 0;
    m.sid = row.integer(i++);
    m.eid = row.integer(i++);
    for (auto* text : { &m.rsname, &m.rname, &m.mtfrn, &m.mbfrn, &m.mttag, &m.mbtag, &m.mwtag, &m.mtttt, &m.mbttt,
             &m.mtseeding, &m.mbseeding, &m.match_state, &m.nbat, &m.matchtime })
        *text = row.text(i++);
    m.matchtime_int = row.integer(i++);
    for (auto* text : { &m.mtar, &m.mbar, &m.matchscore, &m.matchlongscore, &m.scheduledate })
        *text = row.text(i++);
    m.day_idx = row.integer(i++);
    m.cid = row.integer(i++);
    m.matchnumber = row.integer(i++);
    m.matchnumber_live = row.integer(i++);
    m.eventname = row.text(i++);
    m.singdobs = row.text(i++);
    return m;
}

bool read_match_row(Database& tournament, std::int64_t sid, MatchRow& row)
{
    auto found = tournament.query("select " + MatchRow::columns() + " from schedule where sid=?", sid);
    if (!found.step())
        return false;
    row = MatchRow::read(found);
    return true;
}

AvailabilityLookup::AvailabilityLookup(Database& tournament)
{
    for (auto rows = tournament.query("select player from players where trim(availabilityrestrictions) <> ''");
         rows.step();)
        m_names.insert(name_key(rows.text(0)));
}

std::string AvailabilityLookup::hasar(std::string_view player) const
{
    return m_names.count(name_key(player)) ? "-" : "";
}

std::string AvailabilityLookup::hasarp(std::string_view team) const
{
    const auto slash = team.find('/');
    if (slash == std::string_view::npos)
        return hasar(team);
    return !hasar(team.substr(0, slash)).empty() || !hasar(team.substr(slash + 1)).empty() ? "-" : "";
}

std::string AvailabilityLookup::match_mark(const MatchRow& row) const
{
    if (m_names.empty())
        return {};
    const bool doubles = name_key(row.singdobs) == "doubles";
    for (const auto* side : { &row.mtttt, &row.mbttt })
        if (!(doubles ? hasarp(*side) : hasar(*side)).empty())
            return "-";
    return {};
}

bool has_seed(const MatchRow& row)
{
    auto seeded = [](const std::string& seed) {
        const auto value = trim(seed);
        return !value.empty() && value != "0";
    };
    return seeded(row.mtseeding) || seeded(row.mbseeding);
}

char getab(const MatchRow& row)
{
    if (row.mwtag.empty())
        return ' ';
    return row.mwtag == row.mttag ? 'a' : 'b';
}

std::string player_field(const MatchRow& row, bool top)
{
    auto field = trim(top ? row.mtfrn : row.mbfrn);
    const auto seed = trim(top ? row.mtseeding : row.mbseeding);
    if (!seed.empty() && seed != "0")
        field += " " + bracket(seed);
    if (getab(row) == (top ? 'a' : 'b'))
        field += "*";
    if (row.match_state == "2.1")
        field += "^";
    return field;
}

std::string format_hhmm(std::string_view matchtime)
{
    const auto time = trim(matchtime);
    const auto colon = time.find(':');
    if (time.empty() || colon == std::string::npos)
        return time;
    return two_digits(time.substr(0, colon)) + ":" + two_digits(time.substr(colon + 1));
}

std::string time_field(std::string_view nbat, std::string_view matchtime)
{
    return padded(nbat, 3) + padded(format_hhmm(matchtime), 5);
}

std::string upper_line_text(const MatchRow& row, const AvailabilityLookup& availability)
{
    const auto details = (row.matchlongscore.empty() ? std::string() : row.matchlongscore + " ")
        + std::to_string(row.sid) + "," + row.eventname;
    return join_fields({ std::to_string(row.eid), row.rsname, player_field(row, true), player_field(row, false),
        row.mtar + row.mbar + availability.match_mark(row), row.matchscore, details });
}

std::string court_line_text(const MatchRow& row, const AvailabilityLookup& availability)
{
    auto fields = line_fields(upper_line_text(row, availability));
    fields.insert(fields.begin() + time_index, time_field(row.nbat, row.matchtime));
    fields.insert(fields.begin() + day_index, row.scheduledate);
    return join_fields(fields);
}

std::string translate_sstring_to_l4s(std::string_view upper_line, std::string_view day)
{
    auto fields = line_fields(upper_line);
    fields.resize(7);
    fields.insert(fields.begin() + time_index, std::string(8, ' '));
    fields.insert(fields.begin() + day_index, std::string(day));
    return join_fields(fields);
}

std::string translate_l4s_to_sstring(std::string_view court_line)
{
    auto fields = line_fields(court_line);
    fields.resize(9);
    fields.erase(fields.begin() + day_index);
    fields.erase(fields.begin() + time_index);
    return join_fields(fields);
}

std::string quick_fix_schedule_time(std::string_view court_line, std::string_view nbat, std::string_view matchtime)
{
    auto fields = line_fields(court_line);
    if (fields.size() <= time_index)
        return std::string(court_line);
    fields[time_index] = time_field(nbat, matchtime);
    return join_fields(fields);
}

std::string quick_fix_schedule_remove_hats(std::string_view line)
{
    auto fields = line_fields(line);
    if (fields.size() <= bottom_index)
        return std::string(line);
    for (auto index : { top_index, bottom_index })
        if (ends_with_hat(fields[index]))
            fields[index].pop_back();
    return join_fields(fields);
}

std::string quick_fix_schedule_add_hats(std::string_view line)
{
    auto fields = line_fields(line);
    if (fields.size() <= bottom_index)
        return std::string(line);
    // A decided match is never unfinished.
    if (fields[top_index].find('*') != std::string::npos || fields[bottom_index].find('*') != std::string::npos)
        return std::string(line);
    for (auto index : { top_index, bottom_index })
        if (!ends_with_hat(fields[index]))
            fields[index] += "^";
    return join_fields(fields);
}

std::vector<std::string> line_fields(std::string_view line)
{
    std::vector<std::string> fields;
    while (true) {
        const auto tab = line.find('\t');
        fields.emplace_back(line.substr(0, tab));
        if (tab == std::string_view::npos)
            return fields;
        line.remove_prefix(tab + 1);
    }
}

std::string join_fields(const std::vector<std::string>& fields)
{
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += '\t';
        line += fields[i];
    }
    return line;
}

std::int64_t display_position(std::int64_t cid, std::int64_t matchnumber_live, std::int64_t matchnumber)
{
    if (cid == 0 || cid == -2)
        return 0;
    return matchnumber_live != 0 ? matchnumber_live : -matchnumber;
}

std::string status_line(const MatchRow& row, std::string_view match_word)
{
    std::string line = std::string(match_word) + " id=" + std::to_string(row.sid);
    if (trim(row.mtttt).empty() || trim(row.mbttt).empty())
        return line + ",empty match";
    return line + ",position=" + std::to_string(display_position(row.cid, row.matchnumber_live, row.matchnumber)) + ","
        + row.rname + " " + trim(row.mttag) + " vs " + trim(row.mbtag);
}

} // namespace qv
