#include <ktpnaips/platform/xml_refusal.h>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace ktpnaips::xml {
namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t mostAttributes = 1000;
constexpr std::size_t shortestAttribute = 5;  // ` a=""`
constexpr std::string_view whiteSpace = " \t\r\n";

/// Moves `text` behind the end of what starts with `open`; false when it does not start so.
bool skip(std::string_view& text, std::string_view open, std::string_view close) {
  if (!text.starts_with(open)) return false;
  const auto end = text.find(close, open.size());
  text.remove_prefix(end == npos ? text.size() : end + close.size());
  return true;
}

bool hasDoctype(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  do {
    text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
  } while (skip(text, "<?", "?>") || skip(text, "<!--", "-->"));
  return text.starts_with("<!DOCTYPE");
}

/// The number of quoted values in the tag at the start of the text.
std::size_t attributesOf(std::string_view tag) {
  std::size_t count = 0;
  for (auto at = tag.find_first_of("\"'>"); at != npos && tag[at] != '>';
       at = tag.find_first_of("\"'>", at + 1)) {
    at = tag.find(tag[at], at + 1);
    if (at == npos) break;
    ++count;
  }
  return count;
}

/// True when the text may have more than so many characters without a "<": they would fill one of
/// the blocks of half that size.
bool mayHaveStretchWithoutTag(std::string_view text, std::size_t length) {
  const std::size_t block = length / 2;
  for (std::size_t at = 0; at + block <= text.size(); at += block) {
    if (text.substr(at, block).find('<') == npos) return true;
  }
  return false;
}

/// Moves `text` behind the comment at its start; false when "--" stands elsewhere than at its end.
bool skipComment(std::string_view& text) {
  const auto end = std::min(text.find("--", 4), text.size());
  const bool isWhole = end + 2 >= text.size() || text[end + 2] == '>';
  text.remove_prefix(std::min(end + 3, text.size()));
  return isWhole;
}

/// What is wrong with a comment or an element. A tag holds no "<", so a crowded one shows as a long
/// way to the next.
std::wstring refusedMarkup(std::string_view text) {
  const bool mayBeRefused = mayHaveStretchWithoutTag(text, mostAttributes * shortestAttribute) ||
                            text.find("!--") != npos;
  if (!mayBeRefused) return {};
  for (auto at = text.find('<'); at != npos; at = text.find('<')) {
    text.remove_prefix(at);
    if (text.starts_with("<!--")) {
      if (!skipComment(text)) return L"a comment holds \"--\"";
      continue;
    }
    if (skip(text, "<![CDATA[", "]]>") || skip(text, "<?", "?>")) continue;
    const auto length = std::min(text.find('<', 1), text.size());
    if (length > mostAttributes * shortestAttribute &&
        attributesOf(text.substr(0, length)) > mostAttributes) {
      return L"an element has more than 1,000 attributes";
    }
    text.remove_prefix(length);
  }
  return {};
}

/// A NUL in a text whose start is not that of an encoding in units of more than a byte.
bool hasNul(std::string_view text) {
  const bool isWide = text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE") ||
                      text.substr(0, 4).find('\0') != npos;
  return !isWide && text.find('\0') != npos;
}

}  // namespace

std::wstring refusalBeforeParsing(std::string_view text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    return L"the text is longer than 2 GB";
  }
  if (hasNul(text)) return L"the text holds a NUL character";
  if (hasDoctype(text)) return std::wstring(doctypeRefused);
  return refusedMarkup(text);
}

}  // namespace ktpnaips::xml
