#pragma once

#include <string>
#include <string_view>

namespace cli {

/// Base64 text (RFC 4648), without line ends.
std::string base64Of(std::string_view content);

}  // namespace cli
