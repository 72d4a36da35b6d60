#include "drawengine/seeding_patterns.h"

#include "core/file_save.h"
#include "core/session.h"
#include "core/utf8.h"
#include "core/validators.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <stdexcept>

namespace qv {

namespace {

constexpr std::string_view name_taken = " already have a seeding pattern named ";

std::optional<int> whole_number(std::string_view text)
{
    int value = 0;
    const auto* end = text.data() + text.size();
    auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || ptr != end || text.empty() || value < 0)
        return std::nullopt;
    return value;
}

SeedingPattern pattern_of(const Statement& row)
{
    return { row.integer("idx"), row.text("nm"), static_cast<int>(row.integer("drawsize")), row.integer("default") == 1,
        row.integer("system") == 1 };
}

std::vector<SeedPosition> positions_of(Statement& rows)
{
    std::vector<SeedPosition> out;
    while (rows.step())
        out.push_back({ static_cast<int>(rows.integer("pos")), static_cast<int>(rows.integer("seed")) });
    return out;
}

// A caller that hands over a list not made for this size has a fault of its own, not the user's.
void require_fitting(int drawsize, const std::vector<SeedPosition>& positions)
{
    std::set<int> slots;
    for (const auto& p : positions)
        if (p.pos >= 1 && p.pos <= drawsize && p.seed >= 0 && p.seed <= drawsize)
            slots.insert(p.pos);
    if (static_cast<int>(positions.size()) != drawsize || static_cast<int>(slots.size()) != drawsize)
        throw std::invalid_argument("seeding positions do not fit drawsize=" + std::to_string(drawsize));
}

// The checks a pattern name passes, in the order the user meets them.
bool name_passes(UserTalk& talk, const std::string& name)
{
    if (name.empty()) {
        talk.message("name required");
        return false;
    }
    if (!report(talk, check_class(name, ValueClass::systemdisallow)))
        return false;
    // The word tested and the word named differ; users have long known the message this way.
    if (lcase(name).find("system") != std::string::npos) {
        talk.message("pattern name cannot contain the word 'default'");
        return false;
    }
    return true;
}

bool name_in_use(Database& init, const std::string& name, std::optional<std::int64_t> other_than)
{
    if (other_than)
        return init.scalar_integer(
                   R"(select count(*) from seedposmapping_index where lower(trim(nm)) = ? and idx <> ?)",
                   name_key(name), *other_than)
            > 0;
    return init.scalar_integer(R"(select count(*) from seedposmapping_index where lower(trim(nm)) = ?)", name_key(name))
        > 0;
}

void insert_positions(
    Database& init, std::int64_t idx, const std::string& nm, const std::vector<SeedPosition>& positions)
{
    auto insert = init.query(R"(insert into seedposmapping (idx, nm, pos, seed) values (?, ?, ?, ?))");
    for (const auto& p : positions) {
        insert.reset();
        insert.bind_all(idx, nm, p.pos, p.seed);
        insert.step();
    }
}

// The chosen size and pattern, each with its own message when missing. A pattern that has gone from the
// table counts as not chosen.
std::optional<SeedingPattern> chosen_pattern(
    Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx, std::string_view no_pattern_message)
{
    if (!drawsize) {
        session.talk().message("select drawsize");
        return std::nullopt;
    }
    std::optional<SeedingPattern> pattern;
    if (idx)
        pattern = find_pattern(session.init_db(), *idx);
    if (!pattern)
        session.talk().message(no_pattern_message);
    return pattern;
}

} // namespace

std::string pattern_list_heading(int drawsize)
{
    return "seeding patterns for drawsize=" + std::to_string(drawsize);
}

std::string position_list_heading(int drawsize)
{
    return "drawsize=" + std::to_string(drawsize) + "(position,seeding)";
}

std::string pattern_line(const SeedingPattern& pattern)
{
    return (pattern.is_default ? "default\t" : "\t") + pattern.name;
}

std::string position_line(const SeedPosition& position)
{
    return std::to_string(position.pos) + "," + std::to_string(position.seed);
}

PatternLineParts get_name(std::string_view line)
{
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos)
        return { {}, std::string(line) };
    return { std::string(line.substr(0, tab)), std::string(line.substr(tab + 1)) };
}

std::optional<SeedPosition> splitup(std::string_view line)
{
    const auto comma = line.find(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    const auto pos = whole_number(line.substr(0, comma));
    const auto seed = whole_number(line.substr(comma + 1));
    if (!pos || !seed)
        return std::nullopt;
    return SeedPosition { *pos, *seed };
}

std::vector<SeedingPattern> load_patterns(Database& init, int drawsize)
{
    auto rows = init.query(R"(select * from seedposmapping_index where drawsize = ? order by idx)", drawsize);
    std::vector<SeedingPattern> out;
    while (rows.step())
        out.push_back(pattern_of(rows));
    return out;
}

std::optional<SeedingPattern> find_pattern(Database& init, std::int64_t idx)
{
    auto rows = init.query(R"(select * from seedposmapping_index where idx = ?)", idx);
    if (!rows.step())
        return std::nullopt;
    return pattern_of(rows);
}

std::vector<SeedPosition> load_positions(Database& init, std::int64_t idx)
{
    auto rows = init.query(R"(select * from seedposmapping where idx = ? order by pos)", idx);
    return positions_of(rows);
}

std::vector<SeedPosition> empty_positions(int drawsize)
{
    std::vector<SeedPosition> out;
    for (int pos = 1; pos <= drawsize; ++pos)
        out.push_back({ pos, 0 });
    return out;
}

namespace {

SeedingPattern default_pattern(Database& init, int drawsize)
{
    auto rows = init.query(R"(select * from seedposmapping_index where drawsize = ? and "default" = 1)", drawsize);
    if (!rows.step())
        throw DbError("no default seeding pattern for drawsize=" + std::to_string(drawsize));
    return pattern_of(rows);
}

} // namespace

std::vector<SeedPosition> default_seed_positions(Database& init, int drawsize)
{
    const auto pattern = default_pattern(init, drawsize);
    auto rows = init.query(R"(select * from seedposmapping where idx = ? and seed <> 0 order by seed)", pattern.idx);
    return positions_of(rows);
}

std::string default_pattern_name(Database& init, int drawsize)
{
    return default_pattern(init, drawsize).name;
}

std::vector<SeedPosition> seed_positions_by_name(Database& init, std::string_view name)
{
    auto rows = init.query(R"(select * from seedposmapping where nm = ? order by idx, pos)", name);
    return positions_of(rows);
}

bool set_seed(UserTalk& talk, std::vector<SeedPosition>& positions, std::optional<std::size_t> chosen,
    std::string_view box, PatternWindow window)
{
    if (!chosen || *chosen >= positions.size()) {
        talk.message("select position");
        return false;
    }
    if (!report(talk, value_required(box)) || !report(talk, check_integer(box)))
        return false;
    // Digits only by now; more than nine of them cannot be a slot of any draw.
    const auto digits = box.find_first_not_of('0');
    const auto significant = digits == std::string_view::npos ? std::string_view() : box.substr(digits);
    const int lines = static_cast<int>(positions.size());
    const int value = significant.size() > 9 ? lines + 1 : whole_number(significant).value_or(0);
    if (value > lines) {
        talk.message(
            "drawsize is =" + std::to_string(lines) + " you cannot define a seed > number of players in the draw");
        return false;
    }
    // The chosen line is searched too: setting a line's own seed again is refused like any repeat.
    if (value != 0
        && std::any_of(positions.begin(), positions.end(), [value](const auto& p) { return p.seed == value; })) {
        const auto n = std::to_string(value);
        talk.message(window == PatternWindow::new_pattern ? "seeding of " + n + " already defined"
                                                          : "seeding " + n + " already defined");
        return false;
    }
    positions[*chosen].seed = value;
    return true;
}

void clear_pattern(std::vector<SeedPosition>& positions)
{
    for (auto& p : positions)
        p.seed = 0;
}

bool save_pattern(Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx,
    const std::vector<SeedPosition>& positions)
{
    const auto pattern = chosen_pattern(session, drawsize, idx, "select seeding pattern");
    if (!pattern)
        return false;
    if (pattern->is_system) {
        session.talk().message("cannot change system pattern");
        return false;
    }
    require_fitting(pattern->drawsize, positions);
    auto& init = session.init_db();
    Transaction transaction(init);
    init.run(R"(delete from seedposmapping where idx = ?)", pattern->idx);
    // The rows take the list line as it stands, mark and tab included; nm here only informs.
    insert_positions(init, pattern->idx, pattern_line(*pattern), positions);
    transaction.commit();
    session.talk().message("ok");
    return true;
}

bool rename_pattern(
    Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx, std::string_view new_name)
{
    const auto pattern = chosen_pattern(session, drawsize, idx, "select seeding pattern");
    if (!pattern)
        return false;
    auto& talk = session.talk();
    const auto name = trim(new_name);
    if (!name_passes(talk, name))
        return false;
    if (pattern->is_system) {
        talk.message("cannot change system pattern");
        return false;
    }
    auto& init = session.init_db();
    const auto old_name = get_name(pattern_line(*pattern)).name;
    if (name_in_use(init, name, pattern->idx)) {
        talk.message(std::string(name_taken) + name);
        return false;
    }
    Transaction transaction(init);
    // By name, not by idx: a row of another size that carries the old name takes the new one as well.
    init.run(R"(update seedposmapping_index set nm = ? where nm = ?)", name, old_name);
    transaction.commit();
    talk.message("ok");
    return true;
}

bool set_default(Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx)
{
    const auto pattern = chosen_pattern(session, drawsize, idx, "select seeding pattern");
    if (!pattern)
        return false;
    auto& init = session.init_db();
    Transaction transaction(init);
    init.run(R"(update seedposmapping_index set "default" = 0 where drawsize = ?)", pattern->drawsize);
    init.run(R"(update seedposmapping_index set "default" = 1 where idx = ?)", pattern->idx);
    transaction.commit();
    return true;
}

bool delete_pattern(Session& session, std::optional<int> drawsize, std::optional<std::int64_t> idx)
{
    const auto pattern = chosen_pattern(session, drawsize, idx, "select seeding pattern to delete");
    if (!pattern)
        return false;
    if (pattern->is_system) {
        session.talk().message("cannot delete system pattern");
        return false;
    }
    auto& init = session.init_db();
    Transaction transaction(init);
    init.run(R"(delete from seedposmapping_index where idx = ?)", pattern->idx);
    init.run(R"(delete from seedposmapping where idx = ?)", pattern->idx);
    // A size never stays without a default: it falls back on the pattern it came with.
    if (pattern->is_default) {
        std::optional<std::int64_t> system_idx;
        {
            auto rows
                = init.query(R"(select idx from seedposmapping_index where "system" = 1 and drawsize = ? order by idx)",
                    pattern->drawsize);
            if (rows.step())
                system_idx = rows.integer("idx");
        }
        if (system_idx)
            init.run(R"(update seedposmapping_index set "default" = 1 where idx = ?)", *system_idx);
    }
    transaction.commit();
    return true;
}

std::optional<std::int64_t> save_new_pattern(
    Session& session, std::optional<int> drawsize, std::string_view name, const std::vector<SeedPosition>& positions)
{
    auto& talk = session.talk();
    const auto trimmed = trim(name);
    if (!name_passes(talk, trimmed))
        return std::nullopt;
    auto& init = session.init_db();
    if (name_in_use(init, trimmed, std::nullopt)) {
        talk.message(std::string(name_taken) + trimmed);
        return std::nullopt;
    }
    if (!drawsize) {
        talk.message("select drawsize");
        return std::nullopt;
    }
    require_fitting(*drawsize, positions);
    Transaction transaction(init);
    const auto idx = init.scalar_integer(R"(select coalesce(max(idx), 0) + 1 from seedposmapping_index)");
    // "system" keeps its column default: a pattern made here is never a system pattern.
    init.run(R"(insert into seedposmapping_index (idx, nm, drawsize, "default") values (?, ?, ?, 0))", idx, trimmed,
        *drawsize);
    insert_positions(init, idx, trimmed, positions);
    transaction.commit();
    return idx;
}

bool seeding_export_allowed(Session& session)
{
    return session.settings().text("app.screenscrape") == "allow screenscrape";
}

bool export_seeding_list(Session& session, const std::vector<SeedPosition>& positions)
{
    if (!seeding_export_allowed(session))
        return false;
    std::vector<std::string> lines { "seeding" };
    for (const auto& p : positions)
        lines.push_back(position_line(p));
    return save_text_file_as(session, "seeding.txt", session.dirs().working, lines).has_value();
}

} // namespace qv
