#pragma once

#include "cli/pack/great_circle.h"

#include <ktpnaips/core/date_time.h>
#include <ktpnaips/spfib/spfib_spec.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The flight of a pack, as its request file describes it.
namespace cli::pack {

/// A place of the flight. Its position is filled in once it is known.
struct Place {
  std::string text;     ///< as in route text: "YSSY", "CB045025", "3530S14815E"
  std::string name;     ///< the location that gives the position; empty for coordinates
  double bearing = 0;   ///< from that location, degrees
  double distance = 0;  ///< from that location, nautical miles
  std::optional<Position> position;
};

/// The way between two ends: points, or the code of a route that the service holds.
struct Way {
  std::string code;
  std::string text;  ///< route text; that of a code is empty until the service has given it
  std::vector<Place> points;

  /// Whether the points of its code are not known.
  [[nodiscard]] bool isUnknown() const { return !code.empty() && text.empty(); }
};

struct Alternate {
  Place place;
  std::string level;
  Way way;
};

struct Stage {
  Place from;
  Place to;
  ktpnaips::DateTime etd;
  std::string level;
  Way way;
  std::optional<Alternate> alternate;
  std::vector<Place> locations;  ///< the additional ones
};

struct Flight {
  std::shared_ptr<ktpnaips::SPFIBSpec> spec;  ///< what the bulletin is asked for
  std::string aircraft;
  std::string tas;
  std::vector<Stage> stages;
};

/// Reads a request file of `naips spfib request`. Throws `UsageError` when it is not one, or lacks
/// what a pack needs.
Flight readFlight(const std::string& file);

/// A place by its designator: "YSSY", or by bearing and distance "CB045025".
Place placeNamed(const std::string& designator);

/// The places of a stage from its start to its end, and from there to the alternate (empty without
/// one).
std::vector<const Place*> mainWay(const Stage& stage);
std::vector<const Place*> alternateWay(const Stage& stage);

/// Calls `visit` for every place of the flight, in the order of the file.
template <class FlightType, class Visit>
void forEachPlace(FlightType& flight, Visit visit) {
  for (auto& stage : flight.stages) {
    visit(stage.from);
    for (auto& point : stage.way.points) visit(point);
    visit(stage.to);
    if (stage.alternate) {
      for (auto& point : stage.alternate->way.points) visit(point);
      visit(stage.alternate->place);
    }
    for (auto& location : stage.locations) visit(location);
  }
}

/// The length of the stage along its way, nautical miles; nothing when an end is not known.
std::optional<double> lengthOf(const Stage& stage);

/// Knots of an airspeed in flight-plan notation: "N0180", "K0330", "M082" (taken at 573 knots a
/// Mach, as above 36,000 ft); nothing for other text.
std::optional<double> knotsOf(const std::string& airspeed);

/// When the stage ends in still air; nothing when it is not known.
std::optional<ktpnaips::DateTime> arrivalOf(const Flight& flight, const Stage& stage);

}  // namespace cli::pack
