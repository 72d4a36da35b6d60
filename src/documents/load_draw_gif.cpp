#include "documents/load_draw_gif.h"

#include "core/session.h"
#include "core/utf8.h"
#include "documents/gif_file.h"
#include "documents/printroutines.h"

namespace qv {

std::optional<QImage> open_gif_draw(Session& session)
{
    const auto file = session.talk().choose_file(
        { FileDialogKind::Open, "open gif draw", "", "gif.", session.settings().text("app.last_dir_opened") });
    if (!file)
        return std::nullopt;
    return read_gif_draw(session, *file);
}

std::optional<QImage> read_gif_draw(Session& session, const std::filesystem::path& file)
{
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
        session.talk().message("file not found: " + file.string());
        return std::nullopt;
    }
    auto picture = read_gif(file);
    if (!picture)
        session.talk().message("cannot read gif file: " + file.string());
    return picture;
}

bool print_draw_gif(Session& session, const QImage& picture, std::string_view kind_word)
{
    if (trim(kind_word).empty()) {
        session.talk().message("must specify drawtype/size");
        return false;
    }
    const auto kind = draw_kind_from_word(kind_word);
    if (!kind) {
        session.talk().message("drawtype/size not recognized");
        return false;
    }
    return print_with_printer(session, "load draw gif",
        [&](PrintJob& job) { print_picture_by_config(session, job, printable(picture), *kind, 1); });
}

} // namespace qv
