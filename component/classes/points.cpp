#include "members.h"

#include <ktpnaips/geo/points.h>

namespace ktpnaips::component {
namespace {

class NamedPointObject final : public PointObject<NamedPoint, _NamedPoint> {
 public:
  using PointObject::PointObject;
  KTP_PROPERTY(Name)
};
KTP_OFFER(NamedPoint);

class CoordinatePointObject final : public PointObject<CoordinatePoint, _CoordinatePoint> {
 public:
  using PointObject::PointObject;
  KTP_PROPERTY(Lat)
  KTP_PROPERTY(Lon)
};
KTP_OFFER(CoordinatePoint);

class BearingDistPointObject final : public PointObject<BearingDistPoint, _BearingDistPoint> {
 public:
  using PointObject::PointObject;
  KTP_PROPERTY(Name)
  KTP_PROPERTY(Bearing)
  KTP_PROPERTY(Distance)
};
KTP_OFFER(BearingDistPoint);

}  // namespace
}  // namespace ktpnaips::component
