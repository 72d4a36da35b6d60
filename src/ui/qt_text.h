#pragma once

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace qv {

// The program keeps its text in UTF-8; Qt keeps it in UTF-16. These are the only crossings.
inline QString qs(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string to_std(const QString& text)
{
    return text.toStdString();
}
inline QString qs_path(const std::filesystem::path& path)
{
    return QString::fromStdString(path.string());
}
inline std::filesystem::path to_path(const QString& text)
{
    return std::filesystem::path(text.toStdString());
}

// The UTF-16 offset of a character counted in code points, for selecting an offending character in a text box.
inline int utf16_offset(const QString& text, int char_index)
{
    int offset = 0;
    for (int chars = 0; chars < char_index && offset < text.size(); ++chars)
        offset += text.at(offset).isHighSurrogate() && offset + 1 < text.size() ? 2 : 1;
    return offset;
}

} // namespace qv
