// The tournament's details and texts, its limits on entries per player, and the addresses that receive
// copies of the confirmation e-mails.
#include "core/utf8.h"
#include "protocol.h"

#include <array>

namespace qv::service {

namespace {

// The texts a client may send in batches; the names are the columns of the client's tournament table.
constexpr std::array<std::string_view, 5> text_fields { "tdetails", "entryinstructions", "paymentinstructions",
    "messagetoplayers", "conditions" };

Reply update_tournament(Context& c)
{
    const auto tournament = c.key("tournament");
    const auto dates = c.key("dates");
    const auto currency = c.key("currencycode");
    if (!tournament)
        return missing_key("tournament");
    if (!dates)
        return missing_key("dates");
    if (!currency)
        return missing_key("currencycode");
    c.store.db().run("update tournaments set tournament=?, dates=?, currencycode=? where custid=?", *tournament, *dates,
        *currency, c.custid);
    return good_reply();
}

// Batch 1 starts the text afresh, each later batch appends; a batch that would make the text too long is
// refused and what came before it stays.
Reply update_text_field(Context& c)
{
    const auto field = c.key("field");
    const auto cnt = c.key("cnt");
    const auto data = c.key("data");
    if (!field)
        return missing_key("field");
    if (!cnt)
        return missing_key("cnt");
    if (!data)
        return missing_key("data");
    std::string_view column;
    for (auto name : text_fields)
        if (name == *field)
            column = name;
    if (column.empty())
        return protocol_reply("unknown field");
    if (!is_whole_number(*cnt) || std::stol(*cnt) < 1)
        return protocol_reply("invalid cnt");
    const std::string select = "select " + std::string(column) + " from tournaments where custid=?";
    const std::string text
        = (std::stol(*cnt) == 1 ? std::string() : c.store.db().scalar_text(select, c.custid)) + *data;
    if (char_count(text) > c.options.max_text)
        return protocol_reply("text too long");
    c.store.db().run("update tournaments set " + std::string(column) + "=? where custid=?", text, c.custid);
    return good_reply();
}

constexpr std::array<std::string_view, 5> limit_keys { "maxevents", "scnti", "dcnti", "xcnti", "xdcnti" };

Reply get_maxevents_config(Context& c)
{
    auto row = c.store.db().query("select * from tournaments where custid=?", c.custid);
    row.step();
    std::string data;
    for (auto key : limit_keys)
        data += row.text(key) + "^";
    return good_reply(data);
}

Reply setmaxevents(Context& c)
{
    std::array<std::int64_t, limit_keys.size()> values {};
    for (std::size_t i = 0; i < limit_keys.size(); ++i) {
        const auto value = c.key(limit_keys[i]);
        if (!value)
            return missing_key(limit_keys[i]);
        if (!is_whole_number(*value))
            return protocol_reply("invalid number for " + std::string(limit_keys[i]));
        values[i] = std::stol(*value);
    }
    c.store.db().run("update tournaments set maxevents=?, scnti=?, dcnti=?, xcnti=?, xdcnti=? where custid=?",
        values[0], values[1], values[2], values[3], values[4], c.custid);
    return good_reply();
}

Reply ccto_dosend_get(Context& c)
{
    auto row = c.store.db().query("select ccemails, dosend from tournaments where custid=?", c.custid);
    row.step();
    return good_reply(row.text("ccemails") + "^" + (row.integer("dosend") != 0 ? "1" : "0"));
}

Reply ccto_dosend_update(Context& c)
{
    const auto ccto = c.key("ccto");
    const auto dosend = c.key("dosend");
    if (!ccto)
        return missing_key("ccto");
    if (!dosend)
        return missing_key("dosend");
    c.store.db().run(
        "update tournaments set ccemails=?, dosend=? where custid=?", *ccto, *dosend == "1" ? 1 : 0, c.custid);
    return good_reply();
}

} // namespace

std::vector<Operation> tournament_operations()
{
    return {
        { "update_tournament", Access::account, update_tournament },
        { "update_text_field", Access::account, update_text_field },
        { "get_maxevents_config", Access::account, get_maxevents_config },
        { "setmaxevents", Access::account, setmaxevents },
        { "ccto_dosend_get", Access::account, ccto_dosend_get },
        { "ccto_dosend_update", Access::account, ccto_dosend_update },
    };
}

} // namespace qv::service
