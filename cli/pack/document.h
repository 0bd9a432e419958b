#pragma once

#include "cli/pack/pack.h"

#include <string>

namespace cli::pack {

/// The pack as one HTML document that needs nothing else.
std::string htmlDocument(const Pack& pack);

/// One way of saying where the flight goes: "YSSY → YMML → YSCB".
std::string routeOf(const Flight& flight);

}  // namespace cli::pack
