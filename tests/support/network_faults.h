#pragma once

#include <ktpnaips/core/outcome.h>

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/raw_server.h"

namespace ktpnaips::test {

/// What a host sees of a submit: the start of the error text behind "Unrecognised response.", and
/// something that stands in it.
struct Seen {
  std::wstring start;
  std::wstring part;
  bool isError = true;
};

/// One way in which a server misbehaves.
struct NetworkFault {
  std::string name;
  RawServer::Script misbehave;  ///< with a connection, over TLS or not
  Seen seen;
  std::vector<Seen> seenUnderWine;      ///< one of these: it depends on the moment
  std::uint32_t receiveLimit = 20'000;  ///< in milliseconds

  /// One of these, on the platform of the test.
  [[nodiscard]] std::vector<Seen> expected() const;
};

inline std::ostream& operator<<(std::ostream& out, const NetworkFault& fault) {
  return out << fault.name;
}

/// The transport failed in this step with this code.
Seen failed(std::uint32_t code, std::wstring_view step = L"HttpSendRequest");
/// What the server sent is shown.
Seen shown(std::wstring start, std::wstring part = {});
/// The answer is read like any other.
Seen passed();

/// A whole answer of the service, of a success without content.
std::string goodBody();
std::string goodAnswer();

/// Everything between the connection and the end of the answer from which a submit returns on the
/// platform of the test.
std::vector<NetworkFault> networkFaults();

/// What a submit came to.
struct SubmitOutcome {
  bool isError = false;
  Outcome outcome = Outcome::none;
  std::wstring errorText;
  std::vector<std::wstring> reports;
};

/// Files a flight plan on the settings of the calling thread.
SubmitOutcome fileFlightPlan();

/// Sends the submits of the calling thread to a server until the end of the scope; with a file of
/// issuers over HTTPS.
class SubmitsTo {
 public:
  SubmitsTo(const std::wstring& address, std::uint32_t receiveLimit,
            const std::string& caFile = {});
  ~SubmitsTo();
  SubmitsTo(const SubmitsTo&) = delete;
  SubmitsTo& operator=(const SubmitsTo&) = delete;

 private:
  struct Scope;
  std::unique_ptr<Scope> scope_;
};

}  // namespace ktpnaips::test
