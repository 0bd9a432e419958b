#pragma once

#include "cli/pack/pack.h"

#include <string>
#include <string_view>

namespace cli::pack {

/// The content of a product file, to be put into a document. Throws `std::runtime_error` when it
/// cannot be read or is empty.
Picture readPicture(const std::string& path, const std::string& fileName);

/// The media type by the first bytes: PNG, GIF, JPEG or PDF; otherwise "application/octet-stream".
std::string mediaTypeOf(std::string_view content);

}  // namespace cli::pack
