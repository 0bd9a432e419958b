#pragma once

#include <ktpnaips/platform/xml.h>

struct IXMLDOMDocument2;
struct IXMLDOMNode;

/// The DOM objects of MSXML behind the handles, for hosts that work with them directly.
namespace ktpnaips::xml {

/// Stores the node's or document's DOM object in `native`, with a reference for the caller; null
/// for an empty handle.
void toNative(const Node& node, IXMLDOMNode** native) noexcept;
void toNative(const Document& document, IXMLDOMDocument2** native) noexcept;

/// A handle on a DOM object, with a reference of its own; an empty handle for null. Throws when the
/// node belongs to no document of MSXML's extended interface.
Node fromNative(IXMLDOMNode* node);
/// As for nodes. Expressions on the document are XPath from then on.
Document fromNative(IXMLDOMDocument2* document);

}  // namespace ktpnaips::xml
