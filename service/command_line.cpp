#include "command_line.h"

#include <vector>

namespace qv::service {

std::optional<Account> parse_account(std::string_view text)
{
    const auto parts = split(text, ':');
    if (parts.size() < 2 || parts.size() > 4 || !is_alphanumeric(parts[0]) || !is_alphanumeric(parts[1]))
        return std::nullopt;
    Account account { parts[0], parts[1] };
    if (parts.size() > 2) {
        if (!is_whole_number(parts[2]))
            return std::nullopt;
        account.maxevents = std::stol(parts[2]);
    }
    if (parts.size() > 3) {
        if (!is_whole_number(parts[3]))
            return std::nullopt;
        account.maxentries = std::stol(parts[3]);
    }
    return account;
}

std::optional<FtpConfig> parse_ftp(std::string_view text)
{
    const auto parts = split(text, ':');
    if (parts.size() < 6 || parts[0].empty() || !is_whole_number(parts.back()))
        return std::nullopt;
    if (!parts[1].empty() && !is_whole_number(parts[1]))
        return std::nullopt;
    FtpConfig ftp { parts[0], parts[1], parts[2], parts[3], {}, std::stol(parts.back()) };
    for (std::size_t i = 4; i + 1 < parts.size(); ++i)
        ftp.url += (i > 4 ? ":" : "") + parts[i];
    return ftp;
}

CommandLine parse_command_line(int argc, const char* const* argv)
{
    CommandLine line;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--help" || option == "-h") {
            line.help = true;
            continue;
        }
        if (i + 1 >= argc) {
            line.error = option + " needs a value";
            return line;
        }
        const std::string value = argv[++i];
        if (option == "--port") {
            if (!is_whole_number(value) || std::stol(value) > 65535) {
                line.error = "invalid port: " + value;
                return line;
            }
            line.port = static_cast<int>(std::stol(value));
        } else if (option == "--data") {
            line.data = value;
        } else if (option == "--log") {
            line.log = value;
        } else if (option == "--max-text") {
            if (!is_whole_number(value)) {
                line.error = "invalid --max-text: " + value;
                return line;
            }
            line.options.max_text = static_cast<std::size_t>(std::stol(value));
        } else if (option == "--add-account") {
            const auto account = parse_account(value);
            if (!account) {
                line.error = "invalid --add-account (custid:password[:maxevents[:maxentries]], letters and "
                             "digits): "
                    + value;
                return line;
            }
            line.accounts.push_back(*account);
        } else if (option == "--ftp") {
            line.ftp = parse_ftp(value);
            if (!line.ftp) {
                line.error = "invalid --ftp (host:port:user:pass:url:allocation): " + value;
                return line;
            }
        } else {
            line.error = "unknown option: " + option;
            return line;
        }
    }
    return line;
}

std::string usage()
{
    return R"(usage: quorvelin-service [options]

A local online service for Quorvelin: answers the program's requests over HTTP GET on 127.0.0.1
at the end point /qv, and serves the tournament's public pages. Its state lives in one SQLite file.

options:
  --port N                 port on 127.0.0.1 (default 8780; 0 picks a free one)
  --data FILE              the service's SQLite file (default quorvelin-service.db), made when missing
  --add-account ID:PWD[:MAXEVENTS[:MAXENTRIES]]
                           adds an account, or gives an existing one this password (letters and digits);
                           MAXEVENTS events may be uploaded (default 50, 0 no limit), MAXENTRIES players
                           may enter (default 1000, 0 no limit); may be given more than once
  --ftp HOST:PORT:USER:PASS:URL:ALLOCATION
                           the FTP host the accounts publish to: USER and PASS are the parts handed
                           to the program (the host's login is the program's prefix and these),
                           URL the public address prefix, ALLOCATION the bytes an account may publish
  --log FILE               appends each request, decoded, to FILE
  --max-text N             the longest text a tournament text may grow to (default 32000 characters)
  --help                   this text

On start it prints "listening on http://127.0.0.1:PORT/qv"; an account in the program takes that address
as its server. It stops on SIGINT or SIGTERM.
)";
}

} // namespace qv::service
