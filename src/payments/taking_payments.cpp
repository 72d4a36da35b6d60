#include "payments/taking_payments.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "payments/money.h"
#include "payments/payment_states.h"

#include <optional>
#include <string>

namespace qv {

namespace {

constexpr const char* select_account = "select player account";

// Runs the statement for each selected pid and sets each one's state, as one unit of work.
bool set_each(Session& session, const std::vector<std::int64_t>& selected, const std::string& sql)
{
    if (selected.empty()) {
        session.talk().message(select_account);
        return false;
    }
    auto& db = session.tournament();
    Transaction transaction(db);
    for (auto pid : selected) {
        db.run(sql, pid);
        set_paid_states_pid(db, pid);
    }
    transaction.commit();
    return true;
}

// What the person will have paid with the amount added; none when the row has gone.
std::optional<double> paid_after(Database& db, std::int64_t pid, double amount)
{
    auto row = db.query("select round(amount_player_has_paid + ?, " + std::to_string(money_places)
            + ") as after from players where pid=?",
        amount, pid);
    if (!row.step())
        return std::nullopt;
    return row.real("after");
}

} // namespace

bool take_payment(Session& session, const std::vector<std::int64_t>& selected, std::string_view amount)
{
    auto& talk = session.talk();
    if (selected.size() != 1) {
        talk.message(select_account);
        return false;
    }
    const auto typed = trim(amount);
    if (!report(talk, value_required(typed)) || !report(talk, check_signed_double(typed)))
        return false;
    const double value = amount_of(typed).value_or(0);
    const auto pid = selected.front();

    auto& db = session.tournament();
    Transaction transaction(db);
    const auto after = paid_after(db, pid, value);
    if (!after) {
        talk.message(select_account);
        return false;
    }
    if (value < 0 && *after < 0) {
        talk.message("cannot have less than zero amount paid?");
        return false;
    }
    db.run("update players set amount_player_has_paid=round(amount_player_has_paid + ?, " + std::to_string(money_places)
            + ") where pid=?",
        value, pid);
    set_paid_states_pid(db, pid);
    transaction.commit();
    return true;
}

bool set_paid_in_full(Session& session, const std::vector<std::int64_t>& selected)
{
    return set_each(session, selected,
        "update players set amount_player_has_paid=player_bill,amount_player_must_pay=0 where pid=?");
}

bool set_nothing_paid(Session& session, const std::vector<std::int64_t>& selected)
{
    return set_each(session, selected,
        "update players set amount_player_has_paid=0,amount_player_must_pay=player_bill where pid=?");
}

} // namespace qv
