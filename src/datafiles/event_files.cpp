#include "datafiles/event_files.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/utf8.h"
#include "core/validators.h"

namespace qv {

namespace {

using Fault = std::optional<LineFault>;

Fault fault_at(int field, std::string_view text, std::string description)
{
    return LineFault { field, std::string(text), std::move(description) };
}

Fault one_of(int field, std::string_view text, std::initializer_list<std::string_view> words, const char* empty,
    const char* other)
{
    const auto value = name_key(text);
    if (value.empty())
        return fault_at(field, text, empty);
    for (auto word : words)
        if (value == word)
            return std::nullopt;
    return fault_at(field, text, other);
}

Fault name_rules(Database& db, std::string_view text)
{
    const auto name = trim(text);
    if (name.empty())
        return fault_at(1, text, "event name needed");
    if (char_count(name) > eventname_max_chars)
        return fault_at(1, text, "event name must be <= 50 characters in length");
    if (const auto said = check_class_text(name, ValueClass::systemdisallow_eventname); said != "ok")
        return fault_at(1, text, said);
    if (db.scalar_integer("select count(*) from events where lower(trim(eventname)) = lower(trim(?))", name) > 0)
        return fault_at(1, text, name + ": already in db");
    return std::nullopt;
}

Fault fee_rules(std::string_view text)
{
    if (char_count(text) > fee_max_chars)
        return fault_at(5, text, " fee must be <=10 characters in length");
    // The fee is billed by the payments: it must read as an amount, as the event windows require.
    if (const auto said = check_double_text(text); said != "ok")
        return fault_at(5, text, said);
    return std::nullopt;
}

int field_of(EventField field)
{
    switch (field) {
    case EventField::eventname:
        return 1;
    case EventField::singdobs:
        return 2;
    case EventField::sex:
        return 3;
    case EventField::pte:
        return 4;
    case EventField::fee:
        return 5;
    }
    return 0;
}

} // namespace

CheckedEvent process_qv3_line(Database& db, std::string_view line)
{
    const auto f = record_fields(line);
    if (f.size() != 5)
        return { std::nullopt, { 0, std::string(line), "expecting 5 fields" } };
    for (auto fault : { name_rules(db, f[0]),
             one_of(2, f[1], { "singles", "doubles" }, "no value for singles/doubles",
                 "must be either singles or doubles event"),
             one_of(3, f[2], { "male", "female", "mixed", "neutral" }, "no value for sex",
                 "sex must be either male,female,mixed,neutral"),
             one_of(4, f[3], { "p", "t", "e" }, "no value for player type",
                 "must be either p-players only,t-teams only,e-either"),
             fee_rules(f[4]) })
        if (fault)
            return { std::nullopt, *fault };
    const EventRecord record { trim(f[0]), trim(f[4]), name_key(f[1]), name_key(f[2]), name_key(f[3]) };
    if (const auto refused = validate_options(record)) {
        const int field = field_of(refused->field);
        return { std::nullopt, { field, f[static_cast<std::size_t>(field - 1)], refused->refusal.message } };
    }
    return { record, {} };
}

int import_events(Session& session, const std::filesystem::path& file)
{
    const auto lines = read_data_file(file);
    if (!lines) {
        session.talk().message("cannot read file:" + file.string());
        return 0;
    }
    auto& db = session.tournament();
    ImportFeedback feedback("qv3 file import errors", file);
    int count = 0;
    int imported = 0;

    Transaction transaction(db);
    auto eid = db.next_id("events", "eid");
    // Imported events are always knock-out, whatever the default draw type.
    auto insert = db.query(R"(insert into events (eid, eventname, fee, singdobs, sex, pte, drawtype, pts, drawdone,
        drawsize) values (?, ?, ?, ?, ?, ?, 'ko', 0, 0, 0))");
    for (const auto& line : *lines) {
        if (line.empty())
            continue;
        ++count;
        if (const int hats = hat_cnt(line); hats != 5) {
            feedback.wrong_count(line, 5, hats);
            continue;
        }
        const auto checked = process_qv3_line(db, line);
        if (!checked.record) {
            feedback.fault(line, checked.fault);
            continue;
        }
        const auto& e = *checked.record;
        insert.reset();
        insert.bind_all(eid++, e.eventname, e.fee, e.singdobs, e.sex, e.pte);
        insert.step();
        ++imported;
    }
    transaction.commit();
    if (imported > 0)
        session.refresh_lists(Lists::events);
    feedback.finish(session, count, imported, "import events errors");
    return imported;
}

int import_events_file(Session& session)
{
    const auto file = session.talk().choose_file(
        { FileDialogKind::Open, "open qv3 event file", "", "qv3.", session.settings().text("app.last_dir_opened") });
    return file ? import_events(session, *file) : 0;
}

bool export_events(Session& session, const std::vector<std::int64_t>& eids)
{
    auto& talk = session.talk();
    auto& db = session.tournament();
    if (db.row_count("events") == 0) {
        talk.message("no events to export");
        return false;
    }
    if (eids.empty()) {
        talk.message("select at least 1 event to export");
        return false;
    }
    const auto file = talk.choose_file({ FileDialogKind::SaveAs, "export events (qv3)", "events.qv3", "qv3.",
        session.settings().text("app.last_dir_opened") });
    if (!file)
        return false;
    auto row = db.query("select eventname, singdobs, sex, pte, fee from events where eid = ?");
    std::vector<std::string> lines;
    for (const auto eid : eids) {
        row.reset();
        row.bind_all(eid);
        if (row.step())
            lines.push_back(record_line(
                { row.text("eventname"), row.text("singdobs"), row.text("sex"), row.text("pte"), row.text("fee") }));
    }
    if (!write_text_file(*file, lines)) {
        talk.message("cannot write file:" + file->string());
        return false;
    }
    talk.message(file->string() + " file exported");
    return true;
}

} // namespace qv
