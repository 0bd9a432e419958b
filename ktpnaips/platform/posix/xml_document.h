#pragma once

#include <ktpnaips/platform/posix/xml_tree.h>
#include <ktpnaips/platform/xml.h>

#include <atomic>
#include <memory>
#include <vector>

namespace ktpnaips::xml {

class ExpressionDocument;

/// A document with what belongs to it, counted by the handles on its nodes.
struct SharedDocument {
  SharedDocument();
  SharedDocument(const SharedDocument&) = delete;
  SharedDocument& operator=(const SharedDocument&) = delete;
  ~SharedDocument();

  Tree tree;
  std::vector<Binding> bindings;                    ///< the prefixes of expressions
  std::unique_ptr<ExpressionDocument> expressions;  ///< made when it is first needed
  bool hasForbiddenCharacters = false;
  std::atomic<long> references{0};
};

/// What a handle stands for.
struct Place {
  Index node = 0;
  bool isText = false;  ///< the text that the node, an element, starts with
  friend bool operator==(const Place&, const Place&) = default;
};

/// Between handles and the tree.
struct NodeAccess {
  static Node make(SharedDocument* owner, Place place);
  /// No node for number 0.
  static Node make(SharedDocument* owner, Index node);
  static Document makeDocument(SharedDocument* owner);
  static SharedDocument& owner(const Node& node);
  static Place place(const Node& node);
  static Place placeOf(const void* handle);
  static void* handleOf(Place place);
};

}  // namespace ktpnaips::xml
