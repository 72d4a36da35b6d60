#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv {

class Database;

// The amount of a typed or stored number: an optional leading "-", digits and at most one point, blanks around
// it allowed. None for anything else, the empty text included.
std::optional<double> amount_of(std::string_view text);

// An entry's fee as the bill adds it: the empty fee is no fee (0); none when the fee is not a number.
std::optional<double> fee_amount(std::string_view eventfee);

// "currency=" and the tournament's currency code, or "currency not specified".
std::string currency_line(Database& tournament);

} // namespace qv
