#pragma once

#include <QImage>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv {

// GIF through giflib: Qt reads pictures of many kinds but writes no GIF.

// The picture as GIF bytes. A picture of at most 256 colours keeps them exactly; a richer one is reduced to a
// palette of 256 first. Empty when the picture is empty or the encoder fails.
std::vector<unsigned char> encode_gif(const QImage& picture);

// The first picture of GIF bytes, composed on its screen; nullopt for bytes that are no readable GIF.
std::optional<QImage> decode_gif(const std::vector<unsigned char>& bytes);

// The file read and decoded; nullopt when it cannot be read or is no GIF. Files over 64 MB are refused unread.
std::optional<QImage> read_gif(const std::filesystem::path& file);

} // namespace qv
