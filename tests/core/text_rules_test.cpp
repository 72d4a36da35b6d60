#include "core/text_rules.h"
#include "core/utf8.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(Utf8, CountsCharactersNotBytes)
{
    EXPECT_EQ(char_count("¿a"), 2u);
    EXPECT_EQ(decode_utf8("a¿€"), U"a¿€");
    EXPECT_EQ(encode_utf8(U"a¿€"), "a¿€");
    EXPECT_EQ(decode_utf8("x\xC3"), U"x\uFFFD");
    EXPECT_EQ(mid_chars("é¿ab", 1, 2), "¿a");
    EXPECT_EQ(right_chars("abc", 9), "abc");
}

TEST(Utf8, NameKeys)
{
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta "), "\ta"); // blanks only
    EXPECT_EQ(name_key("  John SMITH "), "john smith");
    EXPECT_TRUE(same_name("Bye", " bye"));
    EXPECT_EQ(lcase("ÉMILE"), "émile");
}

TEST(TextRules, SmallTextHelpers)
{
    EXPECT_EQ(killquotes("o'ne'il"), "oneil");
    EXPECT_TRUE(is_empty("   "));
    EXPECT_TRUE(is_empty(std::optional<std::string> {}));
    EXPECT_FALSE(is_empty(" x"));
    EXPECT_EQ(safe_mid("   ", 0, 2), "");
    EXPECT_EQ(safe_mid("¿abc", 1, 2), "ab");
    EXPECT_EQ(bracket("3"), "(3)");
    EXPECT_EQ(bracket("  "), "");
    EXPECT_EQ(strip_markers(" +court 1? ¿^\t"), "court 1");
    EXPECT_EQ(caret_to_lines("a^b^"), "a\nb\n");
    EXPECT_EQ(caret_to_lines("a^b", "\r\n"), "a\r\nb");
    EXPECT_EQ(no_blanks_quotes("men's open a"), "mensopena");
    EXPECT_EQ(clean_file_name("Men's Open: A.B"), "mens_open_ab");
    EXPECT_EQ(machine_safe("My File-1.TXT"), "myfile1.txt");
    EXPECT_EQ(machine_safe(std::string(150, 'a')).size(), 100u);
    EXPECT_EQ(short_name(3, "tournament.qvd"), "tou~.qvd");
    EXPECT_EQ(after_point("draw.ko.gif"), "ko.gif");
    EXPECT_EQ(after_point("nopoint"), "");
}

TEST(TextRules, Splits)
{
    auto pair = split_pair(" john smith / ann lee ");
    EXPECT_EQ(pair.left, "john smith");
    EXPECT_EQ(pair.right, "ann lee");
    pair = split_pair("a/b/c");
    EXPECT_EQ(pair.left, "a");
    EXPECT_EQ(pair.right, "b/c");
    pair = split_pair("single");
    EXPECT_EQ(pair.left, "");
    EXPECT_EQ(pair.right, "");

    EXPECT_EQ(split_caret("a^b^c^d"), (std::array<std::string, 3> { "a", "b", "c^d" }));
    EXPECT_EQ(split_caret("a^b"), (std::array<std::string, 3> { "a", "b", "" }));
    EXPECT_EQ(split_caret("a"), (std::array<std::string, 3> { "a", "", "" }));

    EXPECT_EQ(before_backslash("c:\\x\\draw.gif"), "c:\\x");
    EXPECT_EQ(after_backslash("c:\\x\\draw.gif"), "draw.gif");
    EXPECT_EQ(before_backslash("/home/a/b.qvd"), "/home/a");
    EXPECT_EQ(after_backslash("/home/a\\b.qvd"), "b.qvd");
    EXPECT_EQ(after_backslash("b.qvd"), "b.qvd");
    EXPECT_EQ(before_backslash("b.qvd"), "");

    EXPECT_EQ(strip_first_bracket("john smith (1) (usa)"), "john smith");
    EXPECT_EQ(strip_first_bracket("ann lee"), "ann lee");
}

TEST(TextRules, Wrap150BreaksAtTheFirstBlankFromThe150thCharacter)
{
    std::string word(149, 'x');
    // The blank at 150 is the first one allowed to take the break.
    EXPECT_EQ(wrap_150(word + " a b"), word + " \na b");
    // A blank before 150 keeps the line going.
    std::string early(100, 'y');
    std::string text = early + " " + std::string(60, 'z') + " end";
    EXPECT_EQ(wrap_150(text), early + " " + std::string(60, 'z') + " \nend");
    // Counting restarts after a break, and characters count, not bytes.
    std::string wide;
    for (int i = 0; i < 149; ++i)
        wide += "¿";
    EXPECT_EQ(wrap_150(wide + " q"), wide + " \nq");
    EXPECT_EQ(wrap_150("short text"), "short text");
}

TEST(TextRules, FileSize)
{
    EXPECT_EQ(format_file_size(0), "0 Bytes");
    EXPECT_EQ(format_file_size(1023), "1023 Bytes");
    EXPECT_EQ(format_file_size(1024), "1.00 KB");
    EXPECT_EQ(format_file_size(1536), "1.50 KB");
    EXPECT_EQ(format_file_size(1024 * 1024 - 1), "1024.00 KB");
    EXPECT_EQ(format_file_size(5 * 1024 * 1024 / 2), "2.50 MB");
    EXPECT_EQ(format_file_size(3ULL * 1024 * 1024 * 1024), "3.00 GB");
}

TEST(TextRules, Codes)
{
    const std::pair<const char*, const char*> sexes[] = { { "male.male", "mm" }, { "male.female", "mf" },
        { "female.male", "fm" }, { "female.female", "ff" }, { "male", "m" }, { "female", "f" }, { "", "" } };
    for (auto [in, out] : sexes)
        EXPECT_EQ(sex_code(in), out) << in;

    const std::pair<int, int> sizes[]
        = { { 2, 1 }, { 4, 2 }, { 8, 3 }, { 16, 4 }, { 32, 5 }, { 64, 6 }, { 128, 7 }, { 256, 0 }, { 3, 0 }, { 0, 0 } };
    for (auto [size, rounds] : sizes) {
        EXPECT_EQ(round_count(size), rounds) << size;
        EXPECT_EQ(log2_of_draw(size), rounds) << size;
    }

    EXPECT_EQ(triangle(1), 0);
    EXPECT_EQ(triangle(4), 6);
    EXPECT_EQ(triangle(8), 28);
}

TEST(TextRules, CalcDrawSize)
{
    const std::pair<int, int> cases[] = { { 1, 2 }, { 2, 2 }, { 3, 4 }, { 5, 8 }, { 16, 16 }, { 17, 32 }, { 65, 128 },
        { 128, 128 }, { 129, 256 }, { 256, 256 }, { 257, 0 }, { 0, 0 }, { -3, 0 } };
    for (auto [n, size] : cases)
        EXPECT_EQ(calcdrawsize(n), size) << n;
}

TEST(TextRules, FirstCap)
{
    EXPECT_EQ(first_cap("  mcDONALD "), "Mcdonald");
    EXPECT_EQ(first_cap("ÉMILE"), "Émile");
    EXPECT_EQ(first_cap("van der berg"), "Van der berg");
    EXPECT_EQ(first_cap(""), "");
}

TEST(TextRules, ReservedNames)
{
    for (const char* name : { "bye", "Bye3", "  BYEBYE", "Qualifier 2", "QUALIFIER", "wildcard1", "WildCard 7" })
        EXPECT_TRUE(is_reserved(name)) << name;
    for (const char* name : { "", "john bye", "qualify", "wild card", "preq preq" })
        EXPECT_FALSE(is_reserved(name)) << name;

    EXPECT_TRUE(is_reserved_exact(""));
    EXPECT_TRUE(is_reserved_exact("  "));
    EXPECT_TRUE(is_reserved_exact("bye2"));
    EXPECT_TRUE(is_reserved_exact(" qualifier1"));
    EXPECT_FALSE(is_reserved_exact("Bye"));
    EXPECT_FALSE(is_reserved_exact("WILDCARD1"));
    EXPECT_FALSE(is_reserved_exact("john smith"));

    EXPECT_TRUE(is_partner_required_name("Partner Required"));
    EXPECT_TRUE(is_partner_required_name("PARTNERREQUIRED"));
    EXPECT_FALSE(is_partner_required_name("partner  required"));
    EXPECT_FALSE(is_partner_required_name("preq preq"));
}

} // namespace
} // namespace qv
