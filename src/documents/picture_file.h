#pragma once

#include <QImage>

#include <filesystem>
#include <string>

namespace qv {

// The outcome of saving a picture, numbered as the picture encoder's statuses always were, so that a failure
// reads as it always has (GdiErrorString).
enum class PictureStatus {
    ok = 0,
    generic_error = 1,
    invalid_parameter = 2,
    out_of_memory = 3,
    win32_error = 7,
    file_not_found = 10,
    access_denied = 12,
    unknown_image_format = 13,
};

// A status's text: "Generic Error", "Access Denied" ... and "Unknown GDI+ Error" for a number it does not know.
std::string GdiErrorString(int status);
inline std::string GdiErrorString(PictureStatus status)
{
    return GdiErrorString(static_cast<int>(status));
}

// PictureBoxToFile: saves the picture in the format its file's extension names: GIF through giflib; PNG, JPEG
// (with its quality) and BMP through Qt. Another extension fails as an unknown format; the file is then not
// touched.
PictureStatus PictureBoxToFile(const QImage& picture, const std::filesystem::path& file);

} // namespace qv
