#include "online/website_html.h"

#include "core/file_save.h"

namespace qv {

void add_head(PageLines& page, std::string_view title, ContentLanguage language, const std::vector<std::string>& extra)
{
    page.insert(page.end(), { "<html>", "", "<head>" });
    if (language == ContentLanguage::yes)
        page.emplace_back(R"(<meta http-equiv="Content-Language" content="en-us">)");
    page.insert(page.end(),
        { R"(<meta http-equiv="Content-Type" content="text/html; charset=windows-1252">)",
            R"(<meta name="GENERATOR" content="Microsoft FrontPage 4.0">)",
            R"(<meta name="ProgId" content="FrontPage.Editor.Document">)", std::string(title) });
    page.insert(page.end(), extra.begin(), extra.end());
    page.insert(page.end(), { "</head>", "" });
}

std::string title_line(std::string_view title)
{
    return "<title>" + std::string(title) + "</title>";
}

void add_container_body(PageLines& page, BodyGap gap)
{
    page.insert(page.end(),
        { R"(<body vlink="#000080" link="#000080" alink="#000080">)", R"(<p><font face="Verdana">)",
            R"(<font color="#000000" size="1" face="Verdana">)" });
    if (gap == BodyGap::with_empty_line)
        page.emplace_back();
}

void add_end(PageLines& page)
{
    page.insert(page.end(), { "</body>", "", "</html>" });
}

std::string local_anchor(std::string_view file, std::string_view text)
{
    return "<a href=\"" + std::string(file) + "\">" + std::string(text) + "</a>";
}

PageLines wrap_text_page(const std::vector<std::string>& text, std::string_view title)
{
    PageLines page;
    add_head(page, title_line(title), ContentLanguage::yes);
    page.insert(page.end(), { "<body>", "", R"(<p><font face="Verdana" size="1">)", "" });
    for (const auto& line : text)
        page.push_back(line + "<br>");
    page.insert(page.end(), { "", "</font></p>", "" });
    add_end(page);
    return page;
}

bool write_page(const std::filesystem::path& file, const PageLines& page)
{
    return write_text_file(file, page);
}

} // namespace qv
