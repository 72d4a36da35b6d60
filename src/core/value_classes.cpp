#include "core/value_classes.h"

#include "core/codepage.h"

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

// Names travel in files, pages and the online service as Windows-1252, and are compared and shown as typed: a
// character that the code page cannot carry, a control character (NUL, tab, line breaks) or one that cannot be
// seen (the no-break space, the soft hyphen; zero-width spaces and direction marks have no byte anyway) would
// make two names look alike or change on the way. Text that was not UTF-8 decodes to U+FFFD and goes the same way.
bool name_character(char32_t c)
{
    const bool control = c < 0x20 || (c >= 0x7F && c <= 0x9F);
    const bool invisible = c == 0xA0 || c == 0xAD;
    return !control && !invisible && cp1252_has(c);
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
        return name_character(c) && !in(U"'\"/\\¿&#^%*", c);
    case ValueClass::systemdisallow_resultsimport:
        return name_character(c) && !in(U"'\"\\¿&#^%*", c);
    case ValueClass::systemdisallow_eventname:
        return name_character(c) && !in(U")('\"/\\¿&#^%*", c);
    case ValueClass::country:
        return name_character(c) && !in(U"'\"/\\¿&^%*", c);
    case ValueClass::overidenames:
        return name_character(c) && !in(U"'\"\\¿&^%*", c);
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
