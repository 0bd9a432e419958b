#include "cli/quoting.h"

#include <utility>

namespace cli {

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

std::string escaped(std::string text, std::string_view specials) {
  for (const char each : specials) {
    text = replaced(std::move(text), std::string(1, each), std::string{'\\', each});
  }
  return text;
}

std::string shellQuoted(const std::string& text) {
  return '\'' + replaced(text, "'", "'\\''") + '\'';
}

}  // namespace cli
