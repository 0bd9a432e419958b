#include "cli/pack/pictures.h"

#include "cli/paths.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstdint>
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

constexpr std::string_view digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

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

std::string base64Of(std::string_view content) {
  std::string text;
  text.reserve((content.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < content.size(); i += 3) {
    std::uint32_t bits = 0;
    for (std::size_t j = 0; j < 3; ++j) {
      const char byte = i + j < content.size() ? content[i + j] : '\0';
      bits = bits << 8U | static_cast<unsigned char>(byte);
    }
    for (std::size_t j = 0; j < 4; ++j) {
      const bool isPadding = i + j > content.size();
      text += isPadding ? '=' : digits[bits >> (18U - 6U * j) & 63U];
    }
  }
  return text;
}

}  // namespace cli::pack
