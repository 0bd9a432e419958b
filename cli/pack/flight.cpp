#include "cli/pack/flight.h"

#include "cli/bulletin_file.h"
#include "cli/request_file.h"
#include "cli/text_output.h"
#include "cli/usage_error.h"

#include <ktpnaips/platform/text.h>
#include <ktpnaips/spfib/spfib_route.h>
#include <ktpnaips/spfib/spfib_stage.h>

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <string_view>

namespace cli::pack {

using ktpnaips::BearingDistPoint;
using ktpnaips::CoordinatePoint;
using ktpnaips::NamedPoint;
using ktpnaips::Point;
using ktpnaips::SPFIBRoute;
using ktpnaips::SPFIBStageSpec;

namespace {

Place placeOf(const Point& point) {
  Place place;
  place.text = oneLine(point.toString());
  if (const auto* named = dynamic_cast<const NamedPoint*>(&point)) {
    place.name = oneLine(named->Name());
  } else if (const auto* from = dynamic_cast<const BearingDistPoint*>(&point)) {
    place.name = oneLine(from->Name());
    place.bearing = from->Bearing();
    place.distance = from->Distance();
  } else if (const auto* at = dynamic_cast<const CoordinatePoint*>(&point)) {
    if (std::abs(at->Lat()) <= 90 && std::abs(at->Lon()) <= 180) {
      place.position = Position{at->Lat(), at->Lon()};
    }
  }
  return place;
}

Way wayOf(const SPFIBRoute* route) {
  Way way;
  if (route == nullptr) return way;
  way.code = oneLine(route->RouteCode());
  if (!way.code.empty()) return way;  // the service then ignores the points
  for (const auto& point : *route) {
    if (point == nullptr) continue;
    way.points.push_back(placeOf(*point));
    way.text += (way.text.empty() ? "" : " ") + way.points.back().text;
  }
  return way;
}

Stage stageOf(const SPFIBStageSpec& spec) {
  Stage stage;
  stage.from = placeNamed(oneLine(spec.Departing()));
  stage.to = placeNamed(oneLine(spec.Destination()));
  stage.etd = spec.ETD();
  stage.level = oneLine(spec.Level());
  stage.way = wayOf(spec.Route().get());
  const std::string alternate = oneLine(spec.AltDestination());
  if (!alternate.empty()) {
    stage.alternate =
        Alternate{placeNamed(alternate), oneLine(spec.AltLevel()), wayOf(spec.AltRoute().get())};
  }
  return stage;
}

/// The bulletin does not give its additional locations back.
void addLocations(Stage& stage, const FileValue& from) {
  for (const FileValue& member : from.members()) {
    if (member.key() != "AdditionalLocations") continue;
    for (const FileValue& location : member.elements()) {
      stage.locations.push_back(placeNamed(oneLine(location.text())));
    }
  }
}

void requireStage(const SPFIBStageSpec& stage, const FileValue& value) {
  if (stage.Departing().empty()) value.refuse("has no \"Departing\"");
  if (stage.Destination().empty()) value.refuse("has no \"Destination\"");
  if (stage.Route() == nullptr) value.refuse("has no \"Route\"; for a direct flight it is {}");
}

std::vector<FileValue> stageValues(const FileValue& content) {
  if (!content.isNull()) {
    for (const FileValue& member : content.members()) {
      if (member.key() == "Stages") return member.elements();
    }
  }
  content.refuse("has no \"Stages\": it is not the description of a flight");
}

std::optional<double> lengthOf(const std::vector<const Place*>& places) {
  if (!places.front()->position || !places.back()->position) return std::nullopt;
  double length = 0;
  Position at = *places.front()->position;
  for (const Place* place : places) {
    if (!place->position) continue;
    length += distanceBetween(at, *place->position);
    at = *place->position;
  }
  return length;
}

}  // namespace

Flight readFlight(const std::string& file) {
  const RequestFile request(file);
  Flight flight;
  const auto values = stageValues(request.content());
  flight.spec = readBulletin(request.content());
  flight.aircraft = oneLine(flight.spec->Aircraft());
  flight.tas = oneLine(flight.spec->TAS());
  auto value = values.begin();
  for (const auto& stage : *flight.spec) {
    while (value->isNull()) ++value;  // the bulletin drops it
    requireStage(*stage, *value);
    addLocations(flight.stages.emplace_back(stageOf(*stage)), *value);
    ++value;
  }
  if (flight.stages.empty()) request.content().refuse("has no stage");
  return flight;
}

Place placeNamed(const std::string& designator) {
  ktpnaips::SPFIBRoute reader;  // knows "SY045025" for a bearing and distance
  reader.addNamed(ktpnaips::text::fromUtf8(designator));
  const auto point = reader.Item(1);
  return point != nullptr ? placeOf(*point) : Place{};
}

std::vector<const Place*> mainWay(const Stage& stage) {
  std::vector<const Place*> places{&stage.from};
  for (const Place& point : stage.way.points) places.push_back(&point);
  places.push_back(&stage.to);
  return places;
}

std::vector<const Place*> alternateWay(const Stage& stage) {
  if (!stage.alternate) return {};
  std::vector<const Place*> places{&stage.to};
  for (const Place& point : stage.alternate->way.points) places.push_back(&point);
  places.push_back(&stage.alternate->place);
  return places;
}

std::optional<double> lengthOf(const Stage& stage) {
  return lengthOf(mainWay(stage));
}

std::optional<double> knotsOf(const std::string& airspeed) {
  if (airspeed.size() < 2) return std::nullopt;
  int number = 0;
  const char* const end = airspeed.data() + airspeed.size();
  const auto [parsed, error] = std::from_chars(airspeed.data() + 1, end, number);
  if (error != std::errc() || parsed != end || number <= 0) return std::nullopt;
  switch (airspeed.front()) {
    case 'N':
      return number;
    case 'K':
      return number / 1.852;
    case 'M':
      return number * 5.73;
    default:
      return std::nullopt;
  }
}

std::optional<ktpnaips::DateTime> arrivalOf(const Flight& flight, const Stage& stage) {
  const auto length = lengthOf(stage);
  const auto knots = knotsOf(flight.tas);
  if (!length || !knots) return std::nullopt;
  return stage.etd + std::chrono::minutes(std::lround(*length / *knots * 60));
}

}  // namespace cli::pack
