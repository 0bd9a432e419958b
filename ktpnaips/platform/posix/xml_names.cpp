#include <ktpnaips/platform/posix/xml_names.h>
#include <ktpnaips/platform/text.h>

#include <type_traits>

namespace ktpnaips::xml {
namespace {

/// The same for UTF-8 and for wide text: what is not ASCII is left out.
template <class Char>
std::uint32_t hashOf(std::basic_string_view<Char> text, std::uint32_t start = 0) {
  std::uint32_t hash = start + 0x811C9DC5U;
  for (const Char c : text) {
    const auto code = static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<Char>>(c));
    if (code < 0x80) hash = (hash ^ code) * 0x01000193U;
  }
  return hash ^ (hash >> 15U);
}

bool isSame(std::string_view one, std::string_view other) {
  return one == other;
}

bool isSame(std::string_view utf8, std::wstring_view text) {
  if (utf8.size() < text.size()) return false;
  if (utf8.size() > text.size()) return utf8 == text::toUtf8(text);
  std::uint32_t differences = 0;  // all of them: a loop without an early end takes less time
  for (std::size_t i = 0; i < text.size(); ++i) {
    differences |= static_cast<std::uint32_t>(text[i]) ^
                   static_cast<std::uint32_t>(static_cast<signed char>(utf8[i]));
  }
  return differences == 0;
}

std::string asUtf8(std::string_view text) {
  return std::string(text);
}

std::string asUtf8(std::wstring_view text) {
  return text::toUtf8(text);
}

}  // namespace

template <class Text>
Index Names::uriOf(Text uri) {
  if (uri.empty()) return 0;
  const std::uint32_t hash = hashOf(uri);
  const Index kept = uris.find(hash, [&](const auto& each) { return isSame(each, uri); });
  return kept != 0 ? kept : uris.add(hash, asUtf8(uri));
}

Index Names::uri(std::string_view uri) {
  return uriOf(uri);
}

Index Names::uri(std::wstring_view uri) {
  return uriOf(uri);
}

Index Names::binding(std::string_view prefix, Index uri) {
  if (prefix.empty() && uri == 0) return 0;
  const std::uint32_t hash = hashOf(prefix, uri);
  const Index kept = bindings.find(
      hash, [&](const Binding& each) { return each.uri == uri && each.prefix == prefix; });
  return kept != 0 ? kept : bindings.add(hash, {std::string(prefix), uri});
}

Index Names::name(std::string_view qualified, Index uri) {
  const auto colon = qualified.find(':');
  const bool hasPrefix = colon != std::string_view::npos;
  const auto prefix = hasPrefix ? qualified.substr(0, colon) : std::string_view();
  return add(qualified, uri, binding(prefix, uri));
}

Index Names::declaration(std::string_view prefix, Index uri) {
  std::string qualified = "xmlns";
  if (!prefix.empty()) qualified.append(":").append(prefix);
  return add(qualified, uri, binding(prefix, uri));
}

Index Names::find(std::wstring_view qualified, Index uri) const {
  return names.find(hashOf(qualified, uri), [&](const Name& each) {
    return each.uri == uri && isSame(each.qualified, qualified);
  });
}

Index Names::add(std::string_view qualified, Index uri, Index binding) {
  const std::uint32_t hash = hashOf(qualified, uri);
  const Index kept = names.find(hash, [&](const Name& each) {
    return each.uri == uri && each.binding == binding && each.qualified == qualified;
  });
  if (kept != 0) return kept;
  const auto colon = qualified.find(':');
  const std::size_t localAt = colon == std::string_view::npos ? 0 : colon + 1;
  return names.add(hash, {std::string(qualified), localAt, binding, uri});
}

}  // namespace ktpnaips::xml
