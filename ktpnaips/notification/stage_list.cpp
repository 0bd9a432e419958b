#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/stage_list.h>

namespace ktpnaips {

void appendStage(const xml::Node& parent, std::wstring_view namespaceUri, std::int64_t number,
                 const IAppendable& stage) {
  const xml::Node element = modBrevank::addElement(parent, L"stage", namespaceUri);
  modBrevank::addAttribute(element, L"number", namespaceUri, decimal(number));
  stage.appendTo(element, namespaceUri);
}

}  // namespace ktpnaips
