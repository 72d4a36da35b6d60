#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace qv {

// A plain HTTP GET of a full URL, read chunk by chunk, never from a cache.
struct HttpGetOptions
{
    // Seconds to wait for a connection, and for the reply to move on.
    int timeout_seconds = 30;
    // Told the running total after each chunk; may be empty.
    std::function<void(std::size_t total)> on_chunk;
};

// Hands each chunk to the sink as it comes. Answers false on a failure on this side (the sink refused a
// chunk) or when a reply broke off after it had begun, since what came is then only part of it. A server
// that cannot be reached gives true with nothing handed on: judging the empty reply says so.
bool http_get(
    std::string_view url, const std::function<bool(std::string_view chunk)>& sink, const HttpGetOptions& options);

} // namespace qv
