#pragma once

#include "protocol.h"
#include "store.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv::service {

struct CommandLine
{
    int port = 8780;
    std::filesystem::path data = "quorvelin-service.db";
    std::filesystem::path log;
    std::vector<Account> accounts;
    std::optional<FtpConfig> ftp;
    Options options;
    bool help = false;
    std::string error; // not empty: the command line was refused, and why
};

CommandLine parse_command_line(int argc, const char* const* argv);
std::string usage();

// "custid:password", optionally followed by ":maxevents" and ":maxentries".
std::optional<Account> parse_account(std::string_view text);
// "host:port:user:pass:url:allocation"; the url may hold colons of its own.
std::optional<FtpConfig> parse_ftp(std::string_view text);

} // namespace qv::service
