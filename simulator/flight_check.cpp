#include "simulator/flight_check.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/soap.h"

namespace sim {
namespace {

constexpr std::string_view newOrder[] = {"sts",  "pbn", "nav",  "com",  "dat",  "sur", "dep",
                                         "dest", "eet", "sel",  "typ",  "code", "dle", "opr",
                                         "orgn", "per", "altn", "ralt", "talt", "rif", "rmk"};
constexpr std::string_view oldOrder[] = {"eet",  "rif",  "sel", "opr", "sts",  "per",
                                         "com",  "nav",  "dat", "dep", "dest", "altn",
                                         "ralt", "code", "rmk", "typ", "dla"};

constexpr std::string_view internationalSurvival[] = {"polar", "desert", "maritime", "jungle"};
constexpr std::string_view domesticSurvival[] = {"first-aid", "rations", "water"};

[[noreturn]] void refuse(const std::string& reason) {
  throw SoapFault("Client", "The request does not fit the schema: " + reason);
}

void checkOrder(const XmlView& otherInfo, std::span<const std::string_view> order) {
  auto next = order.begin();
  for (const XmlView& item : otherInfo.children()) {
    const auto found = std::find(next, order.end(), item.name());
    if (found == order.end()) {
      refuse("Element '" + item.name() + "': This element is not expected here in other-info.");
    }
    next = found + 1;
  }
}

std::size_t given(const XmlView& element, std::span<const std::string_view> attributes) {
  return static_cast<std::size_t>(std::ranges::count_if(
      attributes, [&](std::string_view name) { return !element.attribute(name).empty(); }));
}

void checkSurvival(const XmlView& survival) {
  const std::size_t international = given(survival, internationalSurvival);
  const std::size_t domestic = given(survival, domesticSurvival);
  const bool whole = (international == std::size(internationalSurvival) && domestic == 0) ||
                     (international == 0 && domestic == std::size(domesticSurvival));
  if (!whole) {
    refuse(
        "Element 'survival': Expected are the attributes polar, desert, maritime and jungle, or "
        "first-aid, rations and water.");
  }
}

}  // namespace

void checkStageNumbers(const XmlView& notification) {
  int expected = 0;
  for (const XmlView& stage : notification.children("stage")) {
    const std::string number = stage.attribute("number");
    if (number != std::to_string(++expected)) {
      refuse("Element 'stage': The number " + number + " stands where " + std::to_string(expected) +
             " is expected.");
    }
  }
}

void checkFlightStage(const XmlView& stage) {
  const XmlView otherInfo = *stage.child("other-info");
  if (stage.has("surv-equip")) {
    checkOrder(otherInfo, newOrder);
  } else {
    checkOrder(otherInfo, oldOrder);
  }
  if (const std::optional<XmlView> supplement = stage.child("suppl-info")) {
    checkSurvival(*supplement->child("survival"));
  }
}

}  // namespace sim
