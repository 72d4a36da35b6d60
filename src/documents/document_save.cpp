#include "documents/document_save.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"

#include <array>
#include <functional>

namespace qv {

namespace {

struct PageNames
{
    const char* file;
    const char* text_box;
};
// Indexed by DocumentPage.
constexpr std::array<PageNames, 8> page_names { {
    { "schedule.txt", "Text1" },
    { "results.txt", "Text6" },
    { "playertimes.txt", "Text7" },
    { "players.txt", "Text9" },
    { "alias.txt", "Text2" },
    { "countrycodes.txt", "Text3" },
    { "standings.txt", "Text4" },
    { "textdraw.txt", "Text5" },
} };

} // namespace

std::string default_file_name(DocumentPage page)
{
    return page_names[static_cast<std::size_t>(page)].file;
}

std::string page_text_id(DocumentPage page)
{
    return std::string("savecurrentpage.") + page_names[static_cast<std::size_t>(page)].text_box;
}

namespace {

// The lines kept under an id in text_box_file_text, in place of what it held.
void store_lines(Database& db, const std::string& id, std::string_view heading, const Document& document)
{
    db.run("delete from text_box_file_text where id=?", id);
    auto insert = db.query("insert into text_box_file_text (id, ln, file_text) values (?, ?, ?)");
    int ln = 0;
    auto store = [&](const std::string& text) {
        insert.bind_all(id, ++ln, text);
        insert.step();
        insert.reset();
    };
    if (!heading.empty())
        store(std::string(heading));
    for (const auto& line : document.lines)
        store(line.text);
}

void read_lines(Database& db, const std::string& id, std::vector<std::string>& lines)
{
    for (auto row = db.query("select file_text from text_box_file_text where id=? order by ln", id); row.step();)
        lines.push_back(row.text(0));
}

std::optional<std::filesystem::path> written_as(
    Session& session, const std::string& default_name, const std::function<bool(const std::filesystem::path&)>& write)
{
    const auto file = session.talk().choose_file(
        { FileDialogKind::SaveAs, "save as..", default_name, "txt.", session.settings().text("app.last_dir_opened") });
    if (!file)
        return std::nullopt;
    if (!write(*file)) {
        session.talk().message("cannot write file:" + file->string());
        return std::nullopt;
    }
    on_file_save(session, *file);
    return file;
}

} // namespace

bool save_current_page(Session& session, DocumentPage page, const Document& document, const std::filesystem::path& file,
    std::string_view heading)
{
    auto& db = session.tournament();
    const auto id = page_text_id(page);
    Transaction transaction(db);
    store_lines(db, id, heading, document);
    transaction.commit();
    std::vector<std::string> lines;
    read_lines(db, id, lines);
    return write_text_file(file, lines);
}

std::string all_pages_text_id(DocumentPage page)
{
    return std::string("saveallpages.") + page_names[static_cast<std::size_t>(page)].text_box;
}

bool save_textboxes_to_file(Session& session, const std::vector<PageDocument>& pages, const std::filesystem::path& file)
{
    auto& db = session.tournament();
    Transaction transaction(db);
    for (const auto& [page, document] : pages)
        store_lines(db, all_pages_text_id(page), {}, document);
    transaction.commit();
    std::vector<std::string> lines;
    for (const auto& [page, document] : pages) {
        if (!lines.empty())
            lines.emplace_back();
        read_lines(db, all_pages_text_id(page), lines);
    }
    return write_text_file(file, lines);
}

std::optional<std::filesystem::path> save_all_pages_as(Session& session, const std::vector<PageDocument>& pages)
{
    return written_as(session, "allpages.txt",
        [&](const std::filesystem::path& file) { return save_textboxes_to_file(session, pages, file); });
}

std::optional<std::filesystem::path> save_document_as(
    Session& session, DocumentPage page, const Document& document, std::string_view heading)
{
    return written_as(session, default_file_name(page),
        [&](const std::filesystem::path& file) { return save_current_page(session, page, document, file, heading); });
}

bool view_document(Session& session, DocumentPage page, const Document& document)
{
    const auto file = session.dirs().working / default_file_name(page);
    if (!write_text_file(file, document.texts())) {
        session.talk().message("cannot write file:" + file.string());
        return false;
    }
    session.talk().show_text(file, default_file_name(page));
    return true;
}

} // namespace qv
