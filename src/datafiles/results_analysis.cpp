#include "datafiles/results_analysis.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/utf8.h"
#include "datafiles/data_lines.h"
#include "documents/text_draw_ko.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace qv {

namespace {

std::string table(Qv4Store which, const char* name)
{
    return std::string(which == Qv4Store::single ? "qv4_single_" : "qv4_multiple_") + name;
}

// The sex of one person of a side: a pair's side holds one letter a person, "m/f".
std::string person_sex(const std::string& side_sex, int person)
{
    const auto slash = side_sex.find('/');
    std::string letter = slash == std::string::npos ? side_sex
        : person == 0                               ? side_sex.substr(0, slash)
                                                    : side_sex.substr(slash + 1);
    letter = lcase(trim(letter));
    if (letter == "m")
        return "male";
    if (letter == "f")
        return "female";
    return letter;
}

// The text of a side: its seed in brackets, the name, each person's country behind the person.
std::string side_text(const Statement& row, char side)
{
    const std::string m(1, side);
    return text_draw_side(row.text("m" + m + "seeding"), row.text("m" + m + "ttt"), row.text("m" + m + "_country"),
        TextDrawCountries::on);
}

std::string score_of(const Statement& row)
{
    const auto long_score = row.text("matchlongscore");
    return row.text("matchscore") + (long_score.empty() ? "" : "~" + long_score);
}

std::string line_of(const Statement& row, const std::string& first, const std::string& word, const std::string& other)
{
    const auto singdobs = row.text("singdobs");
    return (singdobs.empty() ? std::string() : singdobs.substr(0, 1)) + " " + row.text("eventname") + "   "
        + row.text("rname") + "   " + first + word + other + "   " + score_of(row);
}

// A match told from the side of the named person: " def " when that side won, " lost to " otherwise.
std::string line_for(const Statement& row, const std::string& key)
{
    const bool top = name_key(row.text("p1")) == key || name_key(row.text("p2")) == key;
    const bool won = row.text("mwtag") == row.text(top ? "mttag" : "mbtag");
    return line_of(row, side_text(row, top ? 't' : 'b'), won ? " def " : " lost to ", side_text(row, top ? 'b' : 't'));
}

const char* played = " and mwtag <>'' and ( mtttt <>'bye' and mbttt<>'bye')";

// Lines told from one person's side; in the multiple store each file a block under its heading.
std::vector<std::string> told_from(Statement& rows, const std::string& key, bool blocks)
{
    std::vector<std::string> lines;
    std::string fn;
    bool first = true;
    while (rows.step()) {
        if (blocks && (first || rows.text("fn") != fn)) {
            fn = rows.text("fn");
            if (!first)
                lines.emplace_back();
            lines.push_back(rows.text("tn") + "," + rows.text("dts") + "," + fn);
        }
        first = false;
        lines.push_back(line_for(rows, key));
    }
    return lines;
}

std::vector<std::string> sorted_distinct(std::vector<std::string> names)
{
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) { return lcase(a) < lcase(b); });
    names.erase(std::unique(names.begin(), names.end(), [](const auto& a, const auto& b) { return same_name(a, b); }),
        names.end());
    return names;
}

std::string event_name(Database& store, std::int64_t eid)
{
    return store.scalar_text("select eventname from qv4_single_events where eid = ?", eid);
}

} // namespace

bool not_wcqb(std::string_view name)
{
    const auto key = name_key(name);
    return key.find("wildcard") == std::string::npos && key.find("qualifier") == std::string::npos
        && key.find("bye") == std::string::npos;
}

void compile_players(Database& store, Qv4Store which)
{
    const auto players = table(which, "players");
    Transaction transaction(store);
    store.run("delete from " + players);
    auto insert = store.query("insert into " + players + " (nm, sex, flag, sid) values (?, ?, 0, ?)");
    for (auto rows = store.query("select * from " + table(which, "schedule") + " where rid=1"); rows.step();)
        for (int i = 1; i <= 4; ++i) {
            const auto name = rows.text("p" + std::to_string(i));
            if (name.empty() || !not_wcqb(name))
                continue;
            insert.reset();
            insert.bind_all(name, person_sex(rows.text(i <= 2 ? "mtsex" : "mbsex"), (i - 1) % 2), rows.integer("sid"));
            insert.step();
        }
    // Duplicates go in one round trip: the distinct rows are added afresh and the old ones removed.
    store.run("update " + players + " set flag=1");
    store.run("insert into " + players + " (nm, sex, flag) select distinct nm, sex, 0 from " + players);
    store.run("delete from " + players + " where flag=1");
    transaction.commit();
}

std::vector<std::string> load_players(Database& store, Qv4Store which, std::string_view sex)
{
    std::vector<std::string> names;
    const auto select
        = "select nm from " + table(which, "players") + (sex.empty() ? "" : " where sex = ?") + " order by nm";
    auto rows = store.query(select);
    if (!sex.empty())
        rows.bind_all(std::string(sex));
    while (rows.step())
        names.push_back(rows.text(0));
    return names;
}

bool determine_incomplete(Database& store)
{
    return store.scalar_integer("select count(*) from qv4_single_schedule where mwtag='' and rname <> 'winner'") > 0;
}

std::vector<std::string> qv4_header_lines(const Qv4Header& header, bool incomplete)
{
    std::vector<std::string> lines { "tournament: " + header.tournament, "dates: " + header.dates,
        "venue: " + header.venue, "country: " + header.country, "surface: " + header.surface,
        "address: " + header.address };
    if (incomplete) {
        lines.emplace_back();
        lines.emplace_back("tournament contains 1 or more incomplete draws");
    }
    return lines;
}

AnalysisText load_players_results(Database& store, Qv4Store which, std::string_view name)
{
    const auto key = name_key(name);
    const auto order
        = which == Qv4Store::single ? "  order by singdobs desc,rid" : "  order by dts_date desc,singdobs desc,eid,rid";
    auto rows = store.query("select * from " + table(which, "schedule")
        + " where (lower(trim(p1))=? or lower(trim(p2))=? or lower(trim(p3))=? or lower(trim(p4))=?)" + played + order);
    rows.bind_all(key, key, key, key);
    return { "results for " + std::string(name), told_from(rows, key, which == Qv4Store::multiple) };
}

AnalysisText load_players_events(Database& store, std::string_view name)
{
    const auto key = name_key(name);
    std::vector<std::string> events;
    for (auto rows = store.query("select distinct eventname from qv4_single_schedule where lower(trim(p1))=?1 or "
                                 "lower(trim(p2))=?1 or lower(trim(p3))=?1 or lower(trim(p4))=?1 order by eventname",
             key);
         rows.step();)
        events.push_back(rows.text(0));
    return { "events for " + std::string(name), events };
}

AnalysisText show_alias(Database& store, std::int64_t eid)
{
    std::vector<std::string> lines;
    for (auto rows = store.query("select mtttt, mtfrn, mttag, mbttt, mbfrn, mbtag from qv4_single_schedule where "
                                 "eid=? and rid=1 order by \"match\"",
             eid);
         rows.step();)
        for (int side = 0; side < 2; ++side)
            if (const auto name = rows.text(side * 3); !name.empty() && not_wcqb(name))
                lines.push_back(name + " / " + rows.text(side * 3 + 1) + " / " + rows.text(side * 3 + 2));
    return { "name map for " + event_name(store, eid), lines };
}

AnalysisText results_in_general(Database& store, std::optional<std::int64_t> eid)
{
    std::string select = std::string("select * from qv4_single_schedule where 1=1") + played;
    if (eid)
        select += "  and eid=?";
    select += "  order by eid,singdobs desc,rid";
    auto rows = store.query(select);
    if (eid)
        rows.bind_all(*eid);
    AnalysisText text { eid ? "results for " + event_name(store, *eid) : "all results", {} };
    while (rows.step()) {
        const bool top = rows.text("mwtag") == rows.text("mttag");
        text.lines.push_back(
            line_of(rows, side_text(rows, top ? 't' : 'b'), " def ", side_text(rows, top ? 'b' : 't')));
    }
    return text;
}

AnalysisText event_entries(Database& store, std::int64_t eid)
{
    std::vector<std::string> names;
    for (auto rows = store.query("select mtttt, mbttt from qv4_single_schedule where eid=? order by \"match\"", eid);
         rows.step();)
        for (int side = 0; side < 2; ++side)
            if (const auto name = rows.text(side); !name.empty() && not_wcqb(name))
                names.push_back(name);
    return { "entries for " + event_name(store, eid), sorted_distinct(std::move(names)) };
}

AnalysisText load_players_opponents(Database& store, std::string_view name)
{
    const auto key = name_key(name);
    auto rows = store.query("select * from qv4_multiple_schedule where (lower(trim(p1))=? or lower(trim(p2))=? or "
                            "lower(trim(p3))=? or lower(trim(p4))=?) and mwtag <>''");
    rows.bind_all(key, key, key, key);
    std::vector<std::string> names;
    while (rows.step()) {
        const bool top = name_key(rows.text("p1")) == key || name_key(rows.text("p2")) == key;
        for (const char* column : top ? std::array { "p3", "p4" } : std::array { "p1", "p2" })
            if (const auto other = rows.text(column); !other.empty() && name_key(other) != "bye")
                names.push_back(other);
    }
    return { "opponents for " + std::string(name), sorted_distinct(std::move(names)) };
}

AnalysisText head_to_head(Database& store, std::string_view left, std::string_view right)
{
    const auto a = name_key(left);
    const auto b = name_key(right);
    auto rows = store.query(
        "select * from qv4_multiple_schedule where "
        "(((lower(trim(p1)) = ?1 or lower(trim(p2)) = ?1) and (lower(trim(p3)) = ?2 or lower(trim(p4)) = ?2)) or "
        "((lower(trim(p1)) = ?2 or lower(trim(p2)) = ?2) and (lower(trim(p3)) = ?1 or lower(trim(p4)) = ?1)))"
        " and mwtag <>'' and mtttt <> 'bye' and mbttt <> 'bye'  order by dts_date desc,singdobs desc,eid,rid");
    rows.bind_all(a, b);
    return { "Head to Head results for " + a + " vs " + b, told_from(rows, a, true) };
}

std::vector<std::string> formatted_results(Database& store)
{
    std::vector<std::string> lines;
    for (auto rows = store.query("select eventname, singdobs, rname, mtttt, mbttt, mwttt, matchscore, matchlongscore "
                                 "from qv4_single_schedule where mwtag <>''  order by singdobs,rid");
         rows.step();) {
        std::string line;
        for (int column = 0; column < rows.column_count(); ++column)
            line += (column ? "," : "") + rows.text(column);
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> all_results_lines(Database& store)
{
    static const char* const columns[][2] = { { "drawtype", "drawtype" }, { "eid", "id" }, { "ds", "drawsize" },
        { "rid", "roundid" }, { "rsname", "roundname" }, { "mtttt", "player1" }, { "mbttt", "player2" },
        { "mwttt", "winner" }, { "matchscore", "shortscore" }, { "matchlongscore", "longscore" },
        { "mtseeding", "player1seeding" }, { "mbseeding", "player2seeding" }, { "mt_country", "player1country" },
        { "mb_country", "player2country" }, { "singdobs", "singles_or_doubles" }, { "eventname", "eventname" },
        { "evtsex", "eventsex" }, { "tn", "tournament_name" }, { "dts", "tournament_dates" }, { "surface", "surface" },
        { "country", "country" }, { "fn", "original_filename" } };
    if (store.row_count("qv4_multiple_schedule") == 0)
        return {};
    std::string head;
    std::string select;
    for (const auto& [column, alias] : columns) {
        head += std::string(head.empty() ? "" : ",") + alias;
        select += std::string(select.empty() ? "" : ", ") + "\"" + column + "\"";
    }
    std::vector<std::string> lines { head };
    for (auto rows = store.query("select " + select + " from qv4_multiple_schedule"); rows.step();) {
        std::string line;
        for (int column = 0; column < rows.column_count(); ++column)
            line += (column ? "," : "") + rows.text(column);
        lines.push_back(line);
    }
    return lines;
}

OpenedQv4 open_qv4_single(Session& session, const std::filesystem::path& file)
{
    auto& store = session.peek_browse_db();
    Qv4Header header;
    const auto fn = file.filename().string();
    if (!read_qv4_single(store, file, fn, header))
        return { false, {}, fn + " error importing " };
    compile_players(store, Qv4Store::single);
    return { true, qv4_header_lines(header, determine_incomplete(store)), {} };
}

std::vector<std::string> archive_files(Session& session)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(session.dirs().qv4_file_archive, error))
        if (entry.is_regular_file() && lcase(entry.path().extension().string()) == ".qv4")
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

void import_qv4_files(Session& session, const std::vector<std::filesystem::path>& files)
{
    const auto& archive = session.dirs().qv4_file_archive;
    std::filesystem::create_directories(archive);
    std::vector<std::string> notes;
    for (const auto& file : files) {
        const auto name = file.filename().string();
        std::error_code error;
        if (std::filesystem::exists(archive / name))
            notes.push_back("file already exists in qv4 archive: " + name);
        else if (std::filesystem::copy_file(file, archive / name, error))
            notes.push_back("imported: " + name);
        else
            notes.push_back("cannot copy file:" + file.string());
    }
    const auto text = session.dirs().working / "temp.txt";
    write_text_file(text, notes);
    session.talk().show_text(text, "qv4 file import results");
}

bool delete_qv4_files(Session& session, const std::vector<std::string>& names)
{
    auto& talk = session.talk();
    if (names.empty()) {
        talk.message("select qv4 file(s) to delete");
        return false;
    }
    if (talk.ask("This will delete qv4 files?", "Confirm", Buttons::YesNo) != Answer::Yes)
        return false;
    for (const auto& name : names) {
        std::error_code error;
        std::filesystem::remove(session.dirs().qv4_file_archive / std::filesystem::path(name).filename(), error);
    }
    talk.message("ok");
    return true;
}

bool qv4_file_details(Session& session, const std::string& name)
{
    const auto file = session.dirs().qv4_file_archive / std::filesystem::path(name).filename();
    Qv4Header header;
    if (!read_qv4_single(session.peek_browse_db(), file, name, header)) {
        session.talk().message("error openfing " + name);
        return false;
    }
    auto lines = qv4_header_lines(header, false);
    const auto notes_file = session.dirs().qv4_file_archive / "qv4file_notes.txt";
    if (std::filesystem::exists(notes_file)) {
        lines.emplace_back();
        if (const auto notes = read_data_file(notes_file))
            lines.insert(lines.end(), notes->begin(), notes->end());
    }
    const auto text = session.dirs().working / "temp.txt";
    write_text_file(text, lines);
    session.talk().show_text(text, "qv4 file");
    return true;
}

void clear_all(Session& session)
{
    auto& store = session.peek_browse_db();
    Transaction transaction(store);
    for (const char* name : { "current_build", "events", "players", "schedule" })
        store.run("delete from " + table(Qv4Store::multiple, name));
    transaction.commit();
    session.talk().message("ok");
}

int qv4_compile(Session& session, const std::vector<std::string>& names)
{
    auto& talk = session.talk();
    if (names.empty()) {
        talk.message("select qv4 file(s) to compile");
        return 0;
    }
    auto& store = session.peek_browse_db();
    std::vector<std::string> notes;
    int compiled = 0;
    int errors = 0;
    Transaction transaction(store);
    for (const char* name : { "current_build", "events", "schedule", "players" })
        store.run("delete from " + table(Qv4Store::multiple, name));
    auto build = store.query("insert into qv4_multiple_current_build (fn, import_order) values (?, ?)");
    int counter = 0;
    for (const auto& name : names) {
        ++counter;
        talk.progress("compiling..." + std::to_string(counter) + "/" + std::to_string(names.size()));
        const auto file = session.dirs().qv4_file_archive / std::filesystem::path(name).filename();
        Qv4Header header;
        if (!std::filesystem::exists(file)) {
            notes.push_back(name + " not found");
            ++errors;
        } else if (read_qv4_multiple(store, file, name, header)) {
            build.reset();
            build.bind_all(name, counter);
            build.step();
            ++compiled;
        } else {
            notes.push_back("failed to add file");
            notes.push_back("file:" + name + ", qv4 file invalid");
            ++errors;
        }
    }
    talk.progress("building player index...");
    compile_players(store, Qv4Store::multiple);
    transaction.commit();
    talk.progress("");

    if (errors == 0) {
        talk.message(std::to_string(compiled) + " files compiled");
        return compiled;
    }
    const auto question = compiled > 0
        ? std::to_string(compiled) + " files compiled," + std::to_string(errors) + " errors,view the errors?"
        : "no files compiled," + std::to_string(errors) + " errors detected,all teams,view the errors?";
    if (talk.ask(question, "compile errors", Buttons::YesNo) == Answer::Yes) {
        const auto text = session.dirs().working / "temp.txt";
        write_text_file(text, notes);
        talk.show_text(text, "qv4 file compile results");
    }
    return compiled;
}

std::vector<std::pair<std::int64_t, std::string>> compiled_events(Database& store, const std::string& fn)
{
    std::vector<std::pair<std::int64_t, std::string>> events;
    for (auto rows = store.query("select eid, eventname from qv4_multiple_events where fn=? order by eid", fn);
         rows.step();)
        events.emplace_back(rows.integer(0), rows.text(1));
    return events;
}

void load_event_into_single(Database& store, const std::string& fn, std::int64_t eid)
{
    Transaction transaction(store);
    store.run("delete from qv4_single_events");
    store.run("insert into qv4_single_events select * from qv4_multiple_events where eid=? and fn=?", eid, fn);
    store.run("delete from qv4_single_schedule");
    store.run("insert into qv4_single_schedule select * from qv4_multiple_schedule where eid=? and fn=?", eid, fn);
    transaction.commit();
}

std::vector<std::string> load_current_build(Database& store)
{
    std::vector<std::string> names;
    for (auto rows = store.query("select fn from qv4_multiple_current_build order by import_order"); rows.step();)
        names.push_back(rows.text(0));
    return names;
}

} // namespace qv
