#include <ktpnaips/platform/windows/xml_document.h>

#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <combaseapi.h>

#include <memory>
#include <utility>
#include <vector>

namespace ktpnaips::xml {
namespace {

/// The version-independent document class, "Msxml2.DOMDocument".
constexpr CLSID documentClass = {
    0xF6D90F11, 0x9C73, 0x11D3, {0xB3, 0x2E, 0x00, 0xC0, 0x4F, 0x99, 0x0B, 0xB4}};

/// Lets threads use COM whose host has not initialised it: they join the multithreaded apartment,
/// which then lives as long as the process. Not every import library has the call.
void openApartment() {
  static const HRESULT opened = [] {
    using Call = HRESULT(STDAPICALLTYPE*)(CO_MTA_USAGE_COOKIE*);
    const auto address = GetProcAddress(GetModuleHandleW(L"ole32.dll"), "CoIncrementMTAUsage");
    if (address == nullptr) return CO_E_NOTINITIALIZED;
    CO_MTA_USAGE_COOKIE cookie{};
    return reinterpret_cast<Call>(reinterpret_cast<void (*)()>(address))(&cookie);  // NOLINT
  }();
  com::check(opened);
}

HRESULT createDocument(void** created) {
  return CoCreateInstance(documentClass, nullptr, CLSCTX_INPROC_SERVER, extendedDocumentInterface,
                          created);
}

void setProperty(IXMLDOMDocument2* document, std::wstring_view name, const com::Variant& value) {
  com::check(document->setProperty(com::Bstr(name).get(), value.get()));
}

void selectByXPath(IXMLDOMDocument2* document) {
  setProperty(document, L"SelectionLanguage", com::Variant(std::wstring_view(L"XPath")));
}

NativeDocument newDocument() {
  void* created = nullptr;
  HRESULT result = createDocument(&created);
  if (result == CO_E_NOTINITIALIZED) {
    openApartment();
    result = createDocument(&created);
  }
  com::check(result);
  auto document = NativeDocument::attach(static_cast<IXMLDOMDocument2*>(created));
  com::check(document->put_async(VARIANT_FALSE));
  com::check(document->put_validateOnParse(VARIANT_FALSE));
  com::check(document->put_resolveExternals(VARIANT_FALSE));
  com::check(document->put_preserveWhiteSpace(VARIANT_FALSE));
  setProperty(document.get(), L"ProhibitDTD", com::Variant(true));
  selectByXPath(document.get());
  return document;
}

Document handleOn(NativeDocument document) {
  auto owner = std::make_unique<SharedDocument>(std::move(document));
  return NodeAccess::makeDocument(*owner.release());
}

ParseFailure failureOf(IXMLDOMDocument2* document) {
  com::ComPtr<IXMLDOMParseError> error;
  com::check(document->get_parseError(error.put()));
  long line = 0;
  long column = 0;
  com::Bstr text;
  error->get_line(&line);
  error->get_linepos(&column);
  error->get_reason(text.put());
  std::wstring reason(text.view());
  while (!reason.empty() && (reason.back() == L'\n' || reason.back() == L'\r')) reason.pop_back();
  if (reason.empty()) reason = L"not well-formed";
  return {static_cast<int>(line), static_cast<int>(column), std::move(reason)};
}

/// A declaration in an encoding that only the parser can read.
bool hasDoctype(IXMLDOMDocument2* document) {
  com::ComPtr<IXMLDOMDocumentType> declaration;
  com::check(document->get_doctype(declaration.put()));
  return static_cast<bool>(declaration);
}

bool isWhiteSpace(std::wstring_view text) {
  return text.find_first_not_of(L" \t\r\n") == std::wstring_view::npos;
}

std::vector<NativeNode> whiteSpaceNodes(IXMLDOMDocument2* document) {
  // By their start, so that long texts are not looked through; what is found is.
  const com::Bstr path(L"//text()[not(normalize-space(substring(., 1, 64)))]");
  com::ComPtr<IXMLDOMNodeList> blanks;
  com::check(document->selectNodes(path.get(), blanks.put()));
  std::vector<NativeNode> nodes;
  for (NativeNode each; blanks->nextNode(each.put()) == S_OK;) {
    if (typeOf(each.get()) == NODE_TEXT && isWhiteSpace(valueOf(each.get()).view())) {
      nodes.push_back(std::move(each));
    }
  }
  return nodes;
}

void removeWhiteSpaceText(IXMLDOMDocument2* document) {
  for (const NativeNode& node : whiteSpaceNodes(document)) {
    NativeNode parent;
    com::check(node->get_parentNode(parent.put()));
    if (parent) com::check(parent->removeChild(node.get(), nullptr));
  }
}

/// Reads the text as it stands. The DOM's own way with white space would also take pieces of text
/// that stand between references.
bool load(IXMLDOMDocument2* document, std::string_view text) {
  VARIANT_BOOL parsed = VARIANT_FALSE;
  com::check(document->put_preserveWhiteSpace(VARIANT_TRUE));
  com::check(document->load(com::Variant(text).get(), &parsed));
  com::check(document->put_preserveWhiteSpace(VARIANT_FALSE));
  return parsed != VARIANT_FALSE;
}

}  // namespace

Document Document::create() {
  return handleOn(newDocument());
}

Document Document::parse(const std::string& text, ParseFailure* failure) {
  ParseFailure ignored;
  ParseFailure& why = failure != nullptr ? *failure : ignored;
  why.reason = refusalBeforeParsing(text);
  if (!why.reason.empty()) return {};
  NativeDocument document = newDocument();
  if (!load(document.get(), text)) {
    why = failureOf(document.get());
    return {};
  }
  if (hasDoctype(document.get())) {
    why.reason = doctypeRefused;
    return {};
  }
  removeWhiteSpaceText(document.get());
  return handleOn(std::move(document));
}

Document Document::parseInPlace(std::string& text, ParseFailure* failure) {
  Document document = parse(text, failure);
  if (document) std::string().swap(text);
  return document;
}

Node Document::documentElement() const {
  SharedDocument& owner = NodeAccess::owner(*this);
  com::ComPtr<IXMLDOMElement> element;
  com::check(owner.document->get_documentElement(element.put()));
  return NodeAccess::make(owner, NativeNode::share(element.get()));
}

void Document::bindPrefixes(std::wstring_view declarations) const {
  IXMLDOMDocument2* document = NodeAccess::owner(*this).document.get();
  setProperty(document, L"SelectionNamespaces", com::Variant(declarations));
  selectByXPath(document);
}

void toNative(const Node& node, IXMLDOMNode** native) noexcept {
  *native = NativeNode::share(NodeAccess::rawOrNull(node)).detach();
}

void toNative(const Document& document, IXMLDOMDocument2** native) noexcept {
  auto* const held = document ? NodeAccess::owner(document).document.get() : nullptr;
  *native = NativeDocument::share(held).detach();
}

Node fromNative(IXMLDOMNode* node) {
  if (node == nullptr) return {};
  com::ComPtr<IXMLDOMDocument> document;
  com::check(node->get_ownerDocument(document.put()));
  if (!document)
    return fromNative(
        NativeNode::share(node).as<IXMLDOMDocument2>(extendedDocumentInterface).get());
  const Document owner = fromNative(document.as<IXMLDOMDocument2>(extendedDocumentInterface).get());
  return NodeAccess::make(NodeAccess::owner(owner), NativeNode::share(node));
}

Document fromNative(IXMLDOMDocument2* document) {
  if (document == nullptr) return {};
  selectByXPath(document);
  return handleOn(NativeDocument::share(document));
}

}  // namespace ktpnaips::xml
