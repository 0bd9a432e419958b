#include <ktpnaips/platform/posix/xml_expression.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <libxml/xpathInternals.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string>

namespace ktpnaips::xml {
namespace {

using Result = std::unique_ptr<xmlXPathObject, FreeWith<xmlXPathFreeObject>>;

constexpr auto invalidExpression = static_cast<std::int32_t>(0x80004005U);

/// libxml2's base of all nodes but namespaces.
template <class T>
xmlNodePtr asNode(T* object) {
  return reinterpret_cast<xmlNodePtr>(object);  // NOLINT: they start alike
}

/// Throws when libxml2 has had no memory: it leaves out what it has no room for.
void checkMemory(const xmlXPathContext* context = nullptr) {
  const auto* const error = xmlGetLastError();
  const bool isShort = (error != nullptr && error->code == XML_ERR_NO_MEMORY) ||
                       (context != nullptr && context->lastError.code == XML_ERR_NO_MEMORY);
  if (isShort) throw std::bad_alloc();
}

xmlElementType typeOf(Kind kind) {
  switch (kind) {
    case Kind::element:
      return XML_ELEMENT_NODE;
    case Kind::data:
      return XML_CDATA_SECTION_NODE;
    case Kind::comment:
      return XML_COMMENT_NODE;
    case Kind::instruction:
      return XML_PI_NODE;
    default:
      return XML_TEXT_NODE;
  }
}

}  // namespace

ExpressionDocument::ExpressionDocument(Tree& tree, const std::vector<Binding>& bindings)
    : tree_(tree), nodes_(tree.size()), spaces_(tree.names.bindings.size()) {
  initialiseLibrary();
  document_.reset(made(xmlNewDoc(asXml("1.0"))));
  document_->_private = NodeAccess::handleOf({});
  nodes_[0] = asNode(document_.get());
  for (Index node = tree[0].firstChild; node != 0; node = tree.following(node)) copy(node);
  xmlResetLastError();
  context_.reset(made(xmlXPathNewContext(document_.get())));
  context_->error = [](void*, auto*) {};  // it would print what is wrong
  for (const auto& [prefix, uri] : bindings) {
    const xmlChar* const name = asXml(prefix.c_str());
    xmlXPathRegisterNs(context_.get(), name, asXml(tree.names.uris[uri].c_str()));
    made(xmlXPathNsLookup(context_.get(), name));
  }
  checkMemory();
}

ExpressionDocument::~ExpressionDocument() {
  document_->children = document_->last = nullptr;
}

std::vector<Place> ExpressionDocument::select(Place from, std::string_view expression) {
  const xmlNodePtr node = nodes_[from.node];
  context_->node = from.isText ? node->children : node;
  const std::string text(expression);
  xmlResetLastError();
  xmlResetError(&context_->lastError);
  const Result result(xmlXPathEvalExpression(asXml(text.c_str()), context_.get()));
  checkMemory(context_.get());
  if (result == nullptr || result->type != XPATH_NODESET) {
    throw RuntimeFault(invalidExpression, L"The expression \"" + text::fromUtf8(expression) +
                                              L"\" does not select nodes.");
  }
  std::vector<Place> places;
  if (result->nodesetval == nullptr) return places;
  xmlXPathNodeSetSort(result->nodesetval);
  for (int i = 0; i < result->nodesetval->nodeNr; ++i) {
    places.push_back(placeOf(result->nodesetval->nodeTab[i]));
  }
  return places;
}

template <class T>
T* ExpressionDocument::make(xmlElementType type, const char* name, Place place) {
  T* const node = new (memory_.allocate(sizeof(T), alignof(T))) T{};
  node->_private = NodeAccess::handleOf(place);
  node->type = type;
  node->name = asXml(name);
  node->doc = document_.get();
  return node;
}

xmlNodePtr ExpressionDocument::addChild(xmlNodePtr parent, xmlElementType type, const char* name,
                                        Place place) {
  auto* const node = make<xmlNode>(type, name, place);
  node->parent = parent;
  node->prev = parent->last;
  (parent->last != nullptr ? parent->last->next : parent->children) = node;
  parent->last = node;
  return node;
}

void ExpressionDocument::addText(xmlNodePtr parent, xmlElementType type, Place place) {
  const std::string_view text = tree_.textOf(place.node);
  auto* const content = static_cast<xmlChar*>(memory_.allocate(text.size() + 1, 1));
  *std::ranges::copy(text, content).out = 0;
  const char* const name =
      type == XML_PI_NODE ? tree_.nameOf(place.node).qualified.c_str() : nullptr;
  addChild(parent, type, name, place)->content = content;
}

void ExpressionDocument::copy(Index node) {
  const xmlNodePtr parent = nodes_[tree_[node].parent];
  if (tree_[node].kind() != Kind::element) {
    addText(parent, typeOf(tree_[node].kind()), Place{node});
    nodes_[node] = parent->last;
    return;
  }
  const Name& name = tree_.nameOf(node);
  const xmlNodePtr element =
      addChild(parent, XML_ELEMENT_NODE, name.qualified.c_str() + name.localAt, Place{node});
  nodes_[node] = element;
  element->ns = spaceOf(name.binding);
  copyAttributes(element, node);
  require(element, node, name);
  if (!tree_.textOf(node).empty()) addText(element, XML_TEXT_NODE, Place{node, true});
}

void ExpressionDocument::copyAttributes(xmlNodePtr element, Index node) {
  xmlAttrPtr last = nullptr;
  for (Index each = tree_[node].firstAttribute; each != 0; each = tree_[each].next) {
    const Name& name = tree_.nameOf(each);
    if (tree_[each].kind() == Kind::declaration) {
      declare(element, name.binding);
      continue;
    }
    auto* const attribute =
        make<xmlAttr>(XML_ATTRIBUTE_NODE, name.qualified.c_str() + name.localAt, Place{each});
    attribute->parent = element;
    attribute->ns = spaceOf(name.binding);
    addText(asNode(attribute), XML_TEXT_NODE, Place{each, true});
    attribute->prev = last;
    (last != nullptr ? last->next : element->properties) = attribute;
    last = attribute;
    nodes_[each] = asNode(attribute);
    if (name.hasPrefix()) require(element, node, name);
  }
}

void ExpressionDocument::declare(xmlNodePtr element, Index binding) {
  xmlNsPtr* end = &element->nsDef;
  for (; *end != nullptr; end = &(*end)->next) {
    if (xmlStrEqual((*end)->prefix, makeSpace(binding)->prefix) != 0) return;
  }
  *end = makeSpace(binding);
}

/// The declaration that a name needs where none is around.
void ExpressionDocument::require(xmlNodePtr element, Index node, const Name& name) {
  const Binding& needed = tree_.names.bindings[name.binding];
  const Index parent = tree_[node].parent;
  if (needed.prefix == "xml" || tree_.nameOf(parent).binding == name.binding) return;
  if (tree_.lookUp(needed.prefix, parent).value_or(0) != needed.uri) declare(element, name.binding);
}

xmlNsPtr ExpressionDocument::makeSpace(Index binding) {
  const auto& [prefix, uri] = tree_.names.bindings[binding];
  auto* const space = new (memory_.allocate(sizeof(xmlNs), alignof(xmlNs))) xmlNs{};
  space->type = XML_NAMESPACE_DECL;
  space->prefix = prefix.empty() ? nullptr : asXml(prefix.c_str());
  space->href = asXml(tree_.names.uris[uri].c_str());
  return space;
}

/// Null for no namespace.
xmlNsPtr ExpressionDocument::spaceOf(Index binding) {
  if (binding != 0 && spaces_[binding] == nullptr) spaces_[binding] = makeSpace(binding);
  return spaces_[binding];
}

Place ExpressionDocument::placeOf(const xmlNode* node) {
  if (node->type != XML_NAMESPACE_DECL) return NodeAccess::placeOf(node->_private);
  const auto* const space = reinterpret_cast<const xmlNs*>(node);  // NOLINT: they start alike
  const auto* const element = reinterpret_cast<const xmlNode*>(space->next);  // NOLINT: of the axis
  const std::string_view prefix = space->prefix != nullptr ? asChars(space->prefix) : "";
  const Index start = NodeAccess::placeOf(element->_private).node;
  for (Index each = start; each != 0; each = tree_[each].parent) {
    for (Index own = tree_[each].firstAttribute; own != 0; own = tree_[own].next) {
      const Name& name = tree_.nameOf(own);
      if (tree_[own].kind() == Kind::declaration &&
          tree_.names.bindings[name.binding].prefix == prefix) {
        return Place{own};
      }
    }
  }
  const Index uri = tree_.names.uri(viewOf(space->href));
  return Place{tree_.add(Kind::declaration, tree_.names.declaration(prefix, uri), start)};
}

}  // namespace ktpnaips::xml
