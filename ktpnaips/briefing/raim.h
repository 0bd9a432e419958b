#pragma once

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/request.h>

#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// Asks for a RAIM prediction (integrity of satellite navigation) for up to 20 locations; the
/// response's `Content` is its text.
class RAIMRqs : public Request<BriefingResponse> {
 public:
  RAIMRqs();

  /// Adds a location, trimmed and upper-cased; an empty one and a twenty-first are dropped
  /// silently.
  void addLocation(std::wstring_view name);

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;

  std::vector<std::wstring> locations_;
};

}  // namespace ktpnaips
