#include <ktpnaips/core/flag_attributes.h>
#include <ktpnaips/core/xml_building.h>

namespace ktpnaips {

xml::Node addFlags(const xml::Node& parent, std::wstring_view element,
                   std::wstring_view namespaceUri, const FlagWord& word,
                   std::span<const NamedFlag> flags) {
  xml::Node node = modBrevank::addElement(parent, element, namespaceUri);
  for (const auto& [bit, name] : flags) {
    modBrevank::addAttribute(node, name, namespaceUri, modBrevank::boolean(word.flag(bit)));
  }
  return node;
}

}  // namespace ktpnaips
