#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_common.h>

#include <cstdint>
#include <utility>

namespace ktpnaips::xml {
namespace {

// What MSXML answers to the same; not every implementation of its interfaces does.
constexpr auto invalidName = static_cast<std::int32_t>(0xC00CE504U);
constexpr auto secondDocumentElement = static_cast<std::int32_t>(0xC00CE556U);
constexpr auto notAParent = static_cast<std::int32_t>(0x80004005U);

}  // namespace

Node::Node(const Node& other) noexcept : owner_(other.owner_), node_(other.node_) {
  retain(owner_, node_);
}

Node::Node(Node&& other) noexcept
    : owner_(std::exchange(other.owner_, nullptr)), node_(std::exchange(other.node_, nullptr)) {}

Node& Node::operator=(const Node& other) noexcept {
  return *this = Node(other);
}

Node& Node::operator=(Node&& other) noexcept {
  std::swap(owner_, other.owner_);
  std::swap(node_, other.node_);
  return *this;
}

Node::~Node() {
  release(owner_, node_);
}

void refuseName(std::wstring_view qualifiedName) {
  throw RuntimeFault(invalidName,
                     L"The name \"" + std::wstring(qualifiedName) + L"\" is not a valid XML name.");
}

void refusePrefix() {
  throw RuntimeFault(invalidName, L"The element declares its prefix for another namespace.");
}

void refuseParent() {
  throw RuntimeFault(notAParent, L"Only an element or a document can hold an element.");
}

void refuseSecondDocumentElement() {
  throw RuntimeFault(secondDocumentElement,
                     L"Only one top level element is allowed in an XML document.");
}

void refuseDepth() {
  throw RuntimeFault(fault::invalidCall, std::wstring(tooDeep));
}

std::wstring_view nameWithin(std::wstring_view namespaceUri, std::wstring_view qualifiedName) {
  const auto colon = qualifiedName.find(L':');
  const bool hasPrefix = colon != std::wstring_view::npos;
  const auto prefix = hasPrefix ? qualifiedName.substr(0, colon) : std::wstring_view();
  const bool isReserved =
      qualifiedName == L"xmlns" || prefix == L"xmlns" ||
      namespaceUri == L"http://www.w3.org/2000/xmlns/" ||
      (prefix == L"xml") != (namespaceUri == L"http://www.w3.org/XML/1998/namespace");
  if (isReserved) refuseName(qualifiedName);
  return namespaceUri.empty() && hasPrefix ? qualifiedName.substr(colon + 1) : qualifiedName;
}

}  // namespace ktpnaips::xml
