#include "core/utf8.h"
#include "core/validators.h"
#include "entries/players.h"
#include "support/session_fixture.h"

#include <cstdint>

namespace qv {
namespace {

constexpr ValueClass name_classes[] = { ValueClass::systemdisallow, ValueClass::systemdisallow_resultsimport,
    ValueClass::systemdisallow_eventname, ValueClass::country, ValueClass::overidenames };

TEST(TextHygiene, NamesHoldOnlyWhatWindows1252WritesAndTheEyeSees)
{
    // Controls, the undefined bytes of the code page, invisible characters, characters without a byte, and
    // what a byte that was not UTF-8 decodes to.
    const std::u32string refused { 0x0000, 0x0009, 0x000A, 0x000D, 0x001B, 0x007F, 0x0081, 0x0085, 0x009D, 0x00A0,
        0x00AD, 0x200B, 0x200C, 0x200D, 0x200E, 0x200F, 0x202E, 0x2066, 0xFEFF, 0x0100, 0x0131, 0x4E2D, 0x1F600,
        0xFFFD };
    const std::u32string allowed_chars = U"aZ09 -.,éÉßÿŸŠšŒœŽž€‘’“”–—…™";
    for (ValueClass cls : name_classes) {
        for (char32_t c : refused)
            EXPECT_FALSE(allowed(cls, c)) << static_cast<int>(cls) << " U+" << std::hex << std::uint32_t(c);
        for (char32_t c : allowed_chars)
            EXPECT_TRUE(allowed(cls, c)) << static_cast<int>(cls) << " U+" << std::hex << std::uint32_t(c);
    }
    // Free text beyond names keeps its line breaks and tabs.
    for (ValueClass cls : { ValueClass::textuploads, ValueClass::any })
        for (char32_t c : { U'\t', U'\n', U'\r' })
            EXPECT_TRUE(allowed(cls, c));
}

TEST(TextHygiene, RefusedWithTheIllegalCharacterWordsWhereverTheNameComesFrom)
{
    struct Case
    {
        std::string text;
        int position;
    };
    const Case cases[] = {
        { "ann\tlee", 3 }, { "ann lee\r\n", 7 }, { std::string("ann\0lee", 7), 3 },
        { "ann\xC2\xA0lee", 3 }, // no-break space
        { "ann\xE2\x80\x8Blee", 3 }, // zero-width space
        { "\xE2\x80\x8F"
          "ann",
            0 }, // right-to-left mark
        { "ann\xFFlee", 3 }, // not UTF-8
        { "\xD0\x90nna", 0 }, // Cyrillic A, which looks like a Latin one
    };
    for (const auto& c : cases) {
        auto typed = check_class(c.text, ValueClass::systemdisallow);
        ASSERT_TRUE(typed) << c.text;
        EXPECT_EQ(typed->message, "illegal character");
        EXPECT_EQ(typed->position, c.position) << c.text;
        const auto imported = check_class_text(c.text, ValueClass::systemdisallow_resultsimport);
        EXPECT_EQ(imported.substr(0, 18), "illegal character ") << c.text;
        EXPECT_NE(imported.find(" at position " + std::to_string(c.position + 1)), std::string::npos) << imported;
    }
    EXPECT_FALSE(check_class("Émile Œuvré-Šaž", ValueClass::systemdisallow));
    const auto no_byte = check_class("Émile Šťastný", ValueClass::systemdisallow);
    ASSERT_TRUE(no_byte);
    EXPECT_EQ(no_byte->position, 7) << "ť has no byte in the code page";
}

TEST(TextHygiene, EveryLetterOfTheCodePageFoldsItsCase)
{
    EXPECT_EQ(lcase("ÉMILE ŠŒŽŸ ÀÞ"), "émile šœžÿ àþ");
    EXPECT_EQ(ucase("émile šœžÿ àþ"), "ÉMILE ŠŒŽŸ ÀÞ");
    EXPECT_EQ(lcase("×ß÷µ"), "×ß÷µ") << "signs and letters without a pair stay";
    EXPECT_EQ(ucase("×ß÷µ"), "×ß÷µ");
    EXPECT_TRUE(same_name(" Émile ", "éMILE"));
    EXPECT_EQ(lcase("x\xFF"), "x\xEF\xBF\xBD") << "a byte that is not UTF-8 reads as one character";
}

using TextHygieneInTheFile = test::TournamentFixture;

TEST_F(TextHygieneInTheFile, TheDatabaseComparesNamesAsTheProgramDoes)
{
    auto& db = session.tournament();
    EXPECT_EQ(db.scalar_text("select lower('ÉMILE ŠŒŽŸ'), upper('émile')"), "émile šœžÿ");
    EXPECT_EQ(db.scalar_text("select upper('émile šœžÿ')"), "ÉMILE ŠŒŽŸ");
    EXPECT_TRUE(db.query("select lower(null) is null").step());

    // A name that came in through an import in capitals is the same name typed in small letters.
    db.run("insert into players (pid, player, fname, sname, pval) values (1, 'ÉMILE ZOLA', 'ÉMILE', 'ZOLA', '1')");
    ASSERT_TRUE(load_player_by_name(db, "émile zola"));
    PlayerRecord typed;
    typed.fname = "émile";
    typed.sname = "zola";
    typed.sex = "male";
    const auto refusal = validate_player(db, typed, PlayerForm::add_new);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->refusal.message, "already have a player with name=Émile Zola");
}

} // namespace
} // namespace qv
