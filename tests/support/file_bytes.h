#pragma once

#include "core/codepage.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace qv::test {

// A file's bytes as they are on disk.
inline std::string read_bytes(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return { std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>() };
}

// A Windows-1252 text file as UTF-8.
inline std::string read_cp1252(const std::filesystem::path& file)
{
    return from_cp1252(read_bytes(file));
}

// The lines of a file whose lines end in CR LF.
inline std::vector<std::string> read_crlf_lines(const std::filesystem::path& file)
{
    const auto text = read_bytes(file);
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find("\r\n", start);
        lines.push_back(text.substr(start, end - start));
        if (end == std::string::npos)
            break;
        start = end + 2;
    }
    return lines;
}

} // namespace qv::test
