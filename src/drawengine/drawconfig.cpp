#include "drawengine/drawconfig.h"

#include "core/codepage.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "core/validators.h"

#include <algorithm>
#include <fstream>
#include <limits>

namespace qv {

namespace {

constexpr std::size_t list_index(ConfigList list)
{
    return static_cast<std::size_t>(list);
}

constexpr std::size_t box_index(ConfigBox box)
{
    return static_cast<std::size_t>(box);
}

// The number a box holds as the counts read it: leading blanks, a sign and digits, anything after ignored;
// a box without a number counts 0.
std::int64_t box_number(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ')
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+'))
        negative = text[i++] == '-';
    std::int64_t value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        value = std::min<std::int64_t>(value * 10 + (text[i] - '0'), std::numeric_limits<int>::max());
    return negative ? -value : value;
}

int clamp_to_int(std::int64_t n)
{
    return static_cast<int>(
        std::clamp<std::int64_t>(n, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::string seed_text(std::size_t place, std::string_view name)
{
    return "(" + std::to_string(place + 1) + ")" + std::string(name);
}

// "(3)" of "(3)bob": what a seed line keeps at its place when lines change places.
std::string seed_prefix(std::string_view text)
{
    const auto close = text.find(')');
    return close == std::string_view::npos ? std::string() : std::string(text.substr(0, close + 1));
}

struct ExportNames
{
    const char* heading;
    const char* file;
};

constexpr std::array<ExportNames, 3> export_names { { { "seeds for ", "seeds.txt" }, { "players for ", "players.txt" },
    { "reserves for ", "reserves.txt" } } };

} // namespace

std::string removebrackets(std::string_view text)
{
    const auto close = text.find(')');
    return std::string(close == std::string_view::npos ? text : text.substr(close + 1));
}

int numdefaultseeds(int drawsize)
{
    switch (drawsize) {
    case 2:
        return 1;
    case 4:
    case 8:
        return 2;
    case 16:
        return 4;
    case 32:
        return 8;
    case 64:
        return 16;
    case 128:
        return 32;
    case 256:
        return 64;
    default:
        return 0;
    }
}

bool event_has_draw(Session& session, std::int64_t eid)
{
    auto& db = session.tournament();
    return db.scalar_integer("select count(*) from events where eid=? and drawdone<>0", eid) > 0
        || db.scalar_integer("select count(*) from schedule where eid=?", eid) > 0;
}

DrawConfig::DrawConfig(Session& session, std::int64_t eid, DrawConfigHooks hooks)
    : m_session(session)
    , m_eid(eid)
    , m_hooks(std::move(hooks))
{
    load_all();
    get_singdobs_drawtype();
    m_boxes[box_index(ConfigBox::wildcards)] = std::to_string(m_event.wildcards);
    m_boxes[box_index(ConfigBox::qualifiers)] = std::to_string(m_event.qualifiers);
    setcounts_and_drawsize();
    // A round robin shows its scoring mode; a mode outside the line falls back to the knock-out.
    const bool rr = name_key(m_event.drawtype) == "rr";
    m_type_index = rr && m_event.pts >= 0 && m_event.pts < int(draw_type_lines.size()) ? m_event.pts : 0;
    setcounts_and_drawsize();
    m_locked = m_event.drawdone || event_has_draw(m_session, m_eid)
        || (m_hooks.draw_in_progress && m_hooks.draw_in_progress(m_eid));
}

void DrawConfig::get_singdobs_drawtype()
{
    auto row = m_session.tournament().query(
        "select singdobs, drawtype, eventname, drawdone, wildcards, qualifiers, pts from events where eid=?", m_eid);
    if (!row.step())
        return;
    m_event.singdobs = row.text("singdobs");
    m_event.drawtype = row.text("drawtype");
    m_event.eventname = row.text("eventname");
    m_event.drawdone = row.integer("drawdone") != 0;
    m_event.wildcards = row.integer("wildcards");
    m_event.qualifiers = row.integer("qualifiers");
    m_event.pts = clamp_to_int(row.integer("pts"));
}

bool DrawConfig::is_doubles() const
{
    return name_key(m_event.singdobs) == "doubles";
}

bool DrawConfig::exports_allowed() const
{
    return m_session.settings().text("app.screenscrape") == "allow screenscrape";
}

const std::vector<ConfigLine>& DrawConfig::lines(ConfigList which) const
{
    return m_lists[list_index(which)];
}

std::vector<ConfigLine>& DrawConfig::list(ConfigList which)
{
    return m_lists[list_index(which)];
}

const std::string& DrawConfig::box_text(ConfigBox box) const
{
    return m_boxes[box_index(box)];
}

void DrawConfig::set_selected(ConfigList which, const std::vector<int>& rows)
{
    auto& lines = list(which);
    for (auto& line : lines)
        line.selected = false;
    for (int row : rows)
        if (row >= 0 && std::size_t(row) < lines.size())
            lines[std::size_t(row)].selected = true;
}

void DrawConfig::selectall(ConfigList which)
{
    for (auto& line : list(which))
        line.selected = true;
}

void DrawConfig::unselectall(ConfigList which)
{
    for (auto& line : list(which))
        line.selected = false;
}

void DrawConfig::set_box_text(ConfigBox box, std::string text)
{
    m_boxes[box_index(box)] = std::move(text);
}

bool DrawConfig::any_selected(ConfigList which) const
{
    const auto& lines = m_lists[list_index(which)];
    return std::any_of(lines.begin(), lines.end(), [](const ConfigLine& line) { return line.selected; });
}

void DrawConfig::load_all()
{
    for (auto& lines : m_lists)
        lines.clear();
    // Rows of equal seeding keep the order they were entered in.
    auto rows = m_session.tournament().query(
        "select ent_idx, player, seeding, reserve from evententries where eid=? order by seeding, ent_idx", m_eid);
    while (rows.step()) {
        const auto player = rows.text("player");
        const auto ent_idx = rows.integer("ent_idx");
        const bool reserve = rows.integer("reserve") != 0;
        const auto seeding = rows.integer("seeding");
        // A seeded reserve stands in both lists: the seed test does not look at the reserve mark.
        if (seeding > 0)
            list(ConfigList::seeds).push_back({ "(" + rows.text("seeding") + ")" + player, ent_idx });
        if (!reserve && seeding == 0)
            list(ConfigList::players).push_back({ player, ent_idx });
        if (reserve)
            list(ConfigList::reserves).push_back({ player, ent_idx });
    }
    setcounts_and_drawsize();
}

void DrawConfig::setcounts_and_drawsize()
{
    m_counts.seeds = int(lines(ConfigList::seeds).size());
    m_counts.players = int(lines(ConfigList::players).size());
    m_counts.reserves = int(lines(ConfigList::reserves).size());
    const auto in_draw = std::int64_t(m_counts.seeds) + m_counts.players;
    if (m_type_index == 0) {
        const auto open_places
            = box_number(box_text(ConfigBox::wildcards)) + box_number(box_text(ConfigBox::qualifiers));
        m_counts.drawsize = calcdrawsize(clamp_to_int(in_draw + open_places));
    } else {
        // A round robin has no open places: wildcards and qualifiers are left out of its size.
        m_counts.drawsize = clamp_to_int(in_draw);
    }
}

void DrawConfig::do_seedings()
{
    auto& seeds = list(ConfigList::seeds);
    for (std::size_t i = 0; i < seeds.size(); ++i)
        seeds[i].text = seed_text(i, removebrackets(seeds[i].text));
}

bool DrawConfig::move_selected(ConfigList from, ConfigList to)
{
    if (m_locked)
        return false;
    if (!any_selected(from)) {
        m_session.talk().message("select player(s)");
        return false;
    }
    auto& source = list(from);
    auto& target = list(to);
    std::vector<ConfigLine> kept;
    for (auto& line : source) {
        if (!line.selected) {
            kept.push_back(std::move(line));
            continue;
        }
        const std::string name = from == ConfigList::seeds ? removebrackets(line.text) : line.text;
        target.push_back({ name, line.ent_idx, false });
    }
    source = std::move(kept);
    if (from == ConfigList::seeds || to == ConfigList::seeds)
        do_seedings();
    setcounts_and_drawsize();
    return true;
}

bool DrawConfig::move_seeds_to_players()
{
    return move_selected(ConfigList::seeds, ConfigList::players);
}

bool DrawConfig::move_players_to_seeds()
{
    return move_selected(ConfigList::players, ConfigList::seeds);
}

bool DrawConfig::move_players_to_reserves()
{
    return move_selected(ConfigList::players, ConfigList::reserves);
}

bool DrawConfig::move_reserves_to_players()
{
    return move_selected(ConfigList::reserves, ConfigList::players);
}

bool DrawConfig::move_seed(SeedMove direction)
{
    if (m_locked)
        return false;
    auto& seeds = list(ConfigList::seeds);
    const auto found = std::find_if(seeds.begin(), seeds.end(), [](const ConfigLine& line) { return line.selected; });
    if (found == seeds.end()) {
        m_session.talk().message("select player");
        return false;
    }
    const auto from = std::size_t(found - seeds.begin());
    if ((direction == SeedMove::up && from == 0) || (direction == SeedMove::down && from + 1 >= seeds.size()))
        return false;
    const auto to = direction == SeedMove::up ? from - 1 : from + 1;
    // The numbers belong to the places, the names and entries travel.
    const auto from_prefix = seed_prefix(seeds[from].text);
    const auto to_prefix = seed_prefix(seeds[to].text);
    const auto from_name = removebrackets(seeds[from].text);
    const auto to_name = removebrackets(seeds[to].text);
    std::swap(seeds[from].ent_idx, seeds[to].ent_idx);
    seeds[to].text = to_prefix + from_name;
    seeds[from].text = from_prefix + to_name;
    unselectall(ConfigList::seeds);
    seeds[to].selected = true;
    return true;
}

bool DrawConfig::set_type_index(int index)
{
    if (m_locked || index < 0 || index >= int(draw_type_lines.size()))
        return false;
    m_type_index = index;
    setcounts_and_drawsize();
    return true;
}

bool DrawConfig::set_box(ConfigBox box)
{
    if (m_locked)
        return false;
    if (box_number(box_text(box)) > 128) {
        m_session.talk().message("max value=128");
        return false;
    }
    setcounts_and_drawsize();
    return true;
}

bool DrawConfig::clear_box(ConfigBox box)
{
    if (m_locked)
        return false;
    m_boxes[box_index(box)] = "0";
    return true;
}

bool DrawConfig::remove_entries()
{
    // Pairs are taken apart by the doubles tool, which keeps the raw entries in step.
    if (m_locked || is_doubles())
        return false;
    if (!any_selected(ConfigList::seeds) && !any_selected(ConfigList::players)) {
        m_session.talk().message("select player(s)");
        return false;
    }
    if (m_session.talk().ask("This will remove the selected players from this event", "Confirm", Buttons::YesNoCancel)
        != Answer::Yes)
        return false;

    std::vector<std::int64_t> gone;
    for (auto which : { ConfigList::seeds, ConfigList::players })
        for (const auto& line : lines(which))
            if (line.selected)
                gone.push_back(line.ent_idx);
    auto& db = m_session.tournament();
    Transaction transaction(db);
    for (auto ent_idx : gone)
        db.run("delete from evententries where eid=? and ent_idx=?", m_eid, ent_idx);
    transaction.commit();

    // A seeded reserve leaves its reserve line too: its row is gone.
    for (auto& lines : m_lists)
        std::erase_if(lines, [&gone](const ConfigLine& line) {
            return std::find(gone.begin(), gone.end(), line.ent_idx) != gone.end();
        });
    do_seedings();
    setcounts_and_drawsize();
    m_session.refresh_lists(Lists::entries);
    return true;
}

std::optional<int> DrawConfig::search(ConfigList which, std::string_view text)
{
    if (!report(m_session.talk(), check_class(text, ValueClass::search_disallow)))
        return std::nullopt;
    const auto wanted = name_key(text);
    if (wanted.empty())
        return std::nullopt;
    auto& lines = list(which);
    for (std::size_t row = 0; row < lines.size(); ++row) {
        const auto name = which == ConfigList::seeds ? removebrackets(lines[row].text) : lines[row].text;
        if (lcase(name).find(wanted) != std::string::npos) {
            unselectall(which);
            lines[row].selected = true;
            return int(row);
        }
    }
    m_session.talk().beep();
    return std::nullopt;
}

std::optional<std::string> DrawConfig::details_player(ConfigList which)
{
    for (const auto& line : lines(which))
        if (line.selected)
            return trim(which == ConfigList::seeds ? removebrackets(line.text) : line.text);
    m_session.talk().message("select player");
    return std::nullopt;
}

bool DrawConfig::export_list(ConfigList which)
{
    if (!exports_allowed())
        return false;
    const auto& names = export_names[list_index(which)];
    auto& settings = m_session.settings();
    std::vector<std::string> text { names.heading + m_event.eventname };
    for (const auto& line : lines(which))
        text.push_back(line.text);
    const auto chosen = save_text_file_as(m_session, names.file, settings.text("app.last_dir_opened"), text);
    if (!chosen)
        return false;
    settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
    return true;
}

bool DrawConfig::save()
{
    if (m_locked)
        return false;
    const std::string drawtype = m_type_index == 0 ? "ko" : "rr";
    const int pts = m_type_index;

    for (auto& box : m_boxes) {
        if (trim(box).empty())
            box = "0";
        if (check_integer(box) || char_count(box) > 9)
            return false;
    }
    const auto wildcards = std::stoll(box_text(ConfigBox::wildcards));
    const auto qualifiers = std::stoll(box_text(ConfigBox::qualifiers));
    const auto total = std::int64_t(lines(ConfigList::seeds).size()) + std::int64_t(lines(ConfigList::players).size())
        + wildcards + qualifiers;

    if (drawtype == "rr" && total > 8) {
        m_session.talk().message("round robin for 2-8 players");
        return false;
    }
    if (drawtype == "ko" && total > 128) {
        m_session.talk().message("max drawsize is 128");
        return false;
    }

    auto& db = m_session.tournament();
    Transaction transaction(db);
    save_all();
    db.run("update events set qualifiers=?, wildcards=?, drawtype=?, pts=? where eid=?", qualifiers, wildcards,
        drawtype, pts, m_eid);
    transaction.commit();

    m_event.drawtype = drawtype;
    m_event.pts = pts;
    m_event.wildcards = wildcards;
    m_event.qualifiers = qualifiers;
    m_session.refresh_lists(Lists::entries);
    if (m_hooks.drawconfig_change)
        m_hooks.drawconfig_change(m_eid, drawtype, pts);
    return true;
}

void DrawConfig::save_all()
{
    // No event test: a player takes the same seed and reserve mark in every event entered, from the last
    // event saved.
    auto& db = m_session.tournament();
    const auto& seeds = lines(ConfigList::seeds);
    for (std::size_t k = 0; k < seeds.size(); ++k)
        db.run("update evententries set reserve=0, seeding=? where lower(trim(player))=?", std::int64_t(k + 1),
            name_key(removebrackets(seeds[k].text)));
    for (const auto& line : lines(ConfigList::players))
        db.run("update evententries set reserve=0, seeding=0 where lower(trim(player))=?", name_key(line.text));
    for (const auto& line : lines(ConfigList::reserves))
        db.run("update evententries set reserve=1, seeding=0 where lower(trim(player))=?", name_key(line.text));
}

} // namespace qv
