#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// The lines of one page of the website, written in the fixed old-fashioned HTML every page shares.
using PageLines = std::vector<std::string>;

// What stands in a page's head between "<head>" and "</head>".
enum class ContentLanguage { no, yes };

// "<html>", an empty line, "<head>", the meta lines (Content-Language first when asked), the title line as
// given, the extra lines (such as a base target), "</head>" and an empty line.
void add_head(PageLines& page, std::string_view title_line, ContentLanguage language = ContentLanguage::no,
    const std::vector<std::string>& extra = {});

// "<title>" text "</title>".
std::string title_line(std::string_view title);

// The body of the container pages: the body line with its link colours, the Verdana paragraph, the small
// black font, and (unless left out) an empty line.
enum class BodyGap { with_empty_line, without };
void add_container_body(PageLines& page, BodyGap gap = BodyGap::with_empty_line);

// "</body>", an empty line, "</html>".
void add_end(PageLines& page);

// An anchor to a file of the site: "<a href="file">text</a>".
std::string local_anchor(std::string_view file, std::string_view text);

// file_to_textyhtm: a text wrapped as a page under the title, each of its lines followed by "<br>", with no
// escaping: the text is the page.
PageLines wrap_text_page(const std::vector<std::string>& text, std::string_view title);

// Writes the page in Windows-1252, each line ended by CR LF. False when it cannot be written.
bool write_page(const std::filesystem::path& file, const PageLines& page);

} // namespace qv
