#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_expression.h>
#include <ktpnaips/platform/posix/xml_library.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_characters.h>

#include <libxml/tree.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ktpnaips::xml {
namespace {

// The codes with which the Windows DOM refuses the same.
constexpr auto invalidName = static_cast<std::int32_t>(0xC00CE504U);
constexpr auto secondDocumentElement = static_cast<std::int32_t>(0xC00CE556U);
constexpr auto notAParent = static_cast<std::int32_t>(0x80004005U);

bool isPlain(wchar_t c) {
  return c >= L' ' && c <= L'~';
}

/// The text without what XML does not allow; that is replaced and remembered, so that serialising
/// refuses it.
std::string harmless(SharedDocument& document, std::wstring_view text) {
  const std::optional<std::wstring> replaced = withoutForbidden(text);
  if (replaced) document.hasForbiddenCharacters = true;
  return text::toUtf8(replaced ? *replaced : text);
}

Extent keep(SharedDocument& document, std::wstring_view text) {
  if (std::ranges::all_of(text, isPlain)) return document.tree.keepAscii(text);
  return document.tree.keep(harmless(document, text));
}

Index uriOf(SharedDocument& document, std::wstring_view uri) {
  if (std::ranges::all_of(uri, isPlain)) return document.tree.names.uri(uri);
  return document.tree.names.uri(harmless(document, uri));
}

[[noreturn]] void refuseName(std::wstring_view name) {
  throw RuntimeFault(invalidName,
                     L"The name \"" + std::wstring(name) + L"\" is not a valid XML name.");
}

/// True when XML allows the name, and gives its prefix no other meaning.
bool isAllowed(const std::string& qualified, std::string_view uri) {
  const bool hasNul = qualified.find('\0') != std::string::npos;
  if (hasNul || xmlValidateQName(asXml(qualified.c_str()), 0) != 0) return false;
  if (qualified == "xmlns" || qualified.starts_with("xmlns:")) return false;
  return qualified.starts_with("xml:") == (uri == xmlNamespace);
}

/// The number of the name. Without a namespace it is that of the local name: no prefix stands for
/// none.
Index nameOf(SharedDocument& document, std::wstring_view qualified, std::wstring_view uri) {
  Names& names = document.tree.names;
  const Index uriNumber = uriOf(document, uri);
  const bool isReserved = qualified.starts_with(L"xml");
  if (const Index known = names.find(qualified, uriNumber); known != 0 && !isReserved) return known;
  std::string name = text::toUtf8(qualified);
  if (!isAllowed(name, names.uris[uriNumber])) refuseName(qualified);
  if (uriNumber == 0) name.erase(0, name.find(':') + 1);
  return names.name(name, uriNumber);
}

void checkParent(const Tree& tree, Place parent) {
  const Kind kind = tree[parent.node].kind();
  if (parent.isText || (kind != Kind::document && kind != Kind::element)) {
    throw RuntimeFault(notAParent, L"Only an element or a document can hold an element.");
  }
  if (kind == Kind::document && tree.documentElement() != 0) {
    throw RuntimeFault(secondDocumentElement,
                       L"Only one top level element is allowed in an XML document.");
  }
}

Index elementOf(const Node& node) {
  const Tree& tree = NodeAccess::owner(node).tree;
  const Place place = NodeAccess::place(node);
  if (place.isText || tree[place.node].kind() != Kind::element) {
    throw RuntimeFault(fault::typeMismatch);
  }
  return place.node;
}

template <class Predicate>
Index findAttribute(const Tree& tree, Index element, Predicate predicate) {
  Index each = tree[element].firstAttribute;
  while (each != 0 && !predicate(each)) each = tree[each].next;
  return each;
}

/// True when no element can have both attributes.
bool excludes(const Name& one, const Name& other) {
  return one.qualified == other.qualified || (one.hasPrefix() && other.hasPrefix() &&
                                              one.uri == other.uri && one.local() == other.local());
}

/// True when both stand for one prefix in different ways.
bool contradicts(const Tree& tree, const Name& one, const Name& other) {
  const auto& bindings = tree.names.bindings;
  return one.binding != other.binding &&
         bindings[one.binding].prefix == bindings[other.binding].prefix;
}

}  // namespace

Node Node::appendElement(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                         std::wstring_view text) const {
  SharedDocument& document = NodeAccess::owner(*this);
  const Place parent = NodeAccess::place(*this);
  checkParent(document.tree, parent);
  const Index name = nameOf(document, qualifiedName, namespaceUri);
  const Extent content = text.empty() ? Extent() : keep(document, text);
  const Index element = document.tree.add(Kind::element, name, parent.node, content);
  document.tree.linkChild(element);
  document.expressions.reset();
  return NodeAccess::make(&document, element);
}

Node Node::setAttribute(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                        std::wstring_view value) const {
  const Index element = elementOf(*this);
  SharedDocument& document = NodeAccess::owner(*this);
  Tree& tree = document.tree;
  const Index name = nameOf(document, qualifiedName, namespaceUri);
  const Name& wanted = tree.names.names[name];
  const auto isReplaced = [&](Index each) {
    return tree[each].kind() == Kind::attribute && excludes(wanted, tree.nameOf(each));
  };
  const auto isAgainst = [&](Index each) {
    return !isReplaced(each) && contradicts(tree, wanted, tree.nameOf(each));
  };
  if (wanted.hasPrefix() && (isAgainst(element) || findAttribute(tree, element, isAgainst) != 0)) {
    throw RuntimeFault(invalidName, L"The element declares its prefix for another namespace.");
  }
  const Index attribute = tree.add(Kind::attribute, name, element, keep(document, value));
  while (const Index replaced = findAttribute(tree, element, isReplaced)) {
    tree.unlinkAttribute(replaced);
  }
  const Index last = findAttribute(tree, element, [&](Index each) { return tree[each].next == 0; });
  tree.linkAttribute(attribute, last);
  document.expressions.reset();
  return NodeAccess::make(&document, attribute);
}

std::optional<std::wstring> Node::attribute(std::wstring_view qualifiedName) const {
  const Index element = elementOf(*this);
  const Tree& tree = NodeAccess::owner(*this).tree;
  const std::string name = text::toUtf8(qualifiedName);
  const Index found = findAttribute(tree, element, [&](Index each) {
    return tree[each].kind() == Kind::attribute && tree.nameOf(each).qualified == name;
  });
  if (found == 0) return std::nullopt;
  return text::fromUtf8(tree.textOf(found));
}

}  // namespace ktpnaips::xml
