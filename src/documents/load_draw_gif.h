#pragma once

#include <QImage>

#include <filesystem>
#include <optional>
#include <string_view>

namespace qv {

class Session;

// "open gif draw": the user picks a GIF file of a draw, which is read. "file not found: " and the path when it
// has gone; "cannot read gif file: " and the path when it is no readable GIF. None when refused or cancelled.
std::optional<QImage> open_gif_draw(Session& session);
// The same for a path already chosen.
std::optional<QImage> read_gif_draw(Session& session, const std::filesystem::path& file);

// load_draw_gif's print: the picture by the default configuration of the draw kind the user named
// ("must specify drawtype/size" with none, "drawtype/size not recognized" for another word). False when refused,
// cancelled or nothing went out.
bool print_draw_gif(Session& session, const QImage& picture, std::string_view kind_word);

} // namespace qv
