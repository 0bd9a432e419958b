#include "cli/emphasis.h"

#include <fmt/format.h>

namespace cli {

using ktpnaips::terminal::Stream;

std::string emphasised(Stream stream, Emphasis emphasis, std::string_view text) {
  const bool isPlain =
      ktpnaips::terminal::environment("NO_COLOR") || !ktpnaips::terminal::showsColours(stream);
  if (isPlain || text.empty()) return std::string(text);
  return fmt::format("\x1b[{}m{}\x1b[0m", emphasis == Emphasis::alarm ? "1;31" : "1", text);
}

}  // namespace cli
