#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The XML DOM: cheap handles on nodes of reference-counted documents.
///
/// A handle keeps its whole document alive. A member called on an empty handle throws fault 91; a
/// failing DOM call throws a fault with the DOM's own (negative) number. Paths and expressions are
/// XPath; their prefixes are those given to `Document::bindPrefixes`.
namespace ktpnaips::xml {

class Document;

/// A node of a document, or no node.
class Node {
 public:
  Node() noexcept = default;
  /// Another handle on the same node.
  Node(const Node& other) noexcept;
  Node(Node&& other) noexcept;
  Node& operator=(const Node& other) noexcept;
  Node& operator=(Node&& other) noexcept;
  ~Node();

  /// True unless this is no node.
  explicit operator bool() const noexcept { return node_ != nullptr; }
  /// True for two handles on the same node.
  friend bool operator==(const Node& a, const Node& b) noexcept { return a.isSameAs(b); }

  /// The document that the node belongs to; a document's own node gives that document.
  [[nodiscard]] Document ownerDocument() const;
  /// True for an element; false for a text, a comment and the like.
  [[nodiscard]] bool isElement() const;
  /// The qualified name, prefix included.
  [[nodiscard]] std::wstring name() const;
  /// The URI of its namespace; empty when it has none.
  [[nodiscard]] std::wstring namespaceUri() const;
  /// The nodes around it; no node where there is none.
  [[nodiscard]] Node firstChild() const;
  [[nodiscard]] Node lastChild() const;
  [[nodiscard]] Node nextSibling() const;

  /// Appends an element as the last child and returns it. An empty `text` adds no text node. With
  /// an empty `namespaceUri` it has no prefix.
  Node appendElement(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                     std::wstring_view text) const;
  /// Sets an attribute, replacing one of the same qualified name, and returns its node. Without a
  /// prefix it is serialised under its name alone, whatever its namespace; with an empty
  /// `namespaceUri` it has no prefix.
  Node setAttribute(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                    std::wstring_view value) const;
  /// The value of the attribute with this qualified name, or nothing when it is absent. Throws
  /// fault 13 when the node is not an element.
  [[nodiscard]] std::optional<std::wstring> attribute(std::wstring_view qualifiedName) const;

  /// The text content of the node and its descendants, whole and unchanged.
  [[nodiscard]] std::wstring text() const;
  /// Hands the text content to `reader` in the form in which the DOM holds it: UTF-8 as a
  /// `std::string_view` or wide as a `std::wstring_view`. The view ends with the call.
  template <class Reader>
  void readText(Reader&& reader) const {
    readTextWith(
        &reader, [](void* to, std::string_view utf8) { (*static_cast<Reader*>(to))(utf8); },
        [](void* to, std::wstring_view wide) { (*static_cast<Reader*>(to))(wide); });
  }

  /// The first node, in document order, that the expression selects from here; or no node.
  [[nodiscard]] Node select(std::string_view expression) const;
  /// All nodes that the expression selects from here, in document order.
  [[nodiscard]] std::vector<Node> selectAll(std::string_view expression) const;

  /// The node as UTF-8 XML text: no XML declaration, no line end of its own. Throws fault 5 when
  /// the document holds a character that XML 1.0 does not allow, or the node elements that are
  /// nested more than 1,000 deep.
  [[nodiscard]] std::string serialise() const;

 protected:
  friend struct NodeAccess;
  Node(void* owner, void* node) noexcept : owner_(owner), node_(node) {}

  void* owner_ = nullptr;  // what the platform counts references on
  void* node_ = nullptr;

 private:
  [[nodiscard]] bool isSameAs(const Node& other) const noexcept;
  void readTextWith(void* reader, void (*utf8)(void*, std::string_view),
                    void (*wide)(void*, std::wstring_view)) const;
};

/// Where and why a text stopped being XML.
struct ParseFailure {
  int line = 0;             ///< from 1; 0 when unknown
  int column = 0;           ///< from 1; 0 when unknown
  std::wstring reason;      ///< what the parser says
  bool isTooLarge = false;  ///< the text may be XML, but of more nodes than a document may have
};

/// A document, or no document. White-space-only text of a parsed document is no node.
class Document : public Node {
 public:
  Document() noexcept = default;

  /// A new document without a document element.
  static Document create();
  /// Parses XML text: UTF-8 unless it declares another encoding. Returns no document when the text
  /// is not well-formed, has a document type declaration or an element with more than 1,000
  /// attributes, or nests elements deeper than the DOM allows (POSIX: 1,000 levels; it also limits
  /// names, namespaces and the number of nodes); `failure`, when given, then says why. Nothing
  /// outside the text is ever fetched.
  static Document parse(const std::string& text, ParseFailure* failure = nullptr);
  /// As `parse`, but the document takes the text over, which is empty then, and may keep long texts
  /// where they lie. When there is no document, the text is as it was.
  static Document parseInPlace(std::string& text, ParseFailure* failure = nullptr);

  /// The outermost element; no node while there is none.
  [[nodiscard]] Node documentElement() const;
  /// Binds the prefixes that expressions use, given as namespace declarations
  /// ("xmlns:a='uri'  xmlns:b='uri'"), in place of earlier ones.
  void bindPrefixes(std::wstring_view declarations) const;

 private:
  friend struct NodeAccess;
  using Node::Node;
};

}  // namespace ktpnaips::xml
