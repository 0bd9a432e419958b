#pragma once

#include <ktpnaips/platform/windows/com.h>
#include <ktpnaips/platform/windows/xml.h>
#include <ktpnaips/platform/xml.h>

#include <msxml2.h>

#include <atomic>
#include <string>
#include <string_view>
#include <utility>

/// MSXML behind the handles of `platform/xml.h`.
namespace ktpnaips::xml {

using NativeNode = com::ComPtr<IXMLDOMNode>;
using NativeDocument = com::ComPtr<IXMLDOMDocument2>;

/// What import libraries do not have on every compiler.
inline constexpr IID extendedDocumentInterface = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

/// A document with what belongs to it, counted by the handles on its nodes.
struct SharedDocument {
  explicit SharedDocument(NativeDocument native) noexcept : document(std::move(native)) {}

  NativeDocument document;
  std::atomic<bool> hasForbiddenCharacters{false};
  std::atomic<long> references{0};
};

/// Between handles and MSXML's objects.
struct NodeAccess {
  static Node make(SharedDocument& owner, NativeNode node);
  static Document makeDocument(SharedDocument& owner);
  /// The document of a handle; throws fault 91 for an empty one.
  static SharedDocument& owner(const Node& node);
  /// The object behind a handle, which keeps it; throws fault 91 for an empty handle.
  static IXMLDOMNode* raw(const Node& node);
  /// As `raw`, but null for an empty handle.
  static IXMLDOMNode* rawOrNull(const Node& node) noexcept;
};

DOMNodeType typeOf(IXMLDOMNode* node);
NativeNode firstChildOf(IXMLDOMNode* node);
NativeNode nextSiblingOf(IXMLDOMNode* node);
std::wstring nameOf(IXMLDOMNode* node);
/// The name without its prefix.
std::wstring localNameOf(IXMLDOMNode* node);
std::wstring namespaceOf(IXMLDOMNode* node);
/// Text, comments and attributes have a value.
com::Variant valueOf(IXMLDOMNode* node);

/// True for a name, with or without a prefix, that XML allows.
bool isQualifiedName(std::wstring_view name);

/// The node and its content as XML text, with each prefix declared where it is first needed.
std::wstring written(IXMLDOMNode* node);

}  // namespace ktpnaips::xml
