#include "core/links.h"
#include "support/temp_app_dir.h"
#include "ui/colors.h"
#include "ui/links_window.h"
#include "ui/notepad2.h"
#include "ui/qt_text.h"
#include "ui/qt_user_talk.h"
#include "ui_test_support.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace qv {
namespace {

namespace fs = std::filesystem;

TEST(Notepad2, ReadsAndWritesWindows1252KeepingLineEnds)
{
    test::TempAppDir dir;
    const std::string stored = "caf\xe9 \xbf\r\nline 2\r\n";
    std::ofstream(dir.path() / "in.txt", std::ios::binary) << stored;

    Notepad2 viewer;
    ASSERT_TRUE(viewer.load_file(dir.path() / "in.txt"));
    EXPECT_EQ(viewer.text(), QString::fromUtf8("café ¿\nline 2\n"));
    ASSERT_TRUE(viewer.save_to(dir.path() / "out.txt"));
    EXPECT_EQ(test::bytes_of(dir.path() / "out.txt"), stored);

    EXPECT_FALSE(viewer.load_file(dir.path() / "missing.txt"));
    EXPECT_TRUE(viewer.text().isEmpty());
}

TEST(LinksWindow, ShowsNameAboveAddress)
{
    LinksWindow links(tournament_links("http://srv/qv", "club7"));
    const QStringList lines = links.text().split('\n');
    ASSERT_GE(lines.size(), 2);
    EXPECT_EQ(lines[0], "entries");
    EXPECT_EQ(lines[1], "http://srv/qv?idx=entries&custid=club7");
}

TEST(WindowHelpers, FiltersColoursAndOffsets)
{
    EXPECT_EQ(file_dialog_filter("qvd."), "qvd files (*.qvd)");
    EXPECT_EQ(file_dialog_filter(""), "all files (*)");

    // Stored colours are Windows numbers: red in the low byte, blue in the high one.
    EXPECT_EQ(color_from_setting("49152"), QColor(0, 192, 0));
    EXPECT_EQ(color_from_setting("255"), QColor(255, 0, 0));
    EXPECT_EQ(color_from_setting("16711680"), QColor(0, 0, 255));
    EXPECT_EQ(color_from_setting(" 49151 "), QColor(255, 191, 0));
    EXPECT_EQ(color_from_setting("abc"), QColor(0, 0, 0));
    EXPECT_EQ(color_from_setting("99999999"), QColor(0, 0, 0));

    const QString text = QString::fromUtf8("a\U0001F600b\u00bf");
    EXPECT_EQ(utf16_offset(text, 0), 0);
    EXPECT_EQ(utf16_offset(text, 2), 3);
    EXPECT_EQ(utf16_offset(text, 3), 4);
}

} // namespace
} // namespace qv
