#include "payments/compile.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "payments/money.h"
#include "payments/payment_states.h"

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

namespace qv {

namespace {

constexpr std::array<CompileCriterion, 3> criteria { {
    { 1, "in draw (draw done)", "where reserve=false and drawdone=true" },
    { 2, "is a player (non-reserve,draw not done/draw done)", "where reserve=false" },
    { 3, "is entered into the event", "" },
} };

// The running label would cost more than the billing if it were painted for every entry.
constexpr std::size_t progress_step = 100;

struct Billed
{
    std::int64_t numevents = 0;
    double bill = 0;
};

// Step 2: every entry takes its event's present fee and draw flag.
void copy_event_fees(Database& db)
{
    auto events = db.query("select eid, fee, drawdone from events");
    auto update = db.query("update evententries set eventfee=?, drawdone=? where eid=?");
    while (events.step()) {
        update.bind_all(events.text("fee"), events.integer("drawdone"), events.integer("eid"));
        update.step();
        update.reset();
    }
}

// The register by name form; a name held by several rows bills each of them, as an update by name would.
std::unordered_map<std::string, std::vector<std::int64_t>> players_by_name(Database& db)
{
    std::unordered_map<std::string, std::vector<std::int64_t>> rows;
    auto players = db.query("select rowid, player from players");
    while (players.step())
        rows[name_key(players.text("player"))].push_back(players.integer("rowid"));
    return rows;
}

// The first and second name joined by a blank; an entry written without them (an older file) has its key name.
std::string person_name(const Statement& entry, const char* first, const char* second, const char* key)
{
    const auto name = trim(entry.text(first) + " " + entry.text(second));
    return name.empty() ? entry.text(key) : name;
}

std::vector<std::string> people_of(const Statement& entry)
{
    if (lcase(trim(entry.text("sd"))) == "doubles")
        return { person_name(entry, "playerfname", "playersname", "p1name"),
            person_name(entry, "partnerfname", "partnersname", "partner") };
    return { person_name(entry, "playerfname", "playersname", "player") };
}

void write_bills(Database& db, const std::unordered_map<std::int64_t, Billed>& bills)
{
    auto update = db.query(
        "update players set numevents=?, player_bill=round(?, " + std::to_string(money_places) + ") where rowid=?");
    for (const auto& [rowid, billed] : bills) {
        update.bind_all(billed.numevents, billed.bill, rowid);
        update.step();
        update.reset();
    }
}

} // namespace

std::span<const CompileCriterion> compile_criteria()
{
    return criteria;
}

const CompileCriterion& compile_criterion(int option)
{
    for (const auto& criterion : criteria)
        if (criterion.option == option)
            return criterion;
    return criteria.front();
}

int compile_option(Settings& settings)
{
    return compile_criterion(settings.integer("payments.opt")).option;
}

bool compile(Session& session, int option)
{
    const auto& criterion = compile_criterion(option);
    auto& db = session.tournament();
    auto& talk = session.talk();
    Transaction transaction(db);
    db.run("Update players set numevents=0,player_bill=0,paid_state=''");
    copy_event_fees(db);

    const std::string filter(criterion.filter);
    const auto total = db.scalar_integer("select count(*) from evententries " + filter);
    if (total == 0) {
        transaction.commit();
        talk.message("no players meet compile criteria of " + std::string(criterion.text));
        return false;
    }

    const auto register_rows = players_by_name(db);
    std::unordered_map<std::int64_t, Billed> bills;
    auto entries = db.query("select * from evententries " + filter + " order by eid, ent_idx");
    std::int64_t done = 0;
    while (entries.step()) {
        const auto fee = fee_amount(entries.text("eventfee"));
        if (!fee) {
            talk.message(entries.text("en") + ",event fee is not a number,cannot compile payments");
            return false;
        }
        for (const auto& name : people_of(entries)) {
            const auto found = register_rows.find(name_key(name));
            if (found == register_rows.end())
                continue;
            for (auto rowid : found->second) {
                auto& billed = bills[rowid];
                ++billed.numevents;
                billed.bill += *fee;
            }
        }
        if (++done % progress_step == 0 || done == total)
            talk.progress(std::to_string(done) + "/" + std::to_string(total));
    }
    write_bills(db, bills);
    set_paid_states(db);
    transaction.commit();
    return true;
}

} // namespace qv
