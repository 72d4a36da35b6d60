#include "documents/ko_picture.h"

#include "core/text_rules.h"
#include "core/utf8.h"
#include "documents/picture_title.h"
#include "drawengine/open_draw.h"

namespace qv {

namespace {

using namespace ko_twips;

constexpr int head_overlap = 20; // the head row overlaps row 1 by this much
constexpr int line_gap = 10; // the site and time lines stand this far under the last row
constexpr int patch_half = 20;
constexpr int patch_inset = 20;

// The further margin of a draw of 2 (room for the title and the winner's line) and of a half of 128 (whose
// winner's line falls at the foot of the rows).
constexpr int small_draw_margin_x = 1500;
constexpr int half_margin_x = 300;
constexpr int winner_margin_y = 700;

int points(int pt)
{
    return pt * twips_per_point;
}

// Where the pieces of the layout stand once the title is placed.
struct KoFrame
{
    KoRows shape;
    int L = title_twips::left;
    int T0 = title_twips::head_top;
    int R0 = 0; // top of row 1: the head row overlaps it by 20
    int tree_left = 0; // left of the level-2 column
    int tree_right = 0;

    int column_left(int level) const { return level == 1 ? L + first_column_left : tree_left + (level - 2) * column; }
    int column_width(int level) const { return level == 1 ? first_column : column; }
    // A level's cells belong to the rows of this picture from this position on.
    int position_offset(int level) const { return shape.row_offset >> (level - 1); }
};

void row_block(PictureLayout& layout, const KoFrame& frame)
{
    for (int i = 1; i <= frame.shape.rows; ++i) {
        const int top = frame.R0 + (i - 1) * row;
        auto number = make_cell("rownum", i, frame.L, top, rownum_width, row);
        number.text = std::to_string(i + frame.shape.row_offset);
        number.font_twips = points(7);
        number.align = CellAlign::right;
        layout.add(std::move(number));
        for (auto [name, left] :
            { std::pair { "infobit", frame.L + rownum_width }, std::pair { "infobit2", frame.L + 2 * rownum_width } }) {
            auto bit = make_cell(name, i, left, top, rownum_width, row);
            bit.font_twips = points(7);
            bit.align = CellAlign::centre;
            layout.add(std::move(bit));
        }
        auto name = make_cell("round1", i, frame.L + first_column_left, top, first_column, row);
        name.frame = CellFrame::box;
        layout.add(std::move(name));
    }
}

void name_and_score(PictureLayout& layout, int level, int index, int x, int line)
{
    const std::string name = "round" + std::to_string(level);
    auto label = make_cell(name, index, x + margin_x, line - name_height, column - 2 * margin_x, name_height);
    label.valign = CellVAlign::bottom;
    layout.add(std::move(label));
    auto score = make_cell(name + "sco", index, x + margin_x, line, column - 2 * margin_x, name_height);
    score.font_twips = points(7);
    score.valign = CellVAlign::top;
    layout.add(std::move(score));
}

// The tree: a connecting box per pair of names, each name above the box's line and its score below it.
void tree_columns(PictureLayout& layout, const KoFrame& frame)
{
    int x = frame.tree_left;
    int step = 4;
    int h = 540;
    const int levels = frame.shape.levels;
    for (int level = 2; level <= levels; ++level) {
        const bool last = level == levels;
        if (!last)
            h = row * step;
        int n = 1;
        for (int i = 1; i <= frame.shape.rows; i += step, ++n) {
            const int top = frame.R0 + (n - 1) * row * step;
            auto box = make_cell("xround" + std::to_string(level), n, x, top, column, h);
            box.frame = last ? CellFrame::bracket_last : CellFrame::bracket;
            layout.add(std::move(box));
            const int q1 = last ? top + h / 2 : top + h / 4;
            const int q3 = top + 3 * h / 4;
            name_and_score(layout, level, 2 * n - 1, x, q1);
            if (!last)
                name_and_score(layout, level, 2 * n, x, q3);
        }
        x += column;
        step *= 2;
    }
}

// overide_headers: the event's own label for a column, where it has one.
std::string overide_header(const std::string& text, const std::map<std::string, std::string>& labels)
{
    auto label = [&](const std::string& key) -> const std::string* {
        const auto found = labels.find(key);
        return found == labels.end() ? nullptr : &found->second;
    };
    if (text.rfind("round ", 0) == 0) {
        const auto* own = label("round" + text.substr(6));
        return own ? *own : text;
    }
    if (text == "quaters" || text == "semis") {
        const auto* own = label(text == "semis" ? "semi_" : "quaters");
        return own ? *own : text;
    }
    // One label serves the last two columns: the part before "/" heads the final, the part after it the winner.
    const auto* own = label("final/winner");
    if (!own)
        return text;
    const auto slash = own->find('/');
    if (text == "final")
        return slash == std::string::npos ? *own : own->substr(0, slash);
    return slash == std::string::npos ? text : own->substr(slash + 1);
}

void loadheaders_new(PictureLayout& layout, const KoFrame& frame, const PictureOptions& options)
{
    const int levels = frame.shape.levels;
    for (int level = 1; level <= levels; ++level) {
        auto header = make_cell("header", level, frame.column_left(level), frame.T0 + (head_row - head_inner) / 2,
            frame.column_width(level), head_inner);
        header.text = overide_header(ko_header_text(level, levels), options.header_overrides);
        header.font_twips = points(7);
        header.bold = true;
        header.align = CellAlign::centre;
        layout.add(std::move(header));
    }
}

// apply_patch_new: a white strip over the line between the two names of each first-round pair.
void apply_patch_new(PictureLayout& layout, const KoFrame& frame)
{
    for (int i = 1; i <= frame.shape.rows; i += 2) {
        const auto* name = layout.find("round1", i);
        auto patch = make_cell("patch", (i + 1) / 2, name->left + patch_inset, name->bottom() - patch_half,
            name->width - 2 * patch_inset, 2 * patch_half);
        patch.filled = true;
        patch.fill = picture_white;
        layout.add(std::move(patch));
    }
}

// toggle_cc: the country column goes, and everything to its right moves left by its width.
void toggle_cc(PictureLayout& layout, const KoFrame& frame)
{
    const int column_left = frame.L + rownum_width;
    const int column_right = column_left + rownum_width;
    for (auto& cell : layout.cells()) {
        if (cell.name == "infobit")
            cell.visible = false;
        else if (cell.left >= column_right)
            cell.left -= rownum_width;
        else if (cell.left < column_left && cell.right() > column_right)
            cell.width -= rownum_width;
    }
    layout.width -= rownum_width;
}

// A country is shown when it is one code: a pair's "a/b" or a longer text does not fit the column.
std::string single_code(const std::string& country)
{
    const auto code = trim(country);
    return code.find('/') == std::string::npos && char_count(code) <= 3 ? code : std::string();
}

// KO_loadroundsdata_split: the names, seeds, countries and scores of the rows that fall in this picture.
class RoundsData
{
    enum class Part { name, score };

public:
    RoundsData(PictureLayout& layout, const KoFrame& frame, const PictureOptions& options)
        : m_layout(layout)
        , m_frame(frame)
        , m_options(options)
    {
    }

    void put_side(const std::string& address, const DrawSide& side)
    {
        const auto at = OpenDraw::split_mtmb(address);
        if (!at)
            return;
        if (at->level == 1) {
            const int r = at->position - m_frame.shape.row_offset;
            if (auto* name = m_layout.find("round1", r)) {
                name->text = side.frn;
                m_layout.find("infobit", r)->text = single_code(side.country);
                m_layout.find("infobit2", r)->text = bracket(side.seeding);
            }
            return;
        }
        // get_winner_data: the champion by the full name.
        if (auto* name = tree_cell(Part::name, *at))
            name->text = at->level == m_frame.shape.levels ? side.ttt : side.tag;
    }

    void put_score(const DrawRow& row)
    {
        const auto at = OpenDraw::split_mtmb(row.mw_ptr);
        if (!at || at->level < 2)
            return;
        auto* score = tree_cell(Part::score, *at);
        if (!score)
            return;
        if (!row.matchscore.empty()) {
            score->text = row.matchscore;
        } else if (m_options.times && !row.winner()) {
            // The time and place run longer than a score: smaller, and over two lines where they need them.
            score->text = settsdisplay(row, m_options);
            score->font_twips = points(6);
            score->wrap = true;
            score->clip = false;
        }
    }

    // winner_score: under the champion, "winner def loser" and the final's score on the next line.
    void winner_score(const DrawRow& final)
    {
        const auto* won = final.winner();
        auto* score = m_layout.find("round" + std::to_string(m_frame.shape.levels) + "sco", 1);
        if (!won || !score)
            return;
        score->text = won->tag + " def " + final.loser()->tag + "\n" + final.matchscore;
        score->top += score->height;
        score->height = winner_score_height;
        score->wrap = true;
    }

private:
    PictureCell* tree_cell(Part part, SlotAddress at)
    {
        const int index = at.position - m_frame.position_offset(at.level);
        const auto name = "round" + std::to_string(at.level);
        return m_layout.find(part == Part::score ? name + "sco" : name, index);
    }

    PictureLayout& m_layout;
    const KoFrame& m_frame;
    const PictureOptions& m_options;
};

void KO_loadroundsdata_split(
    PictureLayout& layout, const DrawData& draw, const KoFrame& frame, const PictureOptions& options)
{
    RoundsData data(layout, frame, options);
    const auto winner_slot = OpenDraw::address_text(frame.shape.levels, 1);
    const DrawRow* final = nullptr;
    for (const auto& row : draw.rows) {
        data.put_side(row.mt, row.top);
        data.put_side(row.mb, row.bottom);
        if (row.rid < frame.shape.levels)
            data.put_score(row);
        if (row.mw_ptr == winner_slot)
            final = &row;
    }
    if (final)
        data.winner_score(*final);
}

} // namespace

KoRows ko_rows(int mode)
{
    const int half_levels = round_count(128) + 1;
    if (mode == ko_top_half)
        return { 64, 0, half_levels };
    if (mode == ko_lower_half)
        return { 64, 64, half_levels };
    const int rounds = round_count(mode);
    return rounds == 0 ? KoRows {} : KoRows { mode, 0, rounds + 1 };
}

std::string ko_header_text(int level, int levels)
{
    switch (levels - level) {
    case 0:
        return "winner";
    case 1:
        return "final";
    case 2:
        return "semis";
    case 3:
        return "quaters";
    default:
        return "round " + std::to_string(level);
    }
}

std::string settsdisplay(const DrawRow& row, const PictureOptions& options)
{
    if (row.cid == 0 && trim(row.scheduledate).empty() && trim(row.matchtime).empty())
        return {};
    std::string court;
    switch (row.cid) {
    case 0:
        court = "?";
        break;
    case -1:
        court = "fa";
        break;
    case -2:
        court = "cb";
        break;
    case -3:
        court = "tbc";
        break;
    case -4:
        court = "dcb";
        break;
    default:
        court = options.generic_c + std::to_string(row.cid);
        if (row.matchnumber > 0)
            court += "/" + options.generic_m + std::to_string(row.matchnumber);
    }
    const auto day = trim(row.scheduledate);
    const auto time = trim(row.matchtime).empty() ? std::string("?") : trim(row.nbat + row.matchtime);
    return (day.empty() ? std::string("-") : day) + " " + time + " " + court;
}

PictureLayout ko_picture(const DrawData& draw, int mode, const PictureOptions& options)
{
    PictureLayout layout;
    KoFrame frame;
    frame.shape = ko_rows(mode);
    if (frame.shape.levels == 0)
        return layout;
    frame.R0 = frame.T0 + head_row - head_overlap;
    frame.tree_left = frame.L + first_column_left + first_column;
    frame.tree_right = frame.tree_left + (frame.shape.levels - 1) * column;

    set_tn_dts_en(layout, draw.info, frame.tree_right - frame.L);
    row_block(layout, frame);
    tree_columns(layout, frame);
    loadheaders_new(layout, frame, options);
    apply_patch_new(layout, frame);

    // A draw of 2 and a half of 128 hang the winner's line below the rows: the further margin makes room for it,
    // and the site and time lines go beneath it.
    int margin_x = 0;
    int margin_y = 0;
    if (mode == 2) {
        margin_x = small_draw_margin_x;
        margin_y = winner_margin_y;
    } else if (mode == ko_top_half || mode == ko_lower_half) {
        margin_x = half_margin_x;
        margin_y = winner_margin_y;
    }
    add_site_and_time(layout, "timestamp", draw.info, frame.R0 + frame.shape.rows * row + line_gap + margin_y,
        frame.tree_right - frame.L, options);
    layout.width = frame.tree_right + 150 + clip + margin_x;
    layout.height = frame.R0 + frame.shape.rows * row + head_inner + clip + margin_y;
    KO_loadroundsdata_split(layout, draw, frame, options);
    if (!options.country)
        toggle_cc(layout, frame);
    return layout;
}

} // namespace qv
