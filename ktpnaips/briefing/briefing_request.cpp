#include <ktpnaips/briefing/briefing_request.h>
#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/posting.h>
#include <ktpnaips/core/service.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>

namespace ktpnaips {

using modBrevank::addElement;

bool BriefingRequest::hasPeriod() const {
  return From() != noDateTime && Till() != noDateTime && From() < Till();
}

bool BriefingRequest::hasDuration() const {
  return Duration() > 0 && Duration() < 48;
}

void BriefingRequest::appendTo(const xml::Node& request, std::wstring_view namespaceUri) const {
  if (hasPeriod()) {
    const xml::Node period = addElement(request, L"period", namespaceUri);
    addElement(period, L"from", namespaceUri, isoDateTime(From()));
    addElement(period, L"till", namespaceUri, isoDateTime(Till()));
  } else if (hasDuration()) {
    addElement(request, L"duration", namespaceUri, L"PT" + decimal(Duration(), 2) + L'H');
  }
}

std::shared_ptr<BriefingResponse> BriefingRequest::submit() const {
  return trapped<std::shared_ptr<BriefingResponse>>(
      inClass(L"submit", L"BriefingRequest"), [&](auto& result) {
        const auto response = std::make_shared<BriefingResponse>();
        Utils::aaapost(service::briefing, L"", *this, response);
        result = response;
      });
}

}  // namespace ktpnaips
