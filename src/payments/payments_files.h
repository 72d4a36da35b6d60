#pragma once

#include "payments/payments_list.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// The three totals of a list as the window and the files show them.
std::vector<std::string> totals_lines(const PaymentTotals& totals);

// The list as text: the heading, one line a person with the columns joined by tabs, the totals, the currency.
std::vector<std::string> payments_list_lines(const PaymentsList& list, const std::string& currency);

// Saves the list to a file the user chooses, "payments.txt" by default.
std::optional<std::filesystem::path> save_payments_list(Session& session, const PaymentsList& list);

// "make payments file": the details of every person of the draws, to "payments_detailed.txt" by default.
std::optional<std::filesystem::path> make_payments_file(Session& session, int option);

} // namespace qv
