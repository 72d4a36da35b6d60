#include "documents/print_save_draws.h"

#include "core/database.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "documents/makedrawpic_new.h"
#include "documents/pdf_save.h"
#include "documents/printroutines.h"
#include "documents/text_draw_ko.h"
#include "documents/text_draw_rr.h"

#include <charconv>

namespace qv {

namespace {

constexpr int max_copies = 99;

bool refuse_no_draw(Session& session, const PrintsChoice& choice)
{
    if (!choice.eids.empty())
        return false;
    session.talk().message("select at least 1 draw");
    return true;
}

// A whole number of copies from 1 to 99.
std::optional<int> copies_of(const std::string& text)
{
    const auto typed = trim(text);
    int copies = 0;
    auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), copies);
    if (typed.empty() || error != std::errc {} || end != typed.data() + typed.size() || copies < 1
        || copies > max_copies)
        return std::nullopt;
    return copies;
}

PictureOptions options_of(Session& session, const PrintsChoice& choice)
{
    auto options = picture_options_from_settings(session);
    options.split128 = choice.split128;
    options.country = choice.country;
    options.times = choice.times;
    return options;
}

std::optional<std::filesystem::path> choose_folder(Session& session, const char* title)
{
    return session.talk().choose_file(
        { FileDialogKind::Directory, title, "", "", session.settings().text("app.last_dir_opened") });
}

// A picture takes a moment: the status line names the draw being made.
std::vector<DrawPicture> made_pictures(Session& session, std::int64_t eid, const PictureOptions& options)
{
    session.talk().progress("draw " + std::to_string(eid));
    return makepic1(session, DrawStore::tournament, eid, options);
}

// Every picture of each draw on pages of its own, placed by the default configuration of its draw kind.
void print_draws(
    Session& session, PrintJob& job, const std::vector<std::int64_t>& eids, const PictureOptions& options, int copies)
{
    for (auto eid : eids)
        for (const auto& picture : made_pictures(session, eid, options))
            print_picture_by_config(
                session, job, printable(picture.layout), { picture.drawtype, picture.print_size }, copies);
}

// "draw_" and the event's name as a file name.
std::string draw_pdf_name(Database& tournament, std::int64_t eid)
{
    return "draw_" + no_blanks_quotes(tournament.scalar_text("select eventname from events where eid=?", eid)) + ".pdf";
}

} // namespace

std::vector<DrawLine> events_drawdone_draws(Database& tournament)
{
    std::vector<DrawLine> lines;
    for (auto row = tournament.query("Select eid, eventname from events where drawdone=true order by eid"); row.step();)
        lines.push_back({ row.integer("eid"), "(" + std::to_string(row.integer("eid")) + ")" + row.text("eventname") });
    return lines;
}

bool prints_print(Session& session, const PrintsChoice& choice)
{
    if (refuse_no_draw(session, choice))
        return false;
    const auto copies = copies_of(choice.copies);
    if (!copies) {
        session.talk().message("enter number of copies to print");
        return false;
    }
    const auto options = options_of(session, choice);
    return print_with_printer(
        session, "Print draws", [&](PrintJob& job) { print_draws(session, job, choice.eids, options, *copies); });
}

bool prints_save_pdf(Session& session, const PrintsChoice& choice, const PdfDevice& device)
{
    if (refuse_no_draw(session, choice))
        return false;
    const auto options = options_of(session, choice);
    const auto name = choice.eids.size() == 1 ? draw_pdf_name(session.tournament(), choice.eids.front()) : "draws.pdf";
    return save_pdf_with(session, device, name, "Print draws", [&](PrintJob& job) {
        print_draws(session, job, choice.eids, options, 1);
    }).has_value();
}

bool draw_save_pdf(Session& session, std::int64_t eid, const PdfDevice& device)
{
    const auto options = picture_options_from_settings(session);
    if (session.tournament().scalar_integer("select count(*) from schedule where eid=?", eid) == 0) {
        session.talk().message("no image to print");
        return false;
    }
    return save_pdf_with(session, device, draw_pdf_name(session.tournament(), eid), "Print draws", [&](PrintJob& job) {
        print_draws(session, job, { eid }, options, 1);
    }).has_value();
}

bool prints_save_images(Session& session, const PrintsChoice& choice)
{
    if (refuse_no_draw(session, choice))
        return false;
    const auto folder = choose_folder(session, "save images to...");
    if (!folder)
        return false;
    const auto options = options_of(session, choice);
    for (auto eid : choice.eids) {
        const auto saved = save_draw_pictures(made_pictures(session, eid, options), *folder);
        if (!saved.ok()) {
            session.talk().message(GdiErrorString(saved.status), saved.failed.filename().string());
            return false;
        }
    }
    session.talk().message("draw images available in " + folder->string());
    return true;
}

bool prints_save_text(Session& session, const PrintsChoice& choice)
{
    if (refuse_no_draw(session, choice))
        return false;
    const auto folder = choose_folder(session, "save text draws to...");
    if (!folder)
        return false;
    auto& db = session.tournament();
    const auto pointers = session.settings().integer("include_next_round_pointers") == 1 ? NextRoundPointers::on
                                                                                         : NextRoundPointers::off;
    const auto countries = choice.country ? TextDrawCountries::on : TextDrawCountries::off;
    for (auto eid : choice.eids) {
        auto event = db.query("select eventname, drawtype, drawsize from events where eid=?", eid);
        if (!event.step())
            continue;
        const auto name = event.text("eventname");
        const auto file = *folder / ("textdraw_" + no_blanks_quotes(name) + ".txt");
        const bool written = lcase(trim(event.text("drawtype"))) == "rr"
            ? text_draw_rr(file, db, eid, name)
            : text_draw_ko(file, db, static_cast<int>(event.integer("drawsize")), eid, name, pointers, countries);
        if (!written) {
            session.talk().message("cannot write file:" + file.string());
            return false;
        }
    }
    session.talk().message("ok");
    return true;
}

} // namespace qv
