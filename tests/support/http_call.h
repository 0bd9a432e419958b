#pragma once

#include <ktpnaips/platform/http.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "tests/support/proxy_settings.h"

namespace ktpnaips::test {

inline constexpr std::uint32_t lenientTls =
    http::secure | http::ignoreCertDateInvalid | http::ignoreCertNameInvalid;

/// One request, through all steps of an exchange.
struct HttpCall {
  std::wstring host = L"naips.example";
  std::uint16_t port = 80;
  std::wstring path = L"/naips/service";
  http::Route route;
  std::uint32_t flags = http::noFlags;
  std::string body = "<a/>";
  std::uint32_t connectTimeout = 10'000;
  std::uint32_t sendTimeout = 10'000;
  std::uint32_t receiveTimeout = 10'000;
  std::size_t blockSize = 2048;
};

struct HttpOutcome {
  http::ErrorCode code = 0;
  std::string status;
  std::optional<std::string> contentType;
  std::optional<std::string> rawHeaders;
  std::string body;
  bool bodyIsWhole = false;
  bool isSent = false;
  int logIns = 0;
};

/// Runs the call; a 407 is answered as `setProxyLogIn` says.
HttpOutcome run(const HttpCall& call);

/// The request with its header lines in alphabetical order: clients differ in theirs.
std::string inOrder(const std::string& request);

/// Takes the steps up to the open request, with the headers and time-outs that a call has.
http::ErrorCode open(http::Exchange& exchange, const HttpCall& call);

/// Hides the proxies that the tests run behind.
class NoProxies {
 private:
  ScopedProxy none_{""};
};

}  // namespace ktpnaips::test
