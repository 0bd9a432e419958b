#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace ktpnaips::text {
namespace {

constexpr std::uint32_t replacement = 0xFFFD;
constexpr bool hasPairs = sizeof(wchar_t) == 2;

bool isCharacter(std::uint32_t code) {
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

bool isFirstOfPair(std::uint32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isSecondOfPair(std::uint32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::uint32_t unitAt(std::wstring_view text, std::size_t at) {
  return at < text.size() ? static_cast<std::uint32_t>(text[at]) : 0;
}

bool isPairAt(std::wstring_view text, std::size_t at) {
  return hasPairs && isFirstOfPair(unitAt(text, at)) && isSecondOfPair(unitAt(text, at + 1));
}

void appendUtf8(std::string& to, std::uint32_t code) {
  const auto tail = [&](int shift) {
    to += static_cast<char>(0x80U | ((code >> static_cast<unsigned>(shift)) & 0x3FU));
  };
  if (code < 0x80) {
    to += static_cast<char>(code);
  } else if (code < 0x800) {
    to += static_cast<char>(0xC0U | (code >> 6U));
    tail(0);
  } else if (code < 0x10000) {
    to += static_cast<char>(0xE0U | (code >> 12U));
    tail(6);
    tail(0);
  } else {
    to += static_cast<char>(0xF0U | (code >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

void appendWide(std::wstring& to, std::uint32_t code) {
  if (!hasPairs || code < 0x10000) {
    to += static_cast<wchar_t>(code);
    return;
  }
  to += static_cast<wchar_t>(0xD800U + ((code - 0x10000U) >> 10U));
  to += static_cast<wchar_t>(0xDC00U + (code & 0x3FFU));
}

struct Decoded {
  std::uint32_t code = 0;
  std::size_t length = 0;  // 0: not UTF-8
};

Decoded decode(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned lead = byte(0);
  const std::size_t length = lead < 0x80                    ? 1
                             : lead >= 0xC2 && lead <= 0xDF ? 2
                             : lead >= 0xE0 && lead <= 0xEF ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
  if (length == 0 || length > bytes.size()) return {};
  if (length == 1) return {lead, 1};
  std::uint32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return {};
    code = (code << 6U) | (byte(i) & 0x3FU);
  }
  const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  return overlong || !isCharacter(code) ? Decoded{} : Decoded{code, length};
}

/// How many ASCII characters the text starts with.
std::size_t asciiStart(std::wstring_view text) {
  const auto end = std::find_if(text.begin(), text.end(),
                                [](wchar_t c) { return static_cast<std::uint32_t>(c) >= 0x80; });
  return static_cast<std::size_t>(end - text.begin());
}

std::size_t asciiStart(std::string_view text) {
  std::size_t count = 0;
  for (std::uint64_t eight = 0; count + sizeof eight <= text.size(); count += sizeof eight) {
    std::memcpy(&eight, text.data() + count, sizeof eight);
    if ((eight & 0x8080808080808080U) != 0) break;
  }
  while (count < text.size() && static_cast<unsigned char>(text[count]) < 0x80) ++count;
  return count;
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
  const std::size_t ascii = asciiStart(text);
  std::string utf8(ascii, '\0');
  std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(ascii), utf8.begin(),
                 [](wchar_t c) { return static_cast<char>(c); });
  if (ascii == text.size()) return utf8;
  utf8.reserve(text.size());
  for (std::size_t at = ascii; at < text.size(); ++at) {
    std::uint32_t code = unitAt(text, at);
    if (isPairAt(text, at)) {
      code = 0x10000U + ((code - 0xD800U) << 10U) + (unitAt(text, ++at) - 0xDC00U);
    }
    appendUtf8(utf8, isCharacter(code) ? code : replacement);
  }
  return utf8;
}

std::wstring fromUtf8(std::string_view text) {
  const std::string_view start = text.substr(0, asciiStart(text));
  std::wstring wide(start.begin(), start.end());
  text.remove_prefix(start.size());
  if (!text.empty()) wide.reserve(wide.size() + text.size());
  while (!text.empty()) {
    const Decoded next = decode(text);
    appendWide(wide, next.length == 0 ? replacement : next.code);
    text.remove_prefix(next.length == 0 ? 1 : next.length);
    const std::string_view ascii = text.substr(0, asciiStart(text));
    wide.append(ascii.begin(), ascii.end());
    text.remove_prefix(ascii.size());
  }
  return wide;
}

std::wstring_view firstUnits(std::wstring_view text, std::size_t units) {
  std::size_t used = 0;
  std::size_t kept = 0;
  while (kept < text.size()) {
    const bool isPair = isPairAt(text, kept);
    used += isPair || unitAt(text, kept) > 0xFFFF ? 2U : 1U;
    if (used > units) break;
    kept += isPair ? 2U : 1U;
  }
  return text.substr(0, kept);
}

}  // namespace ktpnaips::text
