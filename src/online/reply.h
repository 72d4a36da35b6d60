#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

// The greeting that opens every reply of the online service. Anything else that answers (another web
// server, a proxy's error page) lacks it.
inline constexpr std::string_view service_marker = "73215qpx48102";

// Removes every carriage return and line feed.
std::string strip_crlf(std::string_view text);

// "marker^error^data", split at the first two "^"; later ones belong to the data. All three stay empty
// unless both are there.
struct ReplyParts
{
    std::string marker;
    std::string error;
    std::string data;
};
ReplyParts split_reply(std::string_view reply);

// What bad_return makes of a reply: nothing wrong and the data, or the message for the user.
struct Judgement
{
    bool bad = false;
    std::string message; // when bad
    std::string data; // when good
};
// Judges a reply of the service at the server address (the address goes into the messages).
Judgement judge_reply(std::string_view reply, std::string_view server);

// The head of a reply saved to a file: at most 100 characters, line ends skipped, trimmed and lower-cased,
// so a reply of any length can be judged by its first part.
std::string read_reply_head(const std::filesystem::path& file);

} // namespace qv
