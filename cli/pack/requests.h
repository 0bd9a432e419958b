#pragma once

#include "cli/outcomes.h"
#include "cli/pack/pack.h"
#include "cli/session.h"

#include <ktpnaips/spfib/spfib_requests.h>

#include <memory>
#include <string>
#include <vector>

namespace cli::pack {

/// What is asked for beyond the flight's own description.
struct Wanted {
  std::shared_ptr<ktpnaips::SPFIBRqs> bulletin;  ///< with period, duration and group
  bool hasCharts = true;
  std::vector<std::string> charts;  ///< keys or types; every chart when empty
};

struct Gathered {
  Pack pack;
  Outcomes outcomes;  ///< of the requests, in their order, each with its "Request"
};

/// Makes a pilot's requests for the flight one after another and gathers their answers. What fails
/// is shown by the session and stands in the pack.
Gathered gather(Session& session, Flight flight, const Wanted& wanted);

/// Writes the documents of the requests that are known before any answer.
void showDocuments(Session& session, const Flight& flight, const Wanted& wanted);

}  // namespace cli::pack
