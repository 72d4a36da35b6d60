#include "payments/money.h"

#include "core/database.h"
#include "core/utf8.h"
#include "core/validators.h"

#include <charconv>

namespace qv {

std::optional<double> amount_of(std::string_view text)
{
    const auto number = trim(text);
    if (number.empty() || check_signed_double(number))
        return std::nullopt;
    double value = 0;
    const auto* end = number.data() + number.size();
    // from_chars reads the point whatever the locale of the process.
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

std::optional<double> fee_amount(std::string_view eventfee)
{
    if (trim(eventfee).empty())
        return 0.0;
    return amount_of(eventfee);
}

std::string currency_line(Database& tournament)
{
    const auto code = trim(tournament.scalar_text("select currencycode from tournament where idx=1"));
    return code.empty() ? "currency not specified" : "currency=" + code;
}

} // namespace qv
