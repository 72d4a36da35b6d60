#include "documents/draw_documents.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "documents/makedrawpic_new.h"
#include "documents/printroutines.h"
#include "documents/text_draw_rr.h"

#include <charconv>

namespace qv {

namespace {

// The chosen events that have a draw size, in the order chosen.
std::vector<std::int64_t> drawn_events(Database& tournament, const std::vector<std::int64_t>& eids)
{
    std::vector<std::int64_t> drawn;
    for (auto eid : eids)
        if (tournament.scalar_integer("Select count(*) from events where eid=? and drawsize >0", eid) > 0)
            drawn.push_back(eid);
    return drawn;
}

std::optional<int> copies_of(const std::string& typed)
{
    const auto text = trim(typed);
    if (text.empty())
        return 1;
    int copies = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), copies);
    if (error != std::errc {} || end != text.data() + text.size() || copies < 1 || copies > 99)
        return std::nullopt;
    return copies;
}

} // namespace

Document text_draw_document(
    Database& tournament, std::int64_t eid, NextRoundPointers pointers, TextDrawCountries countries)
{
    auto event
        = tournament.query("select eventname, drawtype, drawsize from events where eid=? and drawdone=true", eid);
    Document document;
    if (!event.step())
        return document;
    const auto name = event.text("eventname");
    // A round robin is read through its scratch table, written in one go.
    Transaction transaction(tournament);
    const auto lines = lcase(trim(event.text("drawtype"))) == "rr"
        ? text_draw_rr_lines(tournament, eid, name)
        : text_draw_ko_lines(tournament, static_cast<int>(event.integer("drawsize")), eid, name, pointers, countries);
    transaction.commit();
    for (const auto& line : lines)
        document.add(line);
    return document;
}

bool save_images(Session& session, const std::vector<std::int64_t>& eids, const std::filesystem::path& folder)
{
    const auto options = picture_options_from_settings(session);
    for (auto eid : drawn_events(session.tournament(), eids)) {
        session.talk().progress("draw " + std::to_string(eid));
        const auto saved = save_draw_pictures(makepic1(session, DrawStore::tournament, eid, options), folder);
        if (!saved.ok()) {
            session.talk().message(GdiErrorString(saved.status), saved.failed.filename().string());
            return false;
        }
    }
    session.talk().message("Draw images available in " + folder.string());
    return true;
}

bool iprint(Session& session, const std::vector<std::int64_t>& eids, const std::string& copies)
{
    const auto count = copies_of(copies);
    if (!count) {
        session.talk().message("enter number of copies to print");
        return false;
    }
    const auto options = picture_options_from_settings(session);
    const PicturePlace page { "portrait", 0, 0, 100, 100 };
    return print_with_printer(session, "print all events, separate pages, portrait", [&](PrintJob& job) {
        for (auto eid : drawn_events(session.tournament(), eids))
            for (const auto& picture : makepic1(session, DrawStore::tournament, eid, options))
                print_picture(job, printable(picture.layout), page, *count);
    });
}

} // namespace qv
