#pragma once

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace qv::test {

// The pages of a PDF file as the print went out: each page's media box, width and height in points.
struct PdfPage
{
    double width = 0;
    double height = 0;
    bool landscape() const { return width > height; }
};

inline std::vector<PdfPage> pdf_pages(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    const std::string pdf = text.str();
    std::vector<PdfPage> pages;
    static const std::regex page(R"(/Type\s*/Page\b[^s][\s\S]*?/MediaBox\s*\[\s*0\s+0\s+([0-9.]+)\s+([0-9.]+)\s*\])");
    for (auto it = std::sregex_iterator(pdf.begin(), pdf.end(), page); it != std::sregex_iterator(); ++it)
        pages.push_back({ std::stod((*it)[1]), std::stod((*it)[2]) });
    return pages;
}

} // namespace qv::test
