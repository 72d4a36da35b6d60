#include "core/value_classes.h"

#include <string_view>

namespace qv {

namespace {

bool in(std::u32string_view set, char32_t c)
{
    return set.find(c) != std::u32string_view::npos;
}

char32_t lower_ascii(char32_t c)
{
    return c >= U'A' && c <= U'Z' ? c + 0x20 : c;
}

} // namespace

bool allowed(ValueClass cls, char32_t c)
{
    switch (cls) {
    case ValueClass::custid:
        return in(U"abcdefghijklmnopqrstuvwxyz1234567890_", lower_ascii(c));
    case ValueClass::alphanumeric:
        return in(U"abcdefghijklmnopqrstuvwxyz1234567890", lower_ascii(c));
    case ValueClass::genericterms:
        // The sports words are stored as typed, so upper case is refused rather than folded.
        return in(U" abcdefghijklmnopqrstuvwxyz", c);
    case ValueClass::search_disallow:
        return !in(U"'\"", c);
    case ValueClass::systemdisallow:
        return !in(U"'\"/\\¿&#^%*", c);
    case ValueClass::systemdisallow_resultsimport:
        return !in(U"'\"\\¿&#^%*", c);
    case ValueClass::systemdisallow_eventname:
        return !in(U")('\"/\\¿&#^%*", c);
    case ValueClass::country:
        return !in(U"'\"/\\¿&^%*", c);
    case ValueClass::overidenames:
        return !in(U"'\"\\¿&^%*", c);
    case ValueClass::servletname:
        return !in(U"'\"¿&^%#", c);
    case ValueClass::textuploads:
        return !in(U"'\"¿&#^%", c);
    case ValueClass::vbfilename:
        return !in(U"'\"/\\:*?><|.", c);
    case ValueClass::any:
        return true;
    }
    return true;
}

} // namespace qv
