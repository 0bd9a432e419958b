#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/property_output.h"

#include <ktpnaips/briefing/light.h>

#include <cstdint>
#include <memory>
#include <string>

namespace cli {
namespace {

using ktpnaips::FirstLastLightRqs;
using ktpnaips::FirstLastLightRsp;

constexpr Shown<FirstLastLightRsp> times[] = {
    {"ForDate", "Date", valueOf<&FirstLastLightRsp::ForDate>},
    {"FirstLight", "First light", valueOf<&FirstLastLightRsp::FirstLight>},
    {"LastLight", "Last light", valueOf<&FirstLastLightRsp::LastLight>}};

/// The place, as far as the options gave it.
struct Place {
  CLI::Option* name = nullptr;
  CLI::Option* lat = nullptr;
  CLI::Option* bearing = nullptr;
  std::wstring nameText;
  double latitude = 0;
  double longitude = 0;
  std::int16_t degrees = 0;
  std::int16_t miles = 0;
};

void addTo(CLI::App& app, Place& place) {
  place.name = addText(app, "--name", "Location, or one by bearing and distance as SY045025",
                       [&](auto text) { place.nameText = text; });
  place.lat = app.add_option("--lat", place.latitude, "Latitude in degrees, north positive");
  auto* lon = app.add_option("--lon", place.longitude, "Longitude in degrees, east positive");
  place.lat->type_name("D")->needs(lon)->excludes(place.name);
  lon->type_name("D")->needs(place.lat);
  place.bearing = addNumber(app, "--bearing", "Bearing from the location in degrees",
                            [&](auto value) { place.degrees = value; });
  auto* distance = addNumber(app, "--distance", "Distance from the location in nautical miles",
                             [&](auto value) { place.miles = value; });
  place.bearing->needs(place.name)->needs(distance);
  distance->needs(place.bearing);
}

void setPoint(FirstLastLightRqs& request, const Place& place) {
  if (place.lat->count() > 0) {
    request.setLatLon(place.latitude, place.longitude);
  } else if (place.bearing->count() > 0) {
    request.setBearingDistance(place.nameText, place.degrees, place.miles);
  } else if (place.name->count() > 0) {
    request.setNamed(place.nameText);
  }
}

const Registered showLight(
    {"", "light", "Times of first and last light", "naips light --name YSSY --date 2026-12-01",
     [](CLI::App& app) -> Run {
       const auto request = std::make_shared<FirstLastLightRqs>();
       const auto place = std::make_shared<Place>();
       addTo(app, *place);
       app.add_option_function<std::string>(
              "--date", [=](const std::string& text) { request->ForDate(parseDate(text)); },
              "Date; today without it")
           ->type_name("YYYY-MM-DD");
       return [=](Session& session) {
         setPoint(*request, *place);
         session.submit(
             *request,
             [](const auto& response, JsonObject& json) { setFields(json, response, times); },
             [](const auto& response) { printFields(response, times); });
       };
     }});

}  // namespace
}  // namespace cli
