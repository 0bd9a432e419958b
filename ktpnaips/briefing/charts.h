#pragma once

#include <ktpnaips/briefing/products.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

namespace rule {

/// Refuses all but "LO", "HI" and nothing, whatever their case and the blanks around them.
struct ChartResolution {
  static bool accepts(std::wstring_view value);
};

}  // namespace rule

/// A chart that the service offers.
class ChartDescriptor {
 public:
  Property<DateTime> StoreTime{zeroDateTime};  ///< when the service stored it, UTC
  Property<std::wstring> Name;                 ///< its title
  Property<std::wstring> Key;                  ///< the key by which it is fetched
  /// Whether it comes in low resolution; in a directory, whether it comes in variants at all.
  Property<bool> LowRes;
  /// Whether it comes in high resolution; in a directory always as `LowRes`.
  Property<bool> HighRes;
  Property<bool> PDF;                  ///< for the host; the library leaves it false
  Property<std::wstring> ProductType;  ///< the kind of chart, as the service names it
};

/// The charts that the service offers, in the order of the answer.
class ChartDirectoryRsp : public ResponseBase,
                          public OpenCollection<std::shared_ptr<ChartDescriptor>> {
 private:
  void extractData() override;
};

/// Lists the charts that the service offers.
class ChartDirectoryRqs : public Request<ChartDirectoryRsp> {
 public:
  ChartDirectoryRqs();
};

/// A chart: its description, and its products in the order of the answer. Each product has been
/// written to a temporary file, which is deleted when the thread's library state ends; a host
/// copies what it wants to keep.
class GetChartRsp : public ResponseBase, public Collection<std::shared_ptr<Product>> {
 public:
  GetChartRsp();

  /// The description; no object until an answer has been read.
  ReadOnly<std::shared_ptr<ktpnaips::ChartDescriptor>, GetChartRsp> ChartDescriptor;

 private:
  void loaded() override;
  void extractData() override;
};

/// Fetches a chart.
class GetChartRqs : public Request<GetChartRsp> {
 public:
  GetChartRqs();

  /// The chart's key in the directory, sent as given, also when empty (the default).
  Property<std::wstring> Key;

  /// "LO", "HI" or empty (the default) for the service's choice; sent as given, with its case and
  /// blanks. Anything else is refused silently.
  Property<std::wstring, rule::ChartResolution> Resolution;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
