#include <ktpnaips/platform/posix/xml_tree.h>

#include <algorithm>
#include <new>
#include <utility>

namespace ktpnaips::xml {

std::string_view Tree::viewOf(Extent text) const {
  if (text.at == Extent::nowhere) return {};
  if (text.at >= firstKept_) return {texts_.data() + (text.at - firstKept_), text.size};
  return {takenOver_.data() + text.at, text.size};
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

std::optional<std::string_view> Tree::prefixOf(Index node) const {
  const Name& name = nameOf(node);
  const Kind kind = entries_[node].kind();
  if (kind == Kind::declaration) return name.qualified;
  if (kind == Kind::element || name.hasPrefix()) return name.prefix();
  return std::nullopt;
}

std::optional<Index> Tree::lookUp(std::string_view prefix, Index node) const {
  const auto says = [&](Index each) { return prefixOf(each) == prefix; };
  for (; node != 0; node = entries_[node].parent) {
    if (says(node)) return nameOf(node).uri;
    if (const Index found = findAttribute(node, says)) return nameOf(found).uri;
  }
  return std::nullopt;
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

void Tree::reserve(std::size_t size) {
  constexpr std::size_t bytesForEach = 24;
  constexpr std::size_t most = 100'000;
  entries_.reserve(std::min(size / bytesForEach + 1, most));
  texts_.reserve(size);
}

Extent Tree::keep(std::string_view utf8) {
  Extent text{static_cast<std::uint32_t>(firstKept_ + texts_.size()), 0};
  extend(text, utf8);
  return text;
}

Extent Tree::keepAscii(std::wstring_view text) {
  Extent kept = keep({});
  const std::size_t before = texts_.size();
  if (firstKept_ + before + text.size() >= Extent::nowhere) throw std::bad_alloc();
  texts_.resize(before + text.size());
  std::ranges::transform(text, texts_.begin() + static_cast<std::ptrdiff_t>(before),
                         [](wchar_t c) { return static_cast<char>(c); });
  kept.size = static_cast<std::uint32_t>(text.size());
  return kept;
}

void Tree::extend(Extent& last, std::string_view utf8) {
  if (firstKept_ + texts_.size() + utf8.size() >= Extent::nowhere) throw std::bad_alloc();
  texts_.append(utf8);
  last.size += static_cast<std::uint32_t>(utf8.size());
}

void Tree::takeOver(std::string&& text) {
  takenOver_ = std::move(text);
  firstKept_ = takenOver_.size();
}

void Tree::leaveOutReturns(Index node) {
  Extent& text = entries_[node].text;
  char* const start = takenOver_.data() + text.at;
  text.size = static_cast<std::uint32_t>(std::remove(start, start + text.size, '\r') - start);
}

}  // namespace ktpnaips::xml
