#include "scheduling/availability.h"

#include "core/database.h"
#include "core/match_record.h"

namespace qv {

std::vector<std::string> availability_restrictions(Database& tournament, UserTalk& talk, std::int64_t sid)
{
    std::vector<std::string> lines;
    auto lookup = tournament.query(
        "select availabilityrestrictions from players where lower(trim(player)) = lower(trim(?)) limit 1");
    for (const auto& name : match_names(tournament, talk, sid)) {
        lookup.reset();
        lookup.bind_all(name);
        const std::string held = lookup.step() ? lookup.text(0) : std::string();
        lines.push_back(name + ": " + (held.empty() ? std::string("none") : held));
    }
    return lines;
}

} // namespace qv
