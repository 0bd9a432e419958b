#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The names of a tree.
namespace ktpnaips::xml {

/// The number of an entry in a table.
using Index = std::uint32_t;

/// Values by number, each once, where they stay; number 0 is there from the start.
template <class Value>
class Numbered {
 public:
  const Value& operator[](Index number) const { return values_[number]; }
  [[nodiscard]] std::size_t size() const { return values_.size(); }

  /// The number of the value with this hash that the predicate holds for; 0 without.
  template <class Predicate>
  [[nodiscard]] Index find(std::uint32_t hash, Predicate predicate) const {
    for (std::size_t at = hash;; ++at) {
      const auto& [number, ofNumber] = slots_[at % slots_.size()];
      if (number == 0 || (ofNumber == hash && predicate(values_[number]))) return number;
    }
  }

  Index add(std::uint32_t hash, Value value) {
    if (values_.size() > slots_.size() / 2) {
      std::vector<Slot> more(slots_.size() * 4);
      for (const Slot& each : slots_) place(more, each);
      slots_.swap(more);
    }
    values_.push_back(std::move(value));
    const auto number = static_cast<Index>(values_.size() - 1);
    place(slots_, {number, hash});
    return number;
  }

 private:
  using Slot = std::pair<Index, std::uint32_t>;  // 0 and nothing when free

  static void place(std::vector<Slot>& slots, const Slot& slot) {
    std::size_t at = slot.second % slots.size();
    while (slots[at].first != 0) at = (at + 1) % slots.size();
    slots[at] = slot;
  }

  std::deque<Value> values_ = std::deque<Value>(1);
  std::vector<Slot> slots_ = std::vector<Slot>(64);
};

/// The name of an element or an attribute. As that of a declaration it is the prefix declared.
struct Name {
  std::string qualified;
  std::size_t localAt = 0;  ///< where the local name starts
  Index uri = 0;

  [[nodiscard]] bool hasPrefix() const { return localAt != 0; }
  [[nodiscard]] std::string_view prefix() const {
    return std::string_view(qualified).substr(0, localAt - (hasPrefix() ? 1 : 0));
  }
  [[nodiscard]] std::string_view local() const {
    return std::string_view(qualified).substr(localAt);
  }
};

/// The names of a document with the URIs of their namespaces, 0 for none.
class Names {
 public:
  Index uri(std::string_view uri);
  Index name(std::string_view qualified, Index uri);
  /// The name if it is kept already, otherwise 0.
  [[nodiscard]] Index find(std::wstring_view qualified, Index uri) const;

  [[nodiscard]] const std::string& uriOf(Index uri) const { return uris_[uri]; }
  const Name& operator[](Index name) const { return names_[name]; }
  [[nodiscard]] std::size_t size() const { return names_.size(); }

 private:
  Numbered<std::string> uris_;
  Numbered<Name> names_;
};

}  // namespace ktpnaips::xml
