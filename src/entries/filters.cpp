#include "entries/filters.h"

#include "core/database.h"
#include "core/settings.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace qv {

namespace {

std::vector<std::string> split_fields(std::string_view text)
{
    std::vector<std::string> fields;
    std::size_t start = 0;
    while (true) {
        const auto end = text.find('^', start);
        fields.emplace_back(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
        if (end == std::string_view::npos)
            return fields;
        start = end + 1;
    }
}

std::string field(const std::vector<std::string>& fields, std::size_t index)
{
    return index < fields.size() ? fields[index] : std::string();
}

std::int64_t whole_number_or_zero(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return 0;
    return value;
}

const char* tick(bool ticked)
{
    return ticked ? "1" : "0";
}

// The condition of a pair of ticks: only one of them ticked restricts the list.
std::string pair_condition(bool first, bool second, std::string_view when_first, std::string_view when_second)
{
    if (first && !second)
        return std::string(when_first);
    if (second && !first)
        return std::string(when_second);
    return {};
}

std::string order_part(PlayerOrder order)
{
    switch (order) {
    case PlayerOrder::second_name:
        return " order by sname";
    case PlayerOrder::insertion:
        return " order by pid";
    case PlayerOrder::player:
        break;
    }
    return " order by player";
}

// A stored word is taken only if it is one of its list's words; anything else restricts nothing.
std::string one_of(const std::vector<std::string>& words, const std::string& value, const std::string& otherwise)
{
    return std::find(words.begin(), words.end(), value) != words.end() ? value : otherwise;
}

bool event_has_entries(Database& db, std::int64_t eid, const std::string& singdobs)
{
    if (singdobs == "doubles")
        return db.scalar_integer("select count(*) from rawdoublesentries where eid=?", eid) > 0;
    return db.scalar_integer("select count(*) from evententries where eid=?", eid) > 0;
}

std::size_t placeholder_count(std::string_view sql)
{
    return static_cast<std::size_t>(std::count(sql.begin(), sql.end(), '?'));
}

} // namespace

// ---- Player filter ----

const std::vector<std::string>& player_order_words()
{
    static const std::vector<std::string> words { "order by player", "order by second name",
        "order order of insertion" };
    return words;
}

std::string_view player_order_word(PlayerOrder order)
{
    return player_order_words().at(static_cast<std::size_t>(order));
}

PlayerFilter parse_player_filter(std::string_view text)
{
    const auto fields = split_fields(text);
    PlayerFilter filter;
    const auto source = field(fields, 0);
    filter.source = source == "2" ? PlayerSource::event : source == "3" ? PlayerSource::folder : PlayerSource::all;
    filter.id = whole_number_or_zero(field(fields, 1));
    filter.male = field(fields, 2) == "1";
    filter.female = field(fields, 3) == "1";
    filter.reserves = field(fields, 4) == "1";
    filter.non_reserve = field(fields, 5) == "1";
    filter.players = field(fields, 6) == "1";
    filter.teams = field(fields, 7) == "1";
    const auto order = field(fields, 8);
    filter.order = order == player_order_word(PlayerOrder::second_name) ? PlayerOrder::second_name
        : order == player_order_word(PlayerOrder::insertion)            ? PlayerOrder::insertion
                                                                        : PlayerOrder::player;
    return filter;
}

std::string player_filter_text(const PlayerFilter& filter)
{
    std::string text = std::to_string(static_cast<int>(filter.source)) + "^" + std::to_string(filter.id);
    for (bool ticked :
        { filter.male, filter.female, filter.reserves, filter.non_reserve, filter.players, filter.teams })
        text += std::string("^") + tick(ticked);
    return text + "^" + std::string(player_order_word(filter.order));
}

std::string disp_tag(const PlayerFilter& filter, FilterScope scope)
{
    std::string tag;
    if (scope == FilterScope::with_source) {
        switch (filter.source) {
        case PlayerSource::event:
            tag = "event id: " + std::to_string(filter.id) + " ";
            break;
        case PlayerSource::folder:
            tag = "folder id: " + std::to_string(filter.id) + " ";
            break;
        case PlayerSource::all:
            tag = "all players ";
            break;
        }
    }
    const std::pair<const char*, bool> ticks[] = { { "male: ", filter.male }, { " female: ", filter.female },
        { " reserve: ", filter.reserves }, { " non-reserve: ", filter.non_reserve }, { " players: ", filter.players },
        { " teams: ", filter.teams } };
    for (const auto& [word, ticked] : ticks) {
        tag += word;
        tag += tick(ticked);
    }
    tag += " order by: ";
    // "order by player" reads "order by: player"; the insertion order keeps its own words.
    switch (filter.order) {
    case PlayerOrder::player:
        return tag + "player";
    case PlayerOrder::second_name:
        return tag + "second name";
    case PlayerOrder::insertion:
        break;
    }
    return tag + "order of insertion";
}

std::string filter_where_and(std::string_view sql)
{
    std::string out(sql);
    const auto at = out.find("where  and ");
    if (at != std::string::npos)
        out.erase(at + 6, 5);
    return out;
}

PlayerFilterSql player_filter_sql(Database& db, const PlayerFilter& filter)
{
    const std::string conditions = pair_condition(filter.male, filter.female, " and sex='male'", " and sex='female'")
        + pair_condition(filter.players, filter.teams, " and pval='1'", " and pval='0'");
    const std::string order = order_part(filter.order);

    PlayerFilterSql sql;
    sql.id = filter.id;
    switch (filter.source) {
    case PlayerSource::all:
        // With no tick narrowing it the whole register comes by name, whatever order was chosen.
        sql.select = conditions.empty() ? std::string("select * from players order by player")
                                        : filter_where_and("select * from players where " + conditions) + order;
        break;
    case PlayerSource::folder:
        sql.select = "select * from players where fid=?" + conditions + order;
        break;
    case PlayerSource::event: {
        const std::string reserve
            = pair_condition(filter.reserves, filter.non_reserve, " and reserve=true", " and reserve=false");
        sql.fill_alist.push_back("delete from alist");
        const auto singdobs = db.scalar_text("select singdobs from events where eid=?", filter.id);
        if (singdobs == "doubles") {
            sql.fill_alist.push_back(
                "insert into alist Select trim(p1name) as nm from evententries where eid=?" + reserve);
            sql.fill_alist.push_back(
                "insert into alist Select trim(partner) as nm from evententries where eid=?" + reserve);
        } else {
            sql.fill_alist.push_back(
                "insert into alist Select trim(player) as nm from evententries where eid=?" + reserve);
        }
        sql.select = "select * from players where lower(trim(player)) in ( select nm as player from alist ) "
            + conditions + order;
        break;
    }
    }
    return sql;
}

std::vector<FilteredPlayer> filtered_players(Database& db, const PlayerFilter& filter)
{
    const auto sql = player_filter_sql(db, filter);
    for (const auto& statement : sql.fill_alist) {
        if (placeholder_count(statement) == 0)
            db.run(statement);
        else
            db.run(statement, sql.id);
    }
    auto rows = placeholder_count(sql.select) == 0 ? db.query(sql.select) : db.query(sql.select, sql.id);
    std::vector<FilteredPlayer> players;
    while (rows.step()) {
        FilteredPlayer p;
        p.pid = rows.integer("pid");
        p.player = rows.text("player");
        p.fname = rows.text("fname");
        p.sname = rows.text("sname");
        p.sex = rows.text("sex");
        p.pval = static_cast<int>(rows.integer("pval"));
        p.fid = rows.integer("fid");
        p.country = rows.text("country");
        p.rating = rows.text("rating");
        p.ranking = rows.text("ranking");
        players.push_back(std::move(p));
    }
    return players;
}

// ---- Event filter ----

const std::vector<std::string>& event_singdobs_words()
{
    static const std::vector<std::string> words { "*", "singles", "doubles" };
    return words;
}

const std::vector<std::string>& event_sex_words()
{
    static const std::vector<std::string> words { "*", "male", "female", "mixed", "neutral" };
    return words;
}

const std::vector<std::string>& event_type_words()
{
    static const std::vector<std::string> words { "*", "players only", "teams only", "either" };
    return words;
}

const std::vector<std::string>& event_draw_words()
{
    static const std::vector<std::string> words { "*", "draw done", "draw not done" };
    return words;
}

const std::vector<std::string>& event_entries_words()
{
    static const std::vector<std::string> words { "*", "has entries", "has no entries" };
    return words;
}

const std::vector<std::string>& event_order_words()
{
    static const std::vector<std::string> words { "event number", "drawdone", "event name" };
    return words;
}

EventFilter parse_event_filter(std::string_view text)
{
    const auto fields = split_fields(text);
    EventFilter filter;
    filter.singdobs = one_of(event_singdobs_words(), field(fields, 0), "*");
    filter.sex = one_of(event_sex_words(), field(fields, 1), "*");
    filter.type = one_of(event_type_words(), field(fields, 2), "*");
    filter.draw = one_of(event_draw_words(), field(fields, 3), "*");
    filter.entries = one_of(event_entries_words(), field(fields, 4), "*");
    filter.order = one_of(event_order_words(), field(fields, 5), "event number");
    return filter;
}

std::string event_filter_text(const EventFilter& filter)
{
    return filter.singdobs + "^" + filter.sex + "^" + filter.type + "^" + filter.draw + "^" + filter.entries + "^"
        + filter.order;
}

std::string disp_tag(const EventFilter& filter)
{
    const std::pair<const char*, const std::string*> parts[] = { { "singles/doubles: ", &filter.singdobs },
        { " event sex: ", &filter.sex }, { " event type: ", &filter.type }, { " draw done: ", &filter.draw },
        { " has entries: ", &filter.entries }, { " order by: ", &filter.order } };
    std::string tag;
    for (const auto& [word, value] : parts) {
        tag += word;
        tag += *value;
    }
    return tag;
}

std::string event_filter_sql(const EventFilter& filter)
{
    // Only words of the fixed lists reach the text: anything else was read as "*".
    const auto clean = parse_event_filter(event_filter_text(filter));
    std::string conditions;
    if (clean.singdobs != "*")
        conditions += " and singdobs='" + clean.singdobs + "'";
    if (clean.sex != "*")
        conditions += " and sex='" + clean.sex + "'";
    if (clean.type != "*")
        conditions += " and pte='" + clean.type.substr(0, 1) + "'";
    if (clean.draw == "draw done")
        conditions += " and drawdone=true";
    else if (clean.draw == "draw not done")
        conditions += " and drawdone=false";

    const std::string order = clean.order == "drawdone" ? " order by drawdone"
        : clean.order == "event name"                   ? " order by eventname"
                                                        : " order by eid";
    if (conditions.empty())
        return "Select * from events " + order;
    return filter_where_and("select * from events where " + conditions) + order;
}

std::vector<ListLine> filtered_events(Database& db, const EventFilter& filter)
{
    const auto clean = parse_event_filter(event_filter_text(filter));
    std::vector<ListLine> lines;
    auto rows = db.query(event_filter_sql(clean));
    while (rows.step()) {
        const auto eid = rows.integer("eid");
        if (clean.entries != "*") {
            const bool has = event_has_entries(db, eid, rows.text("singdobs"));
            if (has != (clean.entries == "has entries"))
                continue;
        }
        const bool drawdone = rows.integer("drawdone") != 0;
        lines.push_back(
            { std::string(drawdone ? "*" : "") + "(" + std::to_string(eid) + ")" + rows.text("eventname"), eid });
    }
    return lines;
}

// ---- Stored filters ----

PlayerFilter load_player_filter(Settings& settings, std::string_view key)
{
    return parse_player_filter(settings.text(key));
}

void store_player_filter(Settings& settings, std::string_view key, const PlayerFilter& filter)
{
    settings.set_disk_var(key, player_filter_text(filter));
}

EventFilter load_event_filter(Settings& settings, std::string_view key)
{
    return parse_event_filter(settings.text(key));
}

void store_event_filter(Settings& settings, std::string_view key, const EventFilter& filter)
{
    settings.set_disk_var(key, event_filter_text(filter));
}

} // namespace qv
