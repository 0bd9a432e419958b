#include "cli/base64.h"

#include <cstddef>
#include <cstdint>

namespace cli {
namespace {

constexpr std::string_view digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

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

}  // namespace cli
