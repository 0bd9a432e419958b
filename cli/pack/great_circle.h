#pragma once

/// Great circles on a sphere of the earth's mean radius (6,371.0088 km). Distances differ from
/// those on the ellipsoid by at most 0.6 %, tracks by at most 0.2 degrees.
namespace cli::pack {

/// Degrees, north and east positive.
struct Position {
  double lat = 0;
  double lon = 0;
};

/// Nautical miles.
double distanceBetween(Position from, Position to);

/// The initial true track in degrees, from 0 to less than 360; 0 between equal positions.
double trackBetween(Position from, Position to);

/// Where this true track (degrees) and distance (nautical miles) lead.
Position destinationOf(Position from, double track, double distance);

/// A position on the way: 0 is `from`, 1 is `to`.
Position positionBetween(Position from, Position to, double fraction);

}  // namespace cli::pack
