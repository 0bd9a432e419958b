#pragma once

#include "cli/pack/map_layout.h"

#include <string>

namespace cli::pack {

/// The map as an SVG element. The title and description are for those who do not see it; `id`
/// makes the identifiers in it unique in its document.
std::string mapSvg(const MapLayout& layout, const std::string& title,
                   const std::string& description, const std::string& id);

}  // namespace cli::pack
