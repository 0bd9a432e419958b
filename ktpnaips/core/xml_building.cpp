#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>

#include <string>

namespace ktpnaips::modBrevank {

xml::Node addElement(const xml::Node& parent, std::wstring_view name,
                     std::wstring_view namespaceUri, std::wstring_view text) {
  return trapped<xml::Node>(inModule(L"addElement", L"modBrevank"), [&](xml::Node& element) {
    constexpr std::wstring_view prefix = L"ndd:";
    std::wstring qualifiedName;
    qualifiedName.reserve(prefix.size() + name.size());
    qualifiedName.append(prefix).append(name);
    element = parent.appendElement(qualifiedName, namespaceUri, text);
  });
}

void addElements(const xml::Node& parent, std::wstring_view name, std::wstring_view namespaceUri,
                 const std::vector<std::wstring>& texts) {
  for (const auto& text : texts) addElement(parent, name, namespaceUri, text);
}

xml::Node addAttribute(const xml::Node& element, std::wstring_view name,
                       std::wstring_view namespaceUri, std::wstring_view value) {
  return trapped<xml::Node>(inModule(L"addAttribute", L"modBrevank"), [&](xml::Node& attribute) {
    attribute = element.setAttribute(name, namespaceUri, value);
  });
}

}  // namespace ktpnaips::modBrevank
