#include "drawengine/match_notes.h"
#include "scheduling/board_fixture.h"

namespace qv::test {
namespace {

using MatchNotesTest = BoardFixture;

TEST_F(MatchNotesTest, NotesAreTrimmedToTheirColumnsPerPlayerOfTheMatch)
{
    // A doubles match has four people, a singles match two.
    const auto doubles = first_round(2).front();
    auto notes = read_match_notes(session, doubles);
    ASSERT_TRUE(notes);
    for (const auto& player : notes->players)
        EXPECT_FALSE(player.empty());
    const auto singles = read_match_notes(session, first_round(1).front());
    EXPECT_FALSE(singles->players[0].empty());
    EXPECT_TRUE(singles->players[1].empty());
    EXPECT_FALSE(singles->players[2].empty());
    EXPECT_TRUE(singles->players[3].empty());

    notes->notes = { "  late ", "", "physio 10:00", " " };
    notes->general = " on show court ";
    save_match_notes(session, *notes);
    const auto again = read_match_notes(session, doubles);
    EXPECT_EQ(again->notes, (std::array<std::string, 4> { "late", "", "physio 10:00", "" }));
    EXPECT_EQ(again->general, "on show court");
    EXPECT_TRUE(talk.said.empty());

    EXPECT_FALSE(read_match_notes(session, 4444));
    EXPECT_EQ(talk.last_message(), "4444 not found,stale data");
}

} // namespace
} // namespace qv::test
