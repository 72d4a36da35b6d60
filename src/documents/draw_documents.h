#pragma once

#include "documents/document_lines.h"
#include "documents/text_draw_ko.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace qv {

class Session;

// The text draw of an event: a knock-out by text_draw_ko (with next-round pointers and countries as asked), a
// round robin by text_draw_rr; the event's name is the title. None for an event without a draw.
Document text_draw_document(
    Database& tournament, std::int64_t eid, NextRoundPointers pointers, TextDrawCountries countries);

// save_images: the pictures of the chosen events that have a draw size, saved into the folder; then
// "Draw images available in " and the folder. False when a picture could not be saved (its fault is said).
bool save_images(Session& session, const std::vector<std::int64_t>& eids, const std::filesystem::path& folder);

// iprint: the pictures of the chosen events, each on a page of its own in portrait, the copies typed ("1" when
// the box is empty). A number of copies that is no whole number from 1 to 99 is refused.
bool iprint(Session& session, const std::vector<std::int64_t>& eids, const std::string& copies);

} // namespace qv
