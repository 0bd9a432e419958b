#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_expression.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml_common.h>

#include <cstdint>
#include <type_traits>

namespace ktpnaips::xml {
namespace {

SharedDocument& shared(void* owner) noexcept {
  return *static_cast<SharedDocument*>(owner);
}

bool isCharacterData(Kind kind) {
  return kind == Kind::text || kind == Kind::data;
}

/// The text below a node, however deep it lies.
std::string collectedText(const Tree& tree, Index top) {
  std::string text(tree.textOf(top));
  for (Index node = tree[top].firstChild; node != 0; node = tree.following(node, top)) {
    const Kind kind = tree[node].kind();
    if (isCharacterData(kind) || kind == Kind::element) text += tree.textOf(node);
  }
  return text;
}

std::string nameOf(const Tree& tree, Place place) {
  const Kind kind = place.isText ? Kind::text : tree[place.node].kind();
  if (kind == Kind::text) return "#text";
  if (kind == Kind::data) return "#cdata-section";
  if (kind == Kind::comment) return "#comment";
  if (kind == Kind::document) return "#document";
  const std::string& name = tree.nameOf(place.node).qualified;
  if (kind != Kind::declaration) return name;
  return name.empty() ? "xmlns" : "xmlns:" + name;
}

/// The text that an element or an attribute starts with, otherwise no node.
Node firstText(SharedDocument& owner, Place place) {
  const Kind kind = owner.tree[place.node].kind();
  const bool mayHold = !place.isText && (kind == Kind::element || kind == Kind::attribute);
  if (!mayHold || owner.tree.textOf(place.node).empty()) return {};
  return NodeAccess::make(owner, Place{place.node, true});
}

}  // namespace

SharedDocument::SharedDocument() = default;

SharedDocument::~SharedDocument() = default;

void retain(void* owner, void*) noexcept {
  if (owner != nullptr) shared(owner).references.fetch_add(1, std::memory_order_relaxed);
}

void release(void* owner, void*) noexcept {
  if (owner != nullptr && shared(owner).references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    delete &shared(owner);
  }
}

Node NodeAccess::make(SharedDocument& owner, Place place) {
  retain(&owner, nullptr);
  return Node(&owner, handleOf(place));
}

Node NodeAccess::make(SharedDocument& owner, Index node) {
  return node != 0 ? make(owner, Place{node}) : Node();
}

Document NodeAccess::makeDocument(SharedDocument& owner) {
  retain(&owner, nullptr);
  return Document(&owner, handleOf({}));
}

SharedDocument& NodeAccess::owner(const Node& node) {
  if (!node) throw RuntimeFault(fault::objectNotSet);
  return shared(node.owner_);
}

Place NodeAccess::place(const Node& node) {
  owner(node);
  return placeOf(node.node_);
}

void* NodeAccess::handleOf(Place place) {
  const auto number = (static_cast<std::uintptr_t>(place.node) + 1) << 1U;
  return reinterpret_cast<void*>(number | (place.isText ? 1U : 0U));  // NOLINT: never null
}

Place NodeAccess::placeOf(const void* handle) {
  const auto number = reinterpret_cast<std::uintptr_t>(handle);  // NOLINT: as made above
  return {static_cast<Index>((number >> 1U) - 1), (number & 1U) != 0};
}

bool Node::isSameAs(const Node& other) const noexcept {
  return owner_ == other.owner_ && node_ == other.node_;
}

Document Node::ownerDocument() const {
  return NodeAccess::makeDocument(NodeAccess::owner(*this));
}

bool Node::isElement() const {
  const Place place = NodeAccess::place(*this);
  return !place.isText && shared(owner_).tree[place.node].kind() == Kind::element;
}

std::wstring Node::name() const {
  const Place place = NodeAccess::place(*this);
  return text::fromUtf8(nameOf(shared(owner_).tree, place));
}

std::wstring Node::namespaceUri() const {
  const Place place = NodeAccess::place(*this);
  const Tree& tree = shared(owner_).tree;
  const bool isNamed = !place.isText && tree[place.node].kind() != Kind::declaration;
  return isNamed ? text::fromUtf8(tree.names.uriOf(tree.nameOf(place.node).uri)) : std::wstring();
}

Node Node::firstChild() const {
  const Place place = NodeAccess::place(*this);
  if (Node text = firstText(shared(owner_), place)) return text;
  return NodeAccess::make(shared(owner_),
                          place.isText ? 0 : shared(owner_).tree[place.node].firstChild);
}

Node Node::lastChild() const {
  const Place place = NodeAccess::place(*this);
  const Index last = place.isText ? 0 : shared(owner_).tree[place.node].lastChild;
  return last != 0 ? NodeAccess::make(shared(owner_), last) : firstText(shared(owner_), place);
}

Node Node::nextSibling() const {
  const Place place = NodeAccess::place(*this);
  const Entry& entry = shared(owner_).tree[place.node];
  return NodeAccess::make(shared(owner_), place.isText ? entry.firstChild : entry.next);
}

std::wstring Node::text() const {
  std::wstring wide;
  readText([&](auto content) {
    if constexpr (std::is_same_v<decltype(content), std::string_view>) {
      wide = text::fromUtf8(content);
    }
  });
  return wide;
}

void Node::readTextWith(void* reader, void (*utf8)(void*, std::string_view),
                        void (*)(void*, std::wstring_view)) const {
  const Place place = NodeAccess::place(*this);
  const Tree& tree = shared(owner_).tree;
  const Index node = place.node == 0 ? tree.documentElement() : place.node;
  const Index child = place.isText ? 0 : tree[node].firstChild;
  if (tree[node].kind() == Kind::declaration) {
    utf8(reader, tree.names.uriOf(tree.nameOf(node).uri));
  } else if (child == 0) {
    utf8(reader, tree.textOf(node));
  } else if (!tree[node].hasText() && tree[child].next == 0 &&
             isCharacterData(tree[child].kind())) {
    utf8(reader, tree.textOf(child));
  } else {
    utf8(reader, collectedText(tree, node));
  }
}

Document Document::create() {
  return NodeAccess::makeDocument(*std::make_unique<SharedDocument>().release());
}

Node Document::documentElement() const {
  SharedDocument& owner = NodeAccess::owner(*this);
  return NodeAccess::make(owner, owner.tree.documentElement());
}

}  // namespace ktpnaips::xml
