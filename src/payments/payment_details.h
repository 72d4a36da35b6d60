#pragma once

#include "payments/payments_list.h"

#include <string>
#include <vector>

namespace qv {

class Database;

// One entry of a person as the details show it, and whether it adds to the bill under the criterion.
struct DetailEntry
{
    std::int64_t eid = 0;
    std::string en;
    std::string eventfee;
    bool contributes = false;
};

// The entries of a person: those whose entry name, first person or partner is the person.
std::vector<DetailEntry> person_entries(Database& db, const std::string& player, int option);

// The details of one person (`load_data`): "payment state for: " and the name, one line per entry ("<" after
// the entries that add to the bill), the counts, the amounts and the criterion's text.
std::vector<std::string> load_data(const PaymentLine& person, const std::vector<DetailEntry>& entries, int option);

// The details of every person of the draws, found in the entries by any part of an entry's name, so that a
// person is found in the names of pairs too; the currency line first.
std::vector<std::string> payments_detailed_lines(Database& db, int option);

} // namespace qv
