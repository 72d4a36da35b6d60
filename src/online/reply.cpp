#include "online/reply.h"

#include "core/codepage.h"
#include "core/utf8.h"

#include <fstream>

namespace qv {

std::string strip_crlf(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        if (c != '\r' && c != '\n')
            out += c;
    return out;
}

ReplyParts split_reply(std::string_view reply)
{
    const auto first = reply.find('^');
    if (first == std::string_view::npos)
        return {};
    const auto second = reply.find('^', first + 1);
    if (second == std::string_view::npos)
        return {};
    return { std::string(reply.substr(0, first)), std::string(reply.substr(first + 1, second - first - 1)),
        std::string(reply.substr(second + 1)) };
}

Judgement judge_reply(std::string_view reply, std::string_view server)
{
    const std::string text = strip_crlf(trim(reply));
    if (text == "local error reading stream")
        return { true, text, {} };
    if (text.empty())
        return { true, "webserver@ " + std::string(server) + " not responding", {} };
    ReplyParts parts = split_reply(text);
    if (parts.marker != service_marker)
        return { true, "servlet@ " + std::string(server) + " not responding", {} };
    if (parts.error == "no_error")
        return { false, {}, std::move(parts.data) };
    return { true, "server response: " + parts.error, {} };
}

std::string read_reply_head(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::string head;
    char c = 0;
    while (head.size() < 100 && in.get(c))
        if (c != '\r' && c != '\n')
            head += c;
    return lcase(trim(strip_crlf(from_cp1252(head))));
}

} // namespace qv
