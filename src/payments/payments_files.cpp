#include "payments/payments_files.h"

#include "core/file_save.h"
#include "core/number_text.h"
#include "core/session.h"
#include "payments/money.h"
#include "payments/payment_details.h"

namespace qv {

namespace {

std::string joined(const std::vector<std::string>& fields)
{
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i == 0 ? "" : "\t") + fields[i];
    return line;
}

// The file dialog starts where the user last saved, and remembers where this file went.
std::optional<std::filesystem::path> save_lines(
    Session& session, const std::string& default_name, const std::vector<std::string>& lines)
{
    auto& settings = session.settings();
    const auto chosen = save_text_file_as(session, default_name, settings.text("app.last_dir_opened"), lines);
    if (chosen)
        settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
    return chosen;
}

} // namespace

std::vector<std::string> totals_lines(const PaymentTotals& totals)
{
    return { "total bill=" + number_text(totals.bill), "total paid by players=" + number_text(totals.paid),
        "total players must pay=" + number_text(totals.mustpay) };
}

std::vector<std::string> payments_list_lines(const PaymentsList& list, const std::string& currency)
{
    std::vector<std::string> lines { joined({ std::begin(payments_heading), std::end(payments_heading) }) };
    for (const auto& line : list.lines)
        lines.push_back(joined(line_fields(line)));
    lines.emplace_back();
    for (auto& total : totals_lines(list.totals))
        lines.push_back(std::move(total));
    lines.push_back(currency);
    return lines;
}

std::optional<std::filesystem::path> save_payments_list(Session& session, const PaymentsList& list)
{
    return save_lines(session, "payments.txt", payments_list_lines(list, currency_line(session.tournament())));
}

std::optional<std::filesystem::path> make_payments_file(Session& session, int option)
{
    return save_lines(session, "payments_detailed.txt", payments_detailed_lines(session.tournament(), option));
}

} // namespace qv
