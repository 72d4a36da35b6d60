#include "core/work_areas.h"

namespace qv {

namespace {

struct AreaWords
{
    Area area;
    std::string_view name;
    std::string_view caption;
};

constexpr std::array<AreaWords, 8> words { {
    { Area::mainform, "mainform", "tournament" },
    { Area::schedule, "schedule", "schedule" },
    { Area::assistant_new, "assistant_new", "assistant" },
    { Area::draw, "draw", "draws" },
    { Area::idocuments, "idocuments", "documents" },
    { Area::config_admin, "config_admin", "online" },
    { Area::prints, "prints", "prints" },
    { Area::payments, "payments", "payments" },
} };

const AreaWords& find(Area area)
{
    for (const auto& w : words)
        if (w.area == area)
            return w;
    return words.front();
}

} // namespace

std::string_view area_name(Area area)
{
    return find(area).name;
}

std::string_view area_caption(Area area)
{
    return find(area).caption;
}

std::optional<Area> area_from_name(std::string_view name)
{
    for (const auto& w : words)
        if (w.name == name)
            return w.area;
    return std::nullopt;
}

Markers switch_markers(std::optional<Area> leaving, Area target, bool use_footprint)
{
    Markers markers {};
    for (Area area : marker_order)
        markers[static_cast<int>(area)] = Marker::regular_grey;
    if (use_footprint && leaving)
        markers[static_cast<int>(*leaving)] = Marker::ifootprint_color;
    markers[static_cast<int>(target)] = Marker::icurrent_marker_color;
    return markers;
}

} // namespace qv
