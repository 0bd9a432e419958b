#include "cli/characters.h"

namespace cli {

std::size_t lengthOfUtf8(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte >= 0xF0 && byte < 0xF8) return 4;
  if (byte >= 0xE0 && byte < 0xF0) return 3;
  return byte >= 0xC2 && byte < 0xE0 ? 2 : 1;
}

Character characterAt(std::string_view utf8, std::size_t at) {
  if (at >= utf8.size()) return {};
  const auto first = static_cast<unsigned char>(utf8[at]);
  if (first < 0x80) return {first, 1};
  const Character none{char32_t{0xFFFFFF00} | first, 1};
  const std::size_t length = lengthOfUtf8(utf8[at]);
  if (length == 1 || at + length > utf8.size()) return none;
  char32_t code = first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[at + i]);
    if ((byte & 0xC0U) != 0x80U) return none;
    code = (code << 6U) | (byte & 0x3FU);
  }
  return {code, length};
}

bool isActedOn(char32_t code) {
  if (code == '\n' || code == '\t') return false;
  const bool isNoUtf8 = code >= 0xFFFFFF00;
  const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
  const bool isDirection = code == 0x61C || code == 0x200E || code == 0x200F ||
                           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
  return isNoUtf8 || isControl || isDirection || code == 0x2028 || code == 0x2029;
}

std::string harmless(std::string_view utf8) {
  std::string shown;
  shown.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const Character character = characterAt(utf8, at);
    if (isActedOn(character.code)) {
      shown += '?';
    } else {
      shown += utf8.substr(at, character.length);
    }
    at += character.length;
  }
  return shown;
}

}  // namespace cli
