#include "payments/payment_details.h"

#include "core/database.h"
#include "core/number_text.h"
#include "core/utf8.h"
#include "entries/add_to_event.h"
#include "payments/compile.h"
#include "payments/money.h"

#include <set>
#include <unordered_map>

namespace qv {

namespace {

// Whether an entry adds to the bill under the criterion, as the compile's filter decides it.
bool meets(int option, bool reserve, bool drawdone)
{
    switch (compile_criterion(option).option) {
    case 1:
        return !reserve && drawdone;
    case 2:
        return !reserve;
    default:
        return true;
    }
}

DetailEntry detail_entry(const Statement& row, int option)
{
    return { row.integer("eid"), row.text("en"), row.text("eventfee"),
        meets(option, row.integer("reserve") != 0, row.integer("drawdone") != 0) };
}

// An entry of the detailed file: the entry name's compared form beside what the details show.
struct KeyedEntry
{
    std::string key;
    DetailEntry entry;
};

std::vector<KeyedEntry> all_entries(Database& db, int option)
{
    std::vector<KeyedEntry> entries;
    auto rows = db.query("select * from evententries order by eid, ent_idx");
    while (rows.step())
        entries.push_back({ name_key(rows.text("player")), detail_entry(rows, option) });
    return entries;
}

// The people of the draws, each once, by name.
std::vector<std::string> people_of_schedule(Database& db)
{
    break_up_schedule(db, ScheduleRows::all);
    std::vector<std::string> people;
    std::set<std::string> seen;
    auto rows = db.query("select nm from alist9_nm_sx order by nm");
    while (rows.step())
        if (seen.insert(name_key(rows.text("nm"))).second)
            people.push_back(trim(rows.text("nm")));
    return people;
}

// The register's amounts by name form; the first row of a name (by pid) speaks for it.
std::unordered_map<std::string, PaymentLine> accounts_by_name(Database& db)
{
    std::unordered_map<std::string, PaymentLine> accounts;
    auto rows = db.query("select * from players order by pid");
    while (rows.step()) {
        PaymentLine line { rows.integer("pid"), rows.real("player_bill"), rows.real("amount_player_has_paid"),
            rows.real("amount_player_must_pay"), rows.text("paid_state"), rows.text("player") };
        accounts.try_emplace(name_key(line.player), std::move(line));
    }
    return accounts;
}

} // namespace

std::vector<DetailEntry> person_entries(Database& db, const std::string& player, int option)
{
    std::vector<DetailEntry> entries;
    const auto key = name_key(player);
    auto rows = db.query(R"(select * from evententries
        where lower(trim(player))=? or lower(trim(p1name))=? or lower(trim(partner))=? order by eid, ent_idx)",
        key, key, key);
    while (rows.step())
        entries.push_back(detail_entry(rows, option));
    return entries;
}

std::vector<std::string> load_data(const PaymentLine& person, const std::vector<DetailEntry>& entries, int option)
{
    std::vector<std::string> lines { "payment state for: " + person.player };
    std::size_t contributing = 0;
    for (const auto& entry : entries) {
        lines.push_back(
            "(" + std::to_string(entry.eid) + ")" + entry.en + "," + entry.eventfee + (entry.contributes ? " <" : ""));
        contributing += entry.contributes;
    }
    lines.push_back("total player events=" + std::to_string(entries.size()));
    lines.push_back("total events contributing to player bill=" + std::to_string(contributing));
    lines.push_back("player bill=" + number_text(person.bill));
    // An overpaid person is shown what was paid beyond the bill.
    lines.push_back(person.mustpay < 0 ? "amount player has overpaid=" + number_text(-person.mustpay)
                                       : "amount player has paid=" + number_text(person.paid));
    lines.push_back("amount player must pay=" + number_text(person.mustpay));
    lines.push_back("payment criterion=" + std::string(compile_criterion(option).text));
    return lines;
}

std::vector<std::string> payments_detailed_lines(Database& db, int option)
{
    std::vector<std::string> lines { currency_line(db) };
    Transaction scratch(db);
    const auto people = people_of_schedule(db);
    scratch.commit();
    const auto entries = all_entries(db, option);
    const auto accounts = accounts_by_name(db);
    for (const auto& name : people) {
        const auto key = name_key(name);
        std::vector<DetailEntry> own;
        for (const auto& each : entries)
            if (each.key.find(key) != std::string::npos)
                own.push_back(each.entry);
        const auto account = accounts.find(key);
        PaymentLine person = account == accounts.end() ? PaymentLine {} : account->second;
        person.player = name;
        lines.emplace_back();
        const auto block = load_data(person, own, option);
        lines.insert(lines.end(), block.begin(), block.end());
    }
    return lines;
}

} // namespace qv
