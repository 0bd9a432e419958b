#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ktpnaips {

/// `size` as a 16-bit count; throws fault 6 beyond 32,767.
std::int16_t countOf(std::size_t size);

/// An ordered list read by the host. `Entry` is a `std::shared_ptr` or a text.
template <class Entry>
class Collection {
 public:
  /// The number of entries. Throws fault 6 when there are more than 32,767: iterate then.
  [[nodiscard]] std::int16_t Count() const { return countOf(entries_.size()); }
  /// The entry at an index from 1, or no object (an empty text) outside 1 to `Count`.
  [[nodiscard]] Entry Item(std::int16_t index) const {
    const auto position = static_cast<std::size_t>(index) - 1;
    return index >= 1 && position < entries_.size() ? entries_[position] : Entry{};
  }
  /// The entries in order, for iteration.
  [[nodiscard]] auto begin() const noexcept { return entries_.begin(); }
  [[nodiscard]] auto end() const noexcept { return entries_.end(); }

 protected:
  ~Collection() = default;
  [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }
  const Entry& append(Entry entry) { return entries_.emplace_back(std::move(entry)); }
  void clear() noexcept { entries_.clear(); }

 private:
  std::vector<Entry> entries_;
};

/// A collection that the host may add to.
template <class Entry>
class OpenCollection : public Collection<Entry> {
 public:
  /// Appends the entry; no object is ignored.
  void Add(Entry entry) {
    if (entry) this->append(std::move(entry));
  }

 protected:
  ~OpenCollection() = default;
};

/// Appends to a list of the host's items while it holds fewer than `limit`; drops the item
/// silently otherwise.
template <class Entry>
void addWithin(std::size_t limit, std::vector<Entry>& list, Entry entry) {
  if (list.size() < limit) list.push_back(std::move(entry));
}

/// As above for a text, trimmed and upper-cased; one that is empty then is ignored.
void addCleanedWithin(std::size_t limit, std::vector<std::wstring>& list, std::wstring_view text);

}  // namespace ktpnaips
