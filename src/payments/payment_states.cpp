#include "payments/payment_states.h"

#include "core/database.h"

#include <string>

namespace qv {

namespace {

// The four statements in their order. pid_term is empty for every player, or "pid=?" with the pid bound.
template <class... Pid> void run_paid_states(Database& db, const std::string& pid_term, const Pid&... pid)
{
    const std::string and_pid = pid_term.empty() ? "" : " and " + pid_term;
    const std::string where_pid = pid_term.empty() ? "" : " where " + pid_term;
    const std::string places = std::to_string(money_places);
    db.run("update players set paid_state='pif' where player_bill=amount_player_has_paid" + and_pid, pid...);
    db.run("update players set paid_state='ob' where player_bill > amount_player_has_paid" + and_pid, pid...);
    db.run("update players set amount_player_must_pay=round(player_bill-amount_player_has_paid, " + places + ")"
            + where_pid,
        pid...);
    db.run("update players set paid_state='op' where amount_player_must_pay < 0" + and_pid, pid...);
}

} // namespace

void set_paid_states(Database& db)
{
    run_paid_states(db, "");
}

void set_paid_states_pid(Database& db, std::int64_t pid)
{
    run_paid_states(db, "pid=?", pid);
}

} // namespace qv
