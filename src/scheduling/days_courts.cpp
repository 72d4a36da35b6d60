#include "scheduling/days_courts.h"

#include "core/file_save.h"
#include "core/match_record.h"
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/validators.h"

#include <algorithm>

namespace qv {

namespace {

constexpr int max_courts = 10000;

std::string court_word(Session& session)
{
    return session.settings().text("app.generic_court");
}

// The digits of a text that passed the integer check, saturating above the limit so that no length overflows.
long long bounded_number(std::string_view digits)
{
    long long value = 0;
    for (char c : digits) {
        value = value * 10 + (c - '0');
        if (value > max_courts)
            return max_courts + 1;
    }
    return value;
}

// Where the selection goes after a delete: the first court behind the three reserved rows, else the first line.
int row_after_delete(std::size_t remaining)
{
    return remaining >= 4 ? 3 : 0;
}

} // namespace

std::string reserved_court_name(std::int64_t cid, std::string_view court_word)
{
    switch (cid) {
    case cid_first_available:
        return "first available " + std::string(court_word);
    case cid_to_be_confirmed:
        return std::string(court_word) + " to be confirmed";
    case cid_day_clipboard:
        return "day clipboard";
    default:
        return {};
    }
}

void free_all_days_statement(Database& tournament)
{
    tournament.run("update schedule set scheduledate='',nbat='',matchtime='',cid=0,day_idx=0,matchnumber=0,"
                   "matchnumber_live=0,matchtime_int=-1 where cid <>-2");
}

DaysCourtsEditor::DaysCourtsEditor(Session& session)
    : m_session(session)
{
}

void DaysCourtsEditor::init()
{
    auto& db = m_session.tournament();
    Transaction transaction(db);
    db.run("delete from scheduledays_temp");
    db.run("delete from scheduledays_courts_temp");
    db.run("insert into scheduledays_temp select * from scheduledays");
    db.run("insert into scheduledays_courts_temp select * from scheduledays_courts");
    db.run("delete from scheduledays_temp where idx=0");
    transaction.commit();
    loaddays();
}

const std::vector<std::string>& DaysCourtsEditor::loaddays()
{
    m_days.clear();
    for (auto rows
         = m_session.tournament().query("select sdate from scheduledays_temp where sdate <>'' order by rowid");
         rows.step();)
        m_days.push_back(rows.text(0));
    return m_days;
}

std::vector<CourtEntry> DaysCourtsEditor::load_courts(std::string_view sdate)
{
    const auto word = court_word(m_session);
    std::vector<CourtEntry> courts;
    for (auto rows = m_session.tournament().query(
             "select cid, courtname, starttime from scheduledays_courts_temp where sdate=? order by cid", sdate);
         rows.step();) {
        CourtEntry court { rows.integer(0), rows.text(1), rows.text(2), {} };
        court.text = word + " " + court_list_cid_word(court.cid) + "\t" + court.courtname;
        courts.push_back(std::move(court));
    }
    return courts;
}

void DaysCourtsEditor::set_days(const ChosenDate& start, const ChosenDate& end)
{
    auto& db = m_session.tournament();
    Transaction transaction(db);
    db.run("delete from scheduledays_temp");
    db.run("delete from scheduledays_courts_temp");
    m_days.clear();
    auto insert = db.query("insert into scheduledays_temp (sdate, fmt1, fmt2, fmt3, fmt4, idx) values (?,?,?,?,?,?)");
    std::int64_t idx = 0;
    for (const auto& day : days_between(start, end)) {
        insert.bind_all(day.fmt2, day.fmt1, day.fmt2, day.fmt3, day.fmt4, ++idx);
        insert.step();
        insert.reset();
        m_days.push_back(day.fmt2);
    }
    transaction.commit();
}

bool DaysCourtsEditor::generate(std::string_view number, const std::vector<std::string>& selected_days)
{
    auto& talk = m_session.talk();
    if (!report(talk, value_required(number)) || !report(talk, check_integer(number)))
        return false;
    const auto n = bounded_number(number);
    if (n == 0) {
        talk.message("zero invalid in this context");
        return false;
    }
    if (n > max_courts) {
        talk.message("max 10,000 courts");
        return false;
    }
    if (m_days.empty()) {
        talk.message("no days setup");
        return false;
    }
    if (selected_days.empty()) {
        talk.message("select at least one day");
        return false;
    }
    generate_courts(static_cast<int>(n), selected_days);
    return true;
}

void DaysCourtsEditor::generate_courts(int n, const std::vector<std::string>& selected_days)
{
    auto& db = m_session.tournament();
    const auto word = court_word(m_session);
    Transaction transaction(db);
    db.run("delete from scheduledays_courts_temp");
    auto insert = db.query(R"(insert into scheduledays_courts_temp (sdate, idx, cid, starttime, courtname,
        fmt1, fmt2, fmt3, fmt4) values (?,?,?,'',?,?,?,?,?))");
    std::vector<std::string> kept;
    for (const auto& sdate : m_days) {
        if (std::find(selected_days.begin(), selected_days.end(), sdate) == selected_days.end()) {
            db.run("delete from scheduledays_temp where sdate=?", sdate);
            continue;
        }
        auto day = db.query("select idx, fmt1, fmt2, fmt3, fmt4 from scheduledays_temp where sdate=?", sdate);
        if (!day.step())
            continue;
        auto add = [&](std::int64_t cid, const std::string& name) {
            insert.bind_all(sdate, day.integer(0), cid, name, day.text(1), day.text(2), day.text(3), day.text(4));
            insert.step();
            insert.reset();
        };
        for (int cid = 1; cid <= n; ++cid)
            add(cid, "");
        for (std::int64_t cid : { cid_first_available, cid_to_be_confirmed, cid_day_clipboard })
            add(cid, reserved_court_name(cid, word));
        kept.push_back(sdate);
    }
    transaction.commit();
    m_days = std::move(kept);
}

std::optional<int> DaysCourtsEditor::delete_court(std::string_view sdate, std::optional<std::int64_t> cid)
{
    auto& talk = m_session.talk();
    if (sdate.empty()) {
        talk.message("select day");
        return std::nullopt;
    }
    if (!cid) {
        talk.message("select " + court_word(m_session));
        return std::nullopt;
    }
    if (*cid <= 0)
        return std::nullopt;
    m_session.tournament().run("delete from scheduledays_courts_temp where sdate=? and cid=?", sdate, *cid);
    return row_after_delete(load_courts(sdate).size());
}

std::optional<int> DaysCourtsEditor::delete_from_all_days(std::string_view sdate, std::optional<std::int64_t> cid)
{
    auto& talk = m_session.talk();
    if (sdate.empty()) {
        talk.message("select day");
        return std::nullopt;
    }
    if (!cid) {
        talk.message("select " + court_word(m_session));
        return std::nullopt;
    }
    if (*cid <= 0)
        return std::nullopt;
    m_session.tournament().run("delete from scheduledays_courts_temp where cid=?", *cid);
    return row_after_delete(load_courts(sdate).size());
}

bool DaysCourtsEditor::delete_days(const std::vector<std::string>& selected_days)
{
    if (selected_days.empty()) {
        m_session.talk().message("select days");
        return false;
    }
    auto& db = m_session.tournament();
    Transaction transaction(db);
    for (const auto& sdate : selected_days) {
        db.run("delete from scheduledays_temp where sdate=?", sdate);
        db.run("delete from scheduledays_courts_temp where sdate=?", sdate);
    }
    transaction.commit();
    loaddays();
    return true;
}

std::string DaysCourtsEditor::save()
{
    auto& db = m_session.tournament();
    auto& settings = m_session.settings();
    Transaction transaction(db);
    db.run("delete from scheduledays");
    db.run("delete from scheduledays_courts");
    db.run("insert into scheduledays select * from scheduledays_temp");
    db.run("insert into scheduledays_courts select * from scheduledays_courts_temp");
    db.run("insert into scheduledays(sdate,idx) values('',0)");
    const auto imaxdays = db.scalar_integer("select max(idx) as imaxdays from scheduledays");
    const auto imaxcid = db.scalar_integer("select max(cid) as imaxcid from scheduledays_courts");
    free_all_days_statement(db);
    std::vector<std::string> days;
    for (auto rows = db.query("select sdate from scheduledays where sdate <>'' order by rowid"); rows.step();)
        days.push_back(rows.text(0));
    const auto dates = get_date_end_markers(days);
    settings.set_tournament_cache(db, "itdates", dates);
    transaction.commit();
    settings.set_disk_var("imaxdays", std::to_string(imaxdays));
    settings.set_disk_var("imaxcid", std::to_string(imaxcid));
    // The board empties its court list, reads its days again and marks the draw on show as stale.
    m_session.refresh_lists(Lists::schedule);
    return dates;
}

bool DaysCourtsEditor::save_days_list()
{
    std::vector<std::string> lines { "days" };
    lines.insert(lines.end(), m_days.begin(), m_days.end());
    return save_text_file_as(m_session, "days.txt", m_session.dirs().working, lines).has_value();
}

bool DaysCourtsEditor::save_courts_list(const std::vector<CourtEntry>& courts)
{
    std::vector<std::string> lines { "courts" };
    for (const auto& court : courts)
        lines.push_back(court.text);
    return save_text_file_as(m_session, "courts.txt", m_session.dirs().working, lines).has_value();
}

std::string DaysCourtsEditor::dates_courts_label() const
{
    return "dates/" + m_session.settings().text("app.generic_courts");
}

std::string DaysCourtsEditor::numbers_names_label() const
{
    const auto& court = m_session.settings().text("app.generic_court");
    return court + " numbers/" + court + " names";
}

std::string DaysCourtsEditor::max_courts_label() const
{
    return "max " + m_session.settings().text("app.generic_courts") + " for selected day(s)";
}

} // namespace qv
