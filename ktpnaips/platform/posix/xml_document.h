#pragma once

#include <ktpnaips/platform/xml.h>

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <atomic>
#include <memory>
#include <memory_resource>
#include <string>
#include <utility>
#include <vector>

/// libxml2 behind the handles of `platform/xml.h`.
namespace ktpnaips::xml {

template <auto Free>
struct FreeWith {
  template <class T>
  void operator()(T* object) const noexcept {
    Free(object);
  }
};

struct FreeXml {
  void operator()(void* memory) const noexcept { xmlFree(memory); }
};

using Tree = std::unique_ptr<xmlDoc, FreeWith<xmlFreeDoc>>;
using XmlText = std::unique_ptr<xmlChar, FreeXml>;
using Context = std::unique_ptr<xmlXPathContext, FreeWith<xmlXPathFreeContext>>;

/// A prefix of expressions and the namespace that it stands for.
using Binding = std::pair<std::string, std::string>;

/// A document with what belongs to it, counted by the handles on its nodes.
struct SharedDocument {
  explicit SharedDocument(Tree tree) noexcept : document(std::move(tree)) {}
  SharedDocument(const SharedDocument&) = delete;
  SharedDocument& operator=(const SharedDocument&) = delete;
  ~SharedDocument();

  /// Holds the nodes that handles have added: a request is built and thrown away as one.
  std::pmr::monotonic_buffer_resource memory{4096};
  Tree document;
  /// The added nodes in places that libxml2 would free; taken out before it frees the tree.
  std::vector<xmlNodePtr> grafts;
  std::vector<Binding> bindings;
  Context xpath;  // made when an expression first needs it; freed before the tree
  bool hasForbiddenCharacters = false;
  std::atomic<long> references{0};
};

/// Sets libxml2 up, once, and for the calling thread: it does so itself on first use, but not when
/// two threads are the first, and not when memory is short.
void initialiseLibrary();

/// The node after this one in document order, attributes not counted; null after the last.
inline xmlNodePtr following(xmlNodePtr node) {
  if (node->type == XML_ELEMENT_NODE && node->children != nullptr) return node->children;
  while (node != nullptr && node->next == nullptr) node = node->parent;
  return node != nullptr ? node->next : nullptr;
}

/// Between handles and libxml2's pointers.
struct NodeAccess {
  static Node make(SharedDocument* owner, xmlNodePtr node);
  static Document makeDocument(SharedDocument* owner);
  static SharedDocument& owner(const Node& node);
  /// The node; throws fault 91 for an empty handle.
  static xmlNodePtr raw(const Node& node);
};

inline const xmlChar* asXml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);  // NOLINT: libxml2's UTF-8 is unsigned
}

inline const char* asChars(const xmlChar* text) {
  return reinterpret_cast<const char*>(text);  // NOLINT: as above
}

/// What libxml2 returns when it fails is null: throws "Out of memory" then, the pointer otherwise.
template <class T>
T* made(T* pointer) {
  if (pointer == nullptr) throw std::bad_alloc();
  return pointer;
}

}  // namespace ktpnaips::xml
