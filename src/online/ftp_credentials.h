#pragma once

#include <string>
#include <string_view>

namespace qv {

// The login at the publishing host is a fixed prefix of this program followed by the part the online service
// hands out for the run, for the user name and the password alike. The prefixes are agreed with the service of
// a deployment and live only here; neither whole login is ever stored.
inline constexpr std::string_view ftp_user_prefix = "qv4pub07";
inline constexpr std::string_view ftp_password_prefix = "t9r4k2m8w";

inline std::string ftp_user_name(std::string_view user_part)
{
    return std::string(ftp_user_prefix) + std::string(user_part);
}

inline std::string ftp_password(std::string_view password_part)
{
    return std::string(ftp_password_prefix) + std::string(password_part);
}

} // namespace qv
