#pragma once

#include <ktpnaips/geo/points.h>

#include <memory>
#include <string_view>

namespace ktpnaips::Utils {

/// The point that a designator gives: "SY045025" is 25 NM on bearing 045 from SY, anything else a
/// named point. An unexpected failure is reported and gives no point.
std::shared_ptr<Point> pointFromName(std::wstring_view text);

}  // namespace ktpnaips::Utils
