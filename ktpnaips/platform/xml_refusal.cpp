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

/// A tag holds no "<", so a crowded one shows as a long way to the next.
bool hasCrowdedElement(std::string_view text) {
  for (auto at = text.find('<'); at != npos;) {
    const auto next = text.find('<', at + 1);
    const auto length = std::min(next, text.size()) - at;
    if (length > mostAttributes * shortestAttribute &&
        attributesOf(text.substr(at, length)) > mostAttributes) {
      return true;
    }
    at = next;
  }
  return false;
}

}  // namespace

std::wstring refusalBeforeParsing(std::string_view text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    return L"the text is longer than 2 GB";
  }
  if (hasDoctype(text)) return std::wstring(doctypeRefused);
  if (hasCrowdedElement(text)) return L"an element has more than 1,000 attributes";
  return {};
}

}  // namespace ktpnaips::xml
