#include "online/ftp_strings.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "online/service_operations.h"

#include <limits>

namespace qv {

FtpStrings parse_ftp_strings(std::string_view data)
{
    std::string fields[5];
    std::size_t field = 0;
    for (const char c : data) {
        if (field == 5)
            break;
        if (c == '\r' || c == '\n')
            continue;
        if (c == '^')
            ++field;
        else
            fields[field] += c;
    }
    return { trim(fields[0]), trim(fields[1]), trim(fields[2]), fields[3], fields[4] };
}

std::optional<FtpStrings> get_ftp_strings(ServiceClient& client)
{
    const auto data = getftpstrings(client);
    if (!data)
        return std::nullopt;
    FtpStrings strings = parse_ftp_strings(*data);
    if (strings.server.empty() || strings.user_part.empty() || strings.password_part.empty())
        return std::nullopt;

    Session& session = client.session();
    const std::string& custid = client.requester().custid;
    const std::string address = strings.address_prefix + custid + "/";
    Transaction transaction(session.init_db());
    session.settings().set_disk_var("app.ftp_website_url", address);
    session.init_db().run("update acct_accountdata set ftpurl=? where custid=?", address, custid);
    transaction.commit();
    return strings;
}

std::int32_t verify_valid_long(std::string_view text)
{
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return 0;
        value = value * 10 + (c - '0');
        if (value > std::numeric_limits<std::int32_t>::max())
            return 0;
    }
    return static_cast<std::int32_t>(value);
}

} // namespace qv
