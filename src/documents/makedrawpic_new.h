#pragma once

#include "documents/draw_rows.h"
#include "documents/picture_file.h"
#include "documents/picture_layout.h"
#include "documents/picture_options.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// One picture of a draw: where it is saved, the print configuration's draw kind it prints by, and its layout.
struct DrawPicture
{
    std::string file_name;
    std::string drawtype; // "ko" or "rr"
    int print_size = 0; // the draw size; -64 for a half of a split draw of 128
    PictureLayout layout;
};

// "draw_", the event's name without blanks and "'", the suffix ("1" or "2" for the halves of a split draw of
// 128) and the extension.
std::string draw_picture_file_name(
    std::string_view eventname, std::string_view suffix = {}, std::string_view extension = "gif");

// makepic1 and makepic2: the pictures of an event's draw from the store. A round robin and a knock-out draw
// make one picture; a draw of 128 with split128 on makes two of 64 rows, the second numbering its rows from 65.
// None when the event has no draw in the store.
std::vector<DrawPicture> makepic1(Session& session, DrawStore store, std::int64_t eid, const PictureOptions& options);

// What saving pictures came to: the files written, or the status of the first that failed and its file.
struct SavedPictures
{
    std::vector<std::filesystem::path> files;
    PictureStatus status = PictureStatus::ok;
    std::filesystem::path failed;
    bool ok() const { return status == PictureStatus::ok; }
};

// Each picture scraped and saved into the folder under its file name, the extension chosen by the file name.
SavedPictures save_draw_pictures(const std::vector<DrawPicture>& pictures, const std::filesystem::path& folder);

} // namespace qv
