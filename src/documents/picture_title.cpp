#include "documents/picture_title.h"

#include "core/time_rules.h"
#include "core/utf8.h"

namespace qv {

namespace {

constexpr int site_and_time_height = 155;

} // namespace

PictureCell make_cell(std::string name, int index, int left, int top, int width, int height)
{
    PictureCell cell;
    cell.name = std::move(name);
    cell.index = index;
    cell.left = left;
    cell.top = top;
    cell.width = width;
    cell.height = height;
    return cell;
}

void set_tn_dts_en(PictureLayout& layout, const DrawInfo& info, int width)
{
    using namespace title_twips;
    auto tname = make_cell("display_tname", 0, left, top, width, height);
    tname.text = trim(info.tname);
    tname.font_twips = (char_count(tname.text) > long_name ? 8 : 12) * twips_per_point;
    tname.bold = true;
    tname.clip = false;
    layout.add(std::move(tname));

    auto event = make_cell("display_event_name", 0, left, event_top, width, event_height);
    event.text = info.eventname;
    event.font_twips = 9 * twips_per_point;
    event.bold = true;
    event.clip = false;
    layout.add(std::move(event));

    auto dates = make_cell("tnamedates", 0, left, event_top, width, event_height);
    dates.text = trim(info.tdates);
    dates.align = CellAlign::right;
    dates.clip = false;
    layout.add(std::move(dates));
}

void add_site_and_time(PictureLayout& layout, const std::string& stamp_name, const DrawInfo& info, int top, int width,
    const PictureOptions& options)
{
    auto stamp = make_cell(stamp_name, 0, title_twips::left, top, width, site_and_time_height);
    stamp.text = trim(info.timestamp_text).empty() ? date_time_long(options.now) : info.timestamp_text;
    stamp.font_twips = 6 * twips_per_point;
    stamp.clip = false;
    layout.add(std::move(stamp));

    auto site = make_cell("addad", 0, title_twips::left, top, width, site_and_time_height);
    site.text = options.site_line;
    site.font_twips = 6 * twips_per_point;
    site.align = CellAlign::right;
    site.clip = false;
    layout.add(std::move(site));
}

} // namespace qv
