#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace ktpnaips::Enc64 {
namespace {

constexpr std::array<std::uint8_t, 256> makeTable() {
  constexpr std::string_view alphabet =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::array<std::uint8_t, 256> table{};
  for (std::size_t i = 0; i < alphabet.size(); ++i) {
    table[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return table;
}

constexpr auto table = makeTable();

std::uint32_t bitsOf(wchar_t c) {
  const auto code = static_cast<std::uint32_t>(c);
  return code < table.size() ? table[code] : 0;
}

std::uint32_t bitsOf(char c) {
  return table[static_cast<unsigned char>(c)];
}

/// False for what does not count as a character of its own.
bool counts(wchar_t c) {
  return c != L'\r' && c != L'\n';
}

bool counts(char c) {
  return c != '\r' && c != '\n' && (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

/// How many bytes the padding cuts off: "==" may have line ends between its halves.
template <class Char>
std::size_t padding(std::basic_string_view<Char> text) {
  std::size_t pads = 0;
  bool afterPad = false;
  for (auto at = text.find(Char{'='}); at < text.size() && pads < 2; ++at) {
    if (!counts(text[at])) continue;
    const bool isPad = text[at] == Char{'='};
    if (isPad) pads = afterPad ? 2 : 1;
    afterPad = isPad;
  }
  return pads;
}

template <class Char>
std::string decode(std::basic_string_view<Char> text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3);
  std::uint32_t group = 0;
  std::size_t characters = 0;
  for (const Char c : text) {
    if (!counts(c)) continue;
    group = group << 6U | bitsOf(c);
    if (++characters % 4 != 0) continue;
    bytes += static_cast<char>(group >> 16U & 0xFFU);
    bytes += static_cast<char>(group >> 8U & 0xFFU);
    bytes += static_cast<char>(group & 0xFFU);
  }
  if (characters % 4 != 0) throw RuntimeFault(fault::invalidBase64);
  if (characters == 0) throw RuntimeFault(fault::subscriptOutOfRange);
  bytes.resize(bytes.size() - padding(text));
  return bytes;
}

}  // namespace

std::string MyDecode(std::wstring_view text) {
  return decode(text);
}

std::string MyDecode(std::string_view utf8) {
  return decode(utf8);
}

}  // namespace ktpnaips::Enc64
