#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace simtest {

struct Reply {
  std::string bytes;  // all that came
  bool timedOut = false;
  bool reset = false;      // the connection was aborted
  bool connected = false;  // through the TLS handshake, if there is one
  long verifyResult = 0;   // OpenSSL's verdict on the certificate, X509_V_OK is 0

  int status() const;
  std::string head() const;
  std::string body() const;
};

// Writes bytes to a loopback port and reads until the service closes or the time is up. With an
// issuer file it speaks TLS and checks the certificate for 127.0.0.1.
Reply roundTrip(std::uint16_t port, std::string_view bytes,
                std::optional<std::filesystem::path> issuers = {},
                std::chrono::milliseconds patience = std::chrono::seconds(30));

// An HTTP request with "Connection: close".
std::string httpRequest(std::string_view method, std::string_view target, std::string_view body,
                        std::string_view contentType = "text/xml; charset=utf-8");

}  // namespace simtest
