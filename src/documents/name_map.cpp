#include "documents/name_map.h"

#include "core/database.h"
#include "core/text_rules.h"
#include "core/utf8.h"

#include <set>

namespace qv {

namespace {

// Names the draw made itself, by their first characters.
bool drawn_name(std::string_view name)
{
    const auto key = lcase(trim(name));
    return key.empty() || key.starts_with("bye") || key.starts_with("wildcard") || key.starts_with("qualifier");
}

std::string_view rows_sql(bool one_event)
{
    return one_event ? R"(Select * from schedule where  eid=? and rname <>'winner' order by eventname,"match",rid)"
                     : R"(Select * from schedule where rname <>'winner' order by eventname,"match",rid)";
}

} // namespace

std::vector<NameMapChoice> name_map_choices(Database& tournament)
{
    std::vector<NameMapChoice> choices { { std::nullopt, "all draws" } };
    for (auto row = tournament.query("select eid, eventname from events where drawdone=true order by eid"); row.step();)
        choices.push_back({ row.integer(0), "(" + std::to_string(row.integer(0)) + ")" + row.text(1) });
    return choices;
}

Document name_map(const DocumentContext& context, std::optional<std::int64_t> eid)
{
    Document document;
    begin_document(document, context, "alias(full name,first round name,sub-round name)");
    auto rows = eid ? context.tournament.query(rows_sql(true), *eid) : context.tournament.query(rows_sql(false));
    std::optional<std::int64_t> event;
    std::set<std::string> named; // a round robin names each of its players once
    while (rows.step()) {
        const auto this_event = rows.integer("eid");
        if (this_event != event) {
            document.add("");
            document.add(rows.text("eventname"));
            event = this_event;
            named.clear();
        }
        const bool rr = lcase(trim(rows.text("drawtype"))) == "rr";
        if (!rr && rows.integer("rid") != 1)
            continue;
        for (const char* side : { "mt", "mb" }) {
            const std::string s(side);
            const auto full = rows.text(s + "ttt");
            if (drawn_name(full) || (rr && !named.insert(lcase(trim(full))).second))
                continue;
            document.add(full + "=" + rows.text(s + "frn") + "=" + rows.text(s + "tag"));
        }
    }
    end_document(document, context);
    return document;
}

} // namespace qv
