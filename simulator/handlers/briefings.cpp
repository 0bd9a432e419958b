#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/briefing_period.h"
#include "simulator/briefing_text.h"
#include "simulator/data/areas.h"
#include "simulator/data/locations.h"
#include "simulator/data/weather.h"
#include "simulator/product.h"
#include "simulator/registry.h"

namespace sim::handlers {
namespace {

std::vector<const Location*> requestedLocations(const Call& call) {
  std::vector<const Location*> result;
  for (const std::string& code : call.request.childTexts("loc")) {
    result.push_back(findLocation(code));
    if (result.back() == nullptr) {
      throw Refusal("Unknown location: " + code);
    }
  }
  if (result.empty()) {
    throw Refusal("No location was asked for");
  }
  return result;
}

std::vector<const ForecastArea*> requestedAreas(const Call& call) {
  std::vector<const ForecastArea*> result;
  for (const std::string& code : call.request.childTexts("area")) {
    result.push_back(findArea(code));
    if (result.back() == nullptr) {
      throw Refusal("Unknown area: " + code);
    }
  }
  if (result.empty()) {
    throw Refusal("No area was asked for");
  }
  return result;
}

template <class Place>
std::set<std::string_view> regionsOf(const std::vector<const Place*>& places) {
  std::set<std::string_view> regions;
  for (const Place* place : places) {
    regions.insert(firOf(*place));
  }
  return regions;
}

std::string titleOf(std::string_view code, std::string_view name) {
  return std::string(code) + ' ' + std::string(name);
}

void locationBriefing(const Call& call, Element& answer, ChartStore& charts) {
  const BriefingPeriod period = briefingPeriod(call);
  const std::vector<const Location*> locations = requestedLocations(call);
  const XmlView flags = *call.request.child("flags");
  BriefingText text("LOCATION BRIEFING", call, period);
  for (const Location* location : locations) {
    text.heading(titleOf(location->code, location->name));
    if (flags.flag("met")) {
      text.weather(*location);
    }
    if (flags.flag("ntm")) {
      text.notams(location->code);
    }
  }
  if (flags.flag("sigmet")) {
    text.sigmets(regionsOf(locations));
  }
  if (flags.flag("hon")) {
    text.headOfficeNotams();
  }
  answer.add("content", text.take());
  addProduct(answer, charts, "PNG", {"SIGNIFICANT WEATHER", "SIGWX", false, period.from});
}

void writeArea(BriefingText& text, const ForecastArea& area) {
  text.subheading("AREA FORECAST");
  text.message(areaForecast(area, text.period().from, text.period().till));
  text.subheading("AREA QNH");
  text.message(aqnh(area, text.period().from, text.period().till));
  for (const std::string_view code : area.locationCodes) {
    if (const Location* location = findLocation(code)) {
      text.message(taf(*location, text.period().from, text.period().till));
    }
  }
}

void writeAreaNotams(BriefingText& text, const ForecastArea& area) {
  text.notams(firOf(area));
  for (const std::string_view code : area.locationCodes) {
    text.notams(code);
  }
}

void areaBriefing(const Call& call, Element& answer, ChartStore& charts) {
  const BriefingPeriod period = briefingPeriod(call);
  const std::vector<const ForecastArea*> areas = requestedAreas(call);
  const XmlView flags = *call.request.child("flags");
  BriefingText text("AREA BRIEFING", call, period);
  for (const ForecastArea* area : areas) {
    text.heading(titleOf(area->code, area->name));
    if (flags.flag("met")) {
      writeArea(text, *area);
    }
    if (flags.flag("ntm")) {
      writeAreaNotams(text, *area);
    }
  }
  if (flags.flag("met")) {
    text.sigmets(regionsOf(areas));
  }
  if (flags.flag("hon")) {
    text.headOfficeNotams();
  }
  answer.add("content", text.take());
  addBriefingCharts(answer, charts,
                    {flags.flag("charts"), flags.flag("mid-sigwx-gpwt"),
                     flags.attribute("variant") == "HI", period.from});
}

std::string metMessage(std::string_view type, const Location& location, const BriefingText& text) {
  const BriefingPeriod& period = text.period();
  if (type == "TAF") {
    return taf(location, period.from, period.till);
  }
  if (type == "TTF") {
    return ttf(location, text.now());
  }
  if (type == "METAR") {
    return metar(location, text.now());
  }
  if (type == "SPECI") {
    return speci(location, text.now());
  }
  if (type == "ATIS") {
    return atis(location, text.now());
  }
  if (type == "SIGMET") {
    return sigmet(firOf(location), text.now());
  }
  if (type == "AIRMET") {
    return airmet(firOf(location), text.now());
  }
  const ForecastArea* area = findArea(location.area);
  return area == nullptr ? std::string() : aqnh(*area, period.from, period.till);
}

void metBriefing(const Call& call, Element& answer) {
  const std::vector<const Location*> locations = requestedLocations(call);
  const std::vector<std::string> types = call.request.child("types")->childTexts("message-type");
  BriefingText text("MET BRIEFING", call, briefingPeriod(call));
  for (const Location* location : locations) {
    text.heading(titleOf(location->code, location->name));
    for (const std::string& type : types) {
      text.subheading(type);
      text.message(metMessage(type, *location, text));
    }
  }
  answer.add("content", text.take());
}

}  // namespace

void briefings(Registry& registry, State& state) {
  ChartStore& charts = state.charts;
  registry.add("area-brief-rqs", Endpoint::briefing, [&charts](const Call& call, Element& answer) {
    areaBriefing(call, answer, charts);
  });
  registry.add("loc-brief-rqs", Endpoint::briefing, [&charts](const Call& call, Element& answer) {
    locationBriefing(call, answer, charts);
  });
  registry.add("met-brief-rqs", Endpoint::briefing, metBriefing);
}

}  // namespace sim::handlers
