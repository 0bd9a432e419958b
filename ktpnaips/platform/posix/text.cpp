#include <ktpnaips/platform/text.h>

#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is POSIX
#include <cstdint>
#include <cwctype>

namespace ktpnaips::text {
namespace {

constexpr wchar_t replacement = L'\uFFFD';

bool isCharacter(std::uint32_t code) {
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

locale_t unicodeLocale() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return locale;
}

wchar_t upperOf(wchar_t c) {
  if (c < 0x80) return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 0x20) : c;
  const locale_t locale = unicodeLocale();
  if (locale == nullptr) return c;
  return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(c), locale));
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

}  // namespace

std::wstring toUpper(std::wstring_view text) {
  std::wstring upper(text);
  for (wchar_t& c : upper) c = upperOf(c);
  return upper;
}

std::string toUtf8(std::wstring_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (const wchar_t c : text) {
    const auto code = static_cast<std::uint32_t>(c);
    appendUtf8(utf8, isCharacter(code) ? code : static_cast<std::uint32_t>(replacement));
  }
  return utf8;
}

std::wstring fromUtf8(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = decode(text);
    wide += next.length == 0 ? replacement : static_cast<wchar_t>(next.code);
    text.remove_prefix(next.length == 0 ? 1 : next.length);
  }
  return wide;
}

std::wstring_view firstUnits(std::wstring_view text, std::size_t units) {
  std::size_t used = 0;
  std::size_t kept = 0;
  for (const wchar_t c : text) {
    used += c > 0xFFFF ? 2 : 1;
    if (used > units) break;
    ++kept;
  }
  return text.substr(0, kept);
}

}  // namespace ktpnaips::text
