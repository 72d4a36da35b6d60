#include "scheduling/court_settings.h"

#include "core/session.h"

namespace qv {

std::vector<std::string> start_time_scopes(std::string_view court_word, std::string_view courts_word)
{
    const std::string court(court_word);
    const std::string courts(courts_word);
    return { "apply to this day,this " + court + " only", "apply to all " + courts + " on all days",
        "apply to all " + courts + " on this day", "apply to this " + court + " number on all days" };
}

bool setcourt_nm_st(
    Session& session, std::string_view sdate, std::int64_t cid, const TimeChoice& choice, StartTimeScope scope)
{
    if (!check_time_choice(session.talk(), choice))
        return false;
    const auto value = choice.value();
    auto& db = session.tournament();
    switch (scope) {
    case StartTimeScope::this_court_this_day:
        db.run("update scheduledays_courts  set starttime=? where sdate=? and cid=?", value, sdate, cid);
        break;
    case StartTimeScope::all_courts_all_days:
        db.run("update scheduledays_courts  set starttime=?", value);
        break;
    case StartTimeScope::all_courts_this_day:
        db.run("update scheduledays_courts  set starttime=? where sdate=?", value, sdate);
        break;
    case StartTimeScope::this_court_all_days:
        db.run("update scheduledays_courts  set starttime=? where cid=?", value, cid);
        break;
    }
    return true;
}

std::string court_name_heading(std::int64_t cid, std::string_view court_word)
{
    switch (cid) {
    case -1:
        return "first available";
    case -3:
        return "to be confirmed";
    case -4:
        return "day clipboard";
    default:
        return std::string(court_word) + " number " + std::to_string(cid);
    }
}

std::string court_name_all_days_caption(std::string_view court_word)
{
    return "apply to this " + std::string(court_word) + " number on all days";
}

void set_court_name(Session& session, std::string_view sdate, std::int64_t cid, std::string_view name, bool all_days)
{
    auto& db = session.tournament();
    if (all_days)
        db.run("update scheduledays_courts set courtname=? where  cid=?", name, cid);
    else
        db.run("update scheduledays_courts set courtname=? where sdate=? and cid=?", name, sdate, cid);
}

CourtDetails loadcourtstarttime(Session& session, std::string_view sdate, std::int64_t cid)
{
    return loadcourtstarttime(session.tournament(), sdate, cid);
}

CourtDetails loadcourtstarttime(Database& tournament, std::string_view sdate, std::int64_t cid)
{
    auto row
        = tournament.query("select starttime, courtname from scheduledays_courts where sdate=? and cid=?", sdate, cid);
    if (!row.step())
        return {};
    return { row.text(0), row.text(1) };
}

} // namespace qv
