#include "cli/pack/filling.h"

#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <cstddef>
#include <memory>

namespace cli::pack {

using ktpnaips::text::fromUtf8;

namespace {

void addOnce(std::vector<std::string>& texts, const std::string& text) {
  if (!text.empty() && std::ranges::find(texts, text) == texts.end()) texts.push_back(text);
}

std::vector<std::string> aerodromes(const Flight& flight) {
  std::vector<std::string> names;
  for (const Stage& stage : flight.stages) {
    for (const Place* place : {&stage.from, &stage.to}) addOnce(names, place->name);
    if (stage.alternate) addOnce(names, stage.alternate->place.name);
  }
  return names;
}

}  // namespace

std::vector<std::string> locationNames(const Flight& flight) {
  std::vector<std::string> names;
  forEachPlace(flight, [&](const Place& place) { addOnce(names, place.name); });
  return names;
}

void fill(ktpnaips::WindTempProfileRqs& request, const Flight& flight) {
  request.TAS(fromUtf8(flight.tas));
  for (const Stage& stage : flight.stages) {
    const auto wind = std::make_shared<ktpnaips::WindTempStage>();
    wind->ETD(stage.etd);
    wind->Depart(fromUtf8(stage.from.text));
    wind->Destination(fromUtf8(stage.to.text));
    if (!stage.way.isUnknown()) wind->Route(fromUtf8(stage.way.text));
    request.addStage(wind);
  }
}

std::vector<std::vector<std::string>> raimLocations(const Flight& flight) {
  constexpr std::size_t limit = 20;
  std::vector<std::vector<std::string>> groups;
  for (const std::string& name : aerodromes(flight)) {
    if (groups.empty() || groups.back().size() == limit) groups.emplace_back();
    groups.back().push_back(name);
  }
  return groups;
}

void fill(ktpnaips::RAIMRqs& request, const std::vector<std::string>& locations) {
  for (const std::string& name : locations) request.addLocation(fromUtf8(name));
}

void fill(ktpnaips::LocAirspaceDirectoryRqs& request, const std::string& name) {
  request.PartialName(fromUtf8(name));
}

}  // namespace cli::pack
