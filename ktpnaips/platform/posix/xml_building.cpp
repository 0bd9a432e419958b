#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_expression.h>
#include <ktpnaips/platform/posix/xml_library.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_characters.h>
#include <ktpnaips/platform/xml_common.h>

#include <libxml/tree.h>

#include <algorithm>

namespace ktpnaips::xml {
namespace {

/// The text for the tree; what XML does not allow is replaced and remembered, so that serialising
/// refuses it.
std::string harmless(SharedDocument& document, std::wstring_view text) {
  const std::optional<std::wstring> replaced = withoutForbidden(text);
  if (replaced) document.hasForbiddenCharacters = true;
  return text::toUtf8(replaced ? *replaced : text);
}

Extent keep(SharedDocument& document, std::wstring_view text) {
  const bool isPlain = std::ranges::all_of(text, [](wchar_t c) { return c >= L' ' && c <= L'~'; });
  if (isPlain) return document.tree.keepAscii(text);
  return document.tree.keep(harmless(document, text));
}

Index uriOf(SharedDocument& document, std::wstring_view uri) {
  auto& [lastUri, number] = document.lastUri;
  if (uri.empty() || uri == lastUri) return uri.empty() ? 0 : number;
  const Index found = document.tree.names.uri(harmless(document, uri));
  lastUri = uri;
  return number = found;
}

Index nameOf(SharedDocument& document, std::wstring_view qualified, std::wstring_view uri) {
  Names& names = document.tree.names;
  const Index uriNumber = uriOf(document, uri);
  const Index known = qualified.empty() ? 0 : names.find(qualified, uriNumber);
  if (known != 0) return known;
  const std::string name = text::toUtf8(qualified);
  const bool hasNul = name.find('\0') != std::string::npos;
  if (hasNul || xmlValidateQName(asXml(name.c_str()), 0) != 0) refuseName(qualified);
  return names.name(text::toUtf8(nameWithin(uri, qualified)), uriNumber);
}

Index elementOf(const Node& node) {
  const Place place = NodeAccess::place(node);
  if (!node.isElement()) throw RuntimeFault(fault::typeMismatch);
  return place.node;
}

/// True when no element can have both attributes.
bool excludes(const Name& one, const Name& other) {
  return one.qualified == other.qualified || (one.hasPrefix() && other.hasPrefix() &&
                                              one.uri == other.uri && one.local() == other.local());
}

}  // namespace

Node Node::appendElement(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                         std::wstring_view text) const {
  SharedDocument& document = NodeAccess::owner(*this);
  const Place parent = NodeAccess::place(*this);
  const Kind kind = document.tree[parent.node].kind();
  const bool isDocument = kind == Kind::document;
  if (parent.isText || (!isDocument && kind != Kind::element)) refuseParent();
  if (isDocument && document.tree.documentElement() != 0) refuseSecondDocumentElement();
  const Index name = nameOf(document, qualifiedName, namespaceUri);
  const Extent content = text.empty() ? Extent() : keep(document, text);
  const Index element = document.tree.add(Kind::element, name, parent.node, content);
  document.tree.linkChild(element);
  document.expressions.reset();
  return NodeAccess::make(document, element);
}

Node Node::setAttribute(std::wstring_view qualifiedName, std::wstring_view namespaceUri,
                        std::wstring_view value) const {
  SharedDocument& document = NodeAccess::owner(*this);
  const Index element = elementOf(*this);
  Tree& tree = document.tree;
  const Index name = nameOf(document, qualifiedName, namespaceUri);
  const Name& wanted = tree.names[name];
  const auto isReplaced = [&](Index each) {
    return tree[each].kind() == Kind::attribute && excludes(wanted, tree.nameOf(each));
  };
  const auto isAgainst = [&](Index each) {
    return tree.nameOf(each).uri != wanted.uri && tree.prefixOf(each) == wanted.prefix() &&
           !isReplaced(each);
  };
  if (wanted.hasPrefix() && (isAgainst(element) || tree.findAttribute(element, isAgainst) != 0)) {
    refusePrefix();
  }
  const Index attribute = tree.add(Kind::attribute, name, element, keep(document, value));
  while (const Index replaced = tree.findAttribute(element, isReplaced)) {
    tree.unlinkAttribute(replaced);
  }
  tree.linkAttribute(attribute,
                     tree.findAttribute(element, [&](Index each) { return tree[each].next == 0; }));
  document.expressions.reset();
  return NodeAccess::make(document, attribute);
}

std::optional<std::wstring> Node::attribute(std::wstring_view qualifiedName) const {
  const Tree& tree = NodeAccess::owner(*this).tree;
  const std::string name = text::toUtf8(qualifiedName);
  const Index found = tree.findAttribute(elementOf(*this), [&](Index each) {
    return tree[each].kind() == Kind::attribute && tree.nameOf(each).qualified == name;
  });
  if (found == 0) return std::nullopt;
  return text::fromUtf8(tree.textOf(found));
}

}  // namespace ktpnaips::xml
