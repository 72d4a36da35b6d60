#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv::service {

// One key of a request as the client wrote it. A key may stand without an equals sign (the account e-mail
// request glues its last value to its key), so has_equals tells the two forms apart.
struct Param
{
    std::string key;
    std::string value;
    bool has_equals = true;
};

// The client percent-encodes only what a request line cannot carry; an HTML form of the public pages encodes
// everything and writes a blank as "+".
enum class PlusMeans { plus, blank };

// A request target read the service's way: the path, and the keys in the order they came, decoded from
// %XX and from Windows-1252 to UTF-8. Keys are compared exactly; the first of a repeated key counts.
struct Query
{
    std::string path;
    std::vector<Param> params;

    const Param* find(std::string_view key) const;
    std::optional<std::string> value(std::string_view key) const;
    // The decoded target, keys in their order, as the request log shows it.
    std::string text() const;
};

Query parse_target(std::string_view target, PlusMeans plus = PlusMeans::plus);

// %XX becomes its byte; a "%" not followed by two hex digits stays as it is.
std::string percent_decode(std::string_view text, PlusMeans plus);

} // namespace qv::service
