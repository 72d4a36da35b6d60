#include "qv5_text.h"

#include "protocol.h"

#include <array>

namespace qv::service {

namespace {

std::optional<OnlineEvent> parse_event(std::string_view record)
{
    auto fields = split(record, ',');
    if (!fields.empty() && fields.back().empty())
        fields.pop_back();
    if (fields.size() < 6 || !is_whole_number(fields[0]))
        return std::nullopt;
    const std::size_t n = fields.size();
    OnlineEvent event;
    event.eid = std::stol(fields[0]);
    for (std::size_t i = 1; i < n - 4; ++i)
        event.eventname += (i > 1 ? "," : "") + fields[i];
    event.sex = fields[n - 4];
    event.pte = fields[n - 3];
    event.fee = fields[n - 2];
    event.singdobs = fields[n - 1];
    return event;
}

// The player's columns in the order of the entries file's player record, after its stamp and zone word.
constexpr std::array<std::string_view, 23> player_columns { "pid", "fname", "sname", "email", "password", "dob", "sex",
    "address1", "address2", "city", "state", "postcode", "country", "phone", "mobile", "rating", "ranking", "results",
    "club", "availabilityrestrictions", "tsd", "message", "pval" };

} // namespace

std::optional<std::vector<OnlineEvent>> parse_events_text(std::string_view text)
{
    std::vector<OnlineEvent> events;
    for (const auto& record : split(text, '^')) {
        if (record.empty())
            continue;
        auto event = parse_event(record);
        if (!event)
            return std::nullopt;
        events.push_back(std::move(*event));
    }
    return events;
}

std::string qv5_text(Store& store, std::string_view custid)
{
    auto& db = store.db();
    std::string text = db.scalar_text("select tournament from tournaments where custid=?", custid) + "^%^\r\n";

    auto events = db.query("select * from events where custid=? order by eid", custid);
    while (events.step()) {
        for (auto column : { "eid", "eventname", "sex", "pte", "fee", "singdobs" })
            text += events.text(column) + "^";
        text += "'^\r\n";
    }

    auto players = db.query("select * from players where custid=? order by pid", custid);
    while (players.step()) {
        text += players.text("timestamp") + "^est^";
        for (auto column : player_columns)
            text += players.text(column) + "^";
        text += "/^\r\n";
    }

    auto entries = db.query("select * from entries where custid=? order by eid, pid", custid);
    while (entries.step()) {
        for (auto column : { "pid", "eid", "partnerfname", "partnersname", "p2sex" })
            text += entries.text(column) + "^";
        text += "\\^\r\n";
    }
    return text;
}

} // namespace qv::service
