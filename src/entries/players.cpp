#include "entries/players.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"

namespace qv {

namespace {

std::optional<PlayerRefusal> refuse(PlayerField field, const Check& check)
{
    if (!check)
        return std::nullopt;
    return PlayerRefusal { field, *check };
}

std::optional<PlayerRefusal> refuse(PlayerField field, std::string message)
{
    return PlayerRefusal { field, Refusal { std::move(message), -1 } };
}

// Tells the user and hands the refusal back for the window to put the cursor on.
PlayerSave refused(UserTalk& talk, PlayerRefusal refusal)
{
    report(talk, refusal.refusal);
    return { std::move(refusal), 0 };
}

std::string_view kind_word(PlayerKind kind)
{
    return kind == PlayerKind::team ? "team" : "player";
}

// The names a record is stored under: fname, sname and the key name.
struct StoredNames
{
    std::string fname, sname, player;
};

StoredNames stored_names(const PlayerRecord& record)
{
    if (record.kind == PlayerKind::team) {
        const auto team = first_cap(record.team_name);
        return { team, "", team };
    }
    const auto fname = first_cap(record.fname);
    const auto sname = first_cap(record.sname);
    return { fname, sname, fname + " " + sname };
}

std::string entered_text(std::string_view name)
{
    return std::string(name) + " is entered into 1 or more events, cannot delete, remove entry first";
}

const char* select_sql(PlayerTable table, bool by_name)
{
    if (table == PlayerTable::peek_players)
        return by_name ? "select * from peek_players where lower(trim(player))=? order by pid"
                       : "select * from peek_players where pid=?";
    return by_name ? "select * from players where lower(trim(player))=? order by pid"
                   : "select * from players where pid=?";
}

PlayerRecord read_record(const Statement& row)
{
    PlayerRecord r;
    r.kind = row.text("pval") == "0" ? PlayerKind::team : PlayerKind::player;
    if (r.kind == PlayerKind::team) {
        r.team_name = row.text("fname");
    } else {
        r.fname = row.text("fname");
        r.sname = row.text("sname");
    }
    r.sex = row.text("sex");
    r.phone = row.text("phone");
    r.mobile = row.text("mobile");
    r.email = row.text("email");
    r.dob = row.text("dob");
    r.password = row.text("password");
    r.address = row.text("address");
    r.city = row.text("city");
    r.state = row.text("state");
    r.postcode = row.text("postcode");
    r.country = row.text("country");
    r.club = row.text("club");
    r.ranking = row.text("ranking");
    r.rating = row.text("rating");
    r.availabilityrestrictions = row.text("availabilityrestrictions");
    r.notes = row.text("notes");
    r.results = row.text("results");
    r.message = row.text("message");
    r.tsd = row.text("tsd");
    r.pid = row.integer("pid");
    r.player = row.text("player");
    r.timestamp = row.text("timestamp");
    r.downloaded = row.integer("downloaded") != 0;
    return r;
}

std::optional<PlayerRecord> first_record(Statement rows)
{
    if (!rows.step())
        return std::nullopt;
    return read_record(rows);
}

// The names, sex or type of an entered player differ from the row: the lock forbids that.
bool changes_locked_fields(const PlayerRecord& stored, const PlayerRecord& typed)
{
    if (typed.kind != stored.kind || typed.sex != stored.sex)
        return true;
    if (typed.kind == PlayerKind::team)
        return trim(typed.team_name) != trim(stored.team_name);
    return trim(typed.fname) != trim(stored.fname) || trim(typed.sname) != trim(stored.sname);
}

} // namespace

std::string player_name_of(const PlayerRecord& record)
{
    return stored_names(record).player;
}

Check check_wqb(std::string_view text, std::string_view label, PlayerForm form)
{
    // Trimmed as well, because the name is stored trimmed: " bye" would become "Bye".
    const auto value = name_key(text);
    const std::string prefix(label);
    if (value == "bye")
        return Refusal { prefix + " cannot equal 'bye'", -1 };
    if (value.find("wildcard") != std::string::npos)
        return Refusal { prefix + " cannot contain the word 'wildcard'", -1 };
    if (value.find("qualifier") != std::string::npos)
        return Refusal { prefix + " cannot contain the word 'qualifier'", -1 };
    if (form == PlayerForm::edit && value == "preq")
        return Refusal { prefix + " cannot equal 'preq' ( partner required indicator )", -1 };
    return std::nullopt;
}

std::optional<PlayerRefusal> validate_player(
    Database& db, const PlayerRecord& record, PlayerForm form, std::int64_t edited_pid)
{
    using F = PlayerField;
    if (record.kind == PlayerKind::player) {
        for (auto fault :
            { refuse(F::fname, value_required(record.fname)), refuse(F::sname, value_required(record.sname)),
                refuse(F::fname, check_class(record.fname, ValueClass::systemdisallow)),
                refuse(F::sname, check_class(record.sname, ValueClass::systemdisallow)),
                refuse(F::fname, check_wqb(record.fname, "first name", form)),
                refuse(F::sname, check_wqb(record.sname, "second name", form)) })
            if (fault)
                return fault;
        if (lcase(trim(record.fname) + " " + trim(record.sname)) == "partner required")
            return refuse(F::fname, "player cannot have name of 'partner required'");
    } else {
        for (auto fault : { refuse(F::team_name, value_required(record.team_name)),
                 refuse(F::team_name, check_class(record.team_name, ValueClass::systemdisallow)),
                 refuse(F::team_name, check_wqb(record.team_name, "teamname name", form)) })
            if (fault)
                return fault;
        if (is_partner_required_name(trim(record.team_name)))
            return refuse(F::team_name, "team cannot have name of 'partner required'");
    }

    if (auto fault = check_class(record.country, ValueClass::alphanumeric))
        return PlayerRefusal { F::from_code, Refusal { "from code can be alphanumeric only", fault->position } };

    // The key is taken from the name as it will be stored, so that two spellings that first_cap makes equal
    // count as one name.
    const auto name = player_name_of(record);
    const bool found = form == PlayerForm::edit
        ? db.query("select pid from players where lower(trim(player))=? and pid<>?", name_key(name), edited_pid).step()
        : db.query("select pid from players where lower(trim(player))=?", name_key(name)).step();
    if (found)
        return refuse(record.kind == PlayerKind::team ? F::team_name : F::fname,
            "already have a " + std::string(kind_word(record.kind)) + " with name=" + name);
    return std::nullopt;
}

PlayerSave add_player(Session& session, const PlayerRecord& record, const std::tm& now)
{
    auto& db = session.tournament();
    if (auto refusal = validate_player(db, record, PlayerForm::add_new))
        return refused(session.talk(), std::move(*refusal));

    const auto names = stored_names(record);
    Transaction transaction(db);
    const auto pid = db.next_id("players", "pid");
    db.run(R"(insert into players (pid, fname, sname, player, pval, sex, phone, mobile, email, dob, password,
        address, city, state, postcode, country, club, ranking, rating, availabilityrestrictions, notes, results,
        message, tsd, paid_state, "timestamp", downloaded)
        values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?, 0))",
        pid, names.fname, names.sname, names.player, static_cast<int>(record.kind), record.sex, record.phone,
        record.mobile, record.email, record.dob, record.password, record.address, record.city, record.state,
        record.postcode, record.country, record.club, record.ranking, record.rating, record.availabilityrestrictions,
        record.notes, record.results, record.message, record.tsd, date_time_long(now));
    transaction.commit();

    session.refresh_lists(Lists::players);
    if (session.settings().integer("players_beep_ok") == 1)
        session.talk().beep();
    return { std::nullopt, pid };
}

PlayerSave save_player(Session& session, std::int64_t pid, const PlayerRecord& record, PlayerForm form)
{
    auto& db = session.tournament();
    const auto stored = load_player(db, pid);
    if (!stored)
        return refused(session.talk(), *refuse(PlayerField::fname, "player not found"));

    // The name is the link from entries and draws to this row: once it is used, it stays as it is.
    const bool locked = is_in_event(db, stored->player);
    if (locked && changes_locked_fields(*stored, record))
        return refused(session.talk(), *refuse(PlayerField::fname, std::string(player_locked_text)));
    if (auto refusal = validate_player(db, record, form, pid))
        return refused(session.talk(), std::move(*refusal));

    StoredNames names = stored_names(record);
    if (locked) {
        // Written back untouched: first_cap could respell an imported name such as "McEnroe".
        names = { stored->kind == PlayerKind::team ? stored->team_name : stored->fname, stored->sname, stored->player };
    }
    Transaction transaction(db);
    db.run(R"(update players set fname=?, sname=?, player=?, pval=?, sex=?, phone=?, mobile=?, email=?, dob=?,
        password=?, address=?, city=?, state=?, postcode=?, country=?, club=?, ranking=?, rating=?,
        availabilityrestrictions=?, notes=?, results=?, message=?, tsd=? where pid=?)",
        names.fname, names.sname, names.player, static_cast<int>(locked ? stored->kind : record.kind),
        locked ? stored->sex : record.sex, record.phone, record.mobile, record.email, record.dob, record.password,
        record.address, record.city, record.state, record.postcode, record.country, record.club, record.ranking,
        record.rating, record.availabilityrestrictions, record.notes, record.results, record.message, record.tsd, pid);
    transaction.commit();

    if (names.player != stored->player)
        session.refresh_lists(Lists::players);
    return { std::nullopt, pid };
}

bool is_in_event(Database& db, std::string_view name)
{
    const auto key = name_key(name);
    if (db.query(R"(select ent_idx from evententries
            where lower(trim(player))=? or lower(trim(p1name))=? or lower(trim(partner))=? limit 1)",
              key, key, key)
            .step())
        return true;
    return db
        .query("select rdidx from rawdoublesentries where lower(trim(player))=? or lower(trim(partnername))=? limit 1",
            key, key)
        .step();
}

std::optional<PlayerRecord> load_player(Database& db, std::int64_t pid, PlayerTable table)
{
    return first_record(db.query(select_sql(table, false), pid));
}

std::optional<PlayerRecord> load_player_by_name(Database& db, std::string_view name, PlayerTable table)
{
    return first_record(db.query(select_sql(table, true), name_key(name)));
}

std::vector<PlayerLine> all_players(Database& db)
{
    std::vector<PlayerLine> lines;
    auto rows = db.query("select pid, player from players order by player, pid");
    while (rows.step())
        lines.push_back({ rows.integer("pid"), rows.text("player") });
    return lines;
}

bool delete_player(Session& session, std::int64_t pid, PlayerPrompt prompt)
{
    auto& db = session.tournament();
    auto& talk = session.talk();
    const auto stored = load_player(db, pid);
    if (!stored) {
        talk.message("player not found");
        return false;
    }
    if (is_in_event(db, stored->player)) {
        talk.message(entered_text(stored->player));
        return false;
    }
    if (prompt == PlayerPrompt::ask && talk.ask("Confirm player delete", "Confirm", Buttons::YesNo) != Answer::Yes)
        return false;
    Transaction transaction(db);
    db.run("delete from players where pid=?", pid);
    transaction.commit();
    session.refresh_lists(Lists::players);
    return true;
}

int delete_players(Session& session, const std::vector<std::int64_t>& pids, PlayerPrompt prompt)
{
    if (pids.empty())
        return 0;
    auto& db = session.tournament();
    auto& talk = session.talk();
    std::vector<std::string> faults;
    int deleted = 0;
    {
        Transaction transaction(db);
        for (const auto pid : pids) {
            const auto stored = load_player(db, pid);
            if (!stored)
                continue;
            if (is_in_event(db, stored->player)) {
                faults.push_back(entered_text(stored->player));
                continue;
            }
            if (prompt == PlayerPrompt::ask
                && talk.ask("Confirm player delete", "Confirm", Buttons::YesNo) != Answer::Yes)
                continue;
            db.run("delete from players where pid=?", pid);
            ++deleted;
        }
        transaction.commit();
    }
    if (deleted > 0)
        session.refresh_lists(Lists::players);

    const auto feedback = session.dirs().working / "temp.txt";
    write_text_file(feedback, faults);
    if (faults.empty()) {
        talk.message(std::to_string(deleted) + " players deleted");
        return deleted;
    }
    const auto errors = std::to_string(faults.size());
    std::string question;
    if (deleted > 0)
        question = std::to_string(deleted) + " records deleted," + errors + " errors,view the errors?";
    else
        question = "no players deleted," + errors + " errors detected,all players,view the errors?";
    if (talk.ask(question, "delete errors", Buttons::YesNo) == Answer::Yes)
        talk.show_text(feedback, "delete errors");
    return deleted;
}

PlayerSearch search_players(Session& session, std::string_view text)
{
    PlayerSearch result;
    if (auto fault = check_class(text, ValueClass::search_disallow)) {
        report(session.talk(), fault);
        result.refused = PlayerRefusal { PlayerField::search, *fault };
        return result;
    }
    const auto key = name_key(text);
    if (key.empty())
        return result;
    auto rows = session.tournament().query(
        "select pid from players where instr(lower(player), ?) > 0 order by player, pid", key);
    while (rows.step())
        result.pids.push_back(rows.integer("pid"));
    if (result.pids.empty())
        session.talk().message("player not found");
    return result;
}

} // namespace qv
