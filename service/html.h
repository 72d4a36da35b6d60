#pragma once

#include "protocol.h"

#include <string>
#include <string_view>

namespace qv::service {

// "&", "<", ">" and the double quote as entities, for values that players and directors typed.
std::string html_escape(std::string_view text);

// A director's uploaded text as a page shows it: the client put a backslash before each quote and backslash,
// which go again; its "<br>" marks and any other markup stay, the director wrote them.
std::string unescape_text(std::string_view text);

// A whole page in the plain old style of the tournament's website, headed by the tournament's name and dates.
Reply html_page(Context& c, std::string_view title, std::string_view body);

// The address of another public page of the same account, relative to the service's end point.
std::string page_link(Context& c, std::string_view idx, std::string_view extra = {});

} // namespace qv::service
