#pragma once

#include "scheduling/schedule_board.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv {

// day_court_map: "day-court map.txt" in the working folder, headed "day-" court " map" and a blank line, then
// day, short court form, name and marks of every court of every day, comma-separated; shown in the viewer.
std::filesystem::path day_court_map(ScheduleBoard& board);

// The choices over a list, in order: "select..", "screenscrape" (only while app.screenscrape allows it),
// "print(l)", "print(p)", "save to file", then "save as PDF(l)" and "save as PDF(p)": the pages of the prints in
// a PDF file.
std::vector<std::string> list_chooser_entries(Session& session);
bool screenscrape_allowed(Session& session);

// A list as text: its header and its lines as they stand.
std::vector<std::string> board_list_text(const ScheduleBoard& board, BoardListId which);
// The file a list is saved to by default: "unscheduled.txt", "clipboard.txt", or the court word and ".txt".
std::string board_list_file_name(const ScheduleBoard& board, BoardListId which);
// "screenscrape": the list written to the working folder and shown in the viewer. None when not allowed.
std::optional<std::filesystem::path> screenscrape_list(ScheduleBoard& board, BoardListId which);
// "save to file": the list saved where the user chooses.
std::optional<std::filesystem::path> save_list_to_file(ScheduleBoard& board, BoardListId which);

} // namespace qv
