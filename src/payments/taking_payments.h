#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// Adds the typed amount ("add/subtract (+/-)", a signed number) to what the one selected person has paid and
// sets the person's state. Refused, with nothing changed: no person or more than one ("select player account"),
// an amount that is no signed number, a subtraction below nothing paid. True when the payment was recorded.
bool take_payment(Session& session, const std::vector<std::int64_t>& selected, std::string_view amount);

// "pif": each selected person has paid the bill in full. "snp": each selected person has paid nothing.
// False, with "select player account", when no one is selected.
bool set_paid_in_full(Session& session, const std::vector<std::int64_t>& selected);
bool set_nothing_paid(Session& session, const std::vector<std::int64_t>& selected);

} // namespace qv
