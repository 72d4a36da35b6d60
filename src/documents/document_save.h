#pragma once

#include "documents/document_lines.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

class Session;

// The pages of the documents window.
enum class DocumentPage { schedule, results, player_times, players, alias, country_codes, standings, text_draws };

// The file name "save as.." offers for a page: "schedule.txt", "results.txt", "playertimes.txt", and for the
// pages without a name of their own "players.txt", "alias.txt", "countrycodes.txt", "standings.txt",
// "textdraw.txt".
std::string default_file_name(DocumentPage page);
// The page's id in text_box_file_text: "savecurrentpage." and the name of its text box.
std::string page_text_id(DocumentPage page);

// save_current_page: the lines stored under the page's id in text_box_file_text, then written from there to the
// file in Windows-1252 (the heading first when one is given). False when the file cannot be written.
bool save_current_page(Session& session, DocumentPage page, const Document& document, const std::filesystem::path& file,
    std::string_view heading = {});

// The page's id when all pages are saved at once: "saveallpages." and the name of its text box.
std::string all_pages_text_id(DocumentPage page);

// A page and the lines it shows.
using PageDocument = std::pair<DocumentPage, Document>;

// save_textboxes_to_file: each page's lines stored under its "saveallpages." id in text_box_file_text, then
// written from there into one file in Windows-1252, page after page in the order given, an empty line between
// two pages. False when the file cannot be written.
bool save_textboxes_to_file(
    Session& session, const std::vector<PageDocument>& pages, const std::filesystem::path& file);

// "save all pages": the file asked for under "allpages.txt", every page made so far written into it, then
// on_file_save. The path written, or none when the user cancelled or the file could not be written.
std::optional<std::filesystem::path> save_all_pages_as(Session& session, const std::vector<PageDocument>& pages);

// "save as..": the file asked for under the page's default name, written, then on_file_save. The path written,
// or none when the user cancelled or the file could not be written ("cannot write file:" and the path).
std::optional<std::filesystem::path> save_document_as(
    Session& session, DocumentPage page, const Document& document, std::string_view heading = {});

// The page in the text viewer: written under its default name into the working folder, then shown.
bool view_document(Session& session, DocumentPage page, const Document& document);

} // namespace qv
