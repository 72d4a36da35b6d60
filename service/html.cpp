#include "html.h"

namespace qv::service {

std::string html_escape(std::string_view text)
{
    std::string out;
    for (char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string unescape_text(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        out += text[i];
    }
    return out;
}

Reply html_page(Context& c, std::string_view title, std::string_view body)
{
    auto row = c.store.db().query("select tournament, dates from tournaments where custid=?", c.custid);
    row.step();
    std::string html = "<html>\r\n<head>\r\n"
                       "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">\r\n"
                       "<title>"
        + html_escape(title) + "</title>\r\n</head>\r\n<body>\r\n<p><font face=\"Verdana\" size=\"2\"><b>"
        + html_escape(row.text("tournament")) + "</b><br>" + html_escape(row.text("dates")) + "</font></p>\r\n"
        + "<p><font face=\"Verdana\" size=\"2\"><b>" + html_escape(title) + "</b></font></p>\r\n"
        + "<font face=\"Verdana\" size=\"2\">\r\n" + std::string(body) + "\r\n</font>\r\n</body>\r\n</html>\r\n";
    return page_reply(std::move(html));
}

std::string page_link(Context& c, std::string_view idx, std::string_view extra)
{
    return c.query.path + "?idx=" + std::string(idx) + "&custid=" + c.custid + std::string(extra);
}

} // namespace qv::service
