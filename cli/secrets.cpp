#include "cli/secrets.h"

#include "cli/base64.h"
#include "cli/characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace cli {
namespace {

constexpr int mostEscapings = 3;  // two, and those of JSON around them

std::vector<std::u32string>& secrets() {
  static std::vector<std::u32string> all;
  return all;
}

Character readAt(std::string_view text, std::size_t at, int escapings);

/// The next characters, at most so many, of a text that was escaped so often; each as ASCII, or
/// NUL.
class Following {
 public:
  Following(std::string_view text, std::size_t at, int escapings)
      : text_(text), at_(at), escapings_(escapings) {}

  char next() {
    const Character character = readAt(text_, at_, escapings_);
    at_ += character.length;
    return character.code < 0x80 ? static_cast<char>(character.code) : '\0';
  }
  /// A number of so many hexadecimal digits; -1 for none.
  std::int32_t hexadecimal(int digits) {
    std::string number;
    for (int i = 0; i < digits; ++i) number += next();
    return valueOf(number, 16);
  }
  [[nodiscard]] std::size_t at() const { return at_; }

  static std::int32_t valueOf(std::string_view number, int base) {
    std::int32_t value = -1;
    const char* const end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, value, base);
    return read.ec == std::errc() && read.ptr == end && value >= 0 ? value : -1;
  }

 private:
  std::string_view text_;
  std::size_t at_;
  int escapings_;
};

/// After "&" in XML and HTML.
std::int32_t readEntity(Following& rest) {
  constexpr std::array<std::pair<std::string_view, char>, 5> names{
      {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
  std::string name;
  for (char c = rest.next(); c != ';'; c = rest.next()) {
    constexpr std::size_t longest = 8;
    if (c == '\0' || name.size() == longest) return -1;
    name += c;
  }
  const auto found = std::ranges::find(names, name, &std::pair<std::string_view, char>::first);
  if (found != names.end()) return found->second;
  const std::string_view view = name;
  if (view.starts_with("#x") || view.starts_with("#X")) {
    return Following::valueOf(view.substr(2), 16);
  }
  return view.starts_with('#') ? Following::valueOf(view.substr(1), 10) : -1;
}

/// After "%" in a URL.
std::int32_t readPercent(Following& rest) {
  const std::int32_t first = rest.hexadecimal(2);
  if (first < 0x80) return first;
  std::string bytes(1, static_cast<char>(first));
  while (bytes.size() < lengthOfUtf8(bytes.front())) {
    if (rest.next() != '%') return -1;
    const std::int32_t byte = rest.hexadecimal(2);
    if (byte < 0) return -1;
    bytes += static_cast<char>(byte);
  }
  return static_cast<std::int32_t>(characterAt(bytes, 0).code);
}

/// After a backslash in JSON.
std::int32_t readBackslash(Following& rest) {
  constexpr std::string_view letters = "\"\\/bfnrt";
  constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
  const char c = rest.next();
  if (c != 'u') {
    const auto letter = letters.find(c);
    return letter == letters.npos || c == '\0' ? -1 : meanings[letter];
  }
  const std::int32_t unit = rest.hexadecimal(4);
  const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
  if (!isHigh) return unit;
  if (rest.next() != '\\' || rest.next() != 'u') return -1;
  return 0x10000 + ((unit - 0xD800) << 10) + (rest.hexadecimal(4) - 0xDC00);
}

/// The character that stands here in a text that was escaped so often, or not at this place.
Character readAt(std::string_view text, std::size_t at, int escapings) {
  if (escapings == 0) return characterAt(text, at);
  const Character first = readAt(text, at, escapings - 1);
  Following rest(text, at + first.length, escapings - 1);
  std::int32_t code = -1;
  if (first.code == '&') code = readEntity(rest);
  if (first.code == '%') code = readPercent(rest);
  if (first.code == '\\') code = readBackslash(rest);
  if (code < 0) return first;
  return {static_cast<char32_t>(code), rest.at() - at};
}

/// How much of the text at this place is the secret; 0 for nothing.
std::size_t lengthOf(std::u32string_view secret, std::string_view text, std::size_t at) {
  for (int escapings = mostEscapings; escapings >= 0; --escapings) {
    std::size_t end = at;
    const bool isThere = std::ranges::all_of(secret, [&](char32_t expected) {
      const Character found = readAt(text, end, escapings);
      end += found.length;
      const bool isBlank = escapings > 0 && found.code == '+' && expected == ' ';
      return found.length > 0 && (found.code == expected || isBlank);
    });
    if (isThere) return end - at;
  }
  return 0;
}

std::u32string codesOf(std::string_view text) {
  std::u32string codes;
  for (std::size_t at = 0; at < text.size();) {
    const Character character = characterAt(text, at);
    codes += character.code;
    at += character.length;
  }
  return codes;
}

bool mayBegin(char c) {
  return c == '&' || c == '%' || c == '\\' ||
         std::ranges::any_of(secrets(), [c](const std::u32string& secret) {
           return secret.front() >= 0x80 || static_cast<char>(secret.front()) == c;
         });
}

void add(const std::u32string& secret) {
  if (std::ranges::find(secrets(), secret) == secrets().end()) secrets().push_back(secret);
}

/// What Base64 makes of the secret wherever it stands in what was encoded. A short piece would be
/// found by chance.
void addBase64(std::string_view secret) {
  constexpr std::size_t shortest = 8;
  for (std::size_t before = 0; before < 3; ++before) {
    const std::size_t first = (before * 8 + 5) / 6;
    const std::size_t last = (before + secret.size()) * 8 / 6;
    if (last < first + shortest) continue;
    const std::string whole = base64Of(std::string(before, '\0').append(secret));
    add(codesOf(std::string_view(whole).substr(first, last - first)));
  }
}

}  // namespace

void conceal(std::string_view secret) {
  constexpr std::size_t shortest = 4;
  const std::u32string codes = codesOf(secret);
  if (codes.size() < shortest) return;
  add(codes);
  addBase64(secret);
}

std::string withoutSecrets(std::string_view text) {
  if (secrets().empty()) return std::string(text);
  std::string shown;
  shown.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = 0;
    if (mayBegin(text[at])) {
      for (const auto& secret : secrets()) length = std::max(length, lengthOf(secret, text, at));
    }
    if (length > 0) {
      shown += "********";
      at += length;
    } else {
      shown += text[at++];
    }
  }
  return shown;
}

}  // namespace cli
