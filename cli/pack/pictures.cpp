#include "cli/pack/pictures.h"

#include "cli/base64.h"
#include "cli/paths.h"

#include <fmt/format.h>

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace cli::pack {
namespace {

using Signature = std::pair<std::string_view, std::string_view>;

constexpr std::array<Signature, 4> signatures{{{"\x89PNG\r\n\x1a\n", "image/png"},
                                               {"GIF8", "image/gif"},
                                               {"\xff\xd8\xff", "image/jpeg"},
                                               {"%PDF-", "application/pdf"}}};

}  // namespace

Picture readPicture(const std::string& path, const std::string& fileName) {
  std::ifstream stream(pathOf(path), std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(stream), {}};
  if (!stream || content.empty()) {
    throw std::runtime_error(fmt::format("the file {} has no content", fileName));
  }
  return {mediaTypeOf(content), base64Of(content), fileName};
}

std::string mediaTypeOf(std::string_view content) {
  for (const auto& [start, type] : signatures) {
    if (content.starts_with(start)) return std::string(type);
  }
  return "application/octet-stream";
}

}  // namespace cli::pack
