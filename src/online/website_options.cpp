#include "online/website_options.h"

#include "core/settings.h"
#include "core/text_rules.h"
#include "core/utf8.h"

namespace qv {

namespace {

// One row of the styles table: the parts in table order, the next round pointer after "alias".
struct Style
{
    std::string_view name;
    std::array<bool, 13> on; // details draws alias pointer schedules playertimes results qv4 enter withdraw
                             // entries players message
};

constexpr std::array<Style, 7> styles { {
    { "select all", { 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 } },
    { "unselect all", { 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 } },
    { "enter/withdraw basic", { 1, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1 } },
    { "tournament website", { 1, 1, 1, 0, 1, 1, 1, 0, 0, 0, 1, 1, 1 } },
    { "accepting other entries", { 0, 1, 1, 0, 1, 1, 1, 0, 0, 0, 0, 0, 0 } },
    { "archive", { 0, 1, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0 } },
    { "qv4", { 1, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0 } },
} };

} // namespace

const std::vector<std::string_view>& website_styles()
{
    static const std::vector<std::string_view> names = [] {
        std::vector<std::string_view> all;
        for (const auto& style : styles)
            all.push_back(style.name);
        return all;
    }();
    return names;
}

bool apply_website_style(WebsiteOptions& options, std::string_view style)
{
    for (const auto& row : styles) {
        if (row.name != style)
            continue;
        auto& p = options.parts;
        bool* targets[] = { &p.details, &p.draws, &p.alias, &options.draws.next_round_pointer, &p.schedules,
            &p.player_times, &p.results, &p.qv4_file, &p.enter, &p.withdraw, &p.entries, &p.players, &p.message };
        for (std::size_t i = 0; i < row.on.size(); ++i)
            *targets[i] = row.on[i];
        return true;
    }
    return false;
}

PairKeys website_pair_keys(WebsitePair pair)
{
    switch (pair) {
    case WebsitePair::entries:
        return { "entries_online", "entries_make" };
    case WebsitePair::players:
        return { "players_online", "players_make" };
    case WebsitePair::alias:
        break;
    }
    return { "alias_page", "alias_pages" };
}

void choose_website_pair(Settings& settings, WebsitePair pair, bool first)
{
    const auto keys = website_pair_keys(pair);
    settings.set_disk_var(first ? keys.first : keys.second, "1");
    settings.set_disk_var(first ? keys.second : keys.first, "0");
}

bool website_setting_on(Settings& settings, std::string_view key)
{
    return trim(settings.get_disk_var(key)) == "1";
}

std::string event_file_part(std::string_view eventname)
{
    return no_blanks_quotes(eventname);
}

std::string day_file_part(std::string_view day_line)
{
    return left_chars(day_line, 10);
}

bool is_unscheduled_day_line(std::string_view day_line)
{
    // The dead mark "¿" stands on every day with a finished match, so only the words tell this line apart.
    return day_line.starts_with("no day");
}

std::string website_qv4_file_name(std::string_view tournament)
{
    auto name = clean_file_name(tournament);
    if (name.empty())
        name = "qv4file";
    return name + ".qv4";
}

} // namespace qv
