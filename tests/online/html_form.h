#pragma once

#include "core/codepage.h"
#include "support/service_process.h"

#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace qv::test {

// A player at a browser: reads a page's form, fills the fields it has, and sends it by GET as a browser
// does (Windows-1252, every byte but letters and digits as %XX, a blank as "+").
class HtmlForm
{
public:
    // The first form of the page at url; site is "http://host:port".
    HtmlForm(const std::string& site, const std::string& url)
        : m_site(site)
        , m_page(fetch(url))
    {
        std::smatch found;
        if (std::regex_search(m_page, found, std::regex("<form method=\"get\" action=\"([^\"]+)\">")))
            m_action = found[1];
        const std::regex input("<input type=\"(\\w+)\" name=\"([^\"]+)\"(?: value=\"([^\"]*)\")?");
        for (auto it = std::sregex_iterator(m_page.begin(), m_page.end(), input); it != std::sregex_iterator(); ++it) {
            m_fields.insert((*it)[2]);
            if ((*it)[1] == "hidden")
                m_values[(*it)[2]] = (*it)[3];
        }
        const std::regex select("<select name=\"([^\"]+)\"");
        for (auto it = std::sregex_iterator(m_page.begin(), m_page.end(), select); it != std::sregex_iterator(); ++it)
            m_fields.insert((*it)[1]);
    }

    const std::string& page() const { return m_page; }
    bool has_form() const { return !m_action.empty(); }
    bool has_field(const std::string& name) const { return m_fields.count(name) > 0; }

    // Types into a field the page shows; a field it lacks fails the test.
    HtmlForm& fill(const std::string& name, const std::string& value)
    {
        EXPECT_TRUE(has_field(name)) << "the form has no field " << name;
        m_values[name] = value;
        return *this;
    }

    // Sends the form; the page that answers.
    std::string submit() const
    {
        std::string query;
        for (const auto& [name, value] : m_values)
            query += (query.empty() ? "" : "&") + encoded(name) + "=" + encoded(value);
        return fetch(m_site + m_action + "?" + query);
    }

private:
    static std::string encoded(const std::string& text)
    {
        static const char* hex = "0123456789ABCDEF";
        std::string out;
        for (unsigned char c : to_cp1252(text)) {
            if (std::isalnum(c) && c < 128)
                out += static_cast<char>(c);
            else if (c == ' ')
                out += '+';
            else
                out += std::string("%") + hex[c >> 4] + hex[c & 15];
        }
        return out;
    }

    std::string m_site;
    std::string m_page;
    std::string m_action;
    std::set<std::string> m_fields;
    std::map<std::string, std::string> m_values;
};

} // namespace qv::test
