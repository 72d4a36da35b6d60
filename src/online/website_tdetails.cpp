#include "online/website_tdetails.h"

#include "core/database.h"
#include "core/time_rules.h"

#include <array>
#include <string_view>

namespace qv {

namespace {

struct Field
{
    std::string_view label;
    std::string_view column;
};

// The labels in their order; the mobile number stands twice, as the details have always shown it.
constexpr std::array<Field, 21> fields { {
    { "Tournament", "tournament" },
    { "Phone", "phone" },
    { "Mobile", "mobile" },
    { "Fax", "fax" },
    { "Email", "email" },
    { "Surface", "surface" },
    { "Currency Code", "currencycode" },
    { "Entriesclose", "entriesclose" },
    { "Withdrawaldeadline", "withdrawaldeadline" },
    { "Officialball", "officialball" },
    { "Address", "address" },
    { "Drawsposted", "drawsposted" },
    { "Prizemoney", "prizemoney" },
    { "Mobile", "mobile" },
    { "director", "director" },
    { "venue", "venue" },
    { "dates", "dates" },
    { "Cheques Payable to", "cpt" },
    { "officialwebsite", "officialwebsite" },
    { "sponsor", "sponsor" },
    { "country", "country" },
} };

} // namespace

std::vector<std::string> tdetails_text_lines(Database& tournament, const std::tm& now)
{
    std::vector<std::string> lines;
    auto row = tournament.query("select * from tournaments order by idx limit 1");
    const bool found = row.step();
    for (const auto& field : fields)
        lines.push_back(std::string(field.label) + "-" + (found ? row.text(field.column) : ""));
    lines.push_back("website timestamp-" + date_time_minutes(now));
    return lines;
}

} // namespace qv
