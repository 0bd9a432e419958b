#include "cli/paths.h"

#include "cli/usage_error.h"

#include <fmt/format.h>

#include <ios>
#include <iterator>

namespace cli {

std::filesystem::path pathOf(const std::string& utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

std::string pathText(const std::filesystem::path& path) {
  const auto utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

std::string contentOf(std::istream& stream, const std::string& name) {
  try {
    if (stream) return {std::istreambuf_iterator<char>(stream), {}};
  } catch (const std::ios_base::failure&) {  // a folder, for example
  }
  throw UsageError(fmt::format("cannot read {}", name));
}

}  // namespace cli
