#include "entries/events.h"

#include "core/codepage.h"
#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"

#include <array>
#include <fstream>
#include <stdexcept>

namespace qv {

namespace {

struct PteName
{
    std::string_view code;
    std::string_view caption;
};
constexpr std::array<PteName, 3> pte_names { { { "p", "players only" }, { "t", "teams only" }, { "e", "either" } } };

std::optional<EventRefusal> refuse(EventField field, const Check& check)
{
    if (!check)
        return std::nullopt;
    return EventRefusal { field, *check };
}

std::optional<EventRefusal> refuse(EventField field, std::string message, int position = -1)
{
    return EventRefusal { field, Refusal { std::move(message), position } };
}

// The column limits are counted in characters; the refusal points at the first character past the limit.
Check check_length(std::string_view text, std::size_t limit, const char* message)
{
    if (char_count(text) > limit)
        return Refusal { message, static_cast<int>(limit) };
    return std::nullopt;
}

// Which field of the event a name rule looks at, and the value it must have.
enum class RuleOn { sex, singdobs };

struct NameRule
{
    RuleOn on;
    std::string_view value;
    std::string_view word;
    std::string_view message;
};

// Rule 11 compares the sex with "singles", which no event has: it never holds, and is kept so. The blanks
// around the short words keep "women" from matching " men ", and also keep them from matching at either end.
constexpr std::array<NameRule, 22> name_rules { {
    { RuleOn::sex, "male", "female", "event is male event but contains word 'female'" },
    { RuleOn::sex, "male", "women", "event is male event but contains word 'women'" },
    { RuleOn::sex, "male", "woman", "event is male event but contains word 'woman'" },
    { RuleOn::sex, "male", "womens", "event is male event but contains word 'womens'" },
    { RuleOn::sex, "male", "ladies", "event is male event but contains word 'ladies'" },
    { RuleOn::sex, "female", " male ", "event is female event but contains word 'male'" },
    { RuleOn::sex, "female", " men ", "event is female event but contains word 'men'" },
    { RuleOn::sex, "female", " man ", "event is female event but contains word 'man'" },
    { RuleOn::sex, "female", " mens ", "event is female event but contains word 'mens'" },
    { RuleOn::singdobs, "singles", "doubles", "event is singles event but contains word 'doubles'" },
    { RuleOn::sex, "singles", "mixed", "event is singles event but contains word 'mixed'" },
    { RuleOn::singdobs, "doubles", "singles", "event is doubles event but contains word 'singles'" },
    { RuleOn::sex, "mixed", "singles", "event is mixed event but contains word 'singles'" },
    { RuleOn::sex, "neutral", "female", "event is neutral event but contains word 'female'" },
    { RuleOn::sex, "neutral", "women", "event is neutral event but contains word 'women'" },
    { RuleOn::sex, "neutral", "woman", "event is neutral event but contains word 'woman'" },
    { RuleOn::sex, "neutral", "womens", "event is neutral event but contains word 'womens'" },
    { RuleOn::sex, "neutral", "ladies", "event is neutral event but contains word 'ladies'" },
    { RuleOn::sex, "neutral", " male ", "event is neutral event but contains word 'male'" },
    { RuleOn::sex, "neutral", " men ", "event is neutral event but contains word 'men'" },
    { RuleOn::sex, "neutral", " man ", "event is neutral event but contains word 'man'" },
    { RuleOn::sex, "neutral", " mens ", "event is neutral event but contains word 'mens'" },
} };

// Feedback files are read in the text viewer and by other programs of the director: Windows-1252, CRLF.
std::filesystem::path write_feedback(Session& session, const char* file_name, const std::vector<std::string>& lines)
{
    const auto file = session.dirs().working / file_name;
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    for (const auto& line : lines)
        out << to_cp1252(line) << "\r\n";
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
    return file;
}

void beep_if_ticked(Session& session)
{
    if (session.settings().integer("events_beep_ok") == 1)
        session.talk().beep();
}

bool checks_names_on_save(Session& session)
{
    return session.settings().text("evt.checkerror") == "1";
}

// Both windows run the same checks; the refusal is told here and kept for the window to point at.
std::optional<EventRefusal> told(Session& session, std::optional<EventRefusal> refusal)
{
    if (refusal)
        session.talk().message(refusal->refusal.message);
    return refusal;
}

std::optional<EventRefusal> first_refusal(
    Session& session, const EventRecord& event, EventWindow window, std::int64_t own_eid)
{
    if (auto refusal = validate_options(event))
        return refusal;
    return validate(session.tournament(), event, window, own_eid);
}

// An event with entries keeps its sex, type and player type: the entries were checked against them.
std::optional<EventRefusal> locked_change(const StoredEvent& stored, const EventRecord& typed)
{
    if (!stored.entries)
        return std::nullopt;
    const std::array<std::pair<EventField, bool>, 3> changes { {
        { EventField::singdobs, !same_name(stored.record.singdobs, typed.singdobs) },
        { EventField::sex, !same_name(stored.record.sex, typed.sex) },
        { EventField::pte, !same_name(stored.record.pte, typed.pte) },
    } };
    for (const auto& [field, changed] : changes)
        if (changed)
            return refuse(field, std::string(entries_lock_label));
    return std::nullopt;
}

} // namespace

std::string pte_caption(std::string_view pte)
{
    for (const auto& name : pte_names)
        if (name.code == lcase(pte))
            return std::string(name.caption);
    return {};
}

std::string pte_code(std::string_view caption)
{
    for (const auto& name : pte_names)
        if (name.caption == caption)
            return std::string(name.code);
    return {};
}

std::optional<EventRefusal> validate_options(const EventRecord& event)
{
    const auto singdobs = lcase(event.singdobs);
    const auto sex = lcase(event.sex);
    if (singdobs == "singles" && sex == "mixed")
        return refuse(EventField::sex, "a mixed event cannot be a singles event");
    if (singdobs == "doubles" && lcase(event.pte) == "e")
        return refuse(
            EventField::pte, "a doubles event must be players only,teams only but not a mixture of players and teams");
    if (sex == "mixed" && singdobs != "doubles")
        return refuse(EventField::singdobs, "a mixed doubles event must be a doubles event");
    return std::nullopt;
}

std::optional<EventRefusal> validate(Database& db, const EventRecord& event, EventWindow window, std::int64_t own_eid)
{
    if (auto r = refuse(EventField::eventname, value_required(event.eventname)))
        return r;
    if (auto r = refuse(EventField::eventname, check_class(event.eventname, ValueClass::systemdisallow_eventname)))
        return r;
    if (auto r = refuse(EventField::eventname,
            check_length(event.eventname, eventname_max_chars, "event name must be <= 50 characters in length")))
        return r;
    if (auto r = refuse(EventField::fee, check_double(event.fee)))
        return r;
    if (auto r = refuse(
            EventField::fee, check_length(event.fee, fee_max_chars, "event fee must be <= 10 characters in length")))
        return r;

    const auto key = name_key(event.eventname);
    if (window == EventWindow::add) {
        if (db.query("select eid from events where lower(trim(eventname))=?", key).step())
            return refuse(EventField::eventname, "already have an event of this name");
    } else if (db.query("select eid from events where lower(trim(eventname))=? and eid <> ?", key, own_eid).step()) {
        return refuse(EventField::eventname, "already have an event named " + event.eventname);
    }
    return std::nullopt;
}

std::vector<std::string> check_event_name(
    std::int64_t eid, std::string_view name, std::string_view sex, std::string_view singdobs)
{
    const auto lname = lcase(name);
    const auto lsex = lcase(sex);
    const auto ltype = lcase(singdobs);
    std::vector<std::string> lines;
    for (const auto& rule : name_rules) {
        const auto& field = rule.on == RuleOn::sex ? lsex : ltype;
        if (field == rule.value && lname.find(rule.word) != std::string::npos)
            lines.push_back("(" + std::to_string(eid) + ")" + lname + "," + std::string(rule.message));
    }
    return lines;
}

bool evt_error(Session& session, std::int64_t eid, const EventRecord& event)
{
    const auto lines = check_event_name(eid, event.eventname, event.sex, event.singdobs);
    const auto file = write_feedback(session, "temp.txt", lines);
    if (lines.empty())
        return false;
    session.talk().show_text(file, "event error check");
    return true;
}

bool check_errors(Session& session)
{
    std::vector<std::string> lines;
    auto rows = session.tournament().query("select * from events");
    while (rows.step()) {
        auto found
            = check_event_name(rows.integer("eid"), rows.text("eventname"), rows.text("sex"), rows.text("singdobs"));
        lines.insert(lines.end(), found.begin(), found.end());
    }
    const bool fired = !lines.empty();
    if (!fired)
        lines.emplace_back("no errors found");
    session.talk().show_text(write_feedback(session, "temp.txt", lines), "event error check");
    return fired;
}

bool has_entries(Database& db, std::int64_t eid)
{
    return db.query("select eid from evententries where eid=? limit 1", eid).step()
        || db.query("select eid from rawdoublesentries where eid=? limit 1", eid).step();
}

std::optional<StoredEvent> load_event(Database& db, std::int64_t eid)
{
    auto row = db.query("select * from events where eid=?", eid);
    if (!row.step())
        return std::nullopt;
    StoredEvent event;
    event.eid = eid;
    event.record = { row.text("eventname"), row.text("fee"), row.text("singdobs"), row.text("sex"), row.text("pte") };
    event.drawdone = row.integer("drawdone") != 0;
    event.entries = has_entries(db, eid);
    return event;
}

DrawKind default_draw_kind(int default_draw_type)
{
    if (default_draw_type >= 1 && default_draw_type <= 3)
        return { "rr", default_draw_type };
    return { "ko", 0 };
}

std::int64_t addnewevent(Session& session, const EventRecord& event)
{
    auto& db = session.tournament();
    const auto eid = db.next_id("events", "eid");
    const auto kind = default_draw_kind(session.settings().integer("default_draw_type"));
    db.run(R"(insert into events (eid, eventname, fee, singdobs, sex, pte, drawtype, pts, drawdone, drawsize)
              values (?, ?, ?, ?, ?, ?, ?, ?, 0, 0))",
        eid, trim(event.eventname), event.fee, event.singdobs, event.sex, event.pte, kind.drawtype, kind.pts);
    session.refresh_lists(Lists::events);
    return eid;
}

EventSaveResult add_event(Session& session, const EventRecord& typed)
{
    if (auto refusal = told(session, first_refusal(session, typed, EventWindow::add, 0)))
        return { EventSaved::refused, refusal, 0 };
    // The check names the event by the id it is about to get.
    if (checks_names_on_save(session) && evt_error(session, session.tournament().next_id("events", "eid"), typed))
        return { EventSaved::name_errors, std::nullopt, 0 };
    Transaction transaction(session.tournament());
    const auto eid = addnewevent(session, typed);
    transaction.commit();
    beep_if_ticked(session);
    return { EventSaved::saved, std::nullopt, eid };
}

EventSaveResult save_event(Session& session, std::int64_t eid, const EventRecord& typed)
{
    auto& db = session.tournament();
    const auto stored = load_event(db, eid);
    if (!stored) {
        session.talk().message("select event");
        return {};
    }
    if (auto refusal = told(session, locked_change(*stored, typed)))
        return { EventSaved::refused, refusal, eid };
    if (auto refusal = told(session, first_refusal(session, typed, EventWindow::edit, eid)))
        return { EventSaved::refused, refusal, eid };
    if (checks_names_on_save(session) && evt_error(session, eid, typed))
        return { EventSaved::name_errors, std::nullopt, eid };

    const auto name = trim(typed.eventname);
    const bool renamed = name != stored->record.eventname;
    const bool new_fee = typed.fee != stored->record.fee;
    Transaction transaction(db);
    db.run("update events set eventname=?, fee=?, singdobs=?, sex=?, pte=? where eid=?", name, typed.fee,
        typed.singdobs, typed.sex, typed.pte, eid);
    if (renamed) {
        db.run("update evententries set en=? where eid=?", name, eid);
        db.run("update rawdoublesentries set en=? where eid=?", name, eid);
        if (stored->drawdone)
            db.run("update schedule set eventname=? where eid=?", name, eid);
    }
    if (new_fee)
        db.run("update evententries set eventfee=? where eid=?", typed.fee, eid);
    transaction.commit();

    session.refresh_lists(Lists::events);
    if (renamed)
        session.refresh_lists(Lists::draw);
    // The players' bills are compiled from the entries only when the user asks for it.
    if (new_fee && stored->entries)
        session.talk().message(name + ",event has entries,payments will require a recompile");
    beep_if_ticked(session);
    return { EventSaved::saved, std::nullopt, eid };
}

bool oktodelete(Session& session, std::span<const std::int64_t> eids)
{
    if (eids.empty()) {
        session.talk().message("Select event(s) to delete");
        return false;
    }
    if (session.settings().integer("admin_events_delete_no_prompt") == 1)
        return true;
    return session.talk().ask("This action will delete all event entries for the selected event(s)\n"
                              "Events which have a draw will be ignored (delete draw before deleting event)"
                              "Do you want to continue?",
               "Confirm", Buttons::YesNo)
        == Answer::Yes;
}

DeleteReport delete_events(Session& session, std::span<const std::int64_t> eids)
{
    auto& db = session.tournament();
    DeleteReport report;
    Transaction transaction(db);
    for (const auto eid : eids) {
        auto row = db.query("select eventname, drawdone from events where eid=?", eid);
        if (!row.step())
            continue;
        const auto name = row.text("eventname");
        if (row.integer("drawdone") != 0) {
            report.lines.push_back("cannot delete " + name + ",drawdone, delete draw first.");
            ++report.errors;
            continue;
        }
        db.run("delete from events where eid=?", eid);
        db.run("delete from evententries where eid=?", eid);
        db.run("delete from rawdoublesentries where eid=?", eid);
        db.run("delete from schedule where eid=?", eid);
        report.lines.push_back(name + " deleted");
        ++report.deleted;
    }
    transaction.commit();
    if (report.deleted > 0) {
        session.refresh_lists(Lists::events);
        session.refresh_lists(Lists::entries);
    }
    return report;
}

bool delete_one_event(Session& session, std::int64_t eid)
{
    const std::array<std::int64_t, 1> one { eid };
    if (!oktodelete(session, one))
        return false;
    const auto report = delete_events(session, one);
    for (const auto& line : report.lines)
        session.talk().message(line);
    if (report.deleted > 0)
        beep_if_ticked(session);
    return report.deleted > 0;
}

int delete_events_with_report(Session& session, std::span<const std::int64_t> eids)
{
    if (!oktodelete(session, eids))
        return 0;
    const auto report = delete_events(session, eids);
    const auto file = write_feedback(session, "feedback.txt", report.lines);
    const auto deleted = std::to_string(report.deleted);
    const auto errors = std::to_string(report.errors);
    if (report.errors == 0) {
        session.talk().message(deleted + " events deleted");
        return report.deleted;
    }
    const auto question = report.deleted > 0
        ? deleted + " events deleted," + errors + " errors,view the errors?"
        : "no events delete," + errors + " errors detected,all events,view the errors?";
    if (session.talk().ask(question, "delete events errors", Buttons::YesNo) == Answer::Yes)
        session.talk().show_text(file, "delete events errors");
    return report.deleted;
}

std::optional<std::size_t> find_line(
    const std::vector<std::string>& lines, std::string_view text, std::optional<std::size_t> after)
{
    if (lines.empty() || text.empty())
        return std::nullopt;
    const auto wanted = lcase(text);
    const std::size_t start = after ? *after + 1 : 0;
    for (std::size_t step = 0; step < lines.size(); ++step) {
        const auto index = (start + step) % lines.size();
        if (lcase(lines[index]).find(wanted) != std::string::npos)
            return index;
    }
    return std::nullopt;
}

} // namespace qv
