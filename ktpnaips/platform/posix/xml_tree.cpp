#include <ktpnaips/platform/posix/xml_tree.h>

#include <algorithm>
#include <new>
#include <utility>

namespace ktpnaips::xml {

std::string_view Tree::viewOf(Extent text) const {
  if (text.at == Extent::nowhere) return {};
  return std::string_view(texts_).substr(text.at, text.size);
}

Index Tree::documentElement() const {
  Index child = entries_[0].firstChild;
  while (child != 0 && entries_[child].kind() != Kind::element) child = entries_[child].next;
  return child;
}

Index Tree::following(Index node, Index top) const {
  if (entries_[node].firstChild != 0) return entries_[node].firstChild;
  while (node != top && entries_[node].next == 0) node = entries_[node].parent;
  return node != top ? entries_[node].next : 0;
}

std::optional<Index> Tree::lookUp(std::string_view prefix, Index node) const {
  for (; node != 0; node = entries_[node].parent) {
    const auto says = [&](Index name) {
      const Name& each = names.names[name];
      return names.bindings[each.binding].prefix == prefix;
    };
    if (says(entries_[node].name())) return nameOf(node).uri;
    for (Index each = entries_[node].firstAttribute; each != 0; each = entries_[each].next) {
      const bool isUnprefixed =
          entries_[each].kind() == Kind::attribute && !nameOf(each).hasPrefix();
      if (!isUnprefixed && says(entries_[each].name())) return nameOf(each).uri;
    }
  }
  return std::nullopt;
}

void Tree::reserve(std::size_t size) {
  constexpr std::size_t bytesForEach = 24;
  constexpr std::size_t most = 100'000;
  entries_.reserve(std::min(size / bytesForEach + 1, most));
  texts_.reserve(size);
}

Index Tree::add(Kind kind, Index name, Index parent, Extent text) {
  if (entries_.size() > Extent::nowhere) throw std::bad_alloc();
  const auto number = static_cast<Index>(entries_.size());
  entries_.push_back({name << 3U | static_cast<std::uint32_t>(kind), parent, 0, 0, 0, 0, text});
  return number;
}

void Tree::linkChild(Index node) {
  Entry& parent = entries_[entries_[node].parent];
  (parent.lastChild != 0 ? entries_[parent.lastChild].next : parent.firstChild) = node;
  parent.lastChild = node;
}

void Tree::linkAttribute(Index node, Index before) {
  (before != 0 ? entries_[before].next : entries_[entries_[node].parent].firstAttribute) = node;
}

void Tree::unlinkAttribute(Index node) {
  Index* link = &entries_[entries_[node].parent].firstAttribute;
  while (*link != node) link = &entries_[*link].next;
  *link = std::exchange(entries_[node].next, 0);
}

Extent Tree::keep(std::string_view utf8) {
  Extent text{static_cast<std::uint32_t>(texts_.size()), 0};
  extend(text, utf8);
  return text;
}

Extent Tree::keepAscii(std::wstring_view text) {
  const Extent kept = keep({});
  if (texts_.size() + text.size() >= Extent::nowhere) throw std::bad_alloc();
  texts_.resize(texts_.size() + text.size());
  std::ranges::transform(text, texts_.end() - static_cast<std::ptrdiff_t>(text.size()),
                         [](wchar_t c) { return static_cast<char>(c); });
  return {kept.at, static_cast<std::uint32_t>(text.size())};
}

void Tree::extend(Extent& last, std::string_view utf8) {
  if (texts_.size() + utf8.size() >= Extent::nowhere) throw std::bad_alloc();
  texts_.append(utf8);
  last.size += static_cast<std::uint32_t>(utf8.size());
}

}  // namespace ktpnaips::xml
