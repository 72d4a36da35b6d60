#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Database;
class Settings;

// One person's line of the payments list.
struct PaymentLine
{
    std::int64_t pid = 0;
    double bill = 0;
    double paid = 0;
    double mustpay = 0;
    std::string state;
    std::string player;
};

// The sort orders of the list, in the order of its sort list (payments.sort2).
enum class PaymentsSort { bill, paid, mustpay, player };
inline constexpr const char* payments_sort_captions[]
    = { "sort by bill", "sort by paid", "sort by mustpay", "sort by player" };

// What the list shows: the three ticks of states, the order and its direction.
struct PaymentsView
{
    bool pif = true;
    bool ob = true;
    bool neg = true;
    PaymentsSort sort = PaymentsSort::player;
    bool descending = false;

    // payments.pif, payments.ob, payments.neg, payments.sort2 and payments.sort1.
    static PaymentsView from_settings(Settings& settings);
    bool shows(const std::string& state) const;
};

struct PaymentTotals
{
    double bill = 0; // "total bill="
    double paid = 0; // "total paid by players="
    double mustpay = 0; // "total players must pay="
};

struct PaymentsList
{
    std::vector<PaymentLine> lines;
    PaymentTotals totals;
};

// The players with a bill, in the chosen order. A player whose bill is 0 is left out, even one who has paid.
std::string get_sql(PaymentsSort sort, bool descending);

// The lines whose state is ticked and their totals.
PaymentsList loadpayments(Database& db, const PaymentsView& view);
PaymentTotals totals_of(const std::vector<PaymentLine>& lines);

// One person's line as it stands now, to rewrite that line alone; none when the row has gone.
std::optional<PaymentLine> payment_line(Database& db, std::int64_t pid);

// The heading and the columns of a line as the list and the payments file show them.
inline constexpr const char* payments_heading[] = { "bill", "paid", "mustpay", "state", "player" };
std::vector<std::string> line_fields(const PaymentLine& line);

} // namespace qv
