#include "documents/makedrawpic_new.h"

#include "core/session.h"
#include "core/text_rules.h"
#include "documents/ko_picture.h"
#include "documents/picture_render.h"
#include "documents/rr_picture.h"

namespace qv {

std::string draw_picture_file_name(std::string_view eventname, std::string_view suffix, std::string_view extension)
{
    return "draw_" + no_blanks_quotes(eventname) + std::string(suffix) + "." + std::string(extension);
}

std::vector<DrawPicture> makepic1(Session& session, DrawStore store, std::int64_t eid, const PictureOptions& options)
{
    const auto draw = read_draw(session, store, eid);
    if (!draw)
        return {};
    auto used = options;
    if (store == DrawStore::tournament && used.header_overrides.empty())
        used.header_overrides = event_header_overrides(session.tournament(), eid);

    const auto& info = draw->info;
    std::vector<DrawPicture> pictures;
    if (info.drawtype == "rr") {
        pictures.push_back({ draw_picture_file_name(info.eventname), "rr", info.drawsize,
            rr_picture(store_database(session, store), *draw, used) });
    } else if (info.drawsize == 128 && used.split128) {
        pictures.push_back(
            { draw_picture_file_name(info.eventname, "1"), "ko", ko_top_half, ko_picture(*draw, ko_top_half, used) });
        pictures.push_back(
            { draw_picture_file_name(info.eventname, "2"), "ko", ko_top_half, ko_picture(*draw, ko_lower_half, used) });
    } else if (ko_rows(info.drawsize).levels > 0) {
        pictures.push_back(
            { draw_picture_file_name(info.eventname), "ko", info.drawsize, ko_picture(*draw, info.drawsize, used) });
    }
    return pictures;
}

SavedPictures save_draw_pictures(const std::vector<DrawPicture>& pictures, const std::filesystem::path& folder)
{
    SavedPictures saved;
    for (const auto& picture : pictures) {
        const auto file = folder / picture.file_name;
        saved.status = PictureBoxToFile(scrape(picture.layout), file);
        if (!saved.ok()) {
            saved.failed = file;
            return saved;
        }
        saved.files.push_back(file);
    }
    return saved;
}

} // namespace qv
