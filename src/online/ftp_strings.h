#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

class ServiceClient;

// What getftpstrings hands out for one run: the host (with ":port" when not the default), the two parts of
// the login, the prefix of the public address and the account's allocation in bytes, as text.
struct FtpStrings
{
    std::string server;
    std::string user_part;
    std::string password_part;
    std::string address_prefix;
    std::string allocation;
};

// The reply's data read character by character: each "^" ends a field, carriage returns and line feeds are
// skipped, and only the first five fields count. The first three are trimmed.
FtpStrings parse_ftp_strings(std::string_view data);

// Asks the service for the strings of the client's account. A failed request was told to the user; a reply
// with an empty server or login part gives nothing silently. On success the public address (the prefix, the
// custid and "/") becomes app.ftp_website_url and the account's ftpurl.
std::optional<FtpStrings> get_ftp_strings(ServiceClient& client);

// The text's value when every character is a digit and the value fits 32 bits; otherwise 0.
std::int32_t verify_valid_long(std::string_view text);

} // namespace qv
