#include <ktpnaips/platform/posix/xml_names.h>
#include <ktpnaips/platform/text.h>

#include <type_traits>

namespace ktpnaips::xml {
namespace {

/// The same for UTF-8 and for wide text: what is not ASCII is left out.
template <class Char>
std::uint32_t hashOf(std::basic_string_view<Char> text, Index uri) {
  std::uint32_t hash = uri + 0x811C9DC5U;
  for (const Char c : text) {
    const auto code = static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<Char>>(c));
    if (code < 0x80) hash = (hash ^ code) * 0x01000193U;
  }
  return hash ^ (hash >> 15U);
}

bool isSame(std::string_view utf8, std::wstring_view text) {
  if (utf8.size() != text.size()) return utf8.size() > text.size() && utf8 == text::toUtf8(text);
  std::uint32_t differences = 0;  // all of them: a loop without an early end takes less time
  for (std::size_t i = 0; i < text.size(); ++i) {
    differences |= static_cast<std::uint32_t>(text[i]) ^
                   static_cast<std::uint32_t>(static_cast<signed char>(utf8[i]));
  }
  return differences == 0;
}

}  // namespace

Index Names::uri(std::string_view uri) {
  if (uri.empty()) return 0;
  const std::uint32_t hash = hashOf(uri, 0);
  const Index kept = uris_.find(hash, [&](const std::string& each) { return each == uri; });
  return kept != 0 ? kept : uris_.add(hash, std::string(uri));
}

Index Names::name(std::string_view qualified, Index uri) {
  const std::uint32_t hash = hashOf(qualified, uri);
  const Index kept = names_.find(
      hash, [&](const Name& each) { return each.uri == uri && each.qualified == qualified; });
  if (kept != 0) return kept;
  return names_.add(hash, {std::string(qualified), qualified.find(':') + 1, uri});
}

Index Names::find(std::wstring_view qualified, Index uri) const {
  return names_.find(hashOf(qualified, uri), [&](const Name& each) {
    return each.uri == uri && isSame(each.qualified, qualified);
  });
}

}  // namespace ktpnaips::xml
