#pragma once

#include <ktpnaips/platform/posix/xml_names.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The tree behind the handles of `platform/xml.h`.
namespace ktpnaips::xml {

enum class Kind : std::uint8_t {
  document,
  element,
  attribute,
  declaration,  ///< of a prefix, as it was parsed
  text,
  data,  ///< a CDATA section
  comment,
  instruction
};

/// Where a text lies; an empty one is not the same as none.
struct Extent {
  static constexpr std::uint32_t nowhere = ~std::uint32_t{0};

  std::uint32_t at = nowhere;
  std::uint32_t size = 0;
};

/// A node; links are numbers of nodes, 0 for none. The text that an element starts with is the
/// element's own and no entry.
struct Entry {
  std::uint32_t nameAndKind;
  Index parent;
  Index next;
  Index firstChild;
  Index lastChild;
  Index firstAttribute;  ///< declarations are among them
  Extent text;

  [[nodiscard]] Kind kind() const { return static_cast<Kind>(nameAndKind & 7U); }
  [[nodiscard]] Index name() const { return nameAndKind >> 3U; }
  [[nodiscard]] bool hasText() const { return text.at != Extent::nowhere; }
};

/// The nodes of a document by number, with their names and texts. Number 0 is the document.
class Tree {
 public:
  Tree() { add(Kind::document, 0, 0); }

  Names names;

  const Entry& operator[](Index node) const { return entries_[node]; }
  [[nodiscard]] std::size_t size() const { return entries_.size(); }
  [[nodiscard]] const Name& nameOf(Index node) const { return names[entries_[node].name()]; }
  /// Valid until the tree changes; empty for none.
  [[nodiscard]] std::string_view textOf(Index node) const { return viewOf(entries_[node].text); }
  [[nodiscard]] std::string_view viewOf(Extent text) const;
  [[nodiscard]] Index documentElement() const;
  /// The next in document order within `top`, attributes not counted; 0 after the last.
  [[nodiscard]] Index following(Index node, Index top = 0) const;
  /// The first attribute or declaration of the element that the predicate holds for; 0 without.
  template <class Predicate>
  [[nodiscard]] Index findAttribute(Index element, Predicate predicate) const {
    Index each = entries_[element].firstAttribute;
    while (each != 0 && !predicate(each)) each = entries_[each].next;
    return each;
  }
  /// The prefix that the name of a node stands or falls with; nothing for an attribute without one.
  [[nodiscard]] std::optional<std::string_view> prefixOf(Index node) const;
  /// The namespace of a prefix at the node; nothing when neither it nor what is around it says.
  [[nodiscard]] std::optional<Index> lookUp(std::string_view prefix, Index node) const;

  /// A new node, which is not yet among the children or attributes of its parent.
  Index add(Kind kind, Index name, Index parent, Extent text = {});
  /// Makes it the last child.
  void linkChild(Index node);
  /// Makes it the attribute behind `before`, which is the last, or 0 when there is none.
  void linkAttribute(Index node, Index before);
  void unlinkAttribute(Index node);
  void setText(Index node, Extent text) { entries_[node].text = text; }

  /// Makes room for the nodes and texts of a document of that many bytes.
  void reserve(std::size_t size);
  /// Keeps a text.
  Extent keep(std::string_view utf8);
  Extent keepAscii(std::wstring_view text);
  /// Adds to the text that was kept last.
  void extend(Extent& last, std::string_view utf8);

  /// A text that nodes may have parts of, by their places in it; to be set before any is kept.
  void takeOver(std::string&& text);
  [[nodiscard]] const std::string& takenOver() const { return takenOver_; }
  std::string giveBack() { return std::move(takenOver_); }
  /// Leaves out the CRs of a node's part of it.
  void leaveOutReturns(Index node);

 private:
  std::vector<Entry> entries_;
  std::string takenOver_;
  std::size_t firstKept_ = 0;  ///< the place of the first text that is kept
  std::string texts_;
};

}  // namespace ktpnaips::xml
