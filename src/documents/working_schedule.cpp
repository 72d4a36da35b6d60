#include "documents/working_schedule.h"

#include "core/database.h"
#include "core/match_record.h"
#include "core/text_rules.h"
#include "documents/match_text.h"
#include "scheduling/court_settings.h"

#include <optional>

namespace qv {

namespace {

std::string_view order_of(ScheduleBy by)
{
    switch (by) {
    case ScheduleBy::event:
        return R"(select * from schedule where scheduledate=? and cid <>0 and cid <>-2 and cid <>-4 order by eid,matchnumber)";
    case ScheduleBy::time:
        return R"(select * from schedule where scheduledate=? and cid <>0 and cid <>-2 and cid <>-4 order by matchtime,matchnumber)";
    case ScheduleBy::court:
        break;
    }
    return R"(select * from schedule where scheduledate=? and cid <>0 and cid <>-2 and cid <>-4 order by cid,matchnumber)";
}

std::string state_word(const Statement& row)
{
    return row.text("match_state") == "2.1" ? " (to finish) " : "";
}

// "-" for a live match, "^" for an unfinished one, nothing for the others.
std::string_view state_mark(const Statement& row)
{
    const auto state = row.text("match_state");
    if (state == "2")
        return "-";
    return state == "2.1" ? "^" : "";
}

// The group a row belongs to, in the text of its heading line.
std::string group_of(const Statement& row, ScheduleBy by, const DocumentContext& context, std::string_view sdate)
{
    switch (by) {
    case ScheduleBy::event:
        return row.text("eventname");
    case ScheduleBy::time: {
        const auto time = row.text("matchtime");
        return "time " + (time.empty() ? std::string("none") : time);
    }
    case ScheduleBy::court:
        break;
    }
    return court_heading(context.tournament, sdate, row.integer("cid"), context.court);
}

} // namespace

std::string court_heading(Database& tournament, std::string_view sdate, std::int64_t cid, std::string_view court_word)
{
    const auto details = loadcourtstarttime(tournament, sdate, cid);
    std::string heading = std::string(court_word) + "=" + cid_word(cid);
    if (!details.courtname.empty())
        heading += ",name=" + details.courtname;
    if (!details.starttime.empty())
        heading += ",start=" + details.starttime;
    return heading;
}

std::string get_line(
    const Statement& row, ScheduleBy by, const ScheduleOptions& options, const DocumentContext& context)
{
    const auto players = players_text(row, options.names);
    const auto when = row.text("nbat") + row.text("matchtime");
    const auto result = state_word(row) + score_text(row, options.scores);
    const auto court = "(" + context.court + " " + cid_word(row.integer("cid")) + ")";
    const auto position = position_text(row);
    std::string line = options.match_id ? "[mid=" + std::to_string(row.integer("sid")) + "] " : "";
    switch (by) {
    case ScheduleBy::court:
        line += "(" + position + ") " + players + " " + when + " " + row.text("eventname") + " " + row.text("rname")
            + " " + result + " ";
        break;
    case ScheduleBy::event:
        line += row.text("eventname") + " " + context.match + " " + position + " " + court + " " + players + " " + when
            + " " + row.text("rname") + " " + result + " ";
        break;
    case ScheduleBy::time:
        line += context.match + " " + position + " " + court + " " + players + "  " + result + " "
            + row.text("eventname") + " " + row.text("rname") + " ";
        break;
    }
    return line + bracket(row.text("mg_matchnote"));
}

std::string schedule_line(
    const Statement& row, ScheduleBy by, const ScheduleOptions& options, const DocumentContext& context)
{
    const auto line = get_line(row, by, options, context);
    return options.state_marks ? std::string(state_mark(row)) + line : line;
}

std::optional<std::string> idocs_working_schedule_update_line(
    const DocumentContext& context, ScheduleBy by, const ScheduleOptions& options, std::int64_t sid)
{
    auto row = context.tournament.query("select * from schedule where sid=?", sid);
    if (!row.step())
        return std::nullopt;
    return schedule_line(row, by, options, context);
}

Document FORMAT_schedule_by(
    const DocumentContext& context, ScheduleBy by, std::string_view sdate, const ScheduleOptions& options)
{
    Document document;
    begin_document(document, context, "schedule (" + schedule_by_word(by) + ") for " + std::string(sdate));
    std::optional<std::string> group;
    int shown = 0;
    int courts = 0;
    for (auto row = context.tournament.query(order_of(by), sdate); row.step();) {
        if (!options.states.shows(row.text("match_state")))
            continue;
        ++shown;
        auto heading = group_of(row, by, context, sdate);
        if (heading != group) {
            document.add("");
            document.add(heading);
            group = std::move(heading);
            ++courts;
        }
        document.add(schedule_line(row, by, options, context), row.integer("sid"));
    }
    std::string total = "(total " + std::to_string(shown) + " " + context.match;
    if (by == ScheduleBy::court)
        total += ",total " + context.courts + " " + std::to_string(courts);
    document.add("");
    document.add(total + ")");
    end_document(document, context);
    return document;
}

} // namespace qv
