#pragma once

#include "online/website_html.h"
#include "online/website_options.h"

#include <string>

namespace qv {

// What the index pages tell beside the options: the tournament, and the service's public pages of the
// account (server and custid), the sequence for the message frame.
struct IndexFacts
{
    std::string tournament;
    std::string dates;
    std::string server;
    std::string custid;
    std::string sequence;
    bool entries_online = false; // the settings pairs as they stand
    bool entries_make = false;
    bool players_online = false;
    bool players_make = false;
};

// The address of one of the service's public pages: the server, "?idx=", the page and "&custid=" the account.
std::string public_page_address(const IndexFacts& facts, std::string_view idx);

// VIP_make_index_left, for "leftindex.htm" (the left frame) or "index.htm" (the plain index).
enum class IndexKind { left_frame, plain };
PageLines index_left_page(const WebsiteParts& parts, const IndexFacts& facts, IndexKind kind);

// VIP_make_framed_index: the frames of the framed index.
PageLines framed_index_page(const IndexFacts& facts);

// VIP_make_index_top: the banner frame with the tournament's name and dates.
PageLines index_top_page(const IndexFacts& facts);

} // namespace qv
