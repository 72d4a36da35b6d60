#pragma once

#include "support/session_fixture.h"

namespace qv::test {

// Three events: mens singles (fee 20, drawn), mixed doubles (15 per player, drawn) and womens singles (12.5, not
// drawn); six people, one of them a reserve; the draws' matches in the schedule; the currency EUR.
inline void fill_payments_tournament(Database& db)
{
    db.exec_script(R"(
        insert into events (eid, eventname, fee, singdobs, sex, drawdone) values
            (1, 'mens singles', '20', 'singles', 'male', 1),
            (2, 'mixed doubles', '15', 'doubles', 'mixed', 1),
            (3, 'womens singles', '12.5', 'singles', 'female', 0);
        insert into players (pid, player, fname, sname) values
            (1, 'al west', 'Al', 'West'), (2, 'bo dee', 'Bo', 'Dee'), (3, 'cy fox', 'Cy', 'Fox'),
            (4, 'di lane', 'Di', 'Lane'), (5, 'ed ray', 'Ed', 'Ray'), (6, 'zoé ray', 'Zoé', 'Ray');
        insert into evententries (ent_idx, eid, en, sd, player, playerfname, playersname, reserve) values
            (1, 1, 'mens singles', 'singles', 'al west', 'Al', 'West', 0),
            (2, 1, 'mens singles', 'singles', 'bo dee', 'Bo', 'Dee', 0),
            (3, 1, 'mens singles', 'singles', 'ed ray', 'Ed', 'Ray', 1),
            (4, 1, 'mens singles', 'singles', 'zoé ray', 'Zoé', 'Ray', 0),
            (6, 3, 'womens singles', 'singles', 'cy fox', 'Cy', 'Fox', 0),
            (7, 3, 'womens singles', 'singles', 'di lane', 'Di', 'Lane', 0);
        insert into evententries (ent_idx, eid, en, sd, player, playerfname, playersname, p1name, partner,
            partnerfname, partnersname, reserve) values
            (5, 2, 'mixed doubles', 'doubles', 'al west/cy fox', 'Al', 'West', 'al west', 'cy fox', 'Cy', 'Fox', 0);
        insert into schedule (sid, eid, mtttt, mbttt) values
            (1, 1, 'al west', 'bo dee'), (2, 1, 'zoé ray', 'bye'), (3, 2, 'al west/cy fox', 'bye');
        update tournament set currencycode='EUR' where idx=1;
    )");
}

// A session on the tournament above.
class PaymentsFixture : public SessionFixture
{
protected:
    void SetUp() override
    {
        open_new_tournament();
        fill_payments_tournament(db());
    }

    double amount(const char* column, std::int64_t pid)
    {
        auto row = db().query("select * from players where pid=?", pid);
        EXPECT_TRUE(row.step());
        return row.real(column);
    }
    double bill(std::int64_t pid) { return amount("player_bill", pid); }
    double paid(std::int64_t pid) { return amount("amount_player_has_paid", pid); }
    double mustpay(std::int64_t pid) { return amount("amount_player_must_pay", pid); }
    std::string state(std::int64_t pid) { return db().scalar_text("select paid_state from players where pid=?", pid); }
    std::int64_t numevents(std::int64_t pid)
    {
        return db().scalar_integer("select numevents from players where pid=?", pid);
    }
};

} // namespace qv::test
