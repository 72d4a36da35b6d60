#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;

// A line of a document and the match it speaks of: 0 for a line without one.
struct DocumentLine
{
    std::string text;
    std::int64_t sid = 0;
    friend bool operator==(const DocumentLine&, const DocumentLine&) = default;
};

// The lines of one document. The screen list, the text box, the printer and the file all take the same lines, so
// one generator serves them all.
struct Document
{
    std::vector<DocumentLine> lines;

    // lbx_tbx_additem: one line with its match.
    void add(std::string text, std::int64_t sid = 0) { lines.push_back({ std::move(text), sid }); }
    void append(const Document& other) { lines.insert(lines.end(), other.lines.begin(), other.lines.end()); }
    std::vector<std::string> texts() const;
};

// What every document of a tournament shares: the file, its name, the six sports words and the moment written
// in the closing "created @" line.
struct DocumentContext
{
    Database& tournament;
    std::string tournament_name;
    std::string court, c, courts, match, m, matches;
    std::tm created {};
};

// The tournament's name, then the title line.
void begin_document(Document& document, const DocumentContext& context, std::string title);
// A blank line and "created @ " with the moment in the form "dd-mmm-yy hh:mm:ss".
void end_document(Document& document, const DocumentContext& context);

} // namespace qv
