#pragma once

#include <ktpnaips/platform/posix/xml_tree.h>
#include <ktpnaips/platform/xml.h>

#include <atomic>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ktpnaips::xml {

class ExpressionDocument;

/// A prefix of expressions and the number of the URI that it stands for.
using Binding = std::pair<std::string, Index>;

/// A document with what belongs to it, counted by the handles on its nodes.
struct SharedDocument {
  SharedDocument();
  SharedDocument(const SharedDocument&) = delete;
  SharedDocument& operator=(const SharedDocument&) = delete;
  ~SharedDocument();

  Tree tree;
  std::vector<Binding> bindings;
  std::unique_ptr<ExpressionDocument> expressions;  ///< until the tree changes
  std::pair<std::wstring, Index> lastUri;           ///< of those that names were added with
  bool hasForbiddenCharacters = false;
  std::atomic<long> references{0};
};

/// What a handle stands for.
struct Place {
  Index node = 0;
  bool isText = false;  ///< the text that the node starts with, in place of the node
};

/// Between handles and the tree.
struct NodeAccess {
  static Node make(SharedDocument& owner, Place place);
  /// No node for number 0.
  static Node make(SharedDocument& owner, Index node);
  static Document makeDocument(SharedDocument& owner);
  /// Throw fault 91 for an empty handle.
  static SharedDocument& owner(const Node& node);
  static Place place(const Node& node);

  static void* handleOf(Place place);
  static Place placeOf(const void* handle);
};

}  // namespace ktpnaips::xml
