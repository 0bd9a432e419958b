#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_memory.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_characters.h>

#include <libxml/parserInternals.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace ktpnaips::xml {
namespace {

// The codes with which the Windows DOM refuses the same.
constexpr auto invalidName = static_cast<std::int32_t>(0xC00CE504U);
constexpr auto secondDocumentElement = static_cast<std::int32_t>(0xC00CE556U);
constexpr auto notAParent = static_cast<std::int32_t>(0x80004005U);

/// A name, with or without a prefix, that XML allows.
class QualifiedName {
 public:
  explicit QualifiedName(std::wstring_view name) : text_(text::toUtf8(name)) {
    const bool hasNul = text_.size() != std::strlen(text_.c_str());
    if (hasNul || xmlValidateQName(asXml(text_.c_str()), 0) != 0) {
      throw RuntimeFault(invalidName,
                         L"The name \"" + std::wstring(name) + L"\" is not a valid XML name.");
    }
    const auto colon = text_.find(':');
    if (colon == std::string::npos) return;
    text_[colon] = '\0';
    local_ = colon + 1;
  }

  /// Null without one.
  [[nodiscard]] const char* prefix() const { return local_ == 0 ? nullptr : text_.c_str(); }
  [[nodiscard]] const char* local() const { return text_.c_str() + local_; }

  [[nodiscard]] bool isNameOf(const xmlAttr* attribute) const {
    const xmlChar* space = attribute->ns != nullptr ? attribute->ns->prefix : nullptr;
    return xmlStrEqual(attribute->name, asXml(local())) != 0 &&
           xmlStrEqual(space, asXml(prefix())) != 0;
  }

 private:
  std::string text_;  // prefix and local name, each with a NUL behind it
  std::size_t local_ = 0;
};

const xmlChar* stored(SharedDocument& document, std::string_view utf8) {
  auto* const text = static_cast<char*>(document.memory.allocate(utf8.size() + 1, 1));
  text[utf8.copy(text, utf8.size())] = '\0';
  return asXml(text);
}

bool isPlain(wchar_t c) {
  return c >= L' ' && c <= L'~';
}

/// The text for the tree; what XML does not allow is replaced and remembered, so that serialising
/// refuses it.
const xmlChar* storedText(SharedDocument& document, std::wstring_view text) {
  if (!std::ranges::all_of(text, isPlain)) {
    const std::optional<std::wstring> harmless = withoutForbidden(text);
    if (harmless) document.hasForbiddenCharacters = true;
    return stored(document, text::toUtf8(harmless ? *harmless : text));
  }
  auto* const ascii = static_cast<char*>(document.memory.allocate(text.size() + 1, 1));
  *std::ranges::transform(text, ascii, [](wchar_t c) { return static_cast<char>(c); }).out = '\0';
  return asXml(ascii);
}

template <class T>
T* makeNode(SharedDocument& document, xmlElementType type, const xmlChar* name) {
  T* const node = new (document.memory.allocate(sizeof(T), alignof(T))) T{};
  node->_private = &document;
  node->type = type;
  node->name = name;
  node->doc = document.document.get();
  return node;
}

/// True for a node in the document's memory, false for one that libxml2 frees.
bool isOurs(const void* privateData) {
  return privateData != nullptr;
}

/// Makes the node the last of a list of its parent's.
template <class T>
void link(SharedDocument& document, xmlNodePtr parent, T*& first, T* last, T* node) {
  if (!isOurs(parent->_private)) {
    document.grafts.push_back(reinterpret_cast<xmlNodePtr>(node));  // NOLINT: DOM base
  }
  node->parent = parent;
  node->prev = last;
  (last != nullptr ? last->next : first) = node;
}

void appendChild(SharedDocument& document, xmlNodePtr parent, xmlNodePtr child) {
  link(document, parent, parent->children, parent->last, child);
  parent->last = child;
}

void appendAttribute(SharedDocument& document, xmlNodePtr element, xmlAttrPtr attribute) {
  xmlAttrPtr last = element->properties;
  while (last != nullptr && last->next != nullptr) last = last->next;
  link(document, element, element->properties, last, attribute);
}

xmlNodePtr makeText(SharedDocument& document, std::wstring_view text) {
  auto* const node = makeNode<xmlNode>(document, XML_TEXT_NODE, xmlStringText);
  node->content = const_cast<xmlChar*>(storedText(document, text));  // NOLINT: only libxml2 writes
  return node;
}

/// True for the same text. One in ASCII, as nearly all are, is compared as it stands.
bool isSame(const xmlChar* utf8, std::wstring_view text) {
  const std::string_view bytes(asChars(utf8));
  if (bytes.size() == text.size()) {
    std::uint32_t differences = 0;  // all of them: a loop without an early end takes less time
    for (std::size_t i = 0; i < text.size(); ++i) {
      differences |= static_cast<std::uint32_t>(text[i]) ^
                     static_cast<std::uint32_t>(static_cast<signed char>(bytes[i]));
    }
    if (differences == 0) return true;
  }
  return bytes == text::toUtf8(text);
}

/// A declaration of the prefix on an element.
xmlNsPtr declare(SharedDocument& document, xmlNodePtr element, const char* prefix,
                 std::wstring_view uri) {
  xmlNsPtr* end = &element->nsDef;
  for (; *end != nullptr; end = &(*end)->next) {
    if (xmlStrEqual((*end)->prefix, asXml(prefix)) == 0) continue;
    throw RuntimeFault(invalidName, L"The element declares its prefix for another namespace.");
  }
  if (!isOurs(element->_private)) {
    return made(xmlNewNs(element, storedText(document, uri), asXml(prefix)));
  }
  auto* const declaration = new (document.memory.allocate(sizeof(xmlNs), alignof(xmlNs))) xmlNs{};
  declaration->type = XML_LOCAL_NAMESPACE;
  declaration->href = storedText(document, uri);
  if (prefix != nullptr) declaration->prefix = stored(document, prefix);
  return *end = declaration;
}

/// The declaration of the prefix in scope at the node, when it is one for the namespace.
xmlNsPtr declaredAt(xmlNodePtr node, const char* prefix, std::wstring_view uri) {
  xmlNsPtr inScope = xmlSearchNs(node->doc, node, asXml(prefix));
  return inScope != nullptr && isSame(inScope->href, uri) ? inScope : nullptr;
}

/// The namespace of an attribute that has one but carries no prefix: a declaration without a
/// prefix, kept by the document and never serialised.
xmlNsPtr undeclared(SharedDocument& document, std::wstring_view uri) {
  const xmlDocPtr tree = document.document.get();
  xmlNsPtr last = made(xmlSearchNs(tree, reinterpret_cast<xmlNodePtr>(tree),  // NOLINT: DOM base
                                   asXml("xml")));
  for (; last->next != nullptr; last = last->next) {
    if (last->next->prefix == nullptr && isSame(last->next->href, uri)) return last->next;
  }
  const MemoryWatch watch;
  std::unique_ptr<xmlNs, FreeWith<xmlFreeNs>> space(
      made(xmlNewNs(nullptr, storedText(document, uri), nullptr)));
  watch.check();
  return last->next = space.release();
}

xmlNsPtr attributeNamespace(SharedDocument& document, xmlNodePtr element, const char* prefix,
                            std::wstring_view uri) {
  if (uri.empty()) return nullptr;
  if (prefix == nullptr) return undeclared(document, uri);
  const xmlNsPtr declared = declaredAt(element, prefix, uri);
  return declared != nullptr ? declared : declare(document, element, prefix, uri);
}

xmlAttrPtr findAttribute(xmlNodePtr element, const QualifiedName& name) {
  xmlAttrPtr each = element->properties;
  while (each != nullptr && !name.isNameOf(each)) each = each->next;
  return each;
}

void remove(xmlAttrPtr attribute) {
  if (isOurs(attribute->_private)) {
    xmlUnlinkNode(reinterpret_cast<xmlNodePtr>(attribute));  // NOLINT: DOM base
  } else {
    xmlRemoveProp(attribute);
  }
}

void checkParent(xmlNodePtr parent) {
  const bool isDocument = parent->type == XML_DOCUMENT_NODE;
  if (!isDocument && parent->type != XML_ELEMENT_NODE) {
    throw RuntimeFault(notAParent, L"Only an element or a document can hold an element.");
  }
  if (isDocument && xmlDocGetRootElement(parent->doc) != nullptr) {
    throw RuntimeFault(secondDocumentElement,
                       L"Only one top level element is allowed in an XML document.");
  }
}

}  // namespace

Node Node::appendElement(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                         std::wstring_view text) const {
  SharedDocument& document = NodeAccess::owner(*this);
  const xmlNodePtr parent = NodeAccess::raw(*this);
  checkParent(parent);
  const QualifiedName name(qualifiedName);
  auto* const element =
      makeNode<xmlNode>(document, XML_ELEMENT_NODE, stored(document, name.local()));
  if (!namespaceUri.empty()) {
    element->ns = declaredAt(parent, name.prefix(), namespaceUri);
    if (element->ns == nullptr) {
      element->ns = declare(document, element, name.prefix(), namespaceUri);
    }
  }
  if (!text.empty()) appendChild(document, element, makeText(document, text));
  appendChild(document, parent, element);
  return NodeAccess::make(&document, element);
}

Node Node::setAttribute(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                        std::wstring_view value) const {
  SharedDocument& document = NodeAccess::owner(*this);
  const xmlNodePtr element = NodeAccess::raw(*this);
  if (element->type != XML_ELEMENT_NODE) throw RuntimeFault(fault::typeMismatch);
  const QualifiedName name(qualifiedName);
  auto* const attribute =
      makeNode<xmlAttr>(document, XML_ATTRIBUTE_NODE, stored(document, name.local()));
  const auto node = reinterpret_cast<xmlNodePtr>(attribute);  // NOLINT: DOM base
  appendChild(document, node, makeText(document, value));
  attribute->ns = attributeNamespace(document, element, name.prefix(), namespaceUri);
  const xmlAttrPtr old = findAttribute(element, name);
  appendAttribute(document, element, attribute);
  if (old != nullptr) remove(old);
  return NodeAccess::make(&document, node);
}

std::optional<std::wstring> Node::attribute(std::wstring_view qualifiedName) const {
  const xmlNodePtr element = NodeAccess::raw(*this);
  if (element->type != XML_ELEMENT_NODE) throw RuntimeFault(fault::typeMismatch);
  const xmlAttrPtr found = findAttribute(element, QualifiedName(qualifiedName));
  if (found == nullptr) return std::nullopt;
  return NodeAccess::make(&NodeAccess::owner(*this),
                          reinterpret_cast<xmlNodePtr>(found))  // NOLINT: DOM base
      .text();
}

}  // namespace ktpnaips::xml
