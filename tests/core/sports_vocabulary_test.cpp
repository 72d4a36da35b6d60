#include "core/sports_vocabulary.h"
#include "support/refusal_check.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

using SportsTest = test::SessionFixture;

SportWords golf()
{
    return set_up_sport()[1].words;
}

TEST_F(SportsTest, EachWordMustBeLowerCaseLettersAndBlanks)
{
    struct Case
    {
        int field;
        std::string value, message;
        int position;
    };
    const Case cases[] = {
        { 0, "  ", "value required", -1 },
        { 2, "Tees", "illegal character", 0 },
        { 4, "m1", "illegal character", 1 },
        { 5, "big matches", "", -1 },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value);
        auto words = golf();
        (c.field == 0 ? words.court : c.field == 2 ? words.courts : c.field == 4 ? words.m : words.matches) = c.value;
        test::expect_refusal(validate_sport_words(words), c.message, c.field, c.position);
    }
}

TEST_F(SportsTest, WithoutAFileTheWordsApplyAtOnce)
{
    session.boot_start_app("");
    EXPECT_EQ(set_up_sport()[2].words.courts, "pitchs") << "soccer's plural as stored";
    EXPECT_EQ(save_sport_words(session, golf()), SaveWords::saved);
    EXPECT_EQ(session.settings().get_disk_var("app.generic_courts"), "tees");
    EXPECT_EQ(session.settings().text("app.generic_court"), "tee");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SportsTest, WithAFileOpenNoKeepsTheOldWordsAndYesRestarts)
{
    session.boot_start_app(dir.new_tournament().string());
    talk.answers.push_back(Answer::No);
    EXPECT_EQ(save_sport_words(session, golf()), SaveWords::declined);
    EXPECT_EQ(talk.said.back().text, "Changing these settings requires a restart of quorvelin,continue?");
    EXPECT_EQ(talk.said.back().title, "Confirm");
    EXPECT_EQ(session.settings().get_disk_var("app.generic_court"), "court");

    talk.answers.push_back(Answer::Yes);
    auto darts = set_up_sport()[5].words;
    darts.m = "g";
    darts.match = "game";
    EXPECT_EQ(save_sport_words(session, darts), SaveWords::saved_restarting);
    host.run_deferred();
    EXPECT_TRUE(session.has_tournament());
    EXPECT_EQ(host.generics_caption, "gc");
    EXPECT_EQ(host.generics_tooltip, "game counts");
}

TEST_F(SportsTest, ARefusalIsShownAndNothingIsWritten)
{
    session.boot_start_app("");
    auto words = golf();
    words.court = "T#";
    EXPECT_EQ(save_sport_words(session, words), SaveWords::refused);
    EXPECT_EQ(talk.last_message(), "illegal character");
    EXPECT_EQ(session.settings().get_disk_var("app.generic_court"), "court");
}

} // namespace
} // namespace qv
