#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/briefing/base64_blocks.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace ktpnaips::Enc64 {
namespace {

/// Three bytes as they lie in memory, and a fourth that marks what is no digit.
constexpr std::uint32_t inMemory(std::uint32_t bits, unsigned char mark) {
  return std::bit_cast<std::uint32_t>(std::array{static_cast<unsigned char>(bits >> 16U),
                                                 static_cast<unsigned char>(bits >> 8U),
                                                 static_cast<unsigned char>(bits), mark});
}

constexpr std::uint32_t noDigit = inMemory(0, 0xFF);

/// The bits of each character at one place of a group of four digits; `noDigit` for other ones.
using Table = std::array<std::uint32_t, 256>;

constexpr std::array<Table, 4> makeTables() {
  constexpr std::string_view alphabet =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::array<Table, 4> tables{};
  for (unsigned place = 0; place < tables.size(); ++place) {
    tables[place].fill(noDigit);
    for (std::uint32_t value = 0; value < alphabet.size(); ++value) {
      tables[place][static_cast<unsigned char>(alphabet[value])] =
          inMemory(value << (18U - 6U * place), 0);
    }
  }
  return tables;
}

constexpr auto tables = makeTables();

std::uint32_t bitsOf(unsigned place, wchar_t c) {
  const auto code = static_cast<std::uint32_t>(c);
  return code < tables[place].size() ? tables[place][code] : noDigit;
}

std::uint32_t bitsOf(unsigned place, char c) {
  return tables[place][static_cast<unsigned char>(c)];
}

bool isLineEnd(auto c) {
  return c == '\r' || c == '\n';
}

/// False for what does not count as a character of its own.
bool counts(wchar_t c) {
  return !isLineEnd(c);
}

bool counts(char c) {
  return !isLineEnd(c) && (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
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

/// Writes a group and returns where the next one goes; the byte there is overwritten too.
char* write(char* to, std::uint32_t group) {
  std::memcpy(to, &group, sizeof group);
  return to + 3;
}

/// Decodes groups of four digits in a row and the line ends around them; returns where they end.
template <class Char>
const Char* decodeGroups(const Char* at, const Char* end, char*& to) {
  for (char* next = to;;) {
    if constexpr (sizeof(Char) == 1) at = decodeBlocks(at, end, next);
    for (; end - at >= 4; at += 4) {
      const std::uint32_t group =
          bitsOf(0, at[0]) | bitsOf(1, at[1]) | bitsOf(2, at[2]) | bitsOf(3, at[3]);
      if ((group & noDigit) != 0) break;
      next = write(next, group);
    }
    to = next;
    if (at == end || !isLineEnd(*at)) return at;
    while (at != end && isLineEnd(*at)) ++at;
  }
}

template <class Char>
std::string decode(std::basic_string_view<Char> text) {
  std::string bytes(text.size() / 4 * 3 + 1, '\0');
  char* to = bytes.data();
  std::uint32_t group = 0;
  unsigned pending = 0;  // characters of the group so far
  const Char* at = text.data();
  const Char* const end = at + text.size();
  const Char* firstOther = end;  // the padding is not before it
  for (;;) {
    if (pending == 0) at = decodeGroups(at, end, to);
    if (at == end) break;
    firstOther = std::min(firstOther, at);
    const Char c = *at++;
    if (!counts(c)) continue;
    group |= bitsOf(pending, c) & ~noDigit;
    pending = (pending + 1) % 4;
    if (pending == 0) to = write(to, std::exchange(group, 0));
  }
  const auto size = static_cast<std::size_t>(to - bytes.data());
  if (pending != 0) throw RuntimeFault(fault::invalidBase64);
  if (size == 0) throw RuntimeFault(fault::subscriptOutOfRange);
  bytes.resize(size - padding(std::basic_string_view<Char>(
                          firstOther, static_cast<std::size_t>(end - firstOther))));
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
