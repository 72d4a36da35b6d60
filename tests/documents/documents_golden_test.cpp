#include "core/file_save.h"
#include "documents/country_codes.h"
#include "documents/document_save.h"
#include "documents/documents_tournament.h"
#include "documents/draw_documents.h"
#include "documents/live_days.h"
#include "documents/name_map.h"
#include "documents/player_list.h"
#include "documents/player_times.h"
#include "documents/results_documents.h"
#include "documents/rr_standings.h"
#include "documents/working_schedule.h"
#include "support/file_bytes.h"

#include <cstdlib>
#include <functional>

namespace qv {
namespace {

std::filesystem::path expected(const std::string& name)
{
    return std::filesystem::path(QV_TEST_DATA_DIR) / "expected" / "documents" / name;
}

class DocumentsGolden : public test::DocumentsTournament
{
protected:
    // The document written as a text file, byte for byte the expected file. With QV_WRITE_GOLDEN set the
    // expected file is written instead, to be read and checked by eye before it is committed.
    void expect_golden(const std::string& name, const Document& document)
    {
        if (std::getenv("QV_WRITE_GOLDEN")) {
            ASSERT_TRUE(write_text_file(expected(name), document.texts()));
            return;
        }
        const auto file = dir.path() / name;
        ASSERT_TRUE(save_current_page(session, DocumentPage::schedule, document, file));
        EXPECT_EQ(test::read_bytes(file), test::read_bytes(expected(name))) << name;
    }
};

TEST_F(DocumentsGolden, WorkingSchedules)
{
    ScheduleOptions all { { true, true }, { true, true }, { true, true, true, true }, false, true };
    expect_golden("schedule_by_court_day1.txt", FORMAT_schedule_by(context(), ScheduleBy::court, day1, all));
    ScheduleOptions defaults { { true, false }, { true, false }, {}, false, true };
    expect_golden("schedule_by_time_day2.txt", FORMAT_schedule_by(context(), ScheduleBy::time, day2, defaults));
    ScheduleOptions with_ids { { false, false }, { false, true }, { false, true, true, true }, true, true };
    expect_golden("schedule_by_event_day2.txt", FORMAT_schedule_by(context(), ScheduleBy::event, day2, with_ids));
}

TEST_F(DocumentsGolden, Results)
{
    ResultsOptions options { { true, true }, { true, true } };
    VIP_setlivedays(db(), {});
    expect_golden("results_by_event.txt", VIP_text_results(context(), options));
    VIP_setlivedays(db(), { std::string(day1) + " ?^", std::string(day2) + " ?" });
    expect_golden("results_by_round.txt", VIP_text_results_by_round(context(), { { true, false }, { true, false } }));
    expect_golden("results_by_schedule.txt", VIP_text_resultsbyschedule(context(), options));
    setlivedays_idocs(db(), { std::string(day1) + " ?", "no day ¿" });
    expect_golden("results_by_day.txt", VIP_text_results_groupbyday(context(), { {}, { true, false } }));
    expect_golden("results_for_player.txt", VIP_players_results(context(), "Dan Dale", options));
}

TEST_F(DocumentsGolden, PlayerTimes)
{
    VIP_setlivedays_playertimes(db(), { std::string(day1), std::string(day2) });
    VIP_compile_player_times_idocs(context(), { { false, true, true, true }, ExplicitTime::either, true });
    expect_golden("playertimes.txt", VIP_text_player_times_idocs(context()));
    expect_golden("playertimes_eli_east.txt", VIP_text_player_times_idocs_pn(context(), "eli east"));
    VIP_compile_player_times_idocs(context(), { {}, ExplicitTime::explicit_time, false });
    expect_golden("playertimes_explicit.txt", VIP_text_player_times_idocs(context()));
}

TEST_F(DocumentsGolden, ListsAndMaps)
{
    expect_golden("players.txt", VIP_text_rating_ranking(context(), { true, true, true, true, 1 }));
    expect_golden("players_plain.txt", VIP_text_rating_ranking(context(), {}));
    expect_golden("alias.txt", name_map(context(), std::nullopt));
    expect_golden("standings_rr.txt", standings_rr(context(), 2));
    expect_golden("countrycodes.txt", make_country_codes(context(), session.init_db()));
    expect_golden("textdraw_ko16.txt", text_draw_document(db(), 1, NextRoundPointers::on, TextDrawCountries::on));
    expect_golden("textdraw_rr5.txt", text_draw_document(db(), 2, NextRoundPointers::on, TextDrawCountries::on));
}

} // namespace
} // namespace qv
