#include "scheduling/board_files.h"

#include "core/file_save.h"
#include "core/match_record.h"
#include "core/session.h"

namespace qv {

std::filesystem::path day_court_map(ScheduleBoard& board)
{
    auto& session = board.session();
    std::vector<std::string> lines { "day-" + board.words().court + " map", "" };
    for (auto rows
         = session.tournament().query("Select sdate, cid, courtname, ind from scheduledays_courts order by idx,cid");
         rows.step();)
        lines.push_back(rows.text(0) + "," + cid_word(rows.integer(1)) + "," + rows.text(2) + "," + rows.text(3));
    const auto file = session.dirs().working / "day-court map.txt";
    if (!write_text_file(file, lines)) {
        session.talk().message("cannot write file:" + file.string());
        return {};
    }
    session.talk().show_text(file, "day-" + board.words().court + " map");
    return file;
}

bool screenscrape_allowed(Session& session)
{
    return session.settings().text("app.screenscrape") == "allow screenscrape";
}

std::vector<std::string> list_chooser_entries(Session& session)
{
    std::vector<std::string> entries { "select.." };
    if (screenscrape_allowed(session))
        entries.push_back("screenscrape");
    for (const char* entry : { "print(l)", "print(p)", "save to file", "save as PDF(l)", "save as PDF(p)" })
        entries.emplace_back(entry);
    return entries;
}

std::vector<std::string> board_list_text(const ScheduleBoard& board, BoardListId which)
{
    std::vector<std::string> lines { std::string(which == BoardListId::court ? court_list_header : upper_list_header) };
    for (const auto& line : board.list(which).lines())
        lines.push_back(line.text);
    return lines;
}

std::string board_list_file_name(const ScheduleBoard& board, BoardListId which)
{
    switch (which) {
    case BoardListId::unscheduled:
        return "unscheduled.txt";
    case BoardListId::clipboard:
        return "clipboard.txt";
    case BoardListId::court:
        break;
    }
    return board.words().court + ".txt";
}

std::optional<std::filesystem::path> screenscrape_list(ScheduleBoard& board, BoardListId which)
{
    auto& session = board.session();
    if (!screenscrape_allowed(session))
        return std::nullopt;
    const auto file = session.dirs().working / board_list_file_name(board, which);
    if (!write_text_file(file, board_list_text(board, which))) {
        session.talk().message("cannot write file:" + file.string());
        return std::nullopt;
    }
    session.talk().show_text(file, "screenscrape");
    return file;
}

std::optional<std::filesystem::path> save_list_to_file(ScheduleBoard& board, BoardListId which)
{
    auto& session = board.session();
    auto& settings = session.settings();
    const auto chosen = save_text_file_as(session, board_list_file_name(board, which),
        settings.text("app.last_dir_opened"), board_list_text(board, which));
    if (chosen)
        settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
    return chosen;
}

} // namespace qv
