#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The names in a tree.
namespace ktpnaips::xml {

/// The number of an entry in a table.
using Index = std::uint32_t;

/// Each value once, by number; number 0 is there from the start.
template <class Value>
class Numbered {
 public:
  explicit Numbered(Value first) { values_.push_back(std::move(first)); }

  const Value& operator[](Index number) const { return values_[number]; }
  [[nodiscard]] std::size_t size() const { return values_.size(); }

  /// The number of the value with this hash that the predicate holds for; 0 without.
  template <class Predicate>
  [[nodiscard]] Index find(std::uint32_t hash, Predicate predicate) const {
    for (std::size_t slot = hash;; ++slot) {
      const Slot& each = slots_[slot % slots_.size()];
      if (each.number == 0 || (each.hash == hash && predicate(values_[each.number]))) {
        return each.number;
      }
    }
  }

  Index add(std::uint32_t hash, Value value) {
    if (values_.size() > slots_.size() / 2) grow();
    values_.push_back(std::move(value));
    return place(slots_, {hash, static_cast<Index>(values_.size() - 1)});
  }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    Index number = 0;  ///< 0: free
  };

  static Index place(std::vector<Slot>& slots, Slot slot) {
    std::size_t at = slot.hash % slots.size();
    while (slots[at].number != 0) at = (at + 1) % slots.size();
    slots[at] = slot;
    return slot.number;
  }

  void grow() {
    std::vector<Slot> more(slots_.size() * 4);
    for (const Slot& each : slots_) {
      if (each.number != 0) place(more, each);
    }
    slots_.swap(more);
  }

  std::vector<Value> values_;
  std::vector<Slot> slots_ = std::vector<Slot>(16);
};

/// A prefix, empty for the default, with the namespace that it stands for.
struct Binding {
  std::string prefix;
  Index uri = 0;
};

/// A name of elements or attributes.
struct Name {
  std::string qualified;
  std::size_t localAt = 0;  ///< where the local name starts
  Index binding = 0;
  Index uri = 0;

  [[nodiscard]] std::string_view local() const {
    return std::string_view(qualified).substr(localAt);
  }
  [[nodiscard]] bool hasPrefix() const { return localAt != 0; }
};

/// The names of a document. Number 0 of each kind stands for none.
class Names {
 public:
  Index uri(std::string_view uri);
  Index uri(std::wstring_view uri);
  Index binding(std::string_view prefix, Index uri);
  Index name(std::string_view qualified, Index uri);
  /// The name of the attribute that declares a prefix.
  Index declaration(std::string_view prefix, Index uri);
  /// The name if it is kept already, otherwise 0.
  [[nodiscard]] Index find(std::wstring_view qualified, Index uri) const;

  Numbered<std::string> uris{{}};
  Numbered<Binding> bindings{{}};
  Numbered<Name> names{{}};

 private:
  template <class Text>
  Index uriOf(Text uri);
  Index add(std::string_view qualified, Index uri, Index binding);
};

}  // namespace ktpnaips::xml
