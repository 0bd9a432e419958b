#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_characters.h>

#include <libxml/xmlsave.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <optional>

namespace ktpnaips::xml {

namespace {

SharedDocument* shared(void* owner) noexcept {
  return static_cast<SharedDocument*>(owner);
}

void retain(void* owner) noexcept {
  if (owner != nullptr) shared(owner)->references.fetch_add(1, std::memory_order_relaxed);
}

void release(void* owner) noexcept {
  if (owner != nullptr && shared(owner)->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    delete shared(owner);
  }
}

// The codes with which the Windows DOM refuses the same.
constexpr auto invalidName = static_cast<std::int32_t>(0xC00CE504U);
constexpr auto secondDocumentElement = static_cast<std::int32_t>(0xC00CE556U);
constexpr auto notAParent = static_cast<std::int32_t>(0x80004005U);

/// The text for the tree; what XML does not allow is replaced and remembered, so that serialising
/// refuses it.
std::string treeText(SharedDocument& document, std::wstring_view text) {
  const std::optional<std::wstring> harmless = withoutForbidden(text);
  if (!harmless) return text::toUtf8(text);
  document.hasForbiddenCharacters = true;
  return text::toUtf8(*harmless);
}

struct QualifiedName {
  std::string prefix;
  std::string local;
};

QualifiedName splitName(std::wstring_view qualifiedName) {
  const std::string name = text::toUtf8(qualifiedName);
  if (name.size() != std::strlen(name.c_str()) || xmlValidateQName(asXml(name.c_str()), 0) != 0) {
    throw RuntimeFault(
        invalidName, L"The name \"" + std::wstring(qualifiedName) + L"\" is not a valid XML name.");
  }
  const auto colon = name.find(':');
  if (colon == std::string::npos) return {"", name};
  return {name.substr(0, colon), name.substr(colon + 1)};
}

/// The declaration of the prefix in scope at the element, or one made there.
xmlNsPtr declare(xmlDocPtr document, xmlNodePtr element, const std::string& prefix,
                 const std::string& uri) {
  const xmlChar* name = prefix.empty() ? nullptr : asXml(prefix.c_str());
  xmlNsPtr inScope = xmlSearchNs(document, element, name);
  if (inScope != nullptr && uri == asChars(inScope->href)) return inScope;
  return made(xmlNewNs(element, asXml(uri.c_str()), name));
}

/// The namespace of an attribute that has one but carries no prefix: a declaration without a
/// prefix, kept by the document and never serialised.
xmlNsPtr undeclared(xmlDocPtr document, const std::string& uri) {
  xmlNsPtr last = made(xmlSearchNs(document, reinterpret_cast<xmlNodePtr>(document),  // NOLINT
                                   asXml("xml")));
  for (; last->next != nullptr; last = last->next) {
    if (last->next->prefix == nullptr && uri == asChars(last->next->href)) return last->next;
  }
  last->next = made(xmlNewNs(nullptr, asXml(uri.c_str()), nullptr));
  return last->next;
}

xmlNsPtr attributeNamespace(xmlDocPtr document, xmlNodePtr element, const std::string& prefix,
                            const std::string& uri) {
  if (uri.empty()) return nullptr;
  return prefix.empty() ? undeclared(document, uri) : declare(document, element, prefix, uri);
}

bool hasName(const xmlAttr* attribute, const QualifiedName& name) {
  const char* prefix = attribute->ns != nullptr && attribute->ns->prefix != nullptr
                           ? asChars(attribute->ns->prefix)
                           : "";
  return name.local == asChars(attribute->name) && name.prefix == prefix;
}

xmlAttrPtr findAttribute(xmlNodePtr element, const QualifiedName& name) {
  for (xmlAttrPtr each = element->properties; each != nullptr; each = each->next) {
    if (hasName(each, name)) return each;
  }
  return nullptr;
}

/// The text of a node that holds it in one piece, without a copy; null otherwise.
const xmlChar* onlyText(xmlNodePtr node) {
  const bool isText = node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE ||
                      node->type == XML_COMMENT_NODE || node->type == XML_PI_NODE;
  if (isText) return node->content != nullptr ? node->content : asXml("");
  if (node->children == nullptr) return asXml("");
  const bool single = node->children->next == nullptr && node->children->type == XML_TEXT_NODE;
  return single && node->type != XML_DOCUMENT_NODE ? node->children->content : nullptr;
}

using NodeCopy = std::unique_ptr<xmlNode, FreeWith<xmlFreeNode>>;

/// A copy of an element that stands in another one, declaring the namespaces that it has from
/// around; nothing for what can be written where it is.
NodeCopy partOfADocument(xmlNodePtr node) {
  const bool isPart = node->type == XML_ELEMENT_NODE && node->parent != nullptr &&
                      node->parent->type == XML_ELEMENT_NODE;
  return isPart ? NodeCopy(made(xmlDocCopyNode(node, node->doc, 1))) : nullptr;
}

xmlNodePtr contentRoot(xmlNodePtr node) {
  return node->type == XML_DOCUMENT_NODE ? xmlDocGetRootElement(node->doc) : node;
}

void removeLeftover(xmlNodePtr node) {
  xmlUnlinkNode(node);
  xmlFreeNode(node);
}

}  // namespace

Node NodeAccess::make(SharedDocument* owner, xmlNodePtr node) {
  if (node == nullptr) return {};
  retain(owner);
  return Node(owner, node);
}

Document NodeAccess::makeDocument(SharedDocument* owner) {
  retain(owner);
  return Document(owner, owner->document.get());
}

SharedDocument& NodeAccess::owner(const Node& node) {
  raw(node);
  return *shared(node.owner_);
}

xmlNodePtr NodeAccess::raw(const Node& node) {
  if (!node) throw RuntimeFault(fault::objectNotSet);
  return static_cast<xmlNodePtr>(node.node_);
}

Node::Node(const Node& other) noexcept : owner_(other.owner_), node_(other.node_) {
  retain(owner_);
}

Node::Node(Node&& other) noexcept
    : owner_(std::exchange(other.owner_, nullptr)), node_(std::exchange(other.node_, nullptr)) {}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): retained before it is released
Node& Node::operator=(const Node& other) noexcept {
  retain(other.owner_);
  release(owner_);
  owner_ = other.owner_;
  node_ = other.node_;
  return *this;
}

Node& Node::operator=(Node&& other) noexcept {
  std::swap(owner_, other.owner_);
  std::swap(node_, other.node_);
  return *this;
}

Node::~Node() {
  release(owner_);
}

bool Node::isSameAs(const Node& other) const noexcept {
  return node_ == other.node_;
}

Document Node::ownerDocument() const {
  return NodeAccess::makeDocument(&NodeAccess::owner(*this));
}

bool Node::isElement() const {
  return NodeAccess::raw(*this)->type == XML_ELEMENT_NODE;
}

std::wstring Node::name() const {
  const xmlNodePtr node = NodeAccess::raw(*this);
  if (node->type == XML_TEXT_NODE) return L"#text";
  if (node->type == XML_COMMENT_NODE) return L"#comment";
  if (node->type == XML_DOCUMENT_NODE) return L"#document";
  std::string name;
  const bool named = node->type == XML_ELEMENT_NODE || node->type == XML_ATTRIBUTE_NODE;
  if (named && node->ns != nullptr && node->ns->prefix != nullptr) {
    name = std::string(asChars(node->ns->prefix)) + ':';
  }
  return text::fromUtf8(name + asChars(node->name));
}

std::wstring Node::namespaceUri() const {
  const xmlNodePtr node = NodeAccess::raw(*this);
  const bool named = node->type == XML_ELEMENT_NODE || node->type == XML_ATTRIBUTE_NODE;
  return named && node->ns != nullptr ? text::fromUtf8(asChars(node->ns->href)) : std::wstring();
}

Node Node::firstChild() const {
  return NodeAccess::make(shared(owner_), NodeAccess::raw(*this)->children);
}

Node Node::lastChild() const {
  return NodeAccess::make(shared(owner_), NodeAccess::raw(*this)->last);
}

Node Node::nextSibling() const {
  return NodeAccess::make(shared(owner_), NodeAccess::raw(*this)->next);
}

Node Node::appendElement(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                         std::wstring_view text) const {
  SharedDocument& owner = NodeAccess::owner(*this);
  const xmlNodePtr parent = NodeAccess::raw(*this);
  const xmlDocPtr document = owner.document.get();
  const bool onDocument = parent->type == XML_DOCUMENT_NODE;
  if (!onDocument && parent->type != XML_ELEMENT_NODE) {
    throw RuntimeFault(notAParent, L"Only an element or a document can hold an element.");
  }
  if (onDocument && xmlDocGetRootElement(document) != nullptr) {
    throw RuntimeFault(secondDocumentElement,
                       L"Only one top level element is allowed in an XML document.");
  }
  const QualifiedName name = splitName(qualifiedName);
  const std::string uri = treeText(owner, namespaceUri);
  const std::string content = treeText(owner, text);
  const xmlNodePtr element =
      made(xmlNewDocNode(document, nullptr, asXml(name.local.c_str()), nullptr));
  xmlAddChild(parent, element);
  try {
    if (!uri.empty()) element->ns = declare(document, element, name.prefix, uri);
    if (!content.empty()) {
      const auto length = static_cast<int>(content.size());
      xmlAddChild(element, made(xmlNewDocTextLen(document, asXml(content.c_str()), length)));
    }
  } catch (...) {
    removeLeftover(element);
    throw;
  }
  return NodeAccess::make(&owner, element);
}

Node Node::setAttribute(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                        std::wstring_view value) const {
  SharedDocument& owner = NodeAccess::owner(*this);
  const xmlNodePtr element = NodeAccess::raw(*this);
  if (element->type != XML_ELEMENT_NODE) throw RuntimeFault(fault::typeMismatch);
  const xmlDocPtr document = owner.document.get();
  const QualifiedName name = splitName(qualifiedName);
  const std::string uri = treeText(owner, namespaceUri);
  const std::string content = treeText(owner, value);
  const xmlNsPtr space = attributeNamespace(document, element, name.prefix, uri);
  if (const xmlAttrPtr old = findAttribute(element, name); old != nullptr) xmlRemoveProp(old);
  const xmlAttrPtr attribute =
      made(xmlNewNsProp(element, space, asXml(name.local.c_str()), asXml(content.c_str())));
  return NodeAccess::make(&owner, reinterpret_cast<xmlNodePtr>(attribute));  // NOLINT: DOM base
}

std::optional<std::wstring> Node::attribute(std::wstring_view qualifiedName) const {
  const xmlNodePtr element = NodeAccess::raw(*this);
  if (element->type != XML_ELEMENT_NODE) throw RuntimeFault(fault::typeMismatch);
  const xmlAttrPtr found = findAttribute(element, splitName(qualifiedName));
  if (found == nullptr) return std::nullopt;
  return NodeAccess::make(shared(owner_), reinterpret_cast<xmlNodePtr>(found))  // NOLINT: DOM base
      .text();
}

std::wstring Node::text() const {
  std::wstring wide;
  readText([&](auto content) {
    if constexpr (std::is_same_v<decltype(content), std::wstring_view>) {
      wide = content;
    } else {
      wide = text::fromUtf8(content);
    }
  });
  return wide;
}

void Node::readTextWith(void* reader, void (*utf8)(void*, std::string_view),
                        void (*)(void*, std::wstring_view)) const {
  const xmlNodePtr node = NodeAccess::raw(*this);
  if (const xmlChar* content = onlyText(node); content != nullptr) {
    utf8(reader, asChars(content));
    return;
  }
  const XmlText collected(xmlNodeGetContent(contentRoot(node)));
  utf8(reader, asChars(made(collected.get())));
}

std::string Node::serialise() const {
  SharedDocument& owner = NodeAccess::owner(*this);
  if (owner.hasForbiddenCharacters) {
    throw RuntimeFault(fault::invalidCall);
  }
  const std::unique_ptr<xmlBuffer, FreeWith<xmlBufferFree>> buffer(made(xmlBufferCreate()));
  const xmlNodePtr root = contentRoot(NodeAccess::raw(*this));
  if (root == nullptr) return {};
  const NodeCopy part = partOfADocument(root);
  const xmlNodePtr node = part ? part.get() : root;
  xmlSaveCtxtPtr save =
      made(xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_NO_DECL | XML_SAVE_AS_XML));
  const long saved = xmlSaveTree(save, node);
  if (xmlSaveClose(save) < 0 || saved < 0) throw std::bad_alloc();
  return {asChars(xmlBufferContent(buffer.get())),
          static_cast<std::size_t>(xmlBufferLength(buffer.get()))};
}

Document Document::create() {
  initialiseLibrary();
  auto owner = std::make_unique<SharedDocument>(Tree(made(xmlNewDoc(asXml("1.0")))));
  return NodeAccess::makeDocument(owner.release());
}

Node Document::documentElement() const {
  const xmlDocPtr document = NodeAccess::owner(*this).document.get();
  return NodeAccess::make(shared(owner_), xmlDocGetRootElement(document));
}

}  // namespace ktpnaips::xml
