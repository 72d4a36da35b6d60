#include "entries/doubles_resolution.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"

namespace qv {

namespace {

constexpr std::string_view report_title = "resolve errors";
// The raw name of a missing partner.
constexpr std::string_view preq = "preq preq";

bool is_preq(std::string_view name)
{
    return name_key(name) == preq;
}

struct EventInfo
{
    std::string name;
    std::string sex;
    std::string fee;
    bool drawdone = false;
};

EventInfo read_event(Database& db, std::int64_t eid)
{
    auto row = db.query("select eventname, sex, fee, drawdone from events where eid=?", eid);
    if (!row.step())
        return {};
    return { row.text(0), lcase(trim(row.text(1))), row.text(2), row.integer(3) != 0 };
}

// A person of the register as a team takes them.
struct Person
{
    std::string player, fname, sname, sex, ar;
};

std::optional<Person> find_person(Database& db, std::string_view name)
{
    auto row = db.query(
        "select player, fname, sname, sex, availabilityrestrictions from players where lower(trim(player))=? limit 1",
        name_key(name));
    if (!row.step())
        return std::nullopt;
    return Person { trim(row.text(0)), trim(row.text(1)), trim(row.text(2)), row.text(3), row.text(4) };
}

std::string register_or_raw_sex(Database& db, std::string_view name, const std::string& raw_sex)
{
    if (const auto person = find_person(db, name))
        return lcase(trim(person->sex));
    return lcase(trim(raw_sex));
}

RawPerson raw_person(Database& db, const Statement& row, std::string_view name, std::string_view fname,
    std::string_view sname, std::string_view state, std::string_view sex)
{
    RawPerson person { row.text(name), row.text(fname), row.text(sname), row.text(state), {} };
    person.sex = person.partner_required() ? std::string() : register_or_raw_sex(db, person.name, row.text(sex));
    return person;
}

std::optional<RawRow> load_raw_row(Database& db, std::int64_t eid, std::int64_t rdidx)
{
    auto row = db.query("select * from rawdoublesentries where eid=? and rdidx=?", eid, rdidx);
    if (!row.step())
        return std::nullopt;
    return RawRow { rdidx, raw_person(db, row, "player", "playerfname", "playersname", "p1", "p1sex"),
        raw_person(db, row, "partnername", "partnerfname", "partnersname", "p2", "p2sex") };
}

void mark_taken(Database& db, std::int64_t eid, std::string_view name)
{
    const auto key = name_key(name);
    db.run("Update rawdoublesentries set p1='taken' where lower(trim(player))=? and eid=?", key, eid);
    db.run("Update rawdoublesentries set p2='taken' where lower(trim(partnername))=? and eid=?", key, eid);
}

void mark_free(Database& db, std::int64_t eid, std::string_view name)
{
    const auto key = name_key(name);
    db.run("update rawdoublesentries set p1='free' where lower(trim(player))=? and eid=?", key, eid);
    db.run("update rawdoublesentries set p2='free' where lower(trim(partnername))=? and eid=?", key, eid);
}

// The sex the event asks of each person; empty where the register decides.
std::pair<std::string, std::string> expected_sexes(const EventInfo& event, const RawPerson& a, const RawPerson& b)
{
    if (event.sex == "male" || event.sex == "female")
        return { event.sex, event.sex };
    if (event.sex == "mixed")
        return { a.sex, b.sex };
    return { {}, {} };
}

// The person from the register, or added to it when unknown. A sex that differs from the expected one is a fault.
std::optional<Person> take_person(Database& db, const RawPerson& raw, const std::string& expected, std::string& fault)
{
    if (auto found = find_person(db, raw.name)) {
        if (!expected.empty() && lcase(trim(found->sex)) != expected) {
            fault = found->player + " was found in db with sex=" + found->sex;
            return std::nullopt;
        }
        return found;
    }
    // A raw entry from the online service may be the first sight of a person.
    Person added { trim(raw.name), trim(raw.fname), trim(raw.sname), expected.empty() ? raw.sex : expected, "" };
    db.run("insert into players (pid, player, fname, sname, sex, pval) values (?, ?, ?, ?, ?, '1')",
        db.scalar_integer("select max(pid) as maxpid from players") + 1, added.player, added.fname, added.sname,
        added.sex);
    return added;
}

std::string availability(const std::string& text)
{
    return is_empty(text) ? "." : text;
}

void say(Session& session, ResolveMode mode, std::vector<std::string>& faults, const std::string& fault)
{
    if (mode == ResolveMode::single)
        session.talk().message(fault);
    else
        faults.push_back(fault);
}

// The end of a batch: the faults in temp.txt, and the count with the offer to view them.
void report(Session& session, int done, const std::vector<std::string>& faults, const std::string& word)
{
    const auto file = session.dirs().working / "temp.txt";
    write_text_file(file, faults);
    const auto errors = std::to_string(faults.size());
    if (faults.empty()) {
        session.talk().message(std::to_string(done) + " teams " + word, report_title);
        return;
    }
    const auto question = done > 0 ? std::to_string(done) + " teams " + word + "," + errors + " errors,view the errors?"
                                   : "no teams " + word + "," + errors + " errors detected,all teams,view the errors?";
    if (session.talk().ask(question, report_title, Buttons::YesNo) == Answer::Yes)
        session.talk().show_text(file, report_title);
}

} // namespace

std::string map_preq(std::string_view name)
{
    return is_preq(name) ? "partner required" : std::string(name);
}

bool RawPerson::partner_required() const
{
    return is_preq(name);
}

std::vector<RawRow> load_raw_rows(Database& db, std::int64_t eid)
{
    std::vector<std::int64_t> ids;
    for (auto rows = db.query("select rdidx from rawdoublesentries where eid=? order by player, rdidx", eid);
         rows.step();)
        ids.push_back(rows.integer(0));
    std::vector<RawRow> rows;
    for (const auto id : ids)
        if (auto row = load_raw_row(db, eid, id))
            rows.push_back(std::move(*row));
    return rows;
}

std::vector<ResolvedTeam> load_resolved_teams(Database& db, std::int64_t eid)
{
    std::vector<ResolvedTeam> teams;
    for (auto rows
         = db.query("select player, reserve from evententries where eid=? and sd='doubles' order by player", eid);
         rows.step();)
        teams.push_back({ rows.text(0), rows.integer(1) != 0 });
    return teams;
}

std::string resolve_totals(const std::vector<RawRow>& rows, const std::vector<ResolvedTeam>& teams)
{
    int people = 0, free = 0;
    for (const auto& row : rows)
        for (const auto* person : { &row.first, &row.second })
            if (!person->partner_required()) {
                ++people;
                free += person->taken() ? 0 : 1;
            }
    return std::to_string(teams.size()) + " teams resolved, " + std::to_string(rows.size()) + " raw entries, "
        + std::to_string(free) + " of " + std::to_string(people) + " players free";
}

bool TeamLabels::set_label(Session& session, const RawPerson& person)
{
    if (person.partner_required())
        return false;
    if (m_first && same_name(m_first->name, person.name)) {
        session.talk().message("player already selected");
        return false;
    }
    if (!m_first)
        m_first = person;
    else
        m_second = person;
    return true;
}

bool resolve(Session& session, std::int64_t eid, const RawPerson& first, const RawPerson& second, ResolveMode mode,
    std::vector<std::string>& faults)
{
    auto& db = session.tournament();
    const auto event = read_event(db, eid);
    const auto pair = trim(first.name) + "/" + trim(second.name);
    if (event.sex == "mixed" && first.sex == second.sex) {
        say(session, mode, faults, "this is a mixed event and requires a male and a female player, to make a team");
        return false;
    }
    const auto [sex1, sex2] = expected_sexes(event, first, second);
    // A person added to the register stays there even when the other person's sex stops the team.
    Transaction transaction(db);
    std::string fault;
    const auto a = take_person(db, first, sex1, fault);
    const auto b = a ? take_person(db, second, sex2, fault) : std::nullopt;
    if (!a || !b) {
        transaction.commit();
        say(session, mode, faults, fault + ",cannot resolve " + pair);
        return false;
    }
    mark_taken(db, eid, first.name);
    mark_taken(db, eid, second.name);
    db.run(R"( insert into evententries (eid, ent_idx, player, p1name, playerfname, playersname, partner, partnerfname,
        partnersname, reserve, en, ar, eventfee, psex, sd) values (?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?, ?, ?, ?, 'doubles'))",
        eid, db.scalar_integer("select max(ent_idx) from evententries") + 1, a->player + "/" + b->player, a->player,
        a->fname, a->sname, b->player, b->fname, b->sname, event.name, availability(a->ar) + "." + availability(b->ar),
        event.fee, lcase(trim(a->sex)) + "." + lcase(trim(b->sex)));
    transaction.commit();
    return true;
}

bool resolve_labels(Session& session, std::int64_t eid, TeamLabels& labels)
{
    if (labels.empty()) {
        session.talk().message("doubles team requires 2 players");
        return false;
    }
    if (!labels.complete()) {
        session.talk().message("add another player");
        return false;
    }
    std::vector<std::string> faults;
    if (!resolve(session, eid, *labels.first(), *labels.second(), ResolveMode::single, faults))
        return false;
    labels.clear_team_labels();
    session.refresh_lists(Lists::entries);
    return true;
}

int resolve_call_main(Session& session, std::int64_t eid, const std::vector<std::int64_t>& rdidx)
{
    if (rdidx.empty()) {
        session.talk().message("select teams to resolve");
        return 0;
    }
    auto& db = session.tournament();
    std::vector<std::string> faults;
    int done = 0;
    for (const auto id : rdidx) {
        // Read again each time: an earlier team may have taken a person of this row.
        const auto row = load_raw_row(db, eid, id);
        if (!row || row->first.partner_required() || row->second.partner_required())
            continue;
        std::string who;
        for (const auto* person : { &row->first, &row->second })
            if (person->taken())
                who += (who.empty() ? "" : ",") + trim(person->name);
        if (!who.empty()) {
            faults.push_back(
                "could not resolve " + trim(row->first.name) + "/" + trim(row->second.name) + " - " + who + " taken");
            continue;
        }
        if (resolve(session, eid, row->first, row->second, ResolveMode::multiple, faults))
            ++done;
    }
    session.refresh_lists(Lists::entries);
    report(session, done, faults, "resolved");
    return done;
}

int restore_teams(Session& session, std::int64_t eid, const std::vector<std::string>& teams)
{
    if (teams.empty()) {
        session.talk().message("select at least 1 team to restore");
        return 0;
    }
    auto& db = session.tournament();
    const bool drawdone = read_event(db, eid).drawdone;
    std::vector<std::string> faults;
    int done = 0;
    Transaction transaction(db);
    for (const auto& team : teams) {
        auto entry = db.query("select p1name, partner, reserve from evententries where lower(trim(player))=? and eid=?",
            name_key(team), eid);
        if (!entry.step()) {
            faults.push_back("error:could not find " + team + " in the entries");
            continue;
        }
        const bool ireserve = entry.integer(2) != 0;
        if (drawdone && !ireserve) {
            faults.push_back("cannot restore:" + team + "-draw is done and team is in the draw (non-reserve)");
            continue;
        }
        auto people = std::make_pair(entry.text(0), entry.text(1));
        if (is_empty(people.first) && is_empty(people.second)) {
            const auto halves = split_pair(team);
            people = { halves.left, halves.right };
        }
        entry.reset();
        db.run("Delete from evententries where lower(trim(player))=? and eid=?", name_key(team), eid);
        mark_free(db, eid, people.first);
        mark_free(db, eid, people.second);
        ++done;
    }
    transaction.commit();
    session.refresh_lists(Lists::entries);
    report(session, done, faults, "restored");
    return done;
}

void scrape_resolve_text(Session& session, std::int64_t eid)
{
    auto& db = session.tournament();
    std::vector<std::string> lines { "doubles resolve for " + read_event(db, eid).name, "", "original raw entries" };
    for (const auto& row : load_raw_rows(db, eid))
        lines.push_back(map_preq(row.first.name) + " (" + row.first.state + ")\t" + map_preq(row.second.name) + " ("
            + row.second.state + ")");
    lines.insert(lines.end(), { "", "resolved teams" });
    for (const auto& team : load_resolved_teams(db, eid))
        lines.push_back(team.player + (team.reserve ? " (reserve)" : ""));
    const auto file = session.dirs().working / "scrape.txt";
    write_text_file(file, lines);
    session.talk().show_text(file, "scrape text");
}

} // namespace qv
