#include "datafiles/player_files.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "core/validators.h"

namespace qv {

namespace {

using Fault = std::optional<LineFault>;

Fault fault_at(int field, std::string_view text, std::string description)
{
    return LineFault { field, std::string(text), std::move(description) };
}

Fault longer_than(int field, std::string_view text, std::size_t max, const std::string& label)
{
    if (char_count(text) <= max)
        return std::nullopt;
    return fault_at(field, text, label + " length must be <= " + std::to_string(max) + " characters");
}

Fault class_fault(int field, std::string_view text, ValueClass cls)
{
    const auto said = check_class_text(text, cls);
    return said == "ok" ? std::nullopt : fault_at(field, text, said);
}

// The reserved words a name may not hold; prefix is " first name" or "second name", as the messages have them.
Fault reserved_word(int field, std::string_view text, const std::string& prefix)
{
    const auto value = name_key(text);
    if (value.find("wildcard") != std::string::npos)
        return fault_at(field, text, prefix + " cannot contain word 'wildcard'");
    if (value.find("qualifier") != std::string::npos)
        return fault_at(field, text, prefix + " cannot contain word 'qualifier'");
    if (value == "bye")
        return fault_at(field, text, prefix + " cannot equal 'bye'");
    return std::nullopt;
}

Fault first_name_rules(std::string_view text)
{
    if (trim(text).empty())
        return fault_at(1, text, "first name/teamname required");
    for (auto fault : { longer_than(1, text, 50, "first name"), class_fault(1, text, ValueClass::systemdisallow),
             reserved_word(1, text, " first name") })
        if (fault)
            return fault;
    return std::nullopt;
}

// The second name of a player, or for a team the team name's own limit; both wait for the player-or-team field.
Fault name_by_kind(const PlayerRecord& record, std::string_view first, std::string_view second, int second_field)
{
    if (record.kind == PlayerKind::team) {
        if (char_count(first) > 18)
            return fault_at(1, first, "teamname length must be <= 18 characters");
        return std::nullopt;
    }
    if (trim(second).empty())
        return fault_at(second_field, second, "second name required");
    for (auto fault : { longer_than(second_field, second, 50, "second name"),
             class_fault(second_field, second, ValueClass::systemdisallow),
             reserved_word(second_field, second, "second name") })
        if (fault)
            return fault;
    return std::nullopt;
}

Fault sex_rule(int field, std::string_view text)
{
    const auto value = name_key(text);
    return value == "male" || value == "female" ? std::nullopt
                                                : fault_at(field, text, "sex must be either male or female");
}

Fault kind_rule(int field, std::string_view text)
{
    const auto value = trim(text);
    return value == "1" || value == "0" ? std::nullopt
                                        : fault_at(field, text, "player/team indicator must be eitehr 1 or 0");
}

Fault from_code_rule(int field, std::string_view text, bool exactly_three)
{
    if (exactly_three && char_count(text) != 3)
        return fault_at(field, text, "country code must be3 characters in length");
    if (auto fault = longer_than(field, text, 3, "country code"))
        return fault;
    return class_fault(field, text, ValueClass::alphanumeric).has_value()
        ? fault_at(field, text, "from code can be alphanumeric only")
        : std::nullopt;
}

void set_names(PlayerRecord& record, std::string_view first, std::string_view second)
{
    if (record.kind == PlayerKind::team) {
        record.team_name = trim(first);
        record.fname = record.team_name;
    } else {
        record.fname = trim(first);
        record.sname = trim(second);
    }
}

CheckedPlayer refused(LineFault fault)
{
    return { std::nullopt, std::move(fault) };
}

} // namespace

int field_count(PlayerFormat format)
{
    return format == PlayerFormat::qv1 ? 16 : 5;
}

const char* format_word(PlayerFormat format)
{
    return format == PlayerFormat::qv1 ? "qv1" : "qv2";
}

CheckedPlayer process_qv1_line(std::string_view line)
{
    const auto f = record_fields(line);
    if (f.size() != 16)
        return refused({ 0, std::string(line), "expecting 16 fields" });
    PlayerRecord record;
    // Field order, but for the second name (or the team's name limit) and the club, which follow the
    // player-or-team field they depend on.
    if (auto fault = first_name_rules(f[0]))
        return refused(*fault);
    const std::pair<int, std::pair<std::size_t, const char*>> limits[]
        = { { 3, { 200, "email" } }, { 4, { 50, "date of birth" } }, { 5, { 100, "address" } }, { 6, { 50, "city" } },
              { 7, { 50, "state" } }, { 8, { 50, "postcode" } } };
    for (const auto& [field, limit] : limits)
        if (auto fault = longer_than(field, f[field - 1], limit.first, limit.second))
            return refused(*fault);
    for (auto fault : { from_code_rule(9, f[8], false), longer_than(10, f[9], 50, "phone"),
             longer_than(11, f[10], 50, "mobile/cell"), sex_rule(12, f[11]), longer_than(13, f[12], 50, "rating"),
             longer_than(14, f[13], 50, "ranking"), kind_rule(16, f[15]) })
        if (fault)
            return refused(*fault);
    record.kind = trim(f[15]) == "1" ? PlayerKind::player : PlayerKind::team;
    for (auto fault : { name_by_kind(record, f[0], f[1], 2), longer_than(15, f[14], 50, "club") })
        if (fault)
            return refused(*fault);
    set_names(record, f[0], f[1]);
    record.email = f[2];
    record.dob = f[3];
    record.address = f[4];
    record.city = f[5];
    record.state = f[6];
    record.postcode = f[7];
    record.country = f[8];
    record.phone = f[9];
    record.mobile = f[10];
    record.sex = name_key(f[11]);
    record.rating = f[12];
    record.ranking = f[13];
    record.club = f[14];
    return { record, {} };
}

CheckedPlayer process_qv2_line(std::string_view line)
{
    const auto f = record_fields(line);
    if (f.size() != 5)
        return refused({ 0, std::string(line), "expecting 5 fields" });
    PlayerRecord record;
    for (auto fault : { first_name_rules(f[0]), sex_rule(3, f[2]), from_code_rule(4, f[3], true), kind_rule(5, f[4]) })
        if (fault)
            return refused(*fault);
    record.kind = trim(f[4]) == "1" ? PlayerKind::player : PlayerKind::team;
    if (auto fault = name_by_kind(record, f[0], f[1], 2))
        return refused(*fault);
    set_names(record, f[0], f[1]);
    record.sex = name_key(f[2]);
    record.country = f[3];
    return { record, {} };
}

int import_players(
    Session& session, const std::filesystem::path& file, PlayerFormat format, std::int64_t fid, const std::tm& now)
{
    const auto lines = read_data_file(file);
    if (!lines) {
        session.talk().message("cannot read file:" + file.string());
        return 0;
    }
    auto& db = session.tournament();
    ImportFeedback feedback(std::string(format_word(format)) + " file import errors", file);
    const auto process = format == PlayerFormat::qv1 ? process_qv1_line : process_qv2_line;
    const int expected = field_count(format);
    const auto stamp = date_time_long(now);
    int count = 0;
    int imported = 0;

    Transaction transaction(db);
    auto pid = db.next_id("players", "pid");
    auto found = db.query("select pid from players where lower(trim(player)) = lower(trim(?))");
    auto insert = db.query(R"(insert into players (pid, fname, sname, player, pval, sex, email, dob, address, city,
        state, postcode, country, phone, mobile, rating, ranking, club, fid, "timestamp", downloaded)
        values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0))");
    for (const auto& line : *lines) {
        if (line.empty())
            continue;
        ++count;
        if (const int hats = hat_cnt(line); hats != expected) {
            feedback.wrong_count(line, expected, hats);
            continue;
        }
        const auto checked = process(line);
        if (!checked.record) {
            feedback.fault(line, checked.fault);
            continue;
        }
        const auto& r = *checked.record;
        const auto fname = first_cap(r.fname);
        const auto sname = r.kind == PlayerKind::team ? std::string() : first_cap(r.sname);
        const auto player = r.kind == PlayerKind::team ? fname : fname + " " + sname;
        found.reset();
        found.bind_all(player);
        if (found.step()) {
            feedback.skipped(player + " already in db");
            continue;
        }
        insert.reset();
        insert.bind_all(pid++, fname, sname, player, static_cast<int>(r.kind), r.sex, r.email, r.dob, r.address, r.city,
            r.state, r.postcode, r.country, r.phone, r.mobile, r.rating, r.ranking, r.club, fid, stamp);
        insert.step();
        ++imported;
    }
    transaction.commit();
    if (imported > 0)
        session.refresh_lists(Lists::players);
    feedback.finish(session, count, imported, "import errors");
    return imported;
}

int import_players_file(Session& session, PlayerFormat format, std::int64_t fid)
{
    const std::string word = format_word(format);
    const auto file = session.talk().choose_file({ FileDialogKind::Open, "import " + word + " file", "", word + ".",
        session.settings().text("app.last_dir_opened") });
    return file ? import_players(session, *file, format, fid) : 0;
}

std::vector<std::string> player_file_formats()
{
    return { "player files: one player or team a line, each field followed by ^, no header, no quotes", "",
        "qv1 (16 fields):",
        "first name (team name for a team, at most 18)^second name (empty for a team)^email^date of birth^address^"
        "city^state^postcode^from code (at most 3 letters or digits)^phone^mobile^sex (male or female)^rating^"
        "ranking^club^1 for a player, 0 for a team^",
        "", "qv2 (5 fields):",
        "first name (team name for a team)^second name (empty for a team)^sex (male or female)^"
        "from code (3 letters or digits)^1 for a player, 0 for a team^",
        "", "example:", "Ann^Lee^female^NZL^1^" };
}

bool export_players(Session& session, const std::vector<std::int64_t>& pids, PlayerFormat format)
{
    auto& talk = session.talk();
    if (pids.empty()) {
        talk.message("select at least 1 player");
        return false;
    }
    const std::string word = format_word(format);
    const auto file = talk.choose_file({ FileDialogKind::SaveAs, "export player data (" + word + ")", "players." + word,
        word + ".", session.settings().text("app.last_dir_opened") });
    if (!file)
        return false;
    auto& db = session.tournament();
    auto row = db.query(R"(select fname, sname, email, dob, address, city, state, postcode, country, phone, mobile,
        sex, rating, ranking, club, pval from players where pid = ?)");
    std::vector<std::string> lines;
    for (const auto pid : pids) {
        row.reset();
        row.bind_all(pid);
        if (!row.step())
            continue;
        const auto text = [&row](const char* column) { return row.text(column); };
        const auto pval = std::to_string(row.integer("pval"));
        lines.push_back(format == PlayerFormat::qv1
                ? record_line({ text("fname"), text("sname"), text("email"), text("dob"), text("address"), text("city"),
                    text("state"), text("postcode"), text("country"), text("phone"), text("mobile"), text("sex"),
                    text("rating"), text("ranking"), text("club"), pval })
                : record_line({ text("fname"), text("sname"), text("sex"), text("country"), pval }));
    }
    if (!write_text_file(*file, lines)) {
        talk.message("cannot write file:" + file->string());
        return false;
    }
    talk.message(file->string() + " file exported");
    return true;
}

namespace {

struct TextExport
{
    const char* select;
    const char* file_name;
};

TextExport text_export(PlayerText which)
{
    switch (which) {
    case PlayerText::email:
        return { "select player, email from players where length(email)>0 order by player", "names_emails.txt" };
    case PlayerText::emails_only:
        return { "select email from players where length(email)>0 order by player", "emails.txt" };
    case PlayerText::address:
        return { "select player, address, city, state, postcode from players where length(address)>0 order by player",
            "names_addresses.txt" };
    case PlayerText::rating_ranking:
        return { "select player, rating, ranking from players where length(rating)>0 or length(ranking)>0 "
                 "order by player",
            "names_ratings_rankings.txt" };
    case PlayerText::message:
        return { "select player, message from players where length(message)>0 order by player", "names_messages.txt" };
    case PlayerText::availability:
        return { "select player, availabilityrestrictions from players where length(availabilityrestrictions)>0 "
                 "order by player",
            "names_availability.txt" };
    }
    return { "", "" };
}

} // namespace

std::vector<std::string> player_text_lines(Session& session, PlayerText which)
{
    std::vector<std::string> lines;
    for (auto row = session.tournament().query(text_export(which).select); row.step();) {
        std::string line;
        for (int column = 0; column < row.column_count(); ++column)
            line += (column ? "^" : "") + row.text(column);
        lines.push_back(line);
    }
    return lines;
}

bool export_player_text(Session& session, PlayerText which)
{
    const auto lines = player_text_lines(session, which);
    return save_text_file_as(
        session, text_export(which).file_name, session.settings().text("app.last_dir_opened"), lines)
        .has_value();
}

} // namespace qv
