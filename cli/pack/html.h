#pragma once

#include <string>
#include <string_view>

namespace cli::pack {

/// A text as it stands in an HTML document or attribute, without secrets, controls and marks of
/// direction.
std::string escaped(std::string_view text);

/// An element with escaped text.
std::string element(std::string_view name, std::string_view text, std::string_view attributes = {});

}  // namespace cli::pack
