#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_memory.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <type_traits>

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

/// The text of a node that holds it in one piece, without a copy; null otherwise.
const xmlChar* onlyText(xmlNodePtr node) {
  const bool isText = node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE ||
                      node->type == XML_COMMENT_NODE || node->type == XML_PI_NODE;
  if (isText) return node->content != nullptr ? node->content : asXml("");
  if (node->children == nullptr) return asXml("");
  const bool single = node->children->next == nullptr && node->children->type == XML_TEXT_NODE;
  return single && node->type != XML_DOCUMENT_NODE ? node->children->content : nullptr;
}

xmlNodePtr contentRoot(xmlNodePtr node) {
  return node->type == XML_DOCUMENT_NODE ? xmlDocGetRootElement(node->doc) : node;
}

}  // namespace

SharedDocument::~SharedDocument() {
  for (const xmlNodePtr each : grafts) xmlUnlinkNode(each);
}

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
  const MemoryWatch watch;
  const XmlText collected(xmlNodeGetContent(contentRoot(node)));
  watch.check();
  utf8(reader, asChars(made(collected.get())));
}

Document Document::create() {
  initialiseLibrary();
  const MemoryWatch watch;
  auto owner = std::make_unique<SharedDocument>(Tree(made(xmlNewDoc(asXml("1.0")))));
  watch.check();
  return NodeAccess::makeDocument(owner.release());
}

Node Document::documentElement() const {
  const xmlDocPtr document = NodeAccess::owner(*this).document.get();
  return NodeAccess::make(shared(owner_), xmlDocGetRootElement(document));
}

}  // namespace ktpnaips::xml
