#pragma once

#include <ktpnaips/geo/points.h>
#include <ktpnaips/platform/windows/com.h>

#include <brevank.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips::component {

/// A point that is an object of the host's own class.
class HostPoint : public Point {
 public:
  explicit HostPoint(com::ComPtr<::Point> point);

  /// The point over a host's object; throws fault 13 when it does not implement `Point`.
  static std::shared_ptr<HostPoint> over(IUnknown* object);

  [[nodiscard]] com::ComPtr<IUnknown> object() const;

  /// Asks the host's object to append itself to a native DOM node; what it raises is thrown.
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override;
  [[nodiscard]] std::wstring toString() const override;

 private:
  com::ComPtr<::Point> point_;
};

/// Makes a host's object that has `appendTo` under its name implement `Point`; none for others.
com::ComPtr<::Point> pointByName(IDispatch* object);

}  // namespace ktpnaips::component
