#pragma once

#include "support/file_bytes.h"

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

namespace qv::test {

// A link of a page: the page it stands in and the address of its href or src.
struct PageLink
{
    std::string page;
    std::string address;
};

inline std::vector<PageLink> links_of_site(const std::filesystem::path& site)
{
    static const std::regex link(R"re((href|src)="([^"]*)")re", std::regex::icase);
    std::vector<PageLink> links;
    for (const auto& file : std::filesystem::directory_iterator(site)) {
        if (file.path().extension() != ".htm")
            continue;
        const auto text = read_cp1252(file.path());
        for (std::sregex_iterator it(text.begin(), text.end(), link), end; it != end; ++it)
            links.push_back({ file.path().filename().string(), (*it)[2].str() });
    }
    return links;
}

} // namespace qv::test
