#pragma once

#include <optional>
#include <string>

#include "simulator/answer.h"
#include "simulator/registry.h"
#include "simulator/schema.h"
#include "simulator/service.h"
#include "simulator/state.h"

namespace sim {

// Turns a request into its answer. What is wrong with a request is answered as a SOAP fault with
// status 200, as NAIPS clients read no fault from any other: a bare briefing period, posted without
// a request element around it, too, since it names no operation and no account. Paths, methods and
// content types that are none of the service's get the HTTP status.
class Dispatcher {
 public:
  explicit Dispatcher(const Options& options);

  Answer answer(const ReceivedRequest& request);

 private:
  std::string answerXml(Endpoint endpoint, const std::string& body);
  const Operation& checkedOperation(Endpoint endpoint, const XmlView& request) const;
  Element run(const Operation& operation, const XmlView& request);

  std::string schemaNamespace_;
  Schema schema_;
  State state_;
  Registry registry_;
};

}  // namespace sim
