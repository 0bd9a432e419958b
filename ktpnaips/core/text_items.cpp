#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/text_items.h>

namespace ktpnaips {

std::wstring requestText(std::wstring_view value) {
  return std::wstring(value);
}

std::wstring requestText(bool value) {
  return std::wstring(modBrevank::boolean(value));
}

std::wstring requestText(std::int16_t value) {
  return decimal(value);
}

std::wstring requestText(DateTime value) {
  return isoDateTime(value);
}

void addPart(const xml::Node& parent, std::wstring_view element, std::wstring_view namespaceUri,
             const IAppendable* part) {
  const xml::Node node = modBrevank::addElement(parent, element, namespaceUri);
  if (part != nullptr) part->appendTo(node, namespaceUri);
}

}  // namespace ktpnaips
