#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/account.h"

namespace sim {

inline constexpr std::string_view defaultSchemaNamespace = "http://naips.example/naips/xsd";

// The server certificate that HTTPS clients are shown.
enum class Certificate { valid, expired, notYetValid, wrongName, unknownIssuer };

// Throws std::invalid_argument for a name that is none of valid, expired, not-yet-valid,
// wrong-name and unknown-issuer.
Certificate certificateFromName(std::string_view name);

struct Options {
  std::uint16_t port = 0;             // 0: any free one
  std::filesystem::path stateFolder;  // empty: naips-simulator in the user's XDG state folder
  std::vector<Account> accounts;      // besides the documented demoAccount()
  std::string schemaNamespace{defaultSchemaNamespace};
  std::vector<std::string> hostNames;  // in the certificate, besides localhost and 127.0.0.1
  Certificate certificate = Certificate::valid;
  std::string fault;                            // as Service::setFault
  std::optional<std::chrono::sys_seconds> now;  // empty: the clock, cut to the half-hour
  // Refuses what a real service would: unknown places, departures in the past, flights without
  // stages or aircraft, groups that the account is not in. Otherwise answers as far as it can.
  bool strict = false;
  std::size_t keptRequests = 1000;  // older ones are forgotten
  // Whether a client may steer the service by posting to /control/fault (sets the fault that the
  // body names), /control/count and /control/last (answer how many requests came, and the last).
  bool control = false;
};

struct ReceivedRequest {
  bool secure = false;
  std::string method;
  std::string target;
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;

  // The header's value, its name in any case; empty when it was not sent.
  std::string_view header(std::string_view name) const;
};

// A NAIPS service on 127.0.0.1, HTTP and HTTPS on one port, on a thread of its own from
// construction to destruction. Throws std::runtime_error when the port or the state folder cannot
// be used. All members but stop() may be called from any thread.
class Service {
 public:
  explicit Service(Options options = {});
  ~Service();
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  std::uint16_t port() const;
  std::string address() const;           // "127.0.0.1:PORT"
  std::filesystem::path caFile() const;  // PEM, the issuer that a client has to trust

  // Misbehaves in each answer from now on, as faultNames() tells; an empty name ends it. Throws
  // std::invalid_argument for an unknown name.
  void setFault(std::string_view name);

  // Closes the port and every connection; done by the destructor too.
  void stop();

  // Requests read to their end, the latest keptRequests of them, in the order of arrival.
  std::vector<ReceivedRequest> requests() const;
  std::size_t requestCount() const;
  std::size_t connectionCount() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

struct FaultName {
  std::string_view name;
  std::string_view summary;
};
std::vector<FaultName> faultNames();

}  // namespace sim
