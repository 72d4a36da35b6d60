#include "documents/picture_file.h"

#include "core/utf8.h"
#include "documents/gif_file.h"

#include <QBuffer>

#include <array>
#include <cerrno>
#include <fstream>
#include <string_view>
#include <vector>

namespace qv {

namespace {

constexpr int jpeg_quality = 90;

// The extensions each encoder answers to, as the encoders' masks list them.
struct Encoder
{
    const char* qt_format; // nullptr: giflib
    std::array<std::string_view, 4> masks;
};
constexpr Encoder encoders[] = {
    { "BMP", { "bmp", "dib", "rle", "" } },
    { "JPG", { "jpg", "jpeg", "jpe", "jfif" } },
    { nullptr, { "gif", "", "", "" } },
    { "PNG", { "png", "", "", "" } },
};

const Encoder* encoder_for(std::string_view extension)
{
    for (const auto& encoder : encoders)
        for (auto mask : encoder.masks)
            if (!mask.empty() && mask == extension)
                return &encoder;
    return nullptr;
}

std::vector<unsigned char> qt_encode(const QImage& picture, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    // The quality parameter goes with the encoders whose name begins with "J" only.
    const int quality = format[0] == 'J' ? jpeg_quality : -1;
    if (!picture.save(&buffer, format, quality))
        return {};
    return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

PictureStatus write_bytes(const std::filesystem::path& file, const std::vector<unsigned char>& bytes)
{
    errno = 0;
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (!out)
        return errno == EACCES || errno == EPERM || errno == EROFS ? PictureStatus::access_denied
            : errno == ENOENT                                      ? PictureStatus::file_not_found
                                                                   : PictureStatus::win32_error;
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return out ? PictureStatus::ok : PictureStatus::win32_error;
}

} // namespace

std::string GdiErrorString(int status)
{
    static constexpr std::array<std::string_view, 20> texts = { "Generic Error", "Invalid Parameter", "Out Of Memory",
        "Object Busy", "Insufficient Buffer", "Not Implemented", "Win32 Error", "Wrong State", "Aborted",
        "File Not Found", "Value Overflow", "Access Denied", "Unknown Image Format", "FontFamily Not Found",
        "FontStyle Not Found", "Not TrueType Font", "Unsupported Gdiplus Version", "Gdiplus Not Initialized",
        "Property Not Found", "Property Not Supported" };
    if (status >= 1 && status <= static_cast<int>(texts.size()))
        return std::string(texts[static_cast<std::size_t>(status - 1)]);
    return "Unknown GDI+ Error";
}

PictureStatus PictureBoxToFile(const QImage& picture, const std::filesystem::path& file)
{
    const auto name = file.filename().string();
    const auto point = name.rfind('.');
    if (point == std::string::npos)
        return PictureStatus::unknown_image_format;
    const auto* encoder = encoder_for(lcase(name.substr(point + 1)));
    if (!encoder)
        return PictureStatus::unknown_image_format;
    if (picture.isNull())
        return PictureStatus::invalid_parameter;
    const auto bytes = encoder->qt_format ? qt_encode(picture, encoder->qt_format) : encode_gif(picture);
    if (bytes.empty())
        return PictureStatus::generic_error;
    return write_bytes(file, bytes);
}

} // namespace qv
