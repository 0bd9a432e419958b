#pragma once

#include <ktpnaips/core/deployment.h>
#include <ktpnaips/platform/text.h>

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/raw_server.h"
#include "tests/support/test_certificates.h"
#include "tests/torture/scenario.h"

namespace ktpnaips::test {

/// The service, which answers each request with the same.
class Service {
 public:
  explicit Service(const Scenario& scenario)
      : tls_(scenario.way == Way::https ? authority_.server({}) : nullptr),
        server_([this, answer = answerOf(scenario)](Peer& peer) {
          if (tls_ != nullptr) peer.startTls(tls_.get());
          std::string request = peer.readRequest();
          {
            const std::lock_guard lock(mutex_);
            requests_.push_back(std::move(request));
          }
          peer.write(answer);
        }) {}

  /// Where it is reached that way.
  [[nodiscard]] std::wstring address(Way way) const {
    return way == Way::named ? L"gateway.example:" + std::to_wstring(server_.port())
                             : server_.address();
  }
  /// The file of the issuer that it has over HTTPS.
  [[nodiscard]] std::wstring caFile() const { return text::fromUtf8(authority_.file()); }

  /// The requests since the last time.
  std::vector<std::string> takeRequests() {
    const std::lock_guard lock(mutex_);
    return std::exchange(requests_, {});
  }

 private:
  static std::string answerOf(const Scenario& scenario) {
    return "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: " +
           std::to_string(scenario.answer.size()) + "\r\n\r\n" + scenario.answer;
  }

  CertificateAuthority authority_;
  std::shared_ptr<SSL_CTX> tls_;
  std::mutex mutex_;
  std::vector<std::string> requests_;
  RawServer server_;
};

}  // namespace ktpnaips::test
