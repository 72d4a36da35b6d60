#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The three orders of the keys that every request carries (D driveserial, S sequence, C custid,
// P password, O os, A app_id): order1 D S C P O A, order2 S D C P O A, and public pages S C.
enum class KeyOrder { order1, order2, public_page };

struct UrlKey
{
    std::string name;
    std::string value;
};

// Keys of one operation beyond its order's own, by where they stand.
struct UrlKeys
{
    std::vector<UrlKey> after_idx {}; // directly after idx
    std::vector<UrlKey> before_os {}; // between password and os
    std::vector<UrlKey> at_end {}; // after app_id (after custid on a public page)
    bool app_id_glued = false; // "app_id" directly followed by its value, with no "="
};

// Who sends: the account's server, login and password, and what the machine tells of itself.
struct Requester
{
    std::string server; // the whole request prefix; "?idx=" follows it directly
    std::string custid;
    std::string password;
    std::string driveserial;
    std::string os;
    std::string app_id;
};

// "ddMMyyyyHHnnss" and the session's request counter: two requests in one second still differ.
std::string get_sequence(Session& session);

// The request as the service reads it: keys and values joined by "&" and "=" exactly as they stand,
// with no encoding; callers keep "&", "%" and "#" out of the values.
std::string build_url(
    const Requester& who, std::string_view idx, KeyOrder order, std::string_view sequence, const UrlKeys& keys = {});

// The bytes that travel: the text in Windows-1252 with what a request line cannot carry (blanks, control
// bytes, a "?" after the query's own, and "%" and "#", which would change the meaning of what follows) as
// %XX. Every other byte, "^" and "¿" among them, goes as it stands; the service decodes.
std::string wire_url(std::string_view url);

} // namespace qv
