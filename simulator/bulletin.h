#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/account.h"
#include "simulator/data/time.h"
#include "simulator/place.h"

namespace sim {

struct BulletinRoute {
  std::string code;  // of a standard route; the points count when it is empty
  std::vector<Place> points;
};

struct BulletinAlternate {
  Place destination;
  std::string level;
  BulletinRoute route;
};

struct BulletinStage {
  Place departure;
  TimePoint etd;
  Place destination;
  std::string weightCategory;
  std::string level;
  BulletinRoute route;
  std::vector<std::string> additionalLocations;
  std::vector<std::string> areas;
  std::optional<BulletinAlternate> alternate;
};

// What a specific pre-flight information bulletin was asked for.
struct BulletinSpec {
  bool domestic = false;
  std::string aircraft;
  std::vector<BulletinStage> stages;
  std::string trueAirspeed;
  bool winds = false;
  bool generalNotams = false;  // those of the whole country too
  bool fullTextNotams = false;
  bool charts = false;
  bool midLevelCharts = false;
  bool high = false;
};

struct Bulletin {
  std::string number;  // given by the store
  std::string owner;   // user
  std::string group;   // empty when it was asked for no group
  TimePoint updated;
  TimePoint from;
  int hours;
  BulletinSpec spec;
};

BulletinSpec bulletinSpec(const XmlView& spfib);

// The places that a stage passes, of its standard route or of its points, from departure to
// destination.
std::vector<Place> placesOf(const BulletinStage& stage);

// What the route of a stage is called: "DCT WOL H65 RAZZI Q29 LIZZI DCT".
std::string routeText(const BulletinStage& stage);

class BulletinStore {
 public:
  // Beyond a large number the oldest is forgotten.
  const Bulletin& add(Bulletin bulletin);

  // Of the account or of one of its groups; nullptr when there is none.
  Bulletin* find(std::string_view number, const Account& account);

  // Those of the group or, without one, of the owner.
  std::vector<const Bulletin*> list(std::string_view owner, std::string_view group) const;

 private:
  std::deque<Bulletin> bulletins_;
  std::size_t lastNumber_ = 1000;
};

}  // namespace sim
