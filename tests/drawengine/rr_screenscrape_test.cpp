#include "drawengine/rr_fixture.h"
#include "drawengine/rr_saving.h"
#include "drawengine/rr_screenscrape.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace qv {
namespace {

using test::RrEntry;
using RrScreenscrapeTest = test::RrFixture;

std::vector<std::string> file_lines(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    const auto text = bytes.str();
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (auto end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n", start)) {
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    EXPECT_EQ(start, text.size()) << "the last line of " << file << " has no line end";
    return lines;
}

TEST_F(RrScreenscrapeTest, WritesTheFourBlocks)
{
    saved_draw(3, { { "\u00C9mile", "Zola", false, "FRA" }, { "Anna", "Berg", false, "SWE" }, { "Carl", "Dahl" } });
    // 1 Anna, 2 Carl, 3 Emile: (1,2) (1,3) (2,3); the third match is not played.
    rr_type_points(session, draw, rr, 1, RrWinner::top, "2");
    rr_type_points(session, draw, rr, 1, RrWinner::bottom, "1");
    rr_type_score(session, draw, rr, 1, "6-3 6-4");
    rr_click_name(session, draw, rr, 1, RrWinner::top);
    rr_type_points(session, draw, rr, 2, RrWinner::bottom, "10.5");
    rr_type_score(session, draw, rr, 2, "2-6");
    rr_click_name(session, draw, rr, 2, RrWinner::bottom);

    const auto file = dir.path() / "scrape.txt";
    talk.files.push_back({ file });
    ASSERT_TRUE(rr_screenscrape(session, rr));
    EXPECT_EQ(talk.said.back().kind, "beep");

    const auto got = file_lines(file);
    const auto expected = file_lines(std::filesystem::path(QV_TEST_DATA_DIR) / "expected" / "rr_screenscrape.txt");
    ASSERT_EQ(got.size(), expected.size());
    for (std::size_t i = 0; i < got.size(); ++i)
        EXPECT_EQ(got[i], expected[i]) << "line " << i + 1;

    // The scratch table keeps the wins of the grid.
    EXPECT_EQ(db->scalar_integer("select totalwins from rr_screenscrape where idx = 3"), 1);
}

TEST_F(RrScreenscrapeTest, NoFileChosenWritesNothing)
{
    saved_draw(2, lettered(2));
    EXPECT_FALSE(rr_screenscrape(session, rr));
    EXPECT_EQ(talk.said.back().kind, "file");
}

} // namespace
} // namespace qv
