#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qv {

// Lengths of a draw picture are twips: 1440 to the inch, so 15 to a pixel of a picture at 96 dots per inch.
inline constexpr int twips_per_pixel = 15;
// A point of type is 20 twips.
inline constexpr int twips_per_point = 20;

// Colours as the settings store them: red + 256 * green + 65536 * blue.
inline constexpr std::uint32_t picture_white = 16777215;
inline constexpr std::uint32_t picture_black = 0;
// The fill of the round robin's head cells.
inline constexpr std::uint32_t rr_head_fill = 15724527;

// How a cell's edge is drawn. A bracket is the tree's connecting box: the line under each of its two names and
// the upright that joins them on the right; on the winner's column only the line under the name.
enum class CellFrame { none, box, underline, bracket, bracket_last };
enum class CellAlign { left, centre, right };
enum class CellVAlign { top, middle, bottom };

// One element of the picture: a text in a rectangle, with its frame and fill. Names are the elements' own
// ("round3sco", "xround2", "rownum" ...); an element of a family carries its place in the family from 1.
struct PictureCell
{
    std::string name;
    int index = 0; // 0 for an element that stands alone
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::string text;
    int font_twips = 8 * twips_per_point;
    bool bold = false;
    CellAlign align = CellAlign::left;
    CellVAlign valign = CellVAlign::middle;
    CellFrame frame = CellFrame::none;
    bool wrap = false; // the text breaks into lines at blanks and line ends
    bool clip = true; // the text stays inside the cell
    bool filled = false;
    std::uint32_t fill = picture_white;
    bool visible = true;

    int right() const { return left + width; }
    int bottom() const { return top + height; }
};

// A draw laid out as plain data: the canvas and its cells in painting order (a later cell stands in front of an
// earlier one). Computing it paints nothing; a renderer draws it on any canvas.
class PictureLayout
{
public:
    int width = 0; // the canvas, in twips
    int height = 0;
    std::uint32_t background = picture_white;

    PictureCell& add(PictureCell cell);
    const std::vector<PictureCell>& cells() const { return m_cells; }
    std::vector<PictureCell>& cells() { return m_cells; }

    // The element by name and place; nullptr when there is none.
    PictureCell* find(std::string_view name, int index = 0);
    const PictureCell* find(std::string_view name, int index = 0) const;
    // The members of a family in the order they were placed.
    std::vector<const PictureCell*> family(std::string_view name) const;

    // The canvas in pixels of a 96-dpi picture, rounded to the nearest pixel.
    int pixel_width() const { return (width + twips_per_pixel / 2) / twips_per_pixel; }
    int pixel_height() const { return (height + twips_per_pixel / 2) / twips_per_pixel; }

private:
    static std::string key(std::string_view name, int index);

    std::vector<PictureCell> m_cells;
    std::unordered_map<std::string, std::size_t> m_index;
};

} // namespace qv
