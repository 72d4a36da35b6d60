#include "documents/player_times.h"

#include "core/database.h"
#include "core/match_record.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "documents/live_days.h"

#include <array>
#include <optional>

namespace qv {

namespace {

constexpr std::array<std::string_view, 4> people { "p1", "p2", "p3", "p4" };

bool kept_by_time(const Statement& row, ExplicitTime xtime)
{
    const bool timed = !row.text("nbat").empty();
    switch (xtime) {
    case ExplicitTime::explicit_time:
        return timed;
    case ExplicitTime::no_explicit_time:
        return !timed;
    case ExplicitTime::either:
        break;
    }
    return true;
}

std::string mark_of(std::string_view match_state)
{
    if (match_state == "2.1")
        return "(unf)";
    if (match_state == "3")
        return "(*)";
    return "";
}

// The parts joined by single blanks, the empty ones left out.
std::string joined(std::initializer_list<std::string> parts)
{
    std::string text;
    for (const auto& part : parts)
        if (!part.empty())
            text += (text.empty() ? "" : " ") + part;
    return text;
}

std::string_view insert_sql(PlayerTimesTable table)
{
    return table == PlayerTimesTable::website
        ? R"(insert into player_times_website (player, eventname, details, location, rname, scheduledate, context,
             sid) values (?, ?, ?, ?, ?, ?, ?, ?))"
        : R"(insert into player_times_idocs (player, eventname, details, location, rname, scheduledate, context,
             sid) values (?, ?, ?, ?, ?, ?, ?, ?))";
}

std::string_view rows_sql(PlayerTimesTable table)
{
    return table == PlayerTimesTable::website ? "Select * from player_times_website order by player, rowid"
                                              : "Select * from player_times_idocs order by player, rowid";
}

void add_rows(Document& document, Statement rows)
{
    std::optional<std::string> player;
    while (rows.step()) {
        auto name = rows.text("player");
        if (player && lcase(*player) != lcase(name))
            document.add("");
        document.add(name + " " + rows.text("eventname") + " " + rows.text("details"), rows.integer("sid"));
        player = std::move(name);
    }
}

} // namespace

std::string player_times_location(const Statement& row, const DocumentContext& context)
{
    const auto nbat = row.text("nbat");
    const auto time = row.text("matchtime");
    if (!nbat.empty() || !time.empty())
        return nbat + time;
    const auto live = row.integer("matchnumber_live");
    const auto position = live != 0 ? live : -row.integer("matchnumber");
    return context.m + std::to_string(position) + context.c + cid_paren_word(row.integer("cid"));
}

void VIP_compile_player_times(const DocumentContext& context, const PlayerTimesOptions& options, PlayerTimesTable table)
{
    auto& db = context.tournament;
    // One write of the scratch rows rather than one for each.
    Transaction transaction(db);
    db.run(table == PlayerTimesTable::website ? "Delete from player_times_website" : "Delete from player_times_idocs");
    auto insert = db.query(insert_sql(table));
    for (auto row = db.query(R"(select * from schedule where  scheduledate in (select sdate from livedays)
             and (cid <> 0) and (cid <> -2) and (cid <> -4) and match_state <>'0' order by day_idx, matchtime_int, cid, matchnumber)");
         row.step();) {
        const auto state = row.text("match_state");
        if (!options.states.shows(state) || !kept_by_time(row, options.xtime))
            continue;
        const auto location = player_times_location(row, context);
        const auto context_text = options.match_context
            ? "(" + std::string(9, ' ') + row.text("mtttt") + " vs " + row.text("mbttt") + ")"
            : std::string();
        const auto details
            = joined({ mark_of(state), location, row.text("rname"), row.text("scheduledate"), context_text });
        for (auto column : people) {
            const auto person = trim(row.text(column));
            if (person.empty() || is_reserved(person))
                continue;
            insert.bind_all(person, row.text("eventname"), details, location, row.text("rname"),
                row.text("scheduledate"), context_text, row.integer("sid"));
            insert.step();
            insert.reset();
        }
    }
    transaction.commit();
}

void VIP_compile_player_times_idocs(const DocumentContext& context, const PlayerTimesOptions& options)
{
    VIP_compile_player_times(context, options, PlayerTimesTable::idocs);
}

void VIP_compile_player_times_website(const DocumentContext& context, const PlayerTimesOptions& options)
{
    VIP_compile_player_times(context, options, PlayerTimesTable::website);
}

std::string player_times_legend(const DocumentContext& context)
{
    return context.court + "=" + context.c + "(1st)," + context.match + "=" + context.m + "(2nd),fa=first available "
        + context.court + ",tbc=" + context.court + " to be confirmed,(unf)= unfinished " + context.match + ",(*)=dead "
        + context.match;
}

Document VIP_text_player_times(const DocumentContext& context, PlayerTimesTable table)
{
    auto& db = context.tournament;
    Document document;
    begin_document(document, context, "playertimes");
    document.add(live_days_line(db));
    document.add(player_times_legend(context));
    document.add("");
    add_rows(document, db.query(rows_sql(table)));
    const auto count = db.row_count(table == PlayerTimesTable::website ? "player_times_website" : "player_times_idocs");
    document.add("");
    document.add(std::to_string(count) + " player times");
    end_document(document, context);
    return document;
}

Document VIP_text_player_times_idocs(const DocumentContext& context)
{
    return VIP_text_player_times(context, PlayerTimesTable::idocs);
}

Document VIP_text_player_times_website(const DocumentContext& context)
{
    return VIP_text_player_times(context, PlayerTimesTable::website);
}

Document VIP_text_player_times_idocs_pn(const DocumentContext& context, std::string_view player)
{
    Document document;
    begin_document(document, context, "times for " + std::string(player));
    document.add(player_times_legend(context));
    document.add("");
    add_rows(document,
        context.tournament.query(
            "Select * from player_times_idocs where lower(trim(player))=? order by rowid", lcase(trim(player))));
    end_document(document, context);
    return document;
}

Document player_search_times(const DocumentContext& context, std::string_view player)
{
    Document document;
    begin_document(document, context, "times for " + std::string(player));
    document.add(player_times_legend(context));
    document.add("");
    for (auto row = context.tournament.query(R"(select * from schedule where (match_state='2' or match_state='2.1')
             and ( lower(trim(p1))=?1 or lower(trim(p2))=?1 or lower(trim(p3))=?1 or lower(trim(p4))=?1)
             and (cid <> 0) and (cid <> -2) order by scheduledate, day_idx, cid, matchnumber)",
             lcase(trim(player)));
         row.step();)
        document.add(joined({ std::string(player), row.text("eventname"), mark_of(row.text("match_state")),
                         player_times_location(row, context), row.text("rname"), row.text("scheduledate") }),
            row.integer("sid"));
    end_document(document, context);
    return document;
}

} // namespace qv
