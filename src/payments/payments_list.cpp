#include "payments/payments_list.h"

#include "core/database.h"
#include "core/number_text.h"
#include "core/settings.h"
#include "payments/payment_states.h"

namespace qv {

namespace {

PaymentLine read_line(const Statement& row)
{
    return { row.integer("pid"), row.real("player_bill"), row.real("amount_player_has_paid"),
        row.real("amount_player_must_pay"), row.text("paid_state"), row.text("player") };
}

} // namespace

PaymentsView PaymentsView::from_settings(Settings& settings)
{
    PaymentsView view;
    view.pif = settings.integer("payments.pif") == 1;
    view.ob = settings.integer("payments.ob") == 1;
    view.neg = settings.integer("payments.neg") == 1;
    const int sort = settings.integer("payments.sort2");
    view.sort = sort >= 0 && sort <= 3 ? static_cast<PaymentsSort>(sort) : PaymentsSort::player;
    view.descending = settings.integer("payments.sort1") == 1;
    return view;
}

bool PaymentsView::shows(const std::string& state) const
{
    return (pif && state == paid_in_full) || (ob && state == outstanding_balance) || (neg && state == over_paid);
}

std::string get_sql(PaymentsSort sort, bool descending)
{
    static constexpr const char* orders[] = { "order by player_bill", "order by amount_player_has_paid",
        "order by amount_player_must_pay", "order by player" };
    // The pid keeps equal amounts in one order from one load to the next.
    return std::string("select * from players where player_bill <> 0 ") + orders[static_cast<int>(sort)]
        + (descending ? " desc" : " asc") + ", pid";
}

PaymentsList loadpayments(Database& db, const PaymentsView& view)
{
    PaymentsList list;
    auto rows = db.query(get_sql(view.sort, view.descending));
    while (rows.step()) {
        auto line = read_line(rows);
        if (view.shows(line.state))
            list.lines.push_back(std::move(line));
    }
    list.totals = totals_of(list.lines);
    return list;
}

PaymentTotals totals_of(const std::vector<PaymentLine>& lines)
{
    PaymentTotals totals;
    for (const auto& line : lines) {
        totals.bill += line.bill;
        totals.paid += line.paid;
        totals.mustpay += line.mustpay;
    }
    return totals;
}

std::optional<PaymentLine> payment_line(Database& db, std::int64_t pid)
{
    auto row = db.query("select * from players where pid=?", pid);
    if (!row.step())
        return std::nullopt;
    return read_line(row);
}

std::vector<std::string> line_fields(const PaymentLine& line)
{
    return { number_text(line.bill), number_text(line.paid), number_text(line.mustpay), line.state, line.player };
}

} // namespace qv
