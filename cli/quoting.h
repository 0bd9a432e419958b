#pragma once

#include <string>
#include <string_view>

namespace cli {

/// The text with every `from` replaced.
std::string replaced(std::string text, std::string_view from, std::string_view to);

/// The text with a backslash before each of these characters; the backslash itself is the first.
std::string escaped(std::string text, std::string_view specials);

/// The text in the single quotes of bash and zsh.
std::string shellQuoted(const std::string& text);

}  // namespace cli
