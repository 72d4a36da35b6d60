#include "online/request_url.h"

#include "core/codepage.h"
#include "core/session.h"

namespace qv {

namespace {

void add(std::string& url, std::string_view name, std::string_view value)
{
    url += "&";
    url += name;
    url += "=";
    url += value;
}

void add_all(std::string& url, const std::vector<UrlKey>& keys)
{
    for (const auto& key : keys)
        add(url, key.name, key.value);
}

} // namespace

std::string get_sequence(Session& session)
{
    return session.request_sequences().stamp_now();
}

std::string build_url(
    const Requester& who, std::string_view idx, KeyOrder order, std::string_view sequence, const UrlKeys& keys)
{
    std::string url = who.server + "?idx=" + std::string(idx);
    add_all(url, keys.after_idx);
    if (order == KeyOrder::public_page) {
        add(url, "sequence", sequence);
        add(url, "custid", who.custid);
        add_all(url, keys.at_end);
        return url;
    }
    if (order == KeyOrder::order1) {
        add(url, "driveserial", who.driveserial);
        add(url, "sequence", sequence);
    } else {
        add(url, "sequence", sequence);
        add(url, "driveserial", who.driveserial);
    }
    add(url, "custid", who.custid);
    add(url, "password", who.password);
    add_all(url, keys.before_os);
    add(url, "os", who.os);
    if (keys.app_id_glued)
        url += "&app_id" + who.app_id;
    else
        add(url, "app_id", who.app_id);
    add_all(url, keys.at_end);
    return url;
}

std::string wire_url(std::string_view url)
{
    static constexpr char hex[] = "0123456789ABCDEF";
    const std::string bytes = to_cp1252(url);
    std::string out;
    out.reserve(bytes.size() + 16);
    bool in_query = false;
    for (char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool carried = byte > 0x20 && byte != 0x7F && c != '%' && c != '#' && !(c == '?' && in_query);
        if (c == '?')
            in_query = true;
        if (carried) {
            out += c;
        } else {
            out += '%';
            out += hex[byte >> 4];
            out += hex[byte & 0x0F];
        }
    }
    return out;
}

} // namespace qv
