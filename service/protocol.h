#pragma once

#include "query.h"
#include "store.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv::service {

// The greeting that opens every reply of the protocol: it tells a client that the service answered, and not
// some other web server or a proxy's error page.
inline constexpr std::string_view greeting = "73215qpx48102";

// A reply before it goes on the wire: text in UTF-8, sent as Windows-1252.
struct Reply
{
    int status = 200;
    std::string content_type = "text/plain";
    std::string body;
};

// "marker^error^data"; the error word "no_error" means success.
Reply protocol_reply(std::string_view error, std::string_view data = {});
inline Reply good_reply(std::string_view data = {})
{
    return protocol_reply("no_error", data);
}
Reply missing_key(std::string_view key);
Reply page_reply(std::string html);
Reply plain_reply(std::string text);

struct Options
{
    // The longest text a field of update_text_field may grow to, in characters.
    std::size_t max_text = 32000;
};

// What a handler works with: the parsed request and, for an account's operation, the account it logged in as.
struct Context
{
    Store& store;
    const Query& query;
    const Options& options;
    std::string custid;
    std::string remote_addr;

    std::optional<std::string> key(std::string_view name) const { return query.value(name); }
};

using Handler = Reply (*)(Context&);

// account: custid and password must name an account; open: a public page of an account (custid only);
// form: the target of a public page's HTML form, whose values a browser encodes with "+" for a blank.
enum class Access { account, open, form };

struct Operation
{
    std::string_view idx;
    Access access;
    Handler handler;
};

std::vector<Operation> account_operations();
std::vector<Operation> tournament_operations();
std::vector<Operation> event_operations();
std::vector<Operation> page_operations();
std::vector<Operation> entry_form_operations();

// Digits only, at least one, and few enough for a 32-bit number.
bool is_whole_number(std::string_view text);
// Letters and digits only, at least one: account ids and passwords.
bool is_alphanumeric(std::string_view text);
// The parts of a text between separators; n separators give n + 1 parts.
std::vector<std::string> split(std::string_view text, char separator);

} // namespace qv::service
