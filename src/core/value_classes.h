#pragma once

namespace qv {

// Which characters a kind of value may hold. The refusal lists keep quotes out of SQL literals and the
// separators ('^', '/', '&' ...) out of URLs and data files. The classes of names (systemdisallow and its two
// kin, country, overidenames) also refuse what Windows-1252 cannot write, control characters and invisible
// characters, whichever way the name arrives: typed, imported or downloaded.
enum class ValueClass {
    custid,
    alphanumeric,
    genericterms,
    search_disallow,
    systemdisallow,
    systemdisallow_resultsimport,
    systemdisallow_eventname,
    country,
    overidenames,
    servletname,
    textuploads,
    vbfilename,
    any
};

bool allowed(ValueClass cls, char32_t c);

} // namespace qv
