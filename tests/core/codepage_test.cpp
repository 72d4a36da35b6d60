#include "core/codepage.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(Codepage, EveryHighByteSurvivesARoundTrip)
{
    for (int b = 0x80; b <= 0xFF; ++b) {
        std::string byte(1, static_cast<char>(b));
        std::string text = from_cp1252(byte);
        EXPECT_EQ(to_cp1252(text), byte) << "byte " << b;
    }
}

TEST(Codepage, KnownCharacters)
{
    struct Case
    {
        unsigned char byte;
        const char* utf8;
    };
    const Case cases[] = {
        { 0xBF, "¿" }, { 0x80, "€" }, { 0x92, "’" }, { 0x9F, "Ÿ" }, { 0xA0, "\u00A0" }, { 0xE9, "é" }, { 0xFF, "ÿ" },
        { 0x8D, "\u008D" }, // undefined in the code page: kept as its control character
    };
    for (const auto& c : cases) {
        std::string byte(1, static_cast<char>(c.byte));
        EXPECT_EQ(from_cp1252(byte), c.utf8) << int(c.byte);
        EXPECT_EQ(to_cp1252(c.utf8), byte) << int(c.byte);
    }
}

TEST(Codepage, MixedTextAndUnrepresentableCharacters)
{
    EXPECT_EQ(to_cp1252("smith^jones¿"), "smith^jones\xBF");
    EXPECT_EQ(from_cp1252("caf\xE9 \x80"), "café €");
    // The C1 control U+0080 has no byte: 0x80 is the euro sign.
    EXPECT_EQ(to_cp1252("Ω\u0080中x"), "???x");
    EXPECT_EQ(to_cp1252("bad \xC3"), "bad ?");
    EXPECT_EQ(to_cp1252(""), "");
}

} // namespace
} // namespace qv
