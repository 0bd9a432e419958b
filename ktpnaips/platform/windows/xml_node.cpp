#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/windows/xml_document.h>
#include <ktpnaips/platform/xml_characters.h>
#include <ktpnaips/platform/xml_common.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace ktpnaips::xml {
namespace {

SharedDocument* shared(void* owner) noexcept {
  return static_cast<SharedDocument*>(owner);
}

IXMLDOMNode* native(void* node) noexcept {
  return static_cast<IXMLDOMNode*>(node);
}

/// The text for the tree; what XML does not allow is replaced and remembered, so that serialising
/// refuses it.
com::Bstr treeText(SharedDocument& owner, std::wstring_view text) {
  const std::optional<std::wstring> harmless = withoutForbidden(text);
  if (!harmless) return com::Bstr(text);
  owner.hasForbiddenCharacters = true;
  return com::Bstr(*harmless);
}

NativeNode makeNode(SharedDocument& owner, DOMNodeType type, std::wstring_view qualifiedName,
                    std::wstring_view namespaceUri) {
  if (!isQualifiedName(qualifiedName)) refuseName(qualifiedName);
  NativeNode node;
  com::check(owner.document->createNode(com::Variant(static_cast<std::int32_t>(type)).get(),
                                        com::Bstr(nameWithin(namespaceUri, qualifiedName)).get(),
                                        treeText(owner, namespaceUri).get(), node.put()));
  return node;
}

void appendText(SharedDocument& owner, IXMLDOMNode* element, std::wstring_view text) {
  com::ComPtr<IXMLDOMText> node;
  com::check(owner.document->createTextNode(treeText(owner, text).get(), node.put()));
  com::check(element->appendChild(node.get(), nullptr));
}

void requireParent(SharedDocument& owner, IXMLDOMNode* parent) {
  const DOMNodeType type = typeOf(parent);
  if (type != NODE_DOCUMENT && type != NODE_ELEMENT) refuseParent();
  if (type == NODE_ELEMENT) return;
  com::ComPtr<IXMLDOMElement> root;
  com::check(owner.document->get_documentElement(root.put()));
  if (root) refuseSecondDocumentElement();
}

com::ComPtr<IXMLDOMElement> asElement(const Node& node) {
  IXMLDOMNode* element = NodeAccess::raw(node);
  if (typeOf(element) != NODE_ELEMENT) throw RuntimeFault(fault::typeMismatch);
  return NativeNode::share(element).as<IXMLDOMElement>(IID_IXMLDOMElement);
}

com::ComPtr<IXMLDOMNamedNodeMap> attributesOf(IXMLDOMNode* element) {
  com::ComPtr<IXMLDOMNamedNodeMap> attributes;
  com::check(element->get_attributes(attributes.put()));
  return attributes;
}

std::wstring_view prefixOf(std::wstring_view qualifiedName) {
  const auto colon = qualifiedName.find(L':');
  return colon == std::wstring_view::npos ? std::wstring_view() : qualifiedName.substr(0, colon);
}

/// True when no element can have both attributes.
bool excludes(IXMLDOMNode* one, IXMLDOMNode* other) {
  const std::wstring name = nameOf(one);
  const std::wstring otherName = nameOf(other);
  if (name == otherName) return true;
  const bool havePrefixes = !prefixOf(name).empty() && !prefixOf(otherName).empty();
  return havePrefixes && namespaceOf(one) == namespaceOf(other) &&
         localNameOf(one) == localNameOf(other);
}

/// True when the node uses the prefix of the attribute's name for another namespace.
bool contradicts(IXMLDOMNode* attribute, IXMLDOMNode* node) {
  const std::wstring prefix(prefixOf(nameOf(attribute)));
  const std::wstring name = nameOf(node);
  if (prefix.empty()) return false;
  if (name == L"xmlns:" + prefix) return valueOf(node).view() != namespaceOf(attribute);
  return prefixOf(name) == prefix && namespaceOf(node) != namespaceOf(attribute);
}

/// Takes out the attributes that cannot stand beside another one.
void makeRoomFor(IXMLDOMNode* attribute, IXMLDOMNode* element) {
  if (contradicts(attribute, element)) refusePrefix();
  const auto attributes = attributesOf(element);
  std::vector<NativeNode> excluded;
  for (NativeNode each; attributes->nextNode(each.put()) == S_OK;) {
    if (excludes(attribute, each.get())) {
      excluded.push_back(each);
    } else if (contradicts(attribute, each.get())) {
      refusePrefix();
    }
  }
  for (const NativeNode& each : excluded) {
    const std::wstring uri = namespaceOf(each.get());
    const com::Bstr name(localNameOf(each.get()));
    NativeNode removed;  // Wine frees an attribute that nobody takes, even when handles are left
    com::check(uri.empty() ? attributes->removeNamedItem(name.get(), removed.put())
                           : attributes->removeQualifiedItem(name.get(), com::Bstr(uri).get(),
                                                             removed.put()));
  }
}

/// The value of an attribute that its element does not find by name because it is in a namespace.
std::optional<std::wstring> searchAttribute(IXMLDOMElement* element, std::wstring_view name) {
  const auto attributes = attributesOf(element);
  NativeNode attribute;
  while (attributes->nextNode(attribute.put()) == S_OK) {
    if (nameOf(attribute.get()) == name) return std::wstring(valueOf(attribute.get()).view());
  }
  return std::nullopt;
}

bool holdsValue(DOMNodeType type) {
  return type == NODE_TEXT || type == NODE_CDATA_SECTION || type == NODE_COMMENT ||
         type == NODE_PROCESSING_INSTRUCTION || type == NODE_ATTRIBUTE;
}

bool isCharacterData(DOMNodeType type) {
  return type == NODE_TEXT || type == NODE_CDATA_SECTION;
}

/// The text below a node, however deep it lies.
std::wstring collectedText(IXMLDOMNode* node) {
  std::wstring text;
  std::vector<NativeNode> nextAtLevel{firstChildOf(node)};
  while (!nextAtLevel.empty()) {
    const NativeNode each = nextAtLevel.back();
    if (!each) {
      nextAtLevel.pop_back();
      continue;
    }
    nextAtLevel.back() = nextSiblingOf(each.get());
    const DOMNodeType type = typeOf(each.get());
    if (isCharacterData(type)) text += valueOf(each.get()).view();
    if (type == NODE_ELEMENT) nextAtLevel.push_back(firstChildOf(each.get()));
  }
  return text;
}

/// The only child, when it is text; otherwise none.
NativeNode onlyText(IXMLDOMNode* node) {
  NativeNode child = firstChildOf(node);
  if (!child || !isCharacterData(typeOf(child.get())) || nextSiblingOf(child.get())) return {};
  return child;
}

std::size_t siblingsBefore(NativeNode node) {
  std::size_t count = 0;
  for (NativeNode before; node->get_previousSibling(before.put()) == S_OK;
       node = std::move(before)) {
    ++count;
  }
  return count;
}

/// For an attribute the element that has it, which is none's parent.
NativeNode parentOf(IXMLDOMNode* node) {
  NativeNode parent;
  if (typeOf(node) == NODE_ATTRIBUTE) {
    com::check(node->selectSingleNode(com::Bstr(L"..").get(), parent.put()));
  } else {
    com::check(node->get_parentNode(parent.put()));
  }
  return parent;
}

bool standAlike(const NativeNode& one, const NativeNode& other) {
  const DOMNodeType type = typeOf(one.get());
  if (type != typeOf(other.get())) return false;
  if (type != NODE_ATTRIBUTE) return siblingsBefore(one) == siblingsBefore(other);
  return nameOf(one.get()) == nameOf(other.get()) && parentOf(one.get());
}

/// True for nodes at the same place of one document.
bool standTogether(NativeNode one, NativeNode other) {
  while (one && other) {
    if (one.get() == other.get()) return true;
    if (!standAlike(one, other)) return false;
    one = parentOf(one.get());
    other = parentOf(other.get());
  }
  return !one && !other;
}

}  // namespace

void retain(void* owner, void* node) noexcept {
  if (owner != nullptr) shared(owner)->references.fetch_add(1, std::memory_order_relaxed);
  NativeNode::share(native(node)).detach();
}

void release(void* owner, void* node) noexcept {
  NativeNode::attach(native(node));
  if (owner != nullptr && shared(owner)->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    delete shared(owner);
  }
}

Node NodeAccess::make(SharedDocument& owner, NativeNode node) {
  if (!node) return {};
  owner.references.fetch_add(1, std::memory_order_relaxed);
  return Node(&owner, node.detach());
}

Document NodeAccess::makeDocument(SharedDocument& owner) {
  owner.references.fetch_add(1, std::memory_order_relaxed);
  return Document(&owner, NativeNode::share(owner.document.get()).detach());
}

SharedDocument& NodeAccess::owner(const Node& node) {
  raw(node);
  return *shared(node.owner_);
}

IXMLDOMNode* NodeAccess::raw(const Node& node) {
  if (!node) throw RuntimeFault(fault::objectNotSet);
  return native(node.node_);
}

IXMLDOMNode* NodeAccess::rawOrNull(const Node& node) noexcept {
  return native(node.node_);
}

DOMNodeType typeOf(IXMLDOMNode* node) {
  DOMNodeType type = NODE_INVALID;
  com::check(node->get_nodeType(&type));
  return type;
}

NativeNode firstChildOf(IXMLDOMNode* node) {
  NativeNode child;
  com::check(node->get_firstChild(child.put()));
  return child;
}

NativeNode nextSiblingOf(IXMLDOMNode* node) {
  NativeNode sibling;
  com::check(node->get_nextSibling(sibling.put()));
  return sibling;
}

std::wstring nameOf(IXMLDOMNode* node) {
  com::Bstr name;
  com::check(node->get_nodeName(name.put()));
  return std::wstring(name.view());
}

std::wstring localNameOf(IXMLDOMNode* node) {
  com::Bstr name;
  com::check(node->get_baseName(name.put()));
  return std::wstring(name.view());
}

std::wstring namespaceOf(IXMLDOMNode* node) {
  com::Bstr uri;
  com::check(node->get_namespaceURI(uri.put()));
  return std::wstring(uri.view());
}

com::Variant valueOf(IXMLDOMNode* node) {
  com::Variant value;
  com::check(node->get_nodeValue(value.put()));
  return value;
}

// One node may have several DOM objects.
bool Node::isSameAs(const Node& other) const noexcept {
  if (node_ == other.node_) return true;
  if (node_ == nullptr || other.node_ == nullptr || owner_ != other.owner_) return false;
  try {
    return standTogether(NativeNode::share(native(node_)), NativeNode::share(native(other.node_)));
  } catch (const RuntimeFault&) {
    return false;
  }
}

Document Node::ownerDocument() const {
  return NodeAccess::makeDocument(NodeAccess::owner(*this));
}

bool Node::isElement() const {
  return typeOf(NodeAccess::raw(*this)) == NODE_ELEMENT;
}

std::wstring Node::name() const {
  return nameOf(NodeAccess::raw(*this));
}

std::wstring Node::namespaceUri() const {
  return namespaceOf(NodeAccess::raw(*this));
}

Node Node::firstChild() const {
  return NodeAccess::make(NodeAccess::owner(*this), firstChildOf(NodeAccess::raw(*this)));
}

Node Node::lastChild() const {
  NativeNode child;
  com::check(NodeAccess::raw(*this)->get_lastChild(child.put()));
  return NodeAccess::make(NodeAccess::owner(*this), std::move(child));
}

Node Node::nextSibling() const {
  return NodeAccess::make(NodeAccess::owner(*this), nextSiblingOf(NodeAccess::raw(*this)));
}

Node Node::appendElement(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                         std::wstring_view text) const {
  SharedDocument& owner = NodeAccess::owner(*this);
  IXMLDOMNode* parent = NodeAccess::raw(*this);
  requireParent(owner, parent);
  NativeNode element = makeNode(owner, NODE_ELEMENT, qualifiedName, namespaceUri);
  if (!text.empty()) appendText(owner, element.get(), text);
  com::check(parent->appendChild(element.get(), nullptr));
  return NodeAccess::make(owner, std::move(element));
}

Node Node::setAttribute(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                        std::wstring_view value) const {
  const auto element = asElement(*this);
  SharedDocument& owner = NodeAccess::owner(*this);
  NativeNode attribute = makeNode(owner, NODE_ATTRIBUTE, qualifiedName, namespaceUri);
  com::check(attribute->put_nodeValue(com::Variant(treeText(owner, value).view()).get()));
  makeRoomFor(attribute.get(), element.get());
  com::check(attributesOf(element.get())->setNamedItem(attribute.get(), nullptr));
  return NodeAccess::make(owner, std::move(attribute));
}

std::optional<std::wstring> Node::attribute(std::wstring_view qualifiedName) const {
  const auto element = asElement(*this);
  com::Variant value;
  com::check(element->getAttribute(com::Bstr(qualifiedName).get(), value.put()));
  if (value.isText()) return std::wstring(value.view());
  return searchAttribute(element.get(), qualifiedName);
}

std::wstring Node::text() const {
  std::wstring text;
  readTextWith(
      &text, [](void*, std::string_view) {},
      [](void* to, std::wstring_view wide) { *static_cast<std::wstring*>(to) = wide; });
  return text;
}

void Node::readTextWith(void* reader, void (*)(void*, std::string_view),
                        void (*wide)(void*, std::wstring_view)) const {
  IXMLDOMNode* node = NodeAccess::raw(*this);
  if (holdsValue(typeOf(node))) {
    wide(reader, valueOf(node).view());
  } else if (const NativeNode only = onlyText(node); only) {
    wide(reader, valueOf(only.get()).view());
  } else {
    wide(reader, collectedText(node));
  }
}

Node Node::select(std::string_view expression) const {
  const com::Bstr path(expression);
  NativeNode found;
  com::check(NodeAccess::raw(*this)->selectSingleNode(path.get(), found.put()));
  return NodeAccess::make(NodeAccess::owner(*this), std::move(found));
}

std::vector<Node> Node::selectAll(std::string_view expression) const {
  const com::Bstr path(expression);
  com::ComPtr<IXMLDOMNodeList> list;
  com::check(NodeAccess::raw(*this)->selectNodes(path.get(), list.put()));
  std::vector<Node> all;
  NativeNode each;
  while (list->nextNode(each.put()) == S_OK) {
    all.push_back(NodeAccess::make(NodeAccess::owner(*this), std::move(each)));
  }
  return all;
}

std::string Node::serialise() const {
  if (NodeAccess::owner(*this).hasForbiddenCharacters) {
    throw RuntimeFault(fault::invalidCall);
  }
  return text::toUtf8(written(NodeAccess::raw(*this)));
}

}  // namespace ktpnaips::xml
