#include "core/links.h"

#include <array>
#include <string_view>

namespace qv {

std::vector<Link> tournament_links(const std::string& servlet, const std::string& custid)
{
    struct Page
    {
        std::string_view name;
        std::string_view idx;
    };
    static constexpr std::array<Page, 8> pages { {
        { "entries", "entries" },
        { "enterpage", "enter1_enterpage" },
        { "withdrawpage", "withdraw1_login_page" },
        { "players", "players" },
        { "entry instructions", "get_entryinstructions" },
        { "tournament details", "get_tdetails" },
        { "message to players", "get_messagetoplayers" },
        { "links", "links" },
    } };
    std::vector<Link> links;
    for (const auto& page : pages)
        links.push_back({ std::string(page.name), servlet + "?idx=" + std::string(page.idx) + "&custid=" + custid });
    return links;
}

} // namespace qv
