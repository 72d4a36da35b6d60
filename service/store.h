#pragma once

#include "core/database.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qv::service {

// The FTP host the service hands to its accounts. user and pass are the parts the service sends; the host's
// full login is the client's fixed prefix followed by them.
struct FtpConfig
{
    std::string host;
    std::string port;
    std::string user;
    std::string pass;
    std::string url; // public address prefix; the account's directory name and "/" follow it
    std::int64_t allocation = 0; // bytes an account may publish
};

struct Account
{
    std::string custid;
    std::string password;
    std::int64_t maxevents = 50;
    std::int64_t maxentries = 1000;
};

// The two states of a tournament's online windows.
struct OnlineStates
{
    bool entries_open = false;
    bool withdrawals_open = false;
};

// The service's own file: accounts, each account's tournament with its texts, limits and states, its events,
// players and entries, the FTP host, and what clients reported (feedback, FTP failures).
class Store
{
public:
    explicit Store(const std::filesystem::path& file);

    Database& db() { return m_db; }

    // Adds the account, or gives an existing one the new password and limits.
    void add_account(const Account& account);
    // The account's stored login form, or nothing when there is no such account (compared case-blind).
    std::optional<Account> account(std::string_view custid);

    void set_ftp(const FtpConfig& ftp);
    std::optional<FtpConfig> ftp();

    // The tournament row of an account, made on first use.
    void ensure_tournament(std::string_view custid);
    OnlineStates states(std::string_view custid);

private:
    Database m_db;
};

// Today as the service stamps its records: "dd-mmm-yyyy".
std::string service_date();

} // namespace qv::service
