#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/notification/sar_time_info.h>

namespace ktpnaips {
namespace {

constexpr TextItem<SarTimeInfo> places[] = {
    {L"ats-unit", textOf<&SarTimeInfo::ATSUnit>},
    {L"endpoint", textOf<&SarTimeInfo::EndPoint>, Sent::unlessEmpty},
    {L"location", textOf<&SarTimeInfo::Location>},
};

}  // namespace

void SarTimeInfo::appendTo(const xml::Node& sarTime, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"SARTimeInfo"), [&] {
    if (TBA()) {
      modBrevank::addElement(sarTime, L"sartimetban", namespaceUri, L"TBA");
    } else {
      modBrevank::addElement(sarTime, L"sartime", namespaceUri, requestText(Time()));
    }
    addItems(sarTime, namespaceUri, *this, places);
  });
}

}  // namespace ktpnaips
