#include <ktpnaips/platform/posix/xml_expression.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <libxml/xpathInternals.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace ktpnaips::xml {
namespace {

using Result = std::unique_ptr<xmlXPathObject, FreeWith<xmlXPathFreeObject>>;

/// Those of XPath 1.0: a context goes without what it had no memory for.
constexpr std::array functions{"boolean",
                               "ceiling",
                               "concat",
                               "contains",
                               "count",
                               "false",
                               "floor",
                               "id",
                               "lang",
                               "last",
                               "local-name",
                               "name",
                               "namespace-uri",
                               "not",
                               "number",
                               "normalize-space",
                               "position",
                               "round",
                               "starts-with",
                               "string",
                               "sum",
                               "string-length",
                               "substring",
                               "substring-after",
                               "substring-before",
                               "translate",
                               "true"};

constexpr auto invalidExpression = static_cast<std::int32_t>(0x80004005U);

/// libxml2's base of all nodes, and of namespaces where it takes them for nodes.
template <class T>
xmlNodePtr asNode(T* object) {
  return reinterpret_cast<xmlNodePtr>(object);  // NOLINT: they start alike
}

xmlElementType typeOf(Kind kind) {
  if (kind == Kind::data) return XML_CDATA_SECTION_NODE;
  if (kind == Kind::comment) return XML_COMMENT_NODE;
  return kind == Kind::instruction ? XML_PI_NODE : XML_TEXT_NODE;
}

/// Throws when libxml2 has had no memory: it leaves out what it has no room for.
void checkMemory(const xmlXPathContext& context) {
  const auto* const error = xmlGetLastError();
  const bool isShort = (error != nullptr && error->code == XML_ERR_NO_MEMORY) ||
                       context.lastError.code == XML_ERR_NO_MEMORY;
  if (isShort) throw std::bad_alloc();
}

}  // namespace

ExpressionDocument::ExpressionDocument(Tree& tree, const std::vector<Binding>& bindings)
    : tree_(tree), nodes_(tree.size()) {
  initialiseLibrary();
  document_.reset(made(xmlNewDoc(asXml("1.0"))));
  document_->_private = NodeAccess::handleOf({});
  nodes_[0] = asNode(document_.get());
  for (Index node = tree[0].firstChild; node != 0; node = tree.following(node)) copy(node);
  context_.reset(made(xmlXPathNewContext(document_.get())));
  for (const char* const each : functions) {
    if (xmlXPathFunctionLookup(context_.get(), asXml(each)) == nullptr) throw std::bad_alloc();
  }
  context_->error = [](void*, auto*) {};  // it would print what is wrong
  for (const auto& [prefix, uri] : bindings) spaces_.push_back(spaceOf(prefix, uri));
  context_->namespaces = spaces_.data();
  context_->nsNr = static_cast<int>(spaces_.size());
}

std::vector<Place> ExpressionDocument::select(Place from, std::string_view expression) {
  const xmlNodePtr node = nodes_[from.node];
  context_->node = from.isText ? node->children : node;
  const std::string text(expression);
  xmlResetLastError();
  xmlResetError(&context_->lastError);
  const Result result(xmlXPathEvalExpression(asXml(text.c_str()), context_.get()));
  checkMemory(*context_);
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
  return parent->last = node;
}

xmlChar* ExpressionDocument::copied(std::string_view text) {
  auto* const copy = static_cast<xmlChar*>(memory_.allocate(text.size() + 1, 1));
  *std::ranges::copy(text, copy).out = 0;
  return copy;
}

void ExpressionDocument::addText(xmlNodePtr parent, xmlElementType type, Place place) {
  const bool isNamed = type == XML_PI_NODE;
  const char* const name = isNamed ? tree_.nameOf(place.node).qualified.c_str() : nullptr;
  addChild(parent, type, name, place)->content = copied(tree_.textOf(place.node));
}

void ExpressionDocument::copy(Index node) {
  const xmlNodePtr parent = nodes_[tree_[node].parent];
  if (tree_[node].kind() != Kind::element) {
    addText(parent, typeOf(tree_[node].kind()), Place{node});
    nodes_[node] = parent->last;
    return;
  }
  const Name& name = tree_.nameOf(node);
  const char* const local = name.qualified.c_str() + name.localAt;
  const xmlNodePtr element = addChild(parent, XML_ELEMENT_NODE, local, Place{node});
  nodes_[node] = element;
  if (name.uri != 0) element->ns = spaceOf(name.prefix(), name.uri);
  copyAttributes(element, node);
  declare(element, node, node);
  if (!tree_.textOf(node).empty()) addText(element, XML_TEXT_NODE, Place{node, true});
}

void ExpressionDocument::copyAttributes(xmlNodePtr element, Index node) {
  xmlAttrPtr last = nullptr;
  for (Index each = tree_[node].firstAttribute; each != 0; each = tree_[each].next) {
    declare(element, node, each);
    if (tree_[each].kind() == Kind::declaration) continue;
    const Name& name = tree_.nameOf(each);
    const char* const local = name.qualified.c_str() + name.localAt;
    auto* const attribute = make<xmlAttr>(XML_ATTRIBUTE_NODE, local, Place{each});
    attribute->parent = element;
    if (name.uri != 0) attribute->ns = spaceOf(name.prefix(), name.uri);
    attribute->prev = last;
    (last != nullptr ? last->next : element->properties) = attribute;
    last = attribute;
    nodes_[each] = asNode(attribute);
    addText(nodes_[each], XML_TEXT_NODE, Place{each, true});
  }
}

/// Adds the declaration that a node is, or that its name needs where none is around.
void ExpressionDocument::declare(xmlNodePtr element, Index node, Index named) {
  const auto prefix = tree_.prefixOf(named);
  const Index uri = tree_.nameOf(named).uri;
  const bool isAround = prefix.has_value() && tree_[named].kind() != Kind::declaration &&
                        tree_.lookUp(*prefix, tree_[node].parent).value_or(0) == uri;
  if (!prefix.has_value() || *prefix == "xml" || isAround) return;
  xmlNsPtr* end = &element->nsDef;
  while (*end != nullptr && viewOf((*end)->prefix) != *prefix) end = &(*end)->next;
  if (*end == nullptr) *end = spaceOf(*prefix, uri);
}

xmlNsPtr ExpressionDocument::spaceOf(std::string_view prefix, Index uri) {
  auto* const space = new (memory_.allocate(sizeof(xmlNs), alignof(xmlNs))) xmlNs{};
  space->type = XML_NAMESPACE_DECL;
  space->href = asXml(tree_.names.uriOf(uri).c_str());
  if (!prefix.empty()) space->prefix = copied(prefix);
  return space;
}

/// A namespace is the declaration around that gives it, or one made up for a built document.
Place ExpressionDocument::placeOf(const xmlNode* node) {
  if (node->type != XML_NAMESPACE_DECL) return NodeAccess::placeOf(node->_private);
  const auto* const space = reinterpret_cast<const xmlNs*>(node);  // NOLINT: as its type says
  const std::string_view prefix = viewOf(space->prefix);
  const Index element = NodeAccess::placeOf(asNode(space->next)->_private).node;
  for (Index each = element; each != 0; each = tree_[each].parent) {
    const Index found = tree_.findAttribute(each, [&](Index own) {
      return tree_[own].kind() == Kind::declaration && tree_.nameOf(own).qualified == prefix;
    });
    if (found != 0) return Place{found};
  }
  const Index name = tree_.names.name(prefix, tree_.names.uri(viewOf(space->href)));
  return Place{tree_.add(Kind::declaration, name, element)};
}

}  // namespace ktpnaips::xml
