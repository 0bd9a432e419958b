#pragma once

namespace sim {

struct MapPoint {
  double x, y;
};

struct MapRect {
  double left, top, right, bottom;

  bool contains(MapPoint p, double margin = 0) const {
    return p.x >= left + margin && p.x <= right - margin && p.y >= top + margin &&
           p.y <= bottom - margin;
  }
};

// Lambert's conformal conic projection with standard parallels 10 and 40 degrees south.
class Projection {
 public:
  // The middle of the map shows the given place; scale in units of the drawing per radian.
  Projection(MapRect frame, double latitude, double longitude, double scale);

  MapPoint toMap(double latitude, double longitude) const;
  void toGeo(MapPoint point, double& latitude, double& longitude) const;
  const MapRect& frame() const { return frame_; }

 private:
  double radius(double latitude) const;

  MapRect frame_;
  double centreLongitude_;
  double scale_;
  double cone_;
  double factor_;
  double centreRadius_;
};

}  // namespace sim
