#pragma once

#include "cli/pack/flight.h"

#include <ktpnaips/core/response.h>
#include <ktpnaips/spfib/route_directory.h>

#include <string>
#include <vector>

/// Routes that the service holds under a code.
namespace cli::pack {

struct CodedWay {
  Way* way;
  const Place* from;
  const Place* to;
};

/// Those of the flight, which must stay where it is.
std::vector<CodedWay> codedWays(Flight& flight);

/// Makes it the request for the route.
void fill(ktpnaips::GetRouteRqs& request, const CodedWay& coded);

/// The text of the route in an answer: what stands there besides its ends, code and description.
std::string routeText(const ktpnaips::AbstractResponse& response);

/// Gives the way its text and the points that the text names.
void takeRoute(const CodedWay& coded, const std::string& text);

}  // namespace cli::pack
