#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace ktpnaips::Enc64 {
namespace {

constexpr std::uint32_t noDigit = 1U << 24U;

/// The bits of each character at one place of a group of four digits; `noDigit` for other ones.
using Table = std::array<std::uint32_t, 256>;

constexpr std::array<Table, 4> makeTables() {
  constexpr std::string_view alphabet =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::array<Table, 4> tables{};
  for (unsigned place = 0; place < tables.size(); ++place) {
    tables[place].fill(noDigit);
    for (std::uint32_t value = 0; value < alphabet.size(); ++value) {
      tables[place][static_cast<unsigned char>(alphabet[value])] = value << (18U - 6U * place);
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

char* write(char* to, std::uint32_t group) {
  to[0] = static_cast<char>(group >> 16U & 0xFFU);
  to[1] = static_cast<char>(group >> 8U & 0xFFU);
  to[2] = static_cast<char>(group & 0xFFU);
  return to + 3;
}

/// Decodes groups of four digits in a row and returns where they end.
template <class Char>
const Char* decodeGroups(const Char* at, const Char* end, char*& to) {
  for (; end - at >= 4; at += 4) {
    const std::uint32_t group =
        bitsOf(0, at[0]) | bitsOf(1, at[1]) | bitsOf(2, at[2]) | bitsOf(3, at[3]);
    if (group >= noDigit) break;
    to = write(to, group);
  }
  return at;
}

template <class Char>
std::string decode(std::basic_string_view<Char> text) {
  std::string bytes(text.size() / 4 * 3, '\0');
  char* to = bytes.data();
  std::uint32_t group = 0;
  unsigned pending = 0;  // characters of the group so far
  const Char* at = text.data();
  for (const Char* const end = at + text.size(); at != end;) {
    if (pending == 0) at = decodeGroups(at, end, to);
    if (at == end) break;
    const Char c = *at++;
    if (!counts(c)) continue;
    group = group << 6U | bitsOf(3, c) % noDigit;
    pending = (pending + 1) % 4;
    if (pending == 0) to = write(to, group);
  }
  const auto size = static_cast<std::size_t>(to - bytes.data());
  if (pending != 0) throw RuntimeFault(fault::invalidBase64);
  if (size == 0) throw RuntimeFault(fault::subscriptOutOfRange);
  bytes.resize(size - padding(text));
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
