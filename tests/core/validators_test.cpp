#include "core/validators.h"
#include "support/scripted_talk.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace qv {
namespace {

struct Expect
{
    std::string text;
    std::string message; // empty: passes
    int position = -1;
};

void expect_all(const char* name, Check (*check)(std::string_view), const std::vector<Expect>& cases)
{
    for (const auto& c : cases) {
        auto result = check(c.text);
        if (c.message.empty()) {
            EXPECT_FALSE(result) << name << " \"" << c.text << "\": " << result->message;
            continue;
        }
        ASSERT_TRUE(result) << name << " \"" << c.text << "\"";
        EXPECT_EQ(result->message, c.message) << name << " \"" << c.text << "\"";
        EXPECT_EQ(result->position, c.position) << name << " \"" << c.text << "\"";
    }
}

TEST(Validators, EachNumberCheckWithItsMessageAndPosition)
{
    expect_all(
        "value_required", value_required, { { "", "value required" }, { "   ", "value required" }, { " x ", "" } });
    expect_all("check_integer", check_integer,
        {
            { "", "" },
            { "0123", "" },
            { "12a", "invalid character for integer", 2 },
            { "-1", "invalid character for integer", 0 },
            { "1.5", "invalid character for integer", 1 },
            { " 1", "invalid character for integer", 0 },
        });
    expect_all("check_double", check_double,
        {
            { "", "" },
            { "12.50", "" },
            { ".5", "" },
            { "5.", "" },
            { ".", "invalid double value" },
            { "1.2.3", "invalid double value, more than one point (.)", 3 },
            { "..", "invalid double value, more than one point (.)", 1 },
            { "12,5", "invalid character for double", 2 },
            { "-5", "invalid character for double", 0 },
            { "¿5", "invalid character for double", 0 },
            { "5¿x", "invalid character for double", 1 },
        });
    expect_all("check_signed_double", check_signed_double,
        {
            { "", "" },
            { "-12.5", "" },
            { "12.5", "" },
            { "-.5", "" },
            { "5-", "invalid double value,negative sign must be first character", 1 },
            { "1-2-", "invalid double value,negative sign must be first character", 1 },
            { "--5", "invalid double value, more than one -", 1 },
            { "-5-", "invalid double value, more than one -", 2 },
            { "-1.2.3", "invalid double value, more than one .", 4 },
            { ".", "invalid double value" },
            { "-", "invalid double value" },
            { "-.", "invalid double value" },
            { "-1a", "invalid character for double", 2 },
            { "+1", "invalid character for double", 0 },
        });
}

TEST(Validators, CheckClassPointsAtTheCharacterNotTheByte)
{
    auto result = check_class("jos¿e'", ValueClass::systemdisallow);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->message, "illegal character");
    EXPECT_EQ(result->position, 3);

    result = check_class("émile o'neil", ValueClass::systemdisallow);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->position, 7);

    EXPECT_FALSE(check_class("", ValueClass::systemdisallow));
    EXPECT_FALSE(check_class("tee time", ValueClass::genericterms));
    EXPECT_TRUE(check_class("Tee", ValueClass::genericterms));
}

TEST(Validators, ReportShowsTheMessageWithoutTitle)
{
    test::ScriptedTalk talk;
    EXPECT_TRUE(report(talk, value_required("x")));
    EXPECT_TRUE(talk.said.empty());

    EXPECT_FALSE(report(talk, check_class("o'neil", ValueClass::systemdisallow)));
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].kind, "message");
    EXPECT_EQ(talk.said[0].text, "illegal character");
    EXPECT_EQ(talk.said[0].title, "");
}

TEST(Validators, TextVersionsCountPositionsFromOne)
{
    EXPECT_EQ(check_class_text("smith", ValueClass::systemdisallow_resultsimport), "ok");
    EXPECT_EQ(check_class_text("a/b", ValueClass::systemdisallow_resultsimport), "ok");
    EXPECT_EQ(
        check_class_text("o'neil", ValueClass::systemdisallow_resultsimport), "illegal character ' at position 2");
    EXPECT_EQ(check_class_text("né¿", ValueClass::systemdisallow), "illegal character ¿ at position 3");

    EXPECT_EQ(check_integer_text(""), "ok");
    EXPECT_EQ(check_integer_text("42"), "ok");
    EXPECT_EQ(check_integer_text("4x2"), "invalid character for integer at position 2");

    EXPECT_EQ(check_double_text(""), "ok");
    EXPECT_EQ(check_double_text("3.75"), "ok");
    EXPECT_EQ(check_double_text("."), "invalid double/integer value");
    EXPECT_EQ(check_double_text("1.2."), "invalid double/integer value, more than one point (.)");
    EXPECT_EQ(check_double_text("1.2x"), "invalid character for double/integer at position 4");
}

// One row per class: characters it must refuse and characters it must let through.
struct ClassCase
{
    ValueClass cls;
    std::u32string refused;
    std::u32string allowed_chars;
};

TEST(ValueClasses, EachClassOnItsCharacters)
{
    const ClassCase cases[] = {
        { ValueClass::custid, U" -.'¿é", U"azAZ09_" },
        { ValueClass::alphanumeric, U" _-.'¿", U"azAZ09" },
        { ValueClass::genericterms, U"AZ09_-'¿é", U" az" },
        { ValueClass::search_disallow, U"'\"", U"/\\¿&#^%* a" },
        { ValueClass::systemdisallow, U"'\"/\\¿&#^%*", U"()-., aZé?:" },
        { ValueClass::systemdisallow_resultsimport, U"'\"\\¿&#^%*", U"/()-. a" },
        { ValueClass::systemdisallow_eventname, U")('\"/\\¿&#^%*", U"-. a" },
        { ValueClass::country, U"'\"/\\¿&^%*", U"#()-. a" },
        { ValueClass::overidenames, U"'\"\\¿&^%*", U"/#() a" },
        { ValueClass::servletname, U"'\"¿&^%#", U"/\\*:. a" },
        { ValueClass::textuploads, U"'\"¿&#^%", U"/\\*(). a" },
        { ValueClass::vbfilename, U"'\"/\\:*?><|.", U" _-()¿&#a" },
        { ValueClass::any, U"", U"'\"¿/\\^" },
    };
    for (const auto& c : cases) {
        for (char32_t ch : c.refused)
            EXPECT_FALSE(allowed(c.cls, ch))
                << static_cast<int>(c.cls) << " U+" << std::hex << static_cast<std::uint32_t>(ch);
        for (char32_t ch : c.allowed_chars)
            EXPECT_TRUE(allowed(c.cls, ch))
                << static_cast<int>(c.cls) << " U+" << std::hex << static_cast<std::uint32_t>(ch);
    }
}

} // namespace
} // namespace qv
