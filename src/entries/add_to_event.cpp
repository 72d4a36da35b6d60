#include "entries/add_to_event.h"

#include "core/file_save.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace qv {

namespace {

constexpr std::string_view partner_required_key = "preq preq";

std::string lower_trimmed(std::string_view text)
{
    return name_key(text);
}

// "m", "f" or "" from the register's sex.
std::string sex_letter(const PersonData& person)
{
    return sex_code(lower_trimmed(person.sex));
}

bool is_player(const PersonData& person)
{
    return person.pval == 1;
}

bool is_team(const PersonData& person)
{
    return person.pval == 0;
}

// A half of a pair that is nobody: empty, a name a draw made, or the stand-in of a missing partner.
bool is_nobody(std::string_view name)
{
    return trim(name).empty() || is_reserved(name) || name_key(name) == partner_required_key;
}

// The people of an entry line: the two halves of a pair, or the one name of a line without "/".
std::vector<std::string> pair_halves(std::string_view line)
{
    std::vector<std::string> halves;
    if (line.find('/') == std::string_view::npos) {
        halves.push_back(trim(line));
    } else {
        auto [left, right] = split_pair(line);
        halves.push_back(std::move(left));
        halves.push_back(std::move(right));
    }
    std::erase_if(halves, [](const std::string& half) { return is_nobody(half); });
    return halves;
}

PersonData read_person(const Statement& row)
{
    PersonData person;
    person.fname = row.text("fname");
    person.sname = row.text("sname");
    person.rating = row.text("rating");
    person.ranking = row.text("ranking");
    person.country = row.text("country");
    person.pval = static_cast<int>(row.integer("pval"));
    person.availabilityrestrictions = row.text("availabilityrestrictions");
    if (is_empty(person.availabilityrestrictions))
        person.availabilityrestrictions = ".";
    person.sex = row.text("sex");
    return person;
}

constexpr const char* person_columns
    = "select fname, sname, rating, ranking, country, pval, availabilityrestrictions, sex from players ";

// The key name goes by the index of `player` first; a stored name with blanks round it needs the full scan.
std::optional<PersonData> find_person(Statement& by_name, Statement& by_key, std::string_view name)
{
    for (auto* statement : { &by_name, &by_key }) {
        statement->bind_all(statement == &by_name ? trim(name) : lower_trimmed(name));
        std::optional<PersonData> found;
        if (statement->step())
            found = read_person(*statement);
        statement->reset();
        if (found)
            return found;
    }
    return std::nullopt;
}

std::string points_text(double points)
{
    if (std::floor(points) == points && std::fabs(points) < 1e15)
        return std::to_string(static_cast<long long>(points));
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%g", points);
    return buffer;
}

struct Standing
{
    std::string name;
    double points = 0;
};

// The group's standings, built in alist10_rr from the matches' names and points.
std::vector<Standing> rr_standings(Database& db, std::int64_t eid)
{
    db.run("delete from alist10_rr");
    db.run("delete from alist");
    {
        auto add = db.query("insert into alist (nm) values (?)");
        auto rows = db.query("select mtttt, mbttt from schedule where eid=? order by sid", eid);
        while (rows.step()) {
            for (const char* side : { "mtttt", "mbttt" }) {
                const auto name = rows.text(side);
                if (trim(name).empty())
                    continue;
                add.bind_all(name);
                add.step();
                add.reset();
            }
        }
    }
    db.run("insert into alist10_rr (nm) select distinct(nm) from alist");
    {
        auto points = db.query("update alist10_rr set points=points + ? where nm=?");
        auto rows = db.query("select mtttt, mbttt, points1, points2 from schedule where eid=? order by sid", eid);
        while (rows.step()) {
            for (const auto& [score, side] : { std::pair { "points1", "mtttt" }, std::pair { "points2", "mbttt" } }) {
                points.bind_all(std::strtod(rows.text(score).c_str(), nullptr), rows.text(side));
                points.step();
                points.reset();
            }
        }
    }
    std::vector<Standing> standings;
    // Equal points keep the table's order.
    auto rows = db.query("select nm, points from alist10_rr order by points desc, rowid");
    while (rows.step())
        standings.push_back({ rows.text("nm"), rows.real("points") });
    return standings;
}

std::string with_standing(const std::string& name, const std::vector<Standing>& standings)
{
    for (const auto& standing : standings) {
        if (same_name(standing.name, name))
            return name + "(" + points_text(standing.points) + ")";
    }
    return name;
}

bool has_draw(Database& db, const EventData& event)
{
    return event.drawdone && db.scalar_integer("select count(*) from schedule where eid=?", event.eid) > 0;
}

bool is_seed_number(const std::string& seeding, int& number)
{
    const auto text = trim(seeding);
    if (text.empty() || !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    number = std::stoi(text.substr(0, 9));
    return number > 0;
}

// The sides of the rows a statement selects, as the draw holds them; nobody's sides left out.
void add_sides(Statement& rows, std::vector<std::string>& lines)
{
    while (rows.step()) {
        for (const char* side : { "mtttt", "mbttt" }) {
            const auto name = trim(rows.text(side));
            if (!name.empty() && !is_reserved(name))
                lines.push_back(name);
        }
    }
}

std::vector<std::string> first_round_by_seeding(Database& db, std::int64_t eid, std::string_view criterion)
{
    std::vector<std::pair<int, std::string>> seeds;
    std::vector<std::string> lines;
    auto rows = db.query(
        "select mtttt, mbttt, mtseeding, mbseeding from schedule where eid=? and rid=1 order by \"match\"", eid);
    while (rows.step()) {
        for (const auto& [side, seed_column] :
            { std::pair { "mtttt", "mtseeding" }, std::pair { "mbttt", "mbseeding" } }) {
            const auto name = trim(rows.text(side));
            if (name.empty() || is_reserved(name))
                continue;
            const auto seeding = lower_trimmed(rows.text(seed_column));
            int number = 0;
            if (criterion == criterion::all_seeds && is_seed_number(seeding, number))
                seeds.emplace_back(number, name);
            else if ((criterion == criterion::qualifiers && seeding == "q")
                || (criterion == criterion::wildcards && seeding == "wc"))
                lines.push_back(name);
        }
    }
    std::stable_sort(seeds.begin(), seeds.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& seed : seeds)
        lines.push_back(std::move(seed.second));
    return lines;
}

std::vector<std::string> lost_first_round(Database& db, std::int64_t eid)
{
    std::vector<std::string> lines;
    auto rows = db.query("select mtttt, mbttt, mwttt from schedule where eid=? and rid=1 and mwttt<>'' order by "
                         "\"match\"",
        eid);
    while (rows.step()) {
        const auto winner = rows.text("mwttt");
        for (const char* side : { "mtttt", "mbttt" }) {
            const auto name = trim(rows.text(side));
            if (!name.empty() && !is_reserved(name) && !same_name(name, winner))
                lines.push_back(name);
        }
    }
    return lines;
}

std::vector<std::string> entered_lines(Database& db, const EventData& event, bool reserves_only)
{
    std::vector<std::string> lines;
    auto rows = reserves_only
        ? db.query("select player from evententries where eid=? and reserve=1 order by player", event.eid)
        : db.query("select player from evententries where eid=? order by player", event.eid);
    while (rows.step())
        lines.push_back(rows.text("player"));
    if (reserves_only || event.sd() != 'd')
        return lines;
    // Raw rows whose people are still free; a taken person stands in a team listed above.
    auto raw = db.query(R"(select player, partnername from rawdoublesentries
        where eid=? and p1<>'taken' and p2<>'taken' order by player, rdidx)",
        event.eid);
    while (raw.step()) {
        const auto partner = raw.text("partnername");
        lines.push_back(
            name_key(partner) == partner_required_key ? raw.text("player") : raw.text("player") + "/" + partner);
    }
    return lines;
}

std::string entry_name(std::string_view line, const EventData& source)
{
    return source.is_rr() ? strip_first_bracket(line) : trim(line);
}

bool refused_pair(std::string_view source, std::string_view target)
{
    static constexpr std::pair<std::string_view, std::string_view> refused[] = { { "ms", "fs" }, { "ms", "fd" },
        { "fs", "ms" }, { "fs", "md" }, { "md", "fs" }, { "md", "fd" }, { "fd", "ms" }, { "fd", "md" } };
    return std::find(std::begin(refused), std::end(refused), std::pair { source, target }) != std::end(refused);
}

std::string sex_word(const std::string& letter)
{
    return letter == "m" ? "male" : "female";
}

// The sex and type lines shared by the four checks: the sex text by the target's key, then the type text.
std::optional<std::string> person_check(const PersonData& person, const EventData& target,
    std::initializer_list<std::pair<std::string_view, std::string_view>> refused_sexes, bool doubles_type_words)
{
    const auto letter = sex_letter(person);
    const auto key = target.key();
    for (const auto& [sex, target_key] : refused_sexes) {
        if (letter == sex && key == target_key) {
            const std::string kind = target_key[1] == 's' ? "singles" : "doubles";
            const std::string other = letter == "m" ? "female" : "male";
            return ",sex=" + sex_word(letter) + ",cannot add to " + other + " " + kind;
        }
    }
    const auto pte = lower_trimmed(target.pte);
    const std::string event_word = doubles_type_words ? " doubles event" : " event";
    if (is_player(person) && pte == "t")
        return ",cannot add player to teams only" + event_word;
    if (is_team(person) && pte == "p")
        return ",cannot add team to players only" + event_word;
    return std::nullopt;
}

} // namespace

// ---- Events and persons ----

std::string event_key(std::string_view sex, std::string_view singdobs)
{
    const auto s = lower_trimmed(sex);
    const auto sd = lower_trimmed(singdobs);
    if (s == "mixed")
        return "xd";
    const std::string first = s == "male" ? "m" : s == "female" ? "f" : s == "neutral" ? "n" : "";
    const std::string second = sd == "singles" ? "s" : sd == "doubles" ? "d" : "";
    if (first.empty() || second.empty())
        return {};
    return first + second;
}

char EventData::sd() const
{
    const auto k = key();
    if (k.size() == 2)
        return k[1];
    return lower_trimmed(singdobs) == "doubles" ? 'd' : 's';
}

bool EventData::is_rr() const
{
    return lower_trimmed(drawtype) == "rr";
}

std::optional<EventData> get_data(Database& db, std::int64_t eid)
{
    auto row = db.query("select eventname, drawdone, singdobs, sex, pte, drawtype, fee from events where eid=?", eid);
    if (!row.step())
        return std::nullopt;
    EventData event;
    event.eid = eid;
    event.eventname = row.text("eventname");
    event.drawdone = row.integer("drawdone") != 0;
    event.singdobs = row.text("singdobs");
    event.sex = row.text("sex");
    event.pte = row.text("pte");
    event.drawtype = row.text("drawtype");
    event.fee = row.text("fee");
    return event;
}

std::string PersonData::player() const
{
    return trim(trim(fname) + " " + trim(sname));
}

std::optional<PersonData> get_pn(Database& db, std::string_view name)
{
    auto by_name = db.query(std::string(person_columns) + "where player=? limit 1");
    auto by_key = db.query(std::string(person_columns) + "where lower(trim(player))=? limit 1");
    return find_person(by_name, by_key, name);
}

// ---- Checks ----

std::optional<std::string> sex_s_to_s(const PersonData& person, const EventData& target)
{
    return person_check(person, target, { { "m", "fs" }, { "f", "ms" } }, false);
}

std::optional<std::string> sex_s_to_d(const PersonData& person, const EventData& target)
{
    return person_check(person, target, { { "m", "fd" }, { "f", "md" } }, true);
}

std::optional<std::string> sex_d_to_s(const PersonData& person, const EventData& target)
{
    return person_check(person, target, { { "m", "fd" }, { "m", "fs" }, { "f", "md" }, { "f", "ms" } }, false);
}

std::optional<std::string> sex_d_to_d(const PersonData& person, const EventData& target)
{
    return person_check(person, target, { { "m", "fd" }, { "f", "md" } }, false);
}

HowToAdd sex_d_to_d_how_to_add(std::string_view source_key, std::string_view target_key, std::string_view sexes)
{
    const auto target_is = [&](std::initializer_list<std::string_view> keys) {
        return std::find(keys.begin(), keys.end(), target_key) != keys.end();
    };
    if (source_key == "nd") {
        if (target_is({ "nd", "md", "fd" }))
            return HowToAdd::as_team;
        if (target_key == "xd") {
            if (sexes == "mf" || sexes == "fm")
                return HowToAdd::as_team;
            if (sexes == "ff" || sexes == "mm")
                return HowToAdd::separate;
        }
        return HowToAdd::none;
    }
    if (source_key == "xd")
        return target_is({ "nd", "xd" }) ? HowToAdd::as_team
            : target_is({ "md", "fd" })  ? HowToAdd::separate
                                         : HowToAdd::none;
    if (source_key == "md")
        return target_is({ "nd", "md" }) ? HowToAdd::as_team
            : target_is({ "xd", "fd" })  ? HowToAdd::separate
                                         : HowToAdd::none;
    if (source_key == "fd")
        return target_is({ "nd", "fd" }) ? HowToAdd::as_team
            : target_is({ "xd", "md" })  ? HowToAdd::separate
                                         : HowToAdd::none;
    return HowToAdd::none;
}

std::string disp(std::string_view key)
{
    if (key == "ms")
        return "male singles";
    if (key == "fs")
        return "female singles";
    if (key == "md")
        return "male doubles";
    if (key == "fd")
        return "female doubles";
    return std::string(key);
}

// ---- Sources ----

const std::vector<std::string>& player_sets()
{
    static const std::vector<std::string> sets { "all players", "all players NOT in a draw",
        "all players NOT in a SINGLES draw", "all players NOT in a DOUBLES (including mixed) draw",
        "all players NOT in a DOUBLES (excluding mixed) draw", "all players NOT in a MIXED draw",
        "all players in an draw", "all players in a SINGLES draw", "all players in a DOUBLES (including mixed) draw",
        "all players in a DOUBLES (excluding mixed) draw", "all players in a MIXED draw" };
    return sets;
}

void break_up_schedule(Database& db, ScheduleRows rows)
{
    std::string select = "select mtttt, mbttt, mtsex, mbsex from schedule";
    switch (rows) {
    case ScheduleRows::all:
        break;
    case ScheduleRows::singles:
        select += " where singdobs='singles'";
        break;
    case ScheduleRows::doubles:
        select += " where singdobs='doubles'";
        break;
    case ScheduleRows::doubles_not_mixed:
        select += " where singdobs='doubles' and evtsex <>'mixed'";
        break;
    case ScheduleRows::mixed:
        select += " where evtsex='mixed'";
        break;
    }

    db.run("delete from alist9_nm_sx");
    {
        auto add = db.query("insert into alist9_nm_sx (nm, sx, flag) values (?, ?, 1)");
        const auto put = [&add](const std::string& name, const std::string& sex) {
            if (is_nobody(name))
                return;
            add.bind_all(name, sex);
            add.step();
            add.reset();
        };
        auto matches = db.query(select);
        while (matches.step()) {
            for (const auto& [side, sex_column] : { std::pair { "mtttt", "mtsex" }, std::pair { "mbttt", "mbsex" } }) {
                const auto name = matches.text(side);
                // The sides keep the pair codes ("mf"); a long form ("male.female") is coded first.
                auto code = lower_trimmed(matches.text(sex_column));
                if (!sex_code(code).empty())
                    code = sex_code(code);
                if (name.find('/') != std::string::npos) {
                    const auto [first, second] = split_pair(name);
                    put(first, code.size() == 2 ? code.substr(0, 1) : "");
                    put(second, code.size() == 2 ? code.substr(1, 1) : "");
                } else {
                    put(trim(name), code.size() == 1 ? code : "");
                }
            }
        }
    }
    // The distinct rows join the flagged ones, which then go.
    db.run("insert into alist9_nm_sx (nm, sx, flag) select distinct nm, sx, 0 from alist9_nm_sx where flag=1");
    db.run("delete from alist9_nm_sx where flag=1");
}

std::vector<ListLine> players_of_set(Database& db, std::string_view set)
{
    const auto& sets = player_sets();
    const auto found = std::find(sets.begin(), sets.end(), set);
    if (found == sets.end())
        return {};
    const auto index = static_cast<std::size_t>(found - sets.begin());

    std::string select = "select pid, player from players";
    if (index > 0) {
        static constexpr ScheduleRows rows_of[] = { ScheduleRows::all, ScheduleRows::singles, ScheduleRows::doubles,
            ScheduleRows::doubles_not_mixed, ScheduleRows::mixed };
        const bool not_in = index <= 5;
        break_up_schedule(db, rows_of[(index - 1) % 5]);
        select += not_in ? " where player not in (select nm as player from alist9_nm_sx) "
                         : " where player in (select nm as player from alist9_nm_sx) ";
    }
    select += " order by player";
    std::vector<ListLine> lines;
    auto rows = db.query(select);
    while (rows.step())
        lines.push_back({ rows.text("player"), rows.integer("pid") });
    return lines;
}

std::vector<ListLine> players_of_filter(Database& db, const PlayerFilter& filter)
{
    std::vector<ListLine> lines;
    for (const auto& player : filtered_players(db, filter))
        lines.push_back({ player.player, player.pid });
    return lines;
}

std::vector<ListLine> players_of_folder(Database& db, std::int64_t fid, const PlayerFilter& filter)
{
    auto narrowed = filter;
    narrowed.source = PlayerSource::folder;
    narrowed.id = fid;
    return players_of_filter(db, narrowed);
}

std::vector<std::string> event_criteria(Database& db, std::int64_t eid)
{
    const auto event = get_data(db, eid);
    if (!event)
        return {};
    std::vector<std::string> lines { std::string(criterion::all_entered), std::string(criterion::all_reserves) };
    if (!has_draw(db, *event))
        return lines;
    for (const auto word : { criterion::all_in_draw, criterion::all_seeds, criterion::qualifiers, criterion::wildcards,
             criterion::lost_first_round })
        lines.emplace_back(word);
    auto rounds = db.query("select distinct rname,rid from schedule where eid=? order by rid", eid);
    while (rounds.step())
        lines.push_back(rounds.text("rname"));
    return lines;
}

std::vector<std::string> loadallplayers_rr_indraw(Database& db, std::int64_t eid)
{
    std::vector<std::string> lines;
    for (const auto& standing : rr_standings(db, eid))
        lines.push_back(standing.name + "(" + points_text(standing.points) + ")");
    return lines;
}

std::vector<std::string> criterion_lines(Database& db, std::int64_t eid, std::string_view criterion)
{
    const auto event = get_data(db, eid);
    if (!event)
        return {};
    if (criterion == criterion::all_entered || criterion == criterion::all_reserves) {
        auto lines = entered_lines(db, *event, criterion == criterion::all_reserves);
        if (event->is_rr() && has_draw(db, *event)) {
            const auto standings = rr_standings(db, eid);
            for (auto& line : lines)
                line = with_standing(line, standings);
        }
        return lines;
    }
    if (!has_draw(db, *event))
        return {};
    if (event->is_rr() && criterion == criterion::all_in_draw)
        return loadallplayers_rr_indraw(db, eid);

    std::vector<std::string> lines;
    if (criterion == criterion::all_in_draw) {
        auto rows = db.query("select mtttt, mbttt from schedule where eid=? and rid=1 order by \"match\"", eid);
        add_sides(rows, lines);
    } else if (criterion == criterion::all_seeds || criterion == criterion::qualifiers
        || criterion == criterion::wildcards) {
        lines = first_round_by_seeding(db, eid, criterion);
    } else if (criterion == criterion::lost_first_round) {
        lines = lost_first_round(db, eid);
    } else {
        auto rows = db.query("select mtttt, mbttt from schedule where eid=? and rname=? order by \"match\", sid", eid,
            std::string(criterion));
        add_sides(rows, lines);
    }
    if (event->is_rr()) {
        const auto standings = rr_standings(db, eid);
        for (auto& line : lines)
            line = with_standing(line, standings);
    }
    return lines;
}

std::vector<std::string> split_entry(std::string_view line, bool from_rr)
{
    return pair_halves(from_rr ? strip_first_bracket(line) : trim(line));
}

// ---- The batch ----

std::string add_report_text(int added, int errors)
{
    if (errors == 0)
        return "all players added," + std::to_string(added) + " in total";
    const auto detected = std::to_string(errors) + " errors detected, would you like to view the errors";
    if (added == 0)
        return "No players added," + detected;
    return std::to_string(added) + " players added ," + detected;
}

bool none_selected(Session& session, const AddRequest& request)
{
    if (!request.lines.empty())
        return false;
    session.talk().message(request.source == AddSource::split ? "select player" : "select players");
    return true;
}

AddReport add_to_event1(Session& session, const AddRequest& request)
{
    if (!request.target) {
        session.talk().message("choose target event");
        return {};
    }
    if (none_selected(session, request))
        return {};
    auto& db = session.tournament();
    const auto stale = [&session](std::int64_t eid) {
        session.talk().message(std::to_string(eid) + " not found,stale data");
        return AddReport {};
    };
    const auto target = get_data(db, *request.target);
    if (!target)
        return stale(*request.target);
    std::optional<EventData> source;
    if (request.source == AddSource::events) {
        source = get_data(db, request.source_eid);
        if (!source)
            return stale(request.source_eid);
    }

    AddReport report;
    report.ran = true;
    std::vector<std::string> feedback;
    {
        Transaction transaction(db);
        AddToEvent batch(session, request.reserve);
        if (source) {
            batch.add_to_event(*source, *target, request.lines);
        } else {
            for (const auto& line : request.lines) {
                const auto name = trim(line);
                if (name.empty())
                    continue;
                session.talk().progress(name);
                batch.add_player_to_event(name, *target);
            }
        }
        transaction.commit();
        report.added = batch.added();
        report.errors = batch.errors();
        feedback = batch.feedback();
    }

    const auto file = session.dirs().working / "temp.txt";
    write_text_file(file, feedback);
    session.refresh_lists(Lists::entries);

    const auto text = add_report_text(report.added, report.errors);
    if (report.errors == 0) {
        session.talk().message(text, add_report_title);
    } else if (session.talk().ask(text, add_report_title, Buttons::YesNo) == Answer::Yes) {
        session.talk().show_text(file, add_report_title);
    }
    return report;
}

AddToEvent::AddToEvent(Session& session, AsReserve reserve)
    : m_session(session)
    , m_db(session.tournament())
    , m_reserve(reserve)
    , m_person_by_name(m_db.query(std::string(person_columns) + "where player=? limit 1"))
    , m_person_by_key(m_db.query(std::string(person_columns) + "where lower(trim(player))=? limit 1"))
    , m_insert_ee(m_db.query(R"(insert into evententries (ent_idx, eid, playerfname, playersname, player, rating,
        ranking, country, reserve, ar, psex, en, sd) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))"))
    , m_insert_raw(m_db.query(R"(insert into rawdoublesentries (rdidx, eid, playerfname, playersname, player,
        partnerfname, partnersname, partnername, p1, p2, p1sex, p2sex, en) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))"))
{
    m_next_ent_idx = m_db.scalar_integer("Select max(ent_idx) as max_entidx from evententries") + 1;
    m_next_rdidx = m_db.scalar_integer("Select max(rdidx) as max_rdidx from rawdoublesentries") + 1;
}

void AddToEvent::er(std::string line)
{
    m_feedback.push_back(std::move(line));
}

std::optional<PersonData> AddToEvent::person(std::string_view name)
{
    auto found = find_person(m_person_by_name, m_person_by_key, name);
    if (!found)
        er(" cannot add " + trim(name) + ",player not found");
    return found;
}

bool AddToEvent::is_entered(const EventData& target, std::string_view name)
{
    if (m_entered_eid != target.eid) {
        m_entered.clear();
        m_entered_eid = target.eid;
        if (target.sd() == 'd') {
            auto rows = m_db.query("select player, partnername from rawdoublesentries where eid=?", target.eid);
            while (rows.step()) {
                m_entered.insert(lcase(rows.text("player")));
                m_entered.insert(lcase(rows.text("partnername")));
            }
        } else {
            auto rows = m_db.query("select player from evententries where eid=?", target.eid);
            while (rows.step())
                m_entered.insert(lcase(rows.text("player")));
        }
    }
    return m_entered.contains(lcase(name));
}

void AddToEvent::mark_entered(const EventData& target, std::string_view name)
{
    is_entered(target, name);
    m_entered.insert(lcase(name));
}

void AddToEvent::already_entered(std::string_view name, const EventData& target)
{
    er(std::string(name) + " already entered into " + target.eventname);
}

void AddToEvent::addnew_ee(const EventData& event, const PersonData& person)
{
    const auto player = person.player();
    m_insert_ee.bind_all(m_next_ent_idx++, event.eid, trim(person.fname), trim(person.sname), player, person.rating,
        person.ranking, person.country, m_reserve == AsReserve::yes, person.availabilityrestrictions,
        sex_letter(person), event.eventname, "singles");
    m_insert_ee.step();
    m_insert_ee.reset();
    mark_entered(event, player);
    ++m_added;
}

void AddToEvent::addnew_raw_ee(const EventData& event, const PersonData& first, const PersonData* partner)
{
    const auto player = first.player();
    const std::string partner_fname = partner ? trim(partner->fname) : "preq";
    const std::string partner_sname = partner ? trim(partner->sname) : "preq";
    const std::string partner_name = partner ? partner->player() : std::string(partner_required_key);
    m_insert_raw.bind_all(m_next_rdidx++, event.eid, trim(first.fname), trim(first.sname), player, partner_fname,
        partner_sname, partner_name, "free", "free", first.sex, partner ? partner->sex : std::string(),
        event.eventname);
    m_insert_raw.step();
    m_insert_raw.reset();
    mark_entered(event, player);
    ++m_added;
    if (partner) {
        mark_entered(event, partner_name);
        ++m_added;
    }
}

void AddToEvent::add_player_to_event(std::string_view name, const EventData& target)
{
    const auto found = person(name);
    if (!found)
        return;
    const std::string head = trim(name) + " to " + target.eventname;
    const auto pte = lower_trimmed(target.pte);
    if (is_player(*found) && pte == "t") {
        er(head + ":cannot add player to a teams only event");
        return;
    }
    if (is_team(*found) && pte == "p") {
        er(head + ":cannot add team to a players only event");
        return;
    }
    const auto letter = sex_letter(*found);
    const auto key = target.key();
    if ((letter == "m" && (key == "fs" || key == "fd")) || (letter == "f" && (key == "ms" || key == "md"))) {
        er(head + ":sexes dont match");
        return;
    }
    if (target.sd() == 'd')
        ADD_sp_to_d(*found, target);
    else
        ADD_sp_to_s(*found, target);
}

void AddToEvent::ADD_sp_to_s(const PersonData& person, const EventData& target)
{
    if (is_entered(target, person.player())) {
        already_entered(person.player(), target);
        return;
    }
    addnew_ee(target, person);
}

void AddToEvent::ADD_sp_to_d(const PersonData& person, const EventData& target)
{
    if (is_entered(target, person.player())) {
        already_entered(person.player(), target);
        return;
    }
    addnew_raw_ee(target, person, nullptr);
}

void AddToEvent::add_to_event(const EventData& source, const EventData& target, const std::vector<std::string>& lines)
{
    const auto source_pte = lower_trimmed(source.pte);
    const auto target_pte = lower_trimmed(target.pte);
    if (source_pte == "p" && target_pte == "t") {
        er("cannot add players only event entries to teams only event");
        return;
    }
    if (source_pte == "t" && target_pte == "p") {
        er("cannot add teams only event entries to players only event");
        return;
    }
    const auto source_key = source.key();
    const auto target_key = target.key();
    if (refused_pair(source_key, target_key)) {
        er(" cannot add " + disp(source_key) + " to " + disp(target_key));
        return;
    }
    const bool from_doubles = source.sd() == 'd';
    const bool to_doubles = target.sd() == 'd';
    if (!from_doubles && !to_doubles)
        ADD_s_to_s(source, target, lines);
    else if (!from_doubles)
        ADD_s_to_d(source, target, lines);
    else if (!to_doubles)
        ADD_d_to_s(source, target, lines);
    else
        ADD_d_to_d(source, target, lines);
}

void AddToEvent::one_to_singles(std::string_view name, const EventData& target, bool from_doubles)
{
    if (is_entered(target, name)) {
        already_entered(name, target);
        return;
    }
    const auto found = person(name);
    if (!found)
        return;
    if (const auto refused = from_doubles ? sex_d_to_s(*found, target) : sex_s_to_s(*found, target)) {
        er(" cannot add " + std::string(name) + *refused);
        return;
    }
    addnew_ee(target, *found);
}

void AddToEvent::ADD_s_to_s(const EventData& source, const EventData& target, const std::vector<std::string>& lines)
{
    for (const auto& line : lines) {
        const auto name = entry_name(line, source);
        if (name.empty())
            continue;
        m_session.talk().progress(name);
        one_to_singles(name, target, false);
    }
}

void AddToEvent::ADD_s_to_d(const EventData& source, const EventData& target, const std::vector<std::string>& lines)
{
    for (const auto& line : lines) {
        const auto name = entry_name(line, source);
        if (name.empty())
            continue;
        m_session.talk().progress(name);
        if (is_entered(target, name)) {
            already_entered(name, target);
            continue;
        }
        const auto found = person(name);
        if (!found)
            continue;
        if (const auto refused = sex_s_to_d(*found, target)) {
            er(" cannot add " + name + *refused);
            continue;
        }
        addnew_raw_ee(target, *found, nullptr);
    }
}

void AddToEvent::ADD_d_to_s(const EventData& source, const EventData& target, const std::vector<std::string>& lines)
{
    for (const auto& line : lines) {
        const auto entry = entry_name(line, source);
        if (entry.empty())
            continue;
        m_session.talk().progress(entry);
        for (const auto& name : pair_halves(entry))
            one_to_singles(name, target, true);
    }
}

void AddToEvent::ADD_d_to_d(const EventData& source, const EventData& target, const std::vector<std::string>& lines)
{
    // A person who passes the check goes in; one who fails it costs a line.
    const auto checked = [&](const std::string& name) -> std::optional<PersonData> {
        auto found = person(name);
        if (!found)
            return std::nullopt;
        if (const auto refused = sex_d_to_d(*found, target)) {
            er(" cannot add " + name + *refused);
            return std::nullopt;
        }
        return found;
    };

    for (const auto& line : lines) {
        const auto entry = entry_name(line, source);
        if (entry.empty())
            continue;
        m_session.talk().progress(entry);
        const auto halves = pair_halves(entry);
        if (halves.empty())
            continue;
        if (halves.size() == 1) {
            if (is_entered(target, halves[0])) {
                already_entered(halves[0], target);
            } else if (const auto one = checked(halves[0])) {
                addnew_raw_ee(target, *one, nullptr);
            }
            continue;
        }
        const auto& a = halves[0];
        const auto& b = halves[1];
        const bool a_found = is_entered(target, a);
        const bool b_found = is_entered(target, b);
        if (a_found || b_found) {
            if (a_found)
                already_entered(a, target);
            if (b_found)
                already_entered(b, target);
            if (a_found != b_found) {
                const auto& other = a_found ? b : a;
                if (const auto one = checked(other))
                    addnew_raw_ee(target, *one, nullptr);
            }
            continue;
        }
        const auto first = checked(a);
        const auto second = checked(b);
        if (first && second) {
            switch (sex_d_to_d_how_to_add(source.key(), target.key(), sex_letter(*first) + sex_letter(*second))) {
            case HowToAdd::as_team:
                addnew_raw_ee(target, *first, &*second);
                break;
            case HowToAdd::separate:
                addnew_raw_ee(target, *first, nullptr);
                addnew_raw_ee(target, *second, nullptr);
                break;
            case HowToAdd::none:
                break;
            }
        } else if (first) {
            addnew_raw_ee(target, *first, nullptr);
        } else if (second) {
            addnew_raw_ee(target, *second, nullptr);
        }
    }
}

} // namespace qv
