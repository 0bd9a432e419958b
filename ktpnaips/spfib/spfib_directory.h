#pragma once

#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// A pre-flight bulletin that the service holds. What the answer does not give stays unset.
class SPFIBDescriptor {
 public:
  Property<std::wstring> Number;         ///< the bulletin's number
  Property<std::wstring> Aircraft;       ///< aircraft identification
  Property<DateTime> DTG{zeroDateTime};  ///< date-time group, UTC
};

/// The bulletins that the service holds, in the order of the answer.
class ActiveSPFIBDirectoryRsp : public ResponseBase,
                                public OpenCollection<std::shared_ptr<SPFIBDescriptor>> {
 private:
  void extractData() override;
};

/// Lists the bulletins that the service holds for the account, or for one of its groups.
class ActiveSPFIBDirectoryRqs : public Request<ActiveSPFIBDirectoryRsp> {
 public:
  ActiveSPFIBDirectoryRqs();

  /// The group, sent as given; left out when empty (the default).
  Property<std::wstring> GroupId;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
