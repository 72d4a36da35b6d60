#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace qv {

// The eight work areas, in the order in which the area switch paints their markers.
enum class Area { payments, mainform, schedule, config_admin, idocuments, draw, prints, assistant_new };
inline constexpr std::array<Area, 8> marker_order { Area::payments, Area::mainform, Area::schedule, Area::config_admin,
    Area::idocuments, Area::draw, Area::prints, Area::assistant_new };

// The toolbar order, as the user reads it left to right.
inline constexpr std::array<Area, 8> toolbar_order { Area::mainform, Area::schedule, Area::assistant_new, Area::draw,
    Area::idocuments, Area::config_admin, Area::prints, Area::payments };

std::string_view area_name(Area area); // "mainform", "schedule", ...
std::string_view area_caption(Area area); // "tournament", "schedule", ...
std::optional<Area> area_from_name(std::string_view name);

// The three colours of the marker strip beneath a toolbar button.
enum class Marker { regular_grey, ifootprint_color, icurrent_marker_color };
using Markers = std::array<Marker, 8>; // indexed by the Area's value

// The markers after switching from `leaving` (none at start) to `target`.
Markers switch_markers(std::optional<Area> leaving, Area target, bool use_footprint);

} // namespace qv
