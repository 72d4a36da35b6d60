#include "documents/results_documents.h"

#include "core/database.h"
#include "core/utf8.h"
#include "documents/live_days.h"
#include "documents/match_text.h"
#include "documents/working_schedule.h"

#include <optional>

namespace qv {

namespace {

enum class Grouping { event, round, day };

constexpr std::string_view nine_blanks = "         ";

std::string_view results_sql(Grouping grouping, bool any_day)
{
    switch (grouping) {
    case Grouping::round:
        return any_day
            ? R"(select * from schedule where match_state='3' and (scheduledate in (select sdate from livedays)) order by rid,eid,"match")"
            : R"(select * from schedule where match_state='3' order by rid,eid,"match")";
    case Grouping::day:
        return any_day
            ? R"(select * from schedule where match_state='3' and (scheduledate in (select sdate from livedays)) order by day_idx,eid,"match")"
            : R"(select * from schedule where match_state='3' order by day_idx,eid,"match")";
    case Grouping::event:
        break;
    }
    return any_day
        ? R"(select * from schedule where match_state='3' and (scheduledate in (select sdate from livedays)) order by eventname,"match")"
        : R"(select * from schedule where match_state='3' order by eventname,"match")";
}

std::string_view title_of(Grouping grouping)
{
    switch (grouping) {
    case Grouping::round:
        return "results by round";
    case Grouping::day:
        return "results by day";
    case Grouping::event:
        break;
    }
    return "results by event";
}

std::string heading_of(const Statement& row, Grouping grouping)
{
    switch (grouping) {
    case Grouping::round:
        return row.text("rname") + " " + row.text("eventname");
    case Grouping::day:
        return row.integer("day_idx") == 0 ? std::string("unscheduled") : row.text("scheduledate");
    case Grouping::event:
        break;
    }
    return row.text("eventname");
}

// The winner " def " the loser, nine blanks, the score and the round; the event too where it is not the group.
std::string result_line(const Statement& row, const ResultsOptions& options, bool with_event)
{
    const bool top = top_won(row);
    std::string line = side_text(row, top ? "mt" : "mb", options.names) + " def "
        + side_text(row, top ? "mb" : "mt", options.names) + std::string(nine_blanks) + score_text(row, options.scores)
        + " " + row.text("rname");
    if (with_event)
        line += " " + row.text("eventname");
    return line;
}

Document grouped_results(const DocumentContext& context, const ResultsOptions& options, Grouping grouping)
{
    auto& db = context.tournament;
    Document document;
    begin_document(document, context, std::string(title_of(grouping)));
    document.add(live_days_line(db));
    const bool any_day = db.scalar_integer("select count(*) from livedays") > 0;
    std::optional<std::string> group;
    int count = 0;
    for (auto row = db.query(results_sql(grouping, any_day)); row.step();) {
        auto heading = heading_of(row, grouping);
        if (heading != group) {
            document.add("");
            document.add(heading);
            group = std::move(heading);
        }
        document.add(result_line(row, options, grouping == Grouping::day), row.integer("sid"));
        ++count;
    }
    document.add("");
    document.add("(total " + std::to_string(count) + ")");
    end_document(document, context);
    return document;
}

void results_of_day(
    const DocumentContext& context, const ResultsOptions& options, const std::string& sdate, Document& document)
{
    document.add(std::string(40, '-'));
    document.add("results by schedule for " + sdate);
    std::optional<std::int64_t> court;
    int count = 0;
    for (auto row = context.tournament.query(
             "select * from schedule where scheduledate=? and  match_state='3' and cid <>-4 order by cid,matchnumber",
             sdate);
         row.step();) {
        const auto cid = row.integer("cid");
        if (cid != court)
            document.add(court_heading(context.tournament, sdate, cid, context.court));
        court = cid;
        document.add(get_line_results(row, options), row.integer("sid"));
        ++count;
    }
    document.add("(total " + std::to_string(count) + ")");
}

} // namespace

Document VIP_text_results(const DocumentContext& context, const ResultsOptions& options)
{
    return grouped_results(context, options, Grouping::event);
}

Document VIP_text_results_by_round(const DocumentContext& context, const ResultsOptions& options)
{
    return grouped_results(context, options, Grouping::round);
}

Document VIP_text_results_groupbyday(const DocumentContext& context, const ResultsOptions& options)
{
    return grouped_results(context, options, Grouping::day);
}

std::string get_line_results(const Statement& row, const ResultsOptions& options)
{
    return players_text(row, options.names) + std::string(nine_blanks) + score_text(row, options.scores) + " "
        + row.text("rname") + " " + row.text("eventname");
}

Document VIP_text_resultsbyschedule(const DocumentContext& context, const ResultsOptions& options)
{
    auto& db = context.tournament;
    Document document;
    begin_document(document, context, "results (by schedule)");
    for (auto day
         = db.query(R"(select livedays.sdate from livedays join scheduledays on scheduledays.sdate=livedays.sdate
             where livedays.sdate <>'' and instr(scheduledays.ind, '¿') > 0 order by livedays.rowid)");
         day.step();)
        results_of_day(context, options, day.text(0), document);
    end_document(document, context);
    return document;
}

Document results_document(const DocumentContext& context, ResultsStyle style, const ResultsOptions& options)
{
    switch (style) {
    case ResultsStyle::by_schedule:
        return VIP_text_resultsbyschedule(context, options);
    case ResultsStyle::by_day:
        return VIP_text_results_groupbyday(context, options);
    case ResultsStyle::by_round:
        return VIP_text_results_by_round(context, options);
    case ResultsStyle::by_event:
        break;
    }
    return VIP_text_results(context, options);
}

Document VIP_players_results(const DocumentContext& context, std::string_view player, const ResultsOptions& options)
{
    Document document;
    begin_document(document, context, "results for " + std::string(player));
    const auto key = lcase(trim(player));
    std::optional<std::string> kind;
    for (auto row = context.tournament.query(R"(select * from schedule where ((lower(trim(p1))=?1 or lower(trim(p2))=?1
             or lower(trim(p3))=?1 or lower(trim(p4))=?1)) and match_state='3' order by eid,rid,"match",singdobs desc)",
             key);
         row.step();) {
        const auto singdobs = row.text("singdobs");
        if (singdobs != kind) {
            document.add("");
            document.add(singdobs);
            kind = singdobs;
        }
        const bool on_top = lcase(trim(row.text("p1"))) == key || lcase(trim(row.text("p2"))) == key;
        const bool won = top_won(row) == on_top;
        document.add(side_text(row, on_top ? "mt" : "mb", options.names) + (won ? " def " : " lost to ")
                + side_text(row, on_top ? "mb" : "mt", options.names) + std::string(nine_blanks)
                + score_text(row, options.scores) + " " + row.text("rname") + " " + row.text("eventname"),
            row.integer("sid"));
    }
    end_document(document, context);
    return document;
}

} // namespace qv
