#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

class Database;

// Money is kept to this many decimal places, so that fees and payments that add up to the same amount compare
// equal ("pif") however the binary fractions of their parts fall.
inline constexpr int money_places = 6;

// The states of players.paid_state and their labels: "pif" paid in full, "ob" outstanding balance, "op" over paid.
inline constexpr std::string_view paid_in_full = "pif";
inline constexpr std::string_view outstanding_balance = "ob";
inline constexpr std::string_view over_paid = "op";

// Sets the states of every player from the bill and the amount paid, and the amount that must still be paid.
// "op" is decided last, on the amount that must be paid, so it overrides what the first two statements set.
void set_paid_states(Database& db);
// The same for the rows of one pid.
void set_paid_states_pid(Database& db, std::int64_t pid);

} // namespace qv
