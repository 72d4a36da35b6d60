#include "protocol.h"

#include "core/validators.h"

namespace qv::service {

Reply protocol_reply(std::string_view error, std::string_view data)
{
    Reply reply;
    reply.body = std::string(greeting) + "^" + std::string(error) + "^" + std::string(data);
    return reply;
}

Reply missing_key(std::string_view key)
{
    return protocol_reply("missing key " + std::string(key));
}

Reply page_reply(std::string html)
{
    Reply reply;
    reply.content_type = "text/html; charset=windows-1252";
    reply.body = std::move(html);
    return reply;
}

Reply plain_reply(std::string text)
{
    Reply reply;
    reply.body = std::move(text);
    return reply;
}

bool is_whole_number(std::string_view text)
{
    if (text.empty() || text.size() > 9)
        return false;
    for (char c : text)
        if (c < '0' || c > '9')
            return false;
    return true;
}

bool is_alphanumeric(std::string_view text)
{
    return !text.empty() && !check_class(text, ValueClass::alphanumeric);
}

std::vector<std::string> split(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (auto at = text.find(separator); at != std::string_view::npos; at = text.find(separator, start)) {
        parts.emplace_back(text.substr(start, at - start));
        start = at + 1;
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

} // namespace qv::service
