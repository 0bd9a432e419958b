#include "simulator/bulletin_text.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <set>
#include <string_view>

#include "simulator/briefing_text.h"
#include "simulator/data/areas.h"
#include "simulator/data/text.h"
#include "simulator/data/weather.h"
#include "simulator/track.h"

namespace sim {
namespace {

BriefingPeriod periodOf(const Bulletin& bulletin) {
  return {bulletin.from, bulletin.from + std::chrono::hours(bulletin.hours)};
}

void addOnce(std::vector<std::string>& names, const std::string& name) {
  if (!name.empty() && std::ranges::find(names, name) == names.end()) {
    names.push_back(name);
  }
}

// Departure, destination, alternate and the additional locations, each once.
std::vector<std::string> terminals(const BulletinStage& stage) {
  std::vector<std::string> names;
  addOnce(names, stage.departure.name);
  addOnce(names, stage.destination.name);
  if (stage.alternate) {
    addOnce(names, stage.alternate->destination.name);
  }
  for (const std::string& name : stage.additionalLocations) {
    addOnce(names, trimmedUpperCase(name));
  }
  return names;
}

std::set<std::string_view> regionsOf(const BulletinStage& stage) {
  std::set<std::string_view> regions;
  for (const Place& place : placesOf(stage)) {
    if (place.location != nullptr) {
      regions.insert(firOf(*place.location));
    }
  }
  for (const std::string& code : stage.areas) {
    if (const ForecastArea* area = findArea(trimmedUpperCase(code))) {
      regions.insert(firOf(*area));
    }
  }
  return regions;
}

std::string stageTitle(const BulletinStage& stage, std::size_t number) {
  return "STAGE " + std::to_string(number) + ' ' + stage.departure.text + " TO " +
         stage.destination.text;
}

void writeFlight(BriefingText& text, const BulletinStage& stage) {
  text.message("ETD " + isoDateTime(stage.etd) + "  LEVEL " + stage.level);
  text.message("ROUTE " + routeText(stage));
  if (stage.alternate) {
    text.message("ALTERNATE " + stage.alternate->destination.text + "  LEVEL " +
                 stage.alternate->level);
  }
}

void writeWinds(BriefingText& text, const Bulletin& bulletin, const BulletinStage& stage) {
  text.subheading("WIND AND TEMPERATURE " + stage.level);
  const double speed = speedInKnots(bulletin.spec.trueAirspeed);
  std::string lines;
  for (const Fix& fix : track(placesOf(stage), stage.etd, speed)) {
    const Wind wind =
        windAt(fix.position.latitude, fix.position.longitude, flightLevel(stage.level), fix.time);
    lines += fix.name + ' ' + dayHourMinute(fix.time) + ' ' + windText(wind) + '\n';
  }
  text.message(lines);
}

void writeAreas(BriefingText& text, const BulletinStage& stage) {
  for (const std::string& code : stage.areas) {
    text.subheading("AREA FORECAST " + trimmedUpperCase(code));
    const ForecastArea* area = findArea(trimmedUpperCase(code));
    text.message(area == nullptr ? std::string()
                                 : areaForecast(*area, text.period().from, text.period().till));
  }
}

void writeStage(BriefingText& text, const Bulletin& bulletin, const BulletinStage& stage) {
  writeFlight(text, stage);
  if (bulletin.spec.winds) {
    writeWinds(text, bulletin, stage);
  }
  for (const std::string& name : terminals(stage)) {
    const Location* location = findLocation(name);
    text.subheading(location == nullptr ? name : name + ' ' + std::string(location->name));
    if (location == nullptr) {
      text.message("NO INFORMATION HELD");
    } else {
      text.weather(*location);
    }
  }
  writeAreas(text, stage);
}

std::string summaryLine(const Notam& notam) {
  return notam.key + ' ' + notam.summary;
}

}  // namespace

std::vector<const Notam*> notamsOf(const Bulletin& bulletin) {
  std::vector<std::string> places;
  for (const BulletinStage& stage : bulletin.spec.stages) {
    for (const std::string& name : terminals(stage)) {
      addOnce(places, name);
    }
  }
  for (const BulletinStage& stage : bulletin.spec.stages) {
    for (const std::string_view region : regionsOf(stage)) {
      addOnce(places, std::string(region));
    }
  }
  std::vector<const Notam*> found;
  for (const std::string& place : places) {
    std::ranges::copy(notamsFor(place), std::back_inserter(found));
  }
  if (bulletin.spec.generalNotams) {
    std::ranges::copy(headOfficeNotams(), std::back_inserter(found));
  }
  const BriefingPeriod period = periodOf(bulletin);
  std::erase_if(found, [&](const Notam* notam) {
    return notam->from >= period.till || notam->till <= period.from;
  });
  return found;
}

std::string bulletinText(const Bulletin& bulletin, const Call& call,
                         const std::vector<bool>& included) {
  BriefingText text("SPECIFIC PRE-FLIGHT INFORMATION BULLETIN " + bulletin.number, call,
                    periodOf(bulletin));
  text.subheading("AIRCRAFT " + bulletin.spec.aircraft + "  TAS " + bulletin.spec.trueAirspeed +
                  (bulletin.spec.domestic ? "  DOMESTIC" : "  INTERNATIONAL"));
  std::set<std::string_view> regions;
  for (std::size_t i = 0; i < bulletin.spec.stages.size(); ++i) {
    if (i < included.size() && included[i]) {
      const BulletinStage& stage = bulletin.spec.stages[i];
      text.heading(stageTitle(stage, i + 1));
      writeStage(text, bulletin, stage);
      regions.merge(regionsOf(stage));
    }
  }
  text.sigmets(regions);
  text.heading("NOTAM");
  for (const Notam* notam : notamsOf(bulletin)) {
    text.message(bulletin.spec.fullTextNotams ? notam->text : summaryLine(*notam));
  }
  return text.take();
}

}  // namespace sim
