#pragma once

#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_library.h>

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <memory_resource>

namespace ktpnaips::xml {

/// A tree as libxml2 knows trees, for expressions that are more than paths, until it changes.
class ExpressionDocument {
 public:
  ExpressionDocument(Tree& tree, const std::vector<Binding>& bindings);
  ExpressionDocument(const ExpressionDocument&) = delete;
  ExpressionDocument& operator=(const ExpressionDocument&) = delete;
  ~ExpressionDocument() = default;

  /// What the expression selects, in document order. Throws when it does not select nodes.
  std::vector<Place> select(Place from, std::string_view expression);

 private:
  struct FreeWithoutNodes {
    void operator()(xmlDoc* document) const noexcept {
      document->children = document->last = nullptr;
      xmlFreeDoc(document);
    }
  };

  template <class T>
  T* make(xmlElementType type, const char* name, Place place);
  xmlNodePtr addChild(xmlNodePtr parent, xmlElementType type, const char* name, Place place);
  xmlChar* copied(std::string_view text);
  void addText(xmlNodePtr parent, xmlElementType type, Place place);
  void copy(Index node);
  void copyAttributes(xmlNodePtr element, Index node);
  void declare(xmlNodePtr element, Index node, Index attribute);
  xmlNsPtr spaceOf(std::string_view prefix, Index uri);
  Place placeOf(const xmlNode* node);

  Tree& tree_;
  std::pmr::monotonic_buffer_resource memory_;  // holds all but the document
  std::unique_ptr<xmlDoc, FreeWithoutNodes> document_;
  std::unique_ptr<xmlXPathContext, FreeWith<xmlXPathFreeContext>> context_;
  std::vector<xmlNodePtr> nodes_;  // by their numbers in the tree
  std::vector<xmlNsPtr> spaces_;   // those of expressions
};

}  // namespace ktpnaips::xml
