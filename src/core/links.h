#pragma once

#include <string>
#include <vector>

namespace qv {

struct Link
{
    std::string name;
    std::string address;
};

// The public online pages of the tournament: the server's address, the page's query and the account's id.
std::vector<Link> tournament_links(const std::string& servlet, const std::string& custid);

} // namespace qv
