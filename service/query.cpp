#include "query.h"

#include "core/codepage.h"

namespace qv::service {

namespace {

int hex_value(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

std::string decoded(std::string_view text, PlusMeans plus)
{
    return from_cp1252(percent_decode(text, plus));
}

} // namespace

std::string percent_decode(std::string_view text, PlusMeans plus)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '%' && i + 2 < text.size()) {
            const int high = hex_value(text[i + 1]);
            const int low = hex_value(text[i + 2]);
            if (high >= 0 && low >= 0) {
                out += static_cast<char>(high * 16 + low);
                i += 2;
                continue;
            }
        }
        out += c == '+' && plus == PlusMeans::blank ? ' ' : c;
    }
    return out;
}

Query parse_target(std::string_view target, PlusMeans plus)
{
    Query query;
    const auto mark = target.find('?');
    query.path = decoded(target.substr(0, mark), PlusMeans::plus);
    if (mark == std::string_view::npos)
        return query;
    std::string_view rest = target.substr(mark + 1);
    while (!rest.empty()) {
        const auto amp = rest.find('&');
        const std::string_view part = rest.substr(0, amp);
        rest = amp == std::string_view::npos ? std::string_view() : rest.substr(amp + 1);
        if (part.empty())
            continue;
        const auto equals = part.find('=');
        if (equals == std::string_view::npos)
            query.params.push_back({ decoded(part, plus), {}, false });
        else
            query.params.push_back(
                { decoded(part.substr(0, equals), plus), decoded(part.substr(equals + 1), plus), true });
    }
    return query;
}

const Param* Query::find(std::string_view key) const
{
    for (const auto& param : params)
        if (param.key == key)
            return &param;
    return nullptr;
}

std::optional<std::string> Query::value(std::string_view key) const
{
    const Param* param = find(key);
    if (!param || !param->has_equals)
        return std::nullopt;
    return param->value;
}

std::string Query::text() const
{
    std::string out = path;
    for (std::size_t i = 0; i < params.size(); ++i) {
        out += i == 0 ? "?" : "&";
        out += params[i].key;
        if (params[i].has_equals)
            out += "=" + params[i].value;
    }
    return out;
}

} // namespace qv::service
